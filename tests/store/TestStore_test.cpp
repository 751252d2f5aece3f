#include "StoreAdmin.h"
#include "TestStore.h"

#include <QTest>

class TestStore_test : public QObject
{
    Q_OBJECT

private slots:
    void standardJournalIsClean()
    {
        const TestStore store;
        QVector<StoreAdmin::Finding> findings;
        StoreError error;
        QVERIFY2(StoreAdmin::check(store.url(), &findings, &error), qPrintable(error.text + error.detail));
        for (const auto& finding : findings)
            qWarning("%s", qPrintable(finding.text));
        QVERIFY(findings.isEmpty());
    }

    void standardJournalHasTheDocumentedRows()
    {
        const TestStore store;
        QCOMPARE(store.value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt(), 11);
        QCOMPARE(store.value(QStringLiteral("SELECT count(*) FROM Workers")).toInt(), 6);
        QCOMPARE(store.value(QStringLiteral("SELECT fileName FROM LogbookFiles WHERE KeyLink = 'FILE_IMAGE'"))
                     .toString(),
                 QString::fromUtf8("фото опоры № 12.png"));
        QCOMPARE(
            store.value(QStringLiteral("SELECT count(*) FROM LogbookWorkshifts WHERE CloseWorkerKey IS NULL"))
                .toInt(),
            2);
    }

    void copiesAreIndependent()
    {
        const TestStore one;
        const TestStore other;
        QVERIFY(TestStore::write(one.openLoader().get(), "OrgTypes", ROW_INSERT, "NEW", {{"name_", "x"}}));
        QCOMPARE(one.value(QStringLiteral("SELECT count(*) FROM OrgTypes")).toInt(), 3);
        QCOMPARE(other.value(QStringLiteral("SELECT count(*) FROM OrgTypes")).toInt(), 2);
    }
};

QTEST_GUILESS_MAIN(TestStore_test)
#include "TestStore_test.moc"
