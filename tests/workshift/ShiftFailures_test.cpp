#include "FailingStore.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "JournalWindow.h"
#include "LogWatch.h"
#include "Row.h"

#include <QDateEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

/// Each write of opening and closing a shift, refused by the database: the state of the journal afterwards,
/// the log lines, the message in the status line, and that the text is offered again. The departments are
/// those of the standard journal: ОДС has no shift yet, that of ЦДС is open and has two drafts.
class ShiftFailures_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;
    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<JournalWindow> m_window;

    static QString refusal() { return QStringLiteral("broken"); }
    static QString opening()
    {
        return QStringLiteral("void OpenWorkshiftDialog::openWorkshift(CVrkCliMod*) ");
    }
    static QString closing() { return QStringLiteral("void CloseWorkshiftDialog::apply() "); }
    static QString internalOpening()
    {
        return QStringLiteral("Произошла внутренняя ошибка при открытии смены!");
    }

    void refuse(const char* operation, const char* table)
    {
        QCOMPARE(m_store->refuse(QLatin1String(operation), QLatin1String(table)), QString());
    }
    void permit(const char* operation, const char* table)
    {
        QCOMPARE(m_store->permit(QLatin1String(operation), QLatin1String(table)), QString());
    }
    int count(const char* table, const char* where = "1=1") const
    {
        const QString sql = QStringLiteral("SELECT count(*) FROM %1 WHERE %2");
        return m_store->value(sql.arg(QLatin1String(table), QLatin1String(where))).toInt();
    }
    int newShifts() const { return count("LogbookWorkshifts", "DepartmentKey='DEP_ODS'"); }
    int newCrew() const
    {
        return count("LogbookWorkersWorkshift",
                     "WorkshiftKey NOT IN ('SHIFT_CDS_OPEN','SHIFT_CDS_PAST','SHIFT_ZAR_OPEN')");
    }
    int drafts() const { return count("LogbookRecords", "ShiftKey='SHIFT_CDS_OPEN' AND status=1"); }
    QString closedBy() const
    {
        return m_store
            ->value(
                QStringLiteral("SELECT CloseWorkerKey FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'"))
            .toString();
    }
    /// Appends a free text parameter to a template: the dispatcher's text there is not filled in
    /// automatically.
    void addField(const char* key)
    {
        const QString sql = QStringLiteral("SELECT html FROM LogbookTemplates WHERE KeyLink='%1'");
        const QString field = QString::fromStdString(
            HtmlParser::createParameter({{"name", "text"}, {"locname", "Схема"}}, "Схема"));
        const QString html = m_store->value(sql.arg(QLatin1String(key))).toString() + field;
        QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookTemplates", ROW_UPDATE, key,
                                 {{"html", html}}));
    }
    static QString text() { return QStringLiteral("Схема нормальная, замечаний нет"); }

    void startOpening()
    {
        addField("TPL_OPEN");
        m_window = std::make_unique<JournalWindow>(*m_store, QStringLiteral("smirnov"), "DEP_ODS");
        m_window->requestOpening(start());
        m_window->choose(m_window->opening(), "WORKER_PETROV");
        JournalWindow::type(m_window->opening(), 2, text());
    }
    static QDateTime start() { return QDateTime(QDate::currentDate(), QTime(6, 0)); }
    void startClosing(QDialogButtonBox::ButtonRole approve)
    {
        addField("TPL_CLOSE");
        m_window = std::make_unique<JournalWindow>(*m_store, QStringLiteral("ivanov"));
        m_window->requestClosing(approve);
        JournalWindow::type(m_window->closing(), 0, QStringLiteral("Иванов Иван Иванович"));
        JournalWindow::type(m_window->closing(), 1, text());
        m_window->choose(m_window->closing(), "WORKER_PETROV");
    }
    /// Presses the button and compares the dialog's message; an empty text means none.
    void apply(CPopTemplate* dialog, const char* button, const QString& title, const QString& message)
    {
        QSignalSpy error(dialog, SIGNAL(error(QString, QString)));
        auto* apply = JournalWindow::childOf<QPushButton>(dialog, button);
        QVERIFY(apply->isEnabled());
        m_window->client().takeFailures();
        QTest::mouseClick(apply, Qt::LeftButton);
        QVERIFY(!dialog->isVisible());
        QVERIFY(!m_window->box()); // the status line shows it
        QCOMPARE(error.count(), message.isEmpty() ? 0 : 1);
        if (message.isEmpty())
            return;
        QCOMPARE(error[0][0].toString(), title);
        QCOMPARE(error[0][1].toString(), message);
    }
    void applyOpening(const QString& message)
    {
        apply(m_window->opening(), "applyButton", QStringLiteral("Ошибка открытия смены"), message);
    }
    void applyClosing(const QString& message)
    {
        apply(m_window->closing(), "closeWorkshiftButton", QStringLiteral("Ошибка закрытия смены"), message);
    }
    /// The dialog's log lines, exactly except for keys that differ in each run ("<key>") and the second of
    /// writing ("<now>"), and the session's own lines with them.
    void compareLog(const QStringList& expected)
    {
        const QStringList lines = m_log->take(QStringLiteral("WorkshiftDialog"));
        m_log->take(QStringLiteral("CVrkCliSes"));
        QCOMPARE(lines.size(), expected.size());
        for (int i = 0; i < lines.size(); ++i) {
            QString pattern = QRegularExpression::escape(expected[i]);
            pattern.replace(QRegularExpression::escape(QStringLiteral("<key>")),
                            QStringLiteral("[0-9A-F]{32}"));
            pattern.replace(QRegularExpression::escape(QStringLiteral("<now>")),
                            QStringLiteral("1[.][0-9]+e[+]09"));
            const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern),
                                           QRegularExpression::DotMatchesEverythingOption);
            QVERIFY2(whole.match(lines[i]).hasMatch(),
                     qPrintable(lines[i] + QStringLiteral("\nis not\n") + expected[i]));
        }
    }
    static QString number(const QDateTime& time)
    {
        return QStringLiteral("%1").arg(double(time.toSecsSinceEpoch()), 0, 'g', -1);
    }
    /// The line of the record about opening or closing; \a separators differ between them.
    static QString recordLine(const QString& begin, const QString& shift, const QString& worker,
                              const QString& time, const QString& html, bool isClosing)
    {
        const QString comma = isClosing ? QStringLiteral(",") : QStringLiteral(", ");
        return begin + QStringLiteral("Data: Table[LogbookRecords]: KeyLink[<key>], ShiftKey[") + shift +
               QStringLiteral("], WorkerKey[") + worker +
               QStringLiteral("], VisaWorkerKey[NULL], ReceiverWorkerKey[NULL]") + comma +
               QStringLiteral("SecondMarkWorkerKey[NULL], recordTime[") + time +
               QStringLiteral("], eventTime[") + time + QStringLiteral("], firstMarkTime[NULL]") + comma +
               QStringLiteral("secondMarkTime[NULL], executionTime[NULL], html[") + html +
               QStringLiteral("], status[0]") + (isClosing ? QStringLiteral(",") : QString());
    }
    QString openingRecordLine(const QString& html) const
    {
        return recordLine(opening() + QStringLiteral("error create record about opening workshift! "
                                                     "SqlUpdate returned FALSE! "),
                          QStringLiteral("<key>"), QStringLiteral("WORKER_SMIRNOV_ODS"),
                          QStringLiteral("<now>"), html, false);
    }
    /// The dialog shows the typed text again, and opens the shift if nothing prevents it.
    void openAgain()
    {
        m_window->deliver();
        QVERIFY(m_window->child<QAction>("openWorkshiftAction")->isEnabled());
        m_window->trigger("openWorkshiftAction");
        QVERIFY(m_window->opening()->isVisible());
        QVERIFY(JournalWindow::filled(m_window->opening()).contains(text()));
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
        m_store = std::make_unique<TestStore>();
    }
    void cleanup()
    {
        m_window.reset();
        m_store.reset();
        QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString());
    }

    void aRefusedShiftWritesNothing()
    {
        startOpening();
        refuse("INSERT", "LogbookWorkshifts");
        const int records = count("LogbookRecords");
        applyOpening(internalOpening());
        compareLog({opening() +
                    QStringLiteral("error open workshift! SqlUpdate returned FALSE! Data: "
                                   "Table[LogbookWorkshifts]: KeyLink[<key>], DepartmentKey[DEP_ODS], "
                                   "OpenWorkerKey[WORKER_SMIRNOV_ODS], CloseWorkerKey[NULL], startTime[") +
                    number(start()) + QStringLiteral("], endTime[") + number(start().addDays(1)) +
                    QStringLiteral("],")});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(newShifts(), 0);
        QCOMPARE(newCrew(), 0);
        QCOMPARE(count("LogbookRecords"), records);

        permit("INSERT", "LogbookWorkshifts");
        openAgain();
        applyOpening(QString());
        QCOMPARE(newShifts(), 1);
        m_window->deliver();
        QVERIFY(m_window->home().isOpenWorkshift());
    }

    void aRefusedCrewTakesTheShiftBack()
    {
        startOpening();
        refuse("INSERT", "LogbookWorkersWorkshift");
        applyOpening(internalOpening());
        compareLog({opening() + QStringLiteral("error open workshift! SqlUpdate returned FALSE! Data: "
                                               "Table[LogbookWorkersWorkshift]")});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(newShifts(), 0);
        QCOMPARE(newCrew(), 0);
    }

    void aRefusedRecordTakesShiftAndCrewBack()
    {
        startOpening();
        const QString html = JournalWindow::filled(m_window->opening());
        refuse("INSERT", "LogbookRecords");
        applyOpening(QStringLiteral("Не удалось создать запись об открытии смены!"));
        compareLog({openingRecordLine(html)});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(newShifts(), 0);
        QCOMPARE(newCrew(), 0);
        m_window->deliver();
        QVERIFY(m_window->home().isOpenWorkshift()); // until another period is shown
        m_window->home().uploadRecordsIn(start(), start().addDays(1));
        m_window->trigger("currentWorkshiftAction");
        openAgain();
    }

    // The compensation is best effort: rows that it cannot remove stay, and no further line reports it.
    void aShiftThatCannotBeTakenBackStays()
    {
        startOpening();
        refuse("INSERT", "LogbookWorkersWorkshift");
        refuse("DELETE", "LogbookWorkshifts");
        applyOpening(internalOpening());
        compareLog({opening() + QStringLiteral("error open workshift! SqlUpdate returned FALSE! Data: "
                                               "Table[LogbookWorkersWorkshift]")});
        QCOMPARE(m_window->client().takeFailures().size(), 2);
        QCOMPARE(newShifts(), 1);
        QCOMPARE(newCrew(), 0);
        m_window->deliver();
        QVERIFY(m_window->home().isOpenWorkshift()); // the user is its opener and may work it
        QCOMPARE(m_window->status(), QStringLiteral("Смена открыта, редактирование разрешено"));
    }

    void theCrewIsTakenBackEvenWhenTheShiftCannotBe()
    {
        startOpening();
        const QString html = JournalWindow::filled(m_window->opening());
        refuse("INSERT", "LogbookRecords");
        refuse("DELETE", "LogbookWorkshifts");
        applyOpening(QStringLiteral("Не удалось создать запись об открытии смены!"));
        compareLog({openingRecordLine(html)});
        QCOMPARE(m_window->client().takeFailures().size(), 2);
        QCOMPARE(newShifts(), 1);
        QCOMPARE(newCrew(), 0);
    }

    // Crew rows go with their shift: when they may not go, the shift stays as well.
    void aCrewThatCannotBeTakenBackKeepsItsShift()
    {
        startOpening();
        const QString html = JournalWindow::filled(m_window->opening());
        refuse("INSERT", "LogbookRecords");
        refuse("DELETE", "LogbookWorkersWorkshift");
        applyOpening(QStringLiteral("Не удалось создать запись об открытии смены!"));
        compareLog({openingRecordLine(html)});
        QCOMPARE(m_window->client().takeFailures().size(), 3);
        QCOMPARE(newShifts(), 1);
        QCOMPARE(newCrew(), 2);
    }

    void refusedApprovalsDoNotStopTheClosing()
    {
        startClosing(QDialogButtonBox::YesRole);
        refuse("UPDATE", "LogbookRecords");
        applyClosing(QString());
        compareLog(
            {closing() + QStringLiteral("error create record about closing workshift! SqlUpdate returned "
                                        "FALSE! Table: LogbookRecords")});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(drafts(), 2);
        QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(count("LogbookWorkersWorkshift", "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"), 1);
    }

    void aRefusedRecordLeavesTheShiftOpen()
    {
        startClosing(QDialogButtonBox::YesRole);
        const QString html = JournalWindow::filled(m_window->closing());
        const QDateTime event(
            JournalWindow::childOf<QDateEdit>(m_window->closing(), "eventDateEdit")->date(),
            JournalWindow::childOf<QTimeEdit>(m_window->closing(), "eventTimeEdit")->time());
        refuse("INSERT", "LogbookRecords");
        const int records = count("LogbookRecords");
        applyClosing(QStringLiteral("Не удалось создать запись о закрытии смены!"));
        compareLog({recordLine(closing() + QStringLiteral("error create record about closing workshift! "
                                                          "SqlUpdate returned FALSE! "),
                               QStringLiteral("SHIFT_CDS_OPEN"), QStringLiteral("WORKER_IVANOV"),
                               number(event), html, true)});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(count("LogbookRecords"), records);
        QCOMPARE(drafts(), 0);
        QCOMPARE(closedBy(), QString());
        QCOMPARE(count("LogbookWorkersWorkshift", "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"), 0);

        permit("INSERT", "LogbookRecords");
        m_window->deliver();
        m_window->requestClosing();
        QVERIFY(JournalWindow::filled(m_window->closing()).contains(text()));
        applyClosing(QString());
        QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(count("LogbookRecords"), records + 1);
    }

    void aRefusedShiftLeavesTheRecordAndOffersTheTextAgain()
    {
        startClosing(QDialogButtonBox::NoRole);
        refuse("UPDATE", "LogbookWorkshifts");
        const int records = count("LogbookRecords");
        applyClosing(QStringLiteral("Произошла внутренняя ошибка при закрытии смены!"));
        compareLog(
            {closing() + QStringLiteral("failed closing workshift! SqlUpdate returned FALSE! Data: "
                                        "Table[LogbookWorkshifts],KeyLink[SHIFT_CDS_OPEN],CloseWorkerKey["
                                        "WORKER_IVANOV]")});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(count("LogbookRecords"), records + 1);
        QCOMPARE(drafts(), 2);
        QCOMPARE(closedBy(), QString());
        QCOMPARE(count("LogbookWorkersWorkshift", "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"), 0);

        m_window->deliver();
        m_window->requestClosing();
        QVERIFY(JournalWindow::filled(m_window->closing()).contains(text()));
    }

    void refusedTakersOverLeaveTheShiftClosed()
    {
        startClosing(QDialogButtonBox::NoRole);
        refuse("INSERT", "LogbookWorkersWorkshift");
        applyClosing(QStringLiteral("Произошла внутренняя ошибка при закрытии смены!"));
        compareLog({closing() + QStringLiteral("failed closing workshift! SqlUpdate returned FALSE! Data: "
                                               "Table[LogbookWorkshifts]")});
        QCOMPARE(m_window->client().takeFailures(), QStringList{refusal()});
        QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(count("LogbookWorkersWorkshift", "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"), 0);
        m_window->deliver();
        QVERIFY(m_window->home().isCloseWorkshift());
    }

    void aClosingThatSucceedsForgetsItsText()
    {
        startClosing(QDialogButtonBox::NoRole);
        applyClosing(QString());
        compareLog({});
        m_window->closing()->show(); // another shift would be closed
        QVERIFY(!JournalWindow::filled(m_window->closing()).contains(text()));
        m_window->closing()->close();
    }

    // The row to close carries the shift as it was; only the closer is marked.
    void theWrittenRowCarriesTheWholeShift()
    {
        struct Seeing : FailingStore {
            using FailingStore::FailingStore;
            bool apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey,
                       StoreError* error) override
            {
                for (const StoreWrite& write : writes)
                    if (write.table == "LogbookWorkshifts")
                        start = Row(MDARec(write.records, 0, 0)).value(Field::startTime).value.real;
                return FailingStore::apply(writes, batchKey, error);
            }
            double start = 0;
        };
        addField("TPL_CLOSE");
        auto seeing = std::make_unique<Seeing>(m_store->open(QStringLiteral("ivanov")),
                                               std::make_shared<FailingStore::Plan>());
        const Seeing& seen = *seeing;
        m_window = std::make_unique<JournalWindow>(std::move(seeing), QStringLiteral("ivanov"),
                                                   QStringLiteral("DEP_CDS"), QStringLiteral("ORG_NETS"));
        m_window->requestClosing(QDialogButtonBox::NoRole);
        JournalWindow::type(m_window->closing(), 0, QStringLiteral("Иванов Иван Иванович"));
        JournalWindow::type(m_window->closing(), 1, text());
        applyClosing(QString());
        QCOMPARE(seen.start,
                 m_store
                     ->value(QStringLiteral(
                         "SELECT startTime FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'"))
                     .toDouble());
    }
};

QTEST_MAIN(ShiftFailures_test)
#include "ShiftFailures_test.moc"
