#include "LogText.h"

#include "LogWatch.h"

#include <QTest>

class LogText_test : public QObject
{
    Q_OBJECT

private slots:
    void fillsEachPlaceholderOnce()
    {
        QCOMPARE(LogText::fill(QStringLiteral("a %1, %2, %1"), {QStringLiteral("x"), QStringLiteral("y")}),
                 QStringLiteral("a x, y, x"));
    }

    void neverScansWhatAValueHolds()
    {
        QCOMPARE(LogText::fill(QStringLiteral("%1|%2"), {QStringLiteral("%2"), QStringLiteral("<b>50%</b>")}),
                 QStringLiteral("%2|<b>50%</b>"));
    }

    void fillsMoreThanNine()
    {
        QStringList values;
        for (int i = 1; i <= 12; ++i)
            values.append(QString::number(i * 100));
        QCOMPARE(LogText::fill(QStringLiteral("%12-%1-%10"), values), QStringLiteral("1200-100-1000"));
    }

    void leavesWhatHasNoValue()
    {
        QCOMPARE(LogText::fill(QStringLiteral("100% %0 %3 %"), {QStringLiteral("x")}),
                 QStringLiteral("100% %0 %3 %"));
        QCOMPARE(LogText::fill(QString(), {}), QString());
    }

    void writesSignatureAndTextWithABlank()
    {
        LogWatch log;
        LogText::warn(QStringLiteral("void A::b()"), QStringLiteral("failed \"x\""));
        QCOMPARE(log.take(), QStringList{QStringLiteral("void A::b() failed \"x\"")});
    }
};

QTEST_GUILESS_MAIN(LogText_test)
#include "LogText_test.moc"
