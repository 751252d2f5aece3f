#pragma once

#include "SuggestedParameterEditor.h"

/// One of the values of a list, found by parts of it. Other text is not a value, and the editor says so;
/// the value that a record already has is always offered.
class ListParameterEditor : public SuggestedParameterEditor
{
    Q_OBJECT

public:
    ListParameterEditor(const ParameterSpec& spec, QWidget* parent);

    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;

protected:
    void loadItems() override {}
    bool isTaken() const override;
    void finish(QWidget* input) override;

private:
    void offer(const QString& more = QString());
};
