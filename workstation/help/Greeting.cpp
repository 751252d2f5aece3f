#include "Greeting.h"

#include "CVrkCliMod.h"
#include "GuideText.h"
#include "Help.h"
#include "NoticeBar.h"
#include "UserSettings.h"

#include <QCoreApplication>

namespace
{
enum Answer { Read, Done };
} // namespace

Greeting::Greeting(UserSettings* settings, Help* help, QObject* parent)
    : QObject(parent), m_settings(settings), m_help(help)
{
}

Greeting::Kind Greeting::kindFor(const QString& seen, const QString& version, bool wasHere)
{
    if (version.isEmpty() || seen == version)
        return Nothing;
    return seen.isEmpty() && !wasHere ? FirstSteps : News;
}

void Greeting::greet(CVrkCliMod* window, bool wasHere)
{
    const QString version = QCoreApplication::applicationVersion();
    const Kind kind = kindFor(m_settings->value(Setting::seenVersion).toString(), version, wasHere);
    if (kind == Nothing)
        return;
    m_settings->setValue(Setting::seenVersion, version);

    auto* bar = new NoticeBar(window);
    bar->setObjectName(QStringLiteral("greetingBar"));
    const bool isNew = kind == FirstSteps;
    const QString text =
        isNew ? tr("1. Запись: Ctrl + N, выберите шаблон, заполните поля, сохраните Ctrl + Enter.\n"
                   "2. С записью: правая кнопка мыши или клавиши F2, F6 – F9; утверждает Ctrl + Shift + A.\n"
                   "3. Смена: Ctrl + Shift + S открывает её или сдаёт. Справка о каждом окне: F1.")
              : tr("Программа обновлена до версии %1.").arg(version);
    bar->tell(NoticeBar::Information, text,
              {{Read, isNew ? tr("Смена за десять минут") : tr("Что нового"), QStringLiteral("readButton")},
               {Done, tr("Понятно"), QStringLiteral("doneButton")}});
    // Above the tool bar: the place of a menu bar, which modules do not have.
    window->setMenuWidget(bar);
    connect(bar, &NoticeBar::chosen, window, [this, window, bar, isNew](int answer) {
        if (answer == Read)
            m_help->showSection(isNew ? GuideText::firstShift() : GuideText::news());
        bar->hide(); // the bar still handles its button
        window->setMenuWidget(nullptr);
    });
}
