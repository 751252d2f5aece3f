#pragma once

#include "ParameterEditor.h"

class QComboBox;

/// One of the values of a list; the first row stands for none. Letters choose by their first, the wheel does nothing.
class ListParameterEditor : public ParameterEditor
{
    Q_OBJECT

public:
    ListParameterEditor(const ParameterSpec& spec, QWidget* parent);

    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;
    QWidget* input() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* m_combo;
    QString m_key;
};
