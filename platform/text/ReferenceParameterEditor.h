#pragma once

#include "SuggestedParameterEditor.h"

/// A worker, a department, an organization, a piece of equipment, a voltage, or the crew of a shift: a line
/// that finds items of the reference data by parts of their names. Other text is accepted without a key and
/// marked as unknown. A crew is several workers separated by commas; a button fills in the crew of the open
/// workshift.
class ReferenceParameterEditor : public SuggestedParameterEditor
{
    Q_OBJECT

public:
    ReferenceParameterEditor(const ParameterSpec& spec, ReferenceData* reference, QWidget* parent);

    void setValue(const ParameterValue& value) override;
    bool isUnknown() const override { return m_unknown; }

protected:
    void loadItems() override;
    QString query() const override;
    bool isTaken() const override { return isCrew() || !key().isEmpty(); }
    void take(int row) override;
    void setTyped(const QString& text, const QString& key) override;
    void finish(QWidget* input) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isCrew() const;
    bool isEquipment() const;
    void fillCrew();
    /// The names that the reference data does not have.
    QStringList unknownNames();
    void tellUnknown();
    void setUnknown(bool unknown);

    ReferenceData* m_reference;
    bool m_loaded = false; ///< the model contains the current items
    bool m_unknown = false;
};
