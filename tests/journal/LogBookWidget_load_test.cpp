#include "FailingStore.h"
#include "HfnTime.h"
#include "JournalWindow.h"
#include "LogbookFields.h"
#include "LogWatch.h"
#include "RecordValue.h"
#include "TestJournal.h"
#include "VrkTableDelegate.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

/// The content of a journal page in each of its modes.
class LogBookWidget_load_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static const QStringList& openShift()
    {
        static const QStringList keys{QStringLiteral("REC_OPENING"),      QStringLiteral("REC_MESSAGE"),
                                      QStringLiteral("REC_REPLACED"),     QStringLiteral("REC_SUCCESSOR"),
                                      QStringLiteral("REC_ORDER"),        QStringLiteral("REC_TRIP"),
                                      QStringLiteral("REC_DRAFT_IVANOV"), QStringLiteral("REC_DRAFT_PETROV")};
        return keys;
    }
    static int count(TestJournal& journal, const char* table)
    {
        return journal.tab().table(QLatin1String(table))->data.RecCount();
    }
    static QDateTime hoursFromNow(double hours)
    {
        return HfnTime_to_DateTime(TestStore::now() + hours * 3600, -1);
    }
    /// A page of a department with an open workshift without records.
    static void openEmptyWorkshift(const TestStore& store)
    {
        const auto loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_ODS",
                                 {{"DepartmentKey", QByteArray("DEP_ODS")},
                                  {"OpenWorkerKey", QByteArray("WORKER_SMIRNOV_ODS")},
                                  {"createdAt", TestStore::now()},
                                  {"startTime", TestStore::now()},
                                  {"endTime", TestStore::now() + 3600}}));
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void showsNothingBeforeItIsStarted()
    {
        LogBookWidget tab;
        QCOMPARE(tab.mode(), 0);
        QVERIFY(!tab.isInit());
        QVERIFY(!tab.currentWorkshift() && !tab.currentRecord());
        QVERIFY(!tab.displayedPeriodStart().isValid() && !tab.displayedPeriodEnd().isValid());
        QVERIFY(!tab.isOpenWorkshift() && tab.isCloseWorkshift() && !tab.isWorkerInWorkshift());
        QVERIFY(!tab.isSelectedWorkshift() && tab.isHideDraft() && !tab.isRecordCreatable());
        QVERIFY(tab.table(QStringLiteral("LogbookRecords")));
        QVERIFY(!tab.table(QStringLiteral("Workers")));
    }

    void showsTheOpenWorkshiftAtOnce()
    {
        const TestStore store;
        TestJournal journal(store);
        LogBookWidget& tab = journal.tab();
        QVERIFY(tab.isInit());
        QCOMPARE(tab.mode(), 1);
        QCOMPARE(tab.workshiftKeyLink(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(journal.shownKeys(), openShift());
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_OPENING"));
        QCOMPARE(tab.displayedPeriodStart(), hoursFromNow(-6));
        QCOMPARE(tab.displayedPeriodEnd(), hoursFromNow(18));
        QVERIFY(tab.title().startsWith(QStringLiteral("ЦДС, ")));
    }

    void showsTheShiftOverMidnightInTheOrderOfTime()
    {
        const TestStore store;
        TestJournal journal(store);
        const QDateTime start = journal.tab().displayedPeriodStart();
        QVERIFY(start.date() < journal.tab().displayedPeriodEnd().date());
        double last = 0;
        for (const QString& key : journal.shownKeys()) {
            const double time = Row(journal.record(key.toUtf8())).value("recordTime").value.real;
            QVERIFY(time >= last);
            last = time;
        }
    }

    void loadsAllTablesOfTheWorkshift()
    {
        const TestStore store;
        TestJournal journal(store);
        QCOMPARE(count(journal, "LogbookWorkshifts"), 1);
        QCOMPARE(count(journal, "LogbookWorkersWorkshift"), 2);
        QCOMPARE(count(journal, "LogbookRecords"), 8);
        QCOMPARE(count(journal, "LogbookComments"), 2);
        QCOMPARE(count(journal, "LogbookFiles"), 2);
        QCOMPARE(count(journal, "Shifts"), 2);
        QCOMPARE(count(journal, "Roles"), 2);
        QCOMPARE(count(journal, "WorkerRoles"), 3);
        QVERIFY(count(journal, "LogbookCatsTemplate") >= 5);
        QVERIFY(count(journal, "LogbookTemplates") >= 5);
        QCOMPARE(MDAFldCount(journal.tab().table(QStringLiteral("LogbookRecords"))->data.array),
                 fieldCount(LogbookRecordExtFields));
        QCOMPARE(journal.tab().table(QStringLiteral("Workers")),
                 journal.location().table(QStringLiteral("Workers")));
        QVERIFY(!journal.tab().table(QStringLiteral("Nothing")));
    }

    void keepsItsTablesUnderTheirKeys()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto seek = [&](const char* table, const QByteArray& key) {
            const MDRVar value = MDRValue::text(key);
            return MDARecSeekV(journal.tab().table(QLatin1String(table))->data.array, 0, &value, 0);
        };
        QVERIFY(seek("LogbookWorkshifts", "SHIFT_CDS_OPEN"));
        QVERIFY(seek("LogbookWorkersWorkshift", "CREW_CDS_2"));
        QVERIFY(seek("Shifts", "TIMETABLE_CDS_DAY"));
        QVERIFY(seek("Roles", "ROLE_CDS_SENIOR"));
        QVERIFY(seek("WorkerRoles", "WROLE_PETROV"));
        QCOMPARE(MDAKeyCount(journal.tab().table(QStringLiteral("LogbookWorkshifts"))->data.array), 2);
        QCOMPARE(MDAKeyCount(journal.tab().table(QStringLiteral("LogbookWorkersWorkshift"))->data.array), 1);
        QCOMPARE(MDAKeyCount(journal.tab().table(QStringLiteral("LogbookRecords"))->data.array), 1);

        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QVERIFY(seek("LogbookWorkshifts", "SHIFT_CDS_PAST"));
    }

    void fillsTheClientSideFields()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(isSet(Row(journal.record("REC_OPENING")).value("comment")));
        QVERIFY(!isSet(Row(journal.record("REC_OPENING")).value("file")));
        QVERIFY(isSet(Row(journal.record("REC_TRIP")).value("file")));
        QVERIFY(!isSet(Row(journal.record("REC_TRIP")).value("comment")));
    }

    void isEmptyWithoutAnOpenWorkshift()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        LogBookWidget& tab = journal.tab();
        QCOMPARE(tab.mode(), 1);
        QVERIFY(!tab.currentWorkshift());
        QCOMPARE(tab.workshiftKeyLink(), QString());
        QVERIFY(!tab.displayedPeriodStart().isValid());
        QVERIFY(!tab.displayedPeriodEnd().isValid());
        QCOMPARE(count(journal, "LogbookRecords"), 0);
        QVERIFY(!tab.currentRecord());
        QVERIFY(tab.isCloseWorkshift());
    }

    void showsTheEarliestOfTwoOpenWorkshifts()
    {
        const TestStore store;
        {
            const auto loader = store.openLoader();
            QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, "A_LATER_ONE",
                                     {{"DepartmentKey", QByteArray("DEP_CDS")},
                                      {"OpenWorkerKey", QByteArray("WORKER_PETROV")},
                                      {"CloseWorkerKey", QStringLiteral("")},
                                      {"createdAt", TestStore::now()},
                                      {"startTime", TestStore::now() + 24 * 3600},
                                      {"endTime", TestStore::now() + 48 * 3600}}));
        }
        TestJournal journal(store);
        QCOMPARE(count(journal, "LogbookWorkshifts"), 2); // an empty CloseWorkerKey counts as open
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_OPEN"));
    }

    void doesNotReloadTheLiveWorkshift()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_TRIP");
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        journal.tab().uploadRealTimeWorkshift();
        QTest::keyClick(&journal.tab(), Qt::Key_Home);
        QCOMPARE(status.count(), 0);
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_TRIP"));
    }

    void showsAChosenWorkshift()
    {
        const TestStore store;
        TestJournal journal(store);
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QCOMPARE(status.count(), 1);
        QCOMPARE(journal.tab().mode(), 3);
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
        QCOMPARE(journal.shownKeys(),
                 QStringList({QStringLiteral("REC_PAST_1"), QStringLiteral("REC_PAST_2")}));
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_PAST_1"));
        QCOMPARE(journal.tab().displayedPeriodEnd(), hoursFromNow(-6));
        QVERIFY(isSet(Row(journal.record("REC_PAST_1")).value("comment")));
        QCOMPARE(count(journal, "LogbookWorkersWorkshift"), 3);
    }

    void showsNothingOfAnUnknownWorkshift()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_TRIP");
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_UNKNOWN"));
        QCOMPARE(journal.tab().mode(), 3);
        QVERIFY(!journal.tab().currentWorkshift());
        QCOMPARE(journal.shownKeys(), QStringList());
        QCOMPARE(journal.child<QListWidget>("commentsList")->count(), 0);
        QCOMPARE(journal.child<QTableWidget>("filesTable")->rowCount(), 0);
        journal.tab().uploadRecordsIn(QString());
        QVERIFY(!journal.tab().currentWorkshift());
    }

    void showsAnIntervalOfTheDepartment()
    {
        const TestStore store;
        TestJournal journal(store);
        const QDateTime from = hoursFromNow(-24 * 3);
        const QDateTime to = hoursFromNow(1);
        QSignalSpy status(&journal.tab(), &LogBookWidget::statusChanged);
        journal.tab().uploadRecordsIn(from, to);
        QCOMPARE(status.count(), 1);
        QCOMPARE(journal.tab().mode(), 2);
        QVERIFY(!journal.tab().currentWorkshift());
        QCOMPARE(journal.tab().displayedPeriodStart(), from);
        QCOMPARE(journal.tab().displayedPeriodEnd(), to);
        QVERIFY(journal.record("REC_PAST_1"));
        QVERIFY(journal.record("REC_DRAFT_IVANOV"));
        QVERIFY(!journal.record("REC_ZAR"));
        const QStringList shown = journal.shownKeys();
        QCOMPARE(shown.size(), 8); // drafts are hidden in the archive
        QVERIFY(!shown.contains(QStringLiteral("REC_DRAFT_IVANOV")));
        QCOMPARE(count(journal, "LogbookWorkshifts"), 0);
        QCOMPARE(count(journal, "LogbookComments"), 3);
        QCOMPARE(count(journal, "LogbookFiles"), 2);
        const auto* rows = qobject_cast<const VrkTableDelegate*>(journal.view()->itemDelegate());
        QVERIFY(rows && rows->dayLine(0).isValid()); // an interval may begin on any day
        QVERIFY(journal.tab().isExistNoSign());
        journal.tab().uploadRealTimeWorkshift();
        QVERIFY(!rows->dayLine(0).isValid());
    }

    void takesTheBoundsOfAnIntervalIn()
    {
        const TestStore store;
        TestJournal journal(store);
        const double time = Row(journal.record("REC_ORDER")).value("recordTime").value.real;
        const QDateTime moment = HfnTime_to_DateTime(time, -1);
        journal.tab().uploadRecordsIn(moment, moment);
        QCOMPARE(journal.shownKeys(), QStringList{QStringLiteral("REC_ORDER")});
        journal.tab().uploadRecordsIn(moment.addSecs(1), moment.addSecs(2));
        QCOMPARE(journal.shownKeys(), QStringList());
    }

    void comesBackToTheLiveWorkshift()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().uploadRecordsIn(hoursFromNow(-1000), hoursFromNow(-900));
        QCOMPARE(journal.shownKeys(), QStringList());
        QTest::keyClick(&journal.tab(), Qt::Key_Home);
        QCOMPARE(journal.tab().mode(), 1);
        QCOMPARE(journal.shownKeys(), openShift());
        QCOMPARE(count(journal, "Shifts"), 2);
    }

    void hidesDraftsFromThoseOutsideOfTheWorkshift()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        QCOMPARE(journal.shownKeys(), openShift().mid(0, 6));
        QCOMPARE(count(journal, "LogbookRecords"), 8);
    }

    void asksForNoCommentsAndFilesOfNoRecords()
    {
        const TestStore store;
        openEmptyWorkshift(store);
        QCOMPARE(store.dropTables({QStringLiteral("LogbookComments"), QStringLiteral("LogbookFiles")}),
                 QString());
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_ODS"));
    }

    void asksForNothingThatHangsOnWhatIsMissing()
    {
        const auto load = [](const char* login, const QByteArray& department, const QStringList& tables) {
            const TestStore store;
            TestJournal journal(store, QLatin1String(login), department, false);
            QCOMPARE(store.dropTables(tables), QString());
            journal.start();
            QCOMPARE(journal.client().takeFailures(), QStringList());
        };
        // Without a shift: its crew and records. Without roles: those of the workers.
        load("smirnov", "DEP_ODS",
             {QStringLiteral("LogbookWorkersWorkshift"), QStringLiteral("LogbookRecords"),
              QStringLiteral("WorkerRoles")});
        load("viewer", QByteArray(), {QStringLiteral("LogbookWorkshifts")}); // without a department
    }

    void theShiftOfTheArchiveIsNotThatOfThePresent()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("viewer")); // has no department, so no present shift
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QVERIFY(journal.tab().currentWorkshift());
        journal.tab().uploadRealTimeWorkshift();
        QVERIFY(!journal.tab().currentWorkshift());
    }

    void logsFailedSelectsAndKeepsItsFields_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("line");
        QTest::newRow("workshifts")
            << QStringLiteral("LogbookWorkshifts")
            << QStringLiteral("void LogBookWidget::uploadOpenWorkshift() error SQL query execution "
                              "[SELECT * FROM LogbookWorkshifts WHERE DepartmentKey='DEP_CDS' AND "
                              "(CloseWorkerKey IS NULL OR CloseWorkerKey='')]");
        QTest::newRow("crew") << QStringLiteral("LogbookWorkersWorkshift")
                              << QStringLiteral("void LogBookWidget::uploadWorkersWorkshiftTable() error SQL "
                                                "query execution [SELECT * FROM LogbookWorkersWorkshift "
                                                "WHERE WorkshiftKey='SHIFT_CDS_OPEN']");
        QTest::newRow("records")
            << QStringLiteral("LogbookRecords")
            << QStringLiteral("void LogBookWidget::uploadRecordsWorkshift() error SQL query execution "
                              "[SELECT * FROM LogbookRecords WHERE ShiftKey='SHIFT_CDS_OPEN']");
        const QString keys = QLatin1Char('\'') + openShift().join(QStringLiteral("','")) + QLatin1Char('\'');
        QTest::newRow("comments")
            << QStringLiteral("LogbookComments")
            << QStringLiteral("void LogBookWidget::uploadCommentsRecords() error SQL query execution "
                              "[SELECT * FROM LogbookComments WHERE RecordKey IN (%1)]")
                   .arg(keys);
        QTest::newRow("files") << QStringLiteral("LogbookFiles")
                               << QStringLiteral(
                                      "void LogBookWidget::uploadFilesRecords() error SQL query execution "
                                      "[SELECT * FROM LogbookFiles WHERE RecordKey IN (%1)]")
                                      .arg(keys);
        QTest::newRow("timetable") << QStringLiteral("Shifts")
                                   << QStringLiteral(
                                          "void LogBookWidget::uploadShiftsTable() error SQL query execution "
                                          "[SELECT * FROM Shifts WHERE DepartmentKey='DEP_CDS']");
        QTest::newRow("roles") << QStringLiteral("Roles")
                               << QStringLiteral("void LogBookWidget::uploadRolesTable() error SQL query "
                                                 "execution [SELECT * FROM Roles WHERE "
                                                 "DepartmentKey='DEP_CDS']");
        QTest::newRow("categories")
            << QStringLiteral("LogbookCatsTemplate")
            << QStringLiteral("void LogBookWidget::uploadTemplatesTable() error SQL query execution "
                              "[SELECT * FROM LogbookCatsTemplate ;]");
        QTest::newRow("templates")
            << QStringLiteral("LogbookTemplates")
            << QStringLiteral("void LogBookWidget::uploadTemplatesTable() error SQL query execution "
                              "[SELECT * FROM LogbookTemplates ;]");
    }
    void logsFailedSelectsAndKeepsItsFields()
    {
        QFETCH(QString, table);
        QFETCH(QString, line);
        const TestStore store;
        TestJournal journal(store, QStringLiteral("ivanov"), QByteArray(), false);
        QCOMPARE(store.dropTables({table}), QString());
        journal.start();
        QCOMPARE(m_log->take(QStringLiteral("LogBookWidget")), QStringList{line});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        const CMDArray& data = journal.tab().table(table)->data;
        QCOMPARE(data.RecCount(), 0);
        if (table.startsWith(QLatin1String("Logbook")))
            QVERIFY(MDAFldCount(data.array) > 3);
        if (table == QLatin1String("LogbookCatsTemplate")) // a failure of the first does not stop the second
            QVERIFY(count(journal, "LogbookTemplates") > 0);
        if (table == QLatin1String("Roles"))
            QCOMPARE(count(journal, "WorkerRoles"), 0); // and nothing was requested
    }

    void logsTheOtherFailedSelects()
    {
        const TestStore store;
        TestJournal journal(store);
        QCOMPARE(store.dropTables({QStringLiteral("WorkerRoles"), QStringLiteral("LogbookWorkshifts")}),
                 QString());
        journal.tab().uploadRecordsIn(HfnTime_to_DateTime(1700000000, -1),
                                      HfnTime_to_DateTime(1700003600, -1));
        QCOMPARE(
            m_log->take(QStringLiteral("LogBookWidget")),
            QStringList{QStringLiteral(
                "void LogBookWidget::uploadRecordsInterval(const QDateTime&, const QDateTime&) error SQL "
                "query execution [SELECT LogbookRecords.* FROM LogbookRecords INNER JOIN "
                "LogbookWorkshifts ON LogbookWorkshifts.KeyLink = LogbookRecords.ShiftKey WHERE "
                "LogbookWorkshifts.DepartmentKey = 'DEP_CDS' AND recordTime >= 1700000000 AND recordTime "
                "<= 1700003600;]")});
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QStringList lines = m_log->take(QStringLiteral("LogBookWidget"));
        QCOMPARE(lines.size(), 2);
        QCOMPARE(
            lines.first(),
            QStringLiteral("void LogBookWidget::uploadWorkshift(const QString&) error SQL query execution "
                           "[SELECT * FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_PAST']"));
        QVERIFY(lines.last().startsWith(
            QStringLiteral("void LogBookWidget::uploadWorkerRolesTable() error SQL query execution "
                           "[SELECT * FROM WorkerRoles WHERE RoleKey IN ('ROLE_CDS_")));
        QVERIFY(lines.last().endsWith(QStringLiteral("');]")));
        m_log->take(QStringLiteral("CVrkCliSes"));
    }

    void loadsTheLiveWorkshiftAgainByAnotherPeriodAndBack()
    {
        const TestStore store;
        const auto plan = std::make_shared<FailingStore::Plan>();
        JournalWindow ivanov(std::make_unique<FailingStore>(store.open(QStringLiteral("ivanov")), plan),
                             QStringLiteral("ivanov"), QStringLiteral("DEP_CDS"), QStringLiteral("ORG_NETS"));
        ivanov.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        plan->failedSelects = 1;
        ivanov.trigger("currentWorkshiftAction");
        QCOMPARE(ivanov.status(), QStringLiteral("Смена закрыта")); // according to its own knowledge
        QVERIFY(!m_log->take().isEmpty());
        const int selects = plan->selects.size();
        ivanov.trigger("currentWorkshiftAction"); // is shown already
        QCOMPARE(plan->selects.size(), selects);
        ivanov.home().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        ivanov.trigger("currentWorkshiftAction");
        QCOMPARE(ivanov.status(), QStringLiteral("Смена открыта, редактирование разрешено"));
        QVERIFY(ivanov.record(QStringLiteral("REC_DRAFT_IVANOV")));
    }

    void showsCommentsAndFilesOfTheCurrentRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        auto* comments = journal.child<QListWidget>("commentsList");
        auto* files = journal.child<QTableWidget>("filesTable");
        QCOMPARE(comments->count(), 1); // of the first record, at once
        QCOMPARE(files->rowCount(), 0);
        journal.select("REC_TRIP");
        QCOMPARE(comments->count(), 0);
        QCOMPARE(files->rowCount(), 2);
        QCOMPARE(files->item(0, 0)->text(), QStringLiteral("осциллограмма.txt"));
        QCOMPARE(files->item(0, 0)->data(Qt::UserRole).toString(), QStringLiteral("FILE_TEXT"));
        QVERIFY(!files->item(0, 0)->data(Qt::DecorationRole).value<QPixmap>().isNull());
        QCOMPARE(files->item(0, 0)->flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(files->horizontalHeaderItem(0)->text(), QStringLiteral("Наименование"));
        QCOMPARE(files->currentRow(), 0);
    }
};

QTEST_MAIN(LogBookWidget_load_test)
#include "LogBookWidget_load_test.moc"
