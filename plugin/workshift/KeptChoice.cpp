#include "KeptChoice.h"

#include "KeptDraft.h"
#include "NoticeBar.h"

#include <QVBoxLayout>

namespace
{
enum Answer { Take, Drop };
} // namespace

KeptChoice::KeptChoice(QWidget* dialog, const QString& offer, Hooks hooks)
    : QObject(dialog),
      m_offer(offer),
      m_hooks(std::move(hooks)),
      m_bar(new NoticeBar(dialog)),
      m_draft(new KeptDraft(dialog, KeptTexts::of(dialog),
                            [this] { return m_isOpen ? m_hooks.read() : KeptTexts::Values(); }))
{
    m_bar->setObjectName(QStringLiteral("keptBar"));
    static_cast<QVBoxLayout*>(dialog->layout())->insertWidget(0, m_bar);
    connect(m_bar, &NoticeBar::chosen, this, &KeptChoice::answer);
}

void KeptChoice::setPlace(const QString& place)
{
    m_draft->setPlace(place);
}

void KeptChoice::begin()
{
    m_isOpen = true;
    m_bar->hide();
    KeptTexts* texts = KeptTexts::of(this);
    for (const KeptTexts::Text& text : texts->offered(m_draft->place())) {
        if (m_hooks.isOver(text.values))
            texts->forget(text.id);
        else
            m_bar->tell(NoticeBar::Question, m_offer.arg(text.values.value(QStringLiteral("caption"))),
                        {{Take, tr("Вернуть"), QStringLiteral("takeKeptButton")},
                         {Drop, tr("Забыть"), QStringLiteral("dropKeptButton")}});
    }
}

void KeptChoice::answer(int choice)
{
    m_bar->hide();
    KeptTexts* texts = KeptTexts::of(this);
    for (const KeptTexts::Text& text : texts->offered(m_draft->place())) {
        texts->forget(text.id);
        if (choice == Take)
            m_hooks.take(text.values);
    }
}

void KeptChoice::touch()
{
    m_draft->touch();
}

void KeptChoice::forget()
{
    m_isOpen = false;
    m_draft->forget();
}

void KeptChoice::leave()
{
    m_draft->release();
    m_isOpen = false;
}
