#include "DemoFile.h"
#include "GenGuid32.h"
#include "LogbookFields.h"

/// When the demo journal is written, renewed, continued or refused.
class DemoStore_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { fill(filled, now); }

    void isCleanAtAnyTimeOfTheDay_data()
    {
        QTest::addColumn<qint64>("moment");
        for (const char* time : {"20.11.2026 08:00", "20.11.2026 10:00", "20.11.2026 19:59",
                                 "20.11.2026 20:01", "21.11.2026 00:31", "01.01.2027 02:30"})
            QTest::newRow(time) << at(time);
    }

    void isCleanAtAnyTimeOfTheDay()
    {
        QFETCH(qint64, moment);
        const DemoFile other;
        fill(other, moment);
        QCOMPARE(other.findings(), QString());
        QCOMPARE(other.state(moment), DemoStore::State::Current);
        QCOMPARE(other.count(QStringLiteral(
                                 "LogbookWorkshifts WHERE KeyLink = %1 AND startTime <= %2 AND endTime > %2")
                                 .arg(QString::fromUtf8(storyShift))
                                 .arg(moment)),
                 1);
        QCOMPARE(
            other.count(
                QStringLiteral("LogbookRecords WHERE max(recordTime, eventTime, coalesce(secondMarkTime, 0), "
                               "coalesce(executionTime, 0)) > %1")
                    .arg(moment)),
            0);
        QCOMPARE(other.count(QStringLiteral(
                     "LogbookRecords AS R JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey WHERE "
                     "R.eventTime < W.startTime OR R.eventTime >= W.endTime")),
                 0);
    }

    void earlierJournalHasSixtyCategoriesAndAllTemplates()
    {
        const DemoFile other;
        fill(other, now);
        StoreError error;
        for (const int templates : {400, 450, 400, 0}) { // written again each time
            QVERIFY2(DemoStore::writeEarlierJournal(other.url(), now, templates, &error),
                     qPrintable(error.text + error.detail));
            QCOMPARE(other.count(QStringLiteral("OperLogCategories")), 60);
            QCOMPARE(other.count(QStringLiteral("OperLogTemplates")), std::max(templates, 11));
            QCOMPARE(
                other.count(QStringLiteral("OperLogCategories WHERE ParentKey NOT IN (SELECT KeyLink FROM "
                                           "OperLogCategories)")),
                0);
        }
        QCOMPARE(other.findings(), QString());
        QCOMPARE(other.state(now), DemoStore::State::Current);
        QCOMPARE(other.state(now + 86400), DemoStore::State::Ended); // the demo's own transactions
        QVERIFY(DemoStore::writeEarlierJournal(other.url(), now, 400, &error));
        QCOMPARE(
            other.count(QStringLiteral(
                "OperLogTemplates AS T WHERE T.name_ LIKE 'Авария №%' AND T.CategoryKey IN (SELECT KeyLink "
                "FROM OperLogCategories)")),
            other.count(QStringLiteral("OperLogTemplates AS T WHERE T.name_ LIKE 'Авария №%'")));
        QVERIFY(other.count(QStringLiteral("OperLogTemplates WHERE name_ LIKE 'Авария №%'")) > 1);
    }

    void earlierJournalIsWrittenIntoADemoOnly()
    {
        const DemoFile other;
        StoreError error;
        QVERIFY(StoreAdmin::init(other.url(), "Windows-1251", "Europe/Moscow", &error));
        QVERIFY(!DemoStore::writeEarlierJournal(other.url(), now, 400, &error));
        QCOMPARE(error.text, QStringLiteral("В хранилище нет демонстрационного журнала."));
        QCOMPARE(other.count(QStringLiteral("OperLogTemplates")), 0);
    }

    void refusesAStoreThatHoldsAnythingElse()
    {
        const DemoFile other;
        StoreError error;
        QVERIFY(StoreAdmin::init(other.url(), "Windows-1251", "Europe/Moscow", &error));
        QCOMPARE(other.state(now), DemoStore::State::Empty);
        QVERIFY(StoreAdmin::addUser(other.url(), QStringLiteral("petrov"), QStringLiteral("Петров"), &error));
        QCOMPARE(other.state(now), DemoStore::State::Foreign);
        QVERIFY(!DemoStore::fill(other.url(), now, &error));
        QCOMPARE(error.code, StoreError::Refused);
        QCOMPARE(error.text,
                 QStringLiteral("В хранилище уже есть данные: демонстрационный журнал записывается только в "
                                "пустое."));
        QVERIFY(!DemoStore::renew(other.url(), now, &error));
        QCOMPARE(error.text, QStringLiteral("В хранилище нет демонстрационного журнала."));
        QCOMPARE(other.count(QStringLiteral("Users")), 1);
        QCOMPARE(other.count(QStringLiteral("LogbookWorkshifts")), 0);
    }

    void fillsAnInitialisedStore()
    {
        const DemoFile other;
        StoreError error;
        QVERIFY(StoreAdmin::init(other.url(), "Windows-1251", "Europe/Moscow", &error));
        fill(other, now);
        QCOMPARE(other.state(now), DemoStore::State::Current);
        QVERIFY(!DemoStore::fill(other.url(), now, &error)); // not a second time
        QCOMPARE(error.code, StoreError::Refused);
    }

    void aRunningOneIsLeftAsItIs()
    {
        const DemoFile other;
        QVERIFY(QFile::copy(filled.path(), other.path()));
        StoreError error;
        const QString log = QStringLiteral("SELECT KeyLink FROM LogbookRecords ORDER BY KeyLink");
        const auto before = other.rows(log);
        QVERIFY(DemoStore::renew(other.url(), now + 3600, &error));
        QVERIFY(other.rows(log) == before);
    }

    void anEndedUntouchedDemoIsWrittenAgain()
    {
        const DemoFile other;
        QVERIFY(QFile::copy(filled.path(), other.path()));
        const qint64 later = now + 3 * 86400;
        QCOMPARE(other.state(later), DemoStore::State::Ended);
        StoreError error;
        QVERIFY2(DemoStore::renew(other.url(), later, &error), qPrintable(error.text));
        QCOMPARE(other.state(later), DemoStore::State::Current);
        const DemoFile fresh;
        fill(fresh, later);
        const QString sql =
            QStringLiteral("SELECT KeyLink, html, recordTime FROM LogbookRecords ORDER BY KeyLink");
        QVERIFY(other.rows(sql) == fresh.rows(sql));
        QCOMPARE(other.findings(), QString());
        QCOMPARE(other.state(later + 3 * 86400), DemoStore::State::Ended); // and so on forever
    }

    void aTouchedDemoKeepsItsRecordsAndGetsANewShift()
    {
        const DemoFile other;
        QVERIFY(QFile::copy(filled.path(), other.path()));
        StoreError error;
        QVERIFY2(DemoStore::writeLiveRecord(other.url(), now + 60, 0, &error), qPrintable(error.text));
        QCOMPARE(other.state(now + 60), DemoStore::State::Current);
        const qint64 later = now + 86400;
        QCOMPARE(other.state(later), DemoStore::State::Touched);
        const QString old = other.value(QString::fromUtf8(storyShift).mid(1).chopped(1)).toString();
        const int records = other.count(QStringLiteral("LogbookRecords"));
        QVERIFY2(DemoStore::renew(other.url(), later, &error), qPrintable(error.text));
        QCOMPARE(other.state(later), DemoStore::State::Current);
        QCOMPARE(other.findings(), QString());
        QCOMPARE(other.count(QStringLiteral("LogbookRecords")), records + 6); // three departments continue
        QCOMPARE(other.count(
                     QStringLiteral("LogbookWorkshifts WHERE KeyLink = '%1' AND CloseWorkerKey IS NOT NULL")
                         .arg(old)),
                 1);
        QCOMPARE(other.count(QStringLiteral(
                                 "LogbookWorkshifts WHERE KeyLink = %1 AND startTime <= %2 AND endTime > %2")
                                 .arg(QString::fromUtf8(storyShift))
                                 .arg(later)),
                 1);
        // The next day it is still touched, and the colleague can continue writing.
        QVERIFY2(DemoStore::writeLiveRecord(other.url(), later + 60, 1, &error), qPrintable(error.text));
        QCOMPARE(other.state(later + 86400), DemoStore::State::Touched);
        QVERIFY2(DemoStore::renew(other.url(), later + 86400, &error), qPrintable(error.text));
        QCOMPARE(other.findings(), QString());
    }

    void aLiveRecordComesFromTheColleagueIntoTheOpenShift()
    {
        const DemoFile other;
        QVERIFY(QFile::copy(filled.path(), other.path()));
        const int before = other.count(inStory("1"));
        StoreError error;
        for (int n = 0; n < 7; ++n)
            QVERIFY2(DemoStore::writeLiveRecord(other.url(), now + 15 * n, n, &error),
                     qPrintable(error.text));
        QCOMPARE(other.count(inStory("1")), before + 7);
        QCOMPARE(
            other.count(QStringLiteral(
                            "LogbookRecords AS R JOIN Workers AS W ON W.KeyLink = R.WorkerKey JOIN Users AS "
                            "U ON U.KeyLink = W.UserKey WHERE U.login = '%1' AND R.recordTime >= %2")
                            .arg(DemoStore::colleague())
                            .arg(now)),
            7);
        QCOMPARE(other.findings(), QString());
    }

    void noLiveRecordWithoutAnOpenShift()
    {
        const DemoFile other;
        QVERIFY(QFile::copy(filled.path(), other.path()));
        StoreError error;
        const auto store = Store::open(other.url(), Store::Options(), &error);
        StoreLogin user;
        QVERIFY(store->signIn(DemoStore::dispatcher(), &user, &error));
        const QByteArray shift = other.value(QString::fromUtf8(storyShift).mid(1).chopped(1)).toByteArray();
        const QByteArray worker =
            other
                .value(QStringLiteral("SELECT OpenWorkerKey FROM LogbookWorkshifts WHERE KeyLink = '%1'")
                           .arg(QString::fromLatin1(shift)))
                .toByteArray();
        CRowBatch batch(LogbookWorkshiftFields, fieldCount(LogbookWorkshiftFields));
        MDRData* row = batch.newRow(ROW_UPDATE, shift);
        batch.SetValF(row, "CloseWorkerKey", MDRValue::text(worker));
        batch.RecPost(row);
        QVERIFY2(store->apply({{"LogbookWorkshifts", batch.array}}, GenGuid32(), &error),
                 qPrintable(error.text));
        QVERIFY(!DemoStore::writeLiveRecord(other.url(), now, 0, &error));
        QCOMPARE(error.code, StoreError::Refused);
        QCOMPARE(error.text, QStringLiteral("Открытой смены в подразделении нет: писать некуда."));
    }

    void saysThatThereIsNoStore()
    {
        const DemoFile nothing;
        StoreError error;
        DemoStore::State state = DemoStore::State::Empty;
        QVERIFY(!DemoStore::state(nothing.url(), now, &state, &error));
        QCOMPARE(error.code, StoreError::Missing);
    }

private:
    const qint64 now = at("20.11.2026 03:10");
    DemoFile filled; ///< as it was written at that moment
};

QTEST_GUILESS_MAIN(DemoStore_test)
#include "DemoStore_test.moc"
