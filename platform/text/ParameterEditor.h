#pragma once

#include "ParameterKind.h"

#include <QWidget>

class LatelyUsed;
class QLabel;
class QVBoxLayout;
class ReferenceData;

/// The editor of one parameter. Its own widgets take the focus; buttons do not, so that Tab moves from
/// parameter to parameter.
class ParameterEditor : public QWidget
{
    Q_OBJECT

public:
    /// Creates the editor for the parameter's kind. \a reference may be null.
    static ParameterEditor* create(const ParameterSpec& spec, ReferenceData* reference,
                                   LatelyUsed* latelyUsed, QWidget* parent);

    const ParameterSpec& spec() const { return m_spec; }
    /// The entered value; empty as long as it is not complete.
    virtual ParameterValue value() const = 0;
    /// Shows a value without emitting a signal. A text that the kind does not have is unchanged until the
    /// user changes it.
    virtual void setValue(const ParameterValue& value) = 0;
    /// The value could come from the reference data but does not.
    virtual bool isUnknown() const { return false; }
    /// The widget that takes the focus first.
    virtual QWidget* input() const = 0;

signals:
    /// The user has changed the value.
    void edited();
    /// The result of isUnknown() has changed, the value has not.
    void judged();
    /// The editor has received the focus.
    void entered();
    /// Enter was pressed: go to the next parameter.
    void nextRequested();

protected:
    explicit ParameterEditor(const ParameterSpec& spec, QWidget* parent);

    /// Rows of the editor's widgets; the error message is shown below them.
    QVBoxLayout* rows() const { return m_rows; }
    /// Names an input after the parameter and watches its focus.
    void addInput(QWidget* input);
    /// Shows below the editor why the input is not a value; an empty text removes the message.
    void complain(const QString& text) { remark(text.isEmpty() ? QString() : QStringLiteral("⚠ ") + text); }
    /// Shows a remark on a value in the same place.
    void remark(const QString& text);
    /// Enter in an input. True: handled; otherwise the parameter is left.
    virtual bool enterPressed(QWidget* /*input*/, Qt::KeyboardModifiers /*modifiers*/) { return false; }
    /// An input loses the focus, or Enter leaves the parameter: complete what was typed.
    virtual void finish(QWidget* input);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ParameterSpec m_spec;
    QVBoxLayout* m_rows;
    QLabel* m_complaint;
};
