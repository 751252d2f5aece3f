#pragma once

#include "ParameterKind.h"

#include <QWidget>

class LatelyUsed;
class QLabel;
class QVBoxLayout;
class ReferenceData;

/// The editor of one parameter. Its own widgets take the keyboard; helpers such as buttons do not, so that Tab walks from
/// parameter to parameter.
class ParameterEditor : public QWidget
{
    Q_OBJECT

public:
    /// The editor that fits the parameter's kind. \a reference may be null.
    static ParameterEditor* create(const ParameterSpec& spec, ReferenceData* reference,
                                   LatelyUsed* latelyUsed, QWidget* parent);

    const ParameterSpec& spec() const { return m_spec; }
    /// What was entered; empty as long as it is not complete.
    virtual ParameterValue value() const = 0;
    /// Shows a value without a signal. A text that the kind does not know stays as it is until the user changes it.
    virtual void setValue(const ParameterValue& value) = 0;
    /// The value is none of the reference data's although it could be.
    virtual bool isUnknown() const { return false; }
    /// The widget that takes the keyboard first.
    virtual QWidget* input() const = 0;

signals:
    /// The user has changed the value.
    void edited();
    /// What isUnknown() says has changed, the value has not.
    void judged();
    /// The keyboard is here now.
    void entered();
    /// Enter: on to the next parameter.
    void nextRequested();

protected:
    explicit ParameterEditor(const ParameterSpec& spec, QWidget* parent);

    /// Rows of the editor's widgets; the complaint stands below them.
    QVBoxLayout* rows() const { return m_rows; }
    /// Names an input after the parameter and watches its keyboard.
    void addInput(QWidget* input);
    /// Tells the user below the editor why what was entered is no value; empty takes it away.
    void complain(const QString& text);
    /// Tells in the same place what is worth knowing of a value.
    void remark(const QString& text);
    /// Enter in an input. True: done with; otherwise the parameter is left.
    virtual bool enterPressed(QWidget* input, Qt::KeyboardModifiers modifiers);
    /// The keyboard leaves an input, or Enter leaves the parameter: time to make what was typed complete.
    virtual void finish(QWidget* input);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ParameterSpec m_spec;
    QVBoxLayout* m_rows;
    QLabel* m_complaint;
};
