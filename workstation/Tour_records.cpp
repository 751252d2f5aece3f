#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDateEdit>
#include <QTabWidget>
#include <QToolButton>

using namespace TourHands;

void Tour::sceneCopying(CVrkCliMod* window)
{
    const auto copy = [&] {
        for (const QString& entry : {tr("Копировать запись"), tr("Вставить запись")}) {
            require(findRecord(window, tr("Установил")), tr("Запись о заземлении не найдена."));
            triggerEntry(window, entry);
        }
    };
    addRecord(window, copy, tr("Копия записи не вставлена."));
    picture(tr("Копия записи вставлена в смену черновиком от своего имени."));
}

void Tour::sceneInbox(CVrkCliMod* window)
{
    click(window, "commentsButton");
    auto* tabs = child<QTabWidget>(window, "logbooks");
    auto* waiting = child<QAbstractItemView>(tabs->currentWidget(), "recordsTable");
    require(waiting->model()->rowCount() > 0, tr("Непрочитанных комментариев нет."));
    waiting->setCurrentIndex(waiting->model()->index(0, 4));
    const QString before = tabs->tabText(tabs->currentIndex());
    const auto* button = child<QToolButton>(tabs->currentWidget(), "readedCommentButton");
    require(button->isEnabled(), tr("Комментарий нельзя отметить прочитанным."));
    button->actions().constFirst()->trigger();
    require(wait([&] { return tabs->tabText(tabs->currentIndex()) != before; }),
            tr("Комментарии не отмечены прочитанными."));
    picture(tr("Комментарии прочитаны все сразу: запись ушла из вкладки, счёт внизу убран."));
    QMetaObject::invokeMethod(tabs, "tabCloseRequested", Q_ARG(int, tabs->currentIndex()));
    settle();
}

void Tour::sceneInterval(CVrkCliMod* window)
{
    QWidget* dialog = triggered(window, "chooseIntervalAction", "DateTimeRangeDialog");
    auto* start = child<QDateEdit>(dialog, "startDateEdit");
    start->setDate(start->date().addDays(-2));
    picture(tr("Выбор интервала."));
    answer(dialog, tr("Применить"));
    require(countOfRecords(window) > 0, tr("Интервал не показан."));
    picture(tr("Записи трёх дней: смены разделены чертой с датой."));
    trigger(window, "currentWorkshiftAction");
}

void Tour::sceneAddedWorker(CVrkCliMod* window)
{
    QWidget* dialog = triggered(window, "appendWorkerAction", "AppendWorkerDialog");
    click(dialog, "addButton");
    chooseWorker(tr("Травин"));
    picture(tr("Добавление диспетчера в смену: запись об этом составлена."));
    addRecord(
        window, [&] { click(dialog, "applyButton"); }, tr("Диспетчер не добавлен."));
    picture(tr("Диспетчер в смене, в журнале запись об этом."));
}

/// A shift that should have been handed over long ago: the story, filled fourteen hours earlier.
void Tour::sceneOverdue(const QString& theme)
{
    const QString store = newStore(theme + QStringLiteral("-overdue"));
    admin({QStringLiteral("demo"), store, QStringLiteral("--ago"), QStringLiteral("14")});
    admin({QStringLiteral("option"), store, QStringLiteral("set"), QStringLiteral("CheckLengthShift=on"),
           QStringLiteral("DelayTime=15m"), QStringLiteral("IntervalMessage=5m")});
    Workstation desk;
    signIn(&desk, store, QStringLiteral("ozerov"), tr("ЦДС"));
    started(&desk, QStringLiteral("logbook"), 720);
    require(wait([] { return findDialog("CPopMessageBox") != nullptr; }), tr("О сдаче смены не напомнено."));
    picture(tr("Смена затянулась: напоминание повторяется, пока её не сдадут."));
}
