#include "StoreAdmin.h"
#include "TestStore.h"

#include <cmath>
#include <QDateTime>
#include <QTest>
#include <QTextCodec>

class Store_login_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;

private slots:
    void init() { m_files = std::make_unique<TestStore>(); }

    void propertiesOfTheStore()
    {
        const auto store = m_files->open(QString());
        QCOMPARE(store->codec()->name(), QTextCodec::codecForName("Windows-1251")->name());
        QCOMPARE(store->timeZone(), QByteArray("Europe/Moscow"));
        const double time = store->serverTime();
        QVERIFY(qAbs(time - static_cast<double>(QDateTime::currentSecsSinceEpoch())) <= 1);
        QCOMPARE(time, std::floor(time));
    }

    void livingLoginsMayBeChosen()
    {
        StoreError error;
        QVERIFY(StoreAdmin::removeUser(m_files->url(), QStringLiteral("viewer"), &error));
        QStringList logins;
        for (const StoreLogin& login : m_files->open(QString())->logins())
            logins.append(login.login);
        QCOMPARE(logins.join(QLatin1Char(' ')), QStringLiteral("ivanov kuznetsov petrov sidorova smirnov"));
    }

    void signInTellsWhoItIs()
    {
        const auto store = m_files->open(QString());
        StoreLogin user;
        StoreError error;
        QVERIFY(store->signIn(QStringLiteral("petrov"), &user, &error));
        QCOMPARE(user.key, QByteArray("USER_PETROV"));
        QCOMPARE(user.name, QString::fromUtf8("Петров Пётр Петрович"));
        QVERIFY(!store->signIn(QStringLiteral("Petrov"), &user, &error));
        QCOMPARE(error.code, StoreError::Refused);
        QCOMPARE(error.text, QString::fromUtf8("Пользователь «Petrov» не найден."));
    }

    void removedLoginCannotSignIn()
    {
        StoreError error;
        QVERIFY(StoreAdmin::removeUser(m_files->url(), QStringLiteral("petrov"), &error));
        StoreLogin user;
        QVERIFY(!m_files->open(QString())->signIn(QStringLiteral("petrov"), &user, &error));
    }

    void departmentsAreThoseOfLivingWorkersByName()
    {
        const auto store = m_files->open(QString());
        const auto two = store->departments("USER_SMIRNOV");
        QCOMPARE(two.size(), 2);
        QCOMPARE(two[0].key, QByteArray("DEP_ZAR"));
        QCOMPARE(two[0].name, QString::fromUtf8("Заречная диспетчерская группа"));
        QCOMPARE(two[0].organizationKey, QByteArray("ORG_NETS"));
        QCOMPARE(two[0].organizationName, QString::fromUtf8("Электросети «Ключевой край»"));
        QCOMPARE(two[1].key, QByteArray("DEP_ODS"));
        QVERIFY(store->departments("USER_KUZNETSOV").isEmpty());
        QVERIFY(store->departments("USER_VIEWER").isEmpty());
    }

    void rightsAreThoseOfTheLoginAndImplyNoOther()
    {
        QVERIFY(m_files->open(QStringLiteral("sidorova"))->hasRight("ADMINISTRATOR"));
        QVERIFY(!m_files->open(QStringLiteral("sidorova"))->hasRight("ADMINISTRATOR_OPERLOG_LOCAL"));
        QVERIFY(m_files->open(QStringLiteral("smirnov"))->hasRight("ADMINISTRATOR_OPERLOG_LOCAL"));
        QVERIFY(!m_files->open(QStringLiteral("ivanov"))->hasRight("ADMINISTRATOR"));
        QVERIFY(!m_files->open(QString())->hasRight("ADMINISTRATOR"));
    }

    void namedFilesComeWhole()
    {
        StoreError error;
        QByteArray content;
        const auto store = m_files->open(QStringLiteral("ivanov"));
        QVERIFY(!store->file(QStringLiteral("options"), QStringLiteral("OperLogOptions"), &content, &error));
        QCOMPARE(error.code, StoreError::NoSuchRow);
        const QByteArray bytes("DelayTime=5\r\n\0\xFF", 15);
        QVERIFY(StoreAdmin::putFile(m_files->url(), QStringLiteral("options"),
                                    QStringLiteral("OperLogOptions"), bytes, &error));
        QVERIFY(store->file(QStringLiteral("options"), QStringLiteral("OperLogOptions"), &content, &error));
        QCOMPARE(content, bytes);
    }
};

QTEST_GUILESS_MAIN(Store_login_test)
#include "Store_login_test.moc"
