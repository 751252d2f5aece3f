#include "CMDArray.h"
#include "Command.h"

#include "Store.h"
#include "StoreAdmin.h"

#include <memory>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

/// vrk-admin, called as from a shell, with its streams replaced.
class Admin_test : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void helpListsTheCommands();
    void everyCommandTellsItsUsage();
    void anUnknownCommandIsRefused();
    void wrongArgumentsShowTheUsage_data();
    void wrongArgumentsShowTheUsage();
    void initMakesAStoreOnce();
    void initTakesCodePageAndTimeZone();
    void initRefusesCodePagesThatItDoesNotOffer();
    void reportsTheVersion();
    void loginsAreOneWord();
    void demoLaysDownTheEarlierJournalToo();
    void demoTellsTheStoryOfHoursAgo();
    void aFreshStoreIsClean();
    void aDamagedStoreIsFoundOut();
    void rebuildsTheSearchIndex();
    void aStoreOfThisVersionNeedsNoUpgrade();
    void aBackupIsAStoreOfItsOwn();
    void loginsAreAddedListedAndRemoved();
    void rightsAreGivenAndTaken();
    void anUnknownRightIsRefused();
    void filesAreStoredAndFetched();
    void namesAMissingStore();
    void reportsAMissingInputFile();

private:
    Command::ExitCode run(const QStringList& arguments);
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_url;
    QString m_out;
    QString m_err;
};

void Admin_test::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_url = QStringLiteral("sqlite://") + path("store.sqlite");
}

Command::ExitCode Admin_test::run(const QStringList& arguments)
{
    m_out.clear();
    m_err.clear();
    QTextStream out(&m_out);
    QTextStream err(&m_err);
    Streams streams{out, err};
    return runAdmin(arguments, streams);
}

void Admin_test::helpListsTheCommands()
{
    QCOMPARE(run({QStringLiteral("--help")}), Command::Success);
    for (const QString& command : adminCommands())
        QVERIFY2(m_out.contains(command + QLatin1Char(' ')), qPrintable(command));
    QCOMPARE(run({}), Command::WrongUsage);
    QVERIFY(m_out.isEmpty());
    QVERIFY(m_err.contains(QStringLiteral("Команды:")));
}

void Admin_test::everyCommandTellsItsUsage()
{
    for (const QString& command : adminCommands()) {
        QCOMPARE(run({command, QStringLiteral("--help")}), Command::Success);
        QVERIFY2(m_out.startsWith(QStringLiteral("vrk-admin ") + command), qPrintable(command));
    }
}

void Admin_test::anUnknownCommandIsRefused()
{
    QCOMPARE(run({QStringLiteral("destroy")}), Command::WrongUsage);
    QVERIFY(m_err.contains(QStringLiteral("Нет команды «destroy».")));
}

void Admin_test::wrongArgumentsShowTheUsage_data()
{
    QTest::addColumn<QString>("line");
    for (const char* line : {"init",
                             "init --codec",
                             "init URL extra",
                             "demo",
                             "demo URL --count 3",
                             "demo URL --live --count many",
                             "demo URL --old-templates 5",
                             "demo URL --old --live",
                             "demo URL --live --ago 5",
                             "demo URL --ago -5",
                             "demo URL --ago",
                             "demo URL --old --old-templates many",
                             "check",
                             "check URL extra",
                             "backup URL",
                             "restore URL",
                             "restore URL FILE extra",
                             "upgrade",
                             "upgrade URL --backup",
                             "upgrade URL --no-backup --backup FILE",
                             "user",
                             "user URL",
                             "user URL add LOGIN",
                             "user URL rename A B",
                             "right URL list",
                             "right URL give LOGIN ADMINISTRATOR",
                             "import URL",
                             "import URL DIR extra",
                             "import --dry-run URL",
                             "export URL",
                             "export URL DIR extra",
                             "file URL",
                             "file URL put options",
                             "file URL move a b c",
                             "option URL",
                             "option URL set",
                             "option URL list extra"})
        QTest::newRow(line) << QString::fromLatin1(line);
}

void Admin_test::wrongArgumentsShowTheUsage()
{
    QFETCH(QString, line);
    const QStringList arguments = line.split(QLatin1Char(' '));
    QCOMPARE(run(arguments), Command::WrongUsage);
    QVERIFY(m_err.contains(QStringLiteral("vrk-admin ") + arguments.constFirst()));
    QVERIFY(m_out.isEmpty());
}

void Admin_test::initMakesAStoreOnce()
{
    QCOMPARE(run({QStringLiteral("init"), m_url}), Command::Success);
    QVERIFY(QFile::exists(path("store.sqlite")));
    QFile file(path("store.sqlite"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();

    QCOMPARE(run({QStringLiteral("init"), m_url}), Command::Failed);
    QVERIFY(m_err.contains(QStringLiteral("store.sqlite")));
    file.seek(0);
    QCOMPARE(file.readAll(), before);
}

void Admin_test::initTakesCodePageAndTimeZone()
{
    QCOMPARE(run({QStringLiteral("init"), m_url, QStringLiteral("--codec"), QStringLiteral("UTF-8"),
                  QStringLiteral("--time-zone"), QStringLiteral("Asia/Yekaterinburg")}),
             Command::Success);
    StoreError error;
    const auto store = Store::open(m_url, {}, &error);
    QVERIFY2(store, qPrintable(error.text));
    QCOMPARE(store->timeZone(), QByteArray("Asia/Yekaterinburg"));

    const QString other = QStringLiteral("sqlite://") + path("other.sqlite");
    QCOMPARE(
        run({QStringLiteral("init"), other, QStringLiteral("--time-zone"), QStringLiteral("Nowhere/Land")}),
        Command::Failed);
    QVERIFY(!QFile::exists(path("other.sqlite")));
}

void Admin_test::initRefusesCodePagesThatItDoesNotOffer()
{
    for (const char* name : {"KOI8-R", "ISO-8859-1", "UTF-16", "nonsense"}) {
        QCOMPARE(run({QStringLiteral("init"), m_url, QStringLiteral("--codec"), QLatin1String(name)}),
                 Command::Failed);
        QCOMPARE(m_err, QStringLiteral("Кодовой страницы «%1» нет: есть Windows-1251 и UTF-8.\n")
                            .arg(QLatin1String(name)));
        QVERIFY(!QFile::exists(path("store.sqlite")));
    }
    QCOMPARE(run({QStringLiteral("init"), m_url, QStringLiteral("--codec"), QStringLiteral("windows-1251")}),
             Command::Success);
    StoreError error;
    QCOMPARE(Store::open(m_url, {}, &error)->codec()->name(), QByteArray("windows-1251"));
}

void Admin_test::reportsTheVersion()
{
    QCOMPARE(run({QStringLiteral("--version")}), Command::Success);
    QCOMPARE(m_out,
             QStringLiteral("vrk-admin 2.1.0, версия хранилища %1\n").arg(StoreAdmin::schemaVersion()));
}

void Admin_test::loginsAreOneWord()
{
    QCOMPARE(run({QStringLiteral("init"), m_url}), Command::Success);
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("ivan petrov"),
                  QStringLiteral("Петров Иван")}),
             Command::Failed);
    QCOMPARE(m_err, QStringLiteral("В имени для входа «ivan petrov» есть пробел: его пишут одним словом.\n"));
}

void Admin_test::demoLaysDownTheEarlierJournalToo()
{
    QCOMPARE(run({QStringLiteral("demo"), m_url, QStringLiteral("--old")}), Command::Success);
    QCOMPARE(m_out, QStringLiteral("Демонстрационный журнал записан.\nТаблицы прежнего журнала записаны.\n"));
    const auto templates = [this] {
        StoreError error;
        Store::Options options;
        options.loader = true;
        const auto store = Store::open(m_url, options, &error);
        CMDArray answer;
        answer = store->select("SELECT KeyLink FROM OperLogTemplates", &error);
        return answer.RecCount();
    };
    QCOMPARE(templates(), 400);
    QCOMPARE(run({QStringLiteral("demo"), m_url, QStringLiteral("--old"), QStringLiteral("--old-templates"),
                  QStringLiteral("30")}),
             Command::Success);
    QCOMPARE(m_out,
             QStringLiteral("Демонстрационный журнал на месте.\nТаблицы прежнего журнала записаны.\n"));
    QCOMPARE(templates(), 30);
}

void Admin_test::demoTellsTheStoryOfHoursAgo()
{
    QCOMPARE(run({QStringLiteral("demo"), m_url, QStringLiteral("--ago"), QStringLiteral("14")}),
             Command::Success);
    StoreError error;
    const auto store = Store::open(m_url, {}, &error);
    CMDArray answer;
    answer = store->select(QStringLiteral("SELECT * FROM LogbookWorkshifts WHERE (CloseWorkerKey IS NULL OR "
                                          "CloseWorkerKey='') AND endTime > %1")
                               .arg(store->serverTime(), 0, 'f', 0)
                               .toUtf8(),
                           &error);
    QCOMPARE(answer.RecCount(), 0); // every open shift is overdue
    answer = store->select(
        "SELECT * FROM LogbookWorkshifts WHERE CloseWorkerKey IS NULL OR CloseWorkerKey=''", &error);
    QVERIFY(answer.RecCount() > 0);
    QCOMPARE(run({QStringLiteral("check"), m_url}), Command::Success);
}

void Admin_test::aFreshStoreIsClean()
{
    run({QStringLiteral("init"), m_url});
    QCOMPARE(run({QStringLiteral("check"), m_url}), Command::Success);
    QVERIFY(m_out.contains(QStringLiteral("Хранилище в порядке.")));
}

void Admin_test::aDamagedStoreIsFoundOut()
{
    run({QStringLiteral("init"), m_url});
    run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
         QStringLiteral("Петров")});
    QFile file(path("store.sqlite"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.size() > 3 * 4096);
    file.seek(4096);
    file.write(QByteArray(2 * 4096, '\x5A'));
    file.close();
    const Command::ExitCode code = run({QStringLiteral("check"), m_url});
    QVERIFY(code == Command::FaultsFound || code == Command::Failed);
    QVERIFY(!m_err.isEmpty() || m_out.contains(QStringLiteral("Ошибка: ")));
}

void Admin_test::rebuildsTheSearchIndex()
{
    run({QStringLiteral("demo"), m_url});
    QCOMPARE(run({QStringLiteral("check"), m_url, QStringLiteral("--rebuild-search")}), Command::Success);
    QVERIFY(m_out.contains(QStringLiteral("Указатель поиска составлен заново.")));
    QVERIFY(m_out.contains(QStringLiteral("Хранилище в порядке.")));
    QCOMPARE(
        run({QStringLiteral("check"), m_url, QStringLiteral("--rebuild-search"), QStringLiteral("--ready")}),
        Command::WrongUsage);
}

void Admin_test::aStoreOfThisVersionNeedsNoUpgrade()
{
    run({QStringLiteral("init"), m_url});
    QCOMPARE(run({QStringLiteral("upgrade"), m_url}), Command::Success);
    QCOMPARE(m_out,
             QStringLiteral("Хранилище уже версии %1, обновлять нечего.\n").arg(StoreAdmin::schemaVersion()));
    // Rules that this program does not have, as after a change without a new version.
    QProcess::execute(QStringLiteral("sqlite3"),
                      {path("store.sqlite"), QStringLiteral("DROP TRIGGER Rule_Records_visa")});
    QCOMPARE(run({QStringLiteral("upgrade"), m_url}), Command::FaultsFound);
    QCOMPARE(m_out,
             QStringLiteral("Ошибка: В схеме хранилища недостаёт «trigger Rule_Records_visa».\nНайдено "
                            "ошибок: 1\n"));
    QCOMPARE(run({QStringLiteral("upgrade")}), Command::WrongUsage);
    QCOMPARE(run({QStringLiteral("upgrade"), m_url + QStringLiteral("x")}), Command::Failed);
}

void Admin_test::aBackupIsAStoreOfItsOwn()
{
    run({QStringLiteral("init"), m_url});
    run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
         QStringLiteral("Петров")});
    QCOMPARE(run({QStringLiteral("backup"), m_url, path("copy.sqlite")}), Command::Success);
    QCOMPARE(run({QStringLiteral("user"), QStringLiteral("sqlite://") + path("copy.sqlite"),
                  QStringLiteral("list")}),
             Command::Success);
    QVERIFY(m_out.contains(QStringLiteral("petrov\tПетров")));
    QCOMPARE(run({QStringLiteral("backup"), m_url, path("copy.sqlite")}), Command::Failed);
    QVERIFY(m_err.contains(QStringLiteral("copy.sqlite")));
}

void Admin_test::loginsAreAddedListedAndRemoved()
{
    run({QStringLiteral("init"), m_url});
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
                  QStringLiteral("Петров П. П.")}),
             Command::Success);
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
                  QStringLiteral("Другой")}),
             Command::Failed);
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("list")}), Command::Success);
    QCOMPARE(m_out, QStringLiteral("petrov\tПетров П. П.\n"));
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("remove"), QStringLiteral("petrov")}),
             Command::Success);
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("remove"), QStringLiteral("petrov")}),
             Command::Failed);
    QCOMPARE(run({QStringLiteral("user"), m_url, QStringLiteral("list")}), Command::Success);
    QVERIFY(m_out.isEmpty());
}

void Admin_test::rightsAreGivenAndTaken()
{
    run({QStringLiteral("init"), m_url});
    run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
         QStringLiteral("Петров")});
    const auto right = [this](const char* verb) {
        return run({QStringLiteral("right"), m_url, QLatin1String(verb), QStringLiteral("petrov"),
                    QStringLiteral("ADMINISTRATOR")});
    };
    QCOMPARE(right("grant"), Command::Success);
    QCOMPARE(right("grant"), Command::Success); // granted already
    QCOMPARE(run({QStringLiteral("right"), m_url, QStringLiteral("list"), QStringLiteral("petrov")}),
             Command::Success);
    QCOMPARE(m_out, QStringLiteral("ADMINISTRATOR\n"));
    QCOMPARE(right("revoke"), Command::Success);
    QCOMPARE(run({QStringLiteral("right"), m_url, QStringLiteral("list"), QStringLiteral("petrov")}),
             Command::Success);
    QVERIFY(m_out.isEmpty());
    QCOMPARE(run({QStringLiteral("right"), m_url, QStringLiteral("list"), QStringLiteral("nobody")}),
             Command::Failed);
}

void Admin_test::anUnknownRightIsRefused()
{
    run({QStringLiteral("init"), m_url});
    run({QStringLiteral("user"), m_url, QStringLiteral("add"), QStringLiteral("petrov"),
         QStringLiteral("Петров")});
    QCOMPARE(run({QStringLiteral("right"), m_url, QStringLiteral("grant"), QStringLiteral("petrov"),
                  QStringLiteral("EVERYTHING")}),
             Command::WrongUsage);
    QVERIFY(m_err.contains(QStringLiteral("Нет права «EVERYTHING».")));
}

void Admin_test::filesAreStoredAndFetched()
{
    run({QStringLiteral("init"), m_url});
    const QByteArray content("<Options CheckLengthShift=\"1\"/>\0\xFF", 33);
    QFile in(path("in.xml"));
    QVERIFY(in.open(QIODevice::WriteOnly));
    in.write(content);
    in.close();
    const QStringList name{QStringLiteral("options"), QStringLiteral("OperLogOptions")};
    QCOMPARE(run(QStringList{QStringLiteral("file"), m_url, QStringLiteral("put")} + name +
                 QStringList{path("in.xml")}),
             Command::Success);
    QCOMPARE(run({QStringLiteral("file"), m_url, QStringLiteral("list")}), Command::Success);
    QVERIFY(m_out.contains(QStringLiteral("OperLogOptions")));
    QCOMPARE(run(QStringList{QStringLiteral("file"), m_url, QStringLiteral("get")} + name +
                 QStringList{path("out.xml")}),
             Command::Success);
    QFile out(path("out.xml"));
    QVERIFY(out.open(QIODevice::ReadOnly));
    QCOMPARE(out.readAll(), content);
    QCOMPARE(run(QStringList{QStringLiteral("file"), m_url, QStringLiteral("remove")} + name),
             Command::Success);
    QCOMPARE(run(QStringList{QStringLiteral("file"), m_url, QStringLiteral("get")} + name +
                 QStringList{path("none.xml")}),
             Command::Failed);
    QVERIFY(!QFile::exists(path("none.xml")));
}

void Admin_test::namesAMissingStore()
{
    for (const QStringList& rest :
         {QStringList{}, QStringList{QStringLiteral("list")}, QStringList{path("copy.sqlite")}}) {
        const QString command = rest.isEmpty()                               ? QStringLiteral("check")
                                : rest.constFirst() == QLatin1String("list") ? QStringLiteral("user")
                                                                             : QStringLiteral("backup");
        QCOMPARE(run(QStringList{command, m_url} + rest), Command::Failed);
        QVERIFY2(m_err.contains(QStringLiteral("store.sqlite")), qPrintable(command + m_err));
        QVERIFY(!QFile::exists(path("store.sqlite")));
    }
}

void Admin_test::reportsAMissingInputFile()
{
    run({QStringLiteral("init"), m_url});
    QCOMPARE(run({QStringLiteral("file"), m_url, QStringLiteral("put"), QStringLiteral("options"),
                  QStringLiteral("x"), path("none.xml")}),
             Command::Failed);
    QVERIFY(m_err.contains(QStringLiteral("none.xml")));
}

QTEST_GUILESS_MAIN(Admin_test)
#include "Admin_test.moc"
