#pragma once

#include <atomic>
#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>
#include <thread>
#include <vector>

/// A proxy between clients on this machine's network and the socket of a PostgreSQL server that changes
/// their messages: for servers that are not available, such as one of an earlier version.
class RewritingProxy
{
public:
    /// A passage and its replacement, in both directions; of the same length, since messages contain their
    /// length.
    using Rewriting = QPair<QByteArray, QByteArray>;

    /// Connects to the server in \a serverFolder.
    explicit RewritingProxy(const QString& serverFolder, const QVector<Rewriting>& rewritings = {});
    ~RewritingProxy();
    RewritingProxy(const RewritingProxy&) = delete;
    RewritingProxy& operator=(const RewritingProxy&) = delete;

    quint16 port() const { return m_port; }
    /// The address of a database behind the proxy, by a name of this machine.
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
    std::vector<std::thread> m_carriers; ///< used by the acceptor until it has ended
};
