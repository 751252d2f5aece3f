#include "TestStore.h"

#include <QTest>

class Store_script_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->open(QStringLiteral("ivanov"));
    }
    void cleanup()
    {
        m_store.reset();
        m_files.reset();
    }

    void seekAboveEveryTimeFindsTheLatestWorkshift()
    {
        StoreError error;
        QVERIFY(m_store->beginRead(&error));
        bool exact = true;
        const qint64 index = m_store->seek("LogbookWorkshifts", 1, {QStringLiteral("DEP_CDS"), 5e10}, &exact);
        QVERIFY(!exact);
        QVERIFY(index < m_store->rowCount("LogbookWorkshifts"));
        const QVariantMap row = m_store->row("LogbookWorkshifts", 1, index);
        QCOMPARE(row.value(QStringLiteral("KeyLink")).toString(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(row.value(QStringLiteral("endTime")).type(), QVariant::Double);
        QCOMPARE(row.value(QStringLiteral("endTime")).toDouble(), TestStore::now() + 18 * 3600);
        QVERIFY(!row.value(QStringLiteral("CloseWorkerKey")).isValid());
        m_store->endRead();
    }

    void seekWithoutWorkshiftsStopsAtTheNextDepartment()
    {
        bool exact = true;
        const qint64 ods = m_store->seek("LogbookWorkshifts", 1, {QStringLiteral("DEP_ODS"), 5e10}, &exact);
        QCOMPARE(ods, 2);
        QCOMPARE(m_store->row("LogbookWorkshifts", 1, ods).value(QStringLiteral("DepartmentKey")).toString(),
                 QStringLiteral("DEP_ZAR"));
        const qint64 none = m_store->seek("LogbookWorkshifts", 1, {QStringLiteral("ZZZ"), 5e10}, &exact);
        QCOMPARE(none, m_store->rowCount("LogbookWorkshifts"));
        QVERIFY(m_store->row("LogbookWorkshifts", 1, none).isEmpty());
    }

    void fallingFieldIsWalkedFromTheNewest()
    {
        QCOMPARE(m_store->row("LogbookWorkshifts", 1, 0).value(QStringLiteral("KeyLink")).toString(),
                 QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(m_store->row("LogbookWorkshifts", 1, 1).value(QStringLiteral("KeyLink")).toString(),
                 QStringLiteral("SHIFT_CDS_PAST"));
    }

    void reportsAnExactMatch()
    {
        bool exact = false;
        const QVariantList past = {QStringLiteral("DEP_CDS"), TestStore::now() - 30 * 3600};
        QCOMPARE(m_store->seek("LogbookWorkshifts", 1, past, &exact), 1);
        QVERIFY(exact);
        QCOMPARE(m_store->seek("Workers", 0, {QStringLiteral("WORKER_PETROV")}, &exact), 2);
        QVERIFY(exact);
        QCOMPARE(m_store->row("Workers", 0, 2).value(QStringLiteral("lastName")).toString(),
                 QString::fromUtf8("Петров"));
        QCOMPARE(m_store->seek("LogbookWorkshifts", 1, {QStringLiteral("DEP_ZAR")}, &exact), 2);
        QVERIFY(exact);
    }

    void unknownTablesAndKeysGiveNothing()
    {
        bool exact = true;
        QCOMPARE(m_store->rowCount("NoSuchTable"), 0);
        QCOMPARE(m_store->seek("Workers", 1, {QStringLiteral("x")}, &exact), 0);
        QVERIFY(!exact);
        QVERIFY(m_store->row("Workers", 5, 0).isEmpty());
        QVERIFY(m_store->row("Workers", 0, -1).isEmpty());
        QVERIFY(m_store->row("Workers; --", 0, 0).isEmpty());
        QCOMPARE(m_store->rowCount("workers"), 6);
    }

    void oneReadSeesOneMoment()
    {
        StoreError error;
        QVERIFY(m_store->beginRead(&error));
        QVERIFY(TestStore::write(m_files->openLoader().get(), "Roles", ROW_INSERT, "NEW"));
        QCOMPARE(m_store->rowCount("Roles"), 3);
        m_store->endRead();
        QCOMPARE(m_store->rowCount("Roles"), 4);
        m_store->endRead(); // a second call is harmless
    }
};

QTEST_GUILESS_MAIN(Store_script_test)
#include "Store_script_test.moc"
