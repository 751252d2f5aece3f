#include "CommentsWidget.h"

#include "CommentCreatorDialog.h"
#include "CPopMessageBox.h"
#include "CVrkLogBook.h"
#include "FailingStore.h"
#include "HFNCliParam.h"
#include "LocationInfo.h"
#include "LogWatch.h"
#include "MadeTable.h"
#include "MessageListDelegate.h"
#include "RecordValue.h"
#include "TestClient.h"
#include "VrkTableDelegate.h"
#include "VrkTableProxyModel.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

class CommentsWidget_test : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<LogWatch> m_log;

    /// The journal window of a login, with the tab of comments in front.
    struct Desk {
        explicit Desk(const TestStore& store, const QString& login = QStringLiteral("ivanov"),
                      bool isOpened = true)
            : client(store, login), window(std::make_unique<CVrkLogBook>(&client.app()))
        {
            if (!window->ModuleStart())
                qFatal("the journal does not start");
            window->show();
            if (!QTest::qWaitForWindowExposed(window.get()))
                qFatal("the window does not show");
            if (isOpened)
                open();
        }
        void open() { QTest::mouseClick(button(window.get(), "commentsButton"), Qt::LeftButton); }
        QTabWidget* tabs() { return window->findChild<QTabWidget*>(QStringLiteral("logbooks")); }
        CommentsWidget* tab() { return window->findChild<CommentsWidget*>(); }
        QString caption() { return tabs()->tabText(tabs()->indexOf(tab())); }
        static QToolButton* button(QWidget* in, const char* name)
        {
            return in->findChild<QToolButton*>(QLatin1String(name));
        }
        QToolButton* button(const char* name) { return button(tab(), name); }
        QListWidget* list() { return tab()->findChild<QListWidget*>(QStringLiteral("commentsList")); }
        QTableView* view() { return tab()->findChild<QTableView*>(QStringLiteral("recordsTable")); }
        QStringList keys()
        {
            const auto* proxy = qobject_cast<VrkTableProxyModel*>(view()->model());
            QStringList all;
            for (int row = 0; row < proxy->rowCount(); ++row)
                all.append(QString::fromUtf8(MDRValue::copy(Row(proxy->record(row)).value("KeyLink"))));
            return all;
        }
        int rowsInTable()
        {
            return qobject_cast<VrkTableProxyModel*>(view()->model())->tableModel()->rowCount();
        }
        void select(const char* key)
        {
            const int row = keys().indexOf(QLatin1String(key));
            if (row < 0)
                qFatal("record %s is not shown", key);
            view()->setCurrentIndex(view()->model()->index(row, 4));
        }
        void deliver() { client.deliver(); }
        /// Passes a synthetic event to the tab.
        bool send(int number, const char* table, const QByteArray& key)
        {
            const std::unique_ptr<HFNCliParam> block(
                HFNCliParam::event(number, key, QByteArray("NCI:") + table + ",1", QByteArray()));
            TEventNciParse event(block.get());
            return tab()->MessageData(&event);
        }
        CPopMessageBox* box()
        {
            for (auto* found : window->findChildren<CPopMessageBox*>())
                if (found->isVisible())
                    return found;
            return nullptr;
        }
        void comment(const QString& text)
        {
            QTest::mouseClick(button("createCommentButton"), Qt::LeftButton);
            for (auto* dialog : window->findChildren<CommentCreatorDialog*>()) {
                if (!dialog->isVisible())
                    continue;
                dialog->findChild<QTextEdit*>(QStringLiteral("commentEdit"))->setPlainText(text);
                dialog->findChild<QPushButton*>(QStringLiteral("applyButton"))->click();
            }
        }

        TestClient client;
        std::unique_ptr<CVrkLogBook> window;
    };

    static QString captionOf(int count) { return QStringLiteral("Комментарии (%1)").arg(count); }
    static void writeComment(const TestStore& store, const QString& login, const char* record,
                             const QByteArray& key)
    {
        const QByteArray worker = "WORKER_" + login.toUpper().toLatin1();
        QVERIFY(TestStore::write(store.open(login).get(), "LogbookComments", ROW_INSERT, key,
                                 {{"RecordKey", QByteArray(record)},
                                  {"WorkerKey", worker},
                                  {"commentTime", TestStore::now()},
                                  {"text_", QStringLiteral("Замечание")}}));
    }

private slots:
    void init()
    {
        m_log.reset();
        m_log = std::make_unique<LogWatch>();
    }
    void cleanup() { QCOMPARE(m_log->take().join(QLatin1Char('\n')), QString()); }

    void listsOwnRecordsWithUnreadCommentsOfAllShifts()
    {
        const TestStore store;
        Desk desk(store);
        QCOMPARE(desk.keys(), QStringList({QStringLiteral("REC_PAST_1"), QStringLiteral("REC_OPENING")}));
        QCOMPARE(desk.caption(), captionOf(2));
        QCOMPARE(desk.tab()->title(), captionOf(2));
        QCOMPARE(desk.tabs()->currentWidget(), desk.tab());
        QVERIFY(!desk.tabs()->tabIcon(desk.tabs()->currentIndex()).isNull());
        desk.select("REC_PAST_1");
        QCOMPARE(desk.list()->count(), 1);
        QCOMPARE(desk.list()->item(0)->text(), QStringLiteral("Приложите сводку к записи."));
        QVERIFY(desk.button("createCommentButton")->isEnabled());
        QVERIFY(!desk.button("deleteCommentButton")->isEnabled());
        QVERIFY(desk.button("readedCommentButton")->isEnabled());
        const auto* pages = desk.tab()->findChild<QTabWidget*>(QStringLiteral("additionalTab"));
        QCOMPARE(pages->count(), 1);
        QCOMPARE(pages->tabText(0), QStringLiteral("Комментарии"));
    }

    void countsNoneForWhoHasNoComments()
    {
        const TestStore store;
        Desk desk(store, QStringLiteral("petrov"));
        QCOMPARE(desk.caption(), captionOf(0));
        QCOMPARE(desk.rowsInTable(), 0);
        QVERIFY(!desk.button("createCommentButton")->isEnabled());
    }

    void asksForNoCommentsOfNoRecords()
    {
        const TestStore store;
        const auto plan = std::make_shared<FailingStore::Plan>();
        TestClient client(std::make_unique<FailingStore>(store.open(QStringLiteral("petrov")), plan));
        CVrkCliMod module(&client.app());
        MadeTable workers("Workers", MadeWorkerFields, "KeyLink");
        const auto open = [&](const char* worker) {
            LocationInfo location;
            location.setWorkersTable(&workers);
            location.setWorkerKey(QLatin1String(worker));
            plan->selects.clear();
            CommentsWidget tab;
            tab.init(&module, &location);
            return tab.title();
        };
        QCOMPARE(open("WORKER_PETROV"), captionOf(0));
        QCOMPARE(plan->selects.size(), 1);
        QVERIFY(plan->selects[0].startsWith("SELECT * FROM LogbookRecords"));
        QCOMPARE(open("WORKER_IVANOV"), captionOf(2));
        QCOMPARE(plan->selects.size(), 3);
        QVERIFY(plan->selects[1].startsWith("SELECT * FROM LogbookComments WHERE RecordKey IN ('REC_"));
        QVERIFY(plan->selects[2].startsWith("SELECT * FROM LogbookFiles WHERE RecordKey IN ('REC_"));

        plan->failedSelects = 1; // a failed load leaves the tab empty, and no further request follows
        QCOMPARE(open("WORKER_IVANOV"), captionOf(0));
        QCOMPARE(plan->selects.size(), 1);
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
    }

    void isOpenedOnceAndClosedLikeOthers()
    {
        const TestStore store;
        Desk desk(store);
        desk.tabs()->setCurrentIndex(0);
        desk.open();
        QCOMPARE(desk.tabs()->count(), 2);
        QCOMPARE(desk.tabs()->currentWidget(), desk.tab());
        desk.window->closeLogbook(1);
        QVERIFY(!desk.tab());
        desk.open();
        QCOMPARE(desk.caption(), captionOf(2));
    }

    void disablesWhatActsOnJournals()
    {
        const TestStore store;
        Desk desk(store);
        for (const char* name : {"timeButton", "workshiftButton", "createButton", "deleteButton",
                                 "approveButton", "signButton", "reportButton"})
            QVERIFY2(!Desk::button(desk.window.get(), name)->isEnabled(), name);
        for (const char* name : {"commentsButton", "searchButton"})
            QVERIFY2(Desk::button(desk.window.get(), name)->isEnabled(), name);
        QCOMPARE(desk.window->findChild<QLabel*>(QStringLiteral("statusLabel"))->text(),
                 QStringLiteral("Просмотр комментариев"));
        QTest::mouseClick(Desk::button(desk.window.get(), "searchButton"), Qt::LeftButton);
        QVERIFY(desk.tab()->findChild<QWidget*>(QStringLiteral("searchWidget"))->isVisible());
    }

    void takesARecordOutWhenItsLastCommentIsRead()
    {
        const TestStore store;
        Desk desk(store);
        writeComment(store, QStringLiteral("sidorova"), "REC_OPENING", "SECOND");
        desk.deliver();
        desk.select("REC_OPENING");
        QCOMPARE(desk.list()->count(), 2);
        QTest::mouseClick(desk.button("readedCommentButton"), Qt::LeftButton);
        desk.deliver();
        QCOMPARE(desk.caption(), captionOf(2)); // one is left
        QVERIFY(desk.list()->item(0)->data(CommentIsReadRole).toBool());
        desk.button("readedCommentButton")->actions().first()->trigger();
        desk.deliver();
        QCOMPARE(desk.keys(), QStringList{QStringLiteral("REC_PAST_1")});
        QCOMPARE(desk.caption(), captionOf(1));
        QCOMPARE(desk.rowsInTable(), 2); // hidden, not removed
    }

    void showsANewCommentOfAnotherClientAndItsReading()
    {
        const TestStore store;
        Desk author(store, QStringLiteral("petrov"));
        Desk other(store, QStringLiteral("ivanov"));
        writeComment(store, QStringLiteral("sidorova"), "REC_TRIP", "NEW");
        author.deliver();
        other.deliver();
        QCOMPARE(author.keys(), QStringList{QStringLiteral("REC_TRIP")});
        QCOMPARE(author.caption(), captionOf(1));
        QCOMPARE(other.caption(), captionOf(3)); // a comment adds its record, of any author
        QVERIFY(other.keys().contains(QStringLiteral("REC_TRIP")));
        author.select("REC_TRIP");
        author.button("readedCommentButton")->actions().first()->trigger();
        author.deliver();
        other.deliver();
        QCOMPARE(author.caption(), captionOf(0));
        QCOMPARE(other.caption(), captionOf(2));
    }

    void aRecordThatACommentBringsInHasAllThatWasSaidOfIt()
    {
        const TestStore store;
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_UPDATE,
                                 "COM_UNREAD", {{"readedTime", TestStore::now()}}));
        Desk desk(store); // his record, whose comment is read, is not in the tab
        QVERIFY(!desk.keys().contains(QStringLiteral("REC_OPENING")));
        writeComment(store, QStringLiteral("sidorova"), "REC_OPENING", "NEW");
        writeComment(store, QStringLiteral("sidorova"), "REC_TRIP", "NEW_TO_TRIP");
        desk.deliver();
        desk.select("REC_OPENING");
        QCOMPARE(desk.list()->count(), 2);
        QCOMPARE(desk.list()->item(0)->data(CommentKeyRole).toString(), QStringLiteral("COM_UNREAD"));
        QCOMPARE(desk.list()->item(1)->data(CommentKeyRole).toString(), QStringLiteral("NEW"));
        const auto* proxy = qobject_cast<VrkTableProxyModel*>(desk.view()->model());
        const MDRData* trip = proxy->record(desk.keys().indexOf(QStringLiteral("REC_TRIP")));
        QVERIFY(isSet(Row(trip).value("file")));
        QVERIFY(isSet(Row(trip).value("comment")));
    }

    void hidesANewRecordUntilAColleagueCommentsOnIt()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookRecords", ROW_INSERT,
                                 "MINE",
                                 {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_IVANOV")},
                                  {"recordTime", TestStore::now()},
                                  {"status", 0}}));
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_INSERT,
                                 "HIS",
                                 {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"recordTime", TestStore::now()},
                                  {"status", 0}}));
        desk.deliver();
        QCOMPARE(desk.rowsInTable(), 3);
        QCOMPARE(desk.caption(), captionOf(2));
        writeComment(store, QStringLiteral("petrov"), "MINE", "NEW");
        desk.deliver();
        QCOMPARE(desk.caption(), captionOf(3));
        QVERIFY(desk.keys().contains(QStringLiteral("MINE")));
    }

    void keepsAnOwnCommentOnAnOwnRecordHidden()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        desk.comment(QStringLiteral("Ответ"));
        const QVariantList row =
            store
                .rows(
                    QStringLiteral("SELECT commentTime,readedTime FROM LogbookComments WHERE text_='Ответ'"))
                .value(0);
        QVERIFY(row.value(0).toDouble() > 0);
        QCOMPARE(row.value(1), row.value(0)); // already marked as read
        desk.deliver();
        QCOMPARE(desk.list()->count(), 2);
        QCOMPARE(desk.caption(), captionOf(2));
    }

    void followsChangesAndDeletionsOfComments()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        const auto petrov = store.open(QStringLiteral("petrov"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookComments", ROW_UPDATE, "COM_UNREAD",
                                 {{"text_", QStringLiteral("Иначе")}}));
        desk.deliver();
        QCOMPARE(desk.list()->item(0)->text(), QStringLiteral("Иначе"));
        QVERIFY(TestStore::write(petrov.get(), "LogbookComments", ROW_DELETE, "COM_UNREAD"));
        desk.deliver();
        QCOMPARE(desk.keys(), QStringList{QStringLiteral("REC_PAST_1")});
        QCOMPARE(desk.caption(), captionOf(2)); // until the next change that updates the title
        emit desk.tab()->titleChanged();
        QCOMPARE(desk.caption(), captionOf(1));
    }

    void leavesTheCaptionWhenARecordIsDeleted()
    {
        const TestStore store;
        const auto loader = store.openLoader();
        Desk desk(store);
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookRecords", ROW_INSERT,
                                 "DRAFT",
                                 {{"ShiftKey", QByteArray("SHIFT_CDS_OPEN")},
                                  {"WorkerKey", QByteArray("WORKER_IVANOV")},
                                  {"recordTime", TestStore::now()},
                                  {"status", 1}}));
        writeComment(store, QStringLiteral("petrov"), "DRAFT", "NEW");
        desk.deliver();
        QCOMPARE(desk.caption(), captionOf(3));
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookRecords", ROW_DELETE,
                                 "DRAFT"));
        desk.deliver();
        QCOMPARE(desk.keys().size(), 2);
        QCOMPARE(desk.caption(), captionOf(3));
    }

    void followsApprovalAndVisaOfItsRecords()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(TestStore::write(store.open(QStringLiteral("sidorova")).get(), "LogbookRecords", ROW_UPDATE,
                                 "REC_OPENING", {{"VisaWorkerKey", QByteArray("WORKER_SIDOROVA")}}));
        desk.deliver();
        const auto* proxy = qobject_cast<VrkTableProxyModel*>(desk.view()->model());
        const MDRData* record = proxy->record(desk.keys().indexOf(QStringLiteral("REC_OPENING")));
        QCOMPARE(MDRValue::copy(Row(record).value("VisaWorkerKey")), QByteArray("WORKER_SIDOROVA"));
    }

    void repaintsARecordThatAnotherHasChanged()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        QVERIFY(desk.button("createCommentButton")->isEnabled());
        const QSignalSpy repainted(desk.view()->model(), &QAbstractItemModel::dataChanged);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookRecords", ROW_UPDATE,
                                 "REC_OPENING", {{"status", 2}}));
        desk.deliver();
        QVERIFY(repainted.count() > 0);
        QVERIFY(!desk.button("createCommentButton")->isEnabled()); // the record is deleted
    }

    void leavesTheListOfTheCurrentRecord()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        const QString text = desk.list()->item(0)->text();
        writeComment(store, QStringLiteral("petrov"), "REC_PAST_1", "COM_ELSEWHERE");
        desk.deliver();
        QCOMPARE(desk.list()->count(), 1);
        QCOMPARE(desk.list()->item(0)->text(), text);
    }

    void comparesTableNamesWithoutCase()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(!desk.send(EventChanged, "LOGBOOKCOMMENTS", "NOWHERE"));
    }

    void aDayHasItsLine()
    {
        const TestStore store;
        Desk desk(store);
        const auto* rows = qobject_cast<const VrkTableDelegate*>(desk.view()->itemDelegate());
        // also for the first day: the records belong to all shifts
        QVERIFY(rows && rows->dayLine(0).isValid());
    }

    void marksTheRecordsThatHaveFiles()
    {
        const TestStore store;
        Desk desk(store);
        const auto hasFile = [&] {
            const auto* proxy = qobject_cast<VrkTableProxyModel*>(desk.view()->model());
            return isSet(
                Row(proxy->record(desk.keys().indexOf(QStringLiteral("REC_OPENING")))).value("file"));
        };
        const auto petrov = store.open(QStringLiteral("petrov"));
        const TestStore::Fields file{{"RecordKey", QByteArray("REC_OPENING")},
                                     {"WorkerKey", QByteArray("WORKER_PETROV")},
                                     {"fileName", QStringLiteral("a.txt")},
                                     {"fileData", QByteArray("x")}};
        QVERIFY(!hasFile());
        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_INSERT, "FILE_NEW", file));
        desk.deliver();
        QVERIFY(hasFile());
        QVERIFY(TestStore::write(petrov.get(), "LogbookFiles", ROW_DELETE, "FILE_NEW"));
        desk.deliver();
        QVERIFY(!hasFile());
    }

    void answersWhetherAnEventApplies()
    {
        const TestStore store;
        Desk desk(store);
        for (const char* table : {"LogbookRecords", "LogbookComments", "LogbookFiles"}) {
            QVERIFY2(!desk.send(EventChanged, table, "NOWHERE"), table);
            QVERIFY2(!desk.send(EventDeleted, table, "NOWHERE"), table);
        }
        for (int number : {EventInserted, EventChanged, EventDeleted})
            QVERIFY(desk.send(number, "LogbookWorkshifts", "NOWHERE"));
        QVERIFY(desk.send(EventInserted, "LogbookRecords", "REC_OPENING")); // here already
        QVERIFY(desk.send(EventInserted, "LogbookComments", "COM_UNREAD"));
        QCOMPARE(desk.caption(), captionOf(2));
    }

    void aCommentWithoutItsRecordDoesNotApply()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(!desk.send(EventInserted, "LogbookComments", "COM_NOWHERE"));
        QVERIFY(m_log->take().join(QString()).contains(QStringLiteral("Not found record")));
        QCOMPARE(desk.rowsInTable(), 2);
        QVERIFY(!desk.send(EventDeleted, "LogbookComments", "COM_NOWHERE")); // it was not added
    }

    void aFileWithoutItsRecordIsDropped()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(desk.send(EventInserted, "LogbookFiles", "FILE_NOWHERE"));
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookFiles", ROW_INSERT,
                                 "FILE_NEW",
                                 {{"RecordKey", QByteArray("REC_TRIP")},
                                  {"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"fileName", QStringLiteral("a.txt")},
                                  {"fileData", QByteArray("x")}}));
        desk.deliver();
        QVERIFY(!desk.send(EventDeleted, "LogbookFiles", "FILE_NEW"));
    }

    void logsARecordThatTheServerDoesNotHave()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(!desk.tab()->uploadRecord("NOWHERE"));
        QCOMPARE(m_log->take(), QStringList{QStringLiteral(
                                    "MDArrayRec* CommentsWidget::uploadRecord(MDRChar) error SQL query "
                                    "execution [SELECT * FROM LogbookRecords WHERE KeyLink = 'NOWHERE';]. "
                                    "Not found record NOWHERE!")});
        QCOMPARE(desk.rowsInTable(), 2);
    }

    void doesNothingByTheDeleteKey()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        desk.comment(QStringLiteral("Ответ"));
        desk.deliver();
        desk.list()->setCurrentRow(1);
        QVERIFY(desk.button("deleteCommentButton")->isEnabled());
        desk.list()->setFocus();
        QTest::keyClick(desk.list(), Qt::Key_Delete);
        QVERIFY(!desk.box());
        QTest::mouseClick(desk.button("deleteCommentButton"), Qt::LeftButton);
        QVERIFY(desk.box());
        QCOMPARE(desk.box()->text(),
                 QStringLiteral("<center>Вы действительно хотите удалить комментарий?</center>"));
    }

    void namesItselfInTheLog()
    {
        const TestStore store;
        Desk desk(store);
        desk.select("REC_OPENING");
        QCOMPARE(store.refuse(QStringLiteral("UPDATE"), QStringLiteral("LogbookComments")), QString());
        QTest::mouseClick(desk.button("readedCommentButton"), Qt::LeftButton);
        QCOMPARE(
            m_log->take(QStringLiteral("CommentsWidget")),
            QStringList{QStringLiteral("void CommentsWidget::setCurrentCommentReaded() error read comment in "
                                       "LogbookComments! Func SqlUpdate returned FALSE!")});
        QVERIFY(!m_log->take(QStringLiteral("CVrkCliSes")).isEmpty());
        QVERIFY(desk.box());
    }
};

QTEST_MAIN(CommentsWidget_test)
#include "CommentsWidget_test.moc"
