#include "Command.h"
#include "PrivateCluster.h"
#include "Store.h"
#include "StoreAdmin.h"
#include "StoreError.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

namespace
{
/// An address of this machine on which no other process of the tests listens.
QString ownAddress()
{
    const auto id = static_cast<unsigned>(getpid());
    return QStringLiteral("127.%1.%2.%3").arg(id >> 16 & 255).arg(id >> 8 & 255).arg(id & 255);
}
} // namespace

/// A server that is identified by its certificate, and the messages for a wrong one.
class ServerCertificate_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<PrivateCluster> m_cluster;
    QTemporaryDir m_folder;

    QString url(const QString& host, const QString& mode, const QString& root) const
    {
        return QStringLiteral("postgresql://postgres@%1/site?hostaddr=%2&sslmode=%3&sslrootcert=%4")
            .arg(host, ownAddress(), mode, m_folder.filePath(root));
    }
    static QString doctor(const QString& url)
    {
        QString out;
        QString err;
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        Streams streams{outStream, errStream, nullptr};
        runAdmin({QStringLiteral("doctor"), url}, streams);
        return out + err;
    }
    void makeCertificate(const QString& name) const
    {
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
                       QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-days"),
                       QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=journal.example"),
                       QStringLiteral("-keyout"), m_folder.filePath(name + QStringLiteral(".key")),
                       QStringLiteral("-out"), m_folder.filePath(name + QStringLiteral(".crt"))});
        if (!openssl.waitForFinished(60000) || openssl.exitCode() != 0)
            qFatal("no certificate: %s", openssl.readAllStandardError().constData());
    }
    /// The server accepts only files that belong to it.
    void give(const QString& from, const QString& to) const
    {
        QFile file(m_folder.filePath(from));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no certificate");
        QCOMPARE(
            m_cluster->exec(QStringLiteral("COPY (SELECT unnest(string_to_array('%1', E'\\n'))) TO PROGRAM "
                                           "'umask 077; cat > %2'")
                                .arg(QString::fromLatin1(file.readAll().trimmed()), to)),
            QString());
    }

private slots:
    void initTestCase()
    {
        m_cluster = std::make_unique<PrivateCluster>("listen_addresses = '" + ownAddress().toLatin1() + "'");
        StoreError error;
        QVERIFY2(
            StoreAdmin::init(m_cluster->url(QStringLiteral("site")), "Windows-1251", "Europe/Moscow", &error),
            qPrintable(error.text + error.detail));
        makeCertificate(QStringLiteral("server"));
        makeCertificate(QStringLiteral("foreign"));
    }

    void doctorReportsAServerWithoutEncryption()
    {
        const QString said = doctor(url(QStringLiteral("journal.example"), QStringLiteral("verify-full"),
                                        QStringLiteral("server.crt")));
        QVERIFY2(said.contains(QStringLiteral("ssl = on")), qPrintable(said));
        QVERIFY(!said.contains(QStringLiteral("порт 5432 открыт")));
    }

    void rightCertificateLeadsToTheStore()
    {
        give(QStringLiteral("server.crt"), QStringLiteral("server.crt"));
        give(QStringLiteral("server.key"), QStringLiteral("server.key"));
        QCOMPARE(m_cluster->exec(QStringLiteral("ALTER SYSTEM SET ssl = on")), QString());
        m_cluster->stop();
        m_cluster->start();
        const QString address = url(QStringLiteral("journal.example"), QStringLiteral("verify-full"),
                                    QStringLiteral("server.crt"));
        StoreError error;
        QVERIFY2(Store::open(address, {}, &error), qPrintable(error.text + error.detail));
        const QString said = doctor(address);
        QVERIFY2(!said.contains(QStringLiteral("не шифруется")), qPrintable(said));
        QVERIFY2(!said.contains(QStringLiteral("root.crt")), qPrintable(said));
    }

    void reportsAServerThatNeedNotProveItsIdentity()
    {
        const QString address =
            url(QStringLiteral("journal.example"), QStringLiteral("require"), QStringLiteral("none"));
        StoreError error;
        const auto store = Store::open(address, {}, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        QCOMPARE(store->caution(), QStringLiteral("сервер не проверен (sslmode=require)"));
        const QString said = doctor(address);
        QVERIFY2(said.contains(QStringLiteral("Сервер не доказывает")), qPrintable(said));
    }

    void certificateOfAnotherNameIsRefused()
    {
        const QString address =
            url(QStringLiteral("other.example"), QStringLiteral("verify-full"), QStringLiteral("server.crt"));
        StoreError error;
        QVERIFY(!Store::open(address, {}, &error));
        QVERIFY2(error.detail.contains(QStringLiteral("other.example")), qPrintable(error.detail));
        const QString said = doctor(address);
        QVERIFY2(said.contains(QStringLiteral("имя из адреса стояло в сертификате сервера")),
                 qPrintable(said));
    }

    void certificateOfAnotherAuthorityIsRefused()
    {
        for (const char* root : {"foreign.crt", "missing.crt"}) {
            const QString address =
                url(QStringLiteral("journal.example"), QStringLiteral("verify-full"), QLatin1String(root));
            StoreError error;
            QVERIFY(!Store::open(address, {}, &error));
            QCOMPARE(error.code, StoreError::Lost);
            const QString said = doctor(address);
            QVERIFY2(said.contains(QStringLiteral("~/.postgresql/root.crt")), qPrintable(said));
        }
    }
};

QTEST_GUILESS_MAIN(ServerCertificate_test)
#include "ServerCertificate_test.moc"
