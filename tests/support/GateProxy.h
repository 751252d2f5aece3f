#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <thread>

/// A proxy between clients and the socket of a PostgreSQL server that breaks one connection at an exact
/// place: at the n-th request after the call. A request is something that the server answers at once: the
/// start-up message, a message of the authentication, a query, the end of an extended query.
class GateProxy
{
public:
    enum Place {
        BeforeRequest, ///< the server never sees the request
        BeforeAnswer,  ///< the server has the request, the client never sees its answer
        Held,          ///< like BeforeRequest for the client; the server receives it when release() is called
    };

    /// Listens in its own folder, like the server in \a serverFolder.
    explicit GateProxy(const QString& serverFolder);
    ~GateProxy();
    GateProxy(const GateProxy&) = delete;
    GateProxy& operator=(const GateProxy&) = delete;

    QString socketFolder() const { return m_folder.path(); }
    /// Breaks the connection of the \a request-th request from now on (1 is the next), and then refuses \a
    /// refusals connections.
    void breakAt(int request, Place place, int refusals = 0);
    /// Accepts all connections again.
    void admit() { m_refusals = 0; }
    /// Breaks all open connections.
    void breakNow();
    /// Whether the place was reached.
    bool hasBroken() const { return m_hasBroken; }
    /// Connections that are still to be refused.
    int refusals() const { return m_refusals; }
    /// Passes the held request to the server.
    void release() { m_isReleased = true; }

private:
    struct Link;
    void accept();
    void carry(int client);
    bool carryRequest(Link& link);

    QString m_server;
    QTemporaryDir m_folder;
    int m_listener = -1;
    std::mutex m_mutex; ///< of the plan
    int m_left = 0;     ///< requests up to the place; 0 for none
    Place m_place = BeforeRequest;
    int m_nextRefusals = 0;
    std::atomic<int> m_refusals{0};
    std::atomic<int> m_generation{0}; ///< connections of a former generation are broken
    std::atomic<bool> m_hasBroken{false};
    std::atomic<bool> m_isReleased{false};
    std::atomic<bool> m_isEnding{false};
    std::thread m_acceptor;
    std::vector<std::thread> m_carriers; ///< used by the acceptor until it has ended
};
