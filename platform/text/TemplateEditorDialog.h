#pragma once

#include "TemplateEditorChip.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// Edits the properties that the author of a template may set on a parameter: its label, the layout of a
/// date, the values of a list, whether it is optional, and the words that are shown with its value. All
/// other properties are unchanged.
class TemplateEditorDialog : public QDialog
{
    Q_OBJECT

public:
    TemplateEditorDialog(const TemplateEditorChip& chip, QWidget* parent);

    /// The parameter with the dialog's current settings.
    TemplateEditorChip chip() const;

    /// Stays open, and says why, while a setting cannot be stored.
    void accept() override;

private:
    void addFormat(QFormLayout* form);
    void addValues(QFormLayout* form);
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
