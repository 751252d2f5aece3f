#pragma once

#include "KeptDraft.h"

class NoticeBar;

/// The user's choice in a dialog that is not saved yet. It is kept while he chooses; the next time the
/// dialog is shown it is offered in a line at the top.
class KeptChoice : public KeptDraft
{
    Q_OBJECT

public:
    /// Functions that read the choice from the dialog and set it again. Values contain a "caption".
    struct Hooks {
        std::function<KeptTexts::Values()> read;              ///< no values: nothing is chosen
        std::function<bool(const KeptTexts::Values&)> isOver; ///< this choice is no longer needed
        std::function<void(const KeptTexts::Values&)> take;
    };

    /// \a dialog must have a vertical layout. \a offer is the text of the line, with a placeholder for the
    /// caption.
    KeptChoice(QWidget* dialog, const QString& offer, Hooks hooks);

    /// The dialog is shown in its initial state: offers a kept choice. From now on the choice is read.
    void begin();
    /// The choice was saved or dropped. Nothing is read until begin().
    void forget();
    /// The choice is kept for the next time. Nothing is read until begin().
    void leave();

private:
    void answer(int choice);

    QString m_offer;
    Hooks m_hooks;
    NoticeBar* m_bar;
    bool m_isOpen = false;
};
