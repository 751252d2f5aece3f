#pragma once

#include "ParameterEditor.h"

class QHBoxLayout;
class QLineEdit;
class SuggestionModel;
class SuggestionPopup;

/// A line that finds items by parts of their names, with a button that shows them all; the common base of
/// list and reference editors. Enter and Tab take the marked item and go on.
class SuggestedParameterEditor : public ParameterEditor
{
    Q_OBJECT

public:
    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;
    QWidget* input() const override;

protected:
    SuggestedParameterEditor(const ParameterSpec& spec, QWidget* parent);

    QLineEdit* line() const { return m_line; }
    SuggestionModel* model() const { return m_model; }
    SuggestionPopup* popup() const { return m_popup; }
    QHBoxLayout* row() const { return m_row; } ///< the line and its buttons
    QString key() const { return m_key; }      ///< of the item that the text comes from

    /// Fills the model, unless it contains the current items.
    virtual void loadItems() = 0;
    /// The part of the text that is being typed.
    virtual QString query() const;
    /// The text is one of the items: it would find only itself.
    virtual bool isTaken() const = 0;
    /// The user has chosen this row.
    virtual void take(int row);
    /// Shows a text and its key as the user's choice.
    virtual void setTyped(const QString& text, const QString& key);
    void suggestAll();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void typed();

    QLineEdit* m_line;
    QHBoxLayout* m_row;
    SuggestionModel* m_model;
    SuggestionPopup* m_popup;
    QString m_key;
};
