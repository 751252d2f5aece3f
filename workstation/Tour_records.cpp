#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"
#include "Workstation.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCoreApplication>
#include <QDateEdit>
#include <QFile>
#include <QTabWidget>
#include <QToolButton>

using namespace TourHands;

bool Tour::sceneCopying(CVrkCliMod* window)
{
    const int before = records(window)->model()->rowCount();
    for (const QString& entry : {tr("Копировать запись"), tr("Вставить запись")}) {
        QAction* action = selectRecord(window, tr("Установил")) ? recordEntry(window, entry) : nullptr;
        if (!action)
            return fail(tr("Записи о заземлении нельзя сделать копию."));
        action->trigger();
        settle();
    }
    if (!wait([&] { return records(window)->model()->rowCount() > before; }))
        return fail(tr("Копия записи не вставлена."));
    picture(tr("Копия записи вставлена в смену черновиком от своего имени."));
    return true;
}

bool Tour::sceneInbox(CVrkCliMod* window)
{
    if (!click(window, "commentsButton"))
        return fail(tr("Вкладка комментариев не открылась."));
    auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("logbooks"));
    QWidget* inbox = tabs->currentWidget();
    auto* waiting = inbox->findChild<QAbstractItemView*>(QStringLiteral("recordsTable"));
    if (waiting->model()->rowCount() == 0)
        return fail(tr("Непрочитанных комментариев нет."));
    waiting->setCurrentIndex(waiting->model()->index(0, 4));
    const QString before = tabs->tabText(tabs->currentIndex());
    const auto* button = inbox->findChild<QToolButton*>(QStringLiteral("readedCommentButton"));
    if (!button->isEnabled())
        return fail(tr("Комментарий нельзя отметить прочитанным."));
    button->actions().constFirst()->trigger();
    if (!wait([&] { return tabs->tabText(tabs->currentIndex()) != before; }))
        return fail(tr("Комментарии не отмечены прочитанными."));
    picture(tr("Комментарии прочитаны все сразу: запись ушла из вкладки, счёт внизу убран."));
    QMetaObject::invokeMethod(tabs, "tabCloseRequested", Q_ARG(int, tabs->currentIndex()));
    settle();
    return true;
}

bool Tour::sceneInterval(CVrkCliMod* window)
{
    QWidget* dialog =
        trigger(window, "chooseIntervalAction") ? visibleDialog("DateTimeRangeDialog") : nullptr;
    if (!dialog)
        return fail(tr("Выбор интервала не открылся."));
    auto* start = dialog->findChild<QDateEdit*>(QStringLiteral("startDateEdit"));
    start->setDate(start->date().addDays(-2));
    picture(tr("Выбор интервала."));
    if (!answer(dialog, tr("Применить")) || records(window)->model()->rowCount() == 0)
        return fail(tr("Интервал не показан."));
    picture(tr("Записи трёх дней: смены разделены чертой с датой."));
    return trigger(window, "currentWorkshiftAction") || fail(tr("Возврат к текущей смене недоступен."));
}

bool Tour::sceneAddedWorker(CVrkCliMod* window)
{
    QWidget* dialog = trigger(window, "appendWorkerAction") ? visibleDialog("AppendWorkerDialog") : nullptr;
    if (!dialog || !click(dialog, "addButton"))
        return fail(tr("Добавление диспетчера не открылось."));
    if (!chooseWorker(tr("Травин")))
        return fail(tr("Диспетчера выбрать нельзя."));
    picture(tr("Добавление диспетчера в смену: запись об этом составлена."));
    const int before = records(window)->model()->rowCount();
    if (!click(dialog, "applyButton") || !wait([&] { return records(window)->model()->rowCount() > before; }))
        return fail(tr("Диспетчер не добавлен."));
    picture(tr("Диспетчер в смене, в журнале запись об этом."));
    return true;
}

/// A shift that should have been handed over long ago: the story, filled fourteen hours earlier.
bool Tour::sceneOverdue(const QString& theme)
{
    const QString file = QStringLiteral("%1/%2-overdue.sqlite").arg(m_folder, theme);
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    Options options;
    options.keepsTexts = false;
    options.store = QStringLiteral("sqlite://") + file;
    options.user = QStringLiteral("ozerov");
    options.department = tr("ЦДС");
    if (!admin({QStringLiteral("demo"), options.store, QStringLiteral("--ago"), QStringLiteral("14")}) ||
        !admin({QStringLiteral("option"), options.store, QStringLiteral("set"),
                QStringLiteral("CheckLengthShift=on"), QStringLiteral("DelayTime=15m"),
                QStringLiteral("IntervalMessage=5m")}))
        return false;
    Workstation desk;
    CVrkCliMod* window = desk.enter(options) ? desk.startModule(QStringLiteral("logbook")) : nullptr;
    if (!window)
        return fail(desk.errorText());
    window->resize(1280, 720);
    if (!wait([] { return visibleDialog("CPopMessageBox") != nullptr; }))
        return fail(tr("О сдаче смены не напомнено."));
    picture(tr("Смена затянулась: напоминание повторяется, пока её не сдадут."));
    return true;
}
