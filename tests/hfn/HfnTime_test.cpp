#include "HfnTime.h"

#include <ctime>
#include <limits>
#include <QTest>
#include <QTimeZone>

class HfnTime_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void countsWholeSecondsSince1970Utc();
    void noTimeIsZeroBothWays();
    void aTimeOutsideTheRangeOfDatesIsInvalid();
    void cutsMilliseconds();
    void tenDigitsSayATimeExactly();
    void everyHourOfAYearComesBack_data();
    void everyHourOfAYearComesBack();
    void distinguishesTheRepeatedHour();
};

static void useZone(const char* zone)
{
    qputenv("TZ", zone);
    tzset();
}

void HfnTime_test::init()
{
    useZone("Europe/Moscow");
}

void HfnTime_test::countsWholeSecondsSince1970Utc()
{
    const QDateTime utc(QDate(2026, 11, 20), QTime(10, 0), Qt::UTC);
    QCOMPARE(DateTime_To_HfnTime(utc), 1795168800.0);
    const QDateTime local = HfnTime_to_DateTime(1795168800.0, -1);
    QCOMPARE(local.timeSpec(), Qt::LocalTime);
    QCOMPARE(local.time(), QTime(13, 0)); // Moscow
    QCOMPARE(DateTime_To_HfnTime(local), 1795168800.0);
    QCOMPARE(DateTime_To_HfnTime(QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59), Qt::UTC)), -1.0);
    QCOMPARE(HfnTime_to_DateTime(-1.0, -1).toUTC(),
             QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59), Qt::UTC));
}

void HfnTime_test::noTimeIsZeroBothWays()
{
    QCOMPARE(DateTime_To_HfnTime(QDateTime()), 0.0);
    QVERIFY(!HfnTime_to_DateTime(0.0, -1).isValid());
    QVERIFY(!HfnTime_to_DateTime(-0.0, -1).isValid());
}

void HfnTime_test::aTimeOutsideTheRangeOfDatesIsInvalid()
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (double time : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300,
                        253402300800.0, -62135596801.0})
        QVERIFY(!HfnTime_to_DateTime(time, -1).isValid());
    QVERIFY(HfnTime_to_DateTime(5e10, -1).isValid()); // scripts use it as later than any real time
    QCOMPARE(HfnTime_to_DateTime(253402300799.0, -1).toUTC().date(), QDate(9999, 12, 31));
    QCOMPARE(HfnTime_to_DateTime(-62135596800.0, -1).toUTC().date(), QDate(1, 1, 1));
}

void HfnTime_test::cutsMilliseconds()
{
    const QDateTime utc(QDate(2026, 11, 20), QTime(10, 0, 0, 999), Qt::UTC);
    QCOMPARE(DateTime_To_HfnTime(utc), 1795168800.0);
    QCOMPARE(HfnTime_to_DateTime(1795168800.9, -1).toSecsSinceEpoch(), qint64(1795168800));
    QCOMPARE(HfnTime_to_DateTime(1795168800.9, -1).time().msec(), 0);
    QCOMPARE(DateTime_To_HfnTime(QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59, 500), Qt::UTC)), -1.0);
}

void HfnTime_test::tenDigitsSayATimeExactly()
{
    for (double time : {1.0, 1795168800.0, 1795168801.0, 4102444799.0, 9999999999.0})
        QCOMPARE(QString::number(time, 'g', 10).toDouble(), time);
}

void HfnTime_test::everyHourOfAYearComesBack_data()
{
    QTest::addColumn<QByteArray>("zone");
    for (const char* zone :
         {"Europe/Moscow", "Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "UTC"})
        QTest::newRow(zone) << QByteArray(zone);
}

void HfnTime_test::everyHourOfAYearComesBack()
{
    QFETCH(QByteArray, zone);
    useZone(zone.constData());
    const QTimeZone known(zone);
    QVERIFY(known.isValid());
    for (int halfHour = 0; halfHour < 366 * 48; ++halfHour) {
        const double time = 1767225600.0 + halfHour * 1800.0;
        const QDateTime shown = HfnTime_to_DateTime(time, -1);
        QCOMPARE(DateTime_To_HfnTime(shown), time);
        const QDateTime expected = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(time), known);
        if (shown.date() != expected.date() || shown.time() != expected.time())
            QFAIL(qPrintable(QStringLiteral("%1 is shown as %2").arg(expected.toString(), shown.toString())));
    }
}

void HfnTime_test::distinguishesTheRepeatedHour()
{
    useZone("Europe/Berlin");
    const double first = 1792886400.0 + 1800; // 2026-10-25 02:30, summer time
    const double second = first + 3600;       // 02:30 again
    const QDateTime a = HfnTime_to_DateTime(first, -1);
    const QDateTime b = HfnTime_to_DateTime(second, -1);
    QCOMPARE(a.time(), QTime(2, 30));
    QCOMPARE(b.time(), QTime(2, 30));
    QCOMPARE(DateTime_To_HfnTime(a), first);
    QCOMPARE(DateTime_To_HfnTime(b), second);
}

QTEST_APPLESS_MAIN(HfnTime_test)
#include "HfnTime_test.moc"
