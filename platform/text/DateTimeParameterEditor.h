#pragma once

#include "ParameterEditor.h"

#include <QVector>

class DateTimeLine;

/// A date and time in the parameter's layout, or an interval of two of them, written as "с %1 по %2".
class DateTimeParameterEditor : public ParameterEditor
{
    Q_OBJECT

public:
    DateTimeParameterEditor(const ParameterSpec& spec, ReferenceData* reference, QWidget* parent);

    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;
    QWidget* input() const override;

protected:
    bool enterPressed(QWidget* input, Qt::KeyboardModifiers modifiers) override;
    void finish(QWidget* input) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void alignCaptions();
    bool isInterval() const { return m_lines.size() == 2; }
    DateTimeLine* addLine(const QString& caption, const QString& format, ReferenceData* reference);
    void lineEdited();
    /// Why the content of the lines is not a value; empty if it is one or nothing was entered.
    QString fault() const;

    QVector<DateTimeLine*> m_lines;
    QVector<QLabel*> m_captions; ///< equally wide
    ParameterValue m_given;      ///< a text in another form: kept until the user changes it
    bool m_isGiven = false;
};
