#include "CVrkCliMod.h"
#include "Tour.h"
#include "TourHands.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

using namespace TourHands;

namespace
{
QAbstractItemView* found(QWidget* window)
{
    return child<QAbstractItemView>(window, "foundTable");
}

/// Opens a module from the menu of the journal, in a window over the journal.
QWidget* opened(CVrkCliMod* journal, const char* action, const char* className)
{
    QWidget* window = triggered(journal, action, className);
    window->raise();
    window->activateWindow();
    window->resize(1080, 560);
    window->move(journal->geometry().topLeft() + QPoint(90, 120));
    settle();
    return window;
}
} // namespace

void Tour::playPast(CVrkCliMod* journal)
{
    sceneUnfinished(journal);
    sceneAllShifts(journal);
    sceneHistory(journal);
    sceneMoment(journal);
    // Returns to the journal.
    auto* tabs = child<QTabWidget>(journal, "logbooks");
    tabs->setCurrentIndex(0);
    while (tabs->count() > 1)
        emit tabs->tabCloseRequested(tabs->count() - 1);
    journal->raise();
    trigger(journal, "currentWorkshiftAction");
}

void Tour::sceneUnfinished(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "unfinishedAction", "CVrkUnfinished");
    QAbstractItemView* rows = found(window);
    require(rows->model()->rowCount() > 0, tr("В демонстрационном журнале всё завершено."));
    picture(
        tr("Незавершённое: что ждёт времени выполнения, второго маркера или утверждения, за последние дни."));
    rows->setCurrentIndex(rows->currentIndex().siblingAtRow(rows->model()->rowCount() - 1));
    rows->setFocus();
    press(window, Qt::Key_Return);
    settle();
    window->close();
    picture(tr("Enter или двойной щелчок показывает запись в её смене."));
}

void Tour::sceneAllShifts(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "archiveAction", "CVrkArchive");
    auto* words = child<QLineEdit>(window, "wordsEdit");
    typeInto(words, tr("отключение линии"));
    child<QLineEdit>(window, "equipmentEdit")->setText(tr("Полевая"));
    child<QComboBox>(window, "departmentCombo")->setCurrentIndex(0);
    press(window, Qt::Key_Return);
    settle();
    require(found(window)->model()->rowCount() > 0, tr("Поиск по архиву ничего не нашёл."));
    picture(tr("Поиск по архиву: слова в любой форме, оборудование, подразделение, автор, период; найденное "
               "отмечено."));
    press(window, Qt::Key_Down);
    press(window, Qt::Key_Return);
    settle();
    typeInto(words, tr("неслыханное"));
    press(window, Qt::Key_Return);
    window->raise();
    picture(tr("Если ничего не найдено, окно так и говорит."));
    window->close();
    picture(tr("Найденная запись в своей смене, в журнале своего подразделения."));
}

void Tour::sceneHistory(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "historyAction", "CVrkHistory");
    require(child<QAbstractItemView>(window, "changeTable")->model()->rowCount() > 0,
            tr("В истории записи ничего нет."));
    picture(tr("История записи (Ctrl+H или меню записи): кто, когда и что изменил, было и стало рядом."));
    window->close();
}

void Tour::sceneMoment(CVrkCliMod* journal)
{
    QWidget* window = opened(journal, "pastAction", "CVrkPast");
    for (int i = 0; i < 3; ++i)
        trigger(window, "backAction");
    settle();
    picture(tr("Журнал на момент: смена, какой она была, с шагом по изменениям; изменить прошлое нельзя."));
    window->close();
}
