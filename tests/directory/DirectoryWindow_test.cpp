#include "DirectoryBench.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>

/// Rows, cells, faults and lists of the window of the reference data.
class DirectoryWindow_test : public QObject, private DirectoryBench
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { stop(); }

    void showsTheRowsOfTheStore();
    void undoTakesEditsBack();
    void retiresPeopleAndKeepsTheirRows();
    void keepsRowsThatOthersReferTo();
    void newRowsDisappear();
    void faultsStandBesideTheirCells_data();
    void faultsStandBesideTheirCells();
    void keysTurnThePages();
    void aTakenNameIsRefused();
    void newRowsMayNotOwnEachOther();
    void listsOfferReferences();
    void aRoleIsOfTheWorkersDepartment();
    void rightsAreChosenFromAList();
    void searchFindsRows();
    void retiredPeopleAreShownOnRequest();
    void deleteInTheFaultsRemovesNothing();
    void keysDoTheWork();
    void aRetiredPersonIsOfferedNowhere();
};

void DirectoryWindow_test::showsTheRowsOfTheStore()
{
    QCOMPARE(shown("Workers", "WORKER_IVANOV", QStringLiteral("Фамилия")), QStringLiteral("Иванов"));
    QCOMPARE(shown("Workers", "WORKER_IVANOV", QStringLiteral("Подразделение")), QStringLiteral("ЦДС"));
    QCOMPARE(shown("Shifts", "TIMETABLE_CDS_NIGHT", QStringLiteral("Начало")), QStringLiteral("20:00"));
    QCOMPARE(shown("WorkerRoles", "WROLE_PETROV", QStringLiteral("Подразделение")), QStringLiteral("ЦДС"));
    QVERIFY(!m_window->isWindowModified());
    press("save");
    QCOMPARE(notice(), QStringLiteral("Сохранять нечего."));
}

void DirectoryWindow_test::undoTakesEditsBack()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Имя"), QStringLiteral("Павел"));
    added("Roles");
    press("undo");
    QCOMPARE(m_window->page("Roles")->model()->rows().constLast().isNew(), false);
    press("undo");
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Имя")), QStringLiteral("Пётр"));
    QVERIFY(!m_window->isWindowModified());
    press("redo");
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Имя")), QStringLiteral("Павел"));
}

void DirectoryWindow_test::retiresPeopleAndKeepsTheirRows()
{
    cell("Workers", "WORKER_PETROV", QStringLiteral("Фамилия"));
    press("discard");
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Удалён")), QStringLiteral("да"));
    press("save");
    auto* tree = box<SaveDialog>()->findChild<QTreeWidget*>(QStringLiteral("changes"));
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("Уйдёт, записи сохранят имя (сотрудники): 1"));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(
        value("SELECT count(*) FROM Workers WHERE KeyLink = 'WORKER_PETROV' AND coalesce(deleted_, 0) <> 0")
            .toInt(),
        1);
}

void DirectoryWindow_test::keepsRowsThatOthersReferTo()
{
    cell("Roles", "ROLE_ZAR", QStringLiteral("Название"));
    press("discard");
    QVERIFY(notice().startsWith(QStringLiteral("Эту строку убрать нельзя")));
    QVERIFY(!m_window->isWindowModified());
}

void DirectoryWindow_test::newRowsDisappear()
{
    const int before = m_window->page("Roles")->model()->rowCount();
    const QByteArray key = added("Roles");
    QCOMPARE(m_window->page("Roles")->model()->rowCount(), before + 1);
    cell("Roles", key, QStringLiteral("Название"));
    press("discard");
    QCOMPARE(m_window->page("Roles")->model()->rowCount(), before);
    QVERIFY(!m_window->isWindowModified());
}

void DirectoryWindow_test::faultsStandBesideTheirCells_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("fault");
    QTest::newRow("empty") << QByteArray("Workers") << QByteArray("WORKER_PETROV")
                           << QStringLiteral("Фамилия") << QString()
                           << QStringLiteral("столбец «Фамилия»: ячейка пуста");
    QTest::newRow("time") << QByteArray("Shifts") << QByteArray("TIMETABLE_CDS_DAY")
                          << QStringLiteral("Начало") << QStringLiteral("25:00")
                          << QStringLiteral(
                                 "столбец «Начало»: «25:00» не время вида чч:мм или дд.ММ.гггг чч:мм");
    QTest::newRow("group")
        << QByteArray("Workers") << QByteArray("WORKER_PETROV") << QStringLiteral("Группа")
        << QStringLiteral("9")
        << QStringLiteral("столбец «Группа»: группы «9» нет, есть от 1 до 5; 0 или пусто, если группы нет");
    QTest::newRow("reference")
        << QByteArray("Workers") << QByteArray("WORKER_PETROV") << QStringLiteral("Подразделение")
        << QStringLiteral("Служба защиты")
        << QStringLiteral("столбец «Подразделение»: в таблице «подразделения» строки «Служба защиты» нет");
    QTest::newRow("own owner") << QByteArray("Equipment") << QByteArray("EQ_SUBSTATION")
                               << QStringLiteral("Входит в") << QStringLiteral("EQ_SUBSTATION")
                               << QStringLiteral("столбец «Входит в»: строка входит сама в себя");
}

void DirectoryWindow_test::faultsStandBesideTheirCells()
{
    QFETCH(QByteArray, table);
    QFETCH(QByteArray, key);
    QFETCH(QString, heading);
    QFETCH(QString, typed);
    QFETCH(QString, fault);
    type(table.constData(), key, heading, typed);
    auto* list = m_window->findChild<QListWidget*>(QStringLiteral("faults"));
    QTRY_COMPARE(list->count(), 1); // the check follows the edit
    QVERIFY2(list->item(0)->text().endsWith(fault), qPrintable(list->item(0)->text()));
    QVERIFY(list->isVisible());
    const QModelIndex index = cell(table.constData(), key, heading);
    QCOMPARE(index.data(SheetModel::FaultRole).toString(), fault);
    QVERIFY(!index.data(Qt::DecorationRole).isNull());
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), fault);
    // The list leads to the cell.
    open("Organizations");
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Return);
    auto* names = m_window->findChild<QListWidget*>(QStringLiteral("sheets"));
    QVERIFY(m_window->page(table)->isVisible());
    QCOMPARE(m_window->page(table)->table()->currentIndex(), index);
    QVERIFY(names->currentItem()->text().endsWith(QStringLiteral("(ошибок: 1)")));
}

void DirectoryWindow_test::keysTurnThePages()
{
    auto* names = m_window->findChild<QListWidget*>(QStringLiteral("sheets"));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    open("Workers");
    m_window->page("Workers")->table()->setFocus();
    QTest::keyClick(m_window->page("Workers")->table(), Qt::Key_PageDown, Qt::ControlModifier);
    QVERIFY(m_window->page("Users")->isVisible());
    QCOMPARE(names->currentRow(), 1);
    QTest::keyClick(m_window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(m_window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(names->currentRow(), names->count() - 1);
}

void DirectoryWindow_test::aTakenNameIsRefused()
{
    const QByteArray login = added("Users");
    type("Users", login, QStringLiteral("Логин"), QStringLiteral("Petrov"));
    press("save");
    QCOMPARE(m_window->draft()->faults().size(), 1);
    QCOMPARE(m_window->draft()->faults().constFirst().fault.text,
             QStringLiteral("такая строка уже есть: «petrov»"));
}

void DirectoryWindow_test::newRowsMayNotOwnEachOther()
{
    QVector<QByteArray> keys;
    for (const char* name : {"Первая", "Вторая"}) {
        const QByteArray key = added("Equipment");
        type("Equipment", key, QStringLiteral("Вид"), QStringLiteral("линия"));
        type("Equipment", key, QStringLiteral("Название"), QString::fromUtf8(name));
        press("nextFault"); // checks at once
        keys << key;
    }
    type("Equipment", keys[0], QStringLiteral("Входит в"), QStringLiteral("Вторая"));
    type("Equipment", keys[1], QStringLiteral("Входит в"), QStringLiteral("Первая"));
    press("nextFault");
    const QVector<DirectoryDraft::Fault>& faults = m_window->draft()->faults();
    QCOMPARE(faults.size(), 2);
    for (const DirectoryDraft::Fault& one : faults)
        QCOMPARE(one.fault.text, QStringLiteral("строка и её владельцы входят друг в друга по кругу"));
}

void DirectoryWindow_test::listsOfferReferences()
{
    QTableView* view = table("Workers");
    view->setCurrentIndex(cell("Workers", "WORKER_PETROV", QStringLiteral("Подразделение")));
    QTest::keyClick(view, Qt::Key_F2);
    auto* list = view->viewport()->findChild<QComboBox*>();
    QVERIFY(list);
    QCOMPARE(list->currentText(), QStringLiteral("ЦДС"));
    const int item = list->findText(QStringLiteral("ОДС"));
    QVERIFY(item > 0);
    list->setCurrentIndex(item);
    m_window->page("Workers")->commit();
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Подразделение")), QStringLiteral("ОДС"));
    save();
    QCOMPARE(value("SELECT DepartmentKey FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toString(),
             QStringLiteral("DEP_ODS"));
}

void DirectoryWindow_test::aRoleIsOfTheWorkersDepartment()
{
    QTableView* view = table("WorkerRoles");
    view->setCurrentIndex(cell("WorkerRoles", "WROLE_PETROV", QStringLiteral("Должность")));
    QTest::keyClick(view, Qt::Key_F2);
    auto* list = view->viewport()->findChild<QComboBox*>();
    QVERIFY(list);
    QVector<QByteArray> keys;
    for (int i = 1; i < list->count(); ++i)
        keys << list->itemData(i).toByteArray();
    std::sort(keys.begin(), keys.end());
    QCOMPARE(keys, (QVector<QByteArray>{"ROLE_CDS_DISPATCHER", "ROLE_CDS_SENIOR"}));
}

void DirectoryWindow_test::rightsAreChosenFromAList()
{
    QTableView* view = table("Users");
    view->setCurrentIndex(cell("Users", "USER_SIDOROVA", QStringLiteral("Права")));
    QTest::keyClick(view, Qt::Key_F2);
    auto* list = view->viewport()->findChild<QComboBox*>();
    QVERIFY(list);
    emit list->activated(list->findText(QStringLiteral("SQL_EXEC")));
    QCOMPARE(list->currentText(), QStringLiteral("ADMINISTRATOR, SQL_EXEC"));
    emit list->activated(list->findText(QStringLiteral("ADMINISTRATOR")));
    m_window->page("Users")->commit();
    save();
    QCOMPARE(value("SELECT rightName FROM UserRights WHERE UserKey = 'USER_SIDOROVA'").toString(),
             QStringLiteral("SQL_EXEC"));
    QCOMPARE(value("SELECT count(*) FROM UserRights WHERE UserKey = 'USER_SIDOROVA'").toInt(), 1);
}

void DirectoryWindow_test::searchFindsRows()
{
    SheetPage* page = open("Workers");
    auto* line = page->findChild<QLineEdit*>(QStringLiteral("search"));
    line->insert(QStringLiteral("цдс петр"));
    QCOMPARE(page->table()->model()->rowCount(), 1);
    QCOMPARE(page->table()->model()->index(0, 1).data().toString(), QStringLiteral("Петров"));
    QTest::keyClick(line, Qt::Key_Escape);
    QVERIFY(page->table()->model()->rowCount() > 1);
}

void DirectoryWindow_test::retiredPeopleAreShownOnRequest()
{
    SheetPage* page = open("Workers");
    const int current = page->table()->model()->rowCount();
    page->findChild<QCheckBox*>(QStringLiteral("former"))->setChecked(true);
    QCOMPARE(page->table()->model()->rowCount(), current + 1);
    QVERIFY(cell("Workers", "WORKER_KUZNETSOV", QStringLiteral("Фамилия")).isValid());
}

void DirectoryWindow_test::deleteInTheFaultsRemovesNothing()
{
    const QByteArray role = added("Roles");
    press("nextFault");
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    auto* list = m_window->findChild<QListWidget*>(QStringLiteral("faults"));
    QCOMPARE(list->count(), 2); // department and name are missing
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);
    QVERIFY(m_window->page("Roles")->model()->find(role) >= 0);
}

void DirectoryWindow_test::keysDoTheWork()
{
    QApplication::setActiveWindow(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    SheetPage* page = open("Roles");
    QTableView* view = page->table();
    view->setFocus();
    const int before = page->model()->rowCount();
    QTest::keyClick(view, Qt::Key_Insert);
    QCOMPARE(page->model()->rowCount(), before + 1);
    QWidget* editor = QApplication::focusWidget(); // the first cell is open
    QVERIFY(qobject_cast<QComboBox*>(editor) || qobject_cast<QLineEdit*>(editor));
    page->commit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(page->model()->rowCount(), before);
    QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(page->model()->rowCount(), before + 1);
    page->showCell(page->model()->rows().constLast().key, 0);
    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(page->model()->rowCount(), before);
    QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(page->findChild<QLineEdit*>(QStringLiteral("search"))->hasFocus());
    // What is being typed is saved, too.
    view->setCurrentIndex(cell("Roles", "ROLE_ZAR", QStringLiteral("Название")));
    QTest::keyClick(view, Qt::Key_F2);
    QTest::keyClicks(view->viewport()->findChild<QLineEdit*>(), QStringLiteral("Master"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(box<SaveDialog>());
    answer(box<SaveDialog>(), "write");
    QCOMPARE(value("SELECT name_ FROM Roles WHERE KeyLink = 'ROLE_ZAR'").toString(),
             QStringLiteral("Master"));
}

void DirectoryWindow_test::aRetiredPersonIsOfferedNowhere()
{
    QTableView* view = table("WorkerRoles");
    view->setCurrentIndex(cell("WorkerRoles", "WROLE_PETROV", QStringLiteral("Сотрудник")));
    QTest::keyClick(view, Qt::Key_F2);
    auto* list = view->viewport()->findChild<QComboBox*>();
    QVERIFY(list);
    QVERIFY(list->findData(QByteArray("WORKER_IVANOV")) > 0);
    QCOMPARE(list->findData(QByteArray("WORKER_KUZNETSOV")), -1);
}

QTEST_MAIN(DirectoryWindow_test)
#include "DirectoryWindow_test.moc"
