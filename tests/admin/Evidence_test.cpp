#include "EvidenceBench.h"
#include "Forger.h"

/// Seals, exports for an outsider, and attacks by the owner of a store.
class Evidence_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void aSealNamesSizeAndRoot();
    void aSealTiesItsWritesToTheFile();
    void aDamagedTreeIsNotContinued();
    void aDamagedUpperTileIsFound();
    void filesThatAreNoHeadsAreNone();
    void aStoredHeadCountsForItsOwnSizeOnly();
    void aKeyThatIsNotPublishedIsTakenBack();
    void textsDoNotControlTheTerminal();
    void aPartOfTheLogProvesTheHeadsAskedFor();
    void aSecondSealOfTheSameLogChangesNothing();
    void theKeyIsReadByItsOwnerOnly();
    void aFileWithoutAnOpenKeyIsRefused_data();
    void aFileWithoutAnOpenKeyIsRefused();
    void anotherKeyDoesNotReplaceTheFirst();
    void whileAKeyIsReplacedBothSign();
    void credentialsOfAServiceHaveBothKeys();
    void aClosedShiftIsSealed();
    void aBackupLeavesItsHeadBeside();
    void anExportIsProvenByTheVerifier();
    void anExportOfARecordShowsNothingElse();
    void anExportOfATimeIsProven();
    void anUnsealedLogIsNotExported();
    void anExportLeavesAFullFolderAlone();
    void attacksAreFound_data();
    void attacksAreFound();
    void aKeyOfTheAttackerIsNotTrusted();
    void rowsThatDifferFromTheLogRefuseARebuild();
    void anAccountOfItsOwnSeals();
    void aPersonDoesNotSeal();
};

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

void Evidence_test::aDamagedUpperTileIsFound()
{
    const auto store = m_store->openLoader();
    while (m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toInt() < 260)
        for (int i = 0; i < 40; ++i)
            QVERIFY(TestStore::write(store.get(), "Roles", ROW_UPDATE, "ROLE_ZAR",
                                     {{"name_", QString::number(i)}}));
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogTiles WHERE level = 1")).toInt(), 1);
    QCOMPARE(int(m_admin->call("check")), 0);
    QCOMPARE(m_store->exec(QStringLiteral(
                 "UPDATE LogTiles SET hashes = (SELECT substr(T.hashes, 33, 32) FROM LogTiles AS T"
                 " WHERE T.level = 0 AND T.place = 0) WHERE level = 1")),
             QString());
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
}

void Evidence_test::filesThatAreNoHeadsAreNone()
{
    QCOMPARE(HeadBook::parse("").size(), 0);
    QCOMPARE(HeadBook::parse("text\nvrk-logbook").size(), 0);
    const QByteArray note = "vrk-logbook/A\n1\nx\n\ny\n";
    QCOMPARE(HeadBook::parse("text\n" + note + note), (QVector<QByteArray>{note, note}));
}

void Evidence_test::aStoredHeadCountsForItsOwnSizeOnly()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    write("второй вариант");
    const int end = m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")).toInt();
    // The owner of the database stores the old head as that of the whole log.
    QCOMPARE(m_store->exec(QStringLiteral("INSERT INTO LogHeads SELECT %1, note FROM LogHeads").arg(end)),
             QString());
    QCOMPARE(seal(), 0);
    QVERIFY2(paper().startsWith(QStringLiteral("%1 ").arg(end)), qPrintable(paper()));
    const QString note =
        m_store->value(QStringLiteral("SELECT note FROM LogHeads WHERE size = %1").arg(end)).toString();
    QCOMPARE(note.section(QLatin1Char('\n'), 1, 1), QString::number(end));
    QCOMPARE(verify({}, {QStringLiteral("--head"), lastHead()}), 0);
}

void Evidence_test::aKeyThatIsNotPublishedIsTakenBack()
{
    QCOMPARE(m_store->refuse(QStringLiteral("INSERT"), QStringLiteral("StoreFiles")), QString());
    QCOMPARE(seal({QStringLiteral("--init")}), int(Command::Failed));
    QVERIFY(!QFile::exists(key()));
    QCOMPARE(m_store->permit(QStringLiteral("INSERT"), QStringLiteral("StoreFiles")), QString());
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QByteArray first = m_admin->bytes(QStringLiteral("seal.key"));
    QCOMPARE(m_store->refuse(QStringLiteral("UPDATE"), QStringLiteral("StoreFiles")), QString());
    QCOMPARE(seal({QStringLiteral("--rotate")}), int(Command::Failed));
    QCOMPARE(m_admin->bytes(QStringLiteral("seal.key")), first);
    QVERIFY(!QFile::exists(key() + QStringLiteral(".former")));
}

void Evidence_test::textsDoNotControlTheTerminal()
{
    write("красное\x1b[31m\nстрока задом");
    // The code page has no such character; the owner of the database can write it all the same.
    Forger(*m_store).forge(
        QString::fromUtf8("UPDATE ChangeLog SET newRow = replace(newRow, 'задом', '\u202Eзадом')"), true);
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_DRAFT_IVANOV")})), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("красное\\u001b[31m\\nстрока")), qPrintable(m_admin->out));
    QVERIFY(!m_admin->out.contains(QChar(0x1b)));
    QVERIFY2(m_admin->out.contains(QStringLiteral("\\u202eзадом")), qPrintable(m_admin->out));
    QVERIFY(!m_admin->out.contains(QChar(0x202e)));
    QCOMPARE(m_store->exec(QStringLiteral("INSERT INTO LogHeads VALUES (1, 'vrk-logbook/\x1b[2J\n')")),
             QString());
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
    QVERIFY(!m_admin->out.contains(QChar(0x1b)));
}

void Evidence_test::aPartOfTheLogProvesTheHeadsAskedFor()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString older = lastHead();
    write("второй вариант");
    QCOMPARE(seal(), 0);
    const QStringList part{QStringLiteral("--record"), QStringLiteral("REC_DRAFT_IVANOV")};
    QCOMPARE(verify(part, {QStringLiteral("--head"), older}), 1);
    QCOMPARE(verify(part + QStringList{QStringLiteral("--heads"), older}, {QStringLiteral("--head"), older}),
             0);
    QCOMPARE(verify(part + QStringList{QStringLiteral("--heads"), m_admin->path(QStringLiteral("none"))}, {}),
             -1);
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

void Evidence_test::credentialsOfAServiceHaveBothKeys()
{
    QCOMPARE(seal({QStringLiteral("--init"), QStringLiteral("--name"), QStringLiteral("seal-1")}), 0);
    QCOMPARE(seal({QStringLiteral("--rotate")}), 0);
    // As systemd presents a folder.
    const QString credentials = m_admin->path(QStringLiteral("credentials"));
    QVERIFY(QDir().mkpath(credentials));
    for (const char* name : {"seal.key", "seal.key.former"})
        QVERIFY(QFile::copy(m_admin->path(QLatin1String(name)),
                            credentials + QStringLiteral("/vrk-seal_") + QLatin1String(name)));
    qputenv("CREDENTIALS_DIRECTORY", QFile::encodeName(credentials));
    qputenv("STATE_DIRECTORY", QFile::encodeName(m_admin->folder.path()));
    write("после замены ключа");
    const int code = m_admin->call("seal");
    qunsetenv("CREDENTIALS_DIRECTORY");
    qunsetenv("STATE_DIRECTORY");
    QVERIFY2(code == 0, qPrintable(m_admin->err));
    const QByteArray note = HeadBook(m_admin->path(QStringLiteral("seal.heads"))).notes().constLast();
    QCOMPARE(note.count("\n\xE2\x80\x94 seal-1 "), 2);
}

void Evidence_test::aClosedShiftIsSealed()
{
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QProcess watch;
    watch.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"),
                {QStringLiteral("seal"), m_admin->url, QStringLiteral("--at-closings"),
                 QStringLiteral("--key"), key()});
    QVERIFY(watch.waitForReadyRead(30000)); // the first seal
    write("не смена");
    StoreError error;
    const auto store = m_store->open(QStringLiteral("ivanov"));
    QVERIFY2(TestStore::write(store.get(), "LogbookWorkshifts", ROW_UPDATE, "SHIFT_CDS_OPEN",
                              {{"CloseWorkerKey", "WORKER_IVANOV"}}, &error),
             qPrintable(error.text + error.detail));
    QVERIFY(watch.waitForReadyRead(30000));
    watch.kill();
    QVERIFY(watch.waitForFinished());
    QCOMPARE(m_store->value(QStringLiteral("SELECT max(size) FROM LogHeads")),
             m_store->value(QStringLiteral("SELECT max(number) FROM ChangeTransactions")));
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 2);
}

void Evidence_test::aBackupLeavesItsHeadBeside()
{
    const QString copy = m_admin->path(QStringLiteral("unsealed"));
    QCOMPARE(int(m_admin->call("backup", {copy})), 0);
    QVERIFY(!QFile::exists(copy + QStringLiteral(".head")));
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    const QString head = paper();
    const QString sealedCopy = m_admin->path(QStringLiteral("sealed"));
    QCOMPARE(int(m_admin->call("backup", {sealedCopy})), 0);
    QVERIFY2(m_admin->out.contains(head), qPrintable(m_admin->out));
    write("второй вариант");
    const QStringList withHead{QStringLiteral("--heads"), sealedCopy + QStringLiteral(".head")};
    QCOMPARE(int(m_admin->call("check", withHead)), 0);
    Forger(*m_store).forge(QStringLiteral("UPDATE ChangeTransactions SET login = 'petrov' WHERE number = 2"),
                           true);
    QCOMPARE(m_store->exec(QStringLiteral("DELETE FROM LogHeads")), QString());
    QCOMPARE(int(m_admin->call("check", withHead)), int(Command::FaultsFound));
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
    Forger::eachAttack(
        [](const char* name, const char* sql) { QTest::newRow(name) << QString::fromUtf8(sql); });
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

void Evidence_test::anAccountOfItsOwnSeals()
{
    if (TestStore::isSqlite()) {
        QCOMPARE(seal({QStringLiteral("--admit"), QStringLiteral("notary")}), int(Command::WrongUsage));
        QCOMPARE(int(m_admin->call("seal", {QStringLiteral("--admit"), QStringLiteral("notary")})),
                 int(Command::Failed));
        QVERIFY2(m_admin->err.contains(QStringLiteral("разрешает писать")), qPrintable(m_admin->err));
        return;
    }
    const QString administrator = m_admin->url;
    const QString notary =
        QString(administrator).replace(QLatin1String("postgres@"), QLatin1String("notary@"));
    QVERIFY2(m_admin->call("seal", {QStringLiteral("--admit"), QStringLiteral("notary")}) == 0,
             qPrintable(m_admin->err));
    StoreError error;
    QVERIFY(
        StoreAdmin::setPassword(administrator, QStringLiteral("notary"), QStringLiteral("печать-1"), &error));
    m_admin->url = notary;
    QVERIFY2(seal({QStringLiteral("--init")}) == 0, qPrintable(m_admin->err));
    write("второй вариант");
    QVERIFY2(seal() == 0, qPrintable(m_admin->err));
    QVERIFY2(seal({QStringLiteral("--rotate")}) == 0, qPrintable(m_admin->err));
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogHeads")).toInt(), 3);
    QCOMPARE(verify({}, {}), 0);
    m_admin->url = administrator;
    QVERIFY2(m_admin->call("check") == 0, qPrintable(m_admin->out + m_admin->err));
    QCOMPARE(
        int(m_admin->call("user", {QStringLiteral("add"), QStringLiteral("notary"), QStringLiteral("Н")})),
        int(Command::Failed));
    QVERIFY2(m_admin->call("seal", {QStringLiteral("--dismiss"), QStringLiteral("notary")}) == 0,
             qPrintable(m_admin->err));
    m_admin->url = notary;
    QCOMPARE(seal(), int(Command::Failed));
}

void Evidence_test::aPersonDoesNotSeal()
{
    if (TestStore::isSqlite())
        QSKIP("A file has no accounts.");
    for (const char* login : {"ivanov", "postgres"}) {
        QCOMPARE(int(m_admin->call("seal", {QStringLiteral("--admit"), QLatin1String(login)})),
                 int(Command::Failed));
        QVERIFY2(m_admin->err.contains(QStringLiteral("отдельная учётная запись")), qPrintable(m_admin->err));
    }
    QCOMPARE(int(m_admin->call("seal", {QStringLiteral("--dismiss"), QStringLiteral("ivanov")})),
             int(Command::Failed));
    m_admin->url.replace(QLatin1String("postgres@"), QLatin1String("ivanov@"));
    QCOMPARE(seal({QStringLiteral("--init")}), int(Command::Failed));
    QVERIFY(!QFile::exists(key()));
}

QTEST_GUILESS_MAIN(Evidence_test)
#include "Evidence_test.moc"
