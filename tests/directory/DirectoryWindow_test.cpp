#include "../admin/AdminRun.h"
#include "AsNobody.h"
#include "DirectoryOpening.h"
#include "DirectoryWindow.h"
#include "NoticeBar.h"
#include "SaveDialog.h"
#include "SheetPage.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <QUrl>

/// The window of the reference data over a real store, used with keys and buttons.
class DirectoryWindow_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsTheRowsOfTheStore();
    void savesAnEditedCell();
    void sameRowsAsTheImport();
    void newRowsReferToNewRows();
    void asksBeforeWriting();
    void undoTakesEditsBack();
    void retiresPeopleAndKeepsTheirRows();
    void keepsRowsThatOthersReferTo();
    void newRowsDisappear();
    void faultsStandBesideTheirCells_data();
    void faultsStandBesideTheirCells();
    void faultyEditsAreNotSaved();
    void aTakenNameIsRefused();
    void listsOfferReferences();
    void aRoleIsOfTheWorkersDepartment();
    void rightsAreChosenFromAList();
    void searchFindsRows();
    void retiredPeopleAreShownOnRequest();
    void keepsWhatOthersWrote();
    void newRowsSurviveRefreshing();
    void aGivenUpNameIsFree();
    void asksAboutCellsChangedTwice();
    void asksAgainAfterAnotherWrite();
    void countsRowsWrittenAtTheSameTime();
    void deleteInTheFaultsRemovesNothing();
    void aReadOnlyFileIsReported();
    void unsavedEditsAreAskedAboutOnClose();
    void closesAfterSaving();
    void aRefusedWriteKeepsTheEdits();
    void anUnreadableStoreKeepsTheEdits();
    void faultyRowsOfTheStoreBlockNothing();
    void keysDoTheWork();
    void aRetiredPersonIsOfferedNowhere();
    void asksForThePasswordOfAServer();

private:
    SheetPage* open(const char* table);
    QTableView* table(const char* table) { return open(table)->table(); }
    QModelIndex cell(const char* table, const QByteArray& key, const QString& heading);
    QString shown(const char* table, const QByteArray& key, const QString& heading)
    {
        return cell(table, key, heading).data().toString();
    }
    void type(const char* table, const QByteArray& key, const QString& heading, const QString& text);
    void press(const char* action);
    template <class Widget>
    Widget* box() const;
    void answer(QDialog* dialog, const char* button);
    /// Saves and confirms.
    void save();
    QByteArray added(const char* table);
    QString notice() const { return m_window->findChild<NoticeBar*>(QStringLiteral("notice"))->text(); }
    QVariant value(const char* sql) const { return m_store->value(QString::fromUtf8(sql)); }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<DirectoryWindow> m_window;
};

void DirectoryWindow_test::init()
{
    m_store = std::make_unique<TestStore>();
    m_window = std::make_unique<DirectoryWindow>(m_store->openLoader(), m_store->url());
    StoreError error;
    QVERIFY2(m_window->load(&error), qPrintable(error.text));
    m_window->show();
}

void DirectoryWindow_test::cleanup()
{
    m_window.reset();
    m_store.reset();
}

SheetPage* DirectoryWindow_test::open(const char* table)
{
    SheetPage* page = m_window->page(table);
    m_window->findChild<QTabWidget*>(QStringLiteral("sheets"))->setCurrentWidget(page);
    return page;
}

QModelIndex DirectoryWindow_test::cell(const char* table, const QByteArray& key, const QString& heading)
{
    SheetPage* page = open(table);
    const Sheet& sheet = page->model()->sheet();
    const int column = int(sheet.column(heading) - sheet.columns.constData());
    page->showCell(key, column);
    return page->table()->currentIndex().sibling(page->table()->currentIndex().row(), column);
}

void DirectoryWindow_test::type(const char* table, const QByteArray& key, const QString& heading,
                                const QString& text)
{
    const QModelIndex index = cell(table, key, heading);
    QTableView* view = open(table)->table();
    view->setCurrentIndex(index);
    QTest::keyClick(view, Qt::Key_F2);
    auto* line = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(line);
    line->selectAll();
    line->insert(text);
    open(table)->commit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DirectoryWindow_test::press(const char* action)
{
    auto* found = m_window->findChild<QAction*>(QLatin1String(action));
    QVERIFY2(found && found->isEnabled(), action);
    found->trigger();
}

template <class Widget>
Widget* DirectoryWindow_test::box() const
{
    for (Widget* one : m_window->findChildren<Widget*>())
        if (one->isVisible())
            return one;
    return nullptr;
}

void DirectoryWindow_test::answer(QDialog* dialog, const char* button)
{
    QVERIFY(dialog);
    auto* found = dialog->findChild<QPushButton*>(QLatin1String(button));
    QVERIFY2(found, button);
    QTest::mouseClick(found, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DirectoryWindow_test::save()
{
    press("save");
    QVERIFY2(box<SaveDialog>(), qPrintable(notice()));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(notice(), QStringLiteral("Записано."));
}

QByteArray DirectoryWindow_test::added(const char* table)
{
    SheetPage* page = open(table);
    press("add");
    page->commit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return page->model()->rows().constLast().key;
}

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

void DirectoryWindow_test::savesAnEditedCell()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(m_window->isWindowModified());
    save();
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
    QVERIFY(!m_window->isWindowModified());
    QCOMPARE(
        value("SELECT count(*) FROM ChangeLog WHERE number = (SELECT max(number) FROM ChangeLog)").toInt(),
        1);
}

void DirectoryWindow_test::sameRowsAsTheImport()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Отчество"), QStringLiteral("Ильич"));
    type("Shifts", "TIMETABLE_CDS_DAY", QStringLiteral("Начало"), QStringLiteral("7:30"));
    type("Users", "USER_PETROV", QStringLiteral("Права"), QStringLiteral("ADMINISTRATOR"));
    const QByteArray worker = added("Workers");
    type("Workers", worker, QStringLiteral("Подразделение"), QStringLiteral("ЦДС"));
    type("Workers", worker, QStringLiteral("Фамилия"), QStringLiteral("Орлова"));
    type("Workers", worker, QStringLiteral("Логин"), QStringLiteral("viewer"));
    const QByteArray bay = added("Equipment");
    type("Equipment", bay, QStringLiteral("Вид"), QStringLiteral("присоединение"));
    type("Equipment", bay, QStringLiteral("Название"), QStringLiteral("Ввод 2"));
    type("Equipment", bay, QStringLiteral("Входит в"), QStringLiteral("ПС 110 кВ Заречная"));
    save();

    TestStore other;
    AdminRun admin;
    admin.url = other.url();
    admin.sheet("workers.csv", "Подразделение;Фамилия;Имя;Отчество;Логин;Группа;Удалён;Код\n"
                               "ЦДС;Петров;Пётр;Ильич;petrov;4;;WORKER_PETROV\nЦДС;Орлова;;;viewer;;;" +
                                   worker + '\n');
    admin.sheet("shifts.csv", "Подразделение;Название;Начало;Конец;Код\n"
                              "ЦДС;" +
                                  shown("Shifts", "TIMETABLE_CDS_DAY", QStringLiteral("Название")).toUtf8() +
                                  ";7:30;20:00;TIMETABLE_CDS_DAY\n");
    admin.sheet("users.csv", "Логин;Права\npetrov;ADMINISTRATOR\n");
    admin.sheet("equipment.csv", "Подразделение;Вид;Входит в;Название;Класс напряжения;Код\n"
                                 ";присоединение;ПС 110 кВ Заречная;Ввод 2;;" +
                                     bay + '\n');
    QVERIFY2(admin.call("import", {admin.sheets}) == Command::Success, qPrintable(admin.err));
    for (const char* one :
         {"Workers", "Shifts", "Users", "Equipment", "Roles", "WorkerRoles", "Departments"}) {
        const QString sql = QStringLiteral("SELECT * FROM %1 ORDER BY KeyLink").arg(QLatin1String(one));
        QVERIFY2(m_store->rows(sql) == other.rows(sql), one);
    }
    const QString rights =
        QStringLiteral("SELECT UserKey, rightName FROM UserRights ORDER BY UserKey, rightName");
    QCOMPARE(m_store->rows(rights), other.rows(rights));
    // The log says the same: these operations on these rows.
    const QString log =
        QStringLiteral("SELECT tableName, rowKey, event FROM ChangeLog WHERE number = "
                       "(SELECT max(number) FROM ChangeLog) AND tableName <> 'UserRights' ORDER BY 1, 2");
    QCOMPARE(m_store->rows(log), other.rows(log));
    QCOMPARE(m_store->rows(log).size(), 4);
}

void DirectoryWindow_test::newRowsReferToNewRows()
{
    const QByteArray department = added("Departments");
    type("Departments", department, QStringLiteral("Организация"),
         shown("Departments", "DEP_CDS", QStringLiteral("Организация")));
    type("Departments", department, QStringLiteral("Название"), QStringLiteral("Группа реле"));
    press("nextFault"); // checks at once
    const QByteArray role = added("Roles");
    type("Roles", role, QStringLiteral("Подразделение"), QStringLiteral("Группа реле"));
    type("Roles", role, QStringLiteral("Название"), QStringLiteral("Мастер"));
    save();
    QCOMPARE(value("SELECT DepartmentKey FROM Roles WHERE name_ = 'Мастер'").toByteArray(), department);
}

void DirectoryWindow_test::asksBeforeWriting()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    press("save");
    auto* tree = box<SaveDialog>()->findChild<QTreeWidget*>(QStringLiteral("changes"));
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(tree->topLevelItem(0)->text(0), QStringLiteral("Изменится (сотрудники): 1"));
    QCOMPARE(tree->topLevelItem(0)->child(0)->text(1), QStringLiteral("Группа: 4 → 5"));
    answer(box<SaveDialog>(), "cancel");
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 4);
    QVERIFY(m_window->isWindowModified());
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
    auto* tabs = m_window->findChild<QTabWidget*>(QStringLiteral("sheets"));
    QCOMPARE(tabs->currentWidget(), static_cast<QWidget*>(m_window->page(table)));
    QCOMPARE(m_window->page(table)->table()->currentIndex(), index);
    QVERIFY(tabs->tabText(tabs->currentIndex()).endsWith(QStringLiteral("(ошибок: 1)")));
}

void DirectoryWindow_test::faultyEditsAreNotSaved()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("9"));
    type("Workers", "WORKER_IVANOV", QStringLiteral("Группа"), QStringLiteral("3"));
    press("save");
    QVERIFY(!box<SaveDialog>());
    QCOMPARE(notice(), QStringLiteral("Сохранить нельзя, ошибок: 1. Ничего не записано."));
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_IVANOV'").toInt(), 5);
    QCOMPARE(m_window->page("Workers")->table()->currentIndex(),
             cell("Workers", "WORKER_PETROV", QStringLiteral("Группа")));
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

void DirectoryWindow_test::keepsWhatOthersWrote()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Имя"), QStringLiteral("Павел"));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 2}}));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_IVANOV",
                             {{"safetyGroup", 1}}));
    press("save");
    const QString text = box<SaveDialog>()->findChild<QLabel*>(QStringLiteral("text"))->text();
    QVERIFY2(text.contains(QStringLiteral("другие изменили строк: 2")), qPrintable(text));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(value("SELECT firstName FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toString(),
             QStringLiteral("Павел"));
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 2);
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_IVANOV'").toInt(), 1);
}

void DirectoryWindow_test::newRowsSurviveRefreshing()
{
    const QByteArray role = added("Roles");
    type("Roles", role, QStringLiteral("Название"), QStringLiteral("Мастер"));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Roles", ROW_UPDATE, "ROLE_ZAR",
                             {{"name_", QStringLiteral("Старший группы")}}));
    press("refresh");
    QCOMPARE(notice(),
             QStringLiteral("Пока вы правили, другие изменили строк: 1. Их правки взяты в таблицы."));
    QCOMPARE(shown("Roles", role, QStringLiteral("Название")), QStringLiteral("Мастер"));
    QCOMPARE(shown("Roles", "ROLE_ZAR", QStringLiteral("Название")), QStringLiteral("Старший группы"));
    press("refresh");
    QCOMPARE(notice(), QStringLiteral("Изменений от других нет."));
}

void DirectoryWindow_test::aGivenUpNameIsFree()
{
    const QByteArray role = added("Roles");
    type("Roles", role, QStringLiteral("Подразделение"), QStringLiteral("ЦДС"));
    type("Roles", role, QStringLiteral("Название"),
         shown("Roles", "ROLE_CDS_SENIOR", QStringLiteral("Название")));
    type("Roles", "ROLE_CDS_SENIOR", QStringLiteral("Название"), QStringLiteral("Начальник смены"));
    save();
    QCOMPARE(value("SELECT name_ FROM Roles WHERE KeyLink = 'ROLE_CDS_SENIOR'").toString(),
             QStringLiteral("Начальник смены"));
}

void DirectoryWindow_test::asksAboutCellsChangedTwice()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 2}}));
    press("save");
    auto* tree = box<ConflictDialog>()->findChild<QTreeWidget*>(QStringLiteral("changes"));
    QCOMPARE(tree->topLevelItem(0)->text(2), QStringLiteral("5"));
    QCOMPARE(tree->topLevelItem(0)->text(3), QStringLiteral("2"));
    answer(box<ConflictDialog>(), "cancel");
    QVERIFY(!box<SaveDialog>());
    press("save");
    answer(box<ConflictDialog>(), "theirs");
    QVERIFY(!box<SaveDialog>()); // nothing is left to save
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Группа")), QStringLiteral("2"));
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 3}}));
    press("save");
    answer(box<ConflictDialog>(), "mine");
    answer(box<SaveDialog>(), "write");
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
}

void DirectoryWindow_test::asksAgainAfterAnotherWrite()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    press("save");
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 2}}));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 2);
    QVERIFY(box<ConflictDialog>());
}

void DirectoryWindow_test::countsRowsWrittenAtTheSameTime()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    type("Workers", "WORKER_IVANOV", QStringLiteral("Группа"), QStringLiteral("3"));
    const auto store = m_store->openLoader();
    DirectoryDraft::Meanwhile meanwhile;
    DirectoryDraft::Outcome outcome;
    StoreError error;
    DirectoryDraft* draft = m_window->draft();
    QVERIFY(draft->look(store.get(), &meanwhile, &error));
    QVERIFY(draft->check(store.get()).isEmpty());
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 2}}));
    QVERIFY(draft->save(store.get(), m_store->url(), &outcome, &error));
    QVERIFY(outcome.isWritten);
    QCOMPARE(outcome.shared, 1);
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

void DirectoryWindow_test::aReadOnlyFileIsReported()
{
    if (!TestStore::isSqlite())
        QSKIP("a file");
    m_window.reset();
    const QString folder = QFileInfo(m_store->path()).path();
    QFile::setPermissions(m_store->path(), QFile::Permissions(0x4444));
    QFile::setPermissions(folder, QFile::Permissions(0x5555));
    {
        const AsNobody nobody;
        StoreError error;
        auto store = StoreAdmin::openLoader(m_store->url(), &error);
        QVERIFY2(store, qPrintable(error.text));
        m_window = std::make_unique<DirectoryWindow>(std::move(store), m_store->url());
        QVERIFY2(m_window->load(&error), qPrintable(error.text));
        m_window->show();
        QCOMPARE(notice(),
                 QStringLiteral("Журнал открыт с оговоркой: только просмотр. Записать правки не удастся."));
        type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
        press("save");
        answer(box<SaveDialog>(), "write");
        QVERIFY2(notice().startsWith(QStringLiteral("Ничего не записано: ")), qPrintable(notice()));
        QVERIFY(m_window->isWindowModified());
        m_window.reset();
    }
    QFile::setPermissions(folder, QFile::Permissions(0x7777));
}

void DirectoryWindow_test::unsavedEditsAreAskedAboutOnClose()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(!m_window->close());
    answer(box<QMessageBox>(), "stay");
    QVERIFY(m_window->isVisible());
    QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Группа")), QStringLiteral("5"));
    QVERIFY(!m_window->close());
    answer(box<QMessageBox>(), "drop");
    QTRY_VERIFY(!m_window->isVisible());
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 4);
}

void DirectoryWindow_test::closesAfterSaving()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(!m_window->close());
    answer(box<QMessageBox>(), "save");
    QTRY_VERIFY(box<SaveDialog>());
    answer(box<SaveDialog>(), "write");
    QTRY_VERIFY(!m_window->isVisible());
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
}

void DirectoryWindow_test::aRefusedWriteKeepsTheEdits()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QCOMPARE(m_store->refuse(QStringLiteral("UPDATE"), QStringLiteral("Workers")), QString());
    press("save");
    answer(box<SaveDialog>(), "write");
    QVERIFY2(notice().startsWith(QStringLiteral("Ничего не записано: ")), qPrintable(notice()));
    QVERIFY(m_window->isWindowModified());
    QCOMPARE(m_store->permit(QStringLiteral("UPDATE"), QStringLiteral("Workers")), QString());
    save();
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
}

void DirectoryWindow_test::anUnreadableStoreKeepsTheEdits()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QCOMPARE(m_store->dropTables({QStringLiteral("UserRights")}), QString());
    press("save");
    QVERIFY(!box<SaveDialog>());
    QVERIFY2(notice().startsWith(QStringLiteral("Журнал не прочитан: ")), qPrintable(notice()));
    QVERIFY2(notice().endsWith(QStringLiteral("Ничего не записано, правки остались в окне.")),
             qPrintable(notice()));
    QVERIFY(m_window->isWindowModified());
}

void DirectoryWindow_test::faultyRowsOfTheStoreBlockNothing()
{
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Roles", ROW_UPDATE, "ROLE_ZAR",
                             {{"name_", QString()}}));
    press("refresh");
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    save();
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
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

void DirectoryWindow_test::asksForThePasswordOfAServer()
{
    int asked = 0;
    const DirectoryOpening opening([&asked](const QString&) {
        ++asked;
        return QString();
    });
    StoreError error;
    QVERIFY(opening.open(m_store->url(), &error)); // no password is needed
    QCOMPARE(asked, 0);
    QVERIFY(notice().isEmpty());
    if (!TestStore::isSqlite()) {
        // A server that wants a password: this login has one, and it is no administrator.
        m_store->givePassword(QStringLiteral("ivanov"), QStringLiteral("secret"));
        QUrl url(m_store->url());
        url.setUserName(QStringLiteral("ivanov"));
        QStringList answers{QStringLiteral("wrong"), QStringLiteral("secret")};
        const DirectoryOpening asking([&](const QString&) {
            ++asked;
            return answers.isEmpty() ? QString() : answers.takeFirst();
        });
        auto store = asking.open(url.toString(), &error);
        QVERIFY2(store, qPrintable(error.text));
        QCOMPARE(asked, 2);
        m_window = std::make_unique<DirectoryWindow>(std::move(store), url.toString());
        QVERIFY(m_window->load(&error));
        m_window->show();
        QVERIFY2(notice().startsWith(QStringLiteral("Эта учётная запись сервера может только смотреть")),
                 qPrintable(notice()));
        type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
        press("save");
        answer(box<SaveDialog>(), "write");
        QVERIFY2(notice().startsWith(QStringLiteral("Ничего не записано: ")), qPrintable(notice()));
        QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 4);
        QVERIFY(!opening.open(QStringLiteral("postgresql://ivanov@/nowhere?host=/nowhere"), &error));
        QVERIFY(!error.text.isEmpty());
        qunsetenv("PGPASSWORD");
    }
    QVERIFY(!opening.open(QStringLiteral("sqlite:///nowhere/at/all.sqlite"), &error));
    QVERIFY(!error.text.isEmpty());
}

QTEST_MAIN(DirectoryWindow_test)
#include "DirectoryWindow_test.moc"
