#include "AppendWorkerDialog.h"
#include "DateTimeRangeDialog.h"
#include "HtmlParser.h"
#include "KeptTexts.h"
#include "LogWatch.h"
#include "MDRValues.h"
#include "Minimised.h"
#include "OrgStructDialog.h"
#include "TestJournal.h"
#include "WorkshiftInfoDialog.h"
#include "WorkshiftsDialog.h"

#include <QDateEdit>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

/// The period of a page, the information about its shift, and workers added to the running one: through the
/// dialogs, on a real store.
class ShiftPeriods_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    template <class Dialog>
    static Dialog* dialog(TestJournal& journal)
    {
        return journal.module().findChild<Dialog*>();
    }
    template <class Widget>
    static Widget* child(const QWidget* parent, const char* name)
    {
        return parent->findChild<Widget*>(QLatin1String(name));
    }
    static QString shown(const TestStore& store, const char* shift, const char* field)
    {
        const QString sql = QStringLiteral("SELECT %1 FROM LogbookWorkshifts WHERE KeyLink='%2'");
        return QDateTime::fromSecsSinceEpoch(
                   store.value(sql.arg(QLatin1String(field), QLatin1String(shift))).toLongLong())
            .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    }
    static void choose(TestJournal& journal, const char* workerKey)
    {
        child<QToolButton>(dialog<AppendWorkerDialog>(journal), "addButton")->click();
        auto* structure = dialog<OrgStructDialog>(journal);
        QVERIFY(structure->isVisible());
        OrgStruct::SelectedItem item;
        item.type = OrgStruct::Person;
        item.worker.keyLink = QLatin1String(workerKey);
        structure->hide();
        emit structure->itemSelected(item);
    }
    static int count(const TestStore& store, const char* table)
    {
        return store.value(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(table))).toInt();
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void anEmptyIntervalCannotBeChosen()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().showDateTimeDialog();
        auto* range = dialog<DateTimeRangeDialog>(journal);
        QVERIFY(range->isVisible());
        auto* apply = child<QPushButton>(range, "applyButton");
        auto* startDate = child<QDateEdit>(range, "startDateEdit");
        auto* startTime = child<QTimeEdit>(range, "startTimeEdit");
        auto* endDate = child<QDateEdit>(range, "endDateEdit");
        QVERIFY(!apply->isEnabled());
        QTest::keyClick(range, Qt::Key_Enter);
        QVERIFY(range->isVisible()); // nothing to apply
        QCOMPARE(journal.tab().mode(), 1);

        startDate->setDate(QDate::currentDate().addDays(-2));
        QVERIFY(apply->isEnabled());
        startDate->setDate(endDate->date());
        startTime->setTime(child<QTimeEdit>(range, "endTimeEdit")->time());
        QVERIFY(!apply->isEnabled());
        startTime->setTime(startTime->time().addSecs(60));
        QVERIFY(!apply->isEnabled());
        QCOMPARE(range->windowTitle(), QStringLiteral("Выбор диапазона времени"));
        QCOMPARE(endDate->maximumDate(), QDate::currentDate());
        auto* endTime = child<QTimeEdit>(range, "endTimeEdit");
        endDate->setDate(QDate::currentDate().addDays(-3)); // a past evening cannot be taken either
        const QTime latest = endTime->maximumTime();
        QVERIFY(latest != QTime(23, 59, 59, 999)); // as an edit without a bound has it
        endTime->setTime(QTime(23, 59));
        QVERIFY(endTime->time() <= latest);
    }

    void anIntervalIsShownAndKept()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().showDateTimeDialog();
        auto* range = dialog<DateTimeRangeDialog>(journal);
        child<QDateEdit>(range, "startDateEdit")->setDate(QDate::currentDate().addDays(-40));
        QSignalSpy loads(&journal.tab(), &LogBookWidget::statusChanged);
        child<QPushButton>(range, "applyButton")->click();
        QVERIFY(!range->isVisible());
        QCOMPARE(journal.tab().mode(), 2);
        QCOMPARE(loads.count(), 1);
        QCOMPARE(journal.tab().displayedPeriodStart().date(), QDate::currentDate().addDays(-40));
        QVERIFY(journal.record("REC_PAST_1"));
        QVERIFY(journal.record("REC_ORDER"));
        QVERIFY(!journal.record("REC_ZAR"));

        // Each showing adds a load to the choice: the second one loads twice. The edits stand as they were left.
        journal.tab().showDateTimeDialog();
        QVERIFY(!child<QPushButton>(range, "applyButton")->isEnabled());
        QCOMPARE(child<QDateEdit>(range, "startDateEdit")->date(), QDate::currentDate().addDays(-40));
        child<QDateEdit>(range, "startDateEdit")->setDate(QDate::currentDate().addDays(-41));
        loads.clear();
        QTest::keyClick(range, Qt::Key_Enter);
        QCOMPARE(loads.count(), 2);
        journal.tab().showDateTimeDialog();
        child<QDateEdit>(range, "startDateEdit")->setDate(QDate::currentDate().addDays(-42));
        loads.clear();
        QTest::keyClick(range, Qt::Key_Enter);
        QCOMPARE(loads.count(), 3);
    }

    void aClosedShiftIsChosen()
    {
        const TestStore store;
        TestJournal journal(store);
        for (int time = 0; time < 2; ++time) {
            journal.tab().showWorkshiftsDialog();
            auto* shifts = dialog<WorkshiftsDialog>(journal);
            auto* list = child<QListWidget>(shifts, "workshiftsList");
            QCOMPARE(list->count(), 1); // the open one is not among them
            QCOMPARE(list->currentRow(), 0);
            QCOMPARE(list->item(0)->text(), shown(store, "SHIFT_CDS_PAST", "startTime") +
                                                QStringLiteral(" - ") +
                                                shown(store, "SHIFT_CDS_PAST", "endTime"));
            QVERIFY(child<QPushButton>(shifts, "applyButton")->isEnabled());
            QSignalSpy loads(&journal.tab(), &LogBookWidget::statusChanged);
            if (time == 0)
                emit list->doubleClicked(list->model()->index(0, 0));
            else
                QTest::keyClick(shifts, Qt::Key_Enter);
            QVERIFY(!shifts->isVisible());
            QCOMPARE(loads.count(), 1); // no old connection remains
            QCOMPARE(journal.tab().mode(), 3);
            QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
            QVERIFY(journal.record("REC_PAST_1"));
        }
    }

    void theNewestClosedShiftIsFirst()
    {
        const TestStore store;
        const auto loader = store.openLoader();
        for (int i = 1; i <= 3; ++i)
            QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT,
                                     "SHIFT_OLD_" + QByteArray::number(i),
                                     {{"DepartmentKey", "DEP_CDS"},
                                      {"OpenWorkerKey", "WORKER_IVANOV"},
                                      {"CloseWorkerKey", "WORKER_IVANOV"},
                                      {"createdAt", 1000.0},
                                      {"startTime", 1000000.0 * i},
                                      {"endTime", 1000000.0 * i + 3600}}));
        TestJournal journal(store);
        journal.tab().showWorkshiftsDialog();
        auto* list = child<QListWidget>(dialog<WorkshiftsDialog>(journal), "workshiftsList");
        QStringList keys;
        for (int row = 0; row < list->count(); ++row)
            keys << list->item(row)->data(Qt::UserRole).toString();
        QCOMPARE(keys, QStringList({QStringLiteral("SHIFT_CDS_PAST"), QStringLiteral("SHIFT_OLD_3"),
                                    QStringLiteral("SHIFT_OLD_2"), QStringLiteral("SHIFT_OLD_1")}));
    }

    void withoutClosedShiftsThereIsNothingToChoose()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        journal.tab().showWorkshiftsDialog();
        auto* shifts = dialog<WorkshiftsDialog>(journal);
        QCOMPARE(child<QListWidget>(shifts, "workshiftsList")->count(), 0);
        QVERIFY(!child<QPushButton>(shifts, "applyButton")->isEnabled());
        QTest::keyClick(shifts, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(shifts->isVisible()); // nothing to apply
        QTest::keyClick(shifts, Qt::Key_Escape);
        QVERIFY(!shifts->isVisible());
    }

    void failuresOfTheListAreLogged()
    {
        const TestStore store;
        TestJournal journal(store);
        auto* shifts = dialog<WorkshiftsDialog>(journal);
        shifts->setDepartmentKey(QString());
        shifts->show();
        QCOMPARE(m_log->take(QStringLiteral("WorkshiftsDialog")),
                 QStringList{QStringLiteral(
                     "void WorkshiftsDialog::reloadWorkshifts() failed upload workshifts: department "
                     "keyLink is empty!")});
        shifts->hide();
        QCOMPARE(store.dropTables({QStringLiteral("LogbookWorkshifts")}), QString());
        shifts->setDepartmentKey(QStringLiteral("DEP_CDS"));
        shifts->show();
        QCOMPARE(
            m_log->take(QStringLiteral("WorkshiftsDialog")),
            QStringList{QStringLiteral(
                "void WorkshiftsDialog::reloadWorkshifts() error SQL query execution [SELECT * FROM "
                "LogbookWorkshifts WHERE DepartmentKey = 'DEP_CDS'        AND CloseWorkerKey <> ''        "
                "AND CloseWorkerKey IS NOT NULL;]")});
        QCOMPARE(child<QListWidget>(shifts, "workshiftsList")->count(), 0);
        m_log->take();
    }

    void informsAboutAnOpenAndAClosedShift()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().showWorkshiftInfoDialog();
        auto* info = dialog<WorkshiftInfoDialog>(journal);
        QCOMPARE(info->windowTitle(), QStringLiteral("Информация о смене"));
        QCOMPARE(child<QLabel>(info, "startValue")->text(), shown(store, "SHIFT_CDS_OPEN", "startTime"));
        QCOMPARE(child<QLabel>(info, "endValue")->text(), shown(store, "SHIFT_CDS_OPEN", "endTime"));
        QCOMPARE(child<QLabel>(info, "openValue")->text(), QStringLiteral("Иванов Иван Иванович"));
        QVERIFY(child<QLabel>(info, "openLabel")->isVisible());
        QVERIFY(!child<QLabel>(info, "closeLabel")->isVisible());
        QVERIFY(!child<QLabel>(info, "closeValue")->isVisible());
        auto* crew = child<QTableWidget>(info, "workersTable");
        QCOMPARE(crew->rowCount(), 2);
        QStringList names{crew->item(0, 0)->text(), crew->item(1, 0)->text()};
        names.sort();
        QCOMPARE(names, QStringList({QStringLiteral("Иванов И. И."), QStringLiteral("Петров П. П.")}));
        child<QPushButton>(info, "closeButton")->click();
        QVERIFY(!info->isVisible());
        const int height = info->height();
        info->resize(700, 650); // each showing begins with its own size

        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        journal.tab().showWorkshiftInfoDialog();
        QCOMPARE(info->height(), height);
        QVERIFY(child<QLabel>(info, "closeLabel")->isVisible());
        QCOMPARE(child<QLabel>(info, "closeValue")->text(), QStringLiteral("Иванов Иван Иванович"));
        QCOMPARE(crew->rowCount(), 3); // who opened, and who took over
        QTest::keyClick(info, Qt::Key_Escape);
        QVERIFY(!info->isVisible());
    }

    void aShiftWithoutAnOpenerHasNoLineOfHim()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_NOBODY",
                                 {{"DepartmentKey", "DEP_CDS"},
                                  {"OpenWorkerKey", nullptr},
                                  {"CloseWorkerKey", "WORKER_NOBODY"},
                                  {"createdAt", 1000.0},
                                  {"startTime", 1000.0},
                                  {"endTime", 4600.0}}));
        TestJournal journal(store);
        auto* info = dialog<WorkshiftInfoDialog>(journal);
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_NOBODY"));
        journal.tab().showWorkshiftInfoDialog();
        QVERIFY(!child<QLabel>(info, "openLabel")->isVisible());
        QVERIFY(!child<QLabel>(info, "openValue")->isVisible());
        QVERIFY(child<QLabel>(info, "closeLabel")->isVisible());
        QCOMPARE(child<QLabel>(info, "closeValue")->text(), QString()); // nobody has that key
        info->close();
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
        journal.tab().showWorkshiftInfoDialog();
        QVERIFY(child<QLabel>(info, "openLabel")->isVisible());
    }

    void templatesAndRolesAreReadAgainWithAnotherShift()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto loader = store.openLoader();
        QVERIFY(TestStore::write(loader.get(), "Roles", ROW_UPDATE, "ROLE_CDS_DISPATCHER",
                                 {{"name_", QStringLiteral("Дежурный")}}));
        QVERIFY(TestStore::write(loader.get(), "WorkerRoles", ROW_DELETE, "WROLE_IVANOV_1"));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_TEXT",
                                 {{"nameLoc", QStringLiteral("Другое название")}}));
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST")); // before the events come
        journal.tab().showWorkshiftInfoDialog();
        auto* crew = child<QTableWidget>(dialog<WorkshiftInfoDialog>(journal), "workersTable");
        QStringList roles;
        for (int row = 0; row < crew->rowCount(); ++row)
            roles << crew->item(row, 0)->text() + QStringLiteral(": ") + crew->item(row, 1)->text();
        QVERIFY2(roles.contains(QStringLiteral("Иванов И. И.: Дежурный")),
                 qPrintable(roles.join(QLatin1Char('\n'))));
        const CMDArray& templates = *journal.tab().table(QStringLiteral("LogbookTemplates"));
        const MDRRange found = MDARecsWith(templates.array, "KeyLink", "TPL_TEXT");
        QCOMPARE(found.count, 1);
        MDRVar name;
        templates.GetVal(*found.begin(), "nameLoc", name);
        QCOMPARE(TestStore::text(MDRValue::bytes(name)), QStringLiteral("Другое название"));
    }

    void theInformationOutlivesAReload()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().showWorkshiftInfoDialog();
        auto* info = dialog<WorkshiftInfoDialog>(journal);
        const QString start = shown(store, "SHIFT_CDS_OPEN", "startTime");
        const auto showAgain = [info] {
            info->hide();
            info->show();
        };
        journal.tab().uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST")); // the record shown is gone
        QCOMPARE(child<QLabel>(info, "startValue")->text(), start);
        showAgain();
        QCOMPARE(child<QLabel>(info, "startValue")->text(), QString());
        QCOMPARE(child<QTableWidget>(info, "workersTable")->rowCount(), 0);
        journal.tab().uploadRealTimeWorkshift(); // and came back as another one
        QVERIFY(minimiseAndRestore(info));
        showAgain();
        QCOMPARE(child<QLabel>(info, "startValue")->text(), start);
        QCOMPARE(child<QLabel>(info, "openValue")->text(), QStringLiteral("Иванов Иван Иванович"));
    }

    void namesTheAddedInOneText_data()
    {
        QTest::addColumn<int>("workers");
        QTest::addColumn<QString>("begin");
        QTest::newRow("none") << 0 << QString();
        QTest::newRow("one") << 1 << QStringLiteral("В смену дополнительно добавлен диспетчер: <a");
        QTest::newRow("two") << 2 << QStringLiteral("В смену дополнительно добавлены диспетчеры: <a");
    }
    void namesTheAddedInOneText()
    {
        QFETCH(int, workers);
        QFETCH(QString, begin);
        const QString text = AppendWorkerDialog::hardTemplate(workers);
        QVERIFY(text.startsWith(begin));
        QCOMPARE(text.isEmpty(), workers == 0);
        const HtmlParser parser(text.toStdString());
        QCOMPARE(int(parser.countParameters()), workers);
        for (int i = 0; i < workers; ++i) {
            QCOMPARE(parser.propertyNameValue(unsigned(i)), std::string("employee_fio"));
            QCOMPARE(QString::fromStdString(parser.displayText(unsigned(i))), QStringLiteral("ФИО"));
            QCOMPARE(parser.propertyValue(unsigned(i), "idx"), std::to_string(i));
        }
        QCOMPARE(text.count(QStringLiteral("</a>, <a")), qMax(0, workers - 1));
    }

    void aClosedShiftIsTakenByTheButton()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().showWorkshiftsDialog();
        auto* shifts = dialog<WorkshiftsDialog>(journal);
        child<QPushButton>(shifts, "applyButton")->click();
        QVERIFY(!shifts->isVisible());
        QCOMPARE(journal.tab().workshiftKeyLink(), QStringLiteral("SHIFT_CDS_PAST"));
    }

    void escapeLeavesTheDialogOfAdding()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().appendWorkerRequest();
        auto* append = dialog<AppendWorkerDialog>(journal);
        QVERIFY(append->isVisible());
        QTest::keyClick(append, Qt::Key_Escape);
        QVERIFY(!append->isVisible());
    }

    void chosenWorkersSurviveTheEndOfTheProgram()
    {
        const TestStore store;
        const QString place = AppendWorkerDialog::keptPlace(QStringLiteral("DEP_CDS"));
        KeptTexts::Values values;
        {
            TestJournal journal(store);
            KeptTexts* texts = KeptTexts::of(&journal.module());
            journal.tab().appendWorkerRequest();
            choose(journal, "WORKER_SIDOROVA");
            const QVector<KeptTexts::Text> held = texts->held(&journal.module());
            QCOMPARE(held.size(), 1);
            QCOMPARE(held.first().place, place);
            values = held.first().values;
            QVERIFY(values.value(QStringLiteral("caption")).contains(QStringLiteral("Сидорова")));
            child<QPushButton>(dialog<AppendWorkerDialog>(journal), "cancelButton")->click();
            QVERIFY(texts->offered(place).isEmpty()); // given up by the user
        }
        TestJournal journal(store);
        KeptTexts* texts = KeptTexts::of(&journal.module());
        // those who are in the shift by now
        values[QStringLiteral("workers")] += QStringLiteral("\nWORKER_PETROV");
        texts->keep(place, values);
        auto other = values;
        other.insert(QStringLiteral("workshift"), QStringLiteral("SHIFT_OTHER"));
        texts->keep(place, other); // of a workshift that is over
        auto* append = dialog<AppendWorkerDialog>(journal);
        journal.tab().appendWorkerRequest();
        auto* crew = child<QTableWidget>(append, "workersTable");
        QCOMPARE(crew->rowCount(), 2); // nothing but an offer
        QCOMPARE(texts->offered(place).size(), 1);
        child<QPushButton>(append, "dropKeptButton")->click();
        QCOMPARE(crew->rowCount(), 2);
        QVERIFY(texts->offered(place).isEmpty());
        append->close();
        texts->keep(place, values);
        journal.tab().appendWorkerRequest();
        child<QPushButton>(append, "takeKeptButton")->click();
        QCOMPARE(crew->rowCount(), 3);
        QVERIFY(child<QPushButton>(append, "applyButton")->isEnabled());
        child<QPushButton>(append, "applyButton")->click();
        QVERIFY(texts->offered(place).isEmpty());
    }

    void addsWorkersWithARecord()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().appendWorkerRequest();
        auto* append = dialog<AppendWorkerDialog>(journal);
        QCOMPARE(append->windowTitle(), QStringLiteral("Добавление диспетчера в смену"));
        auto* apply = child<QPushButton>(append, "applyButton");
        auto* crew = child<QTableWidget>(append, "workersTable");
        auto* text = child<QLabel>(append, "templateLabel");
        QCOMPARE(crew->rowCount(), 2);
        QStringList roles{crew->item(0, 1)->text(), crew->item(1, 1)->text()};
        roles.sort();
        QCOMPARE(roles,
                 QStringList({QStringLiteral("Диспетчер"), QStringLiteral("Диспетчер/Старший диспетчер")}));
        QVERIFY(!apply->isEnabled());
        choose(journal, "WORKER_PETROV"); // in the shift already
        QCOMPARE(crew->rowCount(), 2);
        QVERIFY(!apply->isEnabled());
        choose(journal, "WORKER_SIDOROVA");
        QCOMPARE(crew->rowCount(), 3);
        QCOMPARE(crew->currentRow(), 2);
        QVERIFY(apply->isEnabled());
        QVERIFY(text->text().contains(QStringLiteral("добавлен диспетчер: ")));
        QVERIFY(text->text().contains(crew->item(2, 0)->text()));
        choose(journal, "WORKER_SIDOROVA"); // once
        QCOMPARE(crew->rowCount(), 3);

        // The name in the text leads to its row.
        crew->selectRow(0);
        const QString html = text->text();
        const int link = html.indexOf(QStringLiteral("href=\"")) + 6;
        emit text->linkActivated(html.mid(link, html.indexOf(QLatin1Char('"'), link) - link));
        QCOMPARE(crew->currentRow(), 2);

        const int records = count(store, "LogbookRecords");
        apply->click();
        QVERIFY(!append->isVisible());
        QCOMPARE(store
                     .value(QStringLiteral(
                         "SELECT opening FROM LogbookWorkersWorkshift WHERE WorkerKey='WORKER_SIDOROVA' AND "
                         "WorkshiftKey='SHIFT_CDS_OPEN'"))
                     .toInt(),
                 1);
        QCOMPARE(count(store, "LogbookRecords"), records + 1);
        const auto row = store.rows(
            QStringLiteral("SELECT ShiftKey, WorkerKey, status, direction, html, recordTime - eventTime FROM "
                           "LogbookRecords ORDER BY rowid DESC LIMIT 1"))[0];
        QCOMPARE(row[0].toString(), QStringLiteral("SHIFT_CDS_OPEN"));
        QCOMPARE(row[1].toString(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(row[2].toInt(), 0);
        QCOMPARE(row[3].toInt(), 0);
        QCOMPARE(row[4].toString(), html);
        QCOMPARE(row[5].toDouble(), 0.0);
    }

    void aCancelledAdditionLeavesNothing()
    {
        const TestStore store;
        TestJournal journal(store);
        const int rows = count(store, "LogbookWorkersWorkshift");
        journal.tab().appendWorkerRequest();
        choose(journal, "WORKER_SIDOROVA");
        auto* append = dialog<AppendWorkerDialog>(journal);
        child<QPushButton>(append, "cancelButton")->click();
        journal.tab().appendWorkerRequest();
        QCOMPARE(child<QTableWidget>(append, "workersTable")->rowCount(), 2);
        QVERIFY(child<QLabel>(append, "templateLabel")->text().isEmpty());
        QVERIFY(!child<QPushButton>(append, "applyButton")->isEnabled());
        QCOMPARE(count(store, "LogbookWorkersWorkshift"), rows);
    }

    void aFailedAdditionMayBeTriedAgain()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().appendWorkerRequest();
        choose(journal, "WORKER_SIDOROVA");
        auto* append = dialog<AppendWorkerDialog>(journal);
        const int records = count(store, "LogbookRecords");
        QCOMPARE(store.refuse(QStringLiteral("INSERT"), QStringLiteral("LogbookWorkersWorkshift")),
                 QString());
        child<QPushButton>(append, "applyButton")->click();
        QVERIFY(append->isVisible());
        QCOMPARE(m_log->take(QStringLiteral("AppendWorkerDialog")),
                 QStringList{QStringLiteral(
                     "void AppendWorkerDialog::apply() fail request CVrkCliSes::SqlUpdate update "
                     "LogbookWorkersWorkshift!")});
        m_log->take();
        QCOMPARE(count(store, "LogbookRecords"), records);

        QCOMPARE(store.permit(QStringLiteral("INSERT"), QStringLiteral("LogbookWorkersWorkshift")),
                 QString());
        QCOMPARE(store.refuse(QStringLiteral("INSERT"), QStringLiteral("LogbookRecords")), QString());
        child<QPushButton>(append, "applyButton")->click();
        QVERIFY(!append->isVisible()); // the workers stay added
        QCOMPARE(m_log->take(QStringLiteral("AppendWorkerDialog")),
                 QStringList{QStringLiteral(
                     "void AppendWorkerDialog::apply() fail request CVrkCliSes::SqlUpdate update "
                     "LogbookRecords!")});
        m_log->take();
        QCOMPARE(store
                     .value(QStringLiteral(
                         "SELECT count(*) FROM LogbookWorkersWorkshift WHERE WorkerKey='WORKER_SIDOROVA'"))
                     .toInt(),
                 1);
    }
};

QTEST_MAIN(ShiftPeriods_test)
#include "ShiftPeriods_test.moc"
