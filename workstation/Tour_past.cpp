#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

using namespace TourHands;

namespace
{
QAbstractItemView* found(QWidget* window)
{
    return window->findChild<QAbstractItemView*>(QStringLiteral("foundTable"));
}

/// Opens a module from the menu of the journal, in a window over the journal.
QWidget* opened(CVrkCliMod* journal, const char* action, const char* className)
{
    QWidget* window = trigger(journal, action) ? visibleDialog(className) : nullptr;
    if (!window)
        return nullptr;
    window->raise();
    window->activateWindow();
    window->resize(1080, 560);
    window->move(journal->geometry().topLeft() + QPoint(90, 120));
    settle();
    return window;
}
} // namespace

bool Tour::playPast(CVrkCliMod* journal)
{
    const bool played = sceneUnfinished(journal) && sceneAllShifts(journal);
    // Returns to the journal.
    auto* tabs = journal->findChild<QTabWidget*>(QStringLiteral("logbooks"));
    tabs->setCurrentIndex(0);
    while (played && tabs->count() > 1)
        emit tabs->tabCloseRequested(tabs->count() - 1);
    journal->raise();
    return played &&
           (trigger(journal, "currentWorkshiftAction") || fail(tr("Возврат к текущей смене недоступен.")));
}

bool Tour::sceneUnfinished(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "unfinishedAction", "CVrkUnfinished");
    if (!window)
        return fail(tr("Окно незавершённого не открылось."));
    if (found(window)->model()->rowCount() == 0)
        return fail(tr("В демонстрационном журнале всё завершено."));
    picture(
        tr("Незавершённое: что ждёт времени выполнения, второго маркера или утверждения, за последние дни."));
    const QAbstractItemModel* rows = found(window)->model();
    found(window)->setCurrentIndex(found(window)->currentIndex().siblingAtRow(rows->rowCount() - 1));
    found(window)->setFocus();
    press(window, Qt::Key_Return);
    settle();
    window->close();
    picture(tr("Enter или двойной щелчок показывает запись в её смене."));
    return true;
}

bool Tour::sceneAllShifts(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "archiveAction", "CVrkArchive");
    if (!window)
        return fail(tr("Окно поиска по архиву не открылось."));
    auto* words = window->findChild<QLineEdit*>(QStringLiteral("wordsEdit"));
    words->setFocus();
    type(window, tr("отключение линии"));
    window->findChild<QLineEdit*>(QStringLiteral("equipmentEdit"))->setText(tr("Полевая"));
    window->findChild<QComboBox*>(QStringLiteral("departmentCombo"))->setCurrentIndex(0);
    press(window, Qt::Key_Return);
    settle();
    if (found(window)->model()->rowCount() == 0)
        return fail(tr("Поиск по архиву ничего не нашёл."));
    picture(tr("Поиск по архиву: слова в любой форме, оборудование, подразделение, автор, период; найденное "
               "отмечено."));
    press(window, Qt::Key_Down);
    press(window, Qt::Key_Return);
    settle();
    words->setFocus();
    words->selectAll();
    type(window, tr("неслыханное"));
    press(window, Qt::Key_Return);
    window->raise();
    picture(tr("Если ничего не найдено, окно так и говорит."));
    window->close();
    picture(tr("Найденная запись в своей смене, в журнале своего подразделения."));
    return true;
}
