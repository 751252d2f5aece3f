#pragma once

#include "ParameterEditor.h"

class GrowingTextEdit;
class SuggestionModel;
class SuggestionPopup;

/// Free text. The input grows with its lines; Enter leads on and Shift+Enter makes a line break, the other way round
/// (Enter breaks, Ctrl+Enter leads on) where the text is all there is to the record. Texts lately given to parameters of
/// this label are offered while typing and with the down key.
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
    QString m_key; ///< of the value that was set, until the text changes
};
