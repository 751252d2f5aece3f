#include "LeftTexts.h"

#include "NoticeBar.h"

#include <algorithm>
#include <QDateTime>

namespace
{
enum Choice { Open, Drop, Later };
} // namespace

LeftTexts::LeftTexts(KeptTexts* texts, NoticeBar* bar, std::vector<Opener> openers, QObject* parent)
    : QObject(parent), m_texts(texts), m_bar(bar), m_openers(std::move(openers))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &LeftTexts::offer);
    connect(texts, &KeptTexts::changed, &m_timer, qOverload<>(&QTimer::start));
    connect(bar, &NoticeBar::chosen, this, &LeftTexts::choose);
    m_timer.start(); // the window first finishes its current work
}

const LeftTexts::Opener* LeftTexts::openerOf(const KeptTexts::Text& text) const
{
    const auto found = std::find_if(m_openers.begin(), m_openers.end(), [&text](const Opener& opener) {
        return opener.place == text.place && opener.isPossible();
    });
    return found == m_openers.end() ? nullptr : &*found;
}

void LeftTexts::offer()
{
    QVector<KeptTexts::Text> left = m_texts->left();
    left.erase(std::remove_if(left.begin(), left.end(),
                              [this](const KeptTexts::Text& text) { return !openerOf(text); }),
               left.end());
    if (left.isEmpty()) {
        m_bar->hide();
        return;
    }
    if (m_bar->isVisible() && m_offered.id == left.last().id)
        return;
    m_offered = left.last();
    QString text =
        tr("С прошлого раза (%1) не записано: %2.")
            .arg(QDateTime::fromMSecsSinceEpoch(m_offered.time).toString(QStringLiteral("dd.MM hh:mm")),
                 m_offered.values.value(QStringLiteral("caption")));
    if (left.size() > 1)
        text += u' ' + tr("Ждут ещё: %1.").arg(left.size() - 1);
    m_bar->tell(NoticeBar::Question, text,
                {{Open, tr("Открыть"), QStringLiteral("openLeftButton")},
                 {Drop, tr("Отбросить"), QStringLiteral("dropLeftButton")},
                 {Later, tr("Позже"), QStringLiteral("laterButton")}});
}

void LeftTexts::choose(int choice)
{
    const Opener* opener = openerOf(m_offered);
    if (choice == Drop) {
        m_texts->forget(m_offered.id);
    } else if (choice == Open && opener) {
        opener->open(m_offered);
    } else {
        m_texts->disconnect(this); // until the next start
        m_timer.disconnect(this);
        m_bar->hide();
    }
}
