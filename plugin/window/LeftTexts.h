#pragma once

#include "KeptTexts.h"

#include <functional>
#include <QTimer>
#include <vector>

class NoticeBar;

/// Offers, one by one, the texts that were not saved when the program ended last: a line shows the text,
/// with buttons that open it in its window, drop it, or keep it for later.
class LeftTexts : public QObject
{
    Q_OBJECT

public:
    /// How the texts of one place are opened.
    struct Opener {
        QString place;
        std::function<bool()> isPossible; ///< otherwise the text waits and is not offered
        std::function<void(const KeptTexts::Text&)> open;
    };

    LeftTexts(KeptTexts* texts, NoticeBar* bar, std::vector<Opener> openers, QObject* parent);

private:
    void offer();
    void choose(int choice);
    const Opener* openerOf(const KeptTexts::Text& text) const;

    KeptTexts* m_texts;
    NoticeBar* m_bar;
    std::vector<Opener> m_openers;
    KeptTexts::Text m_offered;
    QTimer m_timer; ///< collects changes
};
