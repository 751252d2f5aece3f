#include "HtmlParser.h"
#include "LogWatch.h"
#include "TestJournal.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

/// The allowed actions on a record and a workshift in each of their states.
class LogBookWidget_states_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    /// Changes a row without the rules of the journal, before a page loads it.
    static void change(const TestStore& store, const char* table, const char* key, TestStore::Fields fields)
    {
        QVERIFY(TestStore::write(store.openLoader().get(), table, ROW_UPDATE, key, fields));
    }
    static QString html(const char* property, const char* value)
    {
        HtmlParser parser("text");
        parser.setTemplateProperty(property, std::string(value));
        return QString::fromStdString(parser.readyHtml(true));
    }
    /// Names of the rules that are true for the page.
    static QStringList holding(const LogBookWidget& tab)
    {
        const std::pair<const char*, bool> rules[] = {{"draft", tab.isRecordDraft()},
                                                      {"deletable", tab.isRecordDeletable()},
                                                      {"signable", tab.isRecordSignable()},
                                                      {"copyable", tab.isRecordCopyable()},
                                                      {"origin", tab.isRecordHasOrigin()},
                                                      {"first", tab.isFirstMarkSetted()},
                                                      {"second", tab.isSecondMarkSetted()},
                                                      {"firstSettable", tab.isFirstMarkSettable()},
                                                      {"secondSettable", tab.isSecondMarkSettable()},
                                                      {"execution", tab.isTimeExecutionChangable()}};
        QStringList names;
        for (const auto& [rule, holds] : rules)
            if (holds)
                names.append(QLatin1String(rule));
        return names;
    }
    static QStringList words(const char* text)
    {
        return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void knowsTheWorkshiftAndItsCrew_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<bool>("isIn");
        QTest::newRow("who opened it") << QStringLiteral("ivanov") << true;
        QTest::newRow("crew") << QStringLiteral("petrov") << true;
        QTest::newRow("neither") << QStringLiteral("sidorova") << false;
    }
    void knowsTheWorkshiftAndItsCrew()
    {
        QFETCH(QString, login);
        QFETCH(bool, isIn);
        const TestStore store; // the one who opened it is in his shift without a row of the crew, too
        QVERIFY(
            TestStore::write(store.openLoader().get(), "LogbookWorkersWorkshift", ROW_DELETE, "CREW_CDS_1"));
        TestJournal journal(store, login);
        const LogBookWidget& tab = journal.tab();
        QVERIFY(tab.isOpenWorkshift());
        QVERIFY(!tab.isCloseWorkshift());
        QVERIFY(tab.isSelectedWorkshift());
        QCOMPARE(tab.isWorkerInWorkshift(), isIn);
        QCOMPARE(tab.isEditableWorkshift(), isIn);
        QCOMPARE(tab.isRecordCreatable(), isIn);
        QCOMPARE(tab.isHideDraft(), !isIn);
        QCOMPARE(tab.isExistDrafts(), isIn);
        QCOMPARE(tab.isExistMyDrafts(), isIn);
        QVERIFY(tab.isExistNoSign());
    }

    void doesNotCountThoseWhoTakeTheWorkshiftOver()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkersWorkshift", ROW_INSERT, "CREW_NEXT",
                                 {{"WorkshiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_SIDOROVA")},
                                  {"opening", false}}));
        TestJournal journal(store, QStringLiteral("sidorova"));
        QVERIFY(!journal.tab().isWorkerInWorkshift());
        QVERIFY(!journal.tab().isRecordCreatable());
    }

    void allowsNothingWithoutAWorkshift()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        const LogBookWidget& tab = journal.tab();
        QVERIFY(!tab.isOpenWorkshift());
        QVERIFY(tab.isCloseWorkshift()); // deliberate: not exactly the opposite of open
        QVERIFY(!tab.isWorkerInWorkshift());
        QVERIFY(!tab.isEditableWorkshift());
        QVERIFY(tab.isHideDraft());
        QVERIFY(tab.isSelectedWorkshift());
        QVERIFY(!tab.isExistDrafts() && !tab.isExistMyDrafts() && !tab.isExistNoSign());
        QCOMPARE(holding(tab), QStringList());
        QVERIFY(!tab.isRecordSignable(nullptr));
    }

    void countsAnEmptyCloserAsOpen()
    {
        const TestStore store;
        change(store, "LogbookWorkshifts", "SHIFT_CDS_OPEN", {{"CloseWorkerKey", QStringLiteral("")}});
        TestJournal journal(store);
        QVERIFY(journal.tab().isOpenWorkshift());
        QVERIFY(!journal.tab().isCloseWorkshift());
    }

    void knowsEachRecordOfTheWorkshift_data()
    {
        QTest::addColumn<QByteArray>("login");
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QByteArray>("rules");
        QTest::newRow("opening record")
            << QByteArray("ivanov") << QByteArray("REC_OPENING") << QByteArray("deletable");
        QTest::newRow("own message") << QByteArray("ivanov") << QByteArray("REC_MESSAGE")
                                     << QByteArray("deletable copyable");
        QTest::newRow("deleted record")
            << QByteArray("petrov") << QByteArray("REC_REPLACED") << QByteArray("");
        QTest::newRow("successor") << QByteArray("ivanov") << QByteArray("REC_SUCCESSOR")
                                   << QByteArray("deletable copyable origin execution");
        QTest::newRow("order of a colleague") << QByteArray("ivanov") << QByteArray("REC_ORDER")
                                              << QByteArray("deletable signable copyable execution");
        QTest::newRow("own order") << QByteArray("petrov") << QByteArray("REC_ORDER")
                                   << QByteArray("deletable copyable execution");
        QTest::newRow("with a visa already") << QByteArray("ivanov") << QByteArray("REC_TRIP")
                                             << QByteArray("deletable signable copyable first firstSettable");
        QTest::newRow("draft") << QByteArray("ivanov") << QByteArray("REC_DRAFT_PETROV")
                               << QByteArray("draft deletable");
        QTest::newRow("outside of the shift")
            << QByteArray("sidorova") << QByteArray("REC_ORDER") << QByteArray("signable copyable");
        QTest::newRow("marker outside of the shift")
            << QByteArray("sidorova") << QByteArray("REC_TRIP") << QByteArray("signable copyable first");
    }
    void knowsEachRecordOfTheWorkshift()
    {
        QFETCH(QByteArray, login);
        QFETCH(QByteArray, record);
        QFETCH(QByteArray, rules);
        const TestStore store;
        TestJournal journal(store, QString::fromLatin1(login));
        journal.select(record);
        QCOMPARE(holding(journal.tab()), words(rules));
    }

    void offersNothingOnADraftOutsideOfTheShift()
    {
        const TestStore store;
        change(store, "LogbookRecords", "REC_DRAFT_IVANOV",
               {{"html", html("second_mark", ":/markers/worker_red.png")}});
        TestJournal journal(store, QStringLiteral("sidorova"));
        QVERIFY(journal.tab().showRecord(QStringLiteral("SHIFT_CDS_OPEN"), "REC_DRAFT_IVANOV")); // asked for
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_DRAFT_IVANOV"));
        QCOMPARE(holding(journal.tab()), QStringList());
    }

    void asksTheTemplateForTheSecondMarker()
    {
        const TestStore store;
        change(store, "LogbookRecords", "REC_DRAFT_IVANOV",
               {{"html", html("second_mark", ":/markers/worker_red.png")}, {"secondMarkTime", 5.0}});
        change(store, "LogbookRecords", "REC_DRAFT_PETROV", {{"html", html("second_mark", "")}});
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        QCOMPARE(holding(journal.tab()), words("draft deletable second secondSettable"));
        journal.select("REC_DRAFT_PETROV");
        QCOMPARE(holding(journal.tab()), words("draft deletable"));
        journal.select("REC_ORDER"); // approved: cannot be set, although its template has the marker
        QVERIFY(!journal.tab().isSecondMarkSettable());
    }

    void copiesNoRecordsOfOpeningAndClosing()
    {
        const TestStore store;
        HtmlParser parser("text");
        parser.setTemplateProperty("close_wshift", true);
        change(store, "LogbookRecords", "REC_MESSAGE",
               {{"html", QString::fromStdString(parser.readyHtml(true))}});
        change(store, "LogbookRecords", "REC_ORDER", {{"html", QVariant()}});
        TestJournal journal(store);
        for (const char* key :
             {"REC_OPENING", "REC_MESSAGE", "REC_ORDER", "REC_DRAFT_IVANOV", "REC_REPLACED"}) {
            journal.select(key);
            QVERIFY2(!journal.tab().isRecordCopyable(), key);
        }
    }

    void allowsReadingAndVisasInTheArchive_data()
    {
        QTest::addColumn<bool>("isInterval");
        QTest::newRow("interval") << true;
        QTest::newRow("workshift") << false;
    }
    void allowsReadingAndVisasInTheArchive()
    {
        QFETCH(bool, isInterval);
        const TestStore store;
        TestJournal journal(store);
        LogBookWidget& tab = journal.tab();
        if (isInterval)
            tab.uploadRecordsIn(QDateTime::currentDateTime().addDays(-3), QDateTime::currentDateTime());
        else
            tab.uploadRecordsIn(QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(tab.isSelectedWorkshift(), !isInterval);
        QVERIFY(!tab.isEditableWorkshift());
        QVERIFY(!tab.isExistDrafts() && !tab.isExistMyDrafts());
        QVERIFY(tab.isExistNoSign());
        journal.select("REC_ORDER");
        QCOMPARE(holding(tab), words("signable copyable"));
        journal.select("REC_SUCCESSOR");
        QCOMPARE(holding(tab), words("copyable origin"));
    }

    void givesNoVisaToRecordsOfNobody()
    {
        const TestStore store;
        TestJournal journal(store);
        change(store, "LogbookRecords", "REC_ORDER", {{"WorkerKey", QVariant()}});
        change(store, "LogbookRecords", "REC_TRIP", {{"WorkerKey", QStringLiteral("")}});
        journal.deliver();
        for (const char* key : {"REC_ORDER", "REC_TRIP"}) {
            journal.select(key);
            QVERIFY2(!journal.tab().isRecordSignable(), key);
        }
        QVERIFY(!journal.tab().isExistNoSign());
    }

    void seesHiddenDraftsForTheVisaOfAll()
    {
        // Rows that a filter hides are counted as well.
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        change(store, "LogbookRecords", "REC_DRAFT_IVANOV", {{"status", 0}});
        journal.deliver();
        QVERIFY(journal.tab().isExistNoSign());
        QVERIFY(journal.shownKeys().contains(QStringLiteral("REC_DRAFT_IVANOV")));
    }

    void pastesWhatTheClipboardHolds()
    {
        const TestStore store;
        TestJournal journal(store);
        QGuiApplication::clipboard()->clear();
        QVERIFY(!journal.tab().isRecordPastable());
        QGuiApplication::clipboard()->setText(QStringLiteral("logbook_record"));
        QVERIFY(!journal.tab().isRecordPastable());
        auto* data = new QMimeData;
        data->setData(QStringLiteral("logbook_record"), "LogbookRecords;REC_ORDER");
        QGuiApplication::clipboard()->setMimeData(data);
        QVERIFY(journal.tab().isRecordPastable());
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_OPEN"));
        QVERIFY(!journal.tab().isRecordPastable());
        QGuiApplication::clipboard()->clear();
    }

    void namesTheDepartmentAndTheOrganization()
    {
        const TestStore store;
        TestJournal journal(store);
        const QString title = journal.tab().title();
        QVERIFY(title.startsWith(QStringLiteral("ЦДС, ")) && title.size() > 6);
        journal.location().setOrganizationKey(QStringLiteral("ORG_UNKNOWN"));
        QCOMPARE(journal.tab().title(), QStringLiteral("ЦДС, "));
        journal.location().setDepartmentKey(QString());
        QCOMPARE(journal.tab().title(), QStringLiteral(", "));
    }
};

QTEST_MAIN(LogBookWidget_states_test)
#include "LogBookWidget_states_test.moc"
