#include "CVrkCliApp.h"
#include "ExpectedWarning.h"
#include "FakeStore.h"
#include "TestClient.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

/// Delivery of events and the services of the application, on a store whose log the test writes.
class CVrkCliAppTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { client.reset(); }

    void modulesAreKnownForTheirLifetime();
    void everyModuleGetsEventsOnceAndInOrder();
    void eventsAreDeliveredFromTheEventLoop();
    void unfetchedEventsStayWithTheModule();
    void deliveriesAreNeverNested();
    void eventsDuringADeliveryAreDeliveredAfterIt();
    void deliversNothingDuringARequest();
    void aModuleMayDeleteItselfInItsMessage();
    void aModuleMayDeleteAnotherInItsMessage();
    void messageGetReturnsTheNumberOfEvents();
    void fetchEventsDeliversBeforeItReturns();
    void isDeliveringDuringADelivery();
    void signalsTheEndOfADelivery();
    void allBlocksAreFreedAfterDelivery();
    void aNewSessionDropsWaitingEvents();
    void modulesAreNotifiedOfAReconnect();
    void aModuleWithoutAnApplicationIsHarmless();
    void modulesMayOutliveTheApplication();
    void editorsUseTheCodePageOfTheSession();
    void aNoticeReachesTheOpenedModule();

private:
    void log(std::initializer_list<const char*> keys)
    {
        for (const char* key : keys)
            state->log.append({++number, 603, "LogbookRecords", key, QByteArray()});
    }
    static QStringList expected(std::initializer_list<const char*> keys)
    {
        QStringList lines;
        for (const char* key : keys)
            lines.append(QStringLiteral("603 LogbookRecords ") + QString::fromLatin1(key));
        return lines;
    }

    std::shared_ptr<FakeStore::State> state;
    std::unique_ptr<TestClient> client;
    qint64 number = 0;
};

void CVrkCliAppTest::init()
{
    state = std::make_shared<FakeStore::State>();
    client = std::make_unique<TestClient>(std::make_unique<FakeStore>(state));
    number = 0;
}

void CVrkCliAppTest::modulesAreKnownForTheirLifetime()
{
    TestModule first(*client);
    {
        TestModule second(*client);
        QCOMPARE(client->app().modules(), (QVector<CVrkCliMod*>{&first, &second}));
        QCOMPARE(second.session(), &client->session());
    }
    QCOMPARE(client->app().modules(), QVector<CVrkCliMod*>{&first});
}

void CVrkCliAppTest::everyModuleGetsEventsOnceAndInOrder()
{
    TestModule first(*client);
    TestModule second(*client);
    log({"A", "B", "C"});
    QVERIFY(first.waitForEvents(3));
    QVERIFY(second.waitForEvents(3));
    log({"D"});
    QVERIFY(second.waitForEvents(4));
    QCOMPARE(first.events.at(0).source, QByteArray("NCI:LogbookRecords,1"));
    QCOMPARE(first.takeEvents(), expected({"A", "B", "C", "D"}));
    QCOMPARE(second.takeEvents(), expected({"A", "B", "C", "D"}));
}

void CVrkCliAppTest::eventsAreDeliveredFromTheEventLoop()
{
    TestModule module(*client);
    log({"A"});
    QCOMPARE(client->session().pollEvents(), 1);
    QCOMPARE(module.events.size(), 0);
    QCOMPARE(module.MessageGet(), 0); // the application has not distributed it yet
    client->deliver();
    QCOMPARE(module.takeEvents(), expected({"A"}));
}

void CVrkCliAppTest::unfetchedEventsStayWithTheModule()
{
    struct Busy : TestModule {
        using TestModule::TestModule;
        bool fetches = false;
        int MessageOn() override { return fetches ? MessageGet() : 0; }
    };
    Busy module(*client);
    log({"A"});
    client->deliver();
    QCOMPARE(module.events.size(), 0);
    module.fetches = true;
    log({"B"});
    client->deliver();
    QCOMPARE(module.takeEvents(), expected({"A", "B"}));
}

void CVrkCliAppTest::deliveriesAreNeverNested()
{
    TestModule module(*client);
    int depth = 0;
    int deepest = 0;
    module.onEvent = [&](HFNCliParam*) {
        deepest = std::max(deepest, ++depth);
        log({"LATER"});
        QCOMPARE(module.MessageGet(), 0);
        QCOMPARE(client->app().fetchEvents(), 0);
        QCoreApplication::processEvents(); // like a message box
        --depth;
        module.onEvent = nullptr;
    };
    log({"A", "B"});
    client->deliver();
    QVERIFY(module.waitForEvents(3));
    QCOMPARE(deepest, 1);
    QCOMPARE(module.takeEvents(), expected({"A", "B", "LATER"}));
}

void CVrkCliAppTest::eventsDuringADeliveryAreDeliveredAfterIt()
{
    TestModule module(*client);
    module.onEvent = [&](HFNCliParam*) {
        module.onEvent = nullptr;
        log({"B"});
        // The event loop of a box inside the message: the feed reads during it, and every module must get
        // those events.
        QSignalSpy waiting(&client->session(), &CVrkCliSes::eventsWaiting);
        QVERIFY(waiting.wait());
        QCoreApplication::processEvents();
        QCOMPARE(module.events.size(), 1);
    };
    log({"A"});
    QVERIFY(module.waitForEvents(2)); // by the event loop alone
    QCOMPARE(module.takeEvents(), expected({"A", "B"}));
}

void CVrkCliAppTest::deliversNothingDuringARequest()
{
    struct Idle : TestModule {
        using TestModule::TestModule;
        int MessageOn() override { return isIdle ? 0 : MessageGet(); }
        bool isIdle = true;
    };
    Idle module(*client);
    log({"W"});
    client->deliver(); // it waits until the module fetches it
    module.isIdle = false;
    log({"A"});
    client->session().pollEvents();
    bool asked = false;
    state->during = [&](const std::function<void()>&) {
        asked = true;
        QVERIFY(client->session().isBusy());
        QCOMPARE(client->app().fetchEvents(), 0);
        QCOMPARE(module.MessageGet(), 0);
    };
    CMDArray answer;
    answer = client->session().SqlRequest("SELECT 1");
    QVERIFY(asked);
    QVERIFY(!client->session().isBusy());
    QCOMPARE(module.events.size(), 0);
    client->deliver();
    QCOMPARE(module.takeEvents(), expected({"W", "A"}));
}

void CVrkCliAppTest::aModuleMayDeleteItselfInItsMessage()
{
    TestModule other(*client);
    struct SelfEnding : TestModule {
        using TestModule::TestModule;
        int MessageData(HFNCliParam*) override
        {
            delete this;
            return 1;
        }
    };
    QPointer<CVrkCliMod> ending(new SelfEnding(*client));
    log({"A", "B"});
    client->deliver();
    QVERIFY(!ending);
    QCOMPARE(other.takeEvents(), expected({"A", "B"}));
}

void CVrkCliAppTest::aModuleMayDeleteAnotherInItsMessage()
{
    TestModule first(*client);
    auto second = std::make_unique<TestModule>(*client);
    first.onEvent = [&](HFNCliParam*) { second.reset(); };
    log({"A", "B"});
    client->deliver();
    QCOMPARE(first.takeEvents(), expected({"A", "B"}));
    QCOMPARE(client->session().openBlocks(), 0);
}

void CVrkCliAppTest::messageGetReturnsTheNumberOfEvents()
{
    struct Counting : TestModule {
        using TestModule::TestModule;
        QVector<int> counts;
        int MessageOn() override
        {
            counts.append(MessageGet());
            counts.append(MessageGet());
            return counts.first();
        }
    };
    Counting module(*client);
    log({"A", "B"});
    client->deliver();
    QCOMPARE(module.counts, (QVector<int>{2, 0}));
}

void CVrkCliAppTest::fetchEventsDeliversBeforeItReturns()
{
    TestModule module(*client);
    log({"A", "B"});
    QCOMPARE(client->app().fetchEvents(), 2);
    QCOMPARE(module.takeEvents(), expected({"A", "B"}));
    QCOMPARE(client->app().fetchEvents(), 0);
}

void CVrkCliAppTest::isDeliveringDuringADelivery()
{
    TestModule module(*client);
    bool delivering = false;
    module.onEvent = [&](HFNCliParam*) { delivering = client->app().isDelivering(); };
    QVERIFY(!client->app().isDelivering());
    log({"A"});
    client->deliver();
    QVERIFY(delivering);
    QVERIFY(!client->app().isDelivering());
}

void CVrkCliAppTest::signalsTheEndOfADelivery()
{
    TestModule module(*client);
    QSignalSpy delivered(&client->app(), &CVrkCliApp::eventsDelivered);
    log({"A", "B"});
    QVERIFY(delivered.wait());
    QCOMPARE(delivered.count(), 1);
    QCOMPARE(module.events.size(), 2);
}

void CVrkCliAppTest::allBlocksAreFreedAfterDelivery()
{
    TestModule first(*client);
    TestModule second(*client);
    second.onEvent = [&](HFNCliParam*) { QVERIFY(client->session().openBlocks() > 0); };
    log({"A", "B"});
    client->deliver();
    QCOMPARE(second.events.size(), 2);
    QCOMPARE(client->session().openBlocks(), 0);
}

void CVrkCliAppTest::aNewSessionDropsWaitingEvents()
{
    struct Idle : TestModule {
        using TestModule::TestModule;
        int MessageOn() override { return 0; }
    };
    Idle module(*client);
    log({"A"});
    client->deliver();
    QCOMPARE(client->session().openBlocks(), 1);
    client->app().setSession(std::make_unique<CVrkCliSes>(std::make_unique<FakeStore>(state)));
    QCOMPARE(module.MessageGet(), 0);
    QCOMPARE(module.session(), &client->session());
    client->app().setSession(nullptr);
    QVERIFY(!module.session());
    QCOMPARE(client->app().fetchEvents(), 0);
}

void CVrkCliAppTest::modulesAreNotifiedOfAReconnect()
{
    expectWarning(QStringLiteral("Связь потеряна"));
    struct Listening : TestModule {
        using TestModule::TestModule;
        int reconnects = 0;
        void ModSesReconnect() override { ++reconnects; }
    };
    Listening module(*client);
    state->failures = {FakeStore::lost()};
    QVERIFY(!client->session().SqlRequest("SELECT 1"));
    QCOMPARE(module.reconnects, 0);
    QTRY_COMPARE(module.reconnects, 1);
    QCOMPARE(client->takeFailures(), QStringList(QStringLiteral("Связь потеряна.")));
}

void CVrkCliAppTest::aModuleWithoutAnApplicationIsHarmless()
{
    TestModule module(static_cast<CVrkCliApp*>(nullptr));
    QVERIFY(!module.session());
    QCOMPARE(module.MessageGet(), 0);
    QCOMPARE(module.logSink(), &module);
    QVERIFY(module.close());
}

void CVrkCliAppTest::modulesMayOutliveTheApplication()
{
    auto app = std::make_unique<CVrkCliApp>();
    TestModule module(app.get());
    app.reset();
    QVERIFY(!module.app());
    QCOMPARE(module.MessageOn(), 0);
}

void CVrkCliAppTest::editorsUseTheCodePageOfTheSession()
{
    QLineEdit line;
    line.show();
    QSignalSpy adjusted(&client->app(), &CVrkCliApp::textAdjusted);
    line.insert(QStringLiteral("а→"));
    QCOMPARE(line.text(), QStringLiteral("а->"));
    QCOMPARE(adjusted.count(), 1);
    client->app().setSession(nullptr);
    line.insert(QStringLiteral("→"));
    QCOMPARE(line.text(), QStringLiteral("а->→"));
}

void CVrkCliAppTest::aNoticeReachesTheOpenedModule()
{
    struct Receiver : CVrkCliMod {
        using CVrkCliMod::CVrkCliMod;
        void slot_modNotify(QString name, QVariant value) override
        {
            notices.append(name + value.toString());
        }
        QStringList notices;
    } receiver(&client->app());
    QVERIFY(
        !client->app().notifyModule(QStringLiteral("logbook"), QStringLiteral("showRecord"), 1)); // no host
    client->app().setModuleOpener([&receiver](const QString& module) {
        return module == QLatin1String("logbook") ? &receiver : nullptr;
    });
    QVERIFY(client->app().notifyModule(QStringLiteral("logbook"), QStringLiteral("showRecord"),
                                       QStringLiteral("KEY")));
    QCOMPARE(receiver.notices, QStringList{QStringLiteral("showRecordKEY")});
    QVERIFY(!client->app().notifyModule(QStringLiteral("other"), QStringLiteral("showRecord"), 1));
}

QTEST_MAIN(CVrkCliAppTest)
#include "CVrkCliApp_test.moc"
