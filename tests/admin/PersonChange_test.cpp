#include "EvidenceBench.h"

/// A person leaves, and two rows of one person become one, on both engines.
class PersonChange_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void whoLeftCannotSignIn();
    void whoLeftKeepsHisRecords();
    void whoIsOnDutyDoesNotLeave();
    void whoReturnsHasTheRowsThatHeHad();
    void onlyWhoLeftReturns();
    void aMergeIsShownFirst();
    void mergedRowsAreOnePerson();
    void aMergeChangesNothingSealed();
    void nobodyVisesWhatHisOtherRowWrote();
    void impossibleMergesAreRefused_data();
    void impossibleMergesAreRefused();
    void unreadCommentsForbidAMerge();
    void equalNamesAreToldApartByTheirKeys();

private:
    Command::ExitCode user(const char* verb, const char* login)
    {
        return m_admin->call("user", {QLatin1String(verb), QLatin1String(login)});
    }
    Command::ExitCode merge(const char* keep, const char* lose, bool isWritten = true)
    {
        QStringList arguments{QString::fromUtf8(keep), QString::fromUtf8(lose)};
        if (isWritten)
            arguments << QStringLiteral("--write");
        return m_admin->call("merge", arguments);
    }
    void insert(const char* table, const char* key, const TestStore::Fields& fields) const
    {
        QVERIFY(TestStore::write(m_store->openLoader().get(), table, ROW_INSERT, key, fields));
    }
    /// A second row of Сидорова with a login of its own, a role and an approved record.
    void addTwin() const
    {
        insert("Workers", "WORKER_TWIN",
               {{"UserKey", "USER_VIEWER"},
                {"DepartmentKey", "DEP_CDS"},
                {"lastName", "Сидорова"},
                {"firstName", "Анна"},
                {"patronymicName", "Сергеевна"},
                {"safetyGroup", 5},
                {"deleted_", false}});
        insert("WorkerRoles", "WROLE_TWIN", {{"RoleKey", "ROLE_CDS_SENIOR"}, {"WorkerKey", "WORKER_TWIN"}});
        insert("LogbookRecords", "REC_TWIN",
               {{"ShiftKey", "SHIFT_CDS_OPEN"},
                {"WorkerKey", "WORKER_TWIN"},
                {"recordTime", TestStore::now()},
                {"eventTime", TestStore::now()},
                {"html", "Запись двойника"},
                {"status", 0},
                {"direction", 0}});
    }
    QString of(const char* table, const char* key, const char* field) const
    {
        return m_store
            ->value(QStringLiteral("SELECT %1 FROM %2 WHERE KeyLink = '%3'")
                        .arg(QLatin1String(field), QLatin1String(table), QLatin1String(key)))
            .toString();
    }
    bool isRemoved(const char* table, const char* key) const
    {
        return of(table, key, "coalesce(deleted_, 0)") == QLatin1String("1");
    }
    bool isListed(const char* login)
    {
        m_admin->call("user", {QStringLiteral("list")});
        return m_admin->out.contains(QLatin1String(login) + QLatin1Char('\t'));
    }
};

void PersonChange_test::whoLeftCannotSignIn()
{
    QVERIFY(isListed("sidorova"));
    QCOMPARE(user("retire", "sidorova"), Command::Success);
    QVERIFY(!isListed("sidorova"));
    StoreError error;
    StoreLogin signedIn;
    const auto store = Store::open(m_admin->url, {}, &error);
    QVERIFY(store && !store->signIn(QStringLiteral("sidorova"), &signedIn, &error));
    QCOMPARE(user("retire", "sidorova"), Command::Failed);
    QVERIFY(m_admin->err.contains(QStringLiteral("sidorova")));
}

void PersonChange_test::whoLeftKeepsHisRecords()
{
    QCOMPARE(user("retire", "sidorova"), Command::Success);
    QVERIFY(isRemoved("Workers", "WORKER_SIDOROVA"));
    QCOMPARE(of("Workers", "WORKER_SIDOROVA", "lastName"), QStringLiteral("Сидорова"));
    QCOMPARE(of("Workers", "WORKER_SIDOROVA", "UserKey"), QStringLiteral("USER_SIDOROVA"));
    QCOMPARE(of("LogbookRecords", "REC_TRIP", "VisaWorkerKey"), QStringLiteral("WORKER_SIDOROVA"));
    QCOMPARE(m_admin->call("history", {QStringLiteral("WORKER_SIDOROVA")}), Command::Success);
    QVERIFY2(m_admin->out.contains(QStringLiteral("deleted_")), qPrintable(m_admin->out));
    QCOMPARE(m_admin->call("check"), Command::Success);
}

void PersonChange_test::whoIsOnDutyDoesNotLeave()
{
    for (const char* login : {"ivanov", "petrov", "smirnov"}) {
        QCOMPARE(user("retire", login), Command::Failed);
        QVERIFY(m_admin->err.contains(QStringLiteral("в открытой смене")));
        QVERIFY(isListed(login));
    }
}

void PersonChange_test::whoReturnsHasTheRowsThatHeHad()
{
    insert("Workers", "WORKER_FORMER",
           {{"UserKey", "USER_SIDOROVA"},
            {"DepartmentKey", "DEP_ZAR"},
            {"lastName", "Сидорова"},
            {"deleted_", true}});
    QCOMPARE(user("retire", "sidorova"), Command::Success);
    QCOMPARE(user("reinstate", "sidorova"), Command::Success);
    QVERIFY(isListed("sidorova"));
    QVERIFY(!isRemoved("Workers", "WORKER_SIDOROVA"));
    QVERIFY(isRemoved("Workers", "WORKER_FORMER"));
    m_store->open(QStringLiteral("sidorova")); // ends the program if she cannot
}

void PersonChange_test::onlyWhoLeftReturns()
{
    QCOMPARE(user("reinstate", "sidorova"), Command::Failed);
    QCOMPARE(user("reinstate", "nobody"), Command::Failed);
    QCOMPARE(user("retire", "nobody"), Command::Failed);
}

void PersonChange_test::aMergeIsShownFirst()
{
    addTwin();
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN", false), Command::Success);
    QVERIFY2(m_admin->out.contains(QStringLiteral("Закрывается вход: viewer")), qPrintable(m_admin->out));
    QVERIFY(m_admin->out.contains(QStringLiteral("Записи второй строки (1)")));
    QVERIFY(m_admin->out.contains(QStringLiteral("Ничего не записано")));
    QVERIFY(!isRemoved("Workers", "WORKER_TWIN"));
    QVERIFY(isListed("viewer"));
}

void PersonChange_test::mergedRowsAreOnePerson()
{
    addTwin();
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN"), Command::Success);
    QVERIFY(isRemoved("Workers", "WORKER_TWIN"));
    QVERIFY(!isRemoved("Workers", "WORKER_SIDOROVA"));
    QCOMPARE(of("Workers", "WORKER_TWIN", "UserKey"), QStringLiteral("USER_SIDOROVA"));
    QCOMPARE(of("WorkerRoles", "WROLE_TWIN", "WorkerKey"), QStringLiteral("WORKER_SIDOROVA"));
    QVERIFY(!isListed("viewer"));
    // Nobody countersigns his own record, also under another row.
    StoreError error;
    QVERIFY(!TestStore::write(m_store->open(QStringLiteral("sidorova")).get(), "LogbookRecords", ROW_UPDATE,
                              "REC_TWIN", {{"VisaWorkerKey", "WORKER_SIDOROVA"}}, &error));
    QCOMPARE(error.text, QStringLiteral("Автор не визирует свою запись."));
}

void PersonChange_test::aMergeChangesNothingSealed()
{
    addTwin();
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const auto rows = m_store->rows(QStringLiteral("SELECT * FROM LogbookRecords ORDER BY KeyLink"));
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN"), Command::Success);
    QCOMPARE(m_store->rows(QStringLiteral("SELECT * FROM LogbookRecords ORDER BY KeyLink")), rows);
    QCOMPARE(m_admin->call("check", {QStringLiteral("--heads"), book()}), Command::Success);
    QCOMPARE(seal(), 0);
}

void PersonChange_test::nobodyVisesWhatHisOtherRowWrote()
{
    addTwin();
    write("sidorova", "LogbookRecords", "REC_TWIN", {{"VisaWorkerKey", "WORKER_SIDOROVA"}});
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN"), Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral("визировала записи другой (1)")), qPrintable(m_admin->err));
    QVERIFY(!isRemoved("Workers", "WORKER_TWIN"));
}

void PersonChange_test::impossibleMergesAreRefused_data()
{
    QTest::addColumn<QByteArray>("keep");
    QTest::addColumn<QByteArray>("lose");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* keep, const char* lose, const char* reason) {
        QTest::newRow(reason) << QByteArray(keep) << QByteArray(lose) << QString::fromUtf8(reason);
    };
    row("WORKER_SIDOROVA", "WORKER_SIDOROVA", "одна и та же");
    row("WORKER_KUZNETSOV", "WORKER_SIDOROVA", "помечена как удалённая");
    row("WORKER_SIDOROVA", "WORKER_SMIRNOV_ODS", "разных подразделений");
    row("WORKER_SIDOROVA", "WORKER_PETROV", "в открытой смене");
    row("WORKER_PETROV", "WORKER_SIDOROVA", "визировала записи другой");
    row("WORKER_NOBODY", "WORKER_SIDOROVA", "имени для входа");
    row("Никто", "WORKER_SIDOROVA", "«Никто» нет");
}

void PersonChange_test::impossibleMergesAreRefused()
{
    QFETCH(QByteArray, keep);
    QFETCH(QByteArray, lose);
    QFETCH(QString, reason);
    insert("Workers", "WORKER_NOBODY",
           {{"DepartmentKey", "DEP_CDS"}, {"lastName", "Сидорова"}, {"deleted_", false}});
    QCOMPARE(merge(keep.constData(), lose.constData()), Command::Failed);
    QVERIFY2(m_admin->err.contains(reason), qPrintable(m_admin->err));
    QVERIFY(!isRemoved("Workers", "WORKER_SIDOROVA"));
    QVERIFY(!isRemoved("Workers", "WORKER_PETROV"));
}

void PersonChange_test::unreadCommentsForbidAMerge()
{
    addTwin();
    insert("LogbookComments", "COM_TWIN",
           {{"RecordKey", "REC_TWIN"},
            {"WorkerKey", "WORKER_PETROV"},
            {"commentTime", TestStore::now()},
            {"text_", "?"}});
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN"), Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral("непрочитанные комментарии (1)")),
             qPrintable(m_admin->err));
    write(nullptr, "LogbookComments", "COM_TWIN", {{"readedTime", TestStore::now()}});
    QCOMPARE(merge("WORKER_SIDOROVA", "WORKER_TWIN"), Command::Success);
}

void PersonChange_test::equalNamesAreToldApartByTheirKeys()
{
    addTwin();
    for (const char* key : {"WORKER_SIDOROVA", "WORKER_TWIN"})
        write(nullptr, "Workers", key,
              {{"lastName", "Двойная"}, {"firstName", "Анна"}, {"patronymicName", "Сергеевна"}});
    QCOMPARE(merge("Двойная Анна Сергеевна", "WORKER_TWIN"), Command::Failed);
    for (const char* shown : {"WORKER_SIDOROVA", "WORKER_TWIN", "sidorova", "viewer"})
        QVERIFY2(m_admin->err.contains(QLatin1String(shown)), qPrintable(m_admin->err));
}

QTEST_GUILESS_MAIN(PersonChange_test)
#include "PersonChange_test.moc"
