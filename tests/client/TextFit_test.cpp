#include "TextFit.h"

#include <QTest>
#include <QTextCodec>

class TextFitTest : public QObject
{
    Q_OBJECT

private slots:
    void charactersOfTheCodePageAreKept();
    void replacesByTheClosestCharacter_data();
    void replacesByTheClosestCharacter();
    void dropsCharactersWithoutAReplacement();
    void theResultFitsTheCodePage();
    void lettersAndMarksBecomeOneLetter();
    void changesHaveTheirPositions();
    void theNoticeListsReplacedAndDroppedCharacters();
    void theNoticeNamesInvisibleCharactersByNumber();
    void theNoticeStaysShort();
    void unicodeCodePagesHaveAllCharacters();

private:
    const QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
    TextFit fit = TextFit(codec);
    QString fitted(const QString& text) const { return TextFit::applied(text, fit.changes(text)); }
};

void TextFitTest::charactersOfTheCodePageAreKept()
{
    const QString text = QStringLiteral("Ёлка – «№ 12» — “a” ‘b’ … • ± 5 °C µ Ґїє\tстрока\nстрока");
    QVERIFY(fit.changes(text).isEmpty());
    QVERIFY(fit.changes(QString()).isEmpty());
}

void TextFitTest::replacesByTheClosestCharacter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("closest");
    QTest::newRow("hyphen") << QStringLiteral("а\u2010б") << QStringLiteral("а-б");
    QTest::newRow("non-breaking hyphen") << QStringLiteral("ВЛ\u2011110") << QStringLiteral("ВЛ-110");
    QTest::newRow("minus") << QStringLiteral("\u22125") << QStringLiteral("-5");
    QTest::newRow("horizontal bar") << QStringLiteral("\u2015") << QStringLiteral("—");
    QTest::newRow("prime") << QStringLiteral("5\u2032 6\u2033") << QStringLiteral("5' 6\"");
    QTest::newRow("arrow") << QStringLiteral("вкл \u2192 откл") << QStringLiteral("вкл -> откл");
    QTest::newRow("arrows") << QStringLiteral("\u2190\u2194\u21D2") << QStringLiteral("<-<->=>");
    QTest::newRow("superscript") << QStringLiteral("м\u00B2 10\u207B\u00B3") << QStringLiteral("м2 10-3");
    QTest::newRow("fraction") << QStringLiteral("\u00BD") << QStringLiteral("1/2");
    QTest::newRow("Latin with accent") << QStringLiteral("Café Škoda") << QStringLiteral("Cafe Skoda");
    QTest::newRow("Latin with stroke") << QStringLiteral("Łódź ø ß") << QStringLiteral("Lodz o ss");
    QTest::newRow("Cyrillic with accent") << QStringLiteral("за\u0301мок") << QStringLiteral("замок");
    QTest::newRow("narrow space") << QStringLiteral("10\u202F000") << QStringLiteral("10 000");
    QTest::newRow("full width") << QStringLiteral("\uFF21\uFF11") << QStringLiteral("A1");
    QTest::newRow("comparison") << QStringLiteral("a \u2264 b \u2260 c \u2265 d \u00D7 e \u2248 f")
                                << QStringLiteral("a <= b <> c >= d x e ~ f");
    QTest::newRow("ohm") << QStringLiteral("5 \u2126, 5 \u03A9") << QStringLiteral("5 Ом, 5 Ом");
    QTest::newRow("Greek mu") << QStringLiteral("\u03BCА") << QStringLiteral("µА");
    QTest::newRow("phi") << QStringLiteral("cos\u03C6") << QStringLiteral("cosфи");
    QTest::newRow("ligature") << QStringLiteral("\uFB01le") << QStringLiteral("file");
    QTest::newRow("list") << QStringLiteral("\u25CF первый") << QStringLiteral("• первый");
}

void TextFitTest::replacesByTheClosestCharacter()
{
    QFETCH(QString, text);
    QFETCH(QString, closest);
    QCOMPARE(fitted(text), closest);
}

void TextFitTest::dropsCharactersWithoutAReplacement()
{
    QCOMPARE(fitted(QStringLiteral("а😀б")), QStringLiteral("аб"));
    QCOMPARE(fitted(QStringLiteral("а\u200Bб")), QStringLiteral("аб"));
    QCOMPARE(fitted(QStringLiteral("\u4E2D")), QString());
    QCOMPARE(fitted(QStringLiteral("a \u226E b")),
             QStringLiteral("a  b")); // "not less" must not become "less"
    QCOMPARE(fitted(QString(QChar(0))), QString());
    QCOMPARE(fitted(QString(QChar(0x98))),
             QString()); // a control character that the code page does not define
    QCOMPARE(fitted(QString(QChar(0xD83D))), QString()); // half of a pair
}

void TextFitTest::theResultFitsTheCodePage()
{
    for (uint code = 1; code < 0x20000; ++code) {
        const QString text = QString::fromUcs4(&code, 1);
        const QString result = fitted(text);
        if (!fit.changes(result).isEmpty() || codec->toUnicode(codec->fromUnicode(result)) != result)
            QFAIL(qPrintable(QStringLiteral("U+%1 gives \"%2\"").arg(code, 0, 16).arg(result)));
    }
}

void TextFitTest::lettersAndMarksBecomeOneLetter()
{
    QCOMPARE(fitted(QStringLiteral("и\u0306од и е\u0308лка")), QStringLiteral("йод и ёлка"));
    QCOMPARE(fitted(QStringLiteral("e\u0301")), QStringLiteral("e"));
    QCOMPARE(fitted(QStringLiteral("\n\u0301")), QStringLiteral("\n"));
}

void TextFitTest::changesHaveTheirPositions()
{
    const QVector<TextFit::Change> changes = fit.changes(QStringLiteral("а→б😀и\u0306"));
    QCOMPARE(changes.size(), 3);
    QCOMPARE(changes[0].start, 1);
    QCOMPARE(changes[0].length, 1);
    QCOMPARE(changes[0].replacement, QStringLiteral("->"));
    QCOMPARE(changes[1].start, 3);
    QCOMPARE(changes[1].length, 2);
    QCOMPARE(changes[1].replacement, QString());
    QCOMPARE(changes[2].start, 5);
    QCOMPARE(changes[2].length, 2);
    QCOMPARE(changes[2].replacement, QStringLiteral("й"));
}

void TextFitTest::theNoticeListsReplacedAndDroppedCharacters()
{
    const QString text = QStringLiteral("а→б→в😀");
    QCOMPARE(TextFit::notice(text, fit.changes(text)),
             QStringLiteral("Журнал не может хранить некоторые знаки: «→» заменено на «->»; «😀» опущено."));
}

void TextFitTest::theNoticeNamesInvisibleCharactersByNumber()
{
    const QString text = QStringLiteral("а\u200Bб");
    QCOMPARE(TextFit::notice(text, fit.changes(text)),
             QStringLiteral("Журнал не может хранить некоторые знаки: U+200B опущено."));
}

void TextFitTest::theNoticeStaysShort()
{
    const QString text = QStringLiteral("àèìòùáéíóú");
    const QString notice = TextFit::notice(text, fit.changes(text));
    QCOMPARE(notice.count(QStringLiteral("заменено")), 5);
    QVERIFY(notice.endsWith(QStringLiteral("; и другие.")));
}

void TextFitTest::unicodeCodePagesHaveAllCharacters()
{
    const QString text = QStringLiteral("→😀\u4E2D");
    QVERIFY(TextFit(QTextCodec::codecForName("UTF-8")).changes(text).isEmpty());
    QVERIFY(TextFit().changes(text).isEmpty());
}

QTEST_APPLESS_MAIN(TextFitTest)
#include "TextFit_test.moc"
