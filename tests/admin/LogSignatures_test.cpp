#include "EvidenceBench.h"
#include "Forger.h"

/// Signatures of visas, approvals and closings in the change log.
class LogSignatures_test : public EvidenceBench
{
    Q_OBJECT

private slots:
    void init() { reset(); }

    void visaApprovalAndClosingAreSigned();
    void aSignatureIsThatOfItsLogRow();
    void historyTellsWhetherTheSignedTextStands();
    void forgedSignaturesAreFound_data();
    void forgedSignaturesAreFound();
    void whatTheAdministratorWritesIsNoSignature();
    void signaturesBeforeTheirVersionAreMissed();

private:
    void visa() const
    {
        write("sidorova", "LogbookRecords", "REC_ORDER", {{"VisaWorkerKey", "WORKER_SIDOROVA"}});
    }
    /// What the store says to a statement inside a transaction of the administrator.
    QString refusalToAdministrator(const QByteArray& sql) const
    {
        if (!TestStore::isSqlite())
            return m_store->exec(QString::fromUtf8(sql));
        StoreError error;
        const auto link = SqliteConnection::open(m_store->path(), SqliteConnection::ReadWrite, 5000, &error);
        link->exec("BEGIN; INSERT INTO CurrentTransaction VALUES (1000000, 'root', '', 1); " + sql, &error);
        return error.text;
    }
};

void LogSignatures_test::visaApprovalAndClosingAreSigned()
{
    visa();
    write("petrov", "LogbookRecords", "REC_DRAFT_IVANOV", {{"status", 0}});
    write("petrov", "LogbookRecords", "REC_ORDER", {{"status", 2}});
    write("petrov", "LogbookRecords", "REC_OPENING",
          {{"secondMarkTime", 5}, {"SecondMarkWorkerKey", "WORKER_PETROV"}});
    write("ivanov", "LogbookWorkshifts", "SHIFT_CDS_OPEN", {{"CloseWorkerKey", "WORKER_IVANOV"}});
    QStringList signs;
    for (const QVariantList& row : m_store->rows(QStringLiteral(
             "SELECT meaning, login, person, signedTable, signedKey FROM LogSignatures ORDER BY rowid"))) {
        QStringList values;
        for (const QVariant& value : row)
            values.append(value.toString());
        signs.append(values.join(QLatin1Char(' ')));
    }
    QCOMPARE(signs,
             (QStringList{
                 QStringLiteral("visa sidorova Сидорова Анна Сергеевна LogbookRecords REC_ORDER"),
                 QStringLiteral("approval petrov Петров Пётр Петрович LogbookRecords REC_DRAFT_IVANOV"),
                 QStringLiteral("cancellation petrov Петров Пётр Петрович LogbookRecords REC_ORDER"),
                 QStringLiteral("closing ivanov Иванов Иван Иванович LogbookWorkshifts SHIFT_CDS_OPEN")}));
    QVERIFY2(m_admin->call("check") == 0, qPrintable(m_admin->out));
    // Nobody removes or alters one, not even the administrator.
    for (const char* sql : {"DELETE FROM LogSignatures", "UPDATE LogSignatures SET login = 'ivanov'"})
        QCOMPARE(refusalToAdministrator(sql), QStringLiteral("Журнал изменений не изменяется."));
}

void LogSignatures_test::aSignatureIsThatOfItsLogRow()
{
    visa();
    const QVariantList row =
        m_store
            ->rows(QStringLiteral(
                "SELECT tableName, rowKey, event, oldRow, newRow FROM ChangeLog WHERE number = "
                "(SELECT max(number) FROM ChangeLog) AND tableName = 'LogbookRecords'"))
            .value(0);
    const LoggedRow logged{row[0].toString().toUtf8(), row[1].toString().toUtf8(), row[2].toLongLong(),
                           row[3].toString().toUtf8(), row[4].toString().toUtf8()};
    QCOMPARE(m_store->value(QStringLiteral("SELECT rowHash FROM LogSignatures")).toByteArray(),
             LogLeaf::ofRow(logged).bytes().toHex());
    // The export of a record has its signature, and the verifier proves both.
    QCOMPARE(seal({QStringLiteral("--init")}), 0);
    QCOMPARE(verify({QStringLiteral("--record"), QStringLiteral("REC_ORDER")}, {}), 0);
    QVERIFY(exported("log.jsonl").contains(QStringLiteral("LogSignatures")));
    QCOMPARE(verify({QStringLiteral("--record"), QStringLiteral("REC_TRIP")}, {}), 0);
    QVERIFY(!exported("log.jsonl").contains(QStringLiteral("LogSignatures")));
}

void LogSignatures_test::historyTellsWhetherTheSignedTextStands()
{
    visa();
    const QStringList record{QStringLiteral("REC_ORDER")};
    QCOMPARE(int(m_admin->call("history", record)), 0);
    QVERIFY2(m_admin->out.contains(QRegularExpression(QStringLiteral(
                 "Подпись «виза»: Сидорова Анна Сергеевна \\(sidorova\\), .*стоит без изменений"))),
             qPrintable(m_admin->out));
    write("petrov", "LogbookRecords", "REC_ORDER",
          {{"secondMarkTime", 5}, {"SecondMarkWorkerKey", "WORKER_PETROV"}});
    QCOMPARE(int(m_admin->call("history", record)), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("стоит без изменений")), qPrintable(m_admin->out));
    write(nullptr, "LogbookRecords", "REC_ORDER", {{"html", "другой текст"}});
    QCOMPARE(int(m_admin->call("history", record)), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("с тех пор изменено: ")), qPrintable(m_admin->out));
    QVERIFY2(!m_admin->out.contains(QStringLiteral("стоит без изменений")), qPrintable(m_admin->out));
}

void LogSignatures_test::forgedSignaturesAreFound_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("finding");
    const auto add = [](const char* name, const char* sql, const char* finding) {
        QTest::newRow(name) << QString::fromUtf8(sql) << QString::fromUtf8(finding);
    };
    add("another signer",
        "UPDATE ChangeLog SET newRow = replace(newRow, 'sidorova', 'petrov') WHERE tableName = "
        "'LogSignatures';"
        "UPDATE LogSignatures SET login = 'petrov'",
        "не подходит");
    add("another meaning",
        "UPDATE ChangeLog SET newRow = replace(newRow, '\"visa\"', '\"approval\"') WHERE tableName = "
        "'LogSignatures'; UPDATE LogSignatures SET meaning = 'approval'",
        "не подходит");
    add("another text under it",
        "UPDATE ChangeLog SET newRow = replace(newRow, 'WORKER_PETROV', 'WORKER_IVANOV') WHERE tableName = "
        "'LogbookRecords' AND rowKey = 'REC_ORDER' AND event = 602;"
        "UPDATE LogbookRecords SET WorkerKey = 'WORKER_IVANOV' WHERE KeyLink = 'REC_ORDER'",
        "нет подписи: виза");
    add("a signature taken out",
        "DELETE FROM ChangeLog WHERE tableName = 'LogSignatures'; DELETE FROM LogSignatures",
        "нет подписи: виза");
    add("the beginning taken out",
        "DELETE FROM ChangeLog WHERE rowKey = 'signatures'; "
        "DELETE FROM StoreProperties WHERE name = 'signatures'",
        "нет отметки");
}

void LogSignatures_test::forgedSignaturesAreFound()
{
    QFETCH(QString, sql);
    QFETCH(QString, finding);
    visa();
    QCOMPARE(m_admin->call("check"), 0);
    Forger(*m_store).forge(sql, true);
    QCOMPARE(int(m_admin->call("check")), int(Command::FaultsFound));
    QVERIFY2(m_admin->out.contains(finding), qPrintable(m_admin->out));
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_ORDER")})), 0);
    // Without the mark of the beginning the signature itself still fits.
    const bool fits = finding == QStringLiteral("нет отметки");
    QVERIFY2(m_admin->out.contains(fits ? QStringLiteral("Подпись «виза»: Сидорова")
                                        : QStringLiteral("Подпись «виза»: ПОДПИСИ НЕТ")),
             qPrintable(m_admin->out));
}

void LogSignatures_test::whatTheAdministratorWritesIsNoSignature()
{
    write(nullptr, "LogbookRecords", "REC_ORDER", {{"VisaWorkerKey", "WORKER_SIDOROVA"}});
    QCOMPARE(m_store->value(QStringLiteral("SELECT count(*) FROM LogSignatures")).toInt(), 0);
    QVERIFY2(m_admin->call("check") == 0, qPrintable(m_admin->out));
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_ORDER")})), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("Подпись «виза»: без подписи: загрузка")),
             qPrintable(m_admin->out));
}

void LogSignatures_test::signaturesBeforeTheirVersionAreMissed()
{
    visa();
    // As in a store of a former version that was upgraded afterwards.
    Forger(*m_store).forge(
        QStringLiteral(
            "DELETE FROM ChangeLog WHERE tableName = 'LogSignatures'; DELETE FROM LogSignatures; "
            "UPDATE ChangeLog SET number = (SELECT max(number) + 1 FROM ChangeTransactions) WHERE rowKey = "
            "'signatures'; INSERT INTO ChangeTransactions SELECT number + 1, 'upgrade', 'root', 1, time, "
            "chain FROM ChangeTransactions WHERE number = (SELECT max(number) FROM ChangeTransactions)"),
        false);
    QVERIFY2(m_admin->call("check") == 0, qPrintable(m_admin->out));
    QVERIFY2(m_admin->out.contains(
                 QRegularExpression(QStringLiteral("Подписи ведутся с транзакции \\d+.*: 1\\."))),
             qPrintable(m_admin->out));
    QCOMPARE(int(m_admin->call("history", {QStringLiteral("REC_ORDER")})), 0);
    QVERIFY2(m_admin->out.contains(QStringLiteral("тогда их ещё не вели")), qPrintable(m_admin->out));
}

QTEST_GUILESS_MAIN(LogSignatures_test)
#include "LogSignatures_test.moc"
