#include "CVrkLogBook.h"

#include "CPopMessageBox.h"
#include "DateTimeRangeDialog.h"
#include "KeptTexts.h"
#include "LocationInfo.h"
#include "LogBookWidget.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "TestClient.h"
#include "VrkTableTool.h"

#include <memory>
#include <QAbstractButton>
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabBar>
#include <QTableView>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

/// The journal window on a real store.
class CVrkLogBook_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void opensOnTheHomeJournal();
    void columnsHaveHeadersIfTheWindowIsShownFirst();
    void hasTheFormBeforeItStarts();
    void aUserWithoutAWorkerGetsAnError();
    void reportsAMissingTable();
    void theBarIsBuiltInOrder();
    void allButtonsAreShown();
    void entriesOfTheMenusShowTheirDialogs_data();
    void entriesOfTheMenusShowTheirDialogs();
    void theButtonOfTheShiftDoesWhatComesNext();
    void theTabOfCommentsKnowsWhoAndWhere();
    void theStatusPanelNamesTheState();
    void theIntervalIsThatOfTheShift();
    void homeCannotBeClosed();
    void aDepartmentHasOneTab();
    void addingTheHomeDepartmentSelectsHome();
    void anotherDepartmentIsChosenInTheStructure();
    void aCancelledChoiceIsNotAnsweredLater();
    void onlyHomeIsChanged();
    void aVisaReachesEveryTabVisited();
    void theSearchButtonOpensTheSearchOfTheTabInFront();
    void eventsGoToEveryInitialisedTab();
    void otherMessagesReachNoTab();
    void controlsFollowTheCurrentRecord();
    void aClosedShiftShowsInTheBar();
    void controlsFollowWhatOthersWrite();
    void aQuestionDoesNotHoldTheControlsBack();
    void timeAndReportComeBackWithAJournal();
    void timeAndReportAreThoseOfTheJournalInFront();
    void theHostLeadsToTheComments();
    void theNameOfADepartmentIsNoShortcut();
    void textsLeftBehindAreOffered();

private:
    void start(const QString& login = QStringLiteral("ivanov"));
    QTabWidget* tabs() const { return m_window->findChild<QTabWidget*>(QStringLiteral("logbooks")); }
    LogBookWidget* home() const { return m_window->findChild<LogBookWidget*>(QStringLiteral("homeLogbook")); }
    OrgStructDialog* orgDialog() const
    {
        return m_window->findChild<OrgStructDialog*>(QStringLiteral("departmentDialog"));
    }
    QToolButton* button(const char* name) const
    {
        return m_window->findChild<QToolButton*>(QLatin1String(name));
    }
    QAction* action(const char* name) const { return m_window->findChild<QAction*>(QLatin1String(name)); }
    QLabel* statusLabel() const { return m_window->findChild<QLabel*>(QStringLiteral("statusLabel")); }
    QString interval() const { return m_window->findChild<QLabel*>(QStringLiteral("intervalLabel"))->text(); }
    static bool select(LogBookWidget* logbook, const char* key);
    static OrgStruct::SelectedItem department(const char* key);

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<CVrkLogBook> m_window;
};

void CVrkLogBook_test::init()
{
    m_store = std::make_unique<TestStore>();
}

void CVrkLogBook_test::cleanup()
{
    m_window.reset();
    m_client.reset();
    m_store.reset();
}

void CVrkLogBook_test::start(const QString& login)
{
    m_client = std::make_unique<TestClient>(*m_store, login);
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    QVERIFY(m_window->ModuleStart());
    m_window->show();
}

bool CVrkLogBook_test::select(LogBookWidget* logbook, const char* key)
{
    const MDRRange found =
        MDARecsWith(logbook->table(QStringLiteral("LogbookRecords"))->data.array, "KeyLink", key);
    if (found.count != 1)
        return false;
    logbook->findChild<VrkTableTool*>()->setCurrentRecord(*found.begin());
    return logbook->currentRecord() == *found.begin();
}

OrgStruct::SelectedItem CVrkLogBook_test::department(const char* key)
{
    OrgStruct::SelectedItem item;
    item.type = OrgStruct::Department;
    item.organizationKey = QStringLiteral("ORG_NETS");
    item.departmentKey = QLatin1String(key);
    return item;
}

void CVrkLogBook_test::opensOnTheHomeJournal()
{
    start();
    QCOMPARE(m_window->moduleTitle(), QStringLiteral("Оперативный журнал"));
    QCOMPARE(tabs()->count(), 1);
    QCOMPARE(tabs()->tabText(0), home()->title());
    QVERIFY(!tabs()->tabIcon(0).isNull());
    QVERIFY(!tabs()->tabBar()->tabButton(0, QTabBar::RightSide));
    QVERIFY(!tabs()->tabBar()->tabButton(0, QTabBar::LeftSide));
    QCOMPARE(home()->mode(), 1);
    QCOMPARE(home()->location()->workerKey(), QStringLiteral("WORKER_IVANOV"));
}

void CVrkLogBook_test::columnsHaveHeadersIfTheWindowIsShownFirst()
{
    TestClient client(*m_store);
    CVrkLogBook window(&client.app());
    window.show();
    QVERIFY(window.ModuleStart());
    QVERIFY(window.findChild<QTableView*>(QStringLiteral("recordsTable"))->horizontalHeader()->isVisible());
}

void CVrkLogBook_test::hasTheFormBeforeItStarts()
{
    TestClient client(*m_store);
    CVrkLogBook window(&client.app());
    QCOMPARE(window.objectName(), QStringLiteral("CVrkLogBook"));
    QCOMPARE(window.windowTitle(), QStringLiteral("EventsWindow"));
    QCOMPARE(window.size(), QSize(1219, 602));
    QCOMPARE(window.contextMenuPolicy(), Qt::NoContextMenu);

    const auto* logbooks = window.findChild<QTabWidget*>(QStringLiteral("logbooks"));
    QCOMPARE(logbooks->tabText(0), QStringLiteral("Записи"));
    QVERIFY(logbooks->isMovable());
    QVERIFY(logbooks->tabsClosable());
    auto* add = qobject_cast<QToolButton*>(logbooks->cornerWidget(Qt::TopLeftCorner));
    QVERIFY(add);
    QCOMPARE(add->toolTip(), QStringLiteral("Добавить журнал подразделения"));
    QCOMPARE(add->iconSize(), QSize(25, 24));
    QVERIFY(!add->icon().isNull());
    QCOMPARE(add->styleSheet(), QStringLiteral("QToolButton {border: none; background-color: transparent;}"));
    QCOMPARE(logbooks->styleSheet(), QStringLiteral("QTabBar::tab { height: 27px; }"));
    QVERIFY(!window.findChild<QToolBar*>());
}

void CVrkLogBook_test::aUserWithoutAWorkerGetsAnError()
{
    m_client = std::make_unique<TestClient>(*m_store, QStringLiteral("viewer"));
    m_client->app().m_user_params.setValue(QStringLiteral("DEPARTMENTKEY"), QStringLiteral("DEP_CDS"));
    m_client->app().m_user_params.setValue(QStringLiteral("ORGANIZATIONKEY"), QStringLiteral("ORG_NETS"));
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    QVERIFY(!m_window->ModuleStart());

    auto* box = m_window->findChild<CPopMessageBox*>();
    QVERIFY(box && box->isVisible());
    QCOMPARE(box->title(), QStringLiteral("Ошибка"));
    QCOMPARE(box->text(), QStringLiteral("<center>Сотрудник не определен!</center>"));
    QCOMPARE(box->icon(), MessageIconError);
    QCOMPARE(box->type(), MessageTypeOk);
    QVERIFY(!button("addButton")->isEnabled());
    QVERIFY(!m_window->findChild<QToolBar*>());
    QVERIFY(!home()->isInit());

    QTest::mouseClick(box->buttonBox()->buttons().constFirst(), Qt::LeftButton);
    QVERIFY(!box->isVisible());
}

void CVrkLogBook_test::reportsAMissingTable()
{
    for (const char* table : {"OrgTypes", "Departments"}) {
        const TestStore store;
        TestClient client(store);
        QCOMPARE(store.dropTables({QLatin1String(table)}), QString());
        CVrkLogBook window(&client.app());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(table)));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("bool CVrkLogBook::hasErrorUpload\\(\\).*"
                                                               "Не удалось загрузить таблицу ") +
                                                QLatin1String(table)));
        QVERIFY(!window.ModuleStart());
        const auto* box = window.findChild<CPopMessageBox*>();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->text(), QStringLiteral("<center>Не удалось загрузить данные!</center>"));
        QVERIFY(!window.findChild<QToolButton*>(QStringLiteral("addButton"))->isEnabled());
        QVERIFY(!window.findChild<LogBookWidget*>(QStringLiteral("homeLogbook"))->isInit());
    }
}

void CVrkLogBook_test::theBarIsBuiltInOrder()
{
    start();
    auto* bar = m_window->findChild<QToolBar*>(QStringLiteral("toolBar"));
    QVERIFY(!bar->isMovable());
    QVERIFY(!bar->isFloatable());
    QCOMPARE(m_window->toolBarArea(bar), Qt::TopToolBarArea);

    m_window->resize(1800, 602); // with the screen's large font, enough width for the whole bar
    QStringList order;
    for (QAction* one : bar->actions())
        order << (one->isSeparator() ? QStringLiteral("|") : bar->widgetForAction(one)->objectName());
    QCOMPARE(order.join(QLatin1Char(' ')),
             QStringLiteral(
                 "timeButton intervalLabel | workshiftButton | createButton deleteButton | approveButton "
                 "signButton executionButton | commentsButton reportButton | searchButton | statusLabel"));

    QCOMPARE(button("timeButton")->toolTip(), QStringLiteral("Перейти к текущей смене"));
    QCOMPARE(button("createButton")->toolTip(), QStringLiteral("Добавить новую запись (Ctrl + N)"));
    QCOMPARE(button("createButton")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_N));
    QCOMPARE(button("searchButton")->toolTip(), QStringLiteral("Поиск (Ctrl + F)"));
    QCOMPARE(button("searchButton")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_F));
    QStringList deletions;
    for (QAction* one : button("deleteButton")->menu()->actions())
        deletions << one->text();
    QCOMPARE(deletions, QStringList({QStringLiteral("Удалить текущую запись"),
                                     QStringLiteral("Удалить мои черновые записи"),
                                     QStringLiteral("Удалить все черновые записи")}));
    for (QToolButton* one : bar->findChildren<QToolButton*>()) {
        if (!one->objectName().startsWith(QLatin1String("qt_")))
            QVERIFY2(!one->icon().isNull(), qPrintable(one->objectName()));
    }
}

void CVrkLogBook_test::allButtonsAreShown()
{
    start();
    for (const char* name :
         {"timeButton", "workshiftButton", "executionButton", "createButton", "deleteButton", "approveButton",
          "signButton", "commentsButton", "reportButton", "searchButton"})
        QVERIFY2(button(name)->isVisible(), name);
}

void CVrkLogBook_test::entriesOfTheMenusShowTheirDialogs_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("another shift") << "chooseWorkshiftAction"
                                   << "WorkshiftsDialog";
    QTest::newRow("an interval") << "chooseIntervalAction"
                                 << "DateTimeRangeDialog";
    QTest::newRow("about the shift") << "infoWorkshiftAction"
                                     << "WorkshiftInfoDialog";
    QTest::newRow("a worker more") << "appendWorkerAction"
                                   << "AppendWorkerDialog";
}

void CVrkLogBook_test::entriesOfTheMenusShowTheirDialogs()
{
    QFETCH(QString, entry);
    QFETCH(QString, dialog);
    start();
    const auto* shown = m_window->findChild<QWidget*>(dialog);
    QVERIFY(shown && !shown->isVisible());
    action(qPrintable(entry))->trigger();
    QVERIFY(shown->isVisible());
}

void CVrkLogBook_test::theButtonOfTheShiftDoesWhatComesNext()
{
    start();
    const auto shown = [this](const char* name) {
        auto* dialog = m_window->findChild<QWidget*>(QLatin1String(name));
        const bool isShown = dialog->isVisible();
        dialog->close();
        return isShown;
    };
    // In the archive it shows the shift, in the open one it closes it, without one it opens the next.
    home()->uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
    button("workshiftButton")->click();
    QVERIFY(shown("WorkshiftInfoDialog"));
    button("timeButton")->click();
    home()->deleteAllDraftsRequest();
    m_client->deliver();
    button("workshiftButton")->click();
    QVERIFY(shown("CloseWorkshiftDialog"));
    QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                             {{"CloseWorkerKey", "WORKER_IVANOV"}}));
    m_client->deliver();
    button("workshiftButton")->click();
    QVERIFY(shown("OpenWorkshiftDialog"));
}

void CVrkLogBook_test::theTabOfCommentsKnowsWhoAndWhere()
{
    start();
    button("commentsButton")->click();
    const auto* tab = qobject_cast<LogBookTab*>(
        m_window->findChild<QTabWidget*>(QStringLiteral("logbooks"))->currentWidget());
    QVERIFY(tab && tab != home());
    QCOMPARE(tab->location()->workerKey(), QStringLiteral("WORKER_IVANOV"));
    QCOMPARE(tab->location()->departmentKey(), QStringLiteral("DEP_CDS"));
    QCOMPARE(tab->location()->organizationKey(), QStringLiteral("ORG_NETS"));
}

void CVrkLogBook_test::theStatusPanelNamesTheState()
{
    start();
    QCOMPARE(statusLabel()->text(), QStringLiteral("Смена открыта, редактирование разрешено"));
    QCOMPARE(statusLabel()->styleSheet(),
             QStringLiteral("border: 2px solid #63D945; border-radius: 3px; border-style: inset;"));

    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    QCOMPARE(statusLabel()->text(), QStringLiteral("Смена открыта, редактирование запрещено"));
    QVERIFY(statusLabel()->styleSheet().contains(QLatin1String("#169CBA")));

    m_window->appendLogbook(QStringLiteral("ORG_CENTER"), QStringLiteral("DEP_ODS"));
    QCOMPARE(statusLabel()->text(), QStringLiteral("Смена закрыта"));
    QVERIFY(statusLabel()->styleSheet().contains(QLatin1String("#F7351B")));
    QCOMPARE(interval(), QString());

    auto* logbook = qobject_cast<LogBookWidget*>(tabs()->currentWidget());
    const QDateTime now = QDateTime::currentDateTime();
    logbook->uploadRecordsIn(now.addDays(-1), now);
    QCOMPARE(statusLabel()->text(), QStringLiteral("Просмотр архива записей"));
    QVERIFY(interval().startsWith(QStringLiteral("Время: ")));
    logbook->uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
    QCOMPARE(statusLabel()->text(), QStringLiteral("Просмотр записей смены"));
    QVERIFY(interval().startsWith(QStringLiteral("Смена: ")));
}

void CVrkLogBook_test::theIntervalIsThatOfTheShift()
{
    start();
    const auto time = [this](const char* field) {
        const QString sql = QStringLiteral("SELECT %1 FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'");
        return QDateTime::fromSecsSinceEpoch(m_store->value(sql.arg(QLatin1String(field))).toLongLong())
            .toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    };
    QCOMPARE(interval(), QStringLiteral("Смена: %1 - %2").arg(time("startTime"), time("endTime")));
}

void CVrkLogBook_test::homeCannotBeClosed()
{
    start();
    const auto dialogs = [this] { return m_window->findChildren<CPopTemplate*>().size(); };
    const int before = dialogs();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    QVERIFY(dialogs() > before);
    tabs()->tabBar()->moveTab(0, 1);
    QCOMPARE(tabs()->indexOf(home()), 1);
    emit tabs()->tabCloseRequested(1);
    QCOMPARE(tabs()->count(), 2);
    const QPointer<QWidget> added = tabs()->widget(0);
    emit tabs()->tabCloseRequested(0);
    QCOMPARE(tabs()->count(), 1);
    QCOMPARE(tabs()->widget(0), home());
    QVERIFY(!added);
    QCOMPARE(dialogs(), before);
}

void CVrkLogBook_test::aDepartmentHasOneTab()
{
    start();
    QTest::ignoreMessage(QtDebugMsg, "Подразделение: DEP_ZAR");
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->currentIndex(), 1);
    auto* added = qobject_cast<LogBookWidget*>(tabs()->widget(1));
    QCOMPARE(tabs()->tabText(1), added->title());
    QCOMPARE(added->location()->workerKey(), QStringLiteral("WORKER_IVANOV"));
    QVERIFY(!added->location()->table(QStringLiteral("OrgTypes")));

    tabs()->setCurrentIndex(0);
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->currentIndex(), 1);

    // Only both keys together name a department.
    m_window->appendLogbook(QStringLiteral("ORG_CENTER"), QStringLiteral("DEP_ZAR"));
    QCOMPARE(tabs()->count(), 3);
    QCOMPARE(tabs()->currentIndex(), 2);
}

void CVrkLogBook_test::addingTheHomeDepartmentSelectsHome()
{
    start();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_CDS"));
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->currentWidget(), home());
}

void CVrkLogBook_test::anotherDepartmentIsChosenInTheStructure()
{
    start();
    button("addButton")->click();
    QVERIFY(orgDialog() && orgDialog()->isVisible());
    QCOMPARE(orgDialog()->widget()->selectionType(), int(OrgStruct::Department));

    OrgStruct::SelectedItem organization;
    organization.type = OrgStruct::Organization;
    organization.organizationKey = QStringLiteral("ORG_NETS");
    emit orgDialog()->itemSelected(organization);
    QCOMPARE(tabs()->count(), 1);

    button("addButton")->click();
    emit orgDialog()->itemSelected(department("DEP_ZAR"));
    QCOMPARE(tabs()->count(), 2);

    // The answer was used once: an unrequested choice changes nothing.
    emit orgDialog()->itemSelected(department("DEP_OTHER"));
    QCOMPARE(tabs()->count(), 2);
}

void CVrkLogBook_test::aCancelledChoiceIsNotAnsweredLater()
{
    start();
    button("addButton")->click();
    orgDialog()->close();
    button("addButton")->click();
    emit orgDialog()->itemSelected(department("DEP_ZAR"));
    QCOMPARE(tabs()->count(), 2);
    emit orgDialog()->itemSelected(department("DEP_OTHER"));
    QCOMPARE(tabs()->count(), 2);
}

void CVrkLogBook_test::onlyHomeIsChanged()
{
    start();
    QVERIFY(select(home(), "REC_DRAFT_IVANOV"));
    QVERIFY(button("createButton")->isEnabled());
    QVERIFY(button("deleteButton")->isEnabled());
    QVERIFY(button("approveButton")->isEnabled());
    QVERIFY(action("approveRecordAction")->isEnabled());

    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    for (const char* name : {"createButton", "deleteButton", "approveButton", "executionButton"})
        QVERIFY2(!button(name)->isEnabled(), name);
    QVERIFY(action("approveRecordAction")->isEnabled()); // only its button is disabled
    QVERIFY(button("timeButton")->isEnabled());

    tabs()->setCurrentWidget(home());
    QVERIFY(button("createButton")->isEnabled());
}

void CVrkLogBook_test::aVisaReachesEveryTabVisited()
{
    start();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    auto* added = qobject_cast<LogBookWidget*>(tabs()->currentWidget());
    QVERIFY(select(added, "REC_ZAR"));
    QVERIFY(select(home(), "REC_ORDER"));

    action("signRecordAction")->trigger();
    const auto visa = [this](const char* key) {
        const QString sql = QStringLiteral("SELECT VisaWorkerKey FROM LogbookRecords WHERE KeyLink='%1'");
        return m_store->value(sql.arg(QLatin1String(key))).toString();
    };
    QCOMPARE(visa("REC_ZAR"), QStringLiteral("WORKER_IVANOV"));
    QCOMPARE(visa("REC_ORDER"), QStringLiteral("WORKER_IVANOV"));
}

void CVrkLogBook_test::theSearchButtonOpensTheSearchOfTheTabInFront()
{
    start();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    const QWidget* added = tabs()->currentWidget();
    button("searchButton")->click();
    QVERIFY(added->findChild<QWidget*>(QStringLiteral("searchWidget"))->isVisible());
    QVERIFY(home()->findChild<QWidget*>(QStringLiteral("searchWidget"))->isHidden());
}

void CVrkLogBook_test::eventsGoToEveryInitialisedTab()
{
    start();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    auto* added = qobject_cast<LogBookWidget*>(tabs()->currentWidget());
    QSignalSpy atHome(home(), &LogBookWidget::recordUpdated);
    QSignalSpy elsewhere(added, &LogBookWidget::recordUpdated);

    const auto other = m_store->open(QStringLiteral("sidorova"));
    for (const char* key : {"REC_ORDER", "REC_ZAR"})
        QVERIFY(TestStore::write(other.get(), "LogbookRecords", ROW_UPDATE, key,
                                 {{"VisaWorkerKey", QStringLiteral("WORKER_SIDOROVA")}}));
    m_client->deliver();
    QCOMPARE(atHome.count(), 1);
    QCOMPARE(elsewhere.count(), 1);
}

void CVrkLogBook_test::otherMessagesReachNoTab()
{
    start();
    QSignalSpy updated(home(), &LogBookWidget::recordUpdated);
    for (int number : {600, 604, 631}) {
        HFNCliParam* block = HFNCliParam::event(number, "REC_ORDER", "NCI:LogbookRecords,1", QByteArray());
        QCOMPARE(m_window->MessageData(block), 0);
        delete block;
    }
    HFNCliParam* block = HFNCliParam::event(602, "REC_ORDER", "NCI:LogbookRecords,602", QByteArray());
    QCOMPARE(m_window->MessageData(block), 1);
    delete block;
    QCOMPARE(updated.count(), 1);
}

void CVrkLogBook_test::controlsFollowTheCurrentRecord()
{
    start();
    QVERIFY(select(home(), "REC_REPLACED"));
    QVERIFY(!action("deleteRecordAction")->isEnabled());
    QVERIFY(!action("signRecordAction")->isEnabled());
    QVERIFY(!action("approveRecordAction")->isEnabled());
    QVERIFY(button("deleteButton")->isEnabled()); // there are drafts
    QVERIFY(select(home(), "REC_ORDER"));         // approved, of a colleague
    QVERIFY(action("deleteRecordAction")->isEnabled());
    QVERIFY(action("signRecordAction")->isEnabled());
    QVERIFY(select(home(), "REC_OPENING")); // my own
    QVERIFY(!action("signRecordAction")->isEnabled());
    QVERIFY(action("signAllRecordsAction")->isEnabled());
}

void CVrkLogBook_test::aClosedShiftShowsInTheBar()
{
    start();
    const auto other = m_store->open(QStringLiteral("petrov"));
    QVERIFY(TestStore::write(other.get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                             {{"CloseWorkerKey", QStringLiteral("WORKER_PETROV")}}));
    m_client->deliver();
    QCOMPARE(statusLabel()->text(), QStringLiteral("Смена закрыта"));
    QVERIFY(!button("createButton")->isEnabled());
    QVERIFY(!button("deleteButton")->isEnabled());
}

void CVrkLogBook_test::controlsFollowWhatOthersWrite()
{
    start();
    QVERIFY(select(home(), "REC_DRAFT_PETROV"));
    QVERIFY(action("approveRecordAction")->isEnabled());
    const auto petrov = m_store->open(QStringLiteral("petrov"));
    QVERIFY(
        TestStore::write(petrov.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV", {{"status", 0}}));
    m_client->deliver();
    QVERIFY(!action("approveRecordAction")->isEnabled());
    QVERIFY(action("signRecordAction")->isEnabled());
}

void CVrkLogBook_test::aQuestionDoesNotHoldTheControlsBack()
{
    start();
    home()->deleteAllDraftsRequest();
    m_client->deliver();
    QVERIFY(select(home(), "REC_OPENING"));
    action("deleteRecordAction")->trigger(); // the current row stays while this is asked
    const auto petrov = m_store->open(QStringLiteral("petrov"));
    QVERIFY(TestStore::write(petrov.get(), "LogbookRecords", ROW_INSERT, "REC_NEW",
                             {{"KeyLink", "REC_NEW"},
                              {"ShiftKey", "SHIFT_CDS_OPEN"},
                              {"WorkerKey", "WORKER_PETROV"},
                              {"recordTime", TestStore::now()},
                              {"eventTime", TestStore::now()},
                              {"html", QStringLiteral("Черновик")},
                              {"status", 1},
                              {"direction", 0}}));
    m_client->deliver();
    QCOMPARE(Row(home()->currentRecord()).key(), QByteArray("REC_OPENING"));
    QVERIFY(action("approveAllRecordsAction")->isEnabled());
    // the row that waits for the answer does not become current in a page that is being closed
    m_window.reset();
}

void CVrkLogBook_test::timeAndReportComeBackWithAJournal()
{
    start();
    button("commentsButton")->click();
    for (const char* name : {"timeButton", "reportButton"})
        QVERIFY2(!button(name)->isEnabled(), name);
    tabs()->setCurrentIndex(0);
    for (const char* name : {"timeButton", "reportButton"})
        QVERIFY2(button(name)->isEnabled(), name);
}

void CVrkLogBook_test::timeAndReportAreThoseOfTheJournalInFront()
{
    start();
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    auto* added = qobject_cast<LogBookWidget*>(tabs()->currentWidget());
    const auto visible = [this](const char* className) {
        for (CPopTemplate* pop : m_window->findChildren<CPopTemplate*>())
            if (pop->isVisible() && pop->inherits(className))
                return pop;
        return static_cast<CPopTemplate*>(nullptr);
    };
    action("chooseIntervalAction")->trigger();
    auto* interval = qobject_cast<DateTimeRangeDialog*>(visible("DateTimeRangeDialog"));
    QVERIFY(interval);
    const QDateTime now = QDateTime::currentDateTime();
    emit interval->rangeSelected(now.addDays(-1), now);
    interval->close();
    QCOMPARE(added->mode(), 2);
    QCOMPARE(home()->mode(), 1);

    button("reportButton")->click();
    CPopTemplate* report = visible("ReportDialog");
    QVERIFY(report);
    QVERIFY(report->findChild<QLabel*>(QStringLiteral("titleLabel"))->text().startsWith(added->title()));
    report->close();

    home()->uploadRecordsIn(QStringLiteral("SHIFT_CDS_PAST"));
    button("timeButton")->click();
    QCOMPARE(added->mode(), 1);
    QCOMPARE(home()->mode(), 3);
}

void CVrkLogBook_test::theHostLeadsToTheComments()
{
    start();
    emit m_window->unreadCommentsRequested();
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->currentIndex(), 1);
    QVERIFY(!qobject_cast<LogBookWidget*>(tabs()->currentWidget()));
}

void CVrkLogBook_test::theNameOfADepartmentIsNoShortcut()
{
    for (const char* key : {"DEP_CDS", "DEP_ZAR"})
        QVERIFY(TestStore::write(m_store->openLoader().get(), "Departments", ROW_UPDATE, key,
                                 {{"name_", QStringLiteral("Смена & связь")}}));
    start();
    QVERIFY(home()->title().startsWith(QStringLiteral("Смена & связь")));
    m_window->appendLogbook(QStringLiteral("ORG_NETS"), QStringLiteral("DEP_ZAR"));
    for (int tab : {0, 1})
        QVERIFY2(tabs()->tabText(tab).startsWith(QStringLiteral("Смена && связь")),
                 qPrintable(tabs()->tabText(tab)));
}

void CVrkLogBook_test::textsLeftBehindAreOffered()
{
    const QTemporaryDir folder;
    {
        KeptTexts former;
        former.open(folder.path(), QStringLiteral("ivanov"), QStringLiteral("store"));
        former.keep(QStringLiteral("record/DEP_CDS"),
                    {{QStringLiteral("caption"), QStringLiteral("запись «Обход»")},
                     {QStringLiteral("create"), QStringLiteral("1")}});
        QVERIFY(former.flush());
    }
    m_client = std::make_unique<TestClient>(*m_store);
    m_client->app().keptTexts()->open(folder.path(), QStringLiteral("ivanov"), QStringLiteral("store"));
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    QVERIFY(m_window->ModuleStart());
    m_window->show();
    auto* bar = m_window->findChild<QWidget*>(QStringLiteral("leftTextsBar"));
    QTRY_VERIFY(bar->isVisible());
    m_window->findChild<QAbstractButton*>(QStringLiteral("openLeftButton"))->click();
    QVERIFY(m_window->findChild<RecordCreatorDialog*>()->isVisible());
    m_window.reset(); // the application's texts outlive the folder otherwise
    m_client.reset();
}

QTEST_MAIN(CVrkLogBook_test)
#include "CVrkLogBook_test.moc"
