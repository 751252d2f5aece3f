#include "StoreAdmin.h"
#include "TestStore.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <QUrl>
#include <sqlite3.h>
#include <unistd.h>

/// What opening says of files that are no store, or cannot be used.
class SqliteStore_open_test : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    static QString urlOf(const QString& file) { return QStringLiteral("sqlite://") + file; }
    StoreError refusal(const QString& url) const
    {
        StoreError error;
        const auto store = Store::open(url, Store::Options(), &error);
        return store ? StoreError() : error;
    }
    void put(const QString& file, const QByteArray& content) const
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

private slots:
    void addressesThatAreNotUnderstood_data()
    {
        QTest::addColumn<QString>("url");
        for (const char* url :
             {"", "journal.vrk", "/tmp/journal.vrk", "sqlite:journal", "sqlite://journal", "mysql://host/x"})
            QTest::newRow(url) << QString::fromLatin1(url);
    }
    void addressesThatAreNotUnderstood()
    {
        QFETCH(QString, url);
        const StoreError error = refusal(url);
        QCOMPARE(error.code, StoreError::BadUrl);
        QVERIFY(error.text.contains(QLatin1Char('"') + url) || error.text.contains(url));
        QVector<StoreAdmin::Finding> findings;
        StoreError adminError;
        QVERIFY(!StoreAdmin::check(url, &findings, &adminError));
        QCOMPARE(adminError.code, StoreError::BadUrl);
    }

    void engineThatIsNotThereIsNamed()
    {
        const StoreError error = refusal(QStringLiteral("postgresql://nobody@/journal?host=/nowhere"));
        QCOMPARE(error.code, StoreError::Lost);
        QCOMPARE(error.text, QString::fromUtf8("Нет связи с сервером «/nowhere/journal»."));
    }

    void missingFileIsNeverMade()
    {
        const QString file = path("missing.vrk");
        const StoreError error = refusal(urlOf(file));
        QCOMPARE(error.code, StoreError::Missing);
        QCOMPARE(error.text, QString::fromUtf8("Файл хранилища «%1» не найден.").arg(file));
        QVERIFY(!QFile::exists(file));
        QVERIFY(!QFile::exists(path("missing.vrk-wal")));
    }

    void filesThatAreNoStore_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("This is a letter, not a journal.\n").repeated(100);
        QTest::newRow("beginning of a store") << QByteArray("SQLite format 3\0", 16);
    }
    void filesThatAreNoStore()
    {
        QFETCH(QByteArray, content);
        const QString file = path("other");
        put(file, content);
        const StoreError error = refusal(urlOf(file));
        QCOMPARE(error.code, StoreError::NotAStore);
        QVERIFY(error.text.contains(file));
        QFile after(file);
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), content); // untouched
    }

    void folderIsNoStore() { QCOMPARE(refusal(urlOf(m_folder.path())).code, StoreError::NotAStore); }

    void databaseOfAnotherProgramIsNoStore()
    {
        TestStore store(TestStore::Empty);
        QCOMPARE(store.exec(QStringLiteral("PRAGMA application_id = 7")), QString());
        const StoreError error = refusal(store.url());
        QCOMPARE(error.code, StoreError::NotAStore);
        QCOMPARE(error.text,
                 QString::fromUtf8("Файл «%1» не является хранилищем журнала.").arg(store.path()));
    }

    void newerStoreNamesTheVersionNeeded()
    {
        TestStore store(TestStore::Empty);
        QCOMPARE(store.exec(QStringLiteral("PRAGMA user_version = 57")), QString());
        const StoreError error = refusal(store.url());
        QCOMPARE(error.code, StoreError::TooNew);
        QVERIFY(error.text.contains(QStringLiteral("57")));
        QVERIFY(error.text.contains(store.path()));
    }

    void olderStoreNeedsAnUpgrade()
    {
        TestStore store(TestStore::Empty);
        QCOMPARE(store.exec(QStringLiteral("PRAGMA user_version = 0")), QString());
        QCOMPARE(refusal(store.url()).code, StoreError::TooOld);
    }

    void storeOfAnUnknownCodePageIsRefused()
    {
        TestStore store(TestStore::Empty);
        QCOMPARE(store.exec(QStringLiteral(
                     "DROP TRIGGER Log_StoreProperties_update; UPDATE StoreProperties SET value = "
                     "'UTF-16' WHERE name = 'codec'")),
                 QString());
        const StoreError error = refusal(store.url());
        QCOMPARE(error.code, StoreError::NotAStore);
        QVERIFY(!error.text.isEmpty());
    }

    void pathsWithBlanksAndRussianLettersOpen()
    {
        const QString file = path("журнал смены №1.vrk");
        StoreError error;
        QVERIFY2(StoreAdmin::init(urlOf(file), "Windows-1251", "Europe/Moscow", &error),
                 qPrintable(error.text));
        QVERIFY(QFile::exists(file));
        QCOMPARE(
            refusal(QStringLiteral("sqlite://") + QString::fromLatin1(QUrl::toPercentEncoding(file, "/")))
                .code,
            StoreError::None);
    }

    void lockOfAnotherIsWaitedForUntilTheDeadline()
    {
        TestStore store;
        Store::Options options;
        options.deadlineMs = 150;
        options.loader = true;
        const auto waiting = store.open(QString(), options);
        sqlite3* other = nullptr;
        sqlite3_open(store.path().toUtf8().constData(), &other);
        QCOMPARE(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
        StoreError error;
        QElapsedTimer clock;
        clock.start();
        QVERIFY(!TestStore::write(waiting.get(), "Roles", ROW_INSERT, "A", {}, &error));
        QCOMPARE(error.code, StoreError::Locked);
        QCOMPARE(error.text, QString::fromUtf8("Файл хранилища «%1» слишком долго занят другой программой.")
                                 .arg(store.path()));
        QVERIFY(clock.elapsed() >= 100 && clock.elapsed() < 5000);
        // Reading goes on meanwhile.
        MDArray* answer = waiting->select("SELECT * FROM Roles", &error);
        QVERIFY(answer);
        MDADestroy(answer);
        sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close(other);
        QVERIFY(TestStore::write(waiting.get(), "Roles", ROW_INSERT, "A"));
    }

    void fileOrFolderWithoutPermissionIsReadOnly_data()
    {
        QTest::addColumn<bool>("folderOpen");
        QTest::newRow("file") << true;
        QTest::newRow("folder") << false;
    }
    void fileOrFolderWithoutPermissionIsReadOnly()
    {
        QFETCH(bool, folderOpen);
        const TestStore store;
        const QFileInfo info(store.path());
        QFile::setPermissions(store.path(),
                              folderOpen ? QFile::Permissions(0x4444) : QFile::Permissions(0x6666));
        QFile::setPermissions(info.path(),
                              folderOpen ? QFile::Permissions(0x7777) : QFile::Permissions(0x5555));
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--open"), store.url()});
        QVERIFY(other.waitForFinished(20000));
        QFile::setPermissions(info.path(), QFile::Permissions(0x7777));
        const QList<QByteArray> said = other.readAllStandardOutput().split('\n');
        QCOMPARE(said.value(0).toInt(), int(StoreError::ReadOnly));
        QVERIFY(QString::fromUtf8(said.value(1)).contains(store.path()));
    }
};

/// The program started anew as nobody, whom permissions bind: opens a store and writes into it, and says what came.
static int openAsNobody(const char* url)
{
    if (getuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
        return 1;
    StoreError error;
    Store::Options options;
    options.loader = true;
    const auto store = Store::open(QString::fromUtf8(url), options, &error);
    if (store)
        TestStore::write(store.get(), "Roles", ROW_INSERT, "A", {}, &error);
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly))
        return 1;
    out.write(QByteArray::number(error.code) + '\n' + error.text.toUtf8() + '\n');
    return 0;
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--open") == 0)
        return openAsNobody(argv[2]);
    SqliteStore_open_test test;
    return QTest::qExec(&test, argc, argv);
}

#include "SqliteStore_open_test.moc"
