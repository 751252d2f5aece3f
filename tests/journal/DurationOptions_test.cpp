#include "DurationOptions.h"

#include <QTest>

class DurationOptions_test : public QObject
{
    Q_OBJECT

private slots:
    void readsTheThreeAttributes()
    {
        const DurationOptions read = DurationOptions::fromXml(QStringLiteral(
            "<OperLog><Options CheckLengthShift=\"1\" DelayTime=\"600\" IntervalMessage=\"60\"/></OperLog>"));
        QVERIFY(read.isOn);
        QCOMPARE(read.delay, 600);
        QCOMPARE(read.interval, 60);
    }

    void readsNothingElseWhileOff()
    {
        const DurationOptions read = DurationOptions::fromXml(
            QStringLiteral("<Options CheckLengthShift=\"0\" DelayTime=\"600\" IntervalMessage=\"60\"/>"));
        QVERIFY(!read.isOn);
        QCOMPARE(read.delay, 0);
        QCOMPARE(read.interval, 0);
    }

    void isOffWithoutTheElement_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::newRow("nothing") << QString();
        QTest::newRow("other case") << QStringLiteral("<options CheckLengthShift=\"1\"/>");
        QTest::newRow("no number") << QStringLiteral("<Options CheckLengthShift=\"yes\"/>");
        QTest::newRow("no xml") << QStringLiteral("CheckLengthShift=1");
    }
    void isOffWithoutTheElement()
    {
        QFETCH(QString, xml);
        QVERIFY(!DurationOptions::fromXml(xml).isOn);
    }

    void keepsTheOptionsBeforeAnError()
    {
        const DurationOptions read = DurationOptions::fromXml(QStringLiteral(
            "<a><Options CheckLengthShift=\"1\" DelayTime=\"5\" IntervalMessage=\"x\"/><broken </a>"));
        QVERIFY(read.isOn);
        QCOMPARE(read.delay, 5);
        QCOMPARE(read.interval, 0);
    }
};

QTEST_GUILESS_MAIN(DurationOptions_test)
#include "DurationOptions_test.moc"
