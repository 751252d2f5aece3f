#pragma once

#include <atomic>
#include <QString>
#include <QTemporaryDir>
#include <thread>
#include <vector>

/// Stands between the clients and the socket of a PostgreSQL server and spoils their connections: delays, breaks off
/// in the middle of a message, closes one way, freezes, resets. What happens to the n-th connection depends on the
/// seed alone.
class FaultProxy
{
public:
    /// Listens in a folder of its own, like the server in \a serverFolder.
    FaultProxy(const QString& serverFolder, unsigned seed);
    ~FaultProxy();
    FaultProxy(const FaultProxy&) = delete;
    FaultProxy& operator=(const FaultProxy&) = delete;

    QString socketFolder() const { return m_folder.path(); }
    /// From now on connections pass unharmed; those that are spoilt end.
    void heal() { m_isHealed = true; }
    /// How many connections were spoilt so far.
    int faults() const { return m_faults; }

private:
    void accept();
    void carry(int client, unsigned seed);

    QString m_server;
    QTemporaryDir m_folder;
    unsigned m_seed;
    int m_listener = -1;
    std::atomic<bool> m_isEnding{false};
    std::atomic<bool> m_isHealed{false};
    std::atomic<int> m_faults{0};
    std::thread m_acceptor;
    std::vector<std::thread> m_carriers; ///< of the acceptor until it has ended
};
