#include "KeptChoice.h"

#include "NoticeBar.h"

#include <QVBoxLayout>

namespace
{
enum Answer { Take, Drop };
} // namespace

KeptChoice::KeptChoice(QWidget* dialog, const QString& offer, Hooks hooks)
    : KeptDraft(dialog, KeptTexts::of(dialog),
                [this] { return m_isOpen ? m_hooks.read() : KeptTexts::Values(); }),
      m_offer(offer),
      m_hooks(std::move(hooks)),
      m_bar(new NoticeBar(dialog))
{
    m_bar->setObjectName(QStringLiteral("keptBar"));
    static_cast<QVBoxLayout*>(dialog->layout())->insertWidget(0, m_bar);
    connect(m_bar, &NoticeBar::chosen, this, &KeptChoice::answer);
}

void KeptChoice::begin()
{
    m_isOpen = true;
    m_bar->hide();
    forgetOffered([this](const KeptTexts::Text& text) { return m_hooks.isOver(text.values); });
    for (const KeptTexts::Text& text : offered())
        m_bar->tell(NoticeBar::Question, m_offer.arg(text.values.value(QStringLiteral("caption"))),
                    {{Take, tr("Вернуть"), QStringLiteral("takeKeptButton")},
                     {Drop, tr("Забыть"), QStringLiteral("dropKeptButton")}});
}

void KeptChoice::answer(int choice)
{
    m_bar->hide();
    forgetOffered([this, choice](const KeptTexts::Text& text) {
        if (choice == Take)
            m_hooks.take(text.values);
        return true;
    });
}

void KeptChoice::forget()
{
    m_isOpen = false;
    KeptDraft::forget();
}

void KeptChoice::leave()
{
    release();
    m_isOpen = false;
}
