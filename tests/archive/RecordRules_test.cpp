#include "RecordRules.h"

#include <QTest>

class RecordRules_test : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatARecordIsMissing_data()
    {
        QTest::addColumn<QByteArray>("properties");
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("executed");
        QTest::addColumn<bool>("marked");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<int>("lacks");
        const QByteArray both = "time_exec;second_mark=:/markers/worker_red.png";
        const int time = RecordRules::ExecutionTime;
        const int marker = RecordRules::SecondMarker;
        const int draft = RecordRules::Approval;
        QTest::newRow("nothing wanted") << QByteArray("open_wshift") << 0 << false << false << true << 0;
        QTest::newRow("both") << both << 0 << false << false << false << (time | marker);
        QTest::newRow("executed") << both << 0 << true << false << false << marker;
        QTest::newRow("marked") << both << 0 << false << true << true << time;
        QTest::newRow("done") << both << 0 << true << true << true << 0;
        QTest::newRow("deleted") << both << 2 << false << false << true << 0;
        QTest::newRow("draft at work") << both << 1 << false << false << false << 0;
        QTest::newRow("draft left") << both << 1 << false << false << true << (draft | time | marker);
        QTest::newRow("plain draft left") << QByteArray() << 1 << false << false << true << draft;
        QTest::newRow("marker without a picture")
            << QByteArray("second_mark=") << 0 << false << false << true << 0;
    }
    void findsWhatARecordIsMissing()
    {
        QFETCH(QByteArray, properties);
        QFETCH(int, status);
        QFETCH(bool, executed);
        QFETCH(bool, marked);
        QFETCH(bool, closed);
        RecordRules::State state;
        state.html = "<meta name=\"template\" content=\"" + properties.toStdString() + "\">text";
        state.status = status;
        state.hasExecutionTime = executed;
        state.hasSecondMark = marked;
        state.isShiftClosed = closed;
        QTEST(RecordRules::lacksOf(state), "lacks");
    }
};

QTEST_APPLESS_MAIN(RecordRules_test)
#include "RecordRules_test.moc"
