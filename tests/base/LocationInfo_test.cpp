#include "LocationInfo.h"

#include "CStringParams.h"
#include "LogWatch.h"
#include "MadeTable.h"

#include <QTest>

class LocationInfo_test : public QObject
{
    Q_OBJECT

private:
    /// A location over two small tables, filled from the login's parameters.
    struct Fixture {
        Fixture()
        {
            organizations.add({{"KeyLink", "ORG"}, {"OrgTypeKey", "TYPE"}});
            organizations.add({{"KeyLink", "ORG_PLAIN"}});
            workers.add(
                {{"KeyLink", "W_GONE"}, {"UserKey", "USER"}, {"DepartmentKey", "DEP"}, {"deleted_", true}});
            workers.add({{"KeyLink", "W_OTHER_USER"}, {"UserKey", "USER_2"}, {"DepartmentKey", "DEP"}});
            workers.add({{"KeyLink", "W_NO_DEP"}, {"UserKey", "USER"}});
            workers.add(
                {{"KeyLink", "W_LIVE"}, {"UserKey", "USER"}, {"DepartmentKey", "DEP"}, {"deleted_", false}});
            workers.add({{"KeyLink", "W_SECOND"}, {"UserKey", "USER"}, {"DepartmentKey", "DEP"}});
            workers.add({{"KeyLink", "W_ELSEWHERE"}, {"UserKey", "USER"}, {"DepartmentKey", "DEP_2"}});
            location.setWorkersTable(&workers);
            location.setOrganizationsTable(&organizations);
        }
        void init(const char* user, const char* department, const char* organization)
        {
            CStringParams params;
            params.setValue(QStringLiteral("KEYLINK"), QLatin1String(user));
            params.setValue(QStringLiteral("DEPARTMENTKEY"), QLatin1String(department));
            params.setValue(QStringLiteral("ORGANIZATIONKEY"), QLatin1String(organization));
            location.init(params);
        }

        MadeTable workers{"Workers", MadeWorkerFields, ""};
        MadeTable organizations{"Organizations", MadeOrganizationFields, "KeyLink"};
        LocationInfo location;
    };

private slots:
    void isEmptyAtFirst()
    {
        const LocationInfo location;
        QVERIFY(location.workerKey().isEmpty());
        QVERIFY(location.departmentKey().isEmpty());
        QVERIFY(location.hasError());
        QVERIFY(!location.table(QStringLiteral("Workers")));
    }

    void findsTablesByTheirNames()
    {
        Fixture f;
        MadeTable departments("Departments", MadeOrganizationFields);
        MadeTable types("OrgTypes", MadeOrganizationFields);
        f.location.setDepartmentsTable(&departments);
        f.location.setOrgTypesTable(&types);
        QCOMPARE(f.location.table(QStringLiteral("Workers")), &f.workers);
        QCOMPARE(f.location.table(QStringLiteral("Departments")), &departments);
        QCOMPARE(f.location.table(QStringLiteral("Organizations")), &f.organizations);
        QCOMPARE(f.location.table(QStringLiteral("OrgTypes")), &types);
        QVERIFY(!f.location.table(QStringLiteral("Shifts")));
    }

    void takesTheFirstLiveWorkerOfLoginAndDepartment()
    {
        Fixture f;
        f.init("USER", "DEP", "ORG");
        QCOMPARE(f.location.workerKey(), QStringLiteral("W_LIVE"));
        QCOMPARE(f.location.departmentKey(), QStringLiteral("DEP"));
        QCOMPARE(f.location.organizationKey(), QStringLiteral("ORG"));
        QCOMPARE(f.location.orgTypeKey(), QStringLiteral("TYPE"));
        QVERIFY(!f.location.hasError());
        QCOMPARE(f.location.errorString(), QString());
    }

    void isAnotherWorkerInAnotherDepartment()
    {
        Fixture f;
        f.init("USER", "DEP_2", "ORG");
        QCOMPARE(f.location.workerKey(), QStringLiteral("W_ELSEWHERE"));
    }

    void passesOverDeletedWorkers()
    {
        Fixture f;
        MadeTable workers("Workers", MadeWorkerFields);
        workers.add(
            {{"KeyLink", "W_GONE"}, {"UserKey", "USER"}, {"DepartmentKey", "DEP"}, {"deleted_", true}});
        f.location.setWorkersTable(&workers);
        f.init("USER", "DEP", "ORG");
        QCOMPARE(f.location.workerKey(), QString());
        QVERIFY(f.location.hasError());
        QCOMPARE(f.location.errorString(), QStringLiteral("Сотрудник не определен!"));
    }

    void tellsTheFirstThingThatIsMissing_data()
    {
        QTest::addColumn<QByteArray>("user");
        QTest::addColumn<QByteArray>("department");
        QTest::addColumn<QByteArray>("organization");
        QTest::addColumn<QString>("text");
        QTest::newRow("user") << QByteArray() << QByteArray() << QByteArray()
                              << QStringLiteral("Пользователь не определен!");
        QTest::newRow("worker") << QByteArray("USER") << QByteArray() << QByteArray()
                                << QStringLiteral("Сотрудник не определен!");
        QTest::newRow("organization") << QByteArray("USER") << QByteArray("DEP") << QByteArray()
                                      << QStringLiteral("Организация не определена!");
    }
    void tellsTheFirstThingThatIsMissing()
    {
        QFETCH(QByteArray, user);
        QFETCH(QByteArray, department);
        QFETCH(QByteArray, organization);
        Fixture f;
        f.init(user, department, organization);
        QVERIFY(f.location.hasError());
        QTEST(f.location.errorString(), "text");
    }

    void missesTheDepartmentWhenOnlyTheWorkerIsSet()
    {
        Fixture f;
        f.init("USER", "", "ORG");
        f.location.setWorkerKey(QStringLiteral("W_LIVE"));
        QCOMPARE(f.location.errorString(), QStringLiteral("Подразделение не определено!"));
        f.location.setDepartmentKey(QStringLiteral("DEP"));
        QVERIFY(!f.location.hasError());
        f.location.setOrganizationKey(QString());
        QCOMPARE(f.location.errorString(), QStringLiteral("Организация не определена!"));
    }

    void needsNoTypeOfOrganization()
    {
        Fixture f;
        f.init("USER", "DEP", "ORG_PLAIN");
        QCOMPARE(f.location.orgTypeKey(), QString());
        QVERIFY(!f.location.hasError());
        f.init("USER", "DEP", "ORG_UNKNOWN");
        QCOMPARE(f.location.orgTypeKey(), QString());
        QVERIFY(!f.location.hasError());
    }

    void printsItsKeys()
    {
        Fixture f;
        f.init("USER", "DEP", "ORG");
        LogWatch log;
        f.location.printInfo();
        const QString line = QStringLiteral("---------------------------");
        QCOMPARE(
            log.takeDebug(),
            QStringList({line, QStringLiteral("Пользователь : USER"), QStringLiteral("Сотрудник    : W_LIVE"),
                         QStringLiteral("Подразделение: DEP"), QStringLiteral("Организация  : ORG"), line}));
    }
};

QTEST_GUILESS_MAIN(LocationInfo_test)
#include "LocationInfo_test.moc"
