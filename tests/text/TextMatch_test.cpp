#include "TextMatch.h"

#include <QTest>

class TextMatch_test : public QObject
{
    Q_OBJECT

private slots:
    void foldingUnifiesLettersAndKeepsPositions()
    {
        const QString text = QStringLiteral("ВЛ 110\u00A0кВ Полевая – Ёлка−2");
        QCOMPARE(TextMatch::folded(text), QStringLiteral("вл 110 кв полевая - елка-2"));
        QCOMPARE(TextMatch::folded(text).size(), text.size());
        QCOMPARE(TextMatch::folded(QStringLiteral("\u2010\u2011\u2012\u2013\u2014")),
                 QStringLiteral("-----"));
    }

    void everyTypedWordMustBeFound()
    {
        const QString name = TextMatch::folded(QStringLiteral("Приём смены"));
        QVERIFY(TextMatch::matches(name, TextMatch::parts(QStringLiteral("  СМЕН  ием "))));
        QVERIFY(!TextMatch::matches(name, TextMatch::parts(QStringLiteral("смен сдача"))));
        QVERIFY(TextMatch::matches(name, TextMatch::parts(QStringLiteral("  "))));
    }

    void aWordBeginsAfterANonLetter()
    {
        QVERIFY(TextMatch::beginsWord(QStringLiteral("авиалиния, линия"), QStringLiteral("лин")));
        QVERIFY(TextMatch::beginsWord(QStringLiteral("линия"), QStringLiteral("лин")));
        QVERIFY(TextMatch::beginsWord(QStringLiteral("(линия)"), QStringLiteral("лин")));
        QVERIFY(!TextMatch::beginsWord(QStringLiteral("авиалиния"), QStringLiteral("лин")));
    }
};

QTEST_APPLESS_MAIN(TextMatch_test)
#include "TextMatch_test.moc"
