#include "ExpectedWarning.h"
#include "OpenWorkshiftDialog.h"

#include "CVrkLogBook.h"
#include "KeptTexts.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "PersonName.h"
#include "StoreAdmin.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "TestClient.h"

#include <memory>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

/// Opening a workshift through the dialog, on a real store. The department ОДС has no open shift.
class OpenWorkshiftDialog_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aShiftOfTheDayEndsTheSameDay();
    void aShiftOverMidnightEndsTheNextDay();
    void equalBoundsDoNotMoveTheEnd();
    void groupsAreRomanUpToFive_data();
    void groupsAreRomanUpToFive();
    void showsTheTimetableOfTheDepartment();
    void withoutATimetableTheShiftIsTheNextHour();
    void theUserIsInTheCrewAndStaysThere();
    void aWorkerIsAddedOnce();
    void aWorkerIsRemovedAgain();
    void fillsTheTemplateAutomatically();
    void theIntervalFollowsTheEditsWhileTheBoxIsChecked();
    void theShiftMayNotBeginBeforeTheLastOneEnded();
    void theEndOfTheLastShiftIsAskedAtEachShowing();
    void withoutAnEarlierShiftAnyStartWillDo();
    void tooLongShiftIsAnnouncedBeforeSaving();
    void anUnfilledTemplateHoldsTheOpeningBack();
    void reportsADepartmentWithoutTemplates();
    void escapeClosesIt();
    void controlEnterGoesToWhatIsMissingOrOpens();
    void writesShiftCrewAndRecord();
    void chosenIntervalAndCrewAreOfferedAgain();
    void keptIntervalThatIsOverIsForgotten();
    void aNamelessOpenerIsWrittenIntoTheCrew();
    void withoutACrewNothingIsOpened();
    void withoutADepartmentNothingIsOpened();
    void withoutAWorkerNothingIsOpened();

private:
    void start(const QString& login, const QByteArray& department);
    QTableWidget* crew() const { return m_dialog->findChild<QTableWidget*>(QStringLiteral("workersTable")); }
    QTableWidget* shifts() const { return m_dialog->findChild<QTableWidget*>(QStringLiteral("shiftsTable")); }
    /// Why the shift cannot be opened.
    QString reported() const { return m_dialog->findChild<QLabel*>(QStringLiteral("missingLabel"))->text(); }
    QPushButton* applyButton() const
    {
        return m_dialog->findChild<QPushButton*>(QStringLiteral("applyButton"));
    }
    QToolButton* tool(const char* name) const
    {
        return m_dialog->findChild<QToolButton*>(QLatin1String(name));
    }
    TemplateFiller* filler() const { return m_dialog->findChild<TemplateFiller*>(); }
    void choose(const char* workerKey);
    void setStart(const QDateTime& time);
    void fillAll();
    int count(const char* table) const
    {
        return m_store->value(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(table))).toInt();
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<CVrkLogBook> m_window;
    OrgStructDialog* m_structure = nullptr;
    OpenWorkshiftDialog* m_dialog = nullptr;
};

void OpenWorkshiftDialog_test::init()
{
    m_store = std::make_unique<TestStore>();
}

void OpenWorkshiftDialog_test::cleanup()
{
    m_window.reset();
    m_client.reset();
    m_store.reset();
}

void OpenWorkshiftDialog_test::start(const QString& login, const QByteArray& department)
{
    m_client = std::make_unique<TestClient>(*m_store, login, department);
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    QVERIFY(m_window->ModuleStart());
    auto* home = m_window->findChild<LogBookWidget*>(QStringLiteral("homeLogbook"));
    const auto table = [home](const char* name) { return home->table(QLatin1String(name)); };

    m_structure = new OrgStructDialog(m_window.get(), -1);
    m_structure->widget()->init(m_window.get());
    m_dialog = new OpenWorkshiftDialog(m_window.get(), -1);
    m_dialog->setOrgStructDialog(m_structure);
    m_dialog->setWorkerKey(home->location()->workerKey());
    m_dialog->setDepartmentKey(home->location()->departmentKey());
    m_dialog->setOrganizationKey(home->location()->organizationKey());
    m_dialog->setOrgTypeKey(home->location()->orgTypeKey());
    m_dialog->setShiftsTable(table("Shifts"));
    m_dialog->setWorkersTable(table("Workers"));
    m_dialog->setRolesTable(table("Roles"));
    m_dialog->setWorkerRolesTable(table("WorkerRoles"));
    m_dialog->setOrganizationsTable(table("Organizations"));
    m_dialog->setDepartmentsTable(table("Departments"));
    m_dialog->setOrgTypesTable(table("OrgTypes"));
    m_dialog->setCatsTemplateTable(table("LogbookCatsTemplate"));
    m_dialog->setTemplatesTable(table("LogbookTemplates"));
    m_dialog->show();
}

void OpenWorkshiftDialog_test::choose(const char* workerKey)
{
    QTest::mouseClick(tool("addWorkerButton"), Qt::LeftButton);
    QVERIFY(m_structure->isVisible());
    OrgStruct::SelectedItem item;
    item.type = OrgStruct::Person;
    item.worker.keyLink = QLatin1String(workerKey);
    m_structure->hide();
    emit m_structure->itemSelected(item);
}

void OpenWorkshiftDialog_test::setStart(const QDateTime& time)
{
    m_dialog->findChild<QDateEdit*>(QStringLiteral("startDateEdit"))->setDate(time.date());
    m_dialog->findChild<QTimeEdit*>(QStringLiteral("startTimeEdit"))->setTime(time.time());
    const QDateTime end = time.addDays(2);
    m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"))->setDate(end.date());
    m_dialog->findChild<QTimeEdit*>(QStringLiteral("endTimeEdit"))->setTime(end.time());
}

void OpenWorkshiftDialog_test::fillAll()
{
    for (const char* name :
         {"text", "list", "datetime", "employee_fio", "employee_fio_group", "shift_workers",
          "shift_workers_groups", "department", "organization", "interval"}) {
        for (unsigned int index : filler()->findParameter(QLatin1String(name)))
            filler()->setParameterValue(index, QStringLiteral("значение"), QString());
    }
    QVERIFY(filler()->isFilled());
}

void OpenWorkshiftDialog_test::aShiftOfTheDayEndsTheSameDay()
{
    const QDateTime now(QDate(2026, 11, 20), QTime(9, 30, 15));
    const auto [from, to] = OpenWorkshiftDialog::toCurrentInterval(8 * 3600, 20 * 3600, now);
    QCOMPARE(from, QDateTime(QDate(2026, 11, 20), QTime(8, 0)));
    QCOMPARE(to, QDateTime(QDate(2026, 11, 20), QTime(20, 0)));
}

void OpenWorkshiftDialog_test::aShiftOverMidnightEndsTheNextDay()
{
    const QDateTime now(QDate(2026, 12, 31), QTime(21, 0));
    const auto [from, to] = OpenWorkshiftDialog::toCurrentInterval(20 * 3600, 8 * 3600, now);
    QCOMPARE(from, QDateTime(QDate(2026, 12, 31), QTime(20, 0)));
    QCOMPARE(to, QDateTime(QDate(2027, 1, 1), QTime(8, 0)));
}

void OpenWorkshiftDialog_test::equalBoundsDoNotMoveTheEnd()
{
    const QDateTime now(QDate(2026, 11, 20), QTime(9, 30));
    const auto [from, to] = OpenWorkshiftDialog::toCurrentInterval(8 * 3600, 8 * 3600, now);
    QCOMPARE(from, to);
}

void OpenWorkshiftDialog_test::groupsAreRomanUpToFive_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("text");
    const char* const texts[] = {"I", "II", "III", "IV", "V", "6", "7"};
    for (int i = 0; i < 7; ++i)
        QTest::addRow("%d", i + 1) << i + 1 << QString::fromLatin1(texts[i]);
}

void OpenWorkshiftDialog_test::groupsAreRomanUpToFive()
{
    QFETCH(int, group);
    QTEST(PersonName::groupText(group), "text");
}

void OpenWorkshiftDialog_test::showsTheTimetableOfTheDepartment()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Открытие смены"));
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    if (screen.width() > 1210 && screen.height() > 640)
        QCOMPARE(m_dialog->size(), QSize(1200, 600));
    else // no pop-up is larger than the screen
        QVERIFY(m_dialog->width() <= screen.width() && m_dialog->width() > screen.width() - 20);
    QCOMPARE(shifts()->rowCount(), 2);
    QCOMPARE(shifts()->horizontalHeaderItem(0)->text(), QStringLiteral("Наименование"));
    QCOMPARE(shifts()->horizontalHeaderItem(1)->text(), QStringLiteral("Интервал"));
    QCOMPARE(shifts()->currentRow(), 0);
    QCOMPARE(shifts()->selectionModel()->selectedRows().size(), 1);
    const QString today = QDate::currentDate().toString(QStringLiteral("dd.MM"));
    const QString tomorrow = QDate::currentDate().addDays(1).toString(QStringLiteral("dd.MM"));
    QStringList intervals{shifts()->item(0, 1)->text(), shifts()->item(1, 1)->text()};
    intervals.sort();
    QCOMPARE(intervals, QStringList({QStringLiteral("%1 08:00 - %1 20:00").arg(today),
                                     QStringLiteral("%1 20:00 - %2 08:00").arg(today, tomorrow)}));
    QVERIFY(!(shifts()->item(0, 0)->flags() & Qt::ItemIsEditable));

    // Another shift of the timetable sets the edits.
    shifts()->selectRow(1);
    const QString shown = shifts()->item(1, 1)->text();
    const auto* time = m_dialog->findChild<QTimeEdit*>(QStringLiteral("startTimeEdit"));
    QCOMPARE(time->time().toString(QStringLiteral("hh:mm")), shown.mid(6, 5));

    // Rows of other departments do not belong to this one.
    m_dialog->close();
    m_dialog->setDepartmentKey(QStringLiteral("DEP_ODS"));
    m_dialog->show();
    QCOMPARE(shifts()->rowCount(), 0);
}

void OpenWorkshiftDialog_test::withoutATimetableTheShiftIsTheNextHour()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    QCOMPARE(shifts()->rowCount(), 0);
    const QDateTime from(m_dialog->findChild<QDateEdit*>(QStringLiteral("startDateEdit"))->date(),
                         m_dialog->findChild<QTimeEdit*>(QStringLiteral("startTimeEdit"))->time());
    const QDateTime to(m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"))->date(),
                       m_dialog->findChild<QTimeEdit*>(QStringLiteral("endTimeEdit"))->time());
    QCOMPARE(from.secsTo(to), 3600);
    QVERIFY(qAbs(from.secsTo(QDateTime::currentDateTime())) < 120);
}

void OpenWorkshiftDialog_test::theUserIsInTheCrewAndStaysThere()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    QCOMPARE(crew()->rowCount(), 1);
    QCOMPARE(crew()->item(0, 0)->text(), QStringLiteral("Иванов Иван Иванович"));
    QCOMPARE(crew()->item(0, 0)->data(Qt::UserRole).toString(), QStringLiteral("WORKER_IVANOV"));
    QCOMPARE(crew()->item(0, 1)->text().count(QLatin1Char('/')), 1);
    QCOMPARE(crew()->item(0, 0)->flags(), Qt::ItemFlags());
    QVERIFY(!tool("clearWorkersButton")->isEnabled());
    QVERIFY(!tool("removeWorkerButton")->isEnabled());
}

void OpenWorkshiftDialog_test::aWorkerIsAddedOnce()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    choose("WORKER_PETROV");
    QCOMPARE(crew()->rowCount(), 2);
    QCOMPARE(crew()->item(1, 0)->text(), QStringLiteral("Петров Пётр Петрович"));
    QVERIFY(tool("clearWorkersButton")->isEnabled());
    QCOMPARE(crew()->currentRow(), 0);                 // the first, not the new one
    QVERIFY(!tool("removeWorkerButton")->isEnabled()); // the opener stays
    choose("WORKER_PETROV");
    choose("WORKER_IVANOV");
    QCOMPARE(crew()->rowCount(), 2);
    // An unrequested choice changes nothing.
    OrgStruct::SelectedItem item;
    item.worker.keyLink = QStringLiteral("WORKER_SIDOROVA");
    emit m_structure->itemSelected(item);
    QCOMPARE(crew()->rowCount(), 2);
}

void OpenWorkshiftDialog_test::aWorkerIsRemovedAgain()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    choose("WORKER_PETROV");
    crew()->setCurrentCell(1, 0);
    QVERIFY(tool("removeWorkerButton")->isEnabled());
    tool("removeWorkerButton")->click();
    QCOMPARE(crew()->rowCount(), 1);
    choose("WORKER_PETROV");
    choose("WORKER_SIDOROVA");
    tool("clearWorkersButton")->click();
    QCOMPARE(crew()->rowCount(), 1);
    QCOMPARE(crew()->item(0, 0)->data(Qt::UserRole).toString(), QStringLiteral("WORKER_IVANOV"));
}

void OpenWorkshiftDialog_test::fillsTheTemplateAutomatically()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    QVERIFY(m_dialog->findChild<TemplatesWidget*>()->currentTemplate());
    const QString html = filler()->filledTemplate(true);
    QVERIFY2(html.contains(QRegularExpression(
                 QStringLiteral("с \\d\\d\\.\\d\\d\\.\\d{4} \\d\\d:\\d\\d по \\d\\d\\.\\d\\d\\.\\d{4}"))),
             qPrintable(html));
    QVERIFY2(html.contains(QStringLiteral("Иванов И. И. гр.V")), qPrintable(html));
    QVERIFY(html.contains(QStringLiteral("open_wshift")));
}

void OpenWorkshiftDialog_test::theIntervalFollowsTheEditsWhileTheBoxIsChecked()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    QVERIFY(!filler()->findParameter(QStringLiteral("interval")).isEmpty());
    setStart(QDateTime(QDate(2030, 1, 2), QTime(3, 4)));
    QVERIFY(
        filler()->filledTemplate(true).contains(QStringLiteral("с 02.01.2030 03:04 по 04.01.2030 03:04")));
    auto* box = m_dialog->findChild<QCheckBox*>(QStringLiteral("changeTemplateCheck"));
    QVERIFY(box->isChecked());
    box->click();
    setStart(QDateTime(QDate(2031, 1, 2), QTime(3, 4)));
    QVERIFY(
        filler()->filledTemplate(true).contains(QStringLiteral("с 02.01.2030 03:04 по 04.01.2030 03:04")));
    box->click(); // writes at once
    QVERIFY(
        filler()->filledTemplate(true).contains(QStringLiteral("с 02.01.2031 03:04 по 04.01.2031 03:04")));
}

void OpenWorkshiftDialog_test::theShiftMayNotBeginBeforeTheLastOneEnded()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    fillAll();
    const QDateTime last = QDateTime::fromSecsSinceEpoch(
        m_store->value(QStringLiteral("SELECT endTime FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'"))
            .toLongLong());
    const QDateTime minute = QDateTime(last.date(), QTime(last.time().hour(), last.time().minute()));
    const QDateTime allowed = minute < last ? minute.addSecs(60) : minute;
    setStart(allowed);
    QVERIFY(applyButton()->isEnabled());
    setStart(allowed.addSecs(-60));
    QCOMPARE(applyButton()->isEnabled(), false);
    QVERIFY(applyButton()->toolTip().contains(last.toString(QStringLiteral("dd.MM.yyyy hh:mm"))));
    QCOMPARE(reported(), applyButton()->toolTip());
    m_dialog->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_dialog);
    shifts()->setFocus();
    QTest::keyClick(shifts(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_dialog->focusWidget()->objectName(), QStringLiteral("startDateEdit"));
    // The button follows the interval even if the text does not.
    m_dialog->findChild<QCheckBox*>(QStringLiteral("changeTemplateCheck"))->click();
    setStart(allowed);
    QVERIFY(applyButton()->isEnabled());
    setStart(allowed.addSecs(-60));
    QVERIFY(!applyButton()->isEnabled());
}

void OpenWorkshiftDialog_test::theEndOfTheLastShiftIsAskedAtEachShowing()
{
    start(QStringLiteral("ivanov"), "DEP_CDS");
    m_dialog->close();
    const QDateTime end(QDate(2031, 2, 3), QTime(4, 5));
    const double last = double(end.toSecsSinceEpoch());
    QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_LATER",
                             {{"DepartmentKey", "DEP_CDS"},
                              {"OpenWorkerKey", "WORKER_IVANOV"},
                              {"CloseWorkerKey", "WORKER_IVANOV"},
                              {"createdAt", last - 3600},
                              {"startTime", last - 3600},
                              {"endTime", last}}));
    m_dialog->show();
    setStart(end.addSecs(-60));
    QCOMPARE(reported(), QStringLiteral("Предыдущая смена заканчивается 03.02.2031 04:05"));
    setStart(end);
    QVERIFY(reported() != QStringLiteral("Предыдущая смена заканчивается 03.02.2031 04:05"));
}

void OpenWorkshiftDialog_test::withoutAnEarlierShiftAnyStartWillDo()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    fillAll();
    setStart(QDateTime(QDate(2001, 1, 1), QTime(0, 0)));
    QVERIFY(applyButton()->isEnabled());
    // The end must not be before the start.
    m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"))->setDate(QDate(2000, 1, 1));
    QVERIFY(!applyButton()->isEnabled());
    QCOMPARE(reported(), QStringLiteral("Начало смены должно быть раньше конца"));
    m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"))->setDate(QDate(2001, 1, 1));
    QVERIFY(!applyButton()->isEnabled()); // an empty shift
    m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"))->setDate(QDate(2001, 1, 2));
    QVERIFY(applyButton()->isEnabled());
}

void OpenWorkshiftDialog_test::tooLongShiftIsAnnouncedBeforeSaving()
{
    expectWarning(QStringLiteral("Смена длиннее, чем разрешено"));
    expectWarning(QStringLiteral("error open workshift!"));
    start(QStringLiteral("smirnov"), "DEP_ODS");
    fillAll();
    setStart(QDateTime(QDate(2030, 1, 1), QTime(8, 0))); // for two days
    QCOMPARE(reported(), QString());
    auto* endTime = m_dialog->findChild<QTimeEdit*>(QStringLiteral("endTimeEdit"));
    endTime->setTime(QTime(8, 1));
    QCOMPARE(reported(), tr("Смена длиннее разрешённых 48 ч: журнал её не примет"));
    QTest::mouseClick(applyButton(), Qt::LeftButton);
    QCOMPARE(m_store
                 ->value(QStringLiteral("SELECT count(*) FROM LogbookWorkshifts WHERE "
                                        "DepartmentKey='DEP_ODS'"))
                 .toInt(),
             0);
    // The limit is read each time the dialog is shown.
    StoreError error;
    QVERIFY(StoreAdmin::setLongestShift(m_store->url(), 45000, &error));
    m_dialog->show();
    setStart(QDateTime(QDate(2030, 1, 1), QTime(8, 0)));
    QCOMPARE(reported(), tr("Смена длиннее разрешённых 12 ч 30 мин: журнал её не примет"));
}

void OpenWorkshiftDialog_test::anUnfilledTemplateHoldsTheOpeningBack()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    fillAll();
    setStart(QDateTime::currentDateTime());
    QVERIFY(applyButton()->isEnabled());
    QCOMPARE(reported(), QString());
    m_dialog->findChild<TemplatesWidget*>()->clearSelection();
    QVERIFY(!applyButton()->isEnabled());
    QCOMPARE(reported(), QStringLiteral("Выберите шаблон"));
}

void OpenWorkshiftDialog_test::reportsADepartmentWithoutTemplates()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    m_dialog->close();
    m_dialog->findChild<TemplatesWidget*>()->setTemplateProps({QStringLiteral("no_such_property")}, true);
    m_dialog->show();
    QVERIFY(!applyButton()->isEnabled());
    QCOMPARE(reported(),
             QStringLiteral("Нет шаблона для этой записи: его заводит администратор в конфигураторе"));
    m_dialog->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_dialog);
    shifts()->setFocus();
    QTest::keyClick(shifts(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_dialog->focusWidget(), shifts()); // there is no field to go to
}

void OpenWorkshiftDialog_test::escapeClosesIt()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    QVERIFY(m_dialog->isVisible());
    QTest::keyClick(m_dialog->findChild<QWidget*>(QStringLiteral("shiftsTable")), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void OpenWorkshiftDialog_test::controlEnterGoesToWhatIsMissingOrOpens()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    setStart(QDateTime::currentDateTime());
    auto* end = m_dialog->findChild<QDateEdit*>(QStringLiteral("endDateEdit"));
    end->setDate(QDate(2000, 1, 1));
    const auto pressAt = [this](QWidget* field) {
        m_dialog->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), m_dialog);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
    };
    pressAt(shifts());
    QCOMPARE(m_dialog->focusWidget()->objectName(), QStringLiteral("startDateEdit"));
    setStart(QDateTime::currentDateTime());
    filler()->setParameterValue(0, QString(), QString());
    QVERIFY(!filler()->isFilled());
    pressAt(shifts());
    QCOMPARE(m_dialog->focusWidget()->objectName(), QStringLiteral("parameterInput_0"));
    fillAll();
    pressAt(shifts());
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(count("LogbookWorkshifts"), 4);
}

void OpenWorkshiftDialog_test::writesShiftCrewAndRecord()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    fillAll();
    const QDateTime from(QDateTime::currentDateTime().date(), QTime(6, 0));
    setStart(from);
    choose("WORKER_PETROV");
    QVERIFY(applyButton()->isEnabled());
    const int records = count("LogbookRecords");
    applyButton()->click();
    QVERIFY(!m_dialog->isVisible());

    const QString shift =
        m_store->value(QStringLiteral("SELECT KeyLink FROM LogbookWorkshifts WHERE DepartmentKey='DEP_ODS'"))
            .toString();
    QCOMPARE(shift.size(), 32);
    const auto of = [&](const char* field) {
        return m_store->value(QStringLiteral("SELECT %1 FROM LogbookWorkshifts WHERE KeyLink='%2'")
                                  .arg(QLatin1String(field), shift));
    };
    QCOMPARE(of("OpenWorkerKey").toString(), QStringLiteral("WORKER_SMIRNOV_ODS"));
    QVERIFY(of("CloseWorkerKey").isNull());
    QCOMPARE(of("startTime").toLongLong(), from.toSecsSinceEpoch());
    QCOMPARE(of("endTime").toLongLong(), from.addDays(2).toSecsSinceEpoch());
    QVERIFY(qAbs(of("createdAt").toLongLong() - QDateTime::currentSecsSinceEpoch()) < 60);

    const auto crewRows = m_store->rows(
        QStringLiteral(
            "SELECT WorkerKey, opening FROM LogbookWorkersWorkshift WHERE WorkshiftKey='%1' ORDER BY rowid")
            .arg(shift));
    QCOMPARE(crewRows.size(), 2);
    QCOMPARE(crewRows[0][0].toString(), QStringLiteral("WORKER_SMIRNOV_ODS"));
    QCOMPARE(crewRows[1][0].toString(), QStringLiteral("WORKER_PETROV"));
    QCOMPARE(crewRows[0][1].toInt(), 1);

    QCOMPARE(count("LogbookRecords"), records + 1);
    const auto record = m_store->rows(
        QStringLiteral("SELECT WorkerKey, status, direction, recordTime, eventTime, VisaWorkerKey, "
                       "OriginRecordKey, html FROM LogbookRecords WHERE ShiftKey='%1'")
            .arg(shift));
    QCOMPARE(record.size(), 1);
    QCOMPARE(record[0][0].toString(), QStringLiteral("WORKER_SMIRNOV_ODS"));
    QCOMPARE(record[0][1].toInt(), 0);
    QCOMPARE(record[0][2].toInt(), 0);
    QCOMPARE(record[0][3], record[0][4]);
    QCOMPARE(record[0][3].toLongLong(), of("createdAt").toLongLong());
    QVERIFY(record[0][5].isNull());
    QVERIFY(record[0][6].isNull());
    QVERIFY(record[0][7].toString().contains(QStringLiteral("open_wshift")));
}

void OpenWorkshiftDialog_test::chosenIntervalAndCrewAreOfferedAgain()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    KeptTexts* texts = KeptTexts::of(m_dialog);
    const QString place =
        OpenWorkshiftDialog::keptPlace(QStringLiteral("open_wshift"), QStringLiteral("DEP_ODS"));
    const auto heldHere = [&] {
        KeptTexts::Values values;
        for (const KeptTexts::Text& text : texts->held(m_dialog))
            if (text.place == place)
                values = text.values;
        return values;
    };
    QVERIFY(heldHere().isEmpty()); // as at the beginning
    const QDateTime from(QDate::currentDate().addDays(1), QTime(6, 30));
    setStart(from);
    choose("WORKER_PETROV");
    QVERIFY(heldHere().value(QStringLiteral("caption")).contains(QStringLiteral("Петров")));
    QVERIFY(heldHere()
                .value(QStringLiteral("caption"))
                .contains(from.toString(QStringLiteral("dd.MM.yyyy hh:mm"))));

    tool("removeWorkerButton")->click();
    tool("clearWorkersButton")->click();
    choose("WORKER_PETROV");
    m_dialog->close();
    QCOMPARE(texts->offered(place).size(), 1);
    m_dialog->show();
    QCOMPARE(crew()->rowCount(), 1); // nothing but an offer
    m_dialog->findChild<QPushButton*>(QStringLiteral("takeKeptButton"))->click();
    QCOMPARE(crew()->rowCount(), 2);
    QCOMPARE(crew()->item(1, 0)->data(Qt::UserRole).toString(), QStringLiteral("WORKER_PETROV"));
    QVERIFY(texts->offered(place).isEmpty());
    QVERIFY(!heldHere().isEmpty());

    fillAll();
    applyButton()->click();
    QVERIFY(texts->offered(place).isEmpty());
    QCOMPARE(
        m_store
            ->value(QStringLiteral("SELECT startTime FROM LogbookWorkshifts WHERE DepartmentKey='DEP_ODS'"))
            .toLongLong(),
        from.toSecsSinceEpoch());
}

void OpenWorkshiftDialog_test::keptIntervalThatIsOverIsForgotten()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    KeptTexts* texts = KeptTexts::of(m_dialog);
    const QString place =
        OpenWorkshiftDialog::keptPlace(QStringLiteral("open_wshift"), QStringLiteral("DEP_ODS"));
    m_dialog->close();
    const QDateTime now = QDateTime::currentDateTime();
    const auto keep = [&](const QDateTime& end) {
        texts->keep(place, {{QStringLiteral("caption"), QStringLiteral("открытие")},
                            {QStringLiteral("start"), now.addDays(-1).toString(Qt::ISODate)},
                            {QStringLiteral("end"), end.toString(Qt::ISODate)}});
    };
    keep(now.addSecs(-60));
    m_dialog->show();
    QVERIFY(texts->offered(place).isEmpty());
    QVERIFY(!m_dialog->findChild<QPushButton*>(QStringLiteral("takeKeptButton")));
    m_dialog->close();
    keep(now.addSecs(3600));
    m_dialog->show();
    QVERIFY(m_dialog->findChild<QPushButton*>(QStringLiteral("takeKeptButton"))->isVisible());
    m_dialog->findChild<QPushButton*>(QStringLiteral("dropKeptButton"))->click();
    QVERIFY(texts->offered(place).isEmpty());
}

void OpenWorkshiftDialog_test::aNamelessOpenerIsWrittenIntoTheCrew()
{
    expectWarning(QStringLiteral("full name is empty!"), 2);
    for (const char* key : {"WORKER_SMIRNOV_ODS", "WORKER_SIDOROVA"})
        QVERIFY(
            TestStore::write(m_store->openLoader().get(), "Workers", ROW_UPDATE, key,
                             {{"firstName", nullptr}, {"lastName", nullptr}, {"patronymicName", nullptr}}));
    start(QStringLiteral("smirnov"), "DEP_ODS");
    QCOMPARE(crew()->item(0, 0)->text(), QStringLiteral("smirnov"));
    choose("WORKER_SIDOROVA"); // deliberate: her row stays without cells
    choose("WORKER_SMIRNOV_ODS");
    QCOMPARE(crew()->rowCount(), 2);
    QVERIFY(!crew()->item(1, 0));
    fillAll();
    setStart(QDateTime(QDate(2030, 1, 1), QTime(8, 0)));
    QTest::mouseClick(applyButton(), Qt::LeftButton);
    QCOMPARE(
        m_store->rows(QStringLiteral("SELECT WorkerKey FROM LogbookWorkersWorkshift WHERE WorkshiftKey IN "
                                     "(SELECT KeyLink FROM LogbookWorkshifts WHERE DepartmentKey='DEP_ODS') "
                                     "ORDER BY 1")),
        (QVector<QVariantList>{{QStringLiteral("WORKER_SMIRNOV_ODS")}}));
}

void OpenWorkshiftDialog_test::withoutACrewNothingIsOpened()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    fillAll();
    crew()->setRowCount(0);
    setStart(QDateTime::currentDateTime());
    QVERIFY(!applyButton()->isEnabled());
    QCOMPARE(reported(), QStringLiteral("Добавьте сотрудников в смену"));
    m_dialog->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), m_dialog);
    shifts()->setFocus();
    QTest::keyClick(shifts(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_dialog->focusWidget(), tool("addWorkerButton"));
    QTest::mouseClick(m_dialog->findChild<QPushButton*>(QStringLiteral("cancelButton")), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(count("LogbookWorkshifts"), 3);
}

void OpenWorkshiftDialog_test::withoutADepartmentNothingIsOpened()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    QSignalSpy error(m_dialog, &OpenWorkshiftDialog::error);
    m_dialog->setDepartmentKey(QString());
    QTest::ignoreMessage(
        QtWarningMsg,
        "void OpenWorkshiftDialog::apply() could not create record: unknown workshift keyLink!");
    m_dialog->apply();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(error.count(), 1);
    QCOMPARE(error[0][0].toString(), QStringLiteral("Ошибка при открытии смены"));
    QCOMPARE(error[0][1].toString(), QStringLiteral("Подразделение не найдено!"));
}

void OpenWorkshiftDialog_test::withoutAWorkerNothingIsOpened()
{
    start(QStringLiteral("smirnov"), "DEP_ODS");
    QSignalSpy error(m_dialog, &OpenWorkshiftDialog::error);
    m_dialog->setWorkerKey(QString());
    QTest::ignoreMessage(
        QtWarningMsg, "void OpenWorkshiftDialog::apply() could not create record: unknown worker keyLink!");
    m_dialog->apply();
    QCOMPARE(error.count(), 1);
    QCOMPARE(error[0][1].toString(), QStringLiteral("Сотрудник не найден!"));
}

QTEST_MAIN(OpenWorkshiftDialog_test)
#include "OpenWorkshiftDialog_test.moc"
