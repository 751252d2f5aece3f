#include "Reports.h"

#include <QElapsedTimer>
#include <QTest>

/// How long reports of large shifts take; with VRK_LONG=1 also of 10,000 records.
class ReportFigures_test : public QObject
{
    Q_OBJECT

private slots:
    void aLargeShiftIsWrittenInSeconds_data()
    {
        QTest::addColumn<int>("records");
        QTest::newRow("1000") << 1000;
        if (qEnvironmentVariableIntValue("VRK_LONG"))
            QTest::newRow("10000") << 10000;
    }
    void aLargeShiftIsWrittenInSeconds()
    {
        QFETCH(int, records);
        const TestStore store;
        const QString text =
            QStringLiteral("На ПС 110 кВ Заречная отключён В-110 Полевая, нагрузка перенесена на "
                           "соседний ввод, персонал предупреждён. Бланк переключений № %1.");
        std::vector<TestStore::Row> rows;
        for (int i = 0; i < records; ++i)
            rows.push_back({"LogbookRecords",
                            ROW_INSERT,
                            "MANY_" + QByteArray::number(i),
                            {{"ShiftKey", "SHIFT_CDS_OPEN"},
                             {"WorkerKey", "WORKER_IVANOV"},
                             {"status", 0},
                             {"recordTime", TestStore::now() + i},
                             {"eventTime", TestStore::now() + i},
                             {"html", text.arg(i)}}});
        const auto loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), rows));
        Reports reports(store);
        for (const char* suffix : {"pdf", "html", "csv"}) {
            const QString file = QStringLiteral("a.") + QLatin1String(suffix);
            QElapsedTimer clock;
            clock.start();
            QCOMPARE(reports.call("shift", file, {QStringLiteral("--open")}), ReportCommand::Success);
            const qint64 taken = clock.elapsed();
            qInfo("%d records as %s: %lld ms, %lld bytes", records, suffix, taken,
                  qint64(reports.bytes(file).size()));
            QVERIFY(taken < 60000);
        }
        QCOMPARE(reports.text(QStringLiteral("a.html")).count(QStringLiteral("<tr><td")), records + 5);
    }
};

QTEST_MAIN(ReportFigures_test)
#include "ReportFigures_test.moc"
