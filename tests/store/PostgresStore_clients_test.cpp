#include "EvidenceLog.h"
#include "GenGuid32.h"
#include "LogHistory.h"
#include "MDRValues.h"
#include "PgConnection.h"
#include "PostgresAdmin.h"
#include "PostgresSealer.h"
#include "PrivateCluster.h"
#include "SourceFile.h"
#include "TableCatalog.h"
#include "TestStore.h"

#include <QFile>
#include <QSet>
#include <QTest>

/// What a client can do to others: one that accesses the server without our program, with the rights of a
/// person, and two that write at the same time.
class PostgresStore_clients_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;

    /// A connection as a person.
    std::unique_ptr<PgConnection> person(const char* login = "petrov") const
    {
        auto link = std::make_unique<PgConnection>(
            m_files->url().replace(QLatin1String("postgres@"), QLatin1String(login) + QLatin1Char('@')),
            15000);
        StoreError error;
        if (!link->connect(link->connectMs(), &error))
            qFatal("%s %s", qPrintable(error.text), qPrintable(error.detail));
        return link;
    }
    /// The server's code for a refusal, empty for success.
    static QByteArray run(PgConnection& link, const QByteArray& sql)
    {
        StoreError error;
        return link.exec(sql, &error) ? QByteArray() : link.failureState();
    }
    /// Begins a transaction that writes without our program, as a person to whom the rules apply.
    static QByteArray begin(PgConnection& link, const QByteArray& sql, bool asLoader = false)
    {
        return run(link, "BEGIN; SELECT set_config('vrk.batch_key', '" + GenGuid32() +
                             "', true), set_config('vrk.loader', '" + (asLoader ? "on" : "off") +
                             "', true); " + sql);
    }
    /// Makes \a other commit when \a store must wait for it.
    static void commitWhenWaitedFor(Store* store, PgConnection* other, bool* isDone)
    {
        store->setProgress([=] {
            if (!*isDone) {
                *isDone = true;
                run(*other, "COMMIT");
            }
        });
    }

private slots:
    void init() { m_files = std::make_unique<TestStore>(); }

    /// With the rights of the person alone; reading by the administrator would prove nothing.
    void aPersonReadsTheHistoryOfTheJournal()
    {
        StoreError error;
        const auto store = Store::open(
            m_files->url().replace(QLatin1String("postgres@"), QLatin1String("petrov@")), {}, &error);
        QVERIFY2(store, qPrintable(error.text + error.detail));
        const auto log = store->evidence(Store::Access::Read, &error);
        QVERIFY2(log, qPrintable(error.text + error.detail));
        QVector<RowChange> changes;
        QVERIFY2(LogHistory(log.get()).ofRecord("REC_TRIP", &changes), qPrintable(error.text + error.detail));
        QVERIFY2(LogHistory(log.get()).ofWorkshift("SHIFT_CDS_OPEN", &changes),
                 qPrintable(error.text + error.detail));
        QVERIFY(changes.size() > 10);
        // The history shows rows that the same person reads in the journal's tables anyway, and no contents of files.
        for (const RowChange& change : qAsConst(changes)) {
            QCOMPARE(run(*person(), "SELECT FROM " + change.table), QByteArray());
            QVERIFY(!change.is("fileData").isValid() ||
                    change.is("fileData").toMap().contains(QStringLiteral("sha256")));
        }
    }

    // Past our program

    void functionsOfTheStoreAreNobodys()
    {
        QCOMPARE(m_files
                     ->value(QStringLiteral(
                         "SELECT string_agg(oid::regprocedure::text, ', ') FROM pg_proc WHERE pronamespace = "
                         "'public'::regnamespace AND has_function_privilege('petrov', oid, 'EXECUTE')"))
                     .toString(),
                 QStringLiteral(
                     "vrk_write_file(text,text,bytea)")); // which requires the right of an administrator
        QVERIFY(m_files
                    ->value(QStringLiteral(
                        "SELECT count(*) FROM pg_proc WHERE pronamespace = 'public'::regnamespace"))
                    .toInt() > 50);
    }

    void eventsAreNotForgedByATableOfOnesOwn()
    {
        // As in a database that was restored from a copy.
        QCOMPARE(m_files->exec(
                     QStringLiteral("DO $$ BEGIN EXECUTE format('GRANT TEMPORARY ON DATABASE %I TO PUBLIC', "
                                    "current_database()); END $$")),
                 QString());
        const auto link = person();
        QCOMPARE(run(*link, "CREATE TEMP TABLE forged (LIKE LogbookRecords)"), QByteArray());
        for (const char* function : {"Log_LogbookRecords", "vrk_close", "vrk_search_record"})
            QCOMPARE(
                run(*link, QByteArray("CREATE TRIGGER forged AFTER INSERT ON forged FOR EACH ROW EXECUTE "
                                      "FUNCTION ") +
                               function + "()"),
                QByteArray("42501"));
    }

    void tablesOfOnesOwnShadowNothing()
    {
        QCOMPARE(m_files->exec(
                     QStringLiteral("DO $$ BEGIN EXECUTE format('GRANT TEMPORARY ON DATABASE %I TO PUBLIC', "
                                    "current_database()); END $$")),
                 QString());
        const auto link = person("sidorova");
        // A person who is not in the shift creates a shift, a login, and a place for the log.
        for (const char* table : {"LogbookWorkshifts", "LogbookWorkersWorkshift", "Users", "Workers",
                                  "ChangeHead", "ChangePending", "StoreProperties"})
            QCOMPARE(run(*link, QByteArray("CREATE TEMP TABLE ") + table + " AS SELECT * FROM public." +
                                    (qstrcmp(table, "ChangePending") == 0 ? "ChangeLog" : table)),
                     QByteArray());
        QCOMPARE(run(*link, "UPDATE pg_temp.LogbookWorkshifts SET OpenWorkerKey = 'WORKER_SIDOROVA'"),
                 QByteArray());
        QCOMPARE(begin(*link, "SET LOCAL search_path = pg_temp, public; INSERT INTO public.LogbookRecords "
                              "(KeyLink, ShiftKey, WorkerKey, status) VALUES ('FORGED', 'SHIFT_CDS_OPEN', "
                              "'WORKER_SIDOROVA', 1)"),
                 QByteArray("VR001"));
        run(*link, "ROLLBACK");
        // Allowed writes are logged, too.
        QCOMPARE(begin(*link, "SET LOCAL search_path = pg_temp, public; UPDATE public.LogbookComments SET "
                              "readedTime = 5 WHERE KeyLink = 'COM_UNREAD'; COMMIT"),
                 QByteArray());
        QCOMPARE(m_files
                     ->value(QStringLiteral(
                         "SELECT rowKey || login FROM ChangeLog JOIN ChangeTransactions USING (number) ORDER "
                         "BY entry DESC LIMIT 1"))
                     .toString(),
                 QStringLiteral("COM_UNREADsidorova"));
    }

    void tableOfOnesOwnMakesNobodyAnAuthor()
    {
        QCOMPARE(m_files->exec(
                     QStringLiteral("DO $$ BEGIN EXECUTE format('GRANT TEMPORARY ON DATABASE %I TO PUBLIC', "
                                    "current_database()); END $$")),
                 QString());
        const auto link = person("ivanov");
        QCOMPARE(run(*link,
                     "CREATE TEMP TABLE LogbookRecords AS SELECT 'ORIGIN' AS KeyLink, 'WORKER_PETROV' AS "
                     "WorkerKey"),
                 QByteArray());
        QCOMPARE(begin(*link, "INSERT INTO public.LogbookRecords (KeyLink, ShiftKey, WorkerKey, "
                              "OriginRecordKey, status) VALUES ('FORGED', 'SHIFT_CDS_OPEN', 'WORKER_PETROV', "
                              "'ORIGIN', 0)"),
                 QByteArray("VR001"));
    }

    void directWritesNeedABatchKey()
    {
        const auto link = person();
        const QByteArray write = "UPDATE LogbookComments SET readedTime = 5 WHERE KeyLink = 'COM_UNREAD'";
        QCOMPARE(run(*link, write), QByteArray("VR001"));
        // After its transaction the name is empty.
        QCOMPARE(begin(*link, "COMMIT"), QByteArray());
        QCOMPARE(run(*link, write), QByteArray("VR001"));
        QCOMPARE(begin(*link, write + "; COMMIT"), QByteArray());
    }

    void aBatchKeyIsWrittenOnce()
    {
        const auto link = person();
        const QByteArray write =
            "BEGIN; SELECT set_config('vrk.batch_key', 'ONCE', true), set_config('vrk.loader', "
            "'off', true); UPDATE LogbookComments SET readedTime = 5 WHERE KeyLink = "
            "'COM_UNREAD'; COMMIT";
        QCOMPARE(run(*link, write), QByteArray());
        QCOMPARE(run(*link, write), QByteArray("23505")); // not unique
        QCOMPARE(
            m_files->value(QStringLiteral("SELECT count(*) FROM ChangeTransactions WHERE batchKey = 'ONCE'"))
                .toInt(),
            1);
    }

    void clientSettingsDoNotChangeLoggedNumbers()
    {
        QCOMPARE(begin(*person(),
                       "SET LOCAL extra_float_digits = -10; UPDATE LogbookComments SET readedTime = "
                       "1763600000.1234567 WHERE KeyLink = 'COM_UNREAD'; COMMIT"),
                 QByteArray());
        const QString logged =
            m_files->value(QStringLiteral("SELECT newRow FROM ChangeLog ORDER BY entry DESC LIMIT 1"))
                .toString();
        QVERIFY2(logged.endsWith(QStringLiteral(",1763600000.1234567]")), qPrintable(logged));
    }

    void administratorIsBoundByTheRulesUnlessHeAsksNotToBe()
    {
        PgConnection link(m_files->url(), 15000);
        StoreError error;
        QVERIFY(link.connect(link.connectMs(), &error));
        const QByteArray write = "UPDATE LogbookRecords SET html = 'x' WHERE KeyLink = 'REC_ORDER'";
        QCOMPARE(begin(link, write), QByteArray("VR001"));
        run(link, "ROLLBACK");
        QCOMPARE(begin(link, write, true), QByteArray());
    }

    void clientsReadTheEvidenceAndCannotWriteIt_data()
    {
        QTest::addColumn<QByteArray>("sql");
        for (const char* sql :
             {"INSERT INTO LogHeads VALUES (1, 'x')", "UPDATE LogHeads SET note = 'x'",
              "DELETE FROM LogHeads", "INSERT INTO LogTiles VALUES (0, 0, 'x')",
              "UPDATE LogTiles SET hashes = 'x'", "DELETE FROM LogTiles", "TRUNCATE LogTiles, LogHeads",
              "INSERT INTO LogSignatures VALUES ('x', 'visa', 'sidorova', 'x', 0, 'x', 'x', 'x')",
              "INSERT INTO LogStamps VALUES (1, 'x')", "DELETE FROM LogSignatures",
              "UPDATE LogSignatures SET login = 'x'"})
            QTest::newRow(sql) << QByteArray(sql);
    }
    void clientsReadTheEvidenceAndCannotWriteIt()
    {
        QFETCH(QByteArray, sql);
        QCOMPARE(run(*person("sidorova"), sql), QByteArray("42501"));
        QCOMPARE(run(*person(), "SELECT 1 FROM LogHeads, LogTiles, LogSignatures"), QByteArray());
    }

    void sealerWritesTheEvidenceAndNothingElse_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::addColumn<QByteArray>("code");
        const auto add = [](const char* sql, const char* code) {
            QTest::newRow(sql) << QByteArray(sql) << QByteArray(code);
        };
        for (const char* sql : {"SELECT FROM ChangeLog, ChangeTransactions",
                                "INSERT INTO LogTiles VALUES (0, 0, 'x')", "UPDATE LogTiles SET hashes = 'x'",
                                "INSERT INTO LogHeads VALUES (1, 'x')", "UPDATE LogHeads SET note = 'x'"})
            add(sql, "");
        for (const char* sql :
             {"DELETE FROM LogHeads",
              "TRUNCATE LogTiles",
              "SELECT FROM LogbookRecords",
              "UPDATE LogbookRecords SET html = 'x'",
              "DELETE FROM LogbookRecords",
              "INSERT INTO UserRights VALUES ('X', 'USER_VIEWER', 'ADMINISTRATOR')",
              "UPDATE Users SET login = 'notary'",
              "UPDATE StoreProperties SET value = 'x'",
              "INSERT INTO StoreFiles VALUES ('a', 'b', 'c')",
              "UPDATE ChangeHead SET number = 0",
              "UPDATE ChangeTransactions SET login = 'x'",
              "DELETE FROM ChangeLog",
              "INSERT INTO ChangeLog (number, tableName, rowKey, event) VALUES (1, 'x', 'x', 601)",
              "INSERT INTO ChangePending (xid, isFirst, tableName, rowKey, event) VALUES ('1', true, 'x', "
              "'x', 601)",
              "ALTER TABLE LogbookRecords DISABLE TRIGGER ALL",
              "DROP TRIGGER Rule_Records_visa ON LogbookRecords",
              "SET ROLE vrk_owner",
              "SET session_replication_role = replica",
              "CREATE TABLE own (x text)",
              "GRANT vrk_client TO notary"})
            add(sql, "42501");
        // With a batch key, so that nothing but the file itself is refused.
        for (const char* file : {"'options', 'OperLogOptions', 'x'", "'evidence', 'keys', 'x'",
                                 "'evidence', 'keys', NULL", "'evidence', 'other', 'former and new'"})
            QTest::newRow(file) << QByteArray("SELECT set_config('vrk.batch_key', 'k', true), "
                                              "set_config('vrk.loader', 'on', true), vrk_write_file(") +
                                       file + ')'
                                << QByteArray("VR001");
        add("SELECT set_config('vrk.batch_key', 'k', true), vrk_write_file('evidence', 'keys', 'former and "
            "new')",
            "");
    }
    void sealerWritesTheEvidenceAndNothingElse()
    {
        QFETCH(QByteArray, sql);
        QFETCH(QByteArray, code);
        StoreError error;
        QVERIFY2(PostgresSealer::admit(m_files->url(), QStringLiteral("notary"), &error),
                 qPrintable(error.text));
        QVERIFY(StoreAdmin::putFile(m_files->url(), QStringLiteral("evidence"), QStringLiteral("keys"),
                                    "former", &error));
        QCOMPARE(run(*person("notary"), sql), code);
    }

    void clientsCannotLockTheStoresOwnTables_data()
    {
        QTest::addColumn<QByteArray>("sql");
        for (const char* sql :
             {"SELECT * FROM ChangeHead FOR UPDATE", "SELECT * FROM ChangeHead FOR KEY SHARE",
              "SELECT * FROM StoreProperties FOR SHARE", "LOCK TABLE ChangeHead IN ROW SHARE MODE",
              "LOCK TABLE ChangeLog", "LOCK TABLE StoreProperties IN SHARE MODE"})
            QTest::newRow(sql) << QByteArray(sql);
    }
    void clientsCannotLockTheStoresOwnTables()
    {
        QFETCH(QByteArray, sql);
        QCOMPARE(run(*person(), "BEGIN; " + sql), QByteArray("42501"));
    }

    void advisoryLocksFillNoTableOfTheServers()
    {
        const auto link = person();
        QCOMPARE(run(*link, "SELECT count(pg_advisory_lock(g)) FROM generate_series(1, 10000000) AS g"),
                 QByteArray("42501"));
        // The others continue in his presence: they sign in, write, and end runaways.
        StoreError error;
        QVERIFY2(TestStore::write(m_files->open(QStringLiteral("ivanov")).get(), "LogbookRecords", ROW_UPDATE,
                                  "REC_DRAFT_IVANOV", {{"html", "x"}}, &error),
                 qPrintable(error.text));
        QCOMPARE(PostgresAdmin::endRunaways(m_files->url(), 60, &error), 0);
    }

    void clientsCannotCallHarmfulFunctions()
    {
        const auto link = person();
        for (const char* sql :
             {"SELECT pg_try_advisory_lock_shared(1, 2)", "SELECT pg_advisory_xact_lock(1)",
              "SELECT pg_logical_emit_message(false, 'x', repeat('x', 1000))", "SELECT lo_create(0)",
              "SELECT lo_from_bytea(0, 'x')", "SELECT pg_notify('vrk_changes', '')",
              "SELECT pg_export_snapshot()", "SELECT pg_create_physical_replication_slot('x', true)",
              "DO $$ BEGIN LOOP PERFORM 1; EXIT; END LOOP; END $$"})
            QVERIFY2(run(*link, sql) == "42501", sql);
    }

    void everyFunctionOfAllHasBeenLookedAt()
    {
        QFile file(sourceFile("tests/store/functions-of-all.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QSet<QString> reviewed;
        while (!file.atEnd()) {
            const QString line = QString::fromLatin1(file.readLine()).section(QLatin1Char('#'), 0, 0);
            for (const QString& name : line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
                reviewed.insert(name);
        }
        QSet<QString> open;
        for (const QVariantList& row : m_files->rows(
                 QStringLiteral("SELECT DISTINCT proname::text FROM pg_proc WHERE has_function_privilege("
                                "'petrov', oid, 'EXECUTE')")))
            open.insert(row.value(0).toString());
        QVERIFY(open.size() > 1000);
        QCOMPARE(QStringList((open - reviewed).values()).join(QLatin1Char(' ')), QString());
        QCOMPARE(QStringList((reviewed - open).values()).join(QLatin1Char(' ')), QString());
    }

    void clientSettingsDoNotWeakenDurability_data()
    {
        QTest::addColumn<QByteArray>("setting");
        QTest::addColumn<QString>("inForce");
        for (const char* setting : {"off", "local", "remote_write", "on"})
            QTest::newRow(setting) << QByteArray(setting) << QStringLiteral("on");
        QTest::newRow("more than is asked for")
            << QByteArray("remote_apply") << QStringLiteral("remote_apply");
    }
    void clientSettingsDoNotWeakenDurability()
    {
        QFETCH(QByteArray, setting);
        QFETCH(QString, inForce);
        // A witness, called after the transaction has ended.
        QCOMPARE(
            m_files->exec(QStringLiteral(
                "CREATE TABLE seen (setting text); CREATE FUNCTION witness() RETURNS trigger LANGUAGE "
                "plpgsql SECURITY DEFINER AS $$ BEGIN INSERT INTO public.seen VALUES "
                "(current_setting('synchronous_commit')); RETURN NULL; END $$; CREATE CONSTRAINT TRIGGER "
                "witness AFTER INSERT ON ChangeTransactions DEFERRABLE INITIALLY DEFERRED FOR EACH ROW "
                "EXECUTE FUNCTION witness()")),
            QString());
        QCOMPARE(begin(*person(), "SET LOCAL synchronous_commit = " + setting +
                                      "; UPDATE LogbookComments SET readedTime = 5 WHERE KeyLink = "
                                      "'COM_UNREAD'; COMMIT"),
                 QByteArray());
        QCOMPARE(m_files->value(QStringLiteral("SELECT setting FROM seen")).toString(), inForce);
    }

    void personHasALimitOfConnections()
    {
        QCOMPARE(m_files->value(QStringLiteral("SELECT rolconnlimit FROM pg_roles WHERE rolname = 'petrov'"))
                     .toInt(),
                 20);
    }

    void watchdogEndsWhoHoldsUpOthers()
    {
        const auto holder = person();
        // It keeps sending requests, so none of them is ever old.
        QCOMPARE(run(*holder, "BEGIN; LOCK TABLE LogbookRecords; SELECT 1"), QByteArray());
        const auto waiter = m_files->open(QStringLiteral("ivanov"));
        StoreError error;
        int ended = 0;
        waiter->setProgress([&] {
            if (ended > 0 || !run(*holder, "SELECT 1").isEmpty())
                return;
            StoreError failure;
            ended = PostgresAdmin::endRunaways(m_files->url(), 1, &failure);
        });
        QVERIFY2(TestStore::write(waiter.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"html", "x"}}, &error),
                 qPrintable(error.text));
        QCOMPARE(ended, 1);
    }

    void watchdogLeavesWhoHoldsUpNobody()
    {
        const auto holder = person();
        QCOMPARE(run(*holder, "BEGIN; SELECT 1 FROM LogbookRecords"), QByteArray());
        StoreError error;
        while (holder->run("SELECT clock_timestamp() - now() > interval '1200 milliseconds'", &error)
                   .integer(0, 0) == 0) {
        }
        QCOMPARE(PostgresAdmin::endRunaways(m_files->url(), 1, &error), 0);
    }

    void watchdogEndsIdleLockHolders()
    {
        // As in a restored database, or another one of the server.
        QCOMPARE(
            m_files->exec(QStringLiteral("GRANT EXECUTE ON FUNCTION pg_advisory_lock(bigint) TO petrov")),
            QString());
        const auto standing = person();
        const auto holding = person();
        const auto idle = person();
        QCOMPARE(run(*standing, "BEGIN"), QByteArray());
        QCOMPARE(run(*holding, "SELECT pg_advisory_lock(1)"), QByteArray());
        QCOMPARE(run(*idle, "SELECT 1"), QByteArray());
        StoreError error;
        QCOMPARE(PostgresAdmin::endRunaways(m_files->url(), 60, &error), 0);
        int ended = 0;
        const auto look = [&] { return ended += PostgresAdmin::endRunaways(m_files->url(), 1, &error); };
        QTRY_VERIFY(look() >= 2);
        QCOMPARE(ended, 2);
        QVERIFY(!standing->exec("SELECT 1", &error));
        QVERIFY(!holding->exec("SELECT 1", &error));
        QVERIFY(idle->exec("SELECT 1", &error));
    }

    void watchdogEndsWhoFillsTheTableOfLocks()
    {
        const auto holder = person();
        QByteArray sql;
        for (int i = 0; i < 520; ++i)
            sql += "SAVEPOINT s; UPDATE LogbookComments SET readedTime = 5 WHERE KeyLink = 'COM_UNREAD';";
        QCOMPARE(begin(*holder, sql), QByteArray());
        StoreError error;
        QCOMPARE(PostgresAdmin::endRunaways(m_files->url(), 60, &error), 1);
    }

    void doctorNamesFunctionsThatAreOpenToAll()
    {
        const auto cureOf = [this](const char* fault) {
            for (const StoreAdmin::Symptom& symptom : StoreAdmin::examine(m_files->url()))
                if (symptom.fault.contains(QString::fromUtf8(fault)))
                    return symptom.cure;
            return QString();
        };
        const char* const functions = "функции, которыми он может остановить работу";
        QCOMPARE(cureOf(functions), QString());
        for (const char* grant : {"GRANT EXECUTE ON FUNCTION pg_advisory_lock(bigint) TO PUBLIC",
                                  "GRANT USAGE ON LANGUAGE plpgsql TO PUBLIC"}) {
            QCOMPARE(m_files->exec(QLatin1String(grant)), QString());
            const QString cure = cureOf(functions);
            QVERIFY(cure.contains(QStringLiteral("DO $$")));
            QCOMPARE(m_files->exec(cure.mid(cure.indexOf(QLatin1String("DO $$")))), QString());
            QCOMPARE(cureOf(functions), QString());
        }
        const char* const others = "пускают и другие базы сервера";
        const QString cure = cureOf(others);
        QVERIFY2(cure.contains(QStringLiteral("postgres")), qPrintable(cure));
        QCOMPARE(m_files->exec(cure.mid(cure.indexOf(QLatin1String("REVOKE")))), QString());
        QCOMPARE(cureOf(others), QString());
    }

    void doctorNamesADatabaseThatIsOpenToAll()
    {
        const auto isNamed = [this] {
            for (const StoreAdmin::Symptom& symptom : StoreAdmin::examine(m_files->url()))
                if (symptom.fault.contains(QStringLiteral("создавать в базе свои таблицы")))
                    return symptom.cure;
            return QString();
        };
        const QString cure = isNamed(); // a copied database has the access of a new one
        QVERIFY(cure.contains(QStringLiteral("REVOKE ALL ON DATABASE")));
        QCOMPARE(m_files->exec(cure.mid(cure.indexOf(QLatin1String("REVOKE")))), QString());
        QCOMPARE(isNamed(), QString());
        QCOMPARE(run(*person(), "CREATE TEMP TABLE t (x text)"), QByteArray("42501"));
        QCOMPARE(m_files->exec(QStringLiteral("GRANT CREATE ON SCHEMA public TO PUBLIC")), QString());
        QCOMPARE(isNamed(), cure);
    }

    // At the same moment

    void recordComesTooLateForAShiftThatIsBeingClosed_data()
    {
        QTest::addColumn<int>("flag");
        QTest::addColumn<QByteArray>("key");
        QTest::newRow("a new one") << int(ROW_INSERT) << QByteArray("R");
        QTest::newRow("a change") << int(ROW_UPDATE) << QByteArray("REC_DRAFT_IVANOV");
        QTest::newRow("a deletion") << int(ROW_DELETE) << QByteArray("REC_DRAFT_IVANOV");
    }
    void recordComesTooLateForAShiftThatIsBeingClosed()
    {
        QFETCH(int, flag);
        QFETCH(QByteArray, key);
        const auto closer = person();
        QCOMPARE(begin(*closer, "UPDATE LogbookWorkshifts SET CloseWorkerKey = 'WORKER_PETROV' WHERE KeyLink "
                                "= 'SHIFT_CDS_OPEN'"),
                 QByteArray());
        const auto store = m_files->open(QStringLiteral("ivanov"));
        bool isClosed = false;
        commitWhenWaitedFor(store.get(), closer.get(), &isClosed);
        TestStore::Fields fields{{"html", "x"}};
        if (flag == ROW_INSERT)
            fields = {{"ShiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_IVANOV"}, {"status", 1}};
        StoreError error;
        QVERIFY(!TestStore::write(store.get(), "LogbookRecords", static_cast<MDRFlag>(flag), key, fields,
                                  &error));
        QVERIFY(isClosed);
        QCOMPARE(error.code, StoreError::Refused);
        QVERIFY2(error.text.contains(QStringLiteral("работники открытой смены")), qPrintable(error.text));
    }

    void crewComesTooLateForAShiftThatIsBeingClosed()
    {
        const auto closer = person();
        QCOMPARE(begin(*closer, "UPDATE LogbookWorkshifts SET CloseWorkerKey = 'WORKER_PETROV' WHERE KeyLink "
                                "= 'SHIFT_CDS_OPEN'"),
                 QByteArray());
        const auto store = m_files->open(QStringLiteral("ivanov"));
        bool isClosed = false;
        commitWhenWaitedFor(store.get(), closer.get(), &isClosed);
        StoreError error;
        QVERIFY(!TestStore::write(
            store.get(), "LogbookWorkersWorkshift", ROW_INSERT, "C",
            {{"WorkshiftKey", "SHIFT_CDS_OPEN"}, {"WorkerKey", "WORKER_SIDOROVA"}, {"opening", 1}}, &error));
        QVERIFY(isClosed);
        QCOMPARE(error.text, QStringLiteral("Состав открытой смены меняет только работник этой смены."));
    }

    void signingARecordWaitsForNobody()
    {
        const auto closer = person();
        QCOMPARE(begin(*closer, "UPDATE LogbookWorkshifts SET CloseWorkerKey = 'WORKER_PETROV' WHERE KeyLink "
                                "= 'SHIFT_CDS_OPEN'"),
                 QByteArray());
        const auto store = m_files->open(QStringLiteral("sidorova"), [] {
            Store::Options options;
            options.deadlineMs = 3000;
            return options;
        }());
        StoreError error;
        QVERIFY2(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_OPENING",
                                  {{"VisaWorkerKey", "WORKER_SIDOROVA"}}, &error),
                 qPrintable(error.text));
    }

    void secondOfTwoOpeningsSeesTheFirst()
    {
        const QByteArray start = QByteArray::number(TestStore::now() + 18 * 3600, 'f', 0);
        const auto first = person();
        QCOMPARE(begin(*first, "INSERT INTO LogbookWorkshifts (KeyLink, DepartmentKey, OpenWorkerKey, "
                               "startTime, endTime) VALUES ('FIRST', 'DEP_CDS', 'WORKER_PETROV', " +
                                   start + ", " + start + " + 3600)"),
                 QByteArray());
        const auto store = m_files->open(QStringLiteral("ivanov"));
        bool isOpened = false;
        commitWhenWaitedFor(store.get(), first.get(), &isOpened);
        StoreError error;
        QVERIFY(!TestStore::write(store.get(), "LogbookWorkshifts", ROW_INSERT, "SECOND",
                                  {{"DepartmentKey", "DEP_CDS"},
                                   {"OpenWorkerKey", "WORKER_IVANOV"},
                                   {"startTime", start.toDouble()},
                                   {"endTime", start.toDouble() + 3600}},
                                  &error));
        QVERIFY(isOpened);
        QCOMPARE(error.text,
                 QStringLiteral("Смена не может начаться раньше окончания предыдущей смены подразделения."));
    }

    void twoMovesDoNotCloseACircle()
    {
        const auto loader = m_files->openLoader();
        StoreError error;
        for (const char* key : {"A", "B"})
            QVERIFY(TestStore::write(loader.get(), "LogbookCatsTemplate", ROW_INSERT, key,
                                     {{"ParentKey", "CAT_COMMON"}}));
        PgConnection other(m_files->url(), 15000);
        QVERIFY(other.connect(other.connectMs(), &error));
        QCOMPARE(begin(other, "UPDATE LogbookCatsTemplate SET ParentKey = 'B' WHERE KeyLink = 'A'", true),
                 QByteArray());
        bool isMoved = false;
        commitWhenWaitedFor(loader.get(), &other, &isMoved);
        QVERIFY(!TestStore::write(loader.get(), "LogbookCatsTemplate", ROW_UPDATE, "B", {{"ParentKey", "A"}},
                                  &error));
        QVERIFY(isMoved);
        QCOMPARE(error.text, QStringLiteral("Категория не может лежать внутри самой себя."));
    }

    // A batch of many rows

    void deadlineIsThatOfARowNotOfAllRows()
    {
        QCOMPARE(m_files->exec(QStringLiteral(
                     "CREATE FUNCTION slow() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN PERFORM "
                     "pg_sleep(0.1); RETURN NEW; END $$; CREATE TRIGGER A_Slow BEFORE INSERT ON Roles FOR "
                     "EACH ROW EXECUTE FUNCTION slow()")),
                 QString());
        Store::Options options;
        options.loader = true;
        options.deadlineMs = 2000;
        const auto store = m_files->open(QString(), options);
        const QVector<MDRFieldDescr> fields = TableCatalog::table("Roles")->descriptors();
        CRowBatch batch(fields.constData(), fields.size());
        for (int i = 0; i < 25; ++i)
            batch.RecPost(batch.newRow(ROW_INSERT, "NEW" + QByteArray::number(i)));
        StoreError error;
        QVERIFY2(store->apply({{"Roles", batch.array}}, GenGuid32(), &error),
                 qPrintable(error.text + error.detail));
    }
};

int main(int argc, char** argv)
{
    qputenv("VRK_TEST_ENGINE", "postgresql");
    QCoreApplication application(argc, argv);
    PostgresStore_clients_test test;
    return QTest::qExec(&test, argc, argv);
}
#include "PostgresStore_clients_test.moc"
