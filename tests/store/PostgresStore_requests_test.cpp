#include "CMDArray.h"
#include "PrivateCluster.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <QTest>

/// The safeguards of each request to a server, for any settings of server, database and role.
class PostgresStore_requests_test : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestStore> m_files;

    static QVariant one(Store* store, const QByteArray& sql, StoreError* error)
    {
        CMDArray answer;
        answer = store->select(sql, error);
        return answer.array && answer.RecCount() > 0 ? TestStore::field(answer.array, "v") : QVariant();
    }

private slots:
    void init() { m_files = std::make_unique<TestStore>(); }

    void selectsOnlyRead_data()
    {
        QTest::addColumn<QByteArray>("sql");
        QTest::newRow("a sequence") << QByteArray("SELECT nextval('changelog_entry_seq') AS v");
        QTest::newRow("a lock") << QByteArray("SELECT KeyLink AS v FROM Roles FOR UPDATE");
        QTest::newRow("a notification") << QByteArray("SELECT query_to_xml('NOTIFY vrk_changes', true, true, "
                                                      "'')::text AS v");
        QTest::newRow("a deletion") << QByteArray("SELECT query_to_xml('DELETE FROM Roles', true, true, "
                                                  "'')::text AS v");
    }
    void selectsOnlyRead()
    {
        QFETCH(QByteArray, sql);
        const auto store = m_files->openLoader();
        StoreError error;
        QVERIFY(!one(store.get(), sql, &error).isValid());
        QCOMPARE(error.code, StoreError::BadRequest);
    }

    void settingsOfASelectAreReverted()
    {
        const auto store = m_files->openLoader();
        StoreError error;
        const QVariant limit = one(store.get(), "SELECT current_setting('statement_timeout') AS v", &error);
        QCOMPARE(limit.toString(), QStringLiteral("20s")); // the deadline, plus time to end by itself
        QCOMPARE(
            one(store.get(), "SELECT set_config('statement_timeout', '0', false) AS v", &error).toString(),
            QStringLiteral("0"));
        QCOMPARE(one(store.get(), "SELECT current_setting('statement_timeout') AS v", &error), limit);
        QCOMPARE(
            one(store.get(), "SELECT current_setting('idle_in_transaction_session_timeout') AS v", &error),
            limit);
    }

    void settingsOfTheDatabaseDoNotCount()
    {
        QString all; // all at once, because the last of them would prevent setting the others
        for (const char* setting :
             {"search_path = pg_catalog", "client_encoding = ''LATIN1''", "statement_timeout = ''100ms''",
              "default_transaction_isolation = ''serializable''", "default_transaction_read_only = on"})
            all += QStringLiteral("EXECUTE format('ALTER DATABASE %I SET ") + QLatin1String(setting) +
                   QStringLiteral("', current_database()); ");
        QCOMPARE(m_files->exec(QStringLiteral("DO $$ BEGIN ") + all + QStringLiteral("END $$")), QString());
        const auto store = m_files->openLoader();
        StoreError error;
        const QString name = QStringLiteral("Диспетчер");
        QVERIFY2(TestStore::write(store.get(), "Roles", ROW_INSERT, "NEW", {{"name_", name}}, &error),
                 qPrintable(error.text + error.detail));
        QCOMPARE(one(store.get(),
                     "SELECT name_ AS v FROM Roles, (SELECT pg_sleep(0.3)) AS longer WHERE KeyLink = 'NEW'",
                     &error)
                     .toString(),
                 name);
        // A serializable one would have to be repeated.
        const auto other = m_files->openLoader();
        QVERIFY(store->beginRead(&error));
        QVERIFY(TestStore::write(other.get(), "Roles", ROW_UPDATE, "NEW", {{"name_", "x"}}, &error));
        store->endRead();
    }

    void transactionsSeeWhatIsCommittedMeanwhile()
    {
        QCOMPARE(
            m_files->exec(QStringLiteral(
                "DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET default_transaction_isolation = "
                "''serializable''', current_database()); END $$; CREATE TABLE seen (v text); CREATE "
                "FUNCTION witness() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$ BEGIN INSERT "
                "INTO public.seen VALUES (current_setting('transaction_isolation')); RETURN NULL; END $$; "
                "CREATE TRIGGER witness AFTER INSERT ON Roles EXECUTE FUNCTION witness()")),
            QString());
        QVERIFY(TestStore::write(m_files->openLoader().get(), "Roles", ROW_INSERT, "NEW"));
        QCOMPARE(m_files->value(QStringLiteral("SELECT v FROM seen")).toString(),
                 QStringLiteral("read committed"));
    }

    void batchIsTriedAgainWhenTheServerAsksForIt_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<int>("attempts");
        QTest::newRow("not in a row with others") << QStringLiteral("40001") << 3;
        QTest::newRow("deadlock") << QStringLiteral("40P01") << 3;
        QTest::newRow("anything else") << QStringLiteral("22012") << 1;
    }
    void batchIsTriedAgainWhenTheServerAsksForIt()
    {
        QFETCH(QString, state);
        QFETCH(int, attempts);
        QCOMPARE(
            m_files->exec(
                QStringLiteral("CREATE SEQUENCE tries; CREATE FUNCTION trouble() RETURNS trigger LANGUAGE "
                               "plpgsql SECURITY DEFINER AS $$ BEGIN IF nextval('public.tries') < 3 THEN "
                               "RAISE EXCEPTION USING ERRCODE = '%1', MESSAGE = 'again'; END IF; RETURN "
                               "NULL; END $$; CREATE TRIGGER trouble AFTER INSERT ON Roles EXECUTE "
                               "FUNCTION trouble()")
                    .arg(state)),
            QString());
        const auto store = m_files->openLoader();
        QCOMPARE(TestStore::write(store.get(), "Roles", ROW_INSERT, "NEW"), attempts > 1);
        QCOMPARE(m_files->value(QStringLiteral("SELECT last_value FROM tries")).toInt(), attempts);
        QCOMPARE(m_files->value(QStringLiteral("SELECT count(*) FROM Roles WHERE KeyLink = 'NEW'")).toInt(),
                 attempts > 1 ? 1 : 0);
    }

    void runawaysAreCancelledBeforeTheServersLimit()
    {
        Store::Options options;
        options.deadlineMs = 1500; // the server would end it by itself five seconds later
        const auto store = m_files->open(QStringLiteral("petrov"), options);
        StoreError error;
        QVERIFY(!one(store.get(), "SELECT count(*) AS v FROM generate_series(1, 1000000000000)", &error)
                     .isValid());
        QCOMPARE(error.code, StoreError::Lost);
        const QString running =
            QStringLiteral("SELECT count(*) FROM pg_stat_activity WHERE state = 'active' AND "
                           "pid <> pg_backend_pid() AND query LIKE 'FETCH%'");
        QTRY_COMPARE_WITH_TIMEOUT(m_files->value(running).toInt(), 0, 3000);
    }

    void keyThatIsTakenIsNotTriedAgain()
    {
        QCOMPARE(
            m_files->exec(QStringLiteral(
                "CREATE SEQUENCE tries; CREATE FUNCTION counting() RETURNS trigger LANGUAGE plpgsql "
                "SECURITY DEFINER AS $$ BEGIN PERFORM nextval('public.tries'); RETURN NULL; END $$; CREATE "
                "TRIGGER counting BEFORE INSERT ON Roles EXECUTE FUNCTION counting()")),
            QString());
        QVERIFY(!TestStore::write(m_files->openLoader().get(), "Roles", ROW_INSERT, "ROLE_ZAR"));
        QCOMPARE(m_files->value(QStringLiteral("SELECT last_value FROM tries")).toInt(), 1);
    }

    void textsAreOrderedByBytesInAnyCollation()
    {
        // In this collation "a" comes before "B", and lower-case letters before upper-case ones.
        QCOMPARE(PrivateCluster::shared().exec(QStringLiteral(
                     "CREATE DATABASE sorted TEMPLATE template0 ENCODING 'UTF8' LOCALE_PROVIDER "
                     "icu ICU_LOCALE 'ru' LC_COLLATE 'C.UTF-8' LC_CTYPE 'C.UTF-8'")),
                 QString());
        const QString url = PrivateCluster::shared().url(QStringLiteral("sorted"));
        StoreError error;
        QVERIFY2(StoreAdmin::init(url, "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text + error.detail));
        Store::Options options;
        options.loader = true;
        const auto store = Store::open(url, options, &error);
        for (const char* key : {"a", "B", "_", "A", "b"})
            QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, key, {{"name_", key}}));
        for (const char* column : {"KeyLink", "name_"}) {
            CMDArray answer;
            answer = store->select(QByteArray("SELECT * FROM Roles ORDER BY ") + column, &error);
            QString order;
            for (int i = 0; i < answer.RecCount(); ++i)
                order += TestStore::field(answer.array, column, i).toString();
            QCOMPARE(order, QStringLiteral("AB_ab"));
        }
    }
};

int main(int argc, char** argv)
{
    qputenv("VRK_TEST_ENGINE", "postgresql");
    QCoreApplication application(argc, argv);
    PostgresStore_requests_test test;
    return QTest::qExec(&test, argc, argv);
}
#include "PostgresStore_requests_test.moc"
