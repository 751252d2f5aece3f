#include "ChangeRow.h"
#include "CMDArray.h"
#include "RecordWords.h"
#include "RowLeaf.h"
#include "TableCatalog.h"
#include "TestStore.h"
#include "WriterOfRules.h"

#include <QProcess>
#include <QTest>
#include <sqlite3.h>

/// Who may write templates and reference tables, what the loader and a stranger may do, that rules apply to
/// persons, and that nobody can bypass the store.
class Store_rights_test : public QObject, private WriterOfRules
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    // Templates

    void templatesAreChangedByRightAndLevel_data()
    {
        QTest::addColumn<QByteArray>("login");
        QTest::addColumn<QByteArray>("category");
        QTest::addColumn<bool>("allowed");
        for (const char* category : {"CAT_COMMON", "CAT_COMMON_SUB", "CAT_NETS", "CAT_CDS", "CAT_ZAR"}) {
            QTest::addRow("administrator, %s", category)
                << QByteArray("sidorova") << QByteArray(category) << true;
            QTest::addRow("local administrator, %s", category)
                << QByteArray("smirnov") << QByteArray(category) << (qstrcmp(category, "CAT_ZAR") == 0);
            QTest::addRow("dispatcher, %s", category)
                << QByteArray("ivanov") << QByteArray(category) << false;
        }
    }
    void templatesAreChangedByRightAndLevel()
    {
        QFETCH(QByteArray, login);
        QFETCH(QByteArray, category);
        QFETCH(bool, allowed);
        const Fields inside = {{"CategoryKey", category.constData()}, {"nameLoc", "x"}};
        QCOMPARE(write(login, "LogbookTemplates", ROW_INSERT, "T", inside), allowed);
        if (!allowed)
            QCOMPARE(m_refusal, QString::fromUtf8("Нет права изменять шаблоны этого уровня."));
        load("LogbookTemplates", ROW_INSERT, "T2", inside);
        QCOMPARE(write(login, "LogbookTemplates", ROW_UPDATE, "T2", {{"html", "x"}}), allowed);
        QCOMPARE(write(login, "LogbookTemplates", ROW_DELETE, "T2"), allowed);
        QCOMPARE(write(login, "LogbookCatsTemplate", ROW_UPDATE, category, {{"nameLoc", "x"}}), allowed);
        const Fields child = {{"ParentKey", category.constData()}};
        QCOMPARE(write(login, "LogbookCatsTemplate", ROW_INSERT, "CHILD", child), allowed);
        load("LogbookCatsTemplate", ROW_INSERT, "CHILD2", child);
        QCOMPARE(write(login, "LogbookCatsTemplate", ROW_DELETE, "CHILD2"), allowed);
    }

    void localAdministratorCannotMoveAcrossLevels()
    {
        load("LogbookTemplates", ROW_INSERT, "T", {{"CategoryKey", "CAT_ZAR"}});
        load("LogbookCatsTemplate", ROW_INSERT, "CHILD", {{"ParentKey", "CAT_ZAR"}});
        QVERIFY(!write("smirnov", "LogbookTemplates", ROW_UPDATE, "T", {{"CategoryKey", "CAT_COMMON"}}));
        QVERIFY(!write("smirnov", "LogbookTemplates", ROW_UPDATE, "TPL_OPEN", {{"CategoryKey", "CAT_ZAR"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_UPDATE, "CHILD", {{"ParentKey", "CAT_CDS"}}));
        QVERIFY(
            !write("smirnov", "LogbookCatsTemplate", ROW_UPDATE, "CAT_ZAR", {{"DepartmentKey", "DEP_CDS"}}));
        QVERIFY(write("smirnov", "LogbookTemplates", ROW_UPDATE, "T", {{"CategoryKey", "CHILD"}}));
    }

    void localAdministratorAddsTopCategoriesOfDepartments()
    {
        QVERIFY(write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "A", {{"DepartmentKey", "DEP_ODS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "B", {{"DepartmentKey", "DEP_CDS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "C", {{"OrgTypeKey", "TYPE_NETS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "D"));
        // A key of the user's department on a subcategory of another level gives no right to it.
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "E",
                       {{"ParentKey", "CAT_CDS"}, {"DepartmentKey", "DEP_ODS"}}));
    }

    void parametersAreWrittenByTheAdministrator()
    {
        QVERIFY(!write("smirnov", "TemplateParams", ROW_UPDATE, "PAR_TEXT", {{"nameLoc", "x"}}));
        QVERIFY(!write("ivanov", "TemplateParamCategories", ROW_INSERT, "P", {{"nameLoc", "x"}}));
        QVERIFY(write("sidorova", "TemplateParamCategories", ROW_INSERT, "P", {{"nameLoc", "x"}}));
        QVERIFY(write("sidorova", "TemplateParams", ROW_UPDATE, "PAR_TEXT", {{"CategoryKey", "P"}}));
        QVERIFY(write("sidorova", "TemplateParams", ROW_DELETE, "PAR_LIST"));
    }

    void referenceTablesAreClosedToPersons_data()
    {
        QTest::addColumn<QByteArray>("table");
        for (const CatalogTable& table : TableCatalog::tables())
            if (!table.name.startsWith("Logbook") && !table.name.startsWith("TemplateParam"))
                QTest::newRow(table.name.constData()) << table.name;
    }
    void referenceTablesAreClosedToPersons()
    {
        QFETCH(QByteArray, table);
        load(table, ROW_INSERT, "LOADED", table == "Users" ? Fields{{"login", "new"}} : Fields());
        for (const char* login : {"ivanov", "sidorova"}) {
            QVERIFY(!write(login, table, ROW_INSERT, "NEW",
                           table == "Users" ? Fields{{"login", "other"}} : Fields()));
            QCOMPARE(m_refusal,
                     QString::fromUtf8("Справочники изменяются только средствами администратора."));
            QVERIFY(!write(login, table, ROW_UPDATE, "LOADED"));
            QVERIFY(!write(login, table, ROW_DELETE, "LOADED"));
        }
        load(table, ROW_DELETE, "LOADED");
    }

    void rightsOpenNothingElse()
    {
        QVERIFY(!write("sidorova", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "x"}}));
        QVERIFY(!write("sidorova", "LogbookComments", ROW_DELETE, "COM_READ"));
    }

    // The loader

    void loaderIsBoundByNoRuleAndTheLogNamesItsAccount()
    {
        load("LogbookRecords", ROW_INSERT, "R", newRecord("SHIFT_CDS_PAST", "WORKER_KUZNETSOV", 2));
        load("LogbookRecords", ROW_UPDATE, "R", {{"status", 1}});
        load("LogbookRecords", ROW_DELETE, "REC_OPENING");
        const auto last =
            m_files
                ->rows(QStringLiteral(
                    "SELECT login, loader FROM ChangeTransactions ORDER BY number DESC LIMIT 1"))
                .value(0);
        QProcess id;
        id.start(QStringLiteral("id"), {QStringLiteral("-un")});
        QVERIFY(id.waitForFinished());
        QCOMPARE(last.value(0).toString(),
                 TestStore::isSqlite()
                     ? QString::fromUtf8(id.readAllStandardOutput()).trimmed()
                     : m_files->value(QStringLiteral("SELECT session_user::text")).toString());
        QCOMPARE(last.value(1).toInt(), 1);
        QVERIFY(write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "x"}}));
        const auto own = m_files
                             ->rows(QStringLiteral(
                                 "SELECT login, loader FROM ChangeTransactions ORDER BY number DESC LIMIT 1"))
                             .value(0);
        QCOMPARE(own.value(0).toString(), QStringLiteral("ivanov"));
        QCOMPARE(own.value(1).toInt(), 0);
    }

    // Any table, any login

    void everyLoginReadsEveryTable_data()
    {
        QTest::addColumn<QByteArray>("login");
        for (const char* login : {"viewer", "ivanov", "smirnov", "sidorova"})
            QTest::newRow(login) << QByteArray(login);
    }
    void everyLoginReadsEveryTable()
    {
        QFETCH(QByteArray, login);
        const auto store = m_files->open(QString::fromLatin1(login));
        StoreError error;
        for (const CatalogTable& table : TableCatalog::tables()) {
            CMDArray answer;
            answer = store->select("SELECT * FROM " + table.name, &error);
            QVERIFY2(answer.array, table.name.constData());
            QCOMPARE(answer.RecCount(), value("SELECT count(*) FROM " + table.name).toInt());
        }
        ChangePosition position;
        QVERIFY(store->position(&position, &error));
        position.number = 0;
        QVector<StoreChange> changes;
        QVERIFY(store->changesAfter(&position, 100000, &changes, &error));
        QCOMPARE(changes.size(),
                 value("SELECT count(*) FROM ChangeLog WHERE tableName NOT LIKE 'Store%'").toInt());
    }

    void strangerChangesNothingButReadMarks_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const CatalogTable& table : TableCatalog::tables())
            QTest::newRow(table.name.constData()) << table.name;
    }
    /// A login that works nowhere tries every operation, and every column of each row of the journal.
    void strangerChangesNothingButReadMarks()
    {
        QFETCH(QByteArray, name);
        const CatalogTable& table = *TableCatalog::table(name);
        const auto store = m_files->open(QStringLiteral("viewer"));
        const auto isRefused = [&](MDRFlag flag, const QByteArray& key, const Fields& fields) {
            StoreError error;
            const bool done = TestStore::write(store.get(), name, flag, key, fields, &error);
            // By a rule, not because other rows depend on this one.
            return !done && error.code == StoreError::Refused &&
                   !error.text.contains(QString::fromUtf8("связана с другими"));
        };
        QVERIFY(isRefused(ROW_INSERT, "NEW", name == "Users" ? Fields{{"login", "new"}} : Fields()));
        if (value("SELECT count(*) FROM " + name).toInt() == 0)
            load(name, ROW_INSERT, "LOADED");
        auto keys = m_files->rows(QString::fromLatin1("SELECT KeyLink FROM " + name));
        if (!name.startsWith("Logbook"))
            keys.resize(1); // no rule of the other tables reads the row
        for (const QVariantList& row : keys) {
            const QByteArray key = row.value(0).toString().toUtf8();
            for (const CatalogField& field : table.fields) {
                const bool isFree = name == "LogbookComments" && field.name == "readedTime";
                if (field.name == "KeyLink")
                    continue;
                const auto written = other(field.name.constData(), field.type);
                QVERIFY2(isRefused(ROW_UPDATE, key, {written}) != isFree, field.name + ' ' + key);
            }
            QVERIFY2(isRefused(ROW_DELETE, key, {}), key.constData());
        }
    }

    void filesAreWrittenByTheAdministrator()
    {
        const auto writeFile = [this](const char* login, const QByteArray& content) {
            const auto store = login ? m_files->open(QLatin1String(login)) : m_files->openLoader();
            StoreError error;
            const bool done =
                store->writeFile(QStringLiteral("options"), QStringLiteral("Ours"), content, &error);
            m_refusal = error.text;
            QByteArray read;
            StoreError ignored;
            return done &&
                   (store->file(QStringLiteral("options"), QStringLiteral("Ours"), &read, &ignored) ==
                    !content.isNull()) &&
                   read == content;
        };
        for (const char* login : {"ivanov", "smirnov", "viewer"}) {
            QVERIFY(!writeFile(login, "x"));
            QCOMPARE(m_refusal, QString::fromUtf8("Файлы хранилища записывает только администратор."));
        }
        QVERIFY2(writeFile("sidorova", "first"), qPrintable(m_refusal));
        QVERIFY2(writeFile("sidorova", QByteArray("\0second\xff", 8)), qPrintable(m_refusal));
        QVERIFY(!writeFile("ivanov", QByteArray()));
        QVERIFY2(writeFile("sidorova", QByteArray("")), qPrintable(m_refusal)); // empty, and still there
        QVERIFY2(writeFile("sidorova", QByteArray()), qPrintable(m_refusal));
        QVERIFY(!writeFile("sidorova", QByteArray()));
        QCOMPARE(m_refusal, QString::fromUtf8("В хранилище нет файла «options/Ours»."));
        QVERIFY2(writeFile(nullptr, "loaded"), qPrintable(m_refusal));
    }

    // Persons and their rows of Workers

    void visaGoesByPersonsNotByRows()
    {
        // Two more rows of the authors: a current one, and a deleted one.
        load("Workers", ROW_INSERT, "SECOND", {{"UserKey", "USER_IVANOV"}, {"DepartmentKey", "DEP_ODS"}});
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_OPENING", {{"VisaWorkerKey", "SECOND"}}));
        QCOMPARE(m_refusal, QString::fromUtf8("Автор не визирует свою запись."));
        QVERIFY(write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_ORDER", {{"VisaWorkerKey", "SECOND"}}));
        load("Workers", ROW_UPDATE, "WORKER_IVANOV", {{"deleted_", 1}});
        QVERIFY(!write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_OPENING", {{"VisaWorkerKey", "SECOND"}}));
        load("Workers", ROW_UPDATE, "WORKER_KUZNETSOV", {{"UserKey", "USER_SMIRNOV"}});
        QVERIFY(!write("smirnov", "LogbookRecords", ROW_UPDATE, "REC_PAST_2",
                       {{"VisaWorkerKey", "WORKER_SMIRNOV_ZAR"}}));
    }

    void shiftIsClosedByThePersonNotByTheRow()
    {
        load("Workers", ROW_INSERT, "SECOND", {{"UserKey", "USER_PETROV"}, {"DepartmentKey", "DEP_CDS"}});
        load("Workers", ROW_INSERT, "THIRD", {{"UserKey", "USER_PETROV"}, {"deleted_", 1}});
        QVERIFY(!write("petrov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                       {{"CloseWorkerKey", "THIRD"}}));
        QVERIFY(write("petrov", "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                      {{"CloseWorkerKey", "SECOND"}}));
    }

    void workerOfNobodyIsNobody()
    {
        // A worker without a login, and a removed login: neither represents the other.
        load("Workers", ROW_INSERT, "NOBODY", {{"UserKey", ""}, {"DepartmentKey", "DEP_CDS"}});
        const auto store = m_files->open(QStringLiteral("petrov"));
        load("Users", ROW_UPDATE, "USER_PETROV", {{"deleted_", 1}});
        StoreError error;
        QVERIFY(!TestStore::write(store.get(), "LogbookComments", ROW_INSERT, "A",
                                  {{"WorkerKey", "NOBODY"}, {"RecordKey", "REC_ORDER"}}, &error));
        QCOMPARE(error.text, QString::fromUtf8("Комментарий пишут от своего имени."));
    }

    // Past the store

    void writesThatDoNotComeThroughTheStoreAreRefused()
    {
        for (const char* sql : {"UPDATE LogbookRecords SET html = 'x' WHERE KeyLink = 'REC_ORDER'",
                                "DELETE FROM LogbookComments", "INSERT INTO Roles (KeyLink) VALUES ('X')",
                                "UPDATE ChangeLog SET newRow = NULL", "DELETE FROM ChangeTransactions",
                                "UPDATE ChangeTransactions SET login = 'x'"})
            QVERIFY2(!m_files->exec(QString::fromUtf8(sql)).isEmpty(), sql);
        QCOMPARE(m_files->exec(QStringLiteral("DELETE FROM ChangeLog")),
                 QString::fromUtf8("Журнал изменений не изменяется."));
    }

    void knowingTheFunctionsOfTheTriggersIsNotEnough()
    {
        if (!TestStore::isSqlite())
            QSKIP("On a server the function is the owner's");
        sqlite3* raw = nullptr;
        sqlite3_open(m_files->path().toUtf8().constData(), &raw);
        ChangeRow::installFunction(raw);
        RecordWords::installFunctions(raw);
        RowLeaf::installFunction(raw);
        for (const char* sql : {"UPDATE LogbookRecords SET html = 'x' WHERE KeyLink = 'REC_ORDER'",
                                "DELETE FROM LogbookComments", "INSERT INTO Roles (KeyLink) VALUES ('X')"}) {
            QCOMPARE(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_CONSTRAINT);
            QCOMPARE(QString::fromUtf8(sqlite3_errmsg(raw)),
                     QString::fromUtf8("Данные изменяются только через хранилище журнала."));
        }
        sqlite3_close(raw);
    }

    void theKeyOfAStoredRowIsNeverChanged()
    {
        const char change[] = "UPDATE TemplateParams SET KeyLink = 'X' || KeyLink";
        const QString refusal = QString::fromUtf8("Ключ строки не изменяется.");
        if (!TestStore::isSqlite()) {
            QCOMPARE(m_files->exec(QStringLiteral("SELECT set_config('vrk.batch_key', 'X', false), "
                                                  "set_config('vrk.loader', 'on', false); ") +
                                   QLatin1String(change)),
                     refusal);
            return;
        }
        sqlite3* raw = nullptr;
        sqlite3_open(m_files->path().toUtf8().constData(), &raw);
        ChangeRow::installFunction(raw);
        RecordWords::installFunctions(raw);
        RowLeaf::installFunction(raw);
        sqlite3_exec(raw, "INSERT INTO CurrentTransaction VALUES (1000000, 'x', '', 1)", nullptr, nullptr,
                     nullptr);
        QCOMPARE(sqlite3_exec(raw, change, nullptr, nullptr, nullptr), SQLITE_CONSTRAINT);
        QCOMPARE(QString::fromUtf8(sqlite3_errmsg(raw)), refusal);
        sqlite3_close(raw);
    }

    /// A client that bypasses our code may send values that no array and no statement of ours allows.
    void nonFiniteTimesAreRefusedToEverybody()
    {
        sqlite3* raw = nullptr;
        if (TestStore::isSqlite()) {
            sqlite3_open(m_files->path().toUtf8().constData(), &raw);
            ChangeRow::installFunction(raw);
            RecordWords::installFunctions(raw);
            RowLeaf::installFunction(raw);
            sqlite3_exec(raw, "INSERT INTO CurrentTransaction VALUES (1000000, 'x', '', 1)", nullptr, nullptr,
                         nullptr);
        }
        // This engine stores NaN as null.
        const QList<QByteArray> values = raw ? QList<QByteArray>{"9e999", "-9e999"}
                                             : QList<QByteArray>{"'infinity'", "'-infinity'", "'NaN'"};
        const auto refusal = [&](const QByteArray& sql) {
            if (!raw)
                return m_files->exec(QStringLiteral("SELECT set_config('vrk.batch_key', 'X', false), "
                                                    "set_config('vrk.loader', 'on', false); ") +
                                     QString::fromUtf8(sql));
            return sqlite3_exec(raw, sql, nullptr, nullptr, nullptr) == SQLITE_OK
                       ? QString()
                       : QString::fromUtf8(sqlite3_errmsg(raw));
        };
        for (const CatalogTable& table : TableCatalog::tables()) {
            for (const QByteArray& field : table.reals()) {
                for (const QByteArray& value : values) {
                    const QByteArray name = table.name + ' ' + field + ' ' + value;
                    QVERIFY2(refusal("INSERT INTO " + table.name + " (KeyLink, " + field + ") VALUES ('X', " +
                                     value + ")") == QString::fromUtf8("Недопустимое время или число."),
                             name);
                    QVERIFY2(refusal("UPDATE " + table.name + " SET " + field + " = " + value) ==
                                 QString::fromUtf8("Недопустимое время или число."),
                             name);
                }
            }
        }
        sqlite3_close(raw);
    }
};

QTEST_GUILESS_MAIN(Store_rights_test)
#include "Store_rights_test.moc"
