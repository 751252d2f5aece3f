#include "CloseWorkshiftDialog.h"

#include "AppendWorkerDialog.h"
#include "CPopMessageBox.h"
#include "CVrkLogBook.h"
#include "ExpectedWarning.h"
#include "KeptTexts.h"
#include "LogBookWidget.h"
#include "LogWatch.h"
#include "OpenWorkshiftDialog.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordCreatorDialog.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "TestClient.h"
#include "Typing.h"
#include "WorkshiftInfoDialog.h"

#include <memory>
#include <QAction>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

/// Closing the open shift of ЦДС through the journal window, on a real store. The shift has two drafts.
class CloseWorkshiftDialog_test : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void draftsAreAskedAboutFirst();
    void theFrameOfTheQuestionStopsTheClosing();
    void withoutDraftsThereIsNoQuestion();
    void noLeavesTheDraftsAsTheyAre();
    void yesApprovesThem();
    void writesRecordShiftAndTakersOver();
    void withoutTakersOverNoRowIsWritten();
    void anyTimeOfTheEventWillDo();
    void anUnfilledTemplateHoldsTheClosingBack();
    void controlEnterGoesToWhatIsMissingOrCloses();
    void aSecondShowingStartsAfresh();
    void chosenTimeAndTakersAreOfferedAgain();
    void aTakerOverIsAddedOnceAndRemoved();
    void onlyTheCloserIsMarked();
    void aTemplateWithoutTextIsLogged();
    void newTemplatesComeToOpenDialogs();
    void aNewWorkerComesToTheStructure();
    void theShiftClosedByAnotherClosesTheDialog();
    void theShiftOpenedByAnotherClosesTheOpeningDialog();

private:
    void request(const char* answer = nullptr);
    CPopMessageBox* visibleBox() const
    {
        for (CPopMessageBox* one : m_window->findChildren<CPopMessageBox*>()) {
            if (one->isVisible())
                return one;
        }
        return nullptr;
    }
    CloseWorkshiftDialog* dialog() const { return m_window->findChild<CloseWorkshiftDialog*>(); }
    QPushButton* closeButton() const
    {
        return dialog()->findChild<QPushButton*>(QStringLiteral("closeWorkshiftButton"));
    }
    QTableWidget* takers() const
    {
        return dialog()->findChild<QTableWidget*>(QStringLiteral("workersTable"));
    }
    QToolButton* tool(const char* name) const
    {
        return dialog()->findChild<QToolButton*>(QLatin1String(name));
    }
    void fill();
    void choose(const char* workerKey);
    int drafts() const
    {
        return m_store
            ->value(QStringLiteral(
                "SELECT count(*) FROM LogbookRecords WHERE ShiftKey='SHIFT_CDS_OPEN' AND status=1"))
            .toInt();
    }
    int records() const
    {
        return m_store
            ->value(QStringLiteral("SELECT count(*) FROM LogbookRecords WHERE ShiftKey='SHIFT_CDS_OPEN'"))
            .toInt();
    }
    QString closedBy() const
    {
        return m_store
            ->value(
                QStringLiteral("SELECT CloseWorkerKey FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'"))
            .toString();
    }
    int takersInStore() const
    {
        return m_store
            ->value(QStringLiteral("SELECT count(*) FROM LogbookWorkersWorkshift WHERE "
                                   "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0"))
            .toInt();
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<TestClient> m_client;
    std::unique_ptr<CVrkLogBook> m_window;
    LogBookWidget* m_home = nullptr;
};

void CloseWorkshiftDialog_test::init()
{
    m_store = std::make_unique<TestStore>();
    m_client = std::make_unique<TestClient>(*m_store, QStringLiteral("ivanov"));
    m_window = std::make_unique<CVrkLogBook>(&m_client->app());
    QVERIFY(m_window->ModuleStart());
    m_window->show();
    m_home = m_window->findChild<LogBookWidget*>(QStringLiteral("homeLogbook"));
}

void CloseWorkshiftDialog_test::cleanup()
{
    m_window.reset();
    m_client.reset();
    m_store.reset();
}

/// Requests the closing with the tool bar's action and answers the question about drafts.
void CloseWorkshiftDialog_test::request(const char* answer)
{
    m_window->findChild<QAction*>(QStringLiteral("closeWorkshiftAction"))->trigger();
    if (!answer)
        return;
    QVERIFY(visibleBox());
    for (QAbstractButton* button : visibleBox()->buttonBox()->buttons()) {
        if (button->text().remove(QLatin1Char('&')) == QString::fromUtf8(answer)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("no such answer");
}

void CloseWorkshiftDialog_test::fill()
{
    auto* filler = dialog()->findChild<TemplateFiller*>();
    for (unsigned int index : filler->findParameter(QStringLiteral("employee_fio")))
        filler->setParameterValue(index, QStringLiteral("Иванов Иван Иванович"),
                                  QStringLiteral("WORKER_IVANOV"));
    QVERIFY(filler->isFilled());
}

void CloseWorkshiftDialog_test::choose(const char* workerKey)
{
    QTest::mouseClick(tool("addWorkerButton"), Qt::LeftButton);
    OrgStructDialog* structure = nullptr;
    for (OrgStructDialog* one : m_window->findChildren<OrgStructDialog*>()) {
        if (one->isVisible())
            structure = one;
    }
    QVERIFY(structure);
    OrgStruct::SelectedItem item;
    item.type = OrgStruct::Person;
    item.worker.keyLink = QLatin1String(workerKey);
    structure->hide();
    emit structure->itemSelected(item);
}

void CloseWorkshiftDialog_test::draftsAreAskedAboutFirst()
{
    request();
    QVERIFY(visibleBox());
    QCOMPARE(visibleBox()->title(), QStringLiteral("Утверждение записей"));
    QCOMPARE(visibleBox()->text(),
             QStringLiteral(
                 "<center>Смена содержит черновые записи!<br/><br/>Утвердить все черновые записи?</center>"));
    QCOMPARE(visibleBox()->icon(), MessageIconQuestion);
    QCOMPARE(visibleBox()->type(), MessageTypeYesNo);
    QVERIFY(!dialog()->isVisible());
}

void CloseWorkshiftDialog_test::theFrameOfTheQuestionStopsTheClosing()
{
    request();
    visibleBox()->close();
    QVERIFY(!dialog()->isVisible());
}

void CloseWorkshiftDialog_test::withoutDraftsThereIsNoQuestion()
{
    m_home->deleteAllDraftsRequest();
    m_client->deliver();
    request();
    QVERIFY(!visibleBox());
    QVERIFY(dialog()->isVisible());
    QCOMPARE(dialog()->windowTitle(), QStringLiteral("Закрытие смены"));
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    if (screen.width() > 1210 && screen.height() > 540)
        QCOMPARE(dialog()->size(), QSize(1200, 500));
    else // no pop-up is larger than the screen
        QVERIFY(dialog()->width() <= screen.width() && dialog()->width() > screen.width() - 20);
}

void CloseWorkshiftDialog_test::noLeavesTheDraftsAsTheyAre()
{
    request("Нет");
    QVERIFY(dialog()->isVisible());
    fill();
    closeButton()->click();
    QVERIFY(!dialog()->isVisible());
    QCOMPARE(drafts(), 2);
    QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
}

void CloseWorkshiftDialog_test::yesApprovesThem()
{
    request("Да");
    fill();
    closeButton()->click();
    QCOMPARE(drafts(), 0);
    QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
}

void CloseWorkshiftDialog_test::writesRecordShiftAndTakersOver()
{
    const int before = records();
    request("Да");
    fill();
    choose("WORKER_PETROV");
    choose("WORKER_SIDOROVA");
    QCOMPARE(takers()->rowCount(), 2);
    const QDateTime event(dialog()->findChild<QDateEdit*>(QStringLiteral("eventDateEdit"))->date(),
                          dialog()->findChild<QTimeEdit*>(QStringLiteral("eventTimeEdit"))->time());
    QVERIFY(qAbs(event.secsTo(QDateTime::currentDateTime())) < 120);
    closeButton()->click();

    QCOMPARE(records(), before + 1);
    const auto rows = m_store->rows(
        QStringLiteral("SELECT WorkerKey, status, direction, recordTime, eventTime, html, VisaWorkerKey "
                       "FROM LogbookRecords WHERE ShiftKey='SHIFT_CDS_OPEN' ORDER BY rowid DESC LIMIT 1"));
    QCOMPARE(rows[0][0].toString(), QStringLiteral("WORKER_IVANOV"));
    QCOMPARE(rows[0][1].toInt(), 0);
    QCOMPARE(rows[0][2].toInt(), 0);
    QCOMPARE(rows[0][3].toLongLong(), event.toSecsSinceEpoch());
    QCOMPARE(rows[0][4].toLongLong(), event.toSecsSinceEpoch());
    QVERIFY(rows[0][5].toString().contains(QStringLiteral("close_wshift")));
    QVERIFY(rows[0][5].toString().contains(QStringLiteral("Иванов Иван Иванович")));
    QVERIFY(rows[0][6].isNull());
    const auto crew =
        m_store->rows(QStringLiteral("SELECT WorkerKey, opening FROM LogbookWorkersWorkshift WHERE "
                                     "WorkshiftKey='SHIFT_CDS_OPEN' AND opening=0 ORDER BY rowid"));
    QCOMPARE(crew.size(), 2);
    QCOMPARE(crew[0][0].toString(), QStringLiteral("WORKER_PETROV"));
    QCOMPARE(crew[1][0].toString(), QStringLiteral("WORKER_SIDOROVA"));

    m_client->deliver();
    QVERIFY(m_home->isCloseWorkshift());
}

void CloseWorkshiftDialog_test::withoutTakersOverNoRowIsWritten()
{
    request("Нет");
    fill();
    closeButton()->click();
    QCOMPARE(takersInStore(), 0);
    QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
}

void CloseWorkshiftDialog_test::anyTimeOfTheEventWillDo()
{
    request("Нет");
    fill();
    dialog()->findChild<QDateEdit*>(QStringLiteral("eventDateEdit"))->setDate(QDate(2001, 2, 3));
    dialog()->findChild<QTimeEdit*>(QStringLiteral("eventTimeEdit"))->setTime(QTime(4, 5));
    QVERIFY(closeButton()->isEnabled());
    closeButton()->click();
    QCOMPARE(m_store->value(QStringLiteral("SELECT min(eventTime) FROM LogbookRecords")).toLongLong(),
             QDateTime(QDate(2001, 2, 3), QTime(4, 5)).toSecsSinceEpoch());
}

void CloseWorkshiftDialog_test::anUnfilledTemplateHoldsTheClosingBack()
{
    request("Нет");
    QVERIFY(!closeButton()->isEnabled()); // nothing is filled in automatically
    const auto* reported = dialog()->findChild<QLabel*>(QStringLiteral("missingLabel"));
    QVERIFY2(reported->text().startsWith(QStringLiteral("Не заполнено: ")), qPrintable(reported->text()));
    fill();
    QCOMPARE(reported->text(), QString());
    QVERIFY(closeButton()->isEnabled());
}

void CloseWorkshiftDialog_test::controlEnterGoesToWhatIsMissingOrCloses()
{
    request("Нет");
    dialog()->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), dialog());
    auto* date = dialog()->findChild<QDateEdit*>(QStringLiteral("eventDateEdit"));
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(dialog()->isVisible());
    QWidget* input = dialog()->focusWidget();
    QCOMPARE(input->objectName(), QStringLiteral("parameterInput_0"));
    typeText(input, QStringLiteral("Иванов"));
    QTest::keyClick(input, Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    QVERIFY(!dialog()->isVisible());
    QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
}

void CloseWorkshiftDialog_test::aSecondShowingStartsAfresh()
{
    request("Да");
    choose("WORKER_PETROV");
    QVERIFY(dialog()->findChild<TemplatesWidget*>()->currentTemplate());
    dialog()->findChild<QPushButton*>(QStringLiteral("cancelButton"))->click();
    QVERIFY(!dialog()->isVisible());
    QVERIFY(!dialog()->findChild<TemplatesWidget*>()->currentTemplate());
    request("Нет");
    QCOMPARE(takers()->rowCount(), 0);
    fill();
    closeButton()->click();
    QCOMPARE(drafts(), 2);
    QCOMPARE(takersInStore(), 0);
}

void CloseWorkshiftDialog_test::chosenTimeAndTakersAreOfferedAgain()
{
    expectWarning(QStringLiteral("broken"));
    expectWarning(QStringLiteral("error create record about closing workshift!"));
    KeptTexts* texts = KeptTexts::of(m_window.get());
    const QString place =
        CloseWorkshiftDialog::keptPlace(QStringLiteral("close_wshift"), QStringLiteral("DEP_CDS"));
    texts->keep(place, {{QStringLiteral("workshift"), QStringLiteral("SHIFT_OTHER")}}); // it has ended
    request("Нет");
    QVERIFY(texts->offered(place).isEmpty());
    const auto edit = [this](const char* name) {
        return dialog()->findChild<QDateTimeEdit*>(QLatin1String(name));
    };
    const QDate day = QDate::currentDate().addDays(-3);
    edit("eventDateEdit")->setDate(day);
    choose("WORKER_PETROV");
    fill();
    QCOMPARE(m_store->refuse(QStringLiteral("INSERT"), QStringLiteral("LogbookRecords")), QString());
    closeButton()->click();
    QVERIFY(!dialog()->isVisible());
    QCOMPARE(texts->offered(place).size(), 1); // nothing was written

    QCOMPARE(m_store->permit(QStringLiteral("INSERT"), QStringLiteral("LogbookRecords")), QString());
    request("Нет");
    QCOMPARE(edit("eventDateEdit")->date(), QDate::currentDate());
    dialog()->findChild<QPushButton*>(QStringLiteral("takeKeptButton"))->click();
    QCOMPARE(edit("eventDateEdit")->date(), day);
    QCOMPARE(takers()->rowCount(), 1);
    fill();
    closeButton()->click();
    QCOMPARE(takersInStore(), 1);
    QVERIFY(texts->offered(place).isEmpty());
}

void CloseWorkshiftDialog_test::aTakerOverIsAddedOnceAndRemoved()
{
    request("Нет");
    choose("WORKER_PETROV");
    choose("WORKER_PETROV");
    QCOMPARE(takers()->rowCount(), 1);
    QCOMPARE(takers()->item(0, 0)->text(), QStringLiteral("Петров Пётр Петрович"));
    QVERIFY(tool("clearWorkersButton")->isEnabled());
    QVERIFY(tool("removeWorkerButton")->isEnabled());
    tool("removeWorkerButton")->click();
    QCOMPARE(takers()->rowCount(), 0);
    QVERIFY(!tool("clearWorkersButton")->isEnabled());
    QVERIFY(!tool("removeWorkerButton")->isEnabled());
    choose("WORKER_PETROV");
    choose("WORKER_SIDOROVA");
    QCOMPARE(takers()->currentRow(), 0); // the first, not the new one
    tool("clearWorkersButton")->click();
    QCOMPARE(takers()->rowCount(), 0);
}

void CloseWorkshiftDialog_test::onlyTheCloserIsMarked()
{
    request("Нет");
    fill();
    // Corrected in the meantime; the event has not arrived at this workstation.
    QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                             {{"endTime", TestStore::now() + 7200}}));
    closeButton()->click();
    QCOMPARE(closedBy(), QStringLiteral("WORKER_IVANOV"));
    const QString end =
        QStringLiteral("SELECT endTime FROM LogbookWorkshifts WHERE KeyLink='SHIFT_CDS_OPEN'");
    QCOMPARE(m_store->value(end).toDouble(), TestStore::now() + 7200);
}

void CloseWorkshiftDialog_test::aTemplateWithoutTextIsLogged()
{
    QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookTemplates", ROW_UPDATE, "TPL_OPEN",
                             {{"html", nullptr}}));
    m_client->deliver();
    for (const char* signature : {"void OpenWorkshiftDialog::reloadTemplateText(MDArrayRec*)",
                                  "void CloseWorkshiftDialog::reloadTemplateText(MDArrayRec*)"}) {
        const bool opens = QByteArray(signature).contains("Open");
        QWidget* shown =
            opens ? static_cast<QWidget*>(m_window->findChild<OpenWorkshiftDialog*>()) : dialog();
        auto* templates = shown->findChild<TemplatesWidget*>();
        // A template whose text was removed in the meantime no longer belongs to this kind; if it is shown,
        // a message says so.
        templates->setTemplateProps({}, false);
        LogWatch log;
        if (opens)
            m_home->openWorkshiftRequest();
        else
            request("Нет");
        QVERIFY(templates->selectTemplate(QStringLiteral("TPL_OPEN")));
        const QString line = QLatin1String(signature) + QStringLiteral(" template does not contains html!");
        QVERIFY2(log.take(line).size() >= 1, signature);
        QCOMPARE(shown->findChild<TemplateFiller*>()->filledTemplate(true), QString());
        QCOMPARE(log.take(), QStringList());
        shown->close();
    }
}

void CloseWorkshiftDialog_test::newTemplatesComeToOpenDialogs()
{
    m_home->openWorkshiftRequest();
    request("Нет");
    m_home->createRecordRequest();
    const QString html =
        m_store->value(QStringLiteral("SELECT html FROM LogbookTemplates WHERE KeyLink='TPL_OPEN'"))
            .toString()
            .replace(QStringLiteral("open_wshift"), QStringLiteral("open_wshift;close_wshift"));
    QVERIFY(html.contains(QStringLiteral("close_wshift")));
    QVERIFY(TestStore::write(
        m_store->openLoader().get(), "LogbookTemplates", ROW_INSERT, "TPL_NEW",
        {{"CategoryKey", "CAT_COMMON"}, {"nameLoc", QStringLiteral("Новый порядок")}, {"html", html}}));
    m_client->deliver();
    const QList<QWidget*> dialogs{m_window->findChild<OpenWorkshiftDialog*>(), dialog(),
                                  m_window->findChild<RecordCreatorDialog*>()};
    for (QWidget* one : dialogs) {
        QVERIFY(one->isVisible());
        QVERIFY2(one->findChild<TemplatesWidget*>()->selectTemplate(QStringLiteral("TPL_NEW")),
                 one->metaObject()->className());
    }
    const QString name = QStringLiteral("Другой порядок");
    QVERIFY(TestStore::write(m_store->openLoader().get(), "LogbookTemplates", ROW_UPDATE, "TPL_NEW",
                             {{"nameLoc", name}}));
    m_client->deliver();
    for (QWidget* one : dialogs) {
        const auto* tree = one->findChild<TemplatesWidget*>()->findChild<QTreeView*>();
        const auto isShown = [&] {
            return !tree->model()
                        ->match(tree->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                Qt::MatchExactly | Qt::MatchRecursive)
                        .isEmpty();
        };
        QTRY_VERIFY2(isShown(), one->metaObject()->className()); // the tree is built again a moment later
    }
}

void CloseWorkshiftDialog_test::aNewWorkerComesToTheStructure()
{
    request("Нет");
    tool("addWorkerButton")->click();
    OrgStructDialog* structure = nullptr;
    for (OrgStructDialog* one : m_window->findChildren<OrgStructDialog*>())
        if (one->isVisible())
            structure = one;
    QVERIFY(structure);
    const auto known = [structure] {
        OrgStruct::Worker worker;
        worker.keyLink = QStringLiteral("WORKER_NOVIKOV");
        structure->widget()->setCurrectItem(worker);
        return structure->widget()->selectedItem().worker.keyLink == worker.keyLink;
    };
    QVERIFY(!known());
    auto* input = dialog()->findChild<QWidget*>(QStringLiteral("parameterInput_0"));
    typeText(input, QStringLiteral("нов")); // the fields have loaded the workers by now
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(input, Qt::Key_Backspace);
    QVERIFY(TestStore::write(
        m_store->openLoader().get(), "Workers", ROW_INSERT, "WORKER_NOVIKOV",
        {{"lastName", QStringLiteral("Новиков")}, {"DepartmentKey", "DEP_CDS"}, {"deleted_", 0}}));
    m_client->deliver();
    QVERIFY(known());
    // The fields of the dialog know him as well.
    typeText(input, QStringLiteral("новик"));
    QTest::keyClick(input, Qt::Key_Tab);
    QVERIFY(dialog()->findChild<TemplateFiller*>()->filledTemplate(true).contains(
        QStringLiteral("WORKER_NOVIKOV")));
}

void CloseWorkshiftDialog_test::theShiftClosedByAnotherClosesTheDialog()
{
    request("Нет");
    QVERIFY(dialog()->isVisible());
    m_home->appendWorkerRequest();
    m_home->showWorkshiftInfoDialog();
    m_home->createRecordRequest();
    const auto other = m_store->open(QStringLiteral("petrov"));
    QVERIFY(TestStore::write(other.get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                             {{"CloseWorkerKey", QStringLiteral("WORKER_PETROV")}}));
    m_client->deliver();
    QVERIFY(!dialog()->isVisible());
    QVERIFY(!m_window->findChild<AppendWorkerDialog*>()->isVisible());
    QVERIFY(!m_window->findChild<WorkshiftInfoDialog*>()->isVisible());
    QVERIFY(!m_window->findChild<RecordCreatorDialog*>()->isVisible());
}

void CloseWorkshiftDialog_test::theShiftOpenedByAnotherClosesTheOpeningDialog()
{
    TestClient other(*m_store, QStringLiteral("smirnov"), "DEP_ODS");
    CVrkLogBook window(&other.app());
    QVERIFY(window.ModuleStart());
    window.show();
    window.findChild<QAction*>(QStringLiteral("openWorkshiftAction"))->trigger();
    auto* opening = window.findChild<OpenWorkshiftDialog*>();
    QVERIFY(opening->isVisible());
    const auto loader = m_store->openLoader();
    const double now = QDateTime::currentSecsSinceEpoch();
    QVERIFY(TestStore::write(loader.get(), "LogbookWorkshifts", ROW_INSERT, "SHIFT_ODS_NEW",
                             {{"DepartmentKey", QStringLiteral("DEP_ODS")},
                              {"OpenWorkerKey", QStringLiteral("WORKER_SMIRNOV_ODS")},
                              {"createdAt", now},
                              {"startTime", now},
                              {"endTime", now + 3600}}));
    other.deliver();
    QVERIFY(!opening->isVisible());
    auto* home = window.findChild<LogBookWidget*>(QStringLiteral("homeLogbook"));
    QCOMPARE(home->workshiftKeyLink(), QStringLiteral("SHIFT_ODS_NEW"));
    QVERIFY(home->isOpenWorkshift());
}

QTEST_MAIN(CloseWorkshiftDialog_test)
#include "CloseWorkshiftDialog_test.moc"
