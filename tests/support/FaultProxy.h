#pragma once

#include <atomic>
#include <QString>
#include <QTemporaryDir>
#include <thread>
#include <vector>

/// A proxy between clients and the socket of a PostgreSQL server that disturbs their connections: delays,
/// disconnects in the middle of a message, closes one direction, freezes, resets. The fault of the n-th
/// connection depends only on the seed.
class FaultProxy
{
public:
    /// Listens in its own folder, like the server in \a serverFolder.
    FaultProxy(const QString& serverFolder, unsigned seed);
    ~FaultProxy();
    FaultProxy(const FaultProxy&) = delete;
    FaultProxy& operator=(const FaultProxy&) = delete;

    QString socketFolder() const { return m_folder.path(); }
    /// From now on connections pass undisturbed; disturbed ones end.
    void heal() { m_isHealed = true; }
    /// Number of disturbed connections so far.
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
    std::vector<std::thread> m_carriers; ///< used by the acceptor until it has ended
};
