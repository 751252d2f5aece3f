#pragma once

#include "TemplateEditorChip.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// Asks for what the author of a template may set on a parameter: its label, the layout of a date, the values of a
/// list, whether it may stay empty, and the words that go with its value. All else of the parameter stays as it is.
class TemplateEditorDialog : public QDialog
{
    Q_OBJECT

public:
    TemplateEditorDialog(const TemplateEditorChip& chip, QWidget* parent);

    /// The parameter as the dialog stands.
    TemplateEditorChip chip() const;

    /// Stays open, and says why, while something could not be stored.
    void accept() override;

private:
    QString problem() const;
    QStringList values() const;
    void showSample();

    TemplateEditorChip m_chip;
    QLineEdit* m_label;
    QComboBox* m_format = nullptr;
    QLabel* m_sample = nullptr;
    QPlainTextEdit* m_values = nullptr;
    QCheckBox* m_optional;
    QLineEdit* m_before;
    QLineEdit* m_after;
    QLabel* m_notice;
};
