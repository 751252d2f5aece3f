#include "ShownText.h"

#include "PlainLabels.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolTip>

/// Texts of other people in menus, tabs, tool tips and labels.
class ShownText_test : public QObject
{
    Q_OBJECT

private slots:
    void anEntryIsOneLineWithItsLetters()
    {
        QCOMPARE(ShownText::entry(QStringLiteral("Доложено")), QStringLiteral("Доложено"));
        QCOMPARE(ShownText::entry(QStringLiteral("Р&Р\tCtrl+Q\nдва")), QStringLiteral("Р&&Р Ctrl+Q два"));
        QCOMPARE(ShownText::entry(QString(QChar(0))), QStringLiteral(" "));
        const QString longest(5000000, QLatin1Char('w'));
        QCOMPARE(ShownText::entry(longest).size(), 120);
        QVERIFY(ShownText::entry(longest).endsWith(QChar(0x2026)));
    }

    void noTextTurnsTheDirectionOfOthers()
    {
        const QString turned = QStringLiteral("отчёт\u202Efdp.exe\u2066!\u2069");
        QCOMPARE(ShownText::entry(turned), QStringLiteral("отчётfdp.exe!"));
        QCOMPARE(ShownText::tip(turned), QStringLiteral("отчётfdp.exe!"));
        QCOMPARE(ShownText::notification(turned), QStringLiteral("отчётfdp.exe!"));
    }

    void aTipKeepsItsLinesAndBreaksLongOnes()
    {
        QCOMPARE(ShownText::tip(QStringLiteral("Доложено: 12:00\nИванов И. И.")),
                 QStringLiteral("Доложено: 12:00\nИванов И. И."));
        const QString tip = ShownText::tip(QString(5000000, QLatin1Char('w')));
        QCOMPARE(tip.size() - tip.count(QLatin1Char('\n')), 1000);
        for (const QString& line : tip.split(QLatin1Char('\n')))
            QVERIFY(line.size() <= 120);
        const QString words = ShownText::tip(QStringLiteral("слово ").repeated(40).trimmed());
        QCOMPARE(words.split(QLatin1Char('\n')).first(), QStringLiteral("слово ").repeated(20).trimmed());
        QCOMPARE(QString(words).replace(QLatin1Char('\n'), QLatin1Char(' ')),
                 QStringLiteral("слово ").repeated(40).trimmed());
    }

    void aNotificationHoldsNoMarkup()
    {
        QCOMPARE(ShownText::notification(QStringLiteral("a <img src='x'> & b")),
                 QStringLiteral("a ‹img src='x'› & b"));
    }

    void labelsDoNotGuess()
    {
        const QString text = QStringLiteral("<b>текст</b>");
        QLabel before(text);
        before.adjustSize();
        const int asMarkup = before.width();
        const PlainLabels plain;
        QLabel label(text);
        label.adjustSize();
        QCOMPARE(label.textFormat(), Qt::PlainText);
        QVERIFY(label.width() > asMarkup);
        QLabel markup(text);
        markup.setTextFormat(Qt::RichText);
        markup.adjustSize();
        QCOMPARE(markup.textFormat(), Qt::RichText); // an explicit format is kept
        QToolTip::showText(QPoint(1, 1), text);
        int tips = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (const auto* tip = qobject_cast<const QLabel*>(window); tip && tip->inherits("QTipLabel")) {
                ++tips;
                QCOMPARE(tip->textFormat(), Qt::PlainText);
            }
        }
        QCOMPARE(tips, 1);
        QToolTip::hideText();
    }
};

QTEST_MAIN(ShownText_test)
#include "ShownText_test.moc"
