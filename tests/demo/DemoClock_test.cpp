#include "DemoClock.h"

#include <QTest>

namespace
{
qint64 at(const QString& text)
{
    return QDateTime::fromString(text, QStringLiteral("dd.MM.yyyy hh:mm")).toSecsSinceEpoch();
}

QString shown(qint64 time)
{
    return QDateTime::fromSecsSinceEpoch(time).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}
} // namespace

class DemoClock_test : public QObject
{
    Q_OBJECT

private slots:
    void knowsTheShiftsOfTheTimetable_data()
    {
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        const auto row = [](const char* now, const char* start, const char* end) {
            QTest::newRow(now) << QString::fromLatin1(now) << QString::fromLatin1(start)
                               << QString::fromLatin1(end);
        };
        row("20.11.2026 08:00", "20.11.2026 08:00", "20.11.2026 20:00");
        row("20.11.2026 19:59", "20.11.2026 08:00", "20.11.2026 20:00");
        row("20.11.2026 20:00", "20.11.2026 20:00", "21.11.2026 08:00");
        row("01.01.2027 00:00", "31.12.2026 20:00", "01.01.2027 08:00");
        row("20.11.2026 07:59", "19.11.2026 20:00", "20.11.2026 08:00");
    }
    void knowsTheShiftsOfTheTimetable()
    {
        QFETCH(QString, now);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QCOMPARE(shown(DemoClock::shiftStart(at(now))), start);
        QCOMPARE(shown(DemoClock::nextChange(at(now))), end);
    }

    void laysTheStory_data()
    {
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        const auto row = [](const char* name, const char* now, const char* start, const char* end) {
            QTest::newRow(name) << QString::fromLatin1(now) << QString::fromLatin1(start)
                                << QString::fromLatin1(end);
        };
        row("late in the night it is this night's", "20.11.2026 03:10", "19.11.2026 20:00",
            "20.11.2026 08:00");
        row("a shift about to end is prolonged", "20.11.2026 07:30", "19.11.2026 20:00", "20.11.2026 09:00");
        row("by day the night shift goes on", "20.11.2026 10:00", "19.11.2026 20:00", "20.11.2026 20:00");
        row("to the end of the day", "20.11.2026 19:59", "19.11.2026 20:00", "20.11.2026 21:00");
        row("in the evening it began in the afternoon", "20.11.2026 22:00", "20.11.2026 15:35",
            "21.11.2026 08:00");
        row("after midnight it spans midnight", "21.11.2026 00:31", "20.11.2026 18:05", "21.11.2026 08:00");
    }
    void laysTheStory()
    {
        QFETCH(QString, now);
        QFETCH(QString, start);
        QFETCH(QString, end);
        const DemoClock::Story story = DemoClock::story(at(now));
        QCOMPARE(shown(story.start), start);
        QCOMPARE(shown(story.end), end);
    }

    void atEveryMomentTheStoryIsOverAndTheShiftIsNot()
    {
        const qint64 day = at(QStringLiteral("20.11.2026 00:00"));
        for (qint64 now = day; now < day + 24 * 3600; now += 7 * 60) {
            const DemoClock::Story story = DemoClock::story(now);
            QVERIFY2(story.start + 6 * 3600 + 20 * 60 <= now, qPrintable(shown(now)));
            QVERIFY2(story.end >= now + 3600, qPrintable(shown(now)));
            QVERIFY2(story.end - story.start <= 26 * 3600, qPrintable(shown(now)));
            const bool evening = QDateTime::fromSecsSinceEpoch(now).time().hour() >= 20;
            const bool overMidnight = QDateTime::fromSecsSinceEpoch(story.start).date() <
                                      QDateTime::fromSecsSinceEpoch(story.start + 6 * 3600 + 20 * 60).date();
            if (!evening && QDateTime::fromSecsSinceEpoch(now).time() >= QTime(0, 6))
                QVERIFY2(overMidnight, qPrintable(shown(now)));
        }
    }
};

QTEST_GUILESS_MAIN(DemoClock_test)
#include "DemoClock_test.moc"
