#include "CommentInbox.h"
#include "CVrkLogBook.h"
#include "FailingStore.h"
#include "JournalWindow.h"
#include "LogWatch.h"
#include "TestClient.h"

#include <QSignalSpy>
#include <QTest>

/// What the journal reports to the host: unread comments and overdue shifts.
class CommentInbox_test : public QObject
{
    Q_OBJECT

private:
    struct Desk {
        explicit Desk(const TestStore& store, const QString& login = QStringLiteral("ivanov"))
            : client(store, login), window(&client.app()), calls(&window, &CVrkCliMod::attentionCalled)
        {
            if (!window.ModuleStart())
                qFatal("the journal does not start");
        }
        QStringList takeCalls()
        {
            client.deliver();
            QStringList texts;
            for (const QVariantList& call : qAsConst(calls))
                texts.append(call[0].toString());
            calls.clear();
            return texts;
        }

        TestClient client;
        CVrkLogBook window;
        QSignalSpy calls;
    };
    static void write(const TestStore& store, const QString& login, const char* record, const QByteArray& key,
                      const QVariant& read = QVariant())
    {
        const QByteArray worker = "WORKER_" + login.toUpper().toLatin1();
        QVERIFY(TestStore::write(store.open(login).get(), "LogbookComments", ROW_INSERT, key,
                                 {{"RecordKey", QByteArray(record)},
                                  {"WorkerKey", worker},
                                  {"commentTime", TestStore::now()},
                                  {"readedTime", read},
                                  {"text_", QStringLiteral("Замечание")}}));
    }

private slots:
    void countsWhatWaitsAtTheStart()
    {
        const TestStore store;
        write(store, QStringLiteral("sidorova"), "REC_OPENING", "COM_ALREADY_READ", TestStore::now());
        QCOMPARE(Desk(store).window.unreadComments(), 2); // COM_UNREAD and COM_PAST
        QCOMPARE(Desk(store, QStringLiteral("petrov")).window.unreadComments(), 0);
    }

    void aCommentOnOnesOwnRecordCalls()
    {
        const TestStore store;
        Desk desk(store);
        write(store, QStringLiteral("petrov"), "REC_MESSAGE", "COM_NEW");
        QCOMPARE(desk.takeCalls(),
                 QStringList{QStringLiteral("Комментарий к вашей записи. Петров П. П.: Замечание")});
        QCOMPARE(desk.window.unreadComments(), 3);
    }

    void othersRecordsAndOwnWordsCallNobody()
    {
        const TestStore store;
        Desk desk(store);
        write(store, QStringLiteral("sidorova"), "REC_TRIP", "COM_OTHER");
        // already marked as read
        write(store, QStringLiteral("ivanov"), "REC_MESSAGE", "COM_OWN", TestStore::now());
        write(store, QStringLiteral("petrov"), "REC_MESSAGE", "COM_READ_AT_ONCE", TestStore::now());
        QCOMPARE(desk.takeCalls(), QStringList());
        QCOMPARE(desk.window.unreadComments(), 2);
        // It is unread again: it is counted, but it is not new.
        QVERIFY(TestStore::write(store.openLoader().get(), "LogbookComments", ROW_UPDATE, "COM_READ_AT_ONCE",
                                 {{"readedTime", QVariant()}}));
        QCOMPARE(desk.takeCalls(), QStringList());
        QCOMPARE(desk.window.unreadComments(), 3);
    }

    void aFileOnOnesOwnRecordIsNoComment()
    {
        const TestStore store;
        Desk desk(store);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookFiles", ROW_INSERT,
                                 "FILE_NEW",
                                 {{"WorkerKey", QByteArray("WORKER_PETROV")},
                                  {"RecordKey", QByteArray("REC_MESSAGE")},
                                  {"fileName", QStringLiteral("a.txt")},
                                  {"fileData", QByteArray("x")}}));
        QCOMPARE(desk.takeCalls(), QStringList());
        QCOMPARE(desk.window.unreadComments(), 2);
    }

    void anAnswerToOnesCommentCalls()
    {
        const TestStore store;
        Desk desk(store);
        write(store, QStringLiteral("sidorova"), "REC_TRIP", "COM_FIRST");
        QCOMPARE(desk.takeCalls(), QStringList());            // neither a record nor a comment of the user
        for (const char* mine : {"COM_MINE", "COM_MINE_TOO"}) // two comments, and one call for each answer
            write(store, QStringLiteral("ivanov"), "REC_TRIP", mine);
        QCOMPARE(desk.takeCalls(), QStringList());
        write(store, QStringLiteral("sidorova"), "REC_TRIP", "COM_THIRD");
        // already marked as read
        write(store, QStringLiteral("petrov"), "REC_TRIP", "COM_AUTHOR", TestStore::now());
        const QString sidorova = QStringLiteral("Ответ на ваш комментарий. Сидорова А. С.: Замечание");
        const QString petrov = QStringLiteral("Ответ на ваш комментарий. Петров П. П.: Замечание");
        QCOMPARE(desk.takeCalls(), QStringList({sidorova, petrov}));
        QCOMPARE(desk.window.unreadComments(), 2); // it is counted for the author of the record
        QVERIFY(TestStore::write(store.open(QStringLiteral("sidorova")).get(), "LogbookComments", ROW_UPDATE,
                                 "COM_THIRD", {{"text_", QStringLiteral("Иначе")}}));
        QCOMPARE(desk.takeCalls(), QStringList());
    }

    void anAnswerThatComesWhileTheStoreFailsCallsLater()
    {
        const LogWatch log;
        const TestStore store;
        const auto plan = std::make_shared<FailingStore::Plan>();
        JournalWindow ivanov(std::make_unique<FailingStore>(store.open(QStringLiteral("ivanov")), plan),
                             QStringLiteral("ivanov"), QStringLiteral("DEP_CDS"), QStringLiteral("ORG_NETS"));
        QSignalSpy calls(&ivanov.window(), &CVrkCliMod::attentionCalled);
        write(store, QStringLiteral("ivanov"), "REC_TRIP", "COM_MINE");
        ivanov.deliver();
        write(store, QStringLiteral("sidorova"), "REC_TRIP", "COM_THIRD");
        plan->failedSelects = 1;
        ivanov.deliver();
        QCOMPARE(calls.count(), 0);
        QTRY_COMPARE(calls.count(), 1);
        // Announced comments stay announced, and removed ones are not announced.
        plan->failedSelects = 2;
        write(store, QStringLiteral("petrov"), "REC_MESSAGE", "COM_GONE");
        write(store, QStringLiteral("petrov"), "REC_SUCCESSOR", "COM_STAYS");
        ivanov.deliver();
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_DELETE,
                                 "COM_GONE"));
        ivanov.deliver();
        QCOMPARE(calls.count(), 1);
        QTRY_COMPARE(calls.count(), 2);
        QCOMPARE(ivanov.window().unreadComments(), 3);
    }

    void aCommentThatComesWhileTheStoreFailsCallsLater()
    {
        const LogWatch log; // it shows the failures
        const TestStore store;
        const auto plan = std::make_shared<FailingStore::Plan>();
        JournalWindow ivanov(std::make_unique<FailingStore>(store.open(QStringLiteral("ivanov")), plan),
                             QStringLiteral("ivanov"), QStringLiteral("DEP_CDS"), QStringLiteral("ORG_NETS"));
        QSignalSpy calls(&ivanov.window(), &CVrkCliMod::attentionCalled);
        write(store, QStringLiteral("petrov"), "REC_MESSAGE", "COM_NEW");
        plan->failedSelects = 1;
        ivanov.deliver();
        QCOMPARE(ivanov.window().unreadComments(), 2);
        QTRY_COMPARE(ivanov.window().unreadComments(), 3);
        QCOMPARE(calls.count(), 1);
        QVERIFY(calls[0][0].toString().contains(QStringLiteral("Замечание")));
    }

    void theCountAtTheStartComesLaterWhenItFails()
    {
        const LogWatch log;
        const TestStore store;
        const auto plan = std::make_shared<FailingStore::Plan>();
        JournalWindow ivanov(std::make_unique<FailingStore>(store.open(QStringLiteral("ivanov")), plan),
                             QStringLiteral("ivanov"), QStringLiteral("DEP_CDS"), QStringLiteral("ORG_NETS"));
        auto* inbox = ivanov.window().findChild<CommentInbox*>();
        plan->failedSelects = 2; // and again when it is repeated
        inbox->upload();
        QCOMPARE(ivanov.window().unreadComments(), 0);
        QTRY_COMPARE(ivanov.window().unreadComments(), 2);
    }

    void readingAndDeletingCountDown()
    {
        const TestStore store;
        Desk desk(store);
        write(store, QStringLiteral("petrov"), "REC_MESSAGE", "COM_NEW");
        desk.takeCalls();
        QVERIFY(TestStore::write(store.open(QStringLiteral("ivanov")).get(), "LogbookComments", ROW_UPDATE,
                                 "COM_UNREAD", {{"readedTime", TestStore::now()}}));
        desk.client.deliver();
        QCOMPARE(desk.window.unreadComments(), 2);
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_UPDATE,
                                 "COM_NEW", {{"text_", QStringLiteral("Иначе")}}));
        desk.client.deliver();
        QCOMPARE(desk.window.unreadComments(), 2); // changed, and still unread
        QVERIFY(TestStore::write(store.open(QStringLiteral("petrov")).get(), "LogbookComments", ROW_DELETE,
                                 "COM_NEW"));
        QCOMPARE(desk.takeCalls(), QStringList());
        QCOMPARE(desk.window.unreadComments(), 1);
    }
};

QTEST_MAIN(CommentInbox_test)
#include "CommentInbox_test.moc"
