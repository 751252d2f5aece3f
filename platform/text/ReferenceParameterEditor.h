#pragma once

#include "ParameterEditor.h"

class QLineEdit;
class SuggestionModel;
class SuggestionPopup;

/// A worker, a department, an organization, a piece of equipment, a voltage, or the crew of a shift: a line that finds
/// items of the reference data by parts of their names. Other text is taken as it stands, without a key. A crew is
/// several workers parted by commas; a button fills in that of the open workshift.
class ReferenceParameterEditor : public ParameterEditor
{
    Q_OBJECT

public:
    ReferenceParameterEditor(const ParameterSpec& spec, ReferenceData* reference, QWidget* parent);

    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;
    QWidget* input() const override;

protected:
    void finish(QWidget* input) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isCrew() const;
    bool isEquipment() const;
    void loadItems();
    /// The part of the text that is being typed: all of it, or a crew's last name.
    QString query() const;
    void suggest();
    void suggestAll();
    void take(int row);
    void fillCrew();
    void setTyped(const QString& text, const QString& key);

    ReferenceData* m_reference;
    QLineEdit* m_line;
    SuggestionModel* m_model;
    SuggestionPopup* m_popup;
    QString m_key;
    bool m_loaded = false; ///< the model holds the present items
};
