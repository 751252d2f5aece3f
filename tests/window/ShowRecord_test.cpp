#include "Filters.h"
#include "JournalWindow.h"
#include "LocationInfo.h"
#include "MDRValues.h"
#include "TestStore.h"

#include <QTableView>
#include <QTabWidget>
#include <QTest>

/// Another module asks the journal to show a record in its shift.
class ShowRecord_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;
    std::unique_ptr<JournalWindow> m_journal;

    void ask(const char* key)
    {
        m_journal->window().slot_modNotify(QStringLiteral("showRecord"), QString::fromLatin1(key));
    }
    QTabWidget* tabs() { return m_journal->child<QTabWidget>("logbooks"); }
    LogBookWidget* front() { return qobject_cast<LogBookWidget*>(tabs()->currentWidget()); }
    QString current()
    {
        MDRVar key;
        const MDRData* record = front()->currentRecord();
        if (record)
            MDRGetVal(MDRFldByName(MDARecArr(record), "KeyLink"), record, &key);
        return QString::fromLatin1(MDRValue::copy(key));
    }
    void write(const char* key, const TestStore::Fields& fields)
    {
        StoreError error;
        QVERIFY2(
            TestStore::write(m_files->openLoader().get(), "LogbookRecords", ROW_INSERT, key, fields, &error),
            qPrintable(error.text));
    }

private slots:
    void init()
    {
        m_files = std::make_unique<TestStore>();
        m_journal = std::make_unique<JournalWindow>(*m_files, QStringLiteral("ivanov"));
    }
    void cleanup()
    {
        m_journal.reset();
        m_files.reset();
    }

    void aRecordOfTheOpenShiftIsShownWhereItIs()
    {
        ask("REC_ORDER");
        QCOMPARE(front(), &m_journal->home());
        QCOMPARE(front()->mode(), 1);
        QCOMPARE(current(), QStringLiteral("REC_ORDER"));
        front()->findChild<QWidget*>(QStringLiteral("commentsList"))->setFocus();
        ask("REC_TRIP"); // arrow keys go on from there
        QCOMPARE(m_journal->window().focusWidget()->objectName(), QStringLiteral("recordsTable"));
    }

    void aRecordOfAPastShiftBringsItsShift()
    {
        ask("REC_PAST_2");
        QCOMPARE(front()->mode(), 3);
        QCOMPARE(front()->workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
        QCOMPARE(current(), QStringLiteral("REC_PAST_2"));
        QCOMPARE(m_journal->status(), QStringLiteral("Просмотр записей смены"));
        ask("REC_PAST_1"); // the shift is already shown
        QCOMPARE(current(), QStringLiteral("REC_PAST_1"));
        ask("REC_TRIP");
        QCOMPARE(front()->workshiftKeyLink(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(current(), QStringLiteral("REC_TRIP"));
        front()->uploadRecordsIn(QDateTime::currentDateTime().addDays(-3), QDateTime::currentDateTime());
        ask("REC_PAST_2"); // also from an interval that contains it
        QCOMPARE(front()->workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
    }

    void aRecordOfAnotherDepartmentGetsItsTab()
    {
        ask("REC_ZAR");
        QCOMPARE(tabs()->count(), 2);
        QCOMPARE(front()->location()->departmentKey(), QStringLiteral("DEP_ZAR"));
        QCOMPARE(current(), QStringLiteral("REC_ZAR"));
        QCOMPARE(m_journal->home().mode(), 1);
        ask("REC_ORDER");
        QCOMPARE(front(), &m_journal->home());
        ask("REC_ZAR");
        QCOMPARE(tabs()->count(), 2);
        QCOMPARE(current(), QStringLiteral("REC_ZAR"));
    }

    void aDraftThatWasLeftBehindIsShownWhenItIsAskedFor()
    {
        write("LEFT", {{"ShiftKey", "SHIFT_CDS_PAST"},
                       {"WorkerKey", "WORKER_PETROV"},
                       {"recordTime", TestStore::now() - 80000},
                       {"status", 1},
                       {"html", "Забытый черновик"}});
        write("OTHER", {{"ShiftKey", "SHIFT_CDS_PAST"},
                        {"recordTime", TestStore::now() - 80000},
                        {"status", 1},
                        {"html", "Другой черновик"}});
        ask("LEFT");
        QCOMPARE(current(), QStringLiteral("LEFT"));
        const auto rows = [this] {
            return m_journal->child<QTableView>("recordsTable")->model()->rowCount();
        };
        QCOMPARE(rows(), 3); // the other draft stays hidden
        ask("REC_PAST_1");
        QCOMPARE(rows(), 2);
        ask("LEFT");
        front()->uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        QCOMPARE(rows(), 2); // the next load is as usual
    }

    void aRecordThatIsGoneIsSaid()
    {
        ask("NO_SUCH");
        QVERIFY(m_journal->box());
        QCOMPARE(front()->mode(), 1);
        m_journal->answer(QDialogButtonBox::AcceptRole);
        ask("' OR '' = '");
        QVERIFY(m_journal->box());
        m_journal->answer(QDialogButtonBox::AcceptRole);
        ask("NO'SUCH");
        QVERIFY(m_journal->box());
        QCOMPARE(m_journal->client().takeFailures(), QStringList());
    }

    void anOpenQuestionKeepsItsRecord()
    {
        m_journal->select("REC_ORDER");
        m_journal->trigger("deleteRecordAction");
        QVERIFY(m_journal->box());
        ask("REC_TRIP");
        QCOMPARE(current(), QStringLiteral("REC_ORDER"));
        QVERIFY(m_journal->box());
        m_journal->answer(QDialogButtonBox::NoRole);
        ask("REC_TRIP");
        QCOMPARE(current(), QStringLiteral("REC_TRIP"));
    }

    void aJournalThatDidNotStartShowsNothing()
    {
        CVrkLogBook window(&m_journal->client().app());
        window.slot_modNotify(QStringLiteral("showRecord"), QStringLiteral("REC_TRIP"));
        QVERIFY(!window.findChild<CPopMessageBox*>());
    }

    void unknownNoticesArePassedOver()
    {
        m_journal->select("REC_ORDER");
        m_journal->window().slot_modNotify(QStringLiteral("somethingElse"), QStringLiteral("REC_TRIP"));
        QCOMPARE(current(), QStringLiteral("REC_ORDER"));
        QCOMPARE(front()->mode(), 1);
        QVERIFY(!m_journal->box());
    }
};

QTEST_MAIN(ShowRecord_test)
#include "ShowRecord_test.moc"
