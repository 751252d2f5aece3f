#include "KeptDraft.h"

#include <QElapsedTimer>
#include <QWidget>

namespace
{
constexpr int usualDelayMs = 500;
constexpr int longestDelayMs = 1000;
constexpr int shareOfTime = 10; ///< reading takes at most this share of the time
} // namespace

KeptDraft::KeptDraft(QWidget* window, KeptTexts* texts, std::function<KeptTexts::Values()> read)
    : QObject(window), m_window(window), m_texts(texts), m_read(std::move(read))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(usualDelayMs);
    connect(&m_timer, &QTimer::timeout, this, &KeptDraft::store);
    connect(texts, &KeptTexts::settling, this, [this] {
        if (m_timer.isActive())
            keepNow();
    });
    connect(texts, &KeptTexts::heldDropped, this, [this](const QByteArray& id) {
        if (id != m_id)
            return;
        m_timer.stop();
        m_id.clear();
        m_isDropped = true;
    });
}

KeptDraft::~KeptDraft()
{
    // The text outlives the window and is offered to the next one of its kind.
    if (m_texts && !m_id.isEmpty())
        m_texts->hold(m_id, nullptr);
}

QVector<KeptTexts::Text> KeptDraft::offered() const
{
    return m_texts ? m_texts->offered(m_place) : QVector<KeptTexts::Text>();
}

void KeptDraft::forgetOffered(const std::function<bool(const KeptTexts::Text&)>& isOver)
{
    for (const KeptTexts::Text& text : offered())
        if (isOver(text))
            m_texts->forget(text.id);
}

void KeptDraft::touch()
{
    m_isDropped = false;
    if (!m_timer.isActive())
        m_timer.start();
}

void KeptDraft::store()
{
    QElapsedTimer time;
    time.start();
    keepNow();
    m_timer.setInterval(
        qBound<int>(usualDelayMs, static_cast<int>(time.elapsed()) * shareOfTime, longestDelayMs));
}

void KeptDraft::keepNow()
{
    m_timer.stop();
    if (m_isDropped || !m_texts)
        return;
    const KeptTexts::Values values = m_read();
    if (values.isEmpty()) {
        forget();
        return;
    }
    m_id = m_texts->keep(m_place, values, m_id);
    m_texts->hold(m_id, m_window);
}

void KeptDraft::take(const KeptTexts::Text& text)
{
    if (!m_texts)
        return;
    m_isDropped = false;
    m_id = text.id;
    m_texts->hold(m_id, m_window);
}

void KeptDraft::forget()
{
    m_timer.stop();
    if (m_texts && !m_id.isEmpty())
        m_texts->forget(m_id);
    m_id.clear();
}

void KeptDraft::release()
{
    keepNow();
    if (m_texts && !m_id.isEmpty())
        m_texts->hold(m_id, nullptr);
    m_id.clear();
}
