#include "LogWatch.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "TestJournal.h"

#include <QApplication>
#include <QListWidget>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

/// How a page follows the changes of others, and its own, in the store.
class LogBookWidget_events_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static bool writeRecord(Store* store, const QByteArray& key, const char* author, int status = 0,
                            const char* shift = "SHIFT_CDS_OPEN")
    {
        return TestStore::write(store, "LogbookRecords", ROW_INSERT, key,
                                {{"ShiftKey", QByteArray(shift)},
                                 {"WorkerKey", QByteArray(author)},
                                 {"recordTime", TestStore::now() + 60},
                                 {"eventTime", TestStore::now() + 60},
                                 {"html", QStringLiteral("Текст")},
                                 {"status", status},
                                 {"direction", 0}});
    }
    static bool writeComment(Store* store, const QByteArray& key, const char* record,
                             const QString& text = QStringLiteral("Замечание"))
    {
        return TestStore::write(store, "LogbookComments", ROW_INSERT, key,
                                {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                 {"RecordKey", QByteArray(record)},
                                 {"commentTime", TestStore::now() + 60},
                                 {"text_", text},
                                 {"readedTime", QVariant()}});
    }
    static int count(TestJournal& journal, const char* table)
    {
        return journal.tab().table(QLatin1String(table))->data.RecCount();
    }
    /// Opens a second workshift of the department.
    static void openSecond(Store* loader)
    {
        QVERIFY(TestStore::write(loader, "LogbookWorkshifts", ROW_INSERT, "SHIFT_SECOND",
                                 {{"DepartmentKey", QByteArray("DEP_CDS")},
                                  {"OpenWorkerKey", QByteArray("WORKER_PETROV")},
                                  {"createdAt", TestStore::now()},
                                  {"startTime", TestStore::now() + 24 * 3600},
                                  {"endTime", TestStore::now() + 48 * 3600}}));
    }
    static QStringList answer(const char* text) { return QStringList{QLatin1String(text)}; }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void addsAColleaguesRecordAndMakesItCurrent()
    {
        const TestStore store;
        TestJournal journal(store);
        QSignalSpy added(&journal.tab(), &LogBookWidget::recordAdded);
        const MDRData* current = nullptr;
        connect(&journal.tab(), &LogBookWidget::changedSelectedRecord, &journal.tab(),
                [&](MDRData* record) { current = record; });
        QVERIFY(writeRecord(store.open(QStringLiteral("petrov")).get(), "NEW", "WORKER_PETROV"));
        QCOMPARE(journal.deliver(), answer("601 LogbookRecords 1"));
        QCOMPARE(added.count(), 1);
        QCOMPARE(journal.shownKeys().size(), 9);
        QCOMPARE(journal.shownKeys().last(), QStringLiteral("NEW"));
        QCOMPARE(journal.currentKey(), QStringLiteral("NEW"));
        QCOMPARE(current, journal.record("NEW"));
        QVERIFY(!isSet(Row(journal.record("NEW")).value("comment")));
        QVERIFY(!Row(journal.record("NEW")).value("comment").isNull);
    }

    void callsForShownRecordsOfOthersOnly()
    {
        const TestStore store;
        TestJournal journal(store);
        const QSignalSpy calls(&journal.module(), &CVrkCliMod::attentionCalled);
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(writeRecord(petrov.get(), "NEW", "WORKER_PETROV"));
        journal.deliver();
        QCOMPARE(calls.size(), 1);
        QCOMPARE(calls[0][0].toString(), QStringLiteral("Новая запись: Текст"));
        QCOMPARE(calls[0][1].value<CVrkCliMod::Attention>(), CVrkCliMod::Attention::Record);
        QVERIFY(writeRecord(store.open(QStringLiteral("ivanov")).get(), "OWN", "WORKER_IVANOV"));
        journal.deliver();
        QCOMPARE(calls.size(), 1);
    }

    void showsTheSameInTwoSessions()
    {
        const TestStore store;
        TestJournal ivanov(store);
        TestJournal petrov(store, QStringLiteral("petrov"));
        ivanov.select("REC_DRAFT_PETROV");
        ivanov.tab().approveRecord();
        QCOMPARE(Row(ivanov.record("REC_DRAFT_PETROV")).value("status").value.number,
                 1); // not before the event
        QCOMPARE(ivanov.deliver(), answer("602 LogbookRecords 1"));
        QCOMPARE(petrov.deliver(), answer("602 LogbookRecords 1"));
        for (TestJournal* journal : {&ivanov, &petrov})
            QCOMPARE(Row(journal->record("REC_DRAFT_PETROV")).value("status").value.number, 0);
    }

    void neverShowsALoadedRowTwice()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("ivanov"), QByteArray(), false);
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(writeRecord(petrov.get(), "NEW", "WORKER_PETROV"));
        QVERIFY(writeComment(petrov.get(), "COM_NEW", "NEW"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_INSERT, "FILE_NEW",
                                 {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"RecordKey", QByteArray("NEW")},
                                  {"fileName", QStringLiteral("схема.pdf")},
                                  {"fileData", QByteArray("bytes")}}));
        journal.start();
        QCOMPARE(count(journal, "LogbookRecords"), 9);
        QCOMPARE(journal.deliver(),
                 QStringList({QStringLiteral("601 LogbookRecords 1"), QStringLiteral("601 LogbookComments 1"),
                              QStringLiteral("601 LogbookFiles 1")}));
        QCOMPARE(count(journal, "LogbookRecords"), 9);
        QCOMPARE(count(journal, "LogbookComments"), 3);
        QCOMPARE(count(journal, "LogbookFiles"), 3);
    }

    void takesChangedFieldsOver()
    {
        const TestStore store;
        TestJournal journal(store);
        QSignalSpy updated(&journal.tab(), &LogBookWidget::recordUpdated);
        const MDRData* draft = journal.record("REC_DRAFT_PETROV");
        const QByteArray author = MDRValue::copy(Row(draft).value("WorkerKey"));
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_UPDATE,
                                 "REC_DRAFT_PETROV", {{"html", QStringLiteral("Другой текст")}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookRecords 1"));
        QCOMPARE(updated.count(), 1);
        QCOMPARE(journal.record("REC_DRAFT_PETROV"), draft); // records keep their addresses
        QCOMPARE(TestStore::text(MDRValue::copy(Row(draft).value("html"))), QStringLiteral("Другой текст"));
        QCOMPARE(MDRValue::copy(Row(draft).value("WorkerKey")), author);
        QCOMPARE(journal.cell("REC_DRAFT_PETROV", "html").toString(), QStringLiteral("Другой текст"));
        QCOMPARE(journal.currentKey(),
                 QStringLiteral("REC_OPENING")); // a changed record does not become current
    }

    void clearsFieldsThatBecameNull()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(MDRValue::hasTime(Row(journal.record("REC_SUCCESSOR")).value("executionTime")));
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookRecords", ROW_UPDATE,
                                 "REC_SUCCESSOR", {{"executionTime", QVariant()}}));
        journal.deliver();
        QVERIFY(Row(journal.record("REC_SUCCESSOR")).value("executionTime").isNull);
    }

    void removesADeletedRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_DRAFT_PETROV");
        QVERIFY(journal.tab().isExistDrafts());
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_DELETE,
                                 "REC_DRAFT_PETROV"));
        QCOMPARE(journal.deliver(), answer("603 LogbookRecords 1"));
        QCOMPARE(journal.shownKeys().size(), 7);
        QVERIFY(!journal.record("REC_DRAFT_PETROV"));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_DRAFT_IVANOV"));
    }

    void asksTheRightThingWhileTheLastDraftGoes()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_DELETE, "REC_DRAFT_IVANOV"));
        journal.deliver();
        journal.select("REC_DRAFT_PETROV");
        bool hasDrafts = true;
        connect(&journal.tab(), &LogBookWidget::changedSelectedRecord, &journal.tab(),
                [&] { hasDrafts = journal.tab().isExistDrafts(); });
        QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_DELETE, "REC_DRAFT_PETROV"));
        journal.deliver();
        QVERIFY(!hasDrafts);
    }

    void refusesRecordsOfOtherWorkshifts()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(writeRecord(store.open(QStringLiteral("smirnov")).get(), "NEW", "WORKER_SMIRNOV_ZAR", 0,
                            "SHIFT_ZAR_OPEN"));
        QCOMPARE(journal.deliver(), answer("601 LogbookRecords 0"));
        QCOMPARE(count(journal, "LogbookRecords"), 8);
    }

    void addsNoRowsToTheArchiveButChangesAndRemovesThem_data()
    {
        QTest::addColumn<bool>("isInterval");
        QTest::newRow("interval") << true;
        QTest::newRow("workshift") << false;
    }
    void addsNoRowsToTheArchiveButChangesAndRemovesThem()
    {
        QFETCH(bool, isInterval);
        const TestStore store;
        TestJournal journal(store);
        if (isInterval)
            journal.tab().uploadRecordsIn(QDateTime::currentDateTime().addDays(-3),
                                          QDateTime::currentDateTime());
        else
            journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_OPEN"));
        const int before = count(journal, "LogbookRecords");
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(writeRecord(petrov.get(), "NEW", "WORKER_PETROV"));
        QCOMPARE(journal.deliver(), answer("601 LogbookRecords 0"));
        QCOMPARE(count(journal, "LogbookRecords"), before);

        QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV",
                                 {{"status", 0}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookRecords 1"));
        // the filter was applied again
        QVERIFY(journal.shownKeys().contains(QStringLiteral("REC_DRAFT_PETROV")));
        QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_DELETE, "REC_DRAFT_IVANOV"));
        QCOMPARE(journal.deliver(), answer("603 LogbookRecords 1"));
        QCOMPARE(count(journal, "LogbookRecords"), before - 1);

        const int comments = count(journal, "LogbookComments"); // these come here, too
        QVERIFY(writeComment(petrov.get(), "COM_NEW", "REC_MESSAGE"));
        QCOMPARE(journal.deliver(), answer("601 LogbookComments 1"));
        QCOMPARE(count(journal, "LogbookComments"), comments + 1);
    }

    void followsCommentsOfItsRecords()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_MESSAGE");
        auto* list = journal.child<QListWidget>("commentsList");
        const auto petrov = store.open(QStringLiteral("petrov"));

        QVERIFY(writeComment(petrov.get(), "COM_NEW", "REC_MESSAGE"));
        QCOMPARE(journal.deliver(), answer("601 LogbookComments 1"));
        QVERIFY(isSet(Row(journal.record("REC_MESSAGE")).value("comment")));
        QCOMPARE(list->count(), 1);
        QCOMPARE(list->item(0)->text(), QStringLiteral("Замечание"));

        QVERIFY(TestStore::write(petrov.get(), "LogbookComments", ROW_UPDATE, "COM_NEW",
                                 {{"text_", QStringLiteral("Исправлено")}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookComments 1"));
        QCOMPARE(list->item(0)->text(), QStringLiteral("Исправлено"));

        QVERIFY(TestStore::write(petrov.get(), "LogbookComments", ROW_DELETE, "COM_NEW"));
        QCOMPARE(journal.deliver(), answer("603 LogbookComments 1"));
        QVERIFY(!isSet(Row(journal.record("REC_MESSAGE")).value("comment")));
        QCOMPARE(list->count(), 0);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_MESSAGE"));
    }

    void doesNotTouchTheListForCommentsOfOtherRecords()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(writeComment(store.open(QStringLiteral("petrov")).get(), "COM_NEW", "REC_MESSAGE"));
        QCOMPARE(journal.deliver(), answer("601 LogbookComments 1"));
        QCOMPARE(journal.child<QListWidget>("commentsList")->item(0)->data(Qt::UserRole).toString(),
                 QStringLiteral("COM_UNREAD"));
        QVERIFY(isSet(Row(journal.record("REC_MESSAGE")).value("comment")));
    }

    void keepsNoCommentsAndFilesOfRecordsNotShown()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(writeComment(petrov.get(), "COM_NEW", "REC_PAST_2"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_INSERT, "FILE_NEW",
                                 {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"RecordKey", QByteArray("REC_PAST_2")},
                                  {"fileName", QStringLiteral("схема.pdf")},
                                  {"fileData", QByteArray("bytes")}}));
        QCOMPARE(journal.deliver(), QStringList({QStringLiteral("601 LogbookComments 1"),
                                                 QStringLiteral("601 LogbookFiles 1")}));
        QCOMPARE(count(journal, "LogbookComments"), 2);
        QCOMPARE(count(journal, "LogbookFiles"), 2);
    }

    void followsFilesOfItsRecords()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_MESSAGE");
        auto* table = journal.child<QTableWidget>("filesTable");
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_INSERT, "FILE_NEW",
                                 {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"RecordKey", QByteArray("REC_MESSAGE")},
                                  {"fileName", QStringLiteral("схема.pdf")},
                                  {"fileData", QByteArray("\0bytes", 6)}}));
        QCOMPARE(journal.deliver(), answer("601 LogbookFiles 1"));
        QVERIFY(isSet(Row(journal.record("REC_MESSAGE")).value("file")));
        QCOMPARE(table->rowCount(), 1);
        QCOMPARE(table->item(0, 0)->text(), QStringLiteral("схема.pdf"));
        const MDRRange rows = MDARecsWith(journal.tab().table(QStringLiteral("LogbookFiles"))->data.array,
                                          "KeyLink", "FILE_NEW");
        QCOMPARE(MDRValue::copy(Row(rows.data[0]).value("fileData")), QByteArray("\0bytes", 6));

        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_DELETE, "FILE_NEW"));
        QCOMPARE(journal.deliver(), answer("603 LogbookFiles 1"));
        QVERIFY(!isSet(Row(journal.record("REC_MESSAGE")).value("file")));
        QCOMPARE(table->rowCount(), 0);
    }

    void showsAWorkshiftThatHasJustBeenOpened()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        const auto smirnov = store.open(QStringLiteral("smirnov"));
        QVERIFY(TestStore::write(smirnov.get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_NEW",
                                 {{"DepartmentKey", QByteArray("DEP_ODS")},
                                  {"OpenWorkerKey", QByteArray("WORKER_SMIRNOV_ODS")},
                                  {"createdAt", TestStore::now()},
                                  {"startTime", TestStore::now()},
                                  {"endTime", TestStore::now() + 3600}}));
        QVERIFY(TestStore::write(smirnov.get(), "LogbookWorkersWorkshift", ROW_INSERT, "CREW_NEW",
                                 {{"WorkshiftKey", QByteArray("SHIFT_NEW")},
                                  {"WorkerKey", QByteArray("WORKER_SMIRNOV_ODS")},
                                  {"opening", true}}));
        QVERIFY(writeRecord(smirnov.get(), "NEW", "WORKER_SMIRNOV_ODS", 1, "SHIFT_NEW"));
        QCOMPARE(journal.deliver(),
                 QStringList({QStringLiteral("601 LogbookWorkshifts 1"),
                              QStringLiteral("601 LogbookWorkersWorkshift 0"), // the load contained it
                              QStringLiteral("601 LogbookRecords 1")}));
        QVERIFY(status.count() > 0);
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_NEW"));
        QVERIFY(journal.tab().isEditableWorkshift());
        QCOMPARE(journal.shownKeys(), answer("NEW"));
        QCOMPARE(count(journal, "LogbookWorkersWorkshift"), 1);
        QVERIFY(!journal.send(601, "SHIFT_NEW", "NCI:LogbookWorkshifts,1"));
    }

    void takesTheNewestWorkshiftByEvent()
    {
        const TestStore store;
        TestJournal journal(store);
        openSecond(store.openLoader().get());
        QCOMPARE(journal.deliver(), answer("601 LogbookWorkshifts 1"));
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_SECOND"));
        QCOMPARE(journal.shownKeys(), QStringList());
    }

    // The page contains both workshifts, and a new row only needs to belong to their department.
    void takesRowsOfBothWorkshiftsWhenTwoAreOpen()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto loader = store.openLoader();
        openSecond(loader.get());
        journal.deliver();
        QVERIFY(writeRecord(loader.get(), "OF_FIRST", "WORKER_IVANOV", 0));
        QVERIFY(writeRecord(loader.get(), "OF_SECOND", "WORKER_PETROV", 0, "SHIFT_SECOND"));
        QVERIFY(TestStore::write(loader.get(), "LogbookWorkersWorkshift", ROW_INSERT, "CREW_OF_FIRST",
                                 {{"WorkshiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_SIDOROVA")},
                                  {"opening", 1}}));
        QCOMPARE(journal.deliver(),
                 QStringList({QStringLiteral("601 LogbookRecords 1"), QStringLiteral("601 LogbookRecords 1"),
                              QStringLiteral("601 LogbookWorkersWorkshift 1")}));
        QCOMPARE(journal.shownKeys().size(), 2);
        QCOMPARE(count(journal, "LogbookWorkersWorkshift"), 1);
    }

    // Requesting the current workshift does nothing while it is shown, even if it was closed or undone.
    void leadsToTheOtherOpenWorkshiftByAnotherPeriodAndBack()
    {
        for (const bool isTakenBack : {false, true}) {
            const TestStore store;
            TestJournal journal(store);
            const auto loader = store.openLoader();
            openSecond(loader.get());
            journal.deliver();
            if (isTakenBack)
                QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_DELETE, "SHIFT_SECOND"));
            else
                QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_SECOND",
                                         {{"CloseWorkerKey", QByteArray("WORKER_PETROV")}}));
            journal.deliver();
            QCOMPARE(journal.tab().isCloseWorkshift(), !isTakenBack);
            journal.tab().uploadRealTimeWorkshift();
            QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_SECOND"));
            journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
            journal.tab().uploadRealTimeWorkshift();
            QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_OPEN"));
            QCOMPARE(journal.shownKeys().size(), 8);
            QCOMPARE(count(journal, "LogbookWorkshifts"), 1);
        }
    }

    void ignoresNewWorkshiftsInTheArchiveAndOfOthers()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto loader = store.openLoader();
        const auto open = [&](const QByteArray& key, const char* department) {
            return TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, key,
                                    {{"DepartmentKey", QByteArray(department)},
                                     {"OpenWorkerKey", QByteArray("WORKER_PETROV")},
                                     {"createdAt", TestStore::now()},
                                     {"startTime", TestStore::now() + 24 * 3600},
                                     {"endTime", TestStore::now() + 48 * 3600}});
        };
        QVERIFY(open("SHIFT_ODS", "DEP_ODS"));
        QCOMPARE(journal.deliver(), answer("601 LogbookWorkshifts 0"));
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QVERIFY(open("SHIFT_SECOND", "DEP_CDS"));
        QCOMPARE(journal.deliver(), answer("601 LogbookWorkshifts 0"));
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
    }

    void letsANewMemberOfTheCrewSeeDrafts()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        QCOMPARE(journal.shownKeys().size(), 6);
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookWorkersWorkshift",
                                 ROW_INSERT, "CREW_NEW",
                                 {{"WorkshiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_SIDOROVA")},
                                  {"opening", true}}));
        QCOMPARE(journal.deliver(), answer("601 LogbookWorkersWorkshift 1"));
        QCOMPARE(status.count(), 1);
        QVERIFY(journal.tab().isWorkerInWorkshift());
        QCOMPARE(journal.shownKeys().size(), 8);
    }

    void hasNoReactionToLeavingWorkshiftsAndCrew()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(journal.send(603, "SHIFT_CDS_OPEN", "NCI:LogbookWorkshifts,1"));
        QVERIFY(journal.send(603, "CREW_CDS_1", "NCI:LogbookWorkersWorkshift,1"));
        QCOMPARE(count(journal, "LogbookWorkshifts"), 1);
        QCOMPARE(count(journal, "LogbookWorkersWorkshift"), 2);
    }

    void aClosedShiftHidesDraftsAndClosesTheEditor()
    {
        const TestStore store;
        TestJournal journal(store);
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        journal.tab().createRecordRequest();
        auto* editor = journal.module().findChild<RecordCreatorDialog*>();
        QVERIFY(editor->isVisible());
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookWorkshifts", ROW_UPDATE,
                                 "SHIFT_CDS_OPEN", {{"CloseWorkerKey", QByteArray("WORKER_PETROV")}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookWorkshifts 1"));
        QVERIFY(!editor->isVisible());
        QCOMPARE(status.count(), 1);
        QVERIFY(journal.tab().isCloseWorkshift());
        QCOMPARE(journal.shownKeys().size(), 6);
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_OPEN"));
    }

    void aClosedShiftEndsNoProgramThatIsHidden()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.module().hide();
        const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookWorkshifts", ROW_UPDATE,
                                 "SHIFT_CDS_OPEN", {{"CloseWorkerKey", QByteArray("WORKER_PETROV")}}));
        QTimer::singleShot(0, qApp, [&journal] { // the signal comes only while the application runs
            journal.deliver();
            QCoreApplication::exit();
        });
        QCoreApplication::exec();
        QVERIFY(journal.tab().isCloseWorkshift());
        QCOMPARE(ended.count(), 0);
    }

    void tellsNothingWhenAnotherWorkshiftOfItsTableChanges()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_SECOND",
                                 {{"DepartmentKey", QByteArray("DEP_CDS")},
                                  {"OpenWorkerKey", QByteArray("WORKER_PETROV")},
                                  {"createdAt", TestStore::now()},
                                  {"startTime", TestStore::now() + 24 * 3600},
                                  {"endTime", TestStore::now() + 48 * 3600}}));
        TestJournal journal(store);
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookWorkshifts", ROW_UPDATE,
                                 "SHIFT_SECOND", {{"CloseWorkerKey", QByteArray("WORKER_PETROV")}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookWorkshifts 1"));
        QCOMPARE(status.count(), 0);
        QVERIFY(journal.tab().isOpenWorkshift());
    }

    void followsTemplates()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto loader = store.openLoader();
        const int before = count(journal, "LogbookTemplates");
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_INSERT, "TPL_NEW",
                                 {{"CategoryKey", QByteArray("CAT_CDS")},
                                  {"nameLoc", QStringLiteral("Новый")},
                                  {"html", QStringLiteral("Текст")}}));
        QCOMPARE(journal.deliver(), answer("601 LogbookTemplates 1"));
        QCOMPARE(count(journal, "LogbookTemplates"), before + 1);
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_NEW",
                                 {{"nameLoc", QStringLiteral("Другой")}}));
        QCOMPARE(journal.deliver(), answer("602 LogbookTemplates 1"));
        // Deliberate: the row of a deleted template stays until the next load.
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, "TPL_NEW"));
        QCOMPARE(journal.deliver(), answer("603 LogbookTemplates 1"));
        QCOMPARE(count(journal, "LogbookTemplates"), before + 1);
        QVERIFY(!journal.send(601, "TPL_NEW", "NCI:LogbookTemplates,1")); // already known
        QVERIFY(!journal.send(601, "CAT_CDS", "NCI:LogbookCatsTemplate,1"));
    }

    void comparesTableNamesWithCaseOnlyForNewRows()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(journal.send(602, "REC_OPENING", "NCI:logbookrecords,1"));
        QVERIFY(!journal.send(602, "REC_UNKNOWN", "NCI:logbookrecords,1"));
        QVERIFY(!journal.send(603, "REC_UNKNOWN", "NCI:LOGBOOKRECORDS,1"));
        QVERIFY(!journal.send(601, "COM_NEW", "NCI:logbookcomments,1"));
    }

    void knowsNothingOfOtherTablesAndNamelessEvents()
    {
        const TestStore store;
        TestJournal journal(store);
        for (const char* source : {"NCI:LogbookRecords", "NCI:Workers,1", "NCI:LogbookWorkersWorkshift,1"}) {
            QVERIFY(!journal.send(601, "X", source));
            QVERIFY(journal.send(602, "X", source));
            QVERIFY(journal.send(603, "X", source));
        }
        QCOMPARE(count(journal, "LogbookRecords"), 8);
    }

    void survivesEventsWithoutARow()
    {
        const TestStore store;
        TestJournal journal(store);
        for (const char* table : {"LogbookWorkshifts", "LogbookWorkersWorkshift", "LogbookRecords"})
            QVERIFY(!journal.send(601, "X", QByteArray("NCI:") + table + ",1"));
        for (const char* table : {"LogbookComments", "LogbookFiles"})
            QVERIFY(journal.send(601, "X", QByteArray("NCI:") + table + ",1"));
        QCOMPARE(count(journal, "LogbookComments"), 2);
    }
};

QTEST_MAIN(LogBookWidget_events_test)
#include "LogBookWidget_events_test.moc"
