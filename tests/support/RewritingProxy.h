#pragma once

#include <atomic>
#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>
#include <thread>
#include <vector>

/// Stands between clients on the network of this machine and the socket of a PostgreSQL server, and changes what they
/// tell each other: for servers that cannot be had, such as one of an earlier version.
class RewritingProxy
{
public:
    /// What is said instead of a passage, in both directions; of the same length, since messages carry theirs.
    using Rewriting = QPair<QByteArray, QByteArray>;

    /// Leads to the server in \a serverFolder.
    explicit RewritingProxy(const QString& serverFolder, const QVector<Rewriting>& rewritings = {});
    ~RewritingProxy();
    RewritingProxy(const RewritingProxy&) = delete;
    RewritingProxy& operator=(const RewritingProxy&) = delete;

    quint16 port() const { return m_port; }
    /// The address of a database behind it, by a name of this machine.
    QString url(const QString& database, const QString& host = QStringLiteral("127.0.0.1")) const;

private:
    void accept();
    void carry(int client);

    QString m_server;
    QVector<Rewriting> m_rewritings;
    int m_listener;
    quint16 m_port = 0;
    std::atomic<bool> m_isEnding{false};
    std::thread m_acceptor;
    std::vector<std::thread> m_carriers; ///< of the acceptor until it has ended
};
