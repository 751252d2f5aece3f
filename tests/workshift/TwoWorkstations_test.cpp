#include "HtmlParser.h"
#include "JournalWindow.h"
#include "LogWatch.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTableWidget>
#include <QTest>

/// Two dispatchers of one department at two workstations, each with a session and a journal window of his own over one
/// store: what one does shows at the other's, and of two who do the same the store lets one.
class TwoWorkstations_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static int count(const TestStore& store, const char* table, const char* where)
    {
        const QString sql = QStringLiteral("SELECT count(*) FROM %1 WHERE %2");
        return store.value(sql.arg(QLatin1String(table), QLatin1String(where))).toInt();
    }
    static QDateTime time(const TestStore& store, const char* field)
    {
        const QString sql = QStringLiteral("SELECT %1 FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'");
        return QDateTime::fromSecsSinceEpoch(store.value(sql.arg(QLatin1String(field))).toLongLong());
    }
    static int status(const TestStore& store, const char* record)
    {
        const QVariant found =
            store.value(QStringLiteral("SELECT status FROM LogbookRecords WHERE KeyLink='%1'")
                            .arg(QLatin1String(record)));
        return found.isNull() ? -1 : found.toInt();
    }
    /// The shift of the department closed before anybody came.
    static void closeShift(const TestStore& store)
    {
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                                 {{"CloseWorkerKey", "WORKER_IVANOV"}}));
    }
    static QPushButton* button(const QWidget* dialog, const char* name)
    {
        return JournalWindow::childOf<QPushButton>(dialog, name);
    }
    /// What the session and the journal have said of failures; both are expected.
    QStringList takeLines(const char* ofClass)
    {
        const QStringList lines = m_log->take(QLatin1String(ofClass));
        m_log->take(QStringLiteral("CVrkCliSes"));
        return lines;
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void aShiftOpenedHereShowsOpenThere()
    {
        const TestStore store;
        closeShift(store);
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        JournalWindow sidorova(store, QStringLiteral("sidorova"));
        for (JournalWindow* one : {&ivanov, &petrov, &sidorova}) {
            QCOMPARE(one->status(), QStringLiteral("Смена закрыта"));
            QVERIFY(one->isEnabled("openWorkshiftAction"));
            QVERIFY(!one->isEnabled("closeWorkshiftAction"));
        }
        const QDateTime start = time(store, "endTime");
        ivanov.requestOpening(start);
        ivanov.choose(ivanov.opening(), "WORKER_PETROV");
        button(ivanov.opening(), "applyButton")->click();

        // The event loop alone brings it: nobody loads anything.
        const QString open = QStringLiteral("Смена открыта, редактирование разрешено");
        QTRY_COMPARE(petrov.status(), open);
        QTRY_COMPARE(ivanov.status(), open);
        QTRY_COMPARE(sidorova.status(), QStringLiteral("Смена открыта, редактирование запрещено"));
        const QString format = QStringLiteral("dd.MM.yyyy hh:mm");
        const QString shift = ivanov.home().workshiftKeyLink();
        const QString record =
            store.value(QStringLiteral("SELECT KeyLink FROM LogbookRecords WHERE ShiftKey='%1'").arg(shift))
                .toString();
        for (JournalWindow* one : {&petrov, &sidorova}) {
            QTRY_VERIFY(one->record(record));
            QCOMPARE(one->home().workshiftKeyLink(), shift);
            QCOMPARE(one->interval(), QStringLiteral("Смена: %1 - %2")
                                          .arg(start.toString(format), start.addDays(1).toString(format)));
            QVERIFY(!one->isEnabled("openWorkshiftAction"));
            QVERIFY(one->isEnabled("closeWorkshiftAction"));
        }
        QVERIFY(petrov.child<QWidget>("createButton")->isEnabled());
        QVERIFY(!sidorova.child<QWidget>("createButton")->isEnabled());
    }

    void aShiftClosedHereShowsClosedThere()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        petrov.home().createRecordRequest(); // he is about to write
        auto* creator = petrov.window().findChild<QWidget*>(QStringLiteral("RecordCreatorDialog"));
        QVERIFY(creator && creator->isVisible());
        ivanov.requestClosing(QDialogButtonBox::YesRole);
        JournalWindow::type(ivanov.closing(), 0, QStringLiteral("Иванов Иван Иванович"));
        button(ivanov.closing(), "closeWorkshiftButton")->click();
        QTRY_COMPARE(petrov.status(), QStringLiteral("Смена закрыта"));
        QVERIFY(!creator->isVisible());
        QVERIFY(petrov.isEnabled("openWorkshiftAction"));
        QVERIFY(!petrov.child<QWidget>("createButton")->isEnabled());
    }

    void ofTwoWhoOpenTheSameShiftOneDoes()
    {
        const TestStore store;
        closeShift(store);
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        const QDateTime start = time(store, "endTime");
        for (JournalWindow* one : {&ivanov, &petrov}) {
            one->requestOpening(start);
            QVERIFY(button(one->opening(), "applyButton")->isEnabled());
        }
        const int crew = count(store, "LogbookWorkersWorkshift", "1=1");
        const int records = count(store, "LogbookRecords", "1=1");
        button(ivanov.opening(), "applyButton")->click();
        QSignalSpy error(petrov.opening(), &OpenWorkshiftDialog::error);
        button(petrov.opening(), "applyButton")->click(); // he has not heard of it yet
        QVERIFY(!petrov.opening()->isVisible());
        QCOMPARE(error.count(), 1);
        QCOMPARE(error[0][1].toString(), QStringLiteral("Произошла внутренняя ошибка при открытии смены!"));
        QCOMPARE(petrov.client().takeFailures(),
                 QStringList{QStringLiteral(
                     "Смена не может начаться раньше окончания предыдущей смены подразделения.")});
        const QStringList lines = takeLines("OpenWorkshiftDialog");
        QCOMPARE(lines.size(), 1);
        QVERIFY(lines[0].contains(QStringLiteral("OpenWorkerKey[WORKER_PETROV]")));

        QCOMPARE(count(store, "LogbookWorkshifts", "OpenWorkerKey='WORKER_PETROV'"), 0);
        QCOMPARE(count(store, "LogbookWorkersWorkshift", "1=1"), crew + 1);
        QCOMPARE(count(store, "LogbookRecords", "1=1"), records + 1);
        QTRY_COMPARE(petrov.status(), QStringLiteral("Смена открыта, редактирование запрещено"));
        QCOMPARE(petrov.home().workshiftKeyLink(), ivanov.home().workshiftKeyLink());
    }

    void theOpeningDialogClosesWhenAnotherWasFaster()
    {
        const TestStore store;
        closeShift(store);
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        for (JournalWindow* one : {&ivanov, &petrov})
            one->requestOpening(time(store, "endTime"));
        button(ivanov.opening(), "applyButton")->click();
        QTRY_VERIFY(!petrov.opening()->isVisible());
        QVERIFY(petrov.client().takeFailures().isEmpty());
    }

    // Two open ones may stand where the second begins when the first one is to end.
    void aShiftAfterTheOtherMayBeOpenedAsWell()
    {
        const TestStore store;
        closeShift(store);
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        const QDateTime start = time(store, "endTime");
        ivanov.requestOpening(start);
        petrov.requestOpening(start.addDays(1));
        button(ivanov.opening(), "applyButton")->click();
        button(petrov.opening(), "applyButton")->click();
        QVERIFY(petrov.client().takeFailures().isEmpty());
        QCOMPARE(count(store, "LogbookWorkshifts", "DepartmentKey='DEP_CDS' AND CloseWorkerKey IS NULL"), 2);
        const QString newest =
            store
                .value(QStringLiteral(
                    "SELECT KeyLink FROM LogbookWorkshifts WHERE OpenWorkerKey='WORKER_PETROV'"))
                .toString();
        QTRY_COMPARE(ivanov.home().workshiftKeyLink(), newest);
        QTRY_COMPARE(petrov.home().workshiftKeyLink(), newest);
    }

    void ofTwoWhoCloseTheSameShiftOneDoes()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        const int records = count(store, "LogbookRecords", "ShiftKey='SHIFT_CDS_OPEN'");
        ivanov.requestClosing(QDialogButtonBox::NoRole);
        petrov.requestClosing(QDialogButtonBox::YesRole); // and wants the drafts approved
        JournalWindow::type(ivanov.closing(), 0, QStringLiteral("Иванов"));
        JournalWindow::type(petrov.closing(), 0, QStringLiteral("Петров"));
        ivanov.choose(ivanov.closing(), "WORKER_SIDOROVA");
        petrov.choose(petrov.closing(), "WORKER_IVANOV");
        button(ivanov.closing(), "closeWorkshiftButton")->click();
        QSignalSpy error(petrov.closing(), &CloseWorkshiftDialog::error);
        button(petrov.closing(), "closeWorkshiftButton")->click();
        QVERIFY(!petrov.closing()->isVisible());
        QCOMPARE(error.count(), 1);
        QCOMPARE(error[0][1].toString(), QStringLiteral("Не удалось создать запись о закрытии смены!"));
        // Neither the approvals nor the record were taken; the shift and the takers-over were not tried.
        QCOMPARE(petrov.client().takeFailures(),
                 QStringList({QStringLiteral("Записи изменяют работники открытой смены."),
                              QStringLiteral("Записи вносят работники открытой смены.")}));
        QCOMPARE(takeLines("CloseWorkshiftDialog").size(), 2);
        QCOMPARE(count(store, "LogbookRecords", "ShiftKey='SHIFT_CDS_OPEN'"), records + 1);
        QCOMPARE(count(store, "LogbookRecords", "ShiftKey='SHIFT_CDS_OPEN' AND status=1"), 2);
        QCOMPARE(count(store, "LogbookWorkshifts", "CloseWorkerKey='WORKER_PETROV'"), 0);
        QCOMPARE(count(store, "LogbookWorkersWorkshift", "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"), 1);
        QTRY_COMPARE(petrov.status(), QStringLiteral("Смена закрыта"));
    }

    void anApprovedDraftCannotBeDeletedElsewhere()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        for (JournalWindow* one : {&ivanov, &petrov})
            one->select("REC_DRAFT_IVANOV");
        ivanov.trigger("approveRecordAction");
        petrov.trigger("deleteRecordAction"); // a draft still, as far as he knows: no question
        QCOMPARE(status(store, "REC_DRAFT_IVANOV"), 0);
        QVERIFY(petrov.box());
        QCOMPARE(petrov.box()->title(), QStringLiteral("Ошибка удаления записи"));
        QVERIFY(petrov.box()->text().contains(QStringLiteral("Не удалось удалить запись!")));
        QCOMPARE(petrov.client().takeFailures(),
                 QStringList{QStringLiteral("Удалить можно только черновик.")});
        QCOMPARE(takeLines("LogBookWidget"),
                 QStringList{QStringLiteral("void LogBookWidget::deleteRecordRequest() failed delete record "
                                            "REC_DRAFT_IVANOV with status 1 from table LogbookRecords")});
        petrov.box()->close();
        petrov.deliver();
        QVERIFY(!petrov.isEnabled("approveRecordAction"));
        QVERIFY(petrov.isEnabled("deleteRecordAction")); // now with the question
        petrov.trigger("deleteRecordAction");
        QCOMPARE(petrov.box()->title(), QStringLiteral("Удаление утвержденной записи"));
        petrov.answer(QDialogButtonBox::YesRole);
        QCOMPARE(status(store, "REC_DRAFT_IVANOV"), 2);
    }

    void aDeletedDraftCannotBeApprovedElsewhere()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        for (JournalWindow* one : {&ivanov, &petrov})
            one->select("REC_DRAFT_IVANOV");
        ivanov.trigger("deleteRecordAction");
        petrov.trigger("approveRecordAction");
        QCOMPARE(status(store, "REC_DRAFT_IVANOV"), -1);
        QVERIFY(petrov.box());
        QCOMPARE(petrov.box()->title(), QStringLiteral("Ошибка"));
        QVERIFY(petrov.box()->text().contains(QStringLiteral("Не удалось утвердить запись!")));
        QCOMPARE(takeLines("LogBookWidget"),
                 QStringList{QStringLiteral("void LogBookWidget::approveRecord() error approve record! Data: "
                                            "Table(LogbookRecords), KeyLink(REC_DRAFT_IVANOV)")});
        QCOMPARE(petrov.client().takeFailures().size(), 1);
        petrov.box()->close();
        petrov.deliver();
        QVERIFY(!petrov.record(QStringLiteral("REC_DRAFT_IVANOV")));
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), 1);
    }

    void theEntriesForDraftsGoOffWithTheLastDraft()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        petrov.select("REC_ORDER"); // he is at another record when the drafts go
        ivanov.trigger("deleteAllDraftsAction");
        petrov.deliver();
        for (const char* action : {"approveMyRecordsAction", "approveAllRecordsAction",
                                   "deleteMyDraftsAction", "deleteAllDraftsAction"})
            QVERIFY2(!petrov.isEnabled(action), action);
        QVERIFY(!petrov.child<QWidget>("approveButton")->isEnabled());
        QVERIFY(petrov.isEnabled("deleteRecordAction"));
    }

    // All or nothing: what is gone by now keeps the others from being approved, and says so.
    void approvingAllFailsWholeWhenOneIsGone()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        ivanov.trigger("deleteMyDraftsAction");
        petrov.trigger("approveAllRecordsAction");
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), 1);
        QCOMPARE(petrov.box()->title(), QStringLiteral("Ошибка"));
        QVERIFY(petrov.box()->text().contains(QStringLiteral("Не удалось утвердить записи!")));
        QCOMPARE(
            takeLines("LogBookWidget"),
            QStringList{QStringLiteral("void LogBookWidget::approveAllRecordsRequest() error approve users "
                                       "records! Data: Table(LogbookRecords) ")});
        petrov.box()->close();
        petrov.deliver();
        petrov.trigger("approveAllRecordsAction");
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), 0);
    }

    void deletingAllFailsWholeWhenOneIsApproved()
    {
        const TestStore store;
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        ivanov.trigger("approveMyRecordsAction");
        petrov.trigger("deleteAllDraftsAction");
        QCOMPARE(status(store, "REC_DRAFT_IVANOV"), 0);
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), 1);
        QVERIFY(petrov.box()->text().contains(QStringLiteral("Не удалось удалить черновые записи!")));
        QCOMPARE(takeLines("LogBookWidget").size(), 1);
        petrov.box()->close();
        petrov.deliver();
        petrov.trigger("deleteAllDraftsAction");
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), -1);
    }

    // The answer acts on the record that is current when it comes. The record that was asked about has gone, and none has
    // taken its place.
    void anAnswerNeverHitsTheNeighbourOfADeletedRecord()
    {
        const TestStore store;
        HtmlParser html("Включить выключатель");
        html.setTemplateProperty("time_exec", std::string("true"));
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                 {{"html", QString::fromStdString(html.readyHtml(true))}}));
        JournalWindow ivanov(store, QStringLiteral("ivanov"));
        JournalWindow petrov(store, QStringLiteral("petrov"));
        ivanov.select("REC_DRAFT_IVANOV");
        petrov.select("REC_DRAFT_IVANOV");
        petrov.trigger("approveRecordAction");
        QCOMPARE(petrov.box()->title(), QStringLiteral("Утверждение записи"));
        ivanov.trigger("deleteRecordAction");
        QTRY_VERIFY(!petrov.record(QStringLiteral("REC_DRAFT_IVANOV")));
        petrov.answer(QDialogButtonBox::YesRole);
        QCOMPARE(status(store, "REC_DRAFT_PETROV"), 1);
        QVERIFY(petrov.client().takeFailures().isEmpty());
        QVERIFY(!petrov.box());
    }
};

QTEST_MAIN(TwoWorkstations_test)
#include "TwoWorkstations_test.moc"
