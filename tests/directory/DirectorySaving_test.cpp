#include "../admin/AdminRun.h"
#include "AsNobody.h"
#include "DirectoryBench.h"
#include "DirectoryOpening.h"
#include "GateProxy.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QTreeWidget>
#include <QUrl>

/// What the window of the reference data writes, when it asks, and what it keeps.
class DirectorySaving_test : public QObject, private DirectoryBench
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { stop(); }

    void savesAnEditedCell();
    void sameRowsAsTheImport();
    void newRowsReferToNewRows();
    void asksBeforeWriting();
    void faultyEditsAreNotSaved();
    void keepsWhatOthersWrote();
    void newRowsSurviveRefreshing();
    void aGivenUpNameIsFree();
    void asksAboutCellsChangedTwice();
    void asksAgainAfterAnotherWrite();
    void countsRowsWrittenAtTheSameTime();
    void aReadOnlyFileIsReported();
    void unsavedEditsAreAskedAboutOnClose();
    void closesAfterSaving();
    void aRefusedWriteKeepsTheEdits();
    void anUnreadableStoreKeepsTheEdits();
    void faultyRowsOfTheStoreBlockNothing();
    void aBrokenConnectionLosesNoEdits_data();
    void aBrokenConnectionLosesNoEdits();
    void asksForThePasswordOfAServer();
};

void DirectorySaving_test::savesAnEditedCell()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(m_window->isWindowModified());
    save();
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
    QVERIFY(!m_window->isWindowModified());
    QTableView* view = m_window->page("Workers")->table(); // the row stays current
    QCOMPARE(view->currentIndex().sibling(view->currentIndex().row(), 1).data().toString(),
             QStringLiteral("Петров"));
    QCOMPARE(
        value("SELECT count(*) FROM ChangeLog WHERE number = (SELECT max(number) FROM ChangeLog)").toInt(),
        1);
}

void DirectorySaving_test::sameRowsAsTheImport()
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

void DirectorySaving_test::newRowsReferToNewRows()
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

void DirectorySaving_test::asksBeforeWriting()
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

void DirectorySaving_test::faultyEditsAreNotSaved()
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

void DirectorySaving_test::keepsWhatOthersWrote()
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

void DirectorySaving_test::newRowsSurviveRefreshing()
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

void DirectorySaving_test::aGivenUpNameIsFree()
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

void DirectorySaving_test::asksAboutCellsChangedTwice()
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

void DirectorySaving_test::asksAgainAfterAnotherWrite()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    press("save");
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, "WORKER_PETROV",
                             {{"safetyGroup", 2}}));
    answer(box<SaveDialog>(), "write");
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 2);
    QVERIFY(box<ConflictDialog>());
}

void DirectorySaving_test::countsRowsWrittenAtTheSameTime()
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

void DirectorySaving_test::aReadOnlyFileIsReported()
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

void DirectorySaving_test::unsavedEditsAreAskedAboutOnClose()
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

void DirectorySaving_test::closesAfterSaving()
{
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    QVERIFY(!m_window->close());
    answer(box<QMessageBox>(), "save");
    QTRY_VERIFY(box<SaveDialog>());
    answer(box<SaveDialog>(), "write");
    QTRY_VERIFY(!m_window->isVisible());
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
}

void DirectorySaving_test::aRefusedWriteKeepsTheEdits()
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

void DirectorySaving_test::anUnreadableStoreKeepsTheEdits()
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

void DirectorySaving_test::faultyRowsOfTheStoreBlockNothing()
{
    QVERIFY(TestStore::write(m_store->openLoader().get(), "Roles", ROW_UPDATE, "ROLE_ZAR",
                             {{"name_", QString()}}));
    press("refresh");
    type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), QStringLiteral("5"));
    save();
    QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toInt(), 5);
}

void DirectorySaving_test::aBrokenConnectionLosesNoEdits_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("before the request") << int(GateProxy::BeforeRequest);
    QTest::newRow("before the answer") << int(GateProxy::BeforeAnswer);
}

/// The connection breaks at requests all over a save.
void DirectorySaving_test::aBrokenConnectionLosesNoEdits()
{
    if (TestStore::isSqlite())
        QSKIP("a server");
    QFETCH(int, place);
    const QString folder = PrivateCluster::shared().socketFolder();
    GateProxy gate(folder);
    const auto quoted = [](const QString& path) {
        return QString::fromLatin1(QUrl::toPercentEncoding(path));
    };
    const QString url = m_store->url().replace(quoted(folder), quoted(gate.socketFolder()));
    QVERIFY(url != m_store->url());
    StoreError error;
    auto store = StoreAdmin::openLoader(url, &error);
    QVERIFY2(store, qPrintable(error.text));
    m_window = std::make_unique<DirectoryWindow>(std::move(store), url);
    QVERIFY(m_window->load(&error));
    m_window->show();
    int failures = 0;
    bool hasBroken = true;
    for (int request = 1; hasBroken && request < 1000; request += 11) { // each would take minutes
        const QString group = request % 2 ? QStringLiteral("5") : QStringLiteral("3");
        type("Workers", "WORKER_PETROV", QStringLiteral("Группа"), group);
        gate.breakAt(request, static_cast<GateProxy::Place>(place), 100);
        press("save");
        if (box<SaveDialog>())
            answer(box<SaveDialog>(), "write");
        hasBroken = gate.hasBroken();
        gate.admit();
        if (notice() != QStringLiteral("Записано.")) {
            ++failures;
            QVERIFY2(notice().contains(QStringLiteral("равки")),
                     qPrintable(notice())); // says where the edits are
            QCOMPARE(shown("Workers", "WORKER_PETROV", QStringLiteral("Группа")), group);
            press("save");
            if (box<SaveDialog>())
                answer(box<SaveDialog>(), "write");
        }
        QVERIFY2(!m_window->isWindowModified(), qPrintable(notice()));
        QCOMPARE(value("SELECT safetyGroup FROM Workers WHERE KeyLink = 'WORKER_PETROV'").toString(), group);
    }
    QVERIFY(!hasBroken);
    QVERIFY2(failures > 3, qPrintable(QString::number(failures)));
}

void DirectorySaving_test::asksForThePasswordOfAServer()
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

QTEST_MAIN(DirectorySaving_test)
#include "DirectorySaving_test.moc"
