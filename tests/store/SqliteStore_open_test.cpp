#include "AsNobody.h"
#include "CMDArray.h"
#include "FaultVfs.h"
#include "SqliteWal.h"
#include "StoreAdmin.h"
#include "TestFolder.h"
#include "TestStore.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>
#include <sqlite3.h>
#include <unistd.h>

/// The errors for files that are not stores, or cannot be used.
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

    /// A store after a crash: with a row only in its log, of which a number of pages were copied to the
    /// file. Returns its file.
    QString leaveCrashed(const TestStore& files, const char* role, int pagesInFile = 0) const
    {
        const auto store = files.openLoader();
        if (!TestStore::write(store.get(), "Roles", ROW_INSERT, role))
            qFatal("cannot write");
        if (pagesInFile > 0) {
            FaultVfs::arm(FaultVfs::Write, pagesInFile + 1, SQLITE_IOERR_WRITE, true);
            files.exec(QStringLiteral("PRAGMA wal_checkpoint(PASSIVE)"));
            FaultVfs::disarm();
        }
        const QString crashed = path("crashed.vrk");
        for (const char* suffix : {"", "-wal", "-shm"}) {
            QFile::remove(crashed + QLatin1String(suffix));
            QFile::copy(files.path() + QLatin1String(suffix), crashed + QLatin1String(suffix));
        }
        return crashed;
    }
    /// Like cp: into the existing file.
    void replaceContent(const QString& file, const QString& by) const
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(bytesOf(by));
    }
    static QByteArray bytesOf(const QString& file)
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

private slots:
    void initTestCase() { FaultVfs::install(); }

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
        // Reading continues in the meantime.
        MDArray* answer = waiting->select("SELECT * FROM Roles", &error);
        QVERIFY(answer);
        MDADestroy(answer);
        sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close(other);
        QVERIFY(TestStore::write(waiting.get(), "Roles", ROW_INSERT, "A"));
    }

    // The log beside the file

    void logOfAnotherFileIsRefused_data()
    {
        QTest::addColumn<bool>("byHand");
        QTest::addColumn<bool>("isOlder");
        QTest::newRow("a copy made by vrk-admin backup") << false << true;
        QTest::newRow("one made just before the first row in the log") << false << false;
        QTest::newRow("the file itself, copied while nobody worked") << true << true;
    }
    void logOfAnotherFileIsRefused()
    {
        QFETCH(bool, byHand);
        QFETCH(bool, isOlder);
        const TestStore files;
        const QString copy = path("copy.vrk");
        QFile::remove(copy);
        StoreError error;
        QVERIFY(byHand ? QFile::copy(files.path(), copy) : StoreAdmin::backup(files.url(), copy, &error));
        if (isOlder)
            QVERIFY(TestStore::write(files.openLoader().get(), "Roles", ROW_INSERT, "AFTER_COPY"));

        const QString crashed = leaveCrashed(files, "IN_LOG");
        replaceContent(crashed, copy);
        const QList<QByteArray> before{bytesOf(crashed), bytesOf(crashed + QStringLiteral("-wal"))};
        error = refusal(urlOf(crashed));
        QCOMPARE(error.code, StoreError::NotAStore);
        QCOMPARE(error.text, QString::fromUtf8(
                                 "Рядом с хранилищем «%1» лежит журнал «%1-wal» от другого файла: вместе их "
                                 "открывать нельзя. Если на место хранилища положили копию, верните её "
                                 "командой vrk-admin restore.")
                                 .arg(crashed));
        QVector<StoreAdmin::Finding> findings;
        QVERIFY(!StoreAdmin::check(urlOf(crashed), &findings, &error));
        QCOMPARE(error.code, StoreError::NotAStore);
        QCOMPARE((QList<QByteArray>{bytesOf(crashed), bytesOf(crashed + QStringLiteral("-wal"))}), before);
    }

    void ownLogIsTakenInAfterACrash_data()
    {
        QTest::addColumn<int>("failingWrite");
        for (int n = 0; n < 24; ++n)
            QTest::addRow("%d pages of the log in the file", n) << n;
    }
    void ownLogIsTakenInAfterACrash()
    {
        QFETCH(int, failingWrite);
        const TestStore files;
        QVERIFY(TestStore::write(files.openLoader().get(), "Roles", ROW_INSERT, "BEFORE"));
        const QString crashed = leaveCrashed(files, "IN_LOG", failingWrite);
        QVERIFY(SqliteWal(crashed).isFilled());
        QVERIFY(!SqliteWal(crashed).isForeign());
        StoreError error;
        Store::Options options;
        options.loader = true;
        const auto store = Store::open(urlOf(crashed), options, &error);
        QVERIFY2(store, qPrintable(error.text));
        CMDArray answer;
        answer = store->select("SELECT KeyLink FROM Roles WHERE KeyLink IN ('BEFORE', 'IN_LOG')", &error);
        QCOMPARE(answer.RecCount(), 2);
    }

    void logRemovedWhileTheProgramRunsLosesNothing_data()
    {
        QTest::addColumn<bool>("withIndex");
        QTest::newRow("the log") << false;
        QTest::newRow("the log and its index") << true;
    }
    void logRemovedWhileTheProgramRunsLosesNothing()
    {
        QFETCH(bool, withIndex);
        const TestStore files;
        const auto store = files.openLoader();
        const auto other = files.open(QStringLiteral("ivanov"));
        QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "BEFORE"));
        QVERIFY(QFile::remove(files.path() + QStringLiteral("-wal")));
        QVERIFY(!withIndex || QFile::remove(files.path() + QStringLiteral("-shm")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("was removed")));
        QVERIFY(TestStore::write(store.get(), "Roles", ROW_INSERT, "AFTER"));
        const QByteArray select = "SELECT KeyLink FROM Roles WHERE KeyLink IN ('BEFORE', 'AFTER')";
        StoreError error;
        CMDArray answer;
        answer = other->select(select, &error); // finds the other log
        QCOMPARE(answer.RecCount(), 2);
        // A crash now would leave both, too.
        const QString crashed = path("crashed.vrk");
        for (const char* suffix : {"", "-wal"}) {
            QFile::remove(crashed + QLatin1String(suffix));
            QVERIFY(QFile::copy(files.path() + QLatin1String(suffix), crashed + QLatin1String(suffix)));
        }
        const auto found = Store::open(urlOf(crashed), Store::Options(), &error);
        QVERIFY2(found, qPrintable(error.text));
        answer = found->select(select, &error);
        QCOMPARE(answer.RecCount(), 2);
    }

    void readOnlyPlaceIsViewedAndChecked_data()
    {
        QTest::addColumn<bool>("fileOpen");
        QTest::addColumn<bool>("folderOpen");
        QTest::newRow("file") << false << true;
        QTest::newRow("folder") << true << false;
        QTest::newRow("both") << false << false;
    }
    void readOnlyPlaceIsViewedAndChecked()
    {
        QFETCH(bool, fileOpen);
        QFETCH(bool, folderOpen);
        const TestStore files;
        const QString folder = QFileInfo(files.path()).path();
        QTemporaryDir elsewhere(testFolderTemplate());
        QFile::setPermissions(elsewhere.path(), QFile::Permissions(0x7777));
        QFile::setPermissions(files.path(), QFile::Permissions(fileOpen ? 0x6666 : 0x4444));
        QFile::setPermissions(folder, QFile::Permissions(folderOpen ? 0x7777 : 0x5555));
        std::unique_ptr<Store> store;
        StoreError error;
        CMDArray answer;
        const QByteArray select = "SELECT KeyLink FROM LogbookRecords";
        {
            const AsNobody nobody;
            store = Store::open(files.url(), Store::Options(), &error);
            QVERIFY2(store, qPrintable(error.text + error.detail));
            QCOMPARE(store->caution(), QString::fromUtf8("только просмотр"));
            StoreLogin user;
            QVERIFY(store->signIn(QStringLiteral("ivanov"), &user, &error));
            answer = store->select(select, &error);
            QCOMPARE(answer.RecCount(), 11);
            QVERIFY(!TestStore::write(store.get(), "LogbookComments", ROW_INSERT, "A", {}, &error));
            QCOMPARE(error.code, StoreError::ReadOnly);
            bool isWritten = true;
            QVERIFY(store->isWritten("no such batch", &isWritten, &error) && !isWritten);
            QVERIFY(store->signIn(QStringLiteral("sidorova"), &user, &error)); // an administrator
            QVERIFY(!store->writeFile(QStringLiteral("options"), QStringLiteral("A"), "1", &error));
            QCOMPARE(error.code, StoreError::ReadOnly);
            QVector<StoreAdmin::Finding> findings;
            QVERIFY2(StoreAdmin::check(files.url(), &findings, &error),
                     qPrintable(error.text + error.detail));
            QVERIFY(findings.isEmpty());
            const QString copy = elsewhere.filePath(QStringLiteral("copy.vrk"));
            QVERIFY2(StoreAdmin::backup(files.url(), copy, &error), qPrintable(error.text + error.detail));
            const QVector<StoreAdmin::Symptom> symptoms = StoreAdmin::examine(files.url());
            QCOMPARE(symptoms.size(), 1);
            QVERIFY(symptoms.constFirst().fault.contains(QString::fromUtf8("только для просмотра")));
        }
        // No file is left that would lock the writers out, and their changes are visible.
        QVERIFY(!QFile::exists(files.path() + QStringLiteral("-wal")));
        QFile::setPermissions(folder, QFile::Permissions(0x7777));
        const auto writer = files.openLoader();
        QVERIFY(TestStore::write(writer.get(), "LogbookRecords", ROW_INSERT, "NEW",
                                 {{"ShiftKey", "SHIFT_CDS_OPEN"}}, &error));
        const AsNobody nobody;
        QVERIFY(store->hasNews());
        answer = store->select(select, &error);
        QCOMPARE(answer.RecCount(), 12);
    }

    void reportsAnUnfinishedStoreInAReadOnlyPlace()
    {
        const TestStore files;
        const QString crashed = leaveCrashed(files, "IN_LOG");
        QVERIFY(QFile::remove(crashed + QStringLiteral("-shm")));
        for (const char* suffix : {"", "-wal"})
            QFile::setPermissions(crashed + QLatin1String(suffix), QFile::Permissions(0x4444));
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x5555));
        StoreError error;
        {
            const AsNobody nobody;
            error = refusal(urlOf(crashed));
        }
        QFile::setPermissions(m_folder.path(), QFile::Permissions(0x7777));
        QCOMPARE(error.code, StoreError::ReadOnly);
        QCOMPARE(error.text,
                 QString::fromUtf8(
                     "Хранилище «%1» не дописано: рядом лежит «%1-wal». Скопируйте оба файла туда, где "
                     "разрешена запись.")
                     .arg(crashed));
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

/// The program, started again as a user to whom permissions apply: opens a store, writes into it, and
/// reports the result.
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
