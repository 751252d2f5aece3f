#include "CRowBatch.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PrivateCluster.h"
#include "RecordWords.h"
#include "RussianStem.h"
#include "SearchWords.h"
#include "SourceFile.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QFile>
#include <QTest>

/// The search over all shifts: which query finds which record, equally on both engines, and that the index
/// follows every write.
class Store_search_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<Store> m_store;
    StoreError m_error;

    static RecordQuery query(const char* words)
    {
        RecordQuery query;
        query.words = QString::fromUtf8(words);
        return query;
    }
    /// The texts as an array of the server.
    static QString arrayOf(const QStringList& texts)
    {
        QStringList literals;
        for (QString text : texts)
            literals.append(QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("''")) +
                            QLatin1Char('\''));
        return QStringLiteral("ARRAY[%1]").arg(literals.join(QLatin1Char(',')));
    }
    static QStringList keys(const char* keys) { return QString::fromLatin1(keys).split(QLatin1Char(' ')); }
    QStringList found(const RecordQuery& query)
    {
        QStringList keys;
        CMDArray answer;
        answer = m_store->search(query, &m_error);
        if (!answer.array)
            return {m_error.text + m_error.detail};
        for (int i = 0; i < answer.RecCount(); ++i)
            keys.append(TestStore::field(answer.array, "KeyLink", i).toString());
        return keys;
    }
    QStringList found(const char* words) { return found(query(words)); }

    void record(const char* key, const char* html, double time = 1000, const TestStore::Fields& more = {})
    {
        TestStore::Fields fields{{"ShiftKey", "SHIFT_CDS_PAST"},
                                 {"WorkerKey", "WORKER_IVANOV"},
                                 {"recordTime", time},
                                 {"status", 0},
                                 {"html", html}};
        for (const TestStore::Field& field : more)
            fields.push_back(field);
        QVERIFY2(TestStore::write(m_files->openLoader().get(), "LogbookRecords", ROW_INSERT, key, fields,
                                  &m_error),
                 qPrintable(m_error.text + m_error.detail));
    }
    void change(MDRFlag flag, const char* key, const TestStore::Fields& fields)
    {
        QVERIFY2(TestStore::write(m_files->openLoader().get(), "LogbookRecords", flag, key, fields, &m_error),
                 qPrintable(m_error.text + m_error.detail));
    }
    QStringList faults()
    {
        QVector<StoreAdmin::Finding> findings;
        if (!StoreAdmin::check(m_files->url(), &findings, &m_error))
            return {m_error.text + m_error.detail};
        QStringList texts;
        for (const StoreAdmin::Finding& finding : findings)
            if (finding.grade == StoreAdmin::Finding::Fault)
                texts.append(finding.text);
        return texts;
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_store = m_files->open(QStringLiteral("ivanov"));
        m_error.clear();
    }

    void wordsAreFoundInAllTheirForms()
    {
        record("A", "<p>На ПС <b>Север</b>ная отключена линия 7110 кВ</p>", 1000);
        record("B", "Отключение линий 35 кВ", 2000);
        record("C", "Включена линия 71105", 3000);
        QCOMPARE(found("отключать линию"), keys("B A"));
        QCOMPARE(found("СЕВЕРНОЙ"), keys("A"));
        QCOMPARE(found("север"), keys("A"));
        QCOMPARE(found("7110"), keys("A"));
        QCOMPARE(found("7110*"), keys("C A"));
        QCOMPARE(found("линия отсутствующая"), QStringList());
        QCOMPARE(found("b"), QStringList()); // markup is no word
    }

    void yoIsYe()
    {
        record("A", "Ёмкость её");
        QCOMPARE(found("емкость ее"), keys("A"));
        QCOMPARE(found("ёмкости"), keys("A"));
    }

    void everyWordOfTheQueryIsHarmless()
    {
        record("A", "O'Brien said \"AND NOT\" \\ & | ! :* (x) words : near");
        QCOMPARE(found("o'brien \"and not\" \\ & | ! :* (x)"), keys("A"));
        QCOMPARE(found("words : near"), keys("A"));
        QCOMPARE(found("' OR '' = '"), QStringList());
    }

    void exclusionsAndPhrasesNarrowTheSearch()
    {
        record("A", "<p>Отключена <b>ли</b>ния&nbsp;ВЛ-110</p>", 1000);
        record("B", "ВЛ-110: линия отключена", 2000);
        record("C", "Отключена аварийно линия ВЛ-35", 3000);
        const auto ours = [this](const char* words) {
            RecordQuery one = query(words);
            one.from = 1000;
            one.to = 4000;
            return found(one);
        };
        QCOMPARE(ours("отключена линия"), keys("C B A"));
        QCOMPARE(ours("отключена линия -аварийная"), keys("B A"));
        QCOMPARE(ours("отключена -35"), keys("B A"));
        QCOMPARE(ours("\"отключили линию\""), keys("A"));
        QCOMPARE(ours("\"линия вл\" отключена"), keys("C A"));
        QCOMPARE(ours("отключена -\"отключена линия\""), keys("C B"));
        QCOMPARE(ours("отключена -вл-110"), keys("C"));
        QCOMPARE(ours("\"линия вл\" -35 -\"110 кВ\""), keys("A"));
        // Nothing is an error.
        QCOMPARE(ours("\"отключена линия"), keys("C B A"));
        QCOMPARE(ours("отключена - линия -"), keys("C B A"));
        QCOMPARE(ours("отключена -\"\" \"линия\""), keys("C B A"));
        QCOMPARE(ours("-аварийно"), keys("B A"));
        QCOMPARE(ours("-\"отключена линия\""), keys("C B"));
        RecordQuery only = query("\"отключена линия\"");
        only.limit = 0;
        QCOMPARE(found(only), QStringList());
    }

    void equipmentKnowsPhrasesAndExclusions()
    {
        record("A", R"(<a href="parameter:name=line">ВЛ Полевая – Заречная</a> Лесная)", 1000);
        record(
            "B",
            R"(<a href="parameter:name=line">ВЛ Заречная – Полевая</a> <a href="parameter:name=bay">Лесная</a>)",
            2000);
        RecordQuery one;
        one.to = 4000;
        one.equipment = QStringLiteral("полевая -лесная");
        QCOMPARE(found(one), keys("A"));
        one.equipment = QStringLiteral("\"заречная полевая\"");
        QCOMPARE(found(one), keys("B"));
    }

    void aPhraseIsFoundAmongThousandsOfItsWords()
    {
        auto loader = m_files->openLoader();
        CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
        const int count = 2500; // more than are read at once
        for (int i = 0; i < count; ++i) {
            MDRData* row = batch.newRow(ROW_INSERT, "R" + QByteArray::number(i));
            const QByteArray html = TestStore::bytes(i % 1000 == 0 ? QStringLiteral("двойная фраза")
                                                                   : QStringLiteral("фраза двойная"));
            batch.SetValF(row, "ShiftKey", MDRValue::text("SHIFT_CDS_PAST"));
            // Many are of one second, at which a page ends.
            batch.SetValF(row, "recordTime", MDRValue::real(i < 1500 ? 5000.0 : 6000.0 + i));
            batch.SetValF(row, "status", MDRValue::number(0));
            batch.SetValF(row, "html", MDRValue::text(html));
            batch.RecPost(row);
        }
        QVERIFY2(loader->apply({{"LogbookRecords", batch.array}}, "MANY", &m_error),
                 qPrintable(m_error.text));
        QStringList all = found("\"двойная фраза\"");
        QCOMPARE(all.value(0), QStringLiteral("R2000"));
        all.sort();
        QCOMPARE(all, keys("R0 R1000 R2000"));
        RecordQuery first = query("\"двойная фраза\"");
        first.limit = 1;
        QCOMPARE(found(first), keys("R2000"));
    }

    void stateAndAuthorNarrowTheSearch()
    {
        record("A", "обкатка", 1000);
        record("B", "обкатка", 2000, {{"WorkerKey", "WORKER_PETROV"}, {"status", 2}});
        record("C", "обкатка", 3000, {{"ShiftKey", "SHIFT_ZAR_OPEN"}, {"status", 1}});
        RecordQuery all = query("обкатка");
        QCOMPARE(found(all), keys("C B A"));
        RecordQuery one = all;
        one.departmentKey = "DEP_CDS";
        QCOMPARE(found(one), keys("B A"));
        one.workerKey = "WORKER_PETROV";
        QCOMPARE(found(one), keys("B"));
        one = all;
        one.status = 1;
        QCOMPARE(found(one), keys("C"));
        one = all;
        one.from = 1000;
        one.to = 3000;
        QCOMPARE(found(one), keys("B A"));
        one.from = 1001;
        QCOMPARE(found(one), keys("B"));
        one = all;
        one.limit = 2;
        QCOMPARE(found(one), keys("C B"));
    }

    void withoutWordsTheRestDecides()
    {
        RecordQuery one;
        one.departmentKey = "DEP_ZAR";
        QCOMPARE(found(one), keys("REC_ZAR"));
        QCOMPARE(found(RecordQuery()).size(),
                 m_files->value(QStringLiteral("SELECT count(*) FROM LogbookRecords")).toInt());
    }

    void equipmentIsFoundWhereItIsNamedAsSuch()
    {
        record(
            "A",
            R"(На <a href="parameter:name=substation;data=K">ПС Заречная</a> <a href="parameter:name=line">ВЛ Полевая</a>)",
            1000);
        record("B", "Звонок с ПС Заречная", 2000);
        RecordQuery one;
        one.equipment = QStringLiteral("заречной");
        one.from = 1000;
        one.to = 3000;
        QCOMPARE(found(one), keys("A"));
        one.equipment = QStringLiteral("полевая заречная");
        QCOMPARE(found(one), keys("A"));
        one.words = QStringLiteral("звонок");
        QCOMPARE(found(one), QStringList());
    }

    void theAnswerHoldsTheRecordAndItsShift()
    {
        CMDArray answer;
        answer = m_store->search(query("Сообщение подтвердил"), &m_error);
        answer = m_store->search(RecordQuery(), &m_error);
        QVERIFY(answer.array);
        QCOMPARE(MDAFldCount(answer.array), 18);
        const char* names[] = {"KeyLink", "ShiftKey", "WorkerKey", "VisaWorkerKey"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(QByteArray(MDRFldByNum(answer.array, i)->name), QByteArray(names[i]));
        QCOMPARE(QByteArray(MDRFldByNum(answer.array, 15)->name), QByteArray("DepartmentKey"));
        QCOMPARE(int(MDRFldByNum(answer.array, 16)->type), int(mdr_TDouble));
        for (int i = 0; i < answer.RecCount(); ++i)
            QVERIFY(TestStore::field(answer.array, "DepartmentKey", i).isValid());
    }

    void theIndexFollowsEveryWrite()
    {
        record("A", "первое слово");
        change(ROW_UPDATE, "A", {{"html", "второе"}});
        QCOMPARE(found("первое"), QStringList());
        QCOMPARE(found("второе"), keys("A"));
        RecordQuery draft = query("второе");
        draft.status = 0;
        QCOMPARE(found(draft), keys("A"));
        change(ROW_UPDATE, "A", {{"status", 2}});
        QCOMPARE(found(draft), QStringList());
        change(ROW_UPDATE, "A", {{"recordTime", 5000}});
        draft = query("второе");
        draft.from = 4000;
        draft.to = 6000;
        QCOMPARE(found(draft), keys("A"));
        QCOMPARE(faults(), QStringList());
        change(ROW_DELETE, "A", {});
        QCOMPARE(found("второе"), QStringList());
        QCOMPARE(faults(), QStringList());
    }

    void aPersonsWriteIsFoundToo()
    {
        QVERIFY(TestStore::write(m_store.get(), "LogbookRecords", ROW_INSERT, "MINE",
                                 {{"ShiftKey", "SHIFT_CDS_OPEN"},
                                  {"WorkerKey", "WORKER_IVANOV"},
                                  {"recordTime", TestStore::now()},
                                  {"status", 1},
                                  {"html", "неповторимое"}},
                                 &m_error));
        QCOMPARE(found("неповторимые"), keys("MINE"));
        QVERIFY(TestStore::write(m_store.get(), "LogbookRecords", ROW_DELETE, "MINE", {}, &m_error));
        QCOMPARE(found("неповторимые"), QStringList());
    }

    void aRefusedWriteLeavesNoTrace()
    {
        QVERIFY(!TestStore::write(m_store.get(), "LogbookRecords", ROW_INSERT, "THEIRS",
                                  {{"ShiftKey", "SHIFT_ZAR_OPEN"}, {"status", 1}, {"html", "незаконное"}},
                                  &m_error));
        QCOMPARE(found("незаконное"), QStringList());
        QCOMPARE(faults(), QStringList());
    }

    void recordsWithoutTextOrTimeAreNoTrouble()
    {
        record("A", "", 0, {{"html", nullptr}, {"recordTime", nullptr}, {"WorkerKey", nullptr}});
        RecordQuery old;
        old.to = 1;
        QCOMPARE(found(old), keys("A"));
        QString longest(3000, QChar(0x436));
        record("B", qPrintable(longest + QStringLiteral(" хвост")), 1);
        QCOMPARE(found("хвост"), keys("B"));
    }

    void manyRecordsOfOneSecondAreAllFound()
    {
        auto loader = m_files->openLoader();
        for (int i = 0; i < 50; ++i)
            QVERIFY(TestStore::write(
                loader.get(), "LogbookRecords", ROW_INSERT, "R" + QByteArray::number(i),
                {{"ShiftKey", "SHIFT_CDS_PAST"}, {"recordTime", 7777}, {"status", 0}, {"html", "залп"}},
                &m_error));
        QCOMPARE(found("залп").size(), 50);
        if (TestStore::isSqlite()) {
            // The numbers of this second are used up: later records are still found.
            QCOMPARE(m_files->exec(QStringLiteral(
                         "UPDATE RecordSearch SET number = (7777 << 16) + 65535 WHERE number = "
                         "(7777 << 16) + 49")),
                     QString());
            QCOMPARE(StoreAdmin::rebuildSearch(m_files->url(), &m_error), true);
            QCOMPARE(found("залп").size(), 50);
        }
        QCOMPARE(faults(), QStringList());
    }

    void reportsAndRepairsDamage()
    {
        record("A", "сверка указателя");
        QCOMPARE(faults(), QStringList());
        QCOMPARE(m_files->exec(QStringLiteral("DELETE FROM RecordSearch WHERE recordKey = 'A'")), QString());
        QCOMPARE(faults().size(), 1);
        QVERIFY(faults().constFirst().contains(QStringLiteral("1, например «A»")));
        QVERIFY(faults().constFirst().contains(QStringLiteral("--rebuild-search")));
        QCOMPARE(found("указатель"), QStringList());
        QVERIFY2(StoreAdmin::rebuildSearch(m_files->url(), &m_error),
                 qPrintable(m_error.text + m_error.detail));
        QCOMPARE(faults(), QStringList());
        QCOMPARE(found("указатель"), keys("A"));
        // And the index continues to follow.
        change(ROW_UPDATE, "A", {{"html", "после"}});
        QCOMPARE(found("после"), keys("A"));
        QCOMPARE(faults(), QStringList());
    }

    void reportsAForgedRow()
    {
        record("A", "сверка указателя");
        const QString forgery =
            TestStore::isSqlite()
                ? QStringLiteral("UPDATE RecordSearch SET words = 'ложь' WHERE recordKey = 'A'")
                : QStringLiteral("UPDATE RecordSearch SET words = 'ложь'::tsvector WHERE recordKey = 'A'");
        QCOMPARE(m_files->exec(forgery), QString());
        QCOMPARE(faults().size(), 1);
    }

    void reportsAnIndexWithoutWords()
    {
        if (!TestStore::isSqlite())
            QSKIP("the server keeps its index itself");
        record("A", "сверка указателя");
        QCOMPARE(m_files->exec(QStringLiteral("INSERT INTO RecordWords (RecordWords) VALUES ('delete-all')")),
                 QString());
        QCOMPARE(faults().size(), 1);
        QVERIFY(StoreAdmin::rebuildSearch(m_files->url(), &m_error));
        QCOMPARE(faults(), QStringList());
    }

    void bothEnginesTakeTheSameForWords()
    {
        if (TestStore::isSqlite())
            QSKIP("what SQLite is given is tested by itself; this compares it with the server");
        QStringList texts{
            QStringLiteral(
                "Ёлка ЁМКОСТЬ Їжак ґанок ÀÉ×÷ß ÿ Ӯ Ҁ 10кВ ВЛ-110 «Полевая – Заречная» №12/3 a_b µ"),
            QStringLiteral("<style>p {}</style><!-- тайна --><p>явь</p><head>x</head>y"),
            QStringLiteral("ток < 5 > нормы <p>Под<b>стан</b>ция<br>Река</p><sup>2</sup>"),
            QStringLiteral("а&nbsp;б&amp;в&shy;г &#1080; д\u00ad е & ж"),
            QStringLiteral("<a href=\"parameter:name=line;locname=%41\">ВЛ <i>10</i></a>x<a "
                           "href=\"parameter:name=BAY\">яч<a href=\"parameter:name=text\">т</a>"),
            QStringLiteral("<A HREF=\"parameter:name=substation\">ПС"),
            QString()};
        QFile demo(sourceFile("demo/templates.txt"));
        QVERIFY(demo.open(QIODevice::ReadOnly));
        texts += QString::fromUtf8(demo.readAll()).split(QLatin1Char('\n'));
        for (const auto& row : m_files->rows(QStringLiteral("SELECT html FROM LogbookRecords")))
            texts.append(row.value(0).toString());
        const QString select = QStringLiteral("SELECT array_to_string(vrk_words(t), ' '), "
                                              "array_to_string(vrk_equipment(t), ' ') FROM unnest(%1) WITH "
                                              "ORDINALITY AS texts (t, n) ORDER BY n");
        const QVector<QVariantList> theirs = m_files->rows(select.arg(arrayOf(texts)));
        QCOMPARE(theirs.size(), texts.size());
        for (int i = 0; i < texts.size(); ++i) {
            const auto sorted = [](const QByteArray& words) {
                QStringList list = QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
                list.sort();
                return list.join(QLatin1Char(' '));
            };
            const RecordWords ours(texts.at(i).toUtf8());
            QCOMPARE(sorted(theirs.at(i).value(0).toByteArray()), sorted(ours.words));
            QCOMPARE(sorted(theirs.at(i).value(1).toByteArray()), sorted(ours.equipment));
        }
    }

    void aDatabaseWithoutRussianFoldsAllTheSame()
    {
        if (TestStore::isSqlite())
            QSKIP("a matter of the server's locale");
        const QString upper = QStringLiteral("ЁЖҐЇÀÞZ");
        QCOMPARE(PrivateCluster::shared().exec(
                     QStringLiteral("CREATE DATABASE plain TEMPLATE template0 ENCODING 'UTF8' "
                                    "LC_COLLATE 'C' LC_CTYPE 'C'")),
                 QString());
        const QString url = PrivateCluster::shared().url(QStringLiteral("plain"));
        QVERIFY2(StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &m_error), qPrintable(m_error.text));
        StoreError error;
        PgConnection link(url, 30000);
        QVERIFY(link.connect(link.connectMs(), &error));
        const PgResult folded = link.run("SELECT vrk_folded($1), array_to_string(vrk_words($1), ' ')",
                                         PgValues().text(upper.toUtf8()), &error);
        QVERIFY2(bool(folded), qPrintable(error.text + error.detail));
        QCOMPARE(QString::fromUtf8(folded.bytes(0, 0)), QStringLiteral("ежґїàþz"));
        QCOMPARE(QString::fromUtf8(folded.bytes(0, 1)), SearchWords::stems(upper).join(QLatin1Char(' ')));
    }

    void bothEnginesTakeTheSameEndingsOff()
    {
        if (TestStore::isSqlite())
            QSKIP("compares our stems with the server's");
        // Every ending after every kind of beginning.
        const QStringList beginnings =
            QStringLiteral("а о вл отключа осмотре подстанцион линия мощн важн перева лежа северн ии ррр "
                           "изолирова откр чистян")
                .split(QLatin1Char(' '));
        const QStringList endings =
            QStringLiteral(
                "ивши ившись ывшись вшись в вши ее ими его ему ого ях ую юю ющ щая нный ем нное ся сь ла "
                "ете йте ны ешь нно ейте уйте ыло ена ует уют ить ишь ев ов ье иями еи ией иям ием ию ья "
                "ость остью ейш ейший ейшее нн ь и нь й н ующаяся")
                .split(QLatin1Char(' '));
        QStringList words;
        for (const QString& beginning : beginnings)
            for (const QString& ending : endings)
                words.append(beginning + ending);
        const QVector<QVariantList> theirs = m_files->rows(
            QStringLiteral("SELECT (ts_lexize('vrk_russian', t))[1] FROM unnest(%1) WITH ORDINALITY AS "
                           "words (t, n) ORDER BY n")
                .arg(arrayOf(words)));
        QCOMPARE(theirs.size(), words.size());
        for (int i = 0; i < words.size(); ++i)
            QCOMPARE(RussianStem::of(words.at(i)), theirs.at(i).value(0).toString());
    }
};

QTEST_GUILESS_MAIN(Store_search_test)
#include "Store_search_test.moc"
