#include "AdminRun.h"
#include "Forger.h"
#include "HeadBook.h"
#include "TestStore.h"

#include <memory>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// Seals, exports for an outsider, and attacks by the owner of a store.
class Evidence_test : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aSealNamesSizeAndRoot();
    void aSealTiesItsWritesToTheFile();
    void aDamagedTreeIsNotContinued();
    void filesThatAreNoHeadsAreNone();
    void aSecondSealOfTheSameLogChangesNothing();
    void theKeyIsReadByItsOwnerOnly();
    void aFileWithoutAnOpenKeyIsRefused_data();
    void aFileWithoutAnOpenKeyIsRefused();
    void anotherKeyDoesNotReplaceTheFirst();
    void whileAKeyIsReplacedBothSign();
    void anExportIsProvenByTheVerifier();
    void anExportOfARecordShowsNothingElse();
    void anExportOfATimeIsProven();
    void anUnsealedLogIsNotExported();
    void anExportLeavesAFullFolderAlone();
    void attacksAreFound_data();
    void attacksAreFound();
    void aKeyOfTheAttackerIsNotTrusted();
    void rowsThatDifferFromTheLogRefuseARebuild();
    void aRestoredStoreIsNoAttack();
    void historyNamesWhoChangedWhat();
    void historyOfAnUnknownKeyFails();

private:
    QString key() const { return m_admin->path(QStringLiteral("seal.key")); }
    QString book() const { return key() + QStringLiteral(".heads"); }
    int seal(const QStringList& more = {})
    {
        return m_admin->call("seal", more + QStringList{QStringLiteral("--key"), key()});
    }
    /// A file with the last head that left the store.
    QString lastHead()
    {
        QFile file(m_admin->path(QStringLiteral("head%1.txt").arg(++m_folders)));
        if (!file.open(QIODevice::WriteOnly) || file.write(HeadBook(book()).notes().constLast()) < 0)
            qFatal("a head cannot be written");
        return file.fileName();
    }
    /// The head of the last seal as it stands on paper.
    QString paper() const { return m_admin->out.section(QStringLiteral("Опечатано: "), -1).trimmed(); }
    void write(const char* html) const
    {
        StoreError error;
        const auto store = m_store->open(QStringLiteral("ivanov"));
        QVERIFY2(TestStore::write(store.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_IVANOV",
                                  {{"html", html}}, &error),
                 qPrintable(error.text + error.detail));
    }
    /// Exports into a new folder and runs its verifier; the exit code.
    int verify(const QStringList& exportOptions, const QStringList& options)
    {
        const QString folder = m_admin->path(QStringLiteral("out%1").arg(++m_folders));
        if (m_admin->call("export-evidence", QStringList{folder} + exportOptions) != Command::Success) {
            m_said = m_admin->err;
            return -1;
        }
        m_folder = folder;
        return verifyAgain(options);
    }
    int verifyAgain(const QStringList& options)
    {
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(QStringLiteral("python3"),
                     QStringList{m_folder + QStringLiteral("/verify.py"), m_folder} + options);
        if (!python.waitForFinished(60000))
            return -2;
        m_said = QString::fromUtf8(python.readAll());
        return python.exitCode();
    }
    QString exported(const char* name) const
    {
        QFile file(m_folder + QLatin1Char('/') + QLatin1String(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    std::unique_ptr<TestStore> m_store;
    std::unique_ptr<AdminRun> m_admin;
    QString m_folder;
    QString m_said; ///< by the verifier
    int m_folders = 0;
};

void Evidence_test::init()
{
    m_store = std::make_unique<TestStore>();
    m_admin = std::make_unique<AdminRun>();
    m_admin->url = m_store->url();
    m_folders = 0;
}

void Evidence_test::aSealNamesSizeAndRoot()
{
    QCOMPARE(seal({QStringLiteral("--init"), QStringLiteral("--name"), QStringLiteral("seal-1")}), 0);
    QVERIFY(m_admin->out.contains(QStringLiteral("Проверочный ключ: seal-1+")));
    const int size = m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toInt();
    QVERIFY2(paper().contains(QRegularExpression(QStringLiteral("^%1 [0-9a-f]{16}$").arg(size))),
             qPrintable(paper()));
    const QString note = m_store->value(QStringLiteral("SELECT note FROM LogHeads")).toString();
    QVERIFY(note.startsWith(
        QStringLiteral("vrk-logbook/") +
        m_store->value(QStringLiteral("SELECT value FROM StoreProperties WHERE name = 'epoch'")).toString()));
    QCOMPARE(m_admin->call("check"), 0);
}

void Evidence_test::aSealTiesItsWritesToTheFile()
{
    if (!TestStore::isSqlite())
        QSKIP("The write-ahead log of a SQLite file.");
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QVariantList marks = m_store->rows(QStringLiteral("SELECT former, present FROM LogMark")).value(0);
    // The transaction that published the key has the mark before that of the seal.
    QCOMPARE(marks.value(0),
             m_store->value(QStringLiteral("SELECT chain FROM ChangeTransactions ORDER BY number DESC")));
    QVERIFY(marks.value(1) != marks.value(0));
}

void Evidence_test::aDamagedTreeIsNotContinued()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    write("второй вариант");
    for (const char* damage :
         {"UPDATE LogTiles SET hashes = substr(hashes, 1, 32)", "DELETE FROM LogTiles"}) {
        QCOMPARE(m_store->exec(QLatin1String(damage)), QString());
        QCOMPARE(seal(), int(Command::Failed));
        QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 1);
        QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
        // The whole export is proven without the tree, a part of it is not.
        QVERIFY2(verify({}, {}) == 0, qPrintable(m_said));
        QCOMPARE(verify({QStringLiteral("--record"), QStringLiteral("REC_ORDER")}, {}), -1);
        QVERIFY2(m_said.contains(QStringLiteral("повреждено")), qPrintable(m_said));
    }
}

void Evidence_test::filesThatAreNoHeadsAreNone()
{
    QCOMPARE(HeadBook::parse("").size(), 0);
    QCOMPARE(HeadBook::parse("text\nvrk-logbook").size(), 0);
    const QByteArray note = "vrk-logbook/A\n1\nx\n\ny\n";
    QCOMPARE(HeadBook::parse("text\n" + note + note), (QVector<QByteArray>{note, note}));
}

void Evidence_test::aSecondSealOfTheSameLogChangesNothing()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString first = paper();
    QCOMPARE(seal(), 0);
    QCOMPARE(paper(), first);
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 1);
    write("ещё раз");
    QCOMPARE(seal(), 0);
    QVERIFY(paper() != first);
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 2);
    QCOMPARE(m_admin->bytes(QStringLiteral("seal.key.heads")).count("vrk-logbook/"), 2);
}

void Evidence_test::theKeyIsReadByItsOwnerOnly()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QCOMPARE(QFile::permissions(key()) &
                 (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
             QFile::Permissions());
}

void Evidence_test::aFileWithoutAnOpenKeyIsRefused_data()
{
    QTest::addColumn<QStringList>("made"); // by openssl
    QTest::newRow("RSA") << QStringList{QStringLiteral("RSA")};
    QTest::newRow("protected by a password")
        << QStringList{QStringLiteral("ED25519"), QStringLiteral("-aes256"), QStringLiteral("-pass"),
                       QStringLiteral("pass:secret")};
}

void Evidence_test::aFileWithoutAnOpenKeyIsRefused()
{
    QFETCH(QStringList, made);
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), QStringList{QStringLiteral("genpkey"), QStringLiteral("-out"),
                                                         key(), QStringLiteral("-algorithm")} +
                                                 made);
    QVERIFY(openssl.waitForFinished(60000) && openssl.exitCode() == 0);
    QCOMPARE(seal(), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("нет ключа Ed25519")), qPrintable(m_admin->err));
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 0);
}

void Evidence_test::anotherKeyDoesNotReplaceTheFirst()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QByteArray before = m_admin->bytes(QStringLiteral("seal.key"));
    QCOMPARE(seal({QStringLiteral("--init")}), int(Command::Failed));
    QCOMPARE(m_admin->bytes(QStringLiteral("seal.key")), before);
    QFile::remove(key());
    QCOMPARE(seal(), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("--init")), qPrintable(m_admin->err));
}

void Evidence_test::whileAKeyIsReplacedBothSign()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString former =
        m_admin->out.section(QStringLiteral("Проверочный ключ: "), 1).section(QLatin1Char('\n'), 0, 0);
    QCOMPARE(seal({QStringLiteral("--rotate")}), 0);
    const QString present =
        m_admin->out.section(QStringLiteral("Проверочный ключ: "), 1).section(QLatin1Char('\n'), 0, 0);
    QVERIFY(former != present);
    for (const QString& trusted : {former, present})
        QCOMPARE(verify({}, {QStringLiteral("--key"), trusted}), 0);
    QCOMPARE(seal({QStringLiteral("--rotate")}), int(Command::Failed));
    QVERIFY(QFile::remove(key() + QStringLiteral(".former")));
    write("после замены ключа");
    QCOMPARE(seal(), 0);
    QCOMPARE(verify({}, {QStringLiteral("--key"), present}), 0);
    QCOMPARE(verify({}, {QStringLiteral("--key"), former}), 1);
}

void Evidence_test::anExportIsProvenByTheVerifier()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString first = paper();
    write("второй вариант");
    QCOMPARE(seal(), 0);
    const QString second = paper();
    write("не опечатано");
    QCOMPARE(verify({}, {QStringLiteral("--paper"), first, QStringLiteral("--head"), lastHead()}), 0);
    QVERIFY2(m_said.startsWith(
                 QStringLiteral("OK up to %1, head %2, signed by seal-")
                     .arg(second.section(QLatin1Char(' '), 0, 0), second.section(QLatin1Char(' '), 1))),
             qPrintable(m_said));
    // One letter of the export changed: the line is named.
    QFile log(m_folder + QStringLiteral("/log.jsonl"));
    QVERIFY(log.open(QIODevice::ReadWrite));
    QByteArray lines = log.readAll();
    QVERIFY(lines.contains("второй вариант"));
    lines.replace("второй вариант", "третий вариант");
    log.seek(0);
    log.write(lines);
    log.close();
    QCOMPARE(verifyAgain({}), 1);
    const QString number =
        m_store
            ->value(
                QStringLiteral("SELECT number FROM ChangeLog WHERE newRow LIKE '%второй вариант%' LIMIT 1"))
            .toString();
    QVERIFY2(m_said.contains(number), qPrintable(m_said));
}

void Evidence_test::anExportOfARecordShowsNothingElse()
{
    // A record of somebody else in the same transaction, which leaves another one without rows.
    Forger(*m_store).forge(
        QStringLiteral("UPDATE ChangeLog SET number = (SELECT min(number) FROM ChangeLog WHERE rowKey = "
                       "'REC_DRAFT_IVANOV') WHERE rowKey = 'REC_ORDER'"),
        false);
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    write("второй вариант");
    QCOMPARE(seal(), 0);
    QCOMPARE(verify({QStringLiteral("--record"), QStringLiteral("REC_DRAFT_IVANOV")},
                    {QStringLiteral("--head"), lastHead()}),
             0);
    const QString log = exported("log.jsonl");
    QVERIFY(log.contains(QStringLiteral("REC_DRAFT_IVANOV")));
    QVERIFY(log.contains(QStringLiteral("второй вариант")));
    for (const char* foreign : {"REC_ORDER", "WORKER_SIDOROVA", "Departments"})
        QVERIFY2(!log.contains(QLatin1String(foreign)), foreign);
}

void Evidence_test::anExportOfATimeIsProven()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QCOMPARE(verify({QStringLiteral("--from"), QStringLiteral("1.1.2100 0:00")}, {}), 0);
    QVERIFY(!exported("log.jsonl").contains(QStringLiteral("REC_ORDER")));
    QCOMPARE(verify({QStringLiteral("--from"), QStringLiteral("1.1.2020 0:00")}, {}), 0);
    QVERIFY(exported("log.jsonl").contains(QStringLiteral("REC_ORDER")));
    QCOMPARE(verify({QStringLiteral("--from"), QStringLiteral("вчера")}, {}), -1);
    QVERIFY(m_said.contains(QStringLiteral("дд.ММ.гггг")));
}

void Evidence_test::anUnsealedLogIsNotExported()
{
    QCOMPARE(verify({}, {}), -1);
    QVERIFY(m_said.contains(QStringLiteral("vrk-admin seal")));
}

void Evidence_test::anExportLeavesAFullFolderAlone()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString folder = m_admin->folder.path();
    QCOMPARE(int(m_admin->call("export-evidence", {folder})), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("новой или пустой")));
    QVERIFY(!QFile::exists(folder + QStringLiteral("/log.jsonl")));
    QVERIFY(!QFile::exists(folder + QStringLiteral("/heads")));
}

void Evidence_test::attacksAreFound_data()
{
    QTest::addColumn<QString>("sql");
    const auto add = [](const char* name, const char* sql) { QTest::newRow(name) << QString::fromUtf8(sql); };
    add("a text rewritten",
        "UPDATE ChangeLog SET newRow = replace(newRow, 'второй вариант', 'третий вариант');"
        "UPDATE LogbookRecords SET html = 'третий вариант' WHERE KeyLink = 'REC_DRAFT_IVANOV'");
    add("an old value rewritten",
        "UPDATE ChangeLog SET oldRow = replace(oldRow, 'второй вариант', 'третий вариант')");
    add("null for an empty text", "UPDATE ChangeLog SET newRow = replace(newRow, 'null', '\"\"')"
                                  " WHERE entry = (SELECT max(entry) FROM ChangeLog)");
    add("another author", "UPDATE ChangeTransactions SET login = 'petrov' WHERE login = 'ivanov'");
    add("another time", "UPDATE ChangeTransactions SET time = time + 60 WHERE login = 'ivanov'");
    add("another role", "UPDATE ChangeTransactions SET loader = 1 WHERE login = 'ivanov'");
    add("the tail cut",
        "DELETE FROM ChangeLog WHERE number > (SELECT max(number) - 2 FROM ChangeTransactions);"
        "DELETE FROM ChangeTransactions WHERE number > (SELECT max(number) - 2 FROM ChangeTransactions)");
    add("a transaction taken out",
        "DELETE FROM ChangeLog WHERE number = 2; DELETE FROM ChangeTransactions WHERE number = 2;"
        "UPDATE ChangeLog SET number = -(number - 1) WHERE number > 2;"
        "UPDATE ChangeLog SET number = -number WHERE number < 0;"
        "UPDATE ChangeTransactions SET number = -(number - 1) WHERE number > 2;"
        "UPDATE ChangeTransactions SET number = -number WHERE number < 0");
    add("two transactions swapped",
        "UPDATE ChangeLog SET number = CASE number WHEN 2 THEN 3 ELSE 2 END WHERE number IN (2, 3);"
        "UPDATE ChangeTransactions SET number = -number WHERE number IN (2, 3);"
        "UPDATE ChangeTransactions SET number = CASE number WHEN -2 THEN 3 ELSE 2 END WHERE number < 0");
    add("a row put in", "INSERT INTO ChangeLog (number, tableName, rowKey, event, newRow) VALUES (2, "
                        "'Roles', 'X', 601, '[\"X\"]')");
}

void Evidence_test::attacksAreFound()
{
    QFETCH(QString, sql);
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    write("второй вариант");
    write("последний вариант");
    QCOMPARE(seal(), 0);
    const QString head = paper();
    const QStringList withPaper{QStringLiteral("--paper"), head};
    const QStringList withBook{QStringLiteral("--heads"), book()};
    QCOMPARE(m_admin->call("check", withPaper + withBook), 0);

    // The tree of the store still is that of the true log.
    Forger(*m_store).forge(sql, false);
    m_admin->call("check", {QStringLiteral("--rebuild-search")});
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
    QVERIFY2(m_admin->out.contains(QRegularExpression(QStringLiteral("после печати|обрезан"))),
             qPrintable(m_admin->out));
    QVERIFY2(verify({}, {}) != 0, qPrintable(m_said));
    // Everything in the store agrees with the forged log, but for the heads, which nobody else can sign.
    Forger(*m_store).forge(QStringLiteral("SELECT 1"), true);
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
    QVERIFY2(m_admin->out.contains(QRegularExpression(QStringLiteral("переписан|обрезан"))),
             qPrintable(m_admin->out));
    QCOMPARE(seal(), int(Command::Failed));
    QVERIFY2(verify({}, withPaper) != 0, qPrintable(m_said));
    // The attacker also removes every head that the store remembers.
    m_store->exec(QStringLiteral("DELETE FROM LogHeads"));
    QCOMPARE(int(m_admin->call("check", withBook)), int(Command::FaultsFound));
    QCOMPARE(int(m_admin->call("check", withPaper)), int(Command::FaultsFound));
    QCOMPARE(seal(), int(Command::Failed));
}

void Evidence_test::aKeyOfTheAttackerIsNotTrusted()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString trusted =
        m_admin->out.section(QStringLiteral("Проверочный ключ: "), 1).section(QLatin1Char('\n'), 0, 0);
    write("второй вариант");
    QCOMPARE(seal(), 0);
    const QString head = paper();
    Forger(*m_store).forge(
        QStringLiteral("UPDATE ChangeLog SET newRow = replace(newRow, 'второй', 'третий');"
                       "UPDATE ChangeLog SET newRow = replace(newRow, 'evidence', 'former')"
                       " WHERE tableName = 'StoreFiles';"
                       "DELETE FROM StoreFiles; DELETE FROM LogHeads"),
        true);
    const QStringList own{QStringLiteral("--init"), QStringLiteral("--key"),
                          m_admin->path(QStringLiteral("own.key"))};
    QCOMPARE(int(m_admin->call("seal", own)), 0);
    // Alone everything agrees; who knows the key or a head does not believe it.
    QCOMPARE(verify({}, {}), 0);
    QVERIFY(m_said.contains(QStringLiteral("keys came with the export")));
    QCOMPARE(verifyAgain({QStringLiteral("--key"), trusted}), 1);
    QCOMPARE(verifyAgain({QStringLiteral("--paper"), head}), 1);
    QCOMPARE(int(m_admin->call("check", {QStringLiteral("--heads"), book()})), int(Command::FaultsFound));
    QCOMPARE(int(m_admin->call("check", {QStringLiteral("--paper"), head})), int(Command::FaultsFound));
}

void Evidence_test::rowsThatDifferFromTheLogRefuseARebuild()
{
    Forger(*m_store).forge(
        QStringLiteral("UPDATE LogbookRecords SET html = 'чужой текст' WHERE KeyLink = 'REC_ORDER'"), false);
    QCOMPARE(int(m_admin->call("check", {QStringLiteral("--rebuild-search")})), int(Command::Failed));
    QVERIFY2(m_admin->err.contains(QStringLiteral("REC_ORDER")), qPrintable(m_admin->err));
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
    QVERIFY(m_admin->out.contains(QStringLiteral("--rebuild-search")));
}

void Evidence_test::aRestoredStoreIsNoAttack()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString copy = m_admin->path(QStringLiteral("copy"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    write("после копии");
    QCOMPARE(seal(), 0);
    const QString lost = lastHead();
    const QStringList withBook{QStringLiteral("--heads"), book()};
    if (TestStore::isSqlite()) {
        QCOMPARE(int(m_admin->call("restore", {copy})), 0);
    } else {
        m_admin->url = QString(m_store->url())
                           .replace(QRegularExpression(QStringLiteral("/(\\w+)(\\?|$)")),
                                    QStringLiteral("/restored_evidence\\2"));
        QVERIFY(m_admin->url != m_store->url());
        QVERIFY2(m_admin->call("restore", {copy}) == 0, qPrintable(m_admin->err));
    }
    QCOMPARE(int(m_admin->call("check", withBook)), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("до возврата копии")), qPrintable(m_admin->out));
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QCOMPARE(verify({}, {QStringLiteral("--head"), lost}), 0);
    QVERIFY2(m_said.contains(QStringLiteral("restored as transaction")), qPrintable(m_said));
}

void Evidence_test::historyNamesWhoChangedWhat()
{
    write("второй вариант");
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_DRAFT_IVANOV")})), 0);
    const QStringList lines = m_admin->out.split(QLatin1Char('\n'));
    QCOMPARE(lines.filter(QStringLiteral("транзакция")).size(), 2);
    QCOMPARE(lines.filter(QStringLiteral("LogbookRecords: внесена")).size(), 1);
    QCOMPARE(lines.filter(QStringLiteral("LogbookRecords: изменена")).size(), 1);
    QVERIFY2(lines.filter(QStringLiteral("ivanov")).value(0).contains(QStringLiteral("Иванов")),
             qPrintable(m_admin->out));
    QVERIFY2(lines.filter(QStringLiteral("html: ")).value(1).endsWith(QStringLiteral(" -> второй вариант")),
             qPrintable(m_admin->out));
}

void Evidence_test::historyOfAnUnknownKeyFails()
{
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("NOBODY")})), int(Command::Failed));
    QVERIFY(m_admin->err.contains(QStringLiteral("NOBODY")));
    QCOMPARE(int(m_admin->call("history")), int(Command::WrongUsage));
}

QTEST_GUILESS_MAIN(Evidence_test)
#include "Evidence_test.moc"
