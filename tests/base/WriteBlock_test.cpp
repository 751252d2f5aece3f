#include "ExpectedWarning.h"
#include "WriteBlock.h"

#include "CRowBatch.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "TestClient.h"

#include <QTest>

class WriteBlock_test : public QObject
{
    Q_OBJECT

private:
    static bool deleteDraft(TestClient& client)
    {
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        batch.RecPost(batch.newRow(ROW_DELETE, "REC_DRAFT_IVANOV"));
        return client.session().SqlUpdate(LogbookTable::Records, batch.array, true, nullptr);
    }
    static int drafts(const TestStore& store)
    {
        return store
            .value(QStringLiteral("SELECT count(*) FROM LogbookRecords WHERE KeyLink='REC_DRAFT_IVANOV'"))
            .toInt();
    }

private slots:
    void writesOnlyWhatIsCommitted()
    {
        expectWarning(QStringLiteral("no block is open"));
        const TestStore store;
        TestClient client(store);
        {
            const WriteBlock dropped(&client.session());
            QVERIFY(deleteDraft(client));
        }
        QCOMPARE(drafts(store), 1);
        QVERIFY(!client.session().BlockEnd(true, nullptr)); // none is open
        client.takeFailures();
        {
            WriteBlock block(&client.session());
            QVERIFY(deleteDraft(client));
            QVERIFY(block.commit());
        }
        QCOMPARE(drafts(store), 0);
    }
};

QTEST_MAIN(WriteBlock_test)
#include "WriteBlock_test.moc"
