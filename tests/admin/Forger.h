#pragma once

#include "EvidenceLog.h"
#include "HashTiles.h"
#include "SqliteConnection.h"
#include "StoreAdmin.h"
#include "TestStore.h"
#include "TransactionChain.h"

#include <functional>
#include <QTest>
#include <QUrl>

/// An attacker with the full power of the owner of a store: changes any row past all rules, and
/// makes everything in the store agree with it. He has no key.
class Forger
{
public:
    explicit Forger(const TestStore& store) : m_store(store) {}

    /// Passes the name and the statements of each kind of attack to \a add. The log needs texts of the author ivanov.
    static void eachAttack(const std::function<void(const char*, const char*)>& add)
    {
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

    /// Runs statements without any trigger, then hashes the chain again and, if \a alsoTree, the tree.
    void forge(const QString& sql, bool alsoTree) const
    {
        QString failure;
        if (TestStore::isSqlite()) {
            QString drops;
            QString triggers;
            for (const QVariantList& trigger :
                 m_store.rows(QStringLiteral("SELECT name, sql FROM sqlite_schema WHERE type = 'trigger'"))) {
                drops += QStringLiteral("DROP TRIGGER \"%1\";").arg(trigger[0].toString());
                triggers += trigger[1].toString() + QLatin1Char(';');
            }
            failure = m_store.exec(drops + sql);
            rehash();
            failure += m_store.exec(triggers);
        } else {
            failure = m_store.exec(
                QStringLiteral("SET session_replication_role = replica; ") + sql +
                QStringLiteral(
                    ";DO $$ DECLARE head ChangeTransactions; last bytea := ''; BEGIN "
                    "FOR head IN SELECT * FROM ChangeTransactions ORDER BY number LOOP "
                    "last := vrk_chain(last, head); "
                    "UPDATE ChangeTransactions SET chain = last WHERE number = head.number; END LOOP; "
                    "UPDATE ChangeHead SET chain = last, number = (SELECT max(number) FROM "
                    "ChangeTransactions); "
                    "END $$"));
        }
        if (!failure.isEmpty())
            qFatal("%s", qPrintable(failure));
        if (alsoTree)
            growTree();
    }

private:
    void rehash() const
    {
        StoreError error;
        const auto link = SqliteConnection::open(m_store.path(), SqliteConnection::ReadWrite, 5000, &error);
        SqliteStatement heads =
            link->prepare("SELECT number, batchKey, login, loader, time FROM ChangeTransactions"
                          " ORDER BY number");
        QVector<TransactionChain::Head> all;
        while (heads.step())
            all.append(
                {heads.integer(0), heads.bytes(1), heads.bytes(2), heads.integer(3) != 0, heads.real(4)});
        heads.reset();
        SqliteStatement set = link->prepare("UPDATE ChangeTransactions SET chain = ? WHERE number = ?");
        for (const TransactionChain::Head& head : qAsConst(all)) {
            QByteArray chain;
            TransactionChain::next(*link, head, &chain);
            set.bindBlob(1, chain).bind(2, head.number);
            if (!set.run())
                qFatal("the chain cannot be written");
            set.reset();
        }
    }
    /// The tiles of the forged log; the heads stay, because nobody else can sign.
    void growTree() const
    {
        m_store.exec(QStringLiteral("DELETE FROM LogTiles"));
        StoreError error;
        const auto store = Store::open(m_store.url(), {}, &error);
        const auto log = store->evidence(Store::Access::Write, &error);
        HashTiles tiles(*log, 0);
        qint64 end = 0;
        QByteArray epoch;
        log->end(&end, &epoch);
        log->read(1, end, [&](const LoggedTransaction& transaction) {
            return tiles.append(LogLeaf::ofTransaction(transaction));
        });
        if (!tiles.flush() || !log->commit())
            qFatal("%s", qPrintable(error.text));
    }

    const TestStore& m_store;
};
