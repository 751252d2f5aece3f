#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QTest>

/// The findings of a check in the schema of a server's store, and outside it.
class PostgresCheck_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;

    struct Tampering {
        const char* sql;
        QVector<const char*> findings;
    };

    QStringList findings(StoreAdmin::Finding::Grade grade) const
    {
        QVector<StoreAdmin::Finding> all;
        StoreError error;
        if (!StoreAdmin::check(m_files->url(), &all, &error))
            return {error.text + error.detail};
        QStringList texts;
        for (const StoreAdmin::Finding& finding : qAsConst(all))
            if (finding.grade == grade)
                texts.append(finding.text);
        texts.sort();
        return texts;
    }
    /// Applies all changes to one store and checks it once: each must be reported, and nothing else.
    void tamper(const QVector<Tampering>& tamperings)
    {
        QStringList expected;
        for (const Tampering& tampering : tamperings) {
            const QString refusal = m_files->exec(QString::fromUtf8(tampering.sql));
            QVERIFY2(refusal.isEmpty(), qPrintable(refusal + QLatin1String(tampering.sql)));
            for (const char* finding : tampering.findings)
                expected.append(QString::fromUtf8(finding));
        }
        expected.sort();
        const QStringList found = findings(StoreAdmin::Finding::Fault);
        for (const QString& text : found)
            QVERIFY2(expected.contains(text), qPrintable(text));
        for (const QString& text : qAsConst(expected))
            QVERIFY2(found.contains(text), qPrintable(text));
        QCOMPARE(found, expected);
    }

private slots:
    void init() { m_files = std::make_unique<TestStore>(); }

    void aStoreAsItWasMadeIsClean()
    {
        QCOMPARE(findings(StoreAdmin::Finding::Fault), QStringList());
        QCOMPARE(findings(StoreAdmin::Finding::Note), QStringList());
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM pg_namespace WHERE nspname LIKE 'vrk%'"))
                     .toInt(),
                 0);
    }

    void grantsOnWhatComesLaterAreNamed()
    {
        QCOMPARE(m_files->exec(QStringLiteral(
                     "ALTER DEFAULT PRIVILEGES FOR ROLE vrk_owner GRANT ALL ON TABLES TO petrov")),
                 QString());
        QVERIFY(
            findings(StoreAdmin::Finding::Fault)
                .contains(QStringLiteral("В схеме хранилища есть лишнее «default privileges on new relations "
                                         "belonging to role vrk_owner».")));
    }

    void rulesThatAreGoneOrChangedAreNamed()
    {
        tamper({
            {"DROP TRIGGER Rule_Records_visa ON LogbookRecords",
             {"В схеме хранилища недостаёт «trigger rule_records_visa on logbookrecords»."}},
            {"ALTER TABLE LogbookComments DISABLE TRIGGER Z_Log",
             {"В схеме хранилища изменено «trigger z_log on logbookcomments»."}},
            {"ALTER TABLE Roles ENABLE REPLICA TRIGGER KeepRows",
             {"В схеме хранилища изменено «trigger keeprows on roles»."}},
            {"UPDATE pg_trigger SET tgenabled = 'D' WHERE tgfoid = '\"RI_FKey_check_ins\"'::regproc AND "
             "tgrelid = "
             "'LogbookFiles'::regclass",
             {"В схеме хранилища изменено «trigger logbookfiles_recordkey_fkey \"RI_FKey_check_ins\" on "
              "logbookfiles»."}},
            {"CREATE TRIGGER Quiet BEFORE INSERT ON Shifts FOR EACH ROW EXECUTE FUNCTION "
             "suppress_redundant_updates_trigger()",
             {"В схеме хранилища есть лишнее «trigger quiet on shifts»."}},
            {"CREATE OR REPLACE FUNCTION Rule_Records_update() RETURNS trigger LANGUAGE plpgsql SECURITY "
             "DEFINER "
             "SET search_path = pg_catalog, public, pg_temp SET extra_float_digits = 1 AS $$\nBEGIN\n    "
             "RETURN "
             "NEW;\nEND $$",
             {"В схеме хранилища изменено «function rule_records_update()»."}},
            {"ALTER FUNCTION vrk_close() RESET search_path",
             {"В схеме хранилища изменено «function vrk_close()»."}},
            {"CREATE FUNCTION harmless() RETURNS integer LANGUAGE sql AS 'SELECT 1'; ALTER FUNCTION "
             "harmless() OWNER "
             "TO vrk_owner",
             {"В схеме хранилища есть лишнее «function harmless()».",
              "В схеме хранилища есть лишнее «owner of function harmless()».",
              "В схеме хранилища есть лишнее «grants on function harmless()»."}},
            {"CREATE RULE nothing AS ON DELETE TO Equipment DO INSTEAD NOTHING",
             {"В схеме хранилища есть лишнее «rule nothing on equipment»."}},
            {"CREATE OR REPLACE VIEW CurrentRights AS SELECT rightName FROM UserRights",
             {"В схеме хранилища изменено «view currentrights»."}},
            {"ALTER TEXT SEARCH DICTIONARY vrk_russian (StopWords = russian)",
             {"В схеме хранилища изменено «dictionary vrk_russian»."}},
        });
    }

    void tablesThatAreChangedAreNamed()
    {
        tamper({
            {"DROP INDEX LogbookRecords_Time", {"В схеме хранилища недостаёт «index logbookrecords_time»."}},
            {"UPDATE pg_index SET indisvalid = false WHERE indexrelid = 'LogbookRecords_Shift'::regclass",
             {"В схеме хранилища изменено «index logbookrecords_shift»."}},
            {"ALTER TABLE Users DROP CONSTRAINT users_login_key",
             {"В схеме хранилища недостаёт «constraint users.users_login_key».",
              "В схеме хранилища недостаёт «index users_login_key»."}},
            {"ALTER TABLE Shifts ADD CONSTRAINT short CHECK (endTime < 5e10)",
             {"В схеме хранилища есть лишнее «constraint shifts.short»."}},
            {"ALTER TABLE LogbookComments ALTER readedTime DROP NOT NULL",
             {"В схеме хранилища изменено «column logbookcomments.readedtime»."}},
            {"ALTER TABLE Roles ADD COLUMN note text",
             {"В схеме хранилища есть лишнее «column roles.note»."}},
            {"ALTER TABLE Equipment ENABLE ROW LEVEL SECURITY",
             {"В схеме хранилища изменено «table equipment»."}},
            {"CREATE POLICY mine ON Equipment USING (true)",
             {"В схеме хранилища есть лишнее «policy mine on equipment»."}},
            {"ALTER SEQUENCE changelog_entry_seq CYCLE",
             {"В схеме хранилища изменено «sequence changelog_entry_seq»."}},
            {"CREATE SCHEMA other", {"В схеме хранилища есть лишнее «schema other»."}},
        });
    }

    void rowsThatAreChangedPastTheLogAreNamed()
    {
        StoreError error;
        for (const char* name : {"A", "B", "C"})
            QVERIFY(StoreAdmin::putFile(m_files->url(), QStringLiteral("options"), QLatin1String(name), "1",
                                        &error));
        QVERIFY(
            StoreAdmin::putFile(m_files->url(), QStringLiteral("options"), QStringLiteral("A"), "2", &error));
        QVERIFY(
            StoreAdmin::removeFile(m_files->url(), QStringLiteral("options"), QStringLiteral("C"), &error));
        QCOMPARE(findings(StoreAdmin::Finding::Fault), QStringList());
        QCOMPARE(
            m_files
                ->value(QStringLiteral("SELECT string_agg(rowKey || ' ' || event, ', ' ORDER BY entry) FROM "
                                       "ChangeLog WHERE tableName = 'StoreFiles'"))
                .toString(),
            QStringLiteral("options/A 601, options/B 601, options/C 601, options/A 602, options/C 603"));
        QCOMPARE(
            m_files->exec(QStringLiteral("UPDATE StoreProperties SET value = 'UTF-8' WHERE name = 'codec'")),
            QStringLiteral("Данные изменяются только через хранилище журнала."));
        const QString past = QStringLiteral("SET session_replication_role = replica; ");
        for (const char* sql :
             {"UPDATE StoreProperties SET value = 'UTF-8' WHERE name = 'codec'",
              "UPDATE StoreFiles SET content = '1' WHERE name = 'A'",
              "DELETE FROM StoreFiles WHERE name = 'B'",
              "INSERT INTO StoreFiles VALUES ('options', 'D', '1')",
              "UPDATE LogbookRecords SET VisaWorkerKey = 'WORKER_PETROV' WHERE KeyLink = 'REC_ORDER'"})
            QCOMPARE(m_files->exec(past + QLatin1String(sql)), QString());
        tamper({{"SELECT",
                 {"Строка «codec» таблицы «StoreProperties» изменена в обход журнала изменений.",
                  "Строка «options/A» таблицы «StoreFiles» изменена в обход журнала изменений.",
                  "Строка «options/B» таблицы «StoreFiles» исчезла в обход журнала изменений.",
                  "Строка «options/D» таблицы «StoreFiles» изменена в обход журнала изменений.",
                  "Строка «REC_ORDER» таблицы «LogbookRecords» изменена в обход журнала изменений."}}});
    }

    void grantsAndOwnersAreNamed()
    {
        const QString database = m_files->value(QStringLiteral("SELECT current_database()::text")).toString();
        QCOMPARE(m_files->exec(QStringLiteral("GRANT CREATE ON DATABASE %1 TO petrov").arg(database)),
                 QString());
        const QByteArray granted =
            QStringLiteral("У роли «petrov» есть лишние права на «database %1».").arg(database).toUtf8();
        tamper({
            {"SELECT", {granted.constData()}},
            {"GRANT DELETE ON LogHeads TO vrk_seal",
             {"В схеме хранилища изменено «grants on table logheads»."}},
            {"GRANT UPDATE ON ChangeLog TO vrk_client",
             {"В схеме хранилища изменено «grants on table changelog»."}},
            {"GRANT SELECT ON ChangePending TO petrov WITH GRANT OPTION",
             {"В схеме хранилища изменено «grants on table changepending»."}},
            {"GRANT UPDATE (number) ON ChangeHead TO petrov",
             {"В схеме хранилища есть лишнее «grants on column changehead.number»."}},
            {"REVOKE SELECT ON ChangeEnd FROM vrk_client",
             {"В схеме хранилища изменено «grants on view changeend»."}},
            {"GRANT USAGE ON SEQUENCE changelog_entry_seq TO petrov",
             {"В схеме хранилища изменено «grants on sequence changelog_entry_seq»."}},
            {"GRANT EXECUTE ON FUNCTION vrk_refuse(text) TO PUBLIC",
             {"В схеме хранилища изменено «grants on function vrk_refuse(reason text)»."}},
            {"ALTER TABLE StoreFiles OWNER TO petrov",
             {"В схеме хранилища изменено «owner of table storefiles».",
              "В схеме хранилища изменено «grants on table storefiles».",
              "В схеме хранилища изменено «index storefiles_pkey»."}},
            {"ALTER FUNCTION vrk_keep_log() OWNER TO petrov",
             {"В схеме хранилища изменено «owner of function vrk_keep_log()».",
              "В схеме хранилища изменено «grants on function vrk_keep_log()»."}},
            {"GRANT CREATE ON SCHEMA public TO petrov",
             {"У роли «petrov» есть лишние права на «schema public»."}},
            {"GRANT EXECUTE ON FUNCTION pg_advisory_lock(bigint) TO PUBLIC",
             {"Функция сервера «pg_advisory_lock(bigint)», которой можно помешать другим, открыта всем."}},
            {"GRANT USAGE ON LANGUAGE plpgsql TO PUBLIC",
             {"Язык сервера «plpgsql», на котором можно помешать другим, открыт всем."}},
            {"GRANT EXECUTE ON FUNCTION pg_read_file(text) TO petrov",
             {"У роли «petrov» есть лишние права на «pg_read_file(text)»."}},
            {"GRANT UPDATE ON pg_trigger TO vrk_client",
             {"У роли «vrk_client» есть лишние права на «pg_trigger»."}},
        });
    }

    void rolesAndSettingsAreNamed()
    {
        const QString database = m_files->value(QStringLiteral("SELECT current_database()::text")).toString();
        QCOMPARE(
            m_files->exec(
                QStringLiteral("ALTER DATABASE %1 SET session_replication_role = replica").arg(database)),
            QString());
        const QByteArray set =
            QStringLiteral(
                "Для «database %1» на сервере записана лишняя настройка: session_replication_role=replica.")
                .arg(database)
                .toUtf8();
        tamper({
            {"SELECT", {set.constData()}},
            {"GRANT vrk_loader TO petrov", {"Роль «petrov» не должна состоять в роли «vrk_loader»."}},
            {"GRANT vrk_owner TO ivanov", {"Роль «ivanov» не должна состоять в роли «vrk_owner»."}},
            {"GRANT vrk_seal TO viewer", {"Роль «viewer» не должна состоять в роли «vrk_seal»."}},
            {"CREATE ROLE notary LOGIN CREATEDB IN ROLE vrk_seal; GRANT pg_read_all_data TO notary",
             {"Роль «notary» имеет свойство CREATEDB, которого у неё быть не должно.",
              "Роль «notary» не должна состоять в роли «pg_read_all_data»."}},
            {"GRANT pg_signal_backend TO smirnov",
             {"Роль «smirnov» не должна состоять в роли «pg_signal_backend»."}},
            {"GRANT pg_write_all_data TO vrk_client",
             {"Роль «vrk_client» не должна состоять в роли «pg_write_all_data»."}},
            {"GRANT vrk_client TO viewer WITH ADMIN OPTION",
             {"Роль «viewer» не должна состоять в роли «vrk_client»."}},
            {"ALTER ROLE sidorova SUPERUSER",
             {"Роль «sidorova» имеет свойство SUPERUSER, которого у неё быть не должно."}},
            {"ALTER ROLE kuznetsov CREATEROLE",
             {"Роль «kuznetsov» имеет свойство CREATEROLE, которого у неё быть не должно."}},
            {"ALTER ROLE vrk_owner LOGIN", {"Роль «vrk_owner» не должна входить на сервер."}},
            {"ALTER ROLE petrov SET vrk.loader = 'on'",
             {"Для «petrov» на сервере записана лишняя настройка: vrk.loader=on."}},
        });
        QCOMPARE(
            m_files->exec(QStringLiteral(
                "DROP ROLE notary; REVOKE vrk_seal FROM viewer; REVOKE vrk_loader FROM petrov; REVOKE "
                "vrk_owner FROM ivanov; REVOKE pg_signal_backend FROM "
                "smirnov; REVOKE pg_write_all_data FROM vrk_client; REVOKE ADMIN OPTION FOR vrk_client FROM "
                "viewer; ALTER ROLE sidorova NOSUPERUSER; ALTER ROLE kuznetsov NOCREATEROLE; ALTER ROLE "
                "vrk_owner NOLOGIN; ALTER ROLE petrov RESET ALL; CREATE ROLE stranger LOGIN IN ROLE "
                "vrk_client")),
            QString());
        QCOMPARE(
            findings(StoreAdmin::Finding::Note),
            QStringList(QStringLiteral("Роль «stranger» читает журнал, а среди его пользователей её нет.")));
        QCOMPARE(m_files->exec(QStringLiteral("DROP ROLE stranger")), QString());
    }
};

int main(int argc, char** argv)
{
    qputenv("VRK_TEST_ENGINE", "postgresql");
    QCoreApplication application(argc, argv);
    PostgresCheck_test test;
    return QTest::qExec(&test, argc, argv);
}
#include "PostgresCheck_test.moc"
