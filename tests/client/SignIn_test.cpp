#include "CVrkCliApp.h"
#include "CVrkCliSes.h"
#include "ExpectedWarning.h"
#include "SignIn.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <ctime>
#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

class SignInTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        qputenv("TZ", "Europe/Moscow");
        tzset();
    }

    void theLoginOfAWorkerEntersItsOnlyDepartment();
    void ofTwoDepartmentsOneMustBeChosen();
    void departmentsAreSortedWithTheirOrganizations();
    void aForeignDepartmentIsRefused();
    void aLoginWithoutAWorkerEntersWithoutADepartment();
    void theLoginsToChooseFrom();
    void anUnknownLoginMayBeTriedAgain();
    void aMissingStoreHasAReason_data();
    void aMissingStoreHasAReason();
    void stepsOutOfOrderFail();
    void theProcessUsesTheZoneOfTheStore();
    void aStoreOfAnotherZoneIsRefused();
    void theCodePageIsThatOfTheStore();
    void aStoreRemovedBeforeEnteringHasAReason();
    void anApplicationIsEnteredOnce();

private:
    static QString parameter(const CVrkCliApp& app, const char* name)
    {
        return app.m_user_params.getValue(QString::fromLatin1(name), QStringLiteral("(none)"));
    }
};

void SignInTest::theLoginOfAWorkerEntersItsOnlyDepartment()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY2(signIn.open(store.url()), qPrintable(signIn.errorText()));
    QVERIFY(signIn.signIn(QStringLiteral("ivanov")));
    QCOMPARE(signIn.departments().size(), 1);
    QVERIFY(!signIn.userName().isEmpty());
    QVERIFY(signIn.enter(&app, QByteArray()));
    QCOMPARE(signIn.errorText(), QString());
    QCOMPARE(parameter(app, "KEYLINK"), QStringLiteral("USER_IVANOV"));
    QCOMPARE(parameter(app, "DEPARTMENTKEY"), QStringLiteral("DEP_CDS"));
    QCOMPARE(parameter(app, "ORGANIZATIONKEY"), QStringLiteral("ORG_NETS"));
    QVERIFY(app.session());
    QVERIFY(app.session()->isConnected());
}

void SignInTest::ofTwoDepartmentsOneMustBeChosen()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("smirnov")));
    QVERIFY(!signIn.enter(&app, QByteArray()));
    QCOMPARE(signIn.errorText(), QStringLiteral("Не выбрано подразделение."));
    QVERIFY(!app.session());
    QVERIFY(signIn.enter(&app, "DEP_ODS"));
    QCOMPARE(parameter(app, "DEPARTMENTKEY"), QStringLiteral("DEP_ODS"));
    QCOMPARE(parameter(app, "ORGANIZATIONKEY"), QStringLiteral("ORG_CENTER"));
}

void SignInTest::departmentsAreSortedWithTheirOrganizations()
{
    TestStore store;
    SignIn signIn;
    QVERIFY(signIn.departments().isEmpty());
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("smirnov")));
    const QVector<SignIn::Department> departments = signIn.departments();
    QCOMPARE(departments.size(), 2);
    QCOMPARE(departments[0].name, QStringLiteral("Заречная диспетчерская группа"));
    QCOMPARE(departments[0].organizationKey, QByteArray("ORG_NETS"));
    QCOMPARE(departments[1].name, QStringLiteral("ОДС"));
    QVERIFY(!departments[1].organizationName.isEmpty());
}

void SignInTest::aForeignDepartmentIsRefused()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("ivanov")));
    QVERIFY(!signIn.enter(&app, "DEP_ODS"));
    QCOMPARE(signIn.errorText(), QStringLiteral("Пользователь не работает в выбранном подразделении."));
    QVERIFY(!app.session());
    // A deleted row of a worker gives no access.
    QVERIFY(signIn.signIn(QStringLiteral("kuznetsov")));
    QVERIFY(signIn.departments().isEmpty());
}

void SignInTest::aLoginWithoutAWorkerEntersWithoutADepartment()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("viewer")));
    QVERIFY(signIn.departments().isEmpty());
    QVERIFY(signIn.enter(&app, QByteArray()));
    QCOMPARE(parameter(app, "KEYLINK"), QStringLiteral("USER_VIEWER"));
    QCOMPARE(parameter(app, "DEPARTMENTKEY"), QString());
}

void SignInTest::theLoginsToChooseFrom()
{
    TestStore store;
    SignIn signIn;
    QVERIFY(signIn.logins().isEmpty());
    QVERIFY(signIn.open(store.url()));
    QStringList names;
    for (const SignIn::Login& login : signIn.logins())
        names.append(login.login);
    QVERIFY(names.contains(QStringLiteral("ivanov")));
    QVERIFY(names.contains(QStringLiteral("viewer")));
}

void SignInTest::anUnknownLoginMayBeTriedAgain()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()));
    QVERIFY(!signIn.signIn(QStringLiteral("nobody")));
    QCOMPARE(signIn.errorText(), QStringLiteral("Пользователь «nobody» не найден."));
    QVERIFY(!signIn.enter(&app, QByteArray()));
    QVERIFY(signIn.signIn(QStringLiteral("petrov")));
    QCOMPARE(signIn.errorText(), QString());
    QVERIFY(signIn.enter(&app, "DEP_CDS"));
    QCOMPARE(parameter(app, "KEYLINK"), QStringLiteral("USER_PETROV"));
}

void SignInTest::aMissingStoreHasAReason_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("no url") << QString();
    QTest::newRow("unknown engine") << QStringLiteral("oracle://host/db");
    QTest::newRow("no file") << QStringLiteral("sqlite:///no/such/journal.vrk");
    QTest::newRow("a folder") << QStringLiteral("sqlite:///tmp");
}

void SignInTest::aMissingStoreHasAReason()
{
    QFETCH(QString, url);
    SignIn signIn;
    QVERIFY(!signIn.open(url));
    // In the user's words.
    QVERIFY(signIn.errorText().contains(QRegularExpression(QStringLiteral("[а-я]{3}"))));
    QVERIFY(!signIn.signIn(QStringLiteral("ivanov")));
}

void SignInTest::stepsOutOfOrderFail()
{
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(!signIn.signIn(QStringLiteral("ivanov")));
    QCOMPARE(signIn.errorText(), QStringLiteral("Журнал не открыт."));
    QVERIFY(!signIn.enter(&app, QByteArray()));
    QCOMPARE(signIn.errorText(), QStringLiteral("Вход в журнал не выполнен."));
}

void SignInTest::theProcessUsesTheZoneOfTheStore()
{
    QTemporaryDir folder;
    const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("journal.vrk"));
    StoreError error;
    QVERIFY2(StoreAdmin::init(url, "Windows-1251", "Asia/Vladivostok", &error), qPrintable(error.text));
    SignIn signIn;
    QVERIFY(signIn.open(url));
    const QDateTime time = QDateTime::fromSecsSinceEpoch(1700000000);
    QCOMPARE(time.offsetFromUtc(), 10 * 3600);
    QCOMPARE(time.time(), QTime(8, 13, 20));
}

void SignInTest::aStoreOfAnotherZoneIsRefused()
{
    QTemporaryDir folder;
    const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("journal.vrk"));
    StoreError error;
    QVERIFY2(StoreAdmin::init(url, "Windows-1251", "Asia/Vladivostok", &error), qPrintable(error.text));
    const TestStore store;
    auto app = std::make_unique<CVrkCliApp>();
    SignIn first;
    QVERIFY(first.open(store.url()) && first.signIn(QStringLiteral("ivanov")) &&
            first.enter(app.get(), QByteArray()));
    SignIn second;
    QVERIFY(!second.open(url));
    QVERIFY2(second.errorText().contains(QStringLiteral("Asia/Vladivostok")) &&
                 second.errorText().contains(QStringLiteral("Europe/Moscow")),
             qPrintable(second.errorText()));
    QVERIFY(second.logins().isEmpty());
    QCOMPARE(QDateTime::fromSecsSinceEpoch(1700000000).offsetFromUtc(), 3 * 3600);
    // Another store of the same zone can be opened, and this one after the first is closed.
    const TestStore other;
    QVERIFY(second.open(other.url()));
    QVERIFY(second.open(store.url()));
    app.reset();
    QVERIFY(second.open(url));
    QCOMPARE(QDateTime::fromSecsSinceEpoch(1700000000).offsetFromUtc(), 10 * 3600);
}

void SignInTest::theCodePageIsThatOfTheStore()
{
    QTemporaryDir folder;
    const QString url = QStringLiteral("sqlite://") + folder.filePath(QStringLiteral("journal.vrk"));
    StoreError error;
    QVERIFY2(StoreAdmin::init(url, "UTF-8", "Europe/Moscow", &error), qPrintable(error.text));
    QVERIFY(StoreAdmin::addUser(url, QStringLiteral("admin"), QStringLiteral("Администратор"), &error));
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(url) && signIn.signIn(QStringLiteral("admin")) && signIn.enter(&app, QByteArray()));
    QCOMPARE(app.session()->codec()->name(), QByteArray("UTF-8"));
}

void SignInTest::aStoreRemovedBeforeEnteringHasAReason()
{
    if (!TestStore::isSqlite())
        QSKIP("Of a store in a file");
    expectWarning(QStringLiteral("исчез"));
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("ivanov")));
    QVERIFY(QFile::remove(store.path()));
    QVERIFY(!signIn.enter(&app, QByteArray()));
    QVERIFY(signIn.errorText().contains(QStringLiteral("исчез")));
    QVERIFY(!app.session());
}

void SignInTest::anApplicationIsEnteredOnce()
{
    TestStore store;
    CVrkCliApp app;
    SignIn signIn;
    QVERIFY(signIn.open(store.url()) && signIn.signIn(QStringLiteral("ivanov")));
    QVERIFY(signIn.enter(&app, QByteArray()));
    QVERIFY(!signIn.enter(&app, QByteArray()));
    QVERIFY(!signIn.errorText().isEmpty());
}

QTEST_MAIN(SignInTest)
#include "SignIn_test.moc"
