#include "RecordCensus.h"

#include "MadeTable.h"

#include <QTest>
#include <random>

class RecordCensus_test : public QObject
{
    Q_OBJECT

private slots:
    void countsDraftsAndSignableRecords()
    {
        MadeTable records("LogbookRecords", LogbookRecordExtFields);
        RecordCensus census;
        census.setWorkerKey("ME");
        QVERIFY(!census.hasDrafts() && !census.hasMyDrafts() && !census.hasSignable());

        census.put(records.add({{"WorkerKey", "ME"}, {"status", 0}}));
        census.put(records.add({{"WorkerKey", "OTHER"}, {"status", 2}}));
        census.put(records.add({{"status", 0}}));
        census.put(records.add({{"WorkerKey", ""}, {"status", 0}}));
        census.put(records.add({{"WorkerKey", "OTHER"}}));
        QVERIFY(!census.hasDrafts() && !census.hasMyDrafts() && !census.hasSignable());

        MDRData* theirs = records.add({{"WorkerKey", "OTHER"}, {"status", 1}});
        census.put(theirs);
        QVERIFY(census.hasDrafts() && !census.hasMyDrafts());
        MDRData* mine = records.add({{"WorkerKey", "ME"}, {"status", 1}});
        census.put(mine);
        QVERIFY(census.hasMyDrafts());

        records.set(theirs, "status", 0);
        census.put(theirs);
        QVERIFY(census.hasSignable());
        census.remove(mine);
        QVERIFY(!census.hasDrafts() && !census.hasMyDrafts());
        census.clear();
        QVERIFY(!census.hasSignable());
    }

    void agreesWithAWalkOverTheTable()
    {
        MadeTable records("LogbookRecords", LogbookRecordExtFields);
        RecordCensus census;
        census.setWorkerKey("W1");
        std::mt19937 random(7);
        const char* const workers[] = {"W1", "W2", ""};
        QVector<MDRData*> all;
        for (int step = 0; step < 3000; ++step) {
            const bool isNew = all.size() < 3 || random() % 3 == 0;
            MDRData* record = isNew ? records.add({})
                                    : all.at(static_cast<int>(random() % static_cast<unsigned>(all.size())));
            if (!isNew && random() % 3 == 0) {
                census.remove(record);
                all.removeOne(record);
                MDARecDel(record);
            } else {
                if (isNew)
                    all.append(record);
                records.set(record, "WorkerKey", QLatin1String(workers[random() % 3]));
                records.set(record, "status", static_cast<int>(random() % 3));
                census.put(record);
            }
            bool drafts = false;
            bool mine = false;
            bool signable = false;
            for (const MDRData* one : all) {
                drafts |= RecordCensus::isDraft(one);
                mine |= RecordCensus::isDraft(one) && RecordCensus::isAuthor(one, "W1");
                signable |= RecordCensus::isSignable(one, "W1");
            }
            QCOMPARE(census.hasDrafts(), drafts);
            QCOMPARE(census.hasMyDrafts(), mine);
            QCOMPARE(census.hasSignable(), signable);
            if (all.size() > 12) {
                census.remove(all.first());
                MDARecDel(all.takeFirst());
            }
        }
    }
};

QTEST_GUILESS_MAIN(RecordCensus_test)
#include "RecordCensus_test.moc"
