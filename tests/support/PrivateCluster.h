#pragma once

#include <memory>
#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A PostgreSQL server of the tests' own: its data in a temporary folder, reached by a socket there and by no network,
/// run as an ordinary user, gone with the process whatever ends it. Any failure ends the program.
class PrivateCluster
{
public:
    /// Makes the cluster and starts it. \a settings are lines for its configuration. \a data is the folder of a stopped
    /// cluster to copy; without one the cluster is new and empty.
    explicit PrivateCluster(const QByteArray& settings = QByteArray(), const QString& data = QString());
    ~PrivateCluster();
    PrivateCluster(const PrivateCluster&) = delete;
    PrivateCluster& operator=(const PrivateCluster&) = delete;

    /// The one that all test stores of a process share, started at the first use. It holds what leaveOriginals() left.
    static PrivateCluster& shared();

    /// The folder in which a run of the tests keeps clusters to copy (VRK_TEST_CLUSTERS); empty for a program started
    /// by hand, which makes its own.
    static QString originals();
    /// Stops the shared cluster and leaves its data in originals(), and those of a new cluster, for the programs to come.
    static void leaveOriginals();

    /// The folder with the server's socket.
    QString socketFolder() const { return m_folder.path(); }
    /// The address of a database for a role; that of the server's administrator is "postgres".
    QString url(const QString& database, const QString& role = QStringLiteral("postgres")) const;

    /// From now on everybody but the administrator gets in by a password only.
    void requirePasswords();

    void start();
    void stop();
    /// Stops all its processes where they stand, and lets them go on.
    void freeze();
    void thaw();
    /// Ends it by signal 9 with all its processes, so that it has to recover at the next start.
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
