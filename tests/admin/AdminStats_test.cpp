#include "AdminRun.h"
#include "Csv.h"
#include "TestStore.h"

#include <cmath>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

/// The figures of vrk-admin stats, on both engines.
class AdminStats_test : public QObject
{
    Q_OBJECT

private:
    struct Site : AdminRun {
        Site() { url = store.url(); }
        /// "count/total" of the figure with this group and name; empty if there is none.
        QString figure(const char* group, const QString& name = QString(), const QStringList& rest = {})
        {
            if (call("stats", rest + QStringList{QStringLiteral("--json")}) != Command::Success)
                qFatal("%s", qUtf8Printable(err));
            for (const QJsonValue& value : QJsonDocument::fromJson(out.toUtf8()).array()) {
                const QJsonObject object = value.toObject();
                if (object.value(QStringLiteral("group")).toString() == QLatin1String(group) &&
                    object.value(QStringLiteral("name")).toString() == name)
                    return QStringLiteral("%1/%2")
                        .arg(object.value(QStringLiteral("count")).toInt())
                        .arg(object.value(QStringLiteral("total")).toInt());
            }
            return {};
        }
        /// Moves a record, without the rules of the journal.
        void change(const char* key, const TestStore::Fields& fields,
                    const char* table = "LogbookRecords") const
        {
            if (!TestStore::write(store.openLoader().get(), table, ROW_UPDATE, key, fields))
                qFatal("cannot write");
        }
        TestStore store;
    };
    /// A time as one types it.
    static QString typed(double time)
    {
        return QDateTime::fromSecsSinceEpoch(qint64(time)).toString(QStringLiteral("d.M.yyyy h:mm"));
    }

private slots:
    // The standard journal has eight approved records: five in the open shift of ЦДС, two in its past shift, one in
    // Заречная.
    void recordsByDepartment()
    {
        Site site;
        QCOMPARE(site.figure("department", QStringLiteral("ЦДС")), QStringLiteral("7/8"));
        QCOMPARE(site.figure("department", QStringLiteral("Заречная диспетчерская группа")),
                 QStringLiteral("1/8"));
    }

    void recordsByTheirTemplates()
    {
        Site site;
        const QString order =
            site.store
                .value(QStringLiteral("SELECT nameLoc FROM LogbookTemplates WHERE KeyLink = 'TPL_ORDER'"))
                .toString();
        const QString folder =
            site.store
                .value(QStringLiteral(
                    "SELECT nameLoc FROM LogbookCatsTemplate WHERE KeyLink = 'CAT_COMMON_SUB'"))
                .toString();
        QCOMPARE(site.figure("template", order), QStringLiteral("2/8"));
        QCOMPARE(site.figure("category", folder), QStringLiteral("2/8"));
        QVERIFY(!site.figure("template", QStringLiteral("Без шаблона")).isEmpty());
    }

    void recordsByTheHourOfTheirEvent()
    {
        Site site;
        const QString night = QStringLiteral("03:00");
        const double event = 1700000000 - 1700000000 % 86400 + 45; // 03:00:45 in Moscow
        site.change("REC_ORDER", {{"eventTime", event}});
        site.change("REC_TRIP", {{"eventTime", event}});
        // The others happened during the last day, perhaps in this hour, too.
        QVERIFY(site.figure("hour", night).section(QLatin1Char('/'), 0, 0).toInt() >= 2);
    }

    void lateEntries()
    {
        Site site;
        QCOMPARE(site.figure("late"), QStringLiteral("0/8"));
        const double made =
            site.store
                .value(QStringLiteral("SELECT recordTime FROM LogbookRecords WHERE KeyLink = 'REC_TRIP'"))
                .toDouble();
        site.change("REC_TRIP", {{"eventTime", made - 1800}});
        QCOMPARE(site.figure("late"), QStringLiteral("0/8"));
        site.change("REC_TRIP", {{"eventTime", made - 1801}});
        QCOMPARE(site.figure("late"), QStringLiteral("1/8"));
    }

    void theTimeAfterWhichAnEntryIsLateIsChosen()
    {
        Site site;
        const QString late = QStringLiteral("--late");
        const double made =
            site.store
                .value(QStringLiteral("SELECT recordTime FROM LogbookRecords WHERE KeyLink = 'REC_TRIP'"))
                .toDouble();
        site.change("REC_TRIP", {{"eventTime", made - 901}});
        QCOMPARE(site.figure("late"), QStringLiteral("0/8"));
        QCOMPARE(site.figure("late", QString(), {late, QStringLiteral("15")}), QStringLiteral("1/8"));
        QCOMPARE(site.figure("late", QString(), {late, QStringLiteral("16")}), QStringLiteral("0/8"));
        QVERIFY(site.figure("late", QString(), {late, QStringLiteral("0")}) != QLatin1String("0/8"));
        // More seconds than an int counts.
        QCOMPARE(site.figure("late", QString(), {late, QStringLiteral("2147483647")}), QStringLiteral("0/8"));
        for (const char* wrong : {"-1", "полчаса", "1.5", ""}) {
            QCOMPARE(site.call("stats", {late, QString::fromUtf8(wrong)}), Command::Failed);
            QCOMPARE(site.err, QStringLiteral("Опоздание пишется целым числом минут.\n"));
        }
        QCOMPARE(site.call("stats", {late}), Command::WrongUsage);
    }

    void theChosenMinutesAreNamed_data()
    {
        QTest::addColumn<QString>("minutes");
        QTest::addColumn<QString>("words");
        QTest::newRow("not chosen") << QString() << QStringLiteral("30 минут");
        QTest::newRow("one") << QStringLiteral("1") << QStringLiteral("1 минуту");
        QTest::newRow("few") << QStringLiteral("24") << QStringLiteral("24 минуты");
        QTest::newRow("many") << QStringLiteral("5") << QStringLiteral("5 минут");
        QTest::newRow("eleven") << QStringLiteral("111") << QStringLiteral("111 минут");
    }
    void theChosenMinutesAreNamed()
    {
        QFETCH(QString, minutes);
        QFETCH(QString, words);
        Site site;
        QStringList rest;
        if (!minutes.isNull())
            rest << QStringLiteral("--late") << minutes;
        const QString title = QStringLiteral("Внесено позже события более чем на ") + words;
        QCOMPARE(site.call("stats", rest), Command::Success);
        QVERIFY2(site.out.contains(title + QLatin1Char(':')), qPrintable(site.out));
        QCOMPARE(site.call("stats",
                           rest + QStringList{QStringLiteral("--csv"), site.path(QStringLiteral("s.csv"))}),
                 Command::Success);
        QVERIFY(QString::fromUtf8(site.bytes(QStringLiteral("s.csv"))).contains(title));
    }

    void anOrderIsOverdueWhenItsShiftIsClosed()
    {
        Site site;
        QCOMPARE(site.figure("overdue"), QStringLiteral("0/2"));
        site.change("REC_ORDER", {{"ShiftKey", "SHIFT_CDS_PAST"}});
        QCOMPARE(site.figure("overdue"), QStringLiteral("1/2"));
        site.change("REC_ORDER", {{"executionTime", TestStore::now()}});
        QCOMPARE(site.figure("overdue"), QStringLiteral("0/2"));
    }

    void handoversAreSignedByThePeople()
    {
        Site site;
        QCOMPARE(site.figure("signedHandovers"), QStringLiteral("0/1")); // closed by the import
        QVERIFY(TestStore::write(site.store.open(QStringLiteral("ivanov")).get(), "LogbookWorkshifts",
                                 ROW_UPDATE, "SHIFT_CDS_OPEN", {{"CloseWorkerKey", "WORKER_IVANOV"}}));
        QCOMPARE(site.figure("signedHandovers"), QStringLiteral("1/2"));
    }

    void theChoiceLimitsRecordsAndShifts()
    {
        Site site;
        const QString department = QStringLiteral("--department");
        QCOMPARE(site.figure("late", QString(), {department, QStringLiteral("ЦДС")}), QStringLiteral("0/7"));
        QCOMPARE(site.figure("signedHandovers", QString(),
                             {department, QStringLiteral("Заречная диспетчерская группа")}),
                 QStringLiteral("0/0"));
        const double made =
            site.store
                .value(QStringLiteral("SELECT recordTime FROM LogbookRecords WHERE KeyLink = 'REC_PAST_1'"))
                .toDouble();
        const double minute = made - std::fmod(made, 60);
        site.change("REC_PAST_1", {{"recordTime", minute}});
        QCOMPARE(site.figure("late", QString(), {QStringLiteral("--to"), typed(minute)}),
                 QStringLiteral("0/0"));
        QCOMPARE(site.figure("late", QString(), {QStringLiteral("--to"), typed(minute + 60)}),
                 QStringLiteral("0/1"));
        QCOMPARE(site.figure("late", QString(), {QStringLiteral("--from"), typed(minute)}),
                 QStringLiteral("0/8"));
        QCOMPARE(site.figure("late", QString(), {QStringLiteral("--from"), typed(minute + 60)}),
                 QStringLiteral("0/7"));
    }

    void wrongChoicesAreNamed()
    {
        Site site;
        QCOMPARE(site.call("stats", {QStringLiteral("--department"), QStringLiteral("Нет такого")}),
                 Command::Failed);
        QVERIFY(site.err.contains(QStringLiteral("Нет такого")));
        QCOMPARE(site.call("stats", {QStringLiteral("--from"), QStringLiteral("вчера")}), Command::Failed);
        QCOMPARE(site.call("stats", {QStringLiteral("--from"), QStringLiteral("2.1.2026 0:00"),
                                     QStringLiteral("--to"), QStringLiteral("1.1.2026 0:00")}),
                 Command::Failed);
        QCOMPARE(site.call("stats", {QStringLiteral("--json"), QStringLiteral("--csv"), QStringLiteral("x")}),
                 Command::WrongUsage);
    }

    void theTableIsForSpreadsheets()
    {
        Site site;
        QCOMPARE(site.call("stats", {QStringLiteral("--csv"), site.path(QStringLiteral("stats.csv"))}),
                 Command::Success);
        QVector<Csv::Row> rows;
        QString error;
        QVERIFY2(Csv::read(site.bytes(QStringLiteral("stats.csv")), &rows, &error), qPrintable(error));
        QCOMPARE(rows.value(1).cells, (QStringList{QStringLiteral("Подразделения"), QStringLiteral("ЦДС"),
                                                   QStringLiteral("7"), QStringLiteral("8")}));
        QCOMPARE(site.call("stats", {}), Command::Success);
        QVERIFY2(site.out.contains(QStringLiteral("  ЦДС: 7\n")), qPrintable(site.out));
        QVERIFY(site.out.contains(QStringLiteral("Подписано закрытий смен: 0 из 1\n")));
    }
};

QTEST_GUILESS_MAIN(AdminStats_test)
#include "AdminStats_test.moc"
