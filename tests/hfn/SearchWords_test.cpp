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

    void quotesAndMinusesHaveTheirMeaning_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("parts"); ///< words | excluded | phrases | excluded phrases
        QTest::newRow("words") << text("отключена линия") << text("отключ* лин*|||");
        QTest::newRow("phrase") << text("\"отключена линия\" вл") << text("отключ* лин* вл||отключ*+лин*|");
        QTest::newRow("one word in quotes") << text("\"линия\"") << text("лин*|||");
        QTest::newRow("exclusion") << text("линия -вл -110") << text("лин*|вл 110||");
        QTest::newRow("excluded phrase") << text("-\"вл 110\" линия") << text("лин*|||вл+110");
        QTest::newRow("excluded name") << text("-ВЛ-110 линия") << text("лин*|||вл+110");
        QTest::newRow("minus in a word") << text("вл-110") << text("вл 110|||");
        QTest::newRow("lonely minus") << text("вл - 110 -") << text("вл 110|||");
        QTest::newRow("open quote") << text("\"отключена линия") << text("отключ* лин*|||");
        QTest::newRow("excluded open quote") << text("вл -\"110 35") << text("вл 35|110||");
        QTest::newRow("empty quotes") << text("\"\" вл -\"\" \" \"") << text("вл|||");
        QTest::newRow("quotes in a word") << text("пс\"вл 110\"кв") << text("пс вл 110 кв||вл+110|");
        QTest::newRow("minus behind quotes") << text("\"вл 110\"-кв") << text("вл 110 кв||вл+110|");
        QTest::newRow("repeated") << text("\"вл вл\" вл") << text("вл||вл+вл|");
        QTest::newRow("starred") << text("\"вл* 11*\"") << text("вл* 11*||вл*+11*|");
        QTest::newRow("only signs") << text("- -- \" & ( ) * \\") << text("|||");
    }
    void quotesAndMinusesHaveTheirMeaning()
    {
        QFETCH(QString, query);
        const SearchWords::Query parsed = SearchWords::query(query);
        const auto list = [](const QVector<SearchWords::Term>& terms, char separator) {
            QStringList all;
            for (const SearchWords::Term& term : terms)
                all.append(term.stem + (term.isBeginning ? QStringLiteral("*") : QString()));
            return all.join(QLatin1Char(separator));
        };
        const auto phrases = [&list](const QVector<SearchWords::Phrase>& some) {
            QStringList all;
            for (const SearchWords::Phrase& phrase : some)
                all.append(list(phrase, '+'));
            return all.join(QLatin1Char(' '));
        };
        const QStringList parts{list(parsed.terms, ' '), list(parsed.excluded, ' '), phrases(parsed.phrases),
                                phrases(parsed.excludedPhrases)};
        QTEST(parts.join(QLatin1Char('|')), "parts");
    }

    void everyTextIsAQuery()
    {
        const QString signs = text("а1 \"\"--*\\");
        for (int number = 0; number < 10000; ++number) {
            QString query;
            for (int rest = number; rest > 0; rest /= signs.size())
                query += signs.at(rest % signs.size());
            const SearchWords::Query parsed = SearchWords::query(query);
            for (const SearchWords::Phrase& phrase : parsed.phrases + parsed.excludedPhrases)
                QVERIFY(phrase.size() > 1);
        }
    }

    void phrasesStandSideBySide()
    {
        const auto fits = [](const char* words, const char* query) {
            return SearchWords::fitsPhrases(SearchWords::stems(text(words)), SearchWords::query(text(query)));
        };
        QVERIFY(fits("На ПС отключили линию 110", "\"отключена линия\""));
        QVERIFY(!fits("Линия отключена", "\"отключена линия\""));
        QVERIFY(!fits("Отключена аварийно линия", "\"отключена линия\""));
        QVERIFY(fits("Отключена аварийно линия", "-\"отключена линия\""));
        QVERIFY(!fits("Отключена линия", "-\"отключена линия\""));
        QVERIFY(fits("вл вл 110", "\"вл 110\""));
        QVERIFY(!fits("вл", "\"вл вл\""));
        QVERIFY(fits("", "вл"));
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
