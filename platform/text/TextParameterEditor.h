#pragma once

#include "ParameterEditor.h"

class GrowingTextEdit;
class SuggestionModel;
class SuggestionPopup;

/// Free text. The input grows with its lines. Enter moves to the next parameter and Shift+Enter inserts a
/// line break; if the parameter is the whole text of the record, Enter inserts a line break and Ctrl+Enter
/// moves on. Texts recently given to parameters with this label are suggested while typing and with the
/// down key.
class TextParameterEditor : public ParameterEditor
{
    Q_OBJECT

public:
    TextParameterEditor(const ParameterSpec& spec, LatelyUsed* latelyUsed, QWidget* parent);

    ParameterValue value() const override;
    void setValue(const ParameterValue& value) override;
    QWidget* input() const override;

protected:
    bool enterPressed(QWidget* input, Qt::KeyboardModifiers modifiers) override;

private:
    void offer(bool all);

    LatelyUsed* m_latelyUsed;
    GrowingTextEdit* m_edit;
    SuggestionModel* m_model;
    SuggestionPopup* m_popup;
    QString m_text; ///< when the signal of a change came last
    QString m_key;  ///< of the set value, until the text changes
};
