#include "CToolLiteModel.h"
#include "ExpectedWarning.h"
#include "MDRValues.h"
#include "TestClient.h"

#include <QTest>

class CToolLiteModelTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsWholeTablesWithTheirKeys();
    void loadsTablesWithoutRows();
    void findsTheDirectoryOfTablesByLatinName();
    void aTableThatCannotBeLoadedIsMissing();
    void aTakenModelOutlivesTheTool();
    void loadsNothingWithoutASession();
    void theToolHasItsName();
};

void CToolLiteModelTest::loadsWholeTablesWithTheirKeys()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    CToolLiteModel tool(&module);
    tool.m_names << QStringLiteral("Workers") << QStringLiteral("Departments")
                 << QStringLiteral("Organizations") << QStringLiteral("OrgTypes");
    QCOMPARE(tool.Perform(false), 2);
    QCOMPARE(tool.m_loaded, (std::set<std::string>{"Departments", "OrgTypes", "Organizations", "Workers"}));
    for (const std::string& name : tool.m_loaded) {
        CModelTable* table = tool.m_model->GetTableByName(name);
        QVERIFY(table);
        QCOMPARE(table->name, name);
        QCOMPARE(
            table->data.RecCount(),
            store.value(QStringLiteral("SELECT count(*) FROM %1").arg(QString::fromStdString(name))).toInt());
        QCOMPARE(MDAKeyCount(table->data.array), 1);
    }
    const CMDArray& workers = *tool.m_model->GetTableByName("Workers");
    const MDRVar key = MDRValue::text("WORKER_PETROV");
    const MDRData* petrov = MDARecSeekV(workers.array, 0, &key, 0);
    QVERIFY(petrov);
    MDRVar name;
    workers.GetVal(petrov, "firstName", name);
    QCOMPARE(TestStore::text(MDRValue::copy(name)), QStringLiteral("Пётр"));
    QVERIFY(MDRFldByName(workers.array, "keyLink")); // also requested in this spelling
}

void CToolLiteModelTest::loadsTablesWithoutRows()
{
    TestStore store(TestStore::Empty);
    TestClient client(store.openLoader());
    TestModule module(client);
    CToolLiteModel tool(&module);
    tool.m_names << QStringLiteral("Workers");
    tool.Perform(false);
    CModelTable* workers = tool.m_model->GetTableByName("Workers");
    QVERIFY(workers);
    QCOMPARE(workers->data.RecCount(), 0);
    QCOMPARE(MDAKeyCount(workers->data.array), 1);
    QVERIFY(MDRFldByName(workers->data.array, "lastName"));
}

void CToolLiteModelTest::findsTheDirectoryOfTablesByLatinName()
{
    TestStore store(TestStore::Empty);
    const std::unique_ptr<Store> loader = store.openLoader();
    QVERIFY(TestStore::write(loader.get(), "Tables", ROW_INSERT, "T1", {{"nameLat", "Zones"}}));
    QVERIFY(TestStore::write(loader.get(), "Tables", ROW_INSERT, "T2", {{"nameLat", "Areas"}}));
    TestClient client(store.openLoader());
    TestModule module(client);
    CToolLiteModel tool(&module);
    tool.m_names << QStringLiteral("Tables") << QStringLiteral("Fields");
    tool.Perform(false);
    const CMDArray& tables = *tool.m_model->GetTableByName("Tables");
    QCOMPARE(MDAKeyCount(tables.array), 2);
    const MDRVar latin = MDRValue::text("Zones");
    const MDRData* found = MDARecSeekV(tables.array, 1, &latin, 0);
    QVERIFY(found);
    MDRVar key;
    tables.GetVal(found, "KeyLink", key);
    QCOMPARE(MDRValue::copy(key), QByteArray("T1"));
    QCOMPARE(MDAKeyCount(tool.m_model->GetTableByName("Fields")->data.array), 1);
}

void CToolLiteModelTest::aTableThatCannotBeLoadedIsMissing()
{
    expectWarning(QStringLiteral("NoSuchTable"));
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    CToolLiteModel tool(&module);
    tool.m_names << QStringLiteral("Workers") << QStringLiteral("NoSuchTable") << QStringLiteral("OrgTypes");
    QCOMPARE(tool.Perform(false), 2);
    QVERIFY(tool.m_model->GetTableByName("Workers"));
    QVERIFY(!tool.m_model->GetTableByName("NoSuchTable"));
    QVERIFY(tool.m_model->GetTableByName("OrgTypes"));
    QCOMPARE(tool.m_loaded, (std::set<std::string>{"OrgTypes", "Workers"}));
    QCOMPARE(client.takeFailures().size(), 1);
}

void CToolLiteModelTest::aTakenModelOutlivesTheTool()
{
    TestStore store;
    TestClient client(store);
    TestModule module(client);
    std::unique_ptr<CLiteModel> model;
    {
        CToolLiteModel tool(&module);
        tool.m_names << QStringLiteral("OrgTypes");
        tool.Perform(false);
        model.reset(tool.m_model);
        tool.m_model = nullptr;
    }
    QVERIFY(model->GetTableByName("OrgTypes")->data.RecCount() > 0);
    CToolLiteModel untaken(&module); // frees its remaining model
    untaken.m_names << QStringLiteral("OrgTypes");
    untaken.Perform(false);
    untaken.Perform(false); // again into the same model
    QCOMPARE(untaken.m_loaded.size(), std::size_t(1));
}

void CToolLiteModelTest::loadsNothingWithoutASession()
{
    TestModule module(static_cast<CVrkCliApp*>(nullptr));
    CToolLiteModel tool(&module);
    tool.m_names << QStringLiteral("OrgTypes");
    QVERIFY(tool.Perform(false) != 2);
    QVERIFY(!tool.m_model);
}

void CToolLiteModelTest::theToolHasItsName()
{
    CToolLiteModel tool(nullptr);
    QCOMPARE(tool.objectName(), QStringLiteral("LiteModel"));
    QVERIFY(tool.Perform(false) != 2);
}

QTEST_MAIN(CToolLiteModelTest)
#include "CToolLiteModel_test.moc"
