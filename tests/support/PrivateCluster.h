#pragma once

#include <memory>
#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A private PostgreSQL server for tests: its data in a temporary folder, reachable only by a socket there,
/// run as an ordinary user, ended with the process in all cases. Any failure ends the program.
class PrivateCluster
{
public:
    /// Creates the cluster and starts it. \a settings are lines of its configuration. \a data is the folder
    /// of a stopped cluster to copy; without it the cluster is new and empty.
    explicit PrivateCluster(const QByteArray& settings = QByteArray(), const QString& data = QString());
    ~PrivateCluster();
    PrivateCluster(const PrivateCluster&) = delete;
    PrivateCluster& operator=(const PrivateCluster&) = delete;

    /// The cluster that all test stores of a process share, started on first use. It contains the databases
    /// of leaveOriginals().
    static PrivateCluster& shared();

    /// The folder in which a test run keeps clusters to copy (VRK_TEST_CLUSTERS); empty for a program
    /// started by hand, which creates its own.
    static QString originals();
    /// Stops the shared cluster and leaves its data in originals(), and those of a new cluster, for later
    /// programs.
    static void leaveOriginals();

    /// The folder with the server's socket.
    QString socketFolder() const { return m_folder.path(); }
    /// The address of a database for a role; that of the server's administrator is "postgres".
    QString url(const QString& database, const QString& role = QStringLiteral("postgres")) const;

    /// From now on everybody except the administrator needs a password.
    void requirePasswords();

    void start();
    void stop();
    /// Stops all its processes, and lets them continue.
    void freeze();
    void thaw();
    /// Kills it with all its processes by signal 9, so that it must recover at the next start.
    void kill();

    /// Runs statements as the administrator; the server's message, empty for success.
    QString exec(const QString& sql, const QString& database = QStringLiteral("postgres")) const;

private:
    QStringList asOrdinaryUser() const;
    QString dataFolder() const;
    void run(QStringList line) const;
    void copyData(const QString& from, const QString& to) const;
    QList<qint64> processes() const;

    QTemporaryDir m_folder;
    QProcess m_server;
};
