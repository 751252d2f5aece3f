#include "AdminRun.h"
#include "CMDArray.h"
#include "PrivateCluster.h"
#include "SourceFile.h"
#include "SqliteWal.h"
#include "Store.h"
#include "StoreAdmin.h"
#include "TestStore.h"

#include <memory>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// Restored copies, and the copy made before an upgrade.
class Restore_test : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aCopyTakesThePlaceAndTheFormerIsKept();
    void theLogOfACrashGoesWithTheFormerFile();
    void aStoreInUseIsRefused();
    void aCopyThatIsNoneIsRefused_data();
    void aCopyThatIsNoneIsRefused();
    void theStoreItselfIsNoCopy();
    void anUpgradeCopiesFirstAndNamesBothVersions();
    void anOlderCopyIsBroughtToThisVersion();
    void aPlaceThatTakesNoCopyIsNamed_data();
    void aPlaceThatTakesNoCopyIsNamed();

    void aServerTakesACopyWithItsRoles();
    void aServerTakesNoCopyIntoWhatIsThere();
    void aFailedRestoreLeavesAccessAsItWas();
    void aDemoOnAServerLetsItsPeopleIn();
    void theDoctorTellsAMissingDatabaseFromADeadServer();

private:
    QString store() const { return m_admin->path(QStringLiteral("store.sqlite")); }
    QString copy() const { return m_admin->path(QStringLiteral("copy.sqlite")); }
    bool write(const char* role) const
    {
        Store::Options options;
        options.loader = true;
        StoreError error;
        const auto opened = Store::open(m_admin->url, options, &error);
        return opened && TestStore::write(opened.get(), "Roles", ROW_INSERT, role, {}, &error);
    }
    /// Keys of the roles in a store.
    static QStringList roles(const QString& url)
    {
        StoreError error;
        const auto opened = Store::open(url, {}, &error);
        QStringList keys{error.text};
        CMDArray answer;
        if (opened)
            answer = opened->select("SELECT KeyLink FROM Roles ORDER BY KeyLink", &error);
        for (int i = 0; answer.array && i < answer.RecCount(); ++i)
            keys << TestStore::field(answer.array, "KeyLink", i).toString();
        keys.removeAll(QString());
        return keys;
    }
    QString keptName() const
    {
        return m_admin->out.section(QStringLiteral("Прежнее хранилище сохранено: "), 1).trimmed();
    }
    /// The store of version 3 in a file.
    void takeFormer(const QString& file) const
    {
        QProcess sqlite;
        sqlite.setStandardInputFile(sourceFile("tests/store/former") +
                                    QStringLiteral("/version-3.sqlite.sql"));
        sqlite.start(QStringLiteral("sqlite3"), {file});
        QVERIFY(sqlite.waitForFinished(60000));
    }

    std::unique_ptr<AdminRun> m_admin;
};

void Restore_test::init()
{
    m_admin = std::make_unique<AdminRun>();
    QVERIFY(QFile::setPermissions(m_admin->folder.path(), QFile::Permissions(0x7777)));
    QCOMPARE(m_admin->call("init"), Command::Success);
    QVERIFY(write("BEFORE"));
    QCOMPARE(m_admin->call("backup", {copy()}), Command::Success);
    QVERIFY(write("AFTER"));
}

void Restore_test::aCopyTakesThePlaceAndTheFormerIsKept()
{
    QFile::setPermissions(store(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    QCOMPARE(m_admin->call("restore", {copy()}), Command::Success);
    QVERIFY2(m_admin->out.startsWith(QStringLiteral("Копия проверена и возвращена: ")),
             qPrintable(m_admin->out));
    QCOMPARE(roles(m_admin->url), QStringList{QStringLiteral("BEFORE")});
    QVERIFY(QFile::permissions(store()) & QFile::WriteGroup);
    QCOMPARE(roles(QStringLiteral("sqlite://") + keptName()),
             (QStringList{QStringLiteral("AFTER"), QStringLiteral("BEFORE")}));
    QCOMPARE(m_admin->call("check"), Command::Success);
    QVERIFY(write("MORE"));
    // The copy itself is kept, and may be restored again.
    QCOMPARE(m_admin->call("restore", {copy()}), Command::Success);
    QCOMPARE(roles(m_admin->url), QStringList{QStringLiteral("BEFORE")});
}

void Restore_test::theLogOfACrashGoesWithTheFormerFile()
{
    AdminRun& admin = *m_admin;
    const QString crashed = admin.path(QStringLiteral("crashed.sqlite"));
    {
        Store::Options options;
        options.loader = true;
        StoreError error;
        const auto opened = Store::open(admin.url, options, &error);
        QVERIFY(TestStore::write(opened.get(), "Roles", ROW_INSERT, "IN_LOG"));
        for (const char* suffix : {"", "-wal", "-shm"})
            QVERIFY(QFile::copy(store() + QLatin1String(suffix), crashed + QLatin1String(suffix)));
    }
    // Like a user who knows only files.
    const QByteArray bytes = admin.bytes(QStringLiteral("copy.sqlite"));
    QFile out(crashed);
    QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate) && out.write(bytes) == bytes.size());
    out.close();
    admin.url = QStringLiteral("sqlite://") + crashed;
    QCOMPARE(admin.call("user", {QStringLiteral("list")}), Command::Failed);
    QVERIFY2(admin.err.contains(QStringLiteral("vrk-admin restore")), qPrintable(admin.err));
    QCOMPARE(admin.call("doctor"), Command::FaultsFound);
    QVERIFY2(admin.out.contains(QStringLiteral("Верните копию: vrk-admin restore")), qPrintable(admin.out));

    QCOMPARE(admin.call("restore", {copy()}), Command::Success);
    QVERIFY(!SqliteWal(crashed).isFilled());
    QVERIFY(SqliteWal(keptName()).isFilled());
    QCOMPARE(roles(admin.url), QStringList{QStringLiteral("BEFORE")});
    QCOMPARE(admin.call("check"), Command::Success);
    QCOMPARE(admin.call("doctor"), Command::Success);
}

void Restore_test::aStoreInUseIsRefused()
{
    StoreError error;
    const auto opened = Store::open(m_admin->url, {}, &error);
    QVERIFY(opened);
    QCOMPARE(m_admin->call("restore", {copy()}), Command::Failed);
    QCOMPARE(m_admin->err,
             QStringLiteral("С хранилищем «%1» работает другая программа. Закройте её и повторите.\n")
                 .arg(store()));
    QVERIFY(!QFile::exists(store() + QStringLiteral(".part")));
    QVERIFY(roles(m_admin->url).contains(QStringLiteral("AFTER")));
}

void Restore_test::aCopyThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reported");
    QTest::newRow("missing") << QStringLiteral("missing") << QStringLiteral("не найден");
    QTest::newRow("no store") << QStringLiteral("text") << QStringLiteral("не является");
    QTest::newRow("changed") << QStringLiteral("changed") << QStringLiteral("Копия не прошла проверку: ");
}

void Restore_test::aCopyThatIsNoneIsRefused()
{
    QFETCH(QString, kind);
    QFETCH(QString, reported);
    if (kind == QLatin1String("missing")) {
        QVERIFY(QFile::remove(copy()));
    } else if (kind == QLatin1String("text")) {
        QFile file(copy());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray("a letter\n").repeated(1000));
    } else {
        QProcess sqlite; // without the rules
        sqlite.start(
            QStringLiteral("sqlite3"),
            {copy(), QStringLiteral("DROP TRIGGER Log_noUpdate; UPDATE ChangeLog SET newRow = '[]'")});
        QVERIFY(sqlite.waitForFinished(20000) && sqlite.exitCode() == 0);
    }
    QCOMPARE(m_admin->call("restore", {copy()}), Command::Failed);
    QVERIFY2(m_admin->err.contains(reported), qPrintable(m_admin->err));
    QVERIFY(roles(m_admin->url).contains(QStringLiteral("AFTER")));
    QCOMPARE(QDir(m_admin->folder.path()).entryList({QStringLiteral("*.part*"), QStringLiteral("*before*")}),
             QStringList());
}

void Restore_test::theStoreItselfIsNoCopy()
{
    QCOMPARE(m_admin->call("restore", {store()}), Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral("Переименуйте")), qPrintable(m_admin->err));
}

void Restore_test::anUpgradeCopiesFirstAndNamesBothVersions()
{
    const QString former = m_admin->path(QStringLiteral("former.sqlite"));
    takeFormer(former);
    const QString url = QStringLiteral("sqlite://") + former;
    const QString upgraded =
        QStringLiteral("Хранилище обновлено с версии 3 до версии %1.\n").arg(StoreAdmin::schemaVersion());
    QCOMPARE(m_admin->run({QStringLiteral("upgrade"), url}), Command::Success);
    QVERIFY2(m_admin->out.endsWith(upgraded), qPrintable(m_admin->out));
    const QString kept = m_admin->out.section(QLatin1Char('\n'), 0, 0).section(QStringLiteral(": "), 1);
    QVERIFY(kept.startsWith(former + QStringLiteral(".v3-")));
    StoreError error;
    QCOMPARE(StoreAdmin::version(QStringLiteral("sqlite://") + kept, &error), 3);

    QCOMPARE(m_admin->run({QStringLiteral("upgrade"), url}), Command::Success);
    QCOMPARE(m_admin->out,
             QStringLiteral("Хранилище уже версии %1, обновлять нечего.\n").arg(StoreAdmin::schemaVersion()));

    // Where no copy can be made, an upgrade runs only on request.
    QVERIFY(QFile::remove(former));
    takeFormer(former);
    const QString nowhere = m_admin->path(QStringLiteral("none/copy"));
    QCOMPARE(m_admin->run({QStringLiteral("upgrade"), url, QStringLiteral("--backup"), nowhere}),
             Command::Failed);
    QCOMPARE(StoreAdmin::version(url, &error), 3);
    QCOMPARE(m_admin->run({QStringLiteral("upgrade"), url, QStringLiteral("--no-backup")}), Command::Success);
    QCOMPARE(m_admin->out, upgraded);
}

void Restore_test::anOlderCopyIsBroughtToThisVersion()
{
    QVERIFY(QFile::remove(copy()));
    takeFormer(copy());
    QCOMPARE(m_admin->call("restore", {copy()}), Command::Success);
    StoreError error;
    QCOMPARE(StoreAdmin::version(m_admin->url, &error), StoreAdmin::schemaVersion());
    QCOMPARE(StoreAdmin::version(QStringLiteral("sqlite://") + copy(), &error), 3);
    QCOMPARE(m_admin->call("check"), Command::Success);
}

void Restore_test::aPlaceThatTakesNoCopyIsNamed_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reported");
    QTest::newRow("no folder") << QStringLiteral("none/copy") << QStringLiteral("/none» для копии нет.");
    QTest::newRow("there already") << QStringLiteral("copy.sqlite") << QStringLiteral("уже существует");
    QTest::newRow("a folder that takes nothing")
        << QStringLiteral("/proc/copy") << QStringLiteral("В папку «/proc» нельзя записать копию.");
}

void Restore_test::aPlaceThatTakesNoCopyIsNamed()
{
    QFETCH(QString, target);
    QFETCH(QString, reported);
    QCOMPARE(m_admin->call("backup", {QDir(m_admin->folder.path()).filePath(target)}), Command::Failed);
    QVERIFY2(m_admin->err.contains(reported), qPrintable(m_admin->err));
}

void Restore_test::aServerTakesACopyWithItsRoles()
{
    PrivateCluster& from = PrivateCluster::shared();
    PrivateCluster to;
    const QString source = from.url(QStringLiteral("site"));
    const QString dump = m_admin->path(QStringLiteral("site.dump"));
    StoreError error;
    QVERIFY2(StoreAdmin::init(source, "Windows-1251", "Europe/Moscow", &error), qPrintable(error.text));
    QVERIFY(StoreAdmin::addUser(source, QStringLiteral("orlov"), QStringLiteral("Орлов"), &error));
    QCOMPARE(m_admin->run({QStringLiteral("backup"), source, dump}), Command::Success);

    const QString target = to.url(QStringLiteral("again"));
    QCOMPARE(m_admin->run({QStringLiteral("restore"), target, dump}), Command::Success);
    QVERIFY2(m_admin->out.endsWith(QStringLiteral(
                 "Задайте пароли (vrk-admin user URL password ИМЯ), без них не войдут: orlov\n")),
             qPrintable(m_admin->out));
    QCOMPARE(m_admin->run({QStringLiteral("check"), target}), Command::Success);
    const auto opened = Store::open(to.url(QStringLiteral("again"), QStringLiteral("orlov")), {}, &error);
    QVERIFY2(opened, qPrintable(error.text + error.detail));
    StoreLogin user;
    QVERIFY(opened->signIn(QString(), &user, &error));
    QCOMPARE(user.name, QStringLiteral("Орлов"));
    // A different history: listeners of the former one must restart.
    const auto former = Store::open(source, {}, &error);
    ChangePosition position;
    ChangePosition formerPosition;
    QVERIFY(opened->position(&position, &error) && former->position(&formerPosition, &error));
    QVERIFY(position.epoch != formerPosition.epoch);
    const QString said = [&] {
        m_admin->run({QStringLiteral("doctor"), target});
        return m_admin->out;
    }();
    QVERIFY2(!said.contains(QStringLiteral("Всякий")), qPrintable(said));
}

void Restore_test::aServerTakesNoCopyIntoWhatIsThere()
{
    PrivateCluster& cluster = PrivateCluster::shared();
    const QString there = cluster.url(QStringLiteral("there"));
    StoreError error;
    QVERIFY(StoreAdmin::init(there, "Windows-1251", "Europe/Moscow", &error));
    const QString dump = m_admin->path(QStringLiteral("there.dump"));
    QCOMPARE(m_admin->run({QStringLiteral("backup"), there, dump}), Command::Success);
    QCOMPARE(m_admin->run({QStringLiteral("restore"), there, dump}), Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral("уже не пуста")), qPrintable(m_admin->err));
    // A file that is no copy creates no database.
    QCOMPARE(m_admin->run({QStringLiteral("restore"), cluster.url(QStringLiteral("none")), copy()}),
             Command::Failed);
    QVERIFY2(m_admin->err.contains(QStringLiteral("не является копией")), qPrintable(m_admin->err));
    QVERIFY(!Store::open(cluster.url(QStringLiteral("none")), {}, &error));
    QCOMPARE(error.code, StoreError::Missing);
}

void Restore_test::aFailedRestoreLeavesAccessAsItWas()
{
    PrivateCluster& cluster = PrivateCluster::shared();
    for (const char* name : {"CREATE DATABASE foreigner", "CREATE DATABASE waiting"})
        QCOMPARE(cluster.exec(QLatin1String(name)), QString());
    const QString dump = m_admin->path(QStringLiteral("foreigner.dump"));
    const QStringList arguments{QStringLiteral("--format=custom"), QStringLiteral("--file=") + dump,
                                QStringLiteral("--dbname=") + cluster.url(QStringLiteral("foreigner"))};
    QCOMPARE(QProcess::execute(QStringLiteral("pg_dump"), arguments), 0);
    // exec() returns only the server's answer to a failed statement.
    const auto ofAll = [&] {
        return cluster.exec(
            QStringLiteral(
                "DO $$ BEGIN RAISE EXCEPTION '%', (SELECT has_language_privilege('public', 'plpgsql', "
                "'USAGE')"
                " || has_database_privilege('public', current_database(), 'CONNECT')::text || string_agg("
                "oid::regprocedure::text, ' ' ORDER BY oid) FROM pg_proc WHERE "
                "has_function_privilege('public', "
                "oid, 'EXECUTE')); END $$"),
            QStringLiteral("waiting"));
    };
    const QString before = ofAll();
    QVERIFY(before.contains(QStringLiteral("pg_advisory_lock(bigint)")));
    QVERIFY(!before.contains(QStringLiteral("lo_export"))); // it writes files of the server
    QCOMPARE(m_admin->run({QStringLiteral("restore"), cluster.url(QStringLiteral("waiting")), dump}),
             Command::Failed);
    QCOMPARE(ofAll(), before);
}

void Restore_test::aDemoOnAServerLetsItsPeopleIn()
{
    PrivateCluster& cluster = PrivateCluster::shared();
    QCOMPARE(m_admin->run({QStringLiteral("demo"), cluster.url(QStringLiteral("demo"))}), Command::Success);
    QVERIFY2(m_admin->out.contains(QStringLiteral("Входят: ")), qPrintable(m_admin->out));
    StoreError error;
    const auto opened =
        Store::open(cluster.url(QStringLiteral("demo"), QStringLiteral("roshchin")), {}, &error);
    QVERIFY2(opened, qPrintable(error.text + error.detail));
}

void Restore_test::theDoctorTellsAMissingDatabaseFromADeadServer()
{
    PrivateCluster& cluster = PrivateCluster::shared();
    QCOMPARE(m_admin->run({QStringLiteral("doctor"), cluster.url(QStringLiteral("nothing"))}),
             Command::FaultsFound);
    QVERIFY2(m_admin->out.contains(QStringLiteral("Сервер работает, но базы")), qPrintable(m_admin->out));
    QVERIFY2(m_admin->out.contains(QStringLiteral("vrk-admin setup")), qPrintable(m_admin->out));
    QCOMPARE(m_admin->run({QStringLiteral("doctor"), QStringLiteral("postgresql:///nothing?host=/nowhere")}),
             Command::FaultsFound);
    QVERIFY2(m_admin->out.contains(QStringLiteral("Проверьте, что сервер запущен")),
             qPrintable(m_admin->out));
}

QTEST_GUILESS_MAIN(Restore_test)
#include "Restore_test.moc"
