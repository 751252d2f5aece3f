#pragma once

#include "KeptTexts.h"

#include <functional>

class KeptDraft;
class NoticeBar;

/// What the user has chosen in a dialog and that is written nowhere yet. It is kept while he chooses; a later showing
/// offers it in a line at the head of the dialog.
class KeptChoice : public QObject
{
    Q_OBJECT

public:
    /// How the choice gets out of the dialog and back into it. Values hold a "caption".
    struct Hooks {
        std::function<KeptTexts::Values()> read;              ///< no values: nothing is chosen
        std::function<bool(const KeptTexts::Values&)> isOver; ///< nobody needs this choice any more
        std::function<void(const KeptTexts::Values&)> take;
    };

    /// \a dialog has a vertical layout. \a offer is the text of the line, with a place for the caption.
    KeptChoice(QWidget* dialog, const QString& offer, Hooks hooks);

    void setPlace(const QString& place);
    /// The dialog is shown, as it is at its beginning: offers what was kept. From now on the choice is read.
    void begin();
    /// The choice may have changed.
    void touch();
    /// The choice was written or given up. Nothing is read until begin().
    void forget();
    /// The choice is left to the next showing. Nothing is read until begin().
    void leave();

private:
    void answer(int choice);

    QString m_offer;
    Hooks m_hooks;
    NoticeBar* m_bar;
    KeptDraft* m_draft;
    bool m_isOpen = false;
};
