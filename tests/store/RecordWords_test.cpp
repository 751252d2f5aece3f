#include "RecordWords.h"

#include <QTest>

class RecordWords_test : public QObject
{
    Q_OBJECT

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

private slots:
    void aReaderSeesTheseWords_data()
    {
        QTest::addColumn<QByteArray>("html");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("equipment");
        QTest::newRow("plain") << QByteArray("Осмотр ТП-5") << text("осмотр тп 5") << QString();
        QTest::newRow("null") << QByteArray() << QString() << QString();
        QTest::newRow("properties")
            << QByteArray(
                   R"(<meta name="template" content="time_exec;command=Снято"><p>Отдана <a href="parameter:name=list;list=включить">команда</a></p>)")
            << text("отда команд") << QString();
        QTest::newRow("inline markup joins") << QByteArray("<p>Под<b>стан</b>ция<br>Река</p><p>Заря</p>")
                                             << text("подстанц рек зар") << QString();
        QTest::newRow("entities part")
            << QByteArray("а&nbsp;б&amp;в&shy;г &#1080; д") << text("а б вг д") << QString();
        QTest::newRow("stray brackets") << QByteArray("ток < 5 > нормы") << text("ток 5 норм") << QString();
        QTest::newRow("comments and styles")
            << QByteArray("<style>p {}</style><!-- тайна --><p>явь</p>") << text("яв") << QString();
        QTest::newRow("equipment")
            << QByteArray(
                   R"(На <a href="parameter:name=substation;data=KEY">ПС Заречная</a> <a href="parameter:name=text">откл</a> <a href="parameter:name=equipmentPath;locname=X">Т-1, <span>ввод</span></a>)")
            << text("на пс заречн откл т 1 ввод") << text("пс заречн т 1 ввод");
    }
    void aReaderSeesTheseWords()
    {
        QFETCH(QByteArray, html);
        const RecordWords words(html);
        QTEST(QString::fromUtf8(words.words), "words");
        QTEST(QString::fromUtf8(words.equipment), "equipment");
    }

    void aBookOfWordsIsCut()
    {
        QByteArray html;
        for (int i = 0; i < 20000; ++i)
            html += QByteArray::number(i) + ' ';
        const RecordWords words(html);
        QCOMPARE(words.words.split(' ').size(), 5000);
        QVERIFY(words.words.endsWith(" 4999"));
    }
};

QTEST_APPLESS_MAIN(RecordWords_test)
#include "RecordWords_test.moc"
