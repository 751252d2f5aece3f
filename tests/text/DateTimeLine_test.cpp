#include "DateTimeLine.h"
#include "Typing.h"

#include <QSignalSpy>
#include <QTest>

namespace
{
const QDateTime now(QDate(2026, 11, 20), QTime(21, 8, 30));
} // namespace

class DateTimeLine_test : public QObject
{
    Q_OBJECT

private slots:
    void shortFormsAreUnderstood_data();
    void shortFormsAreUnderstood();
    void describesTheLayoutInTheUsersWords();
    void anEmptyLayoutMeansDateAndMinutes();
    void f5SetsThePresentTime();
    void arrowsStepThePartAtTheCursor();
    void keepsInvalidInput();
};

void DateTimeLine_test::shortFormsAreUnderstood_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("complete"); // empty: not recognised
    const auto row = [](const char* format, const char* typed, const char* complete) {
        QTest::addRow("%s: %s", format, typed)
            << QString::fromLatin1(format) << QString::fromLatin1(typed) << QString::fromLatin1(complete);
    };
    row("hh:mm", "21:08", "21:08");
    row("hh:mm", "2108", "21:08");
    row("hh:mm", "830", "08:30");
    row("hh:mm", "21 08", "21:08");
    row("hh:mm", "21.08", "21:08");
    row("hh:mm", "9", "09:00");
    row("hh:mm", "24:00", "");
    row("hh:mm", "21:60", "");
    row("hh:mm", "x", "");
    row("hh:mm", "", "");
    row("hh:mm", " ", "");
    row("hh:mm", ":", "");
    row("hh:mm:ss", "221743", "22:17:43");
    row("hh:mm:ss", "22:17", "22:17:00");
    row("hh:mm:ss.zzz", "22:17:43.120", "22:17:43.120");
    row("dd.MM.yyyy", "3.7", "03.07.2026");
    row("dd.MM.yyyy", "03.07.25", "03.07.2025");
    row("dd.MM.yyyy", "0307", "03.07.2026");
    row("dd.MM.yyyy", "03072025", "03.07.2025");
    row("dd.MM.yyyy", "7", "07.11.2026");
    row("dd.MM.yyyy", "31.02", "");
    row("dd.MM.yyyy", ".", "");
    row("dd.MM.yyyy hh:mm", "20.11.2026 21:08", "20.11.2026 21:08");
    row("dd.MM.yyyy hh:mm", "25.11 2200", "25.11.2026 22:00");
    row("dd.MM.yyyy hh:mm", "2511 2200", "25.11.2026 22:00");
    row("dd.MM.yyyy hh:mm", "2511 22 00", "25.11.2026 22:00");
    row("dd.MM.yyyy hh:mm", "25 11 22 00", "25.11.2026 22:00");
    row("dd.MM.yyyy hh:mm", "25/11/26 8:05", "25.11.2026 08:05");
    row("dd.MM.yyyy hh:mm", "21:08", "20.11.2026 21:08");
    row("dd.MM.yyyy hh:mm", "2108", "20.11.2026 21:08");
    row("dd.MM.yyyy hh:mm", "21 08", "20.11.2026 21:08");
    row("dd.MM.yyyy hh:mm", "25.11.2026", "");
    row("dd.MM.yyyy hh:mm", "1.2.3.4 10:00", "");
    row("dd.MM.yyyy hh:mm", "10:00 25.11 11", "");
    row("hh:mm dd.MM.yy", "22:00 25.11", "22:00 25.11.26");
    row("hh:mm dd.MM.yy", "22:00 25.11.26", "22:00 25.11.26");
    row("dd.MM.yyyy hh:mm:ss", "25.11 22:00:05", "25.11.2026 22:00:05");
    row("hh:mm", "99999999999999999999", "");
}

void DateTimeLine_test::shortFormsAreUnderstood()
{
    QFETCH(QString, format);
    QFETCH(QString, typed);
    QFETCH(QString, complete);
    const QDateTime time = DateTimeLine::parsed(typed, format, now);
    QCOMPARE(time.isValid() ? time.toString(format) : QString(), complete);
}

void DateTimeLine_test::describesTheLayoutInTheUsersWords()
{
    QCOMPARE(DateTimeLine::shownFormat(QStringLiteral("dd.MM.yyyy hh:mm:ss")),
             QStringLiteral("дд.ММ.гггг чч:мм:сс"));
    DateTimeLine line(QStringLiteral("HH:mm"));
    QCOMPARE(line.placeholderText(), QStringLiteral("чч:мм"));
}

void DateTimeLine_test::anEmptyLayoutMeansDateAndMinutes()
{
    DateTimeLine line{QString()};
    QCOMPARE(line.format(), QStringLiteral("dd.MM.yyyy hh:mm"));
}

void DateTimeLine_test::f5SetsThePresentTime()
{
    DateTimeLine line(QStringLiteral("hh:mm:ss"));
    line.setClock([] { return now; });
    QSignalSpy edits(&line, &QLineEdit::textEdited);
    QTest::keyClick(&line, Qt::Key_F5);
    QCOMPARE(line.text(), QStringLiteral("21:08:30"));
    QCOMPARE(edits.size(), 1);
}

void DateTimeLine_test::arrowsStepThePartAtTheCursor()
{
    DateTimeLine line(QStringLiteral("dd.MM.yyyy hh:mm"));
    line.setClock([] { return now; });
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("20.11.2026 21:08"));
    QTest::keyClick(&line, Qt::Key_Down);
    QCOMPARE(line.text(), QStringLiteral("20.11.2026 21:07"));
    line.setCursorPosition(0);
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("21.11.2026 21:07"));
    line.setCursorPosition(4);
    QTest::keyClick(&line, Qt::Key_Up);
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("21.01.2027 21:07"));
    line.setCursorPosition(12);
    QTest::keyClick(&line, Qt::Key_Down);
    QCOMPARE(line.text(), QStringLiteral("21.01.2027 20:07"));
    line.setText(QStringLiteral("завтра"));
    QTest::keyClick(&line, Qt::Key_Up);
    QCOMPARE(line.text(), QStringLiteral("завтра"));
}

void DateTimeLine_test::keepsInvalidInput()
{
    DateTimeLine line(QStringLiteral("hh:mm"));
    typeText(&line, QStringLiteral("25:00"));
    line.complete();
    QCOMPARE(line.text(), QStringLiteral("25:00"));
    QVERIFY(!line.time().isValid());
    line.clear();
    typeText(&line, QStringLiteral("705"));
    line.complete();
    QCOMPARE(line.text(), QStringLiteral("07:05"));
}

QTEST_MAIN(DateTimeLine_test)
#include "DateTimeLine_test.moc"
