#include "CodePage.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextCodec>

namespace
{
QByteArray down(const CodePage& page, const QByteArray& utf8)
{
    QByteArray to;
    page.fromUtf8(utf8.constData(), utf8.size(), &to);
    return to;
}

QByteArray up(const CodePage& page, const QByteArray& bytes)
{
    QByteArray to;
    page.toUtf8(bytes.constData(), bytes.size(), &to);
    return to;
}
} // namespace

class CodePage_test : public QObject
{
    Q_OBJECT

private slots:
    void everyByteComesBack_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"Windows-1251", "Windows-1252", "KOI8-R", "ISO-8859-5", "KOI8-U"})
            QTest::newRow(name) << QByteArray(name);
    }
    void everyByteComesBack()
    {
        QFETCH(QByteArray, name);
        const auto page = CodePage::create(name);
        QVERIFY(page);
        QByteArray all;
        for (int byte = 0; byte < 256; ++byte)
            all.append(static_cast<char>(byte));
        QCOMPARE(down(*page, up(*page, all)), all);
    }

    void agreesWithTheCodecOnEveryCharacter()
    {
        const auto page = CodePage::create("Windows-1251");
        QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
        QTextCodec::ConverterState strict(QTextCodec::ConvertInvalidToNull);
        for (int unicode = 1; unicode < 0x10000; ++unicode) {
            const QChar character(static_cast<ushort>(unicode));
            if (character.isSurrogate() || unicode == 0x98)
                continue;
            // Only characters that the codec restores belong to the page; it also substitutes similar ones.
            const QByteArray byte = codec->fromUnicode(character);
            const bool known = codec->toUnicode(byte) == QString(character);
            QCOMPARE(down(*page, QString(character).toUtf8()), known ? byte : QByteArray("?"));
        }
        for (int byte = 0; byte < 256; ++byte) {
            const char one = static_cast<char>(byte);
            if (byte != 0x98) // without a character in the page: a control character of that number
                QCOMPARE(up(*page, QByteArray(1, one)), codec->toUnicode(&one, 1).toUtf8());
        }
        QCOMPARE(up(*page, QByteArray("\x98")), QString(QChar(0x98)).toUtf8());
    }

    void agreesWithTheCodecOnLongTexts()
    {
        const auto page = CodePage::create("Windows-1251");
        QTextCodec* codec = QTextCodec::codecForName("Windows-1251");
        QRandomGenerator random(20);
        for (int round = 0; round < 500; ++round) {
            QByteArray bytes;
            const int length = random.bounded(200);
            for (int i = 0; i < length; ++i) {
                const int byte = random.bounded(3) ? 1 + random.bounded(127) : 0xC0 + random.bounded(64);
                bytes.append(static_cast<char>(byte));
            }
            const QByteArray utf8 = codec->toUnicode(bytes).toUtf8();
            QCOMPARE(up(*page, bytes), utf8);
            QCOMPARE(down(*page, utf8), bytes);
        }
    }

    void charactersBeyondThePageBecomeQuestionMarks()
    {
        const auto page = CodePage::create("Windows-1251");
        QCOMPARE(down(*page, QString::fromUtf8("a→b😀c中").toUtf8()), QByteArray("a?b?c?"));
    }

    void strayBytesDoNoHarm()
    {
        const auto page = CodePage::create("Windows-1251");
        QCOMPARE(down(*page, QByteArray("\xD0")), QByteArray("?"));
        QCOMPARE(down(*page, QByteArray("a\x80\xE2\x84z")), QByteArray("a???z"));
        QCOMPARE(down(*page, QByteArray("\xF0\x9F\x98")), QByteArray("???"));
        QCOMPARE(down(*page, QByteArray("\xC0\xAF\xFF")), QByteArray("???"));
    }

    void appendsToWhatIsThere()
    {
        const auto page = CodePage::create("Windows-1251");
        QByteArray to("Ab");
        page->fromUtf8("\xD0\x96", 2, &to);
        page->fromUtf8("", 0, &to);
        QCOMPARE(to, QByteArray("Ab\xC6"));
        page->toUtf8("\xC6", 1, &to);
        QCOMPARE(to, QByteArray("Ab\xC6\xD0\x96"));
    }

    void utf8PassesAsItIs()
    {
        const auto page = CodePage::create("UTF-8");
        QVERIFY(page);
        const QByteArray text = QString::fromUtf8("Смена → 😀").toUtf8();
        QCOMPARE(down(*page, text), text);
        QCOMPARE(up(*page, text), text);
    }

    void otherCodecsAreRefused()
    {
        QVERIFY(!CodePage::create("UTF-16"));
        QVERIFY(!CodePage::create("Shift_JIS"));
        QVERIFY(!CodePage::create("no such codec"));
    }
};

QTEST_GUILESS_MAIN(CodePage_test)
#include "CodePage_test.moc"
