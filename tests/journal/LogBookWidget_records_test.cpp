#include "CVrkCliSes.h"
#include "HtmlParser.h"
#include "LogWatch.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "TestJournal.h"

#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

/// Creating, editing, deleting, approving and signing records: the result in the store and the messages to
/// the user.
class LogBookWidget_records_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    static QVariant stored(const TestStore& store, const char* key, const char* field)
    {
        return store.value(QStringLiteral("SELECT %1 FROM LogbookRecords WHERE KeyLink='%2'")
                               .arg(QLatin1String(field), QLatin1String(key)));
    }
    static bool isStored(const TestStore& store, const char* key)
    {
        return store
                   .value(QStringLiteral("SELECT count(*) FROM LogbookRecords WHERE KeyLink='%1'")
                              .arg(QLatin1String(key)))
                   .toInt() > 0;
    }
    /// From now on the store refuses changes of records.
    static void refuseWrites(const TestStore& store)
    {
        for (const char* operation : {"UPDATE", "DELETE"})
            QCOMPARE(store.refuse(QLatin1String(operation), QStringLiteral("LogbookRecords")), QString());
    }
    void compareBox(TestJournal& journal, const QString& title, const QString& text, TMessageBoxIcon icon,
                    TMessageBoxType type)
    {
        CPopMessageBox* box = journal.box();
        QVERIFY(box);
        QCOMPARE(box->title(), title);
        QCOMPARE(box->text(), text);
        QCOMPARE(box->icon(), icon);
        QCOMPARE(box->type(), type);
        QVERIFY(box->width() >= 350);
    }
    void compareFailure(TestJournal& journal, const QString& line, const QString& title, const QString& text)
    {
        QCOMPARE(m_log->take(QStringLiteral("LogBookWidget")), QStringList{line});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        compareBox(journal, title, QStringLiteral("<center>%1</center>").arg(text), MessageIconError,
                   MessageTypeOk);
        journal.press(QDialogButtonBox::AcceptRole);
        QVERIFY(!journal.box());
    }
    static RecordCreatorDialog* editor(TestJournal& journal)
    {
        return journal.module().findChild<RecordCreatorDialog*>();
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void opensTheEditorForANewRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        QVERIFY(!editor(journal)->isVisible());
        journal.tab().createRecordRequest();
        QVERIFY(editor(journal)->isVisible());
    }

    void theEditorShowsTheDraftAndNothingOfItInANewRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        const auto shown = [&] {
            return editor(journal)->findChild<TemplateFiller*>()->filledTemplate(false);
        };
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().editRecordRequest();
        QVERIFY2(shown().contains(QStringLiteral("осмотр оборудования")), qPrintable(shown()));
        editor(journal)->close();
        journal.tab().createRecordRequest();
        QVERIFY2(!shown().contains(QStringLiteral("осмотр оборудования")), qPrintable(shown()));
    }

    void aNewRecordGoesIntoTheShiftOfThePage()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().createRecordRequest();
        auto* templates = editor(journal)->findChild<TemplatesWidget*>();
        QVERIFY(templates->selectTemplate(QStringLiteral("TPL_TRIP"))); // of the type of the organization
        QVERIFY(templates->selectTemplate(QStringLiteral("TPL_TEXT"))); // of the department
        editor(journal)->findChild<QPushButton*>(QStringLiteral("saveButton"))->click();
        const auto row = store.rows(
            QStringLiteral("SELECT ShiftKey, WorkerKey FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))[0];
        QCOMPARE(row, QVariantList({QStringLiteral("SHIFT_CDS_OPEN"), QStringLiteral("WORKER_IVANOV")}));
    }

    void opensTheEditorByADoubleClick_data()
    {
        QTest::addColumn<QByteArray>("login");
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<bool>("isOpened");
        QTest::newRow("draft") << QByteArray("ivanov") << QByteArray("REC_DRAFT_IVANOV") << true;
        QTest::newRow("approved") << QByteArray("ivanov") << QByteArray("REC_ORDER") << true;
        QTest::newRow("deleted") << QByteArray("ivanov") << QByteArray("REC_REPLACED") << false;
        QTest::newRow("outside of the shift") << QByteArray("sidorova") << QByteArray("REC_ORDER") << false;
    }
    void opensTheEditorByADoubleClick()
    {
        QFETCH(QByteArray, login);
        QFETCH(QByteArray, record);
        QFETCH(bool, isOpened);
        const TestStore store;
        TestJournal journal(store, QString::fromLatin1(login));
        journal.select(record);
        const QPoint cell = journal.view()->visualRect(journal.view()->currentIndex()).center();
        QTest::mouseClick(journal.view()->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QTest::mouseDClick(journal.view()->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QCOMPARE(editor(journal)->isVisible(), isOpened);
    }

    void editsNothingWithoutARecord()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("smirnov"), "DEP_ODS");
        journal.tab().editRecordRequest();
        QVERIFY(!editor(journal)->isVisible());
        journal.tab().deleteRecordRequest();
        journal.tab().approveRecordRequest();
        journal.tab().approveRecord();
        journal.tab().signRecordRequest();
        journal.tab().signAllRecordsRequest();
        QVERIFY(!journal.box());
    }

    void deletesADraftWithoutAQuestion()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_DRAFT_PETROV");
        journal.view()->setFocus();
        QTest::keyClick(journal.view(), Qt::Key_Delete);
        QVERIFY(!journal.box());
        QVERIFY(!isStored(store, "REC_DRAFT_PETROV"));
        QVERIFY(journal.record("REC_DRAFT_PETROV")); // it is removed by the event
        QCOMPARE(journal.deliver(), QStringList{QStringLiteral("603 LogbookRecords 1")});
        QVERIFY(!journal.record("REC_DRAFT_PETROV"));
    }

    void deletesTheCommentsAndFilesOfADraftWithIt()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_INSERT,
                                 "COM_NEW",
                                 {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"RecordKey", QByteArray("REC_DRAFT_IVANOV")},
                                  {"commentTime", TestStore::now()},
                                  {"text_", QStringLiteral("?")}}));
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().deleteRecordRequest();
        QCOMPARE(journal.deliver().size(), 2);
        QVERIFY(!journal.record("REC_DRAFT_IVANOV"));
        QCOMPARE(journal.tab().table(QStringLiteral("LogbookComments"))->data.RecCount(), 2);
    }

    void asksBeforeAnApprovedRecordIsMarkedDeleted()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        QTest::keyClick(&journal.tab(), Qt::Key_Delete);
        compareBox(
            journal, QStringLiteral("Удаление утвержденной записи"),
            QStringLiteral("<center>После удаления запись будет помечена как удалённая!\nВы действительно "
                           "хотите удалить запись?</center>"),
            MessageIconQuestion, MessageTypeYesNo);
        journal.press(QDialogButtonBox::NoRole);
        QVERIFY(!journal.box());
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);

        journal.tab().deleteRecordRequest();
        journal.press(QDialogButtonBox::YesRole);
        QVERIFY(!journal.box());
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 2);
        QCOMPARE(journal.deliver(), QStringList{QStringLiteral("602 LogbookRecords 1")});
        QVERIFY(hasStatus(journal.record("REC_ORDER"), StatusDeleted));
        QCOMPARE(journal.shownKeys().size(), 8);
    }

    void takesTheFrameOfTheBoxForNo()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().deleteRecordRequest();
        journal.box()->close();
        QVERIFY(!journal.box());
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);
        journal.tab().deleteRecordRequest(); // the earlier question has no effect any more
        journal.press(QDialogButtonBox::NoRole);
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);
    }

    void takesOneAnswerOnly()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().deleteRecordRequest();
        QDialogButtonBox* buttons = journal.box()->buttonBox();
        journal.press(QDialogButtonBox::NoRole);
        for (QAbstractButton* button : buttons->buttons()) // of an answered question
            emit buttons->clicked(button);
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);
    }

    void deletesTheRecordThatIsCurrentWhenTheAnswerComes()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().deleteRecordRequest();
        journal.select("REC_MESSAGE");
        journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 0);
        QCOMPARE(stored(store, "REC_MESSAGE", "status").toInt(), 2);
    }

    void keepsTheQuestionsRecordWhenAColleagueWrites()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_ORDER");
        journal.tab().deleteRecordRequest();
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_INSERT,
                                 "NEW",
                                 {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"recordTime", TestStore::now()},
                                  {"status", 0}}));
        journal.deliver();
        QCOMPARE(journal.currentKey(), QStringLiteral("REC_ORDER"));
        journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(stored(store, "REC_ORDER", "status").toInt(), 2);
        QTRY_COMPARE(journal.currentKey(), QStringLiteral("NEW"));
    }

    void doesNothingWithADeletedRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_REPLACED");
        journal.tab().deleteRecordRequest();
        QTest::keyClick(&journal.tab(), Qt::Key_Delete);
        QVERIFY(!journal.box());
        QCOMPARE(journal.deliver(), QStringList());
    }

    void theKeyDeletesNothingOutsideOfTheShift()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        journal.select("REC_ORDER");
        QTest::keyClick(&journal.tab(), Qt::Key_Delete);
        QVERIFY(!journal.box());
    }

    void leavesTheKeyToTheListThatHasTheFocus()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        auto* list = journal.child<QListWidget>("commentsList");
        list->setFocus();
        QVERIFY(list->hasFocus());
        QTest::keyClick(list, Qt::Key_Delete);
        journal.child<QTabWidget>("additionalTab")->setCurrentIndex(1);
        auto* files = journal.child<QTableWidget>("filesTable");
        files->setFocus();
        QVERIFY(files->hasFocus());
        QTest::keyClick(files, Qt::Key_Delete);
        QVERIFY(isStored(store, "REC_DRAFT_IVANOV"));
        QVERIFY(!journal.box());
    }

    void saysWhenADraftCannotBeDeleted()
    {
        const TestStore store;
        TestJournal journal(store);
        refuseWrites(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().deleteRecordRequest();
        compareFailure(
            journal,
            QStringLiteral("void LogBookWidget::deleteRecordRequest() failed delete record REC_DRAFT_IVANOV "
                           "with status 1 from table LogbookRecords"),
            QStringLiteral("Ошибка удаления записи"), QStringLiteral("Не удалось удалить запись!"));
        QVERIFY(isStored(store, "REC_DRAFT_IVANOV"));
    }

    void saysWhenARecordCannotBeMarkedDeleted()
    {
        const TestStore store;
        TestJournal journal(store);
        refuseWrites(store);
        journal.select("REC_ORDER");
        journal.tab().deleteRecordRequest();
        journal.press(QDialogButtonBox::YesRole);
        compareFailure(
            journal,
            QStringLiteral("void LogBookWidget::deleteRecordAnswer(QAbstractButton*) failed set status 2 for "
                           "record REC_ORDER in table LogbookRecords"),
            QStringLiteral("Ошибка удаления записи"), QStringLiteral("Не удалось удалить запись!"));
    }

    void deletesMyDrafts()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().deleteMyDraftsRequest();
        QVERIFY(!journal.box());
        QVERIFY(!isStored(store, "REC_DRAFT_IVANOV"));
        QVERIFY(isStored(store, "REC_DRAFT_PETROV"));
        QCOMPARE(journal.deliver(), QStringList{QStringLiteral("603 LogbookRecords 1")});
        int writes = 0;
        connect(&journal.session(), &CVrkCliSes::writeEnded, &journal.tab(), [&writes] { ++writes; });
        journal.tab().deleteMyDraftsRequest(); // none is left: no request
        QCOMPARE(journal.deliver(), QStringList());
        QCOMPARE(writes, 0);
    }

    void deletesAllDraftsOfAllAuthors()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.tab().deleteAllDraftsRequest();
        QVERIFY(!isStored(store, "REC_DRAFT_IVANOV"));
        QVERIFY(!isStored(store, "REC_DRAFT_PETROV"));
        QCOMPARE(journal.deliver().size(), 2);
        QVERIFY(!journal.tab().isExistDrafts());
        journal.tab().deleteAllDraftsRequest();
        QCOMPARE(journal.deliver(), QStringList());
        QVERIFY(!journal.box());
    }

    void saysWhenDraftsCannotBeDeleted()
    {
        const TestStore store;
        TestJournal journal(store);
        refuseWrites(store);
        journal.tab().deleteMyDraftsRequest();
        compareFailure(
            journal,
            QStringLiteral("void LogBookWidget::deleteMyDraftsRequest() error delete my records! Data: "
                           "Table(LogbookRecords) "),
            QStringLiteral("Ошибка"), QStringLiteral("Не удалось удалить черновые записи!"));
        journal.tab().deleteAllDraftsRequest();
        compareFailure(
            journal,
            QStringLiteral("void LogBookWidget::deleteAllDraftsRequest() error delete my records! Data: "
                           "Table(LogbookRecords) "),
            QStringLiteral("Ошибка"), QStringLiteral("Не удалось удалить черновые записи!"));
        QVERIFY(isStored(store, "REC_DRAFT_IVANOV"));
    }

    void approvesADraftAtOnce()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_DRAFT_PETROV");
        journal.tab().approveRecordRequest();
        QVERIFY(!journal.box());
        QCOMPARE(stored(store, "REC_DRAFT_PETROV", "status").toInt(), 0);
        QVERIFY(hasStatus(journal.record("REC_DRAFT_PETROV"), StatusDraft)); // until the event comes
        journal.deliver();
        QVERIFY(hasStatus(journal.record("REC_DRAFT_PETROV"), StatusApproved));
    }

    void warnsOfAMissingExecutionTime()
    {
        const TestStore store;
        HtmlParser parser("text");
        parser.setTemplateProperty("time_exec", true);
        QVERIFY(TestStore::write(
            store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
            {{"html", QString::fromStdString(parser.readyHtml(true))}, {"executionTime", 0.0}}));
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().approveRecordRequest();
        compareBox(
            journal, QStringLiteral("Утверждение записи"),
            QStringLiteral("<center>Не внесено время выполнения! После утверждения редактирование записи "
                           "запрещено! Продолжить?</center>"),
            MessageIconWarning, MessageTypeYesNo);
        journal.press(QDialogButtonBox::NoRole);
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "status").toInt(), 1);
        journal.tab().approveRecordRequest();
        journal.press(QDialogButtonBox::YesRole);
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "status").toInt(), 0);
    }

    void doesNotWarnOfATimeThatIsSetOrOfATextThatIsNull()
    {
        const TestStore store;
        HtmlParser parser("text");
        parser.setTemplateProperty("time_exec", true);
        const auto loader = store.openLoader();
        QVERIFY(TestStore::write(
            loader.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
            {{"html", QString::fromStdString(parser.readyHtml(true))}, {"executionTime", TestStore::now()}}));
        QVERIFY(TestStore::write(loader.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV",
                                 {{"html", QVariant()}}));
        TestJournal journal(store);
        for (const char* key : {"REC_DRAFT_IVANOV", "REC_DRAFT_PETROV"}) {
            journal.select(key);
            journal.tab().approveRecordRequest();
            QVERIFY(!journal.box());
            QCOMPARE(stored(store, key, "status").toInt(), 0);
        }
    }

    void approvesMyDraftsAndAllDraftsUnwarned()
    {
        const TestStore store;
        HtmlParser parser("text");
        parser.setTemplateProperty("time_exec", true);
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                 {{"html", QString::fromStdString(parser.readyHtml(true))}}));
        TestJournal journal(store);
        journal.tab().approveMyRecordsRequest();
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "status").toInt(), 0);
        QCOMPARE(stored(store, "REC_DRAFT_PETROV", "status").toInt(), 1);
        journal.deliver();
        journal.tab().approveAllRecordsRequest();
        QCOMPARE(stored(store, "REC_DRAFT_PETROV", "status").toInt(), 0);
        QCOMPARE(journal.deliver().size(), 1);
        journal.tab().approveMyRecordsRequest();
        journal.tab().approveAllRecordsRequest();
        QCOMPARE(journal.deliver(), QStringList());
        QVERIFY(!journal.box());
    }

    void saysWhenApprovalFails()
    {
        const TestStore store;
        TestJournal journal(store);
        refuseWrites(store);
        journal.select("REC_DRAFT_IVANOV");
        journal.tab().approveRecord();
        compareFailure(journal,
                       QStringLiteral("void LogBookWidget::approveRecord() error approve record! Data: "
                                      "Table(LogbookRecords), KeyLink(REC_DRAFT_IVANOV)"),
                       QStringLiteral("Ошибка"), QStringLiteral("Не удалось утвердить запись!"));
        journal.tab().approveMyRecordsRequest();
        compareFailure(
            journal,
            QStringLiteral("void LogBookWidget::approveMyRecordsRequest() error approve users records! Data: "
                           "Table(LogbookRecords) "),
            QStringLiteral("Ошибка"), QStringLiteral("Не удалось утвердить записи!"));
        journal.tab().approveAllRecordsRequest();
        compareFailure(
            journal,
            QStringLiteral(
                "void LogBookWidget::approveAllRecordsRequest() error approve users records! Data: "
                "Table(LogbookRecords) "),
            QStringLiteral("Ошибка"), QStringLiteral("Не удалось утвердить записи!"));
        QVERIFY(hasStatus(journal.record("REC_DRAFT_IVANOV"), StatusDraft));
    }

    void putsAVisaOverAnotherOne()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_TRIP");
        QCOMPARE(stored(store, "REC_TRIP", "VisaWorkerKey").toString(), QStringLiteral("WORKER_SIDOROVA"));
        journal.tab().signRecordRequest();
        QCOMPARE(stored(store, "REC_TRIP", "VisaWorkerKey").toString(), QStringLiteral("WORKER_IVANOV"));
        QCOMPARE(stored(store, "REC_TRIP", "status").toInt(), 0);
        QCOMPARE(journal.deliver(), QStringList{QStringLiteral("602 LogbookRecords 1")});
        QVERIFY(journal.tab().isRecordSignable()); // and it may be signed again
    }

    void putsNoVisaOnAnOwnRecord()
    {
        const TestStore store;
        TestJournal journal(store);
        for (const char* key : {"REC_MESSAGE", "REC_DRAFT_PETROV", "REC_REPLACED"}) {
            journal.select(key);
            journal.tab().signRecordRequest();
            QVERIFY(!stored(store, key, "VisaWorkerKey").isValid() ||
                    stored(store, key, "VisaWorkerKey").toString().isEmpty());
        }
        QCOMPARE(journal.deliver(), QStringList());
        QVERIFY(!journal.box());
    }

    void signsAllRecordsOfColleagues()
    {
        const TestStore store;
        TestJournal journal(store, QStringLiteral("sidorova"));
        journal.tab().signAllRecordsRequest();
        QCOMPARE(store
                     .value(QStringLiteral(
                         "SELECT count(*) FROM LogbookRecords WHERE VisaWorkerKey='WORKER_SIDOROVA'"))
                     .toInt(),
                 5);
        QCOMPARE(journal.deliver().size(), 5);
    }

    void saysWhenAVisaFails()
    {
        const TestStore store;
        TestJournal journal(store);
        refuseWrites(store);
        journal.select("REC_ORDER");
        journal.tab().signRecordRequest();
        compareFailure(journal,
                       QStringLiteral("void LogBookWidget::signRecordRequest() error sign record! Data: "
                                      "Table(LogbookRecords), KeyLink(REC_ORDER)"),
                       QStringLiteral("Ошибка"), QStringLiteral("Не удалось поставить визу на запись!"));
        journal.tab().signAllRecordsRequest();
        compareFailure(journal,
                       QStringLiteral("void LogBookWidget::signAllRecordsRequest() error sign record! Data: "
                                      "Table(LogbookRecords)"),
                       QStringLiteral("Ошибка"), QStringLiteral("Не удалось поставить визу на записи!"));
    }

    void writesThroughTheMenu()
    {
        const TestStore store;
        TestJournal journal(store);
        journal.select("REC_DRAFT_IVANOV");
        for (QAction* action : journal.view()->findChild<QMenu*>(QStringLiteral("recordMenu"))->actions())
            if (action->text() == QStringLiteral("Утвердить текущую запись"))
                action->trigger();
        QCOMPARE(stored(store, "REC_DRAFT_IVANOV", "status").toInt(), 0);
    }
};

QTEST_MAIN(LogBookWidget_records_test)
#include "LogBookWidget_records_test.moc"
