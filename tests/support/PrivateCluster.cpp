#include "PrivateCluster.h"

#include "TestFolder.h"

#include <csignal>
#include <libpq-fe.h>
#include <pwd.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QUrl>
#include <unistd.h>

namespace
{
constexpr int startMs = 60000;

QString program(const char* name)
{
    // The newest installed server; its programs are not in PATH.
    const QString root = QStringLiteral("/usr/lib/postgresql");
    const QStringList versions = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (versions.isEmpty())
        qFatal("PostgreSQL is not installed: packaging/dependencies.sh test");
    return QStringLiteral("%1/%2/bin/%3").arg(root, versions.last(), QLatin1String(name));
}

/// State and parent of a process, and further fields; empty if it does not exist.
QList<QByteArray> statusOf(qint64 process)
{
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = status.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ');
}

bool isRoot()
{
    return geteuid() == 0;
}
} // namespace

PrivateCluster::PrivateCluster(const QByteArray& settings, const QString& data)
    : m_folder(testFolderTemplate())
{
    if (isRoot()) {
        const passwd* user = getpwnam("postgres");
        if (!user || chown(m_folder.path().toLocal8Bit().constData(), user->pw_uid, user->pw_gid) != 0)
            qFatal("the server cannot be run as an ordinary user");
    }
    const QString empty = originals() + QLatin1String("/empty");
    const QString from = data.isEmpty() && QFile::exists(empty) ? empty : data;
    if (from.isEmpty())
        run(asOrdinaryUser() + QStringList{program("initdb"), QStringLiteral("--pgdata=") + dataFolder(),
                                           QStringLiteral("--username=postgres"),
                                           QStringLiteral("--auth=trust"), QStringLiteral("--encoding=UTF8"),
                                           QStringLiteral("--locale=C.UTF-8"),
                                           QStringLiteral("--wal-segsize=1"), QStringLiteral("--no-sync")});
    else
        copyData(from, dataFolder());
    QFile configuration(dataFolder() + QLatin1String("/postgresql.conf"));
    if (!configuration.open(QIODevice::Append))
        qFatal("the server cannot be configured");
    configuration.write(
        "\nlisten_addresses = ''\nunix_socket_directories = '" + m_folder.path().toUtf8() +
        "'\nfsync = off\nfull_page_writes = off\nmax_connections = 420\nshared_buffers = 32MB\n"
        "max_wal_size = 64MB\nmin_wal_size = 32MB\nlog_min_messages = warning\n" +
        settings + "\n");
    configuration.close();
    start();
}

PrivateCluster::~PrivateCluster()
{
    if (m_server.state() != QProcess::NotRunning) {
        thaw();
        stop();
    }
}

PrivateCluster& PrivateCluster::shared()
{
    const QString filled = originals() + QLatin1String("/filled");
    static PrivateCluster cluster(QByteArray(), QFile::exists(filled) ? filled : QString());
    return cluster;
}

QString PrivateCluster::originals()
{
    return qEnvironmentVariable("VRK_TEST_CLUSTERS");
}

void PrivateCluster::leaveOriginals()
{
    const QString folder = originals();
    PrivateCluster empty;
    empty.stop();
    shared().stop();
    if (!QDir().mkpath(folder))
        qFatal("%s cannot be made", qPrintable(folder));
    empty.copyData(empty.dataFolder(), folder + QLatin1String("/empty"));
    shared().copyData(shared().dataFolder(), folder + QLatin1String("/filled"));
}

QString PrivateCluster::dataFolder() const
{
    return m_folder.filePath(QStringLiteral("data"));
}

void PrivateCluster::run(QStringList line) const
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(QStringLiteral("/"));
    const QString command = line.join(QLatin1Char(' '));
    process.start(line.takeFirst(), line);
    if (!process.waitForFinished(startMs) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(command), process.readAll().constData());
}

void PrivateCluster::copyData(const QString& from, const QString& to) const
{
    // Owners and permissions are copied, too: the server refuses a folder that others can read.
    run({QStringLiteral("cp"), QStringLiteral("-a"), QStringLiteral("--reflink=auto"), from, to});
}

QStringList PrivateCluster::asOrdinaryUser() const
{
    QStringList line{QStringLiteral("setpriv"), QStringLiteral("--pdeathsig=QUIT")};
    if (isRoot())
        line += QStringList{QStringLiteral("--reuid=postgres"), QStringLiteral("--regid=postgres"),
                            QStringLiteral("--clear-groups")};
    return line;
}

QString PrivateCluster::url(const QString& database, const QString& role) const
{
    return QStringLiteral("postgresql://%1@/%2?host=%3")
        .arg(QString::fromLatin1(QUrl::toPercentEncoding(role)), database,
             QString::fromLatin1(QUrl::toPercentEncoding(m_folder.path())));
}

void PrivateCluster::requirePasswords()
{
    QFile access(dataFolder() + QLatin1String("/pg_hba.conf"));
    if (!access.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        access.write("local all postgres trust\nlocal all all scram-sha-256\n") < 0)
        qFatal("the access file cannot be written");
    access.close();
    if (!exec(QStringLiteral("SELECT pg_reload_conf()")).isEmpty())
        qFatal("the access file cannot be read");
    // The server reads it with a delay.
    while (!exec(QStringLiteral("DO $$ BEGIN ASSERT (SELECT count(*) FROM pg_hba_file_rules) = 2; END $$"))
                .isEmpty())
        QThread::msleep(5);
}

void PrivateCluster::start()
{
    QStringList line =
        asOrdinaryUser() + QStringList{program("postgres"), QStringLiteral("-D"), dataFolder()};
    m_server.setWorkingDirectory(QStringLiteral("/"));
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.setStandardOutputFile(m_folder.filePath(QStringLiteral("log")), QIODevice::Append);
    m_server.start(line.takeFirst(), line);
    QElapsedTimer clock;
    clock.start();
    // Only a query shows that a server is ready; a server that has ended never will be.
    while (!exec(QString()).isEmpty()) {
        m_server.waitForFinished(0);
        if (clock.hasExpired(startMs) || m_server.state() == QProcess::NotRunning)
            qFatal("the server of the tests does not start");
        QThread::msleep(20);
    }
}

void PrivateCluster::stop()
{
    ::kill(static_cast<pid_t>(m_server.processId()), SIGINT);
    if (!m_server.waitForFinished(startMs))
        qFatal("the server of the tests does not stop");
}

QList<qint64> PrivateCluster::processes() const
{
    QList<qint64> all{m_server.processId()};
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        bool isNumber = false;
        const qint64 id = entry.toLongLong(&isNumber);
        if (isNumber && statusOf(id).value(1).toLongLong() == m_server.processId())
            all.append(id);
    }
    return all;
}

void PrivateCluster::freeze()
{
    for (const qint64 id : processes())
        ::kill(static_cast<pid_t>(id), SIGSTOP);
}

void PrivateCluster::thaw()
{
    for (const qint64 id : processes())
        ::kill(static_cast<pid_t>(id), SIGCONT);
}

void PrivateCluster::kill()
{
    // The first one is stopped before: it must neither start new ones nor shut the others down in order.
    ::kill(static_cast<pid_t>(m_server.processId()), SIGSTOP);
    const QList<qint64> all = processes();
    for (const qint64 id : all)
        ::kill(static_cast<pid_t>(id), SIGKILL);
    m_server.waitForFinished(startMs);
    // A server does not start while one of the former processes holds the shared memory.
    for (const qint64 id : all) {
        for (QByteArray state = statusOf(id).value(0); !state.isEmpty() && state != "Z";
             state = statusOf(id).value(0))
            QThread::msleep(1);
    }
}

QString PrivateCluster::exec(const QString& sql, const QString& database) const
{
    const std::unique_ptr<PGconn, decltype(&PQfinish)> link(PQconnectdb(url(database).toUtf8().constData()),
                                                            PQfinish);
    PQsetNoticeProcessor(
        link.get(), [](void*, const char*) {}, nullptr);
    const std::unique_ptr<PGresult, decltype(&PQclear)> done(PQexec(link.get(), sql.toUtf8().constData()),
                                                             PQclear);
    const char* message = PQresultErrorField(done.get(), PG_DIAG_MESSAGE_PRIMARY);
    return QString::fromUtf8(message ? message : PQerrorMessage(link.get()));
}
