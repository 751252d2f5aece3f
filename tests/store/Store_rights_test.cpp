#include "ChangeRow.h"
#include "RecordWords.h"
#include "TableCatalog.h"
#include "TestStore.h"
#include "WriterOfRules.h"

#include <QTest>
#include <sqlite3.h>

/// Who may write templates and reference tables, what the loader may, and that nobody writes past the store.
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

    void localAdministratorMakesTopCategoriesOfHisDepartments()
    {
        QVERIFY(write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "A", {{"DepartmentKey", "DEP_ODS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "B", {{"DepartmentKey", "DEP_CDS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "C", {{"OrgTypeKey", "TYPE_NETS"}}));
        QVERIFY(!write("smirnov", "LogbookCatsTemplate", ROW_INSERT, "D"));
        // A key of the own department on a subcategory of another level gives no right to it.
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

    void loaderIsBoundByNoRuleAndTheLogNamesIt()
    {
        load("LogbookRecords", ROW_INSERT, "R", newRecord("SHIFT_CDS_PAST", "WORKER_KUZNETSOV", 2));
        load("LogbookRecords", ROW_UPDATE, "R", {{"status", 1}});
        load("LogbookRecords", ROW_DELETE, "REC_OPENING");
        const auto last =
            m_files
                ->rows(QStringLiteral(
                    "SELECT login, loader FROM ChangeTransactions ORDER BY number DESC LIMIT 1"))
                .value(0);
        QCOMPARE(last.value(0).toString(), QStringLiteral("loader"));
        QCOMPARE(last.value(1).toInt(), 1);
        QVERIFY(write("ivanov", "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV", {{"html", "x"}}));
        const auto own = m_files
                             ->rows(QStringLiteral(
                                 "SELECT login, loader FROM ChangeTransactions ORDER BY number DESC LIMIT 1"))
                             .value(0);
        QCOMPARE(own.value(0).toString(), QStringLiteral("ivanov"));
        QCOMPARE(own.value(1).toInt(), 0);
    }

    // Past the store

    void writesThatDoNotComeThroughTheStoreAreRefused()
    {
        for (const char* sql : {"UPDATE LogbookRecords SET html = 'x' WHERE KeyLink = 'REC_ORDER'",
                                "DELETE FROM LogbookComments", "INSERT INTO Roles (KeyLink) VALUES ('X')",
                                "UPDATE ChangeLog SET newRow = NULL", "DELETE FROM ChangeTransactions"})
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
        for (const char* sql : {"UPDATE LogbookRecords SET html = 'x' WHERE KeyLink = 'REC_ORDER'",
                                "DELETE FROM LogbookComments", "INSERT INTO Roles (KeyLink) VALUES ('X')"}) {
            QCOMPARE(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_CONSTRAINT);
            QCOMPARE(QString::fromUtf8(sqlite3_errmsg(raw)),
                     QString::fromUtf8("Данные изменяются только через хранилище журнала."));
        }
        sqlite3_close(raw);
    }
};

QTEST_GUILESS_MAIN(Store_rights_test)
#include "Store_rights_test.moc"
