#pragma once

#include "CVrkCliApp.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "TestStore.h"

#include <functional>
#include <QSignalSpy>
#include <QStringList>

/// A client of a test store like that of the workstation: an application with a session, signed in, its
/// events running. Several clients may share one store in one process. A failure during its creation ends
/// the program.
class TestClient
{
public:
    /// An empty \a department selects the login's only one, or the first by name.
    explicit TestClient(const TestStore& store, const QString& login = QStringLiteral("ivanov"),
                        const QByteArray& department = QByteArray());
    /// On its own store, already signed in; the parameters of the login are empty.
    explicit TestClient(std::unique_ptr<Store> store);
    ~TestClient();
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    CVrkCliApp& app() { return m_app; }
    CVrkCliSes& session() { return *m_app.session(); }

    /// Delivers everything that was committed before the call, by any client, to the modules.
    void deliver();
    /// Reasons of the requests that failed since the last call.
    QStringList takeFailures();

    /// Runs the event loop until \a condition is true; false on timeout.
    static bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 5000);

private:
    CVrkCliApp m_app;
    std::unique_ptr<QSignalSpy> m_failures;
};

/// A module that keeps its events.
class TestModule : public CVrkCliMod
{
    Q_OBJECT

public:
    struct Event {
        int number;
        QString table;
        QByteArray key;
        QByteArray source;  ///< field 5
        QStringList marked; ///< names of the fields with the mark
    };

    explicit TestModule(CVrkCliApp* application) : CVrkCliMod(application) {}
    explicit TestModule(TestClient& client) : CVrkCliMod(&client.app()) {}

    int MessageOn() override { return MessageGet(); }
    int MessageData(HFNCliParam* block) override;

    /// "601 LogbookRecords REC_1" for each event, in order; removes them.
    QStringList takeEvents();
    /// Runs the event loop until at least \a count events are there.
    bool waitForEvents(int count) const;

    QVector<Event> events;
    /// Called for each event after it was kept.
    std::function<void(HFNCliParam*)> onEvent;
};
