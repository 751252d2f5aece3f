#include "CMDArray.h"
#include "PgAddress.h"
#include "PrivateCluster.h"
#include "RewritingProxy.h"
#include "StoreAdmin.h"
#include "TestFolder.h"
#include "TestStore.h"
#include "UnixSocket.h"

#include <atomic>
#include <condition_variable>
#include <dlfcn.h>
#include <libpq-fe.h>
#include <mutex>
#include <netdb.h>
#include <QSocketNotifier>
#include <QTest>

namespace
{
/// A name server that does not answer until it is released.
struct SlowNames {
    std::mutex mutex;
    std::condition_variable answers;
    bool isAnswering = true;
    int asked = 0;

    void setAnswering(bool answering)
    {
        const std::lock_guard lock(mutex);
        isAnswering = answering;
        answers.notify_all();
    }
    int timesAsked()
    {
        const std::lock_guard lock(mutex);
        return asked;
    }
    void wait()
    {
        std::unique_lock lock(mutex);
        ++asked;
        answers.wait(lock, [this] { return isAnswering; });
    }
};
SlowNames slowNames;
const char slowHost[] = "journal.example";
} // namespace

/// All libraries of the program look up names here.
extern "C" Q_DECL_EXPORT int getaddrinfo(const char* host, const char* service, const addrinfo* hints,
                                         addrinfo** result)
{
    using Function = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (qstrcmp(host, slowHost) != 0)
        return real(host, service, hints, result);
    slowNames.wait();
    return real("127.0.0.1", service, hints, result);
}

/// Connecting to a server: names that nobody resolves, hosts that do not answer.
class PostgresStore_connect_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<PrivateCluster> m_cluster;

    static std::unique_ptr<Store> open(const QString& url, int deadlineMs, StoreError* error)
    {
        Store::Options options;
        options.loader = true;
        options.deadlineMs = deadlineMs;
        return Store::open(url, options, error);
    }

private slots:
    void initTestCase()
    {
        m_cluster = std::make_unique<PrivateCluster>();
        StoreError error;
        QVERIFY2(
            StoreAdmin::init(m_cluster->url(QStringLiteral("site")), "Windows-1251", "Europe/Moscow", &error),
            qPrintable(error.text + error.detail));
    }
    void cleanup() { slowNames.setAnswering(true); }

    void onlyOthersMustProveWhoTheyAre_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("mode");
        for (const char* here : {"/j", "localhost/j", "LocalHost:5433/j", "127.0.0.1/j", "127.9.8.7/j",
                                 "[::1]/j", "/j?host=/run/postgresql", "localhost,127.0.0.1/j",
                                 "journal.example/j?hostaddr=127.0.0.1", "site.localhost/j"})
            QTest::newRow(here) << QString::fromLatin1(here) << QString();
        for (const char* other : {"server/j", "192.168.10.5/j", "128.0.0.1/j", "localhost,server/j",
                                  "localhost.example/j", "[fe80::1]/j", "/j?host=server",
                                  "localhost/j?hostaddr=10.0.0.1", "/j?service=site", "127.0.0.1.example/j"})
            QTest::newRow(other) << QString::fromLatin1(other) << QStringLiteral("verify-full");
        QTest::newRow("written out") << QStringLiteral("server/j?sslmode=require")
                                     << QStringLiteral("require");
    }
    void onlyOthersMustProveWhoTheyAre()
    {
        QFETCH(QString, address);
        QFETCH(QString, mode);
        QCOMPARE(QString::fromLatin1(PgAddress::sslMode(QStringLiteral("postgresql://") + address)), mode);
    }

    void passwordDoesNotGoToWhoHasProvedNothing()
    {
        RewritingProxy proxy(m_cluster->socketFolder()); // which cannot encrypt
        const auto address = [&](const char* host, const char* mode) {
            return QStringLiteral("postgresql://postgres@%1:%2/site%3")
                .arg(QLatin1String(host))
                .arg(proxy.port())
                .arg(QLatin1String(mode));
        };
        StoreError error;
        QVERIFY(!open(address(slowHost, ""), 15000, &error));
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY2(error.text.contains(QStringLiteral("не доказал, что он тот самый")), qPrintable(error.text));
        auto store = open(address(slowHost, "?sslmode=prefer"), 15000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        QCOMPARE(store->caution(), QStringLiteral("связь не шифруется (sslmode=prefer)"));
        store = open(address("127.0.0.1", ""), 15000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        QCOMPARE(store->caution(), QString());
    }

    void nothingIsHeldUpWhileANameServerKeepsSilent()
    {
        auto proxy = std::make_unique<RewritingProxy>(m_cluster->socketFolder());
        StoreError error;
        const auto store = open(proxy->url(QStringLiteral("site"), QLatin1String(slowHost)), 1000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        int signsOfLife = 0;
        store->setProgress([&] { ++signsOfLife; });
        slowNames.setAnswering(false);
        const int asked = slowNames.timesAsked();
        QCOMPARE(m_cluster->exec(QStringLiteral(
                     "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = 'site'")),
                 QString());

        // While nobody answers, reading changes returns at once, and a request at its deadline.
        ChangePosition position;
        while (store->position(&position, &error)) {
        }
        QElapsedTimer clock;
        clock.start();
        QVERIFY(!store->position(&position, &error));
        QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY(!TestStore::write(store.get(), "Roles", ROW_INSERT, "A", {}, &error));
        QCOMPARE(error.code, StoreError::Lost);
        QVERIFY(signsOfLife > 5);
        QTRY_COMPARE(slowNames.timesAsked(), asked + 1); // and the lookup is not repeated

        slowNames.setAnswering(true);
        QTRY_VERIFY(store->position(&position, &error));
        QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "A", {}, &error));
    }

    void newsOfAFinishedConnectionWakeTheReader()
    {
        RewritingProxy proxy(m_cluster->socketFolder());
        StoreError error;
        slowNames.setAnswering(false);
        // The server is not reachable yet: opening fails, and its attempt ends by itself afterwards.
        QVERIFY(!open(proxy.url(QStringLiteral("site"), QLatin1String(slowHost)), 1, &error));
        QCOMPARE(error.code, StoreError::Lost);
        slowNames.setAnswering(true);
        const auto store = open(proxy.url(QStringLiteral("site"), QLatin1String(slowHost)), 5000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        slowNames.setAnswering(false);
        QCOMPARE(m_cluster->exec(QStringLiteral(
                     "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = 'site'")),
                 QString());
        ChangePosition position;
        while (store->position(&position, &error)) {
        }
        QVERIFY(!store->position(&position, &error)); // begins to connect
        int woken = 0;
        QSocketNotifier notifier(store->newsDescriptor(), QSocketNotifier::Read);
        connect(&notifier, &QSocketNotifier::activated, this, [&] {
            ++woken;
            notifier.setEnabled(false);
        });
        QCoreApplication::processEvents();
        QCOMPARE(woken, 0);
        slowNames.setAnswering(true);
        QTRY_COMPARE(woken, 1);
        QVERIFY(store->position(&position, &error));
    }

    void silentHostIsPassedOver()
    {
        // The first host accepts connections and never answers.
        const QTemporaryDir silent(testFolderTemplate());
        const int listener = UnixSocket::listenIn(silent.path());
        const QString url = QStringLiteral("postgresql://postgres@/site?host=%1,%2")
                                .arg(QString::fromLatin1(QUrl::toPercentEncoding(silent.path())),
                                     QString::fromLatin1(QUrl::toPercentEncoding(m_cluster->socketFolder())));
        StoreError error;
        const auto store = open(url, 15000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "B", {}, &error));
        ::close(listener);
    }

    void processThatBearsAFormerNumberIsLeftAlone()
    {
        // Another client has the process id that the store remembers for its own connection.
        const std::unique_ptr<PGconn, decltype(&PQfinish)> other(
            PQconnectdb(m_cluster->url(QStringLiteral("site")).toUtf8().constData()), PQfinish);
        const QByteArray number = QByteArray::number(PQbackendPID(other.get())).rightJustified(7, '0');
        const RewritingProxy proxy(m_cluster->socketFolder(), {{"own.pid::bigint", number + "::bigint"}});
        StoreError error;
        const auto store = open(proxy.url(QStringLiteral("site")), 15000, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        QCOMPARE(
            m_cluster->exec(QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE "
                                           "datname = 'site' AND pid <> %1")
                                .arg(PQbackendPID(other.get()))),
            QString());
        ChangePosition position;
        while (store->position(&position, &error)) {
        }
        QTRY_VERIFY(
            store->position(&position, &error)); // a new connection, which has ended the former one's process
        const std::unique_ptr<PGresult, decltype(&PQclear)> answer(PQexec(other.get(), "SELECT 1"), PQclear);
        QCOMPARE(PQresultStatus(answer.get()), PGRES_TUPLES_OK);
    }

    void tooOldServerIsRefused()
    {
        // The server's first message contains its version.
        const RewritingProxy proxy(m_cluster->socketFolder(), {{QByteArray("server_version\0", 15) + "15",
                                                                QByteArray("server_version\0", 15) + "14"}});
        StoreError error;
        QVERIFY(!open(proxy.url(QStringLiteral("site")), 15000, &error));
        QCOMPARE(error.code, StoreError::TooOld);
        QVERIFY2(error.text.contains(QStringLiteral("нужен PostgreSQL 15 или новее")),
                 qPrintable(error.text));
    }
};

QTEST_GUILESS_MAIN(PostgresStore_connect_test)
#include "PostgresStore_connect_test.moc"
