#include "SearchWords.h"

#include "RussianStem.h"

#include <QTest>

class SearchWords_test : public QObject
{
    Q_OBJECT

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }
    static QStringList list(const char* words) { return text(words).split(QLatin1Char(' ')); }
    static QStringList parsed(const QString& query)
    {
        QStringList all;
        for (const SearchWords::Term& term : SearchWords::terms(query))
            all.append(term.stem + (term.isBeginning ? QStringLiteral("*") : QString()));
        return all;
    }
    static QStringList marked(const QString& text, const QString& query)
    {
        QStringList all;
        for (const SearchWords::Place& place : SearchWords::places(text, SearchWords::terms(query)))
            all.append(text.mid(place.begin, place.length));
        return all;
    }

private slots:
    void allFormsOfAWordMeet_data()
    {
        QTest::addColumn<QStringList>("forms");
        QTest::addColumn<QString>("stem");
        QTest::newRow("noun") << list("линия линии линию линией линиям линиях") << text("лин");
        QTest::newRow("adjective") << list("северная северной северную северные северных") << text("северн");
        QTest::newRow("participle") << list("отключен отключена отключено отключены") << text("отключ");
        QTest::newRow("reflexive") << list("отключилась отключился отключилось") << text("отключ");
        QTest::newRow("gerund") << list("включив включивши включившись") << text("включ");
        QTest::newRow("derived") << list("мощность мощности мощностью") << text("мощност");
        QTest::newRow("superlative") << list("важнейший важнейшая") << text("важн");
        QTest::newRow("double n") << list("подстанционный подстанционная") << text("подстанцион");
        QTest::newRow("no vowel") << list("вл") << text("вл");
        QTest::newRow("foreign") << list("ocb") << text("ocb");
        QTest::newRow("number") << list("110") << text("110");
        QTest::newRow("empty") << list("") << text("");
    }
    void allFormsOfAWordMeet()
    {
        QFETCH(QStringList, forms);
        QFETCH(QString, stem);
        for (const QString& form : forms)
            QCOMPARE(RussianStem::of(form), stem);
    }

    void wordsAreRunsOfLettersAndDigits()
    {
        QCOMPARE(SearchWords::stems(QStringLiteral("ВЛ-110 кВ «Полевая – Заречная», оп. №12/3")),
                 (list("вл 110 кв полев заречн оп 12 3")));
        QCOMPARE(SearchWords::stems(QStringLiteral("Ёмкость, её ЁЛКА")),
                 SearchWords::stems(text("емкость ее елка")));
        QCOMPARE(SearchWords::stems(QStringLiteral(" ,.!")), QStringList());
        QCOMPARE(SearchWords::stems(QString(200, QChar(0x444))).value(0).size(), 64);
    }

    void longWordsAreFoundByTheirBeginning()
    {
        QCOMPARE(parsed(QStringLiteral("отключена ВЛ 110 10кВ")), (list("отключ* вл 110 10кв")));
        QCOMPARE(parsed(QStringLiteral("отключать приняли")), (list("отключ* прин*")));
        QCOMPARE(parsed(QStringLiteral("ВЛ* 11* акт")), (list("вл* 11* акт")));
        QCOMPARE(parsed(QStringLiteral("осмотр осмотра ОСМОТР")), (list("осмотр*")));
        QCOMPARE(parsed(QStringLiteral("в* 1*")), list("в 1")); // all but everything would begin so
        QCOMPARE(parsed(QStringLiteral(" * ")), QStringList());
    }

    void hitsAreMarkedAsTheyStand()
    {
        const QString sentence =
            QStringLiteral("Отключение ВЛ 110 кВ. Отключена 1105 и вл-110; отключать не стали");
        QCOMPARE(marked(sentence, QStringLiteral("отключить")), (list("Отключение Отключена отключать")));
        QCOMPARE(marked(sentence, QStringLiteral("110 вл")), (list("ВЛ 110 вл 110")));
        QCOMPARE(marked(sentence, QStringLiteral("110*")), (list("110 1105 110")));
        QCOMPARE(marked(sentence, QString()), QStringList());
    }
};

QTEST_APPLESS_MAIN(SearchWords_test)
#include "SearchWords_test.moc"
