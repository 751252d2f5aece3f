#include "SqliteCheck.h"

#include "ContentCheck.h"
#include "LongWork.h"
#include "SqliteConnection.h"
#include "SqliteSchema.h"
#include "TableCatalog.h"
#include "TransactionChain.h"

#include <QCryptographicHash>
#include <QHash>
#include <QStorageInfo>

namespace
{
using StoreAdmin::Finding;

using ContentCheck::add;

/// Adds one finding for each row of the answer, with its first two columns in the text.
bool addRows(SqliteConnection& connection, const QByteArray& sql, Finding::Grade grade, const char* text,
             QVector<Finding>* findings, StoreError* error)
{
    SqliteStatement rows = connection.prepare(sql);
    while (rows.step())
        add(findings, grade, text, rows.bytes(0),
            sqlite3_column_count(rows.handle()) > 1 ? rows.bytes(1) : QByteArray());
    if (rows.code() == SQLITE_DONE)
        return true;
    *error = connection.lastError();
    return false;
}

/// All objects of the schema by name.
ContentCheck::Objects objects(SqliteConnection& connection)
{
    ContentCheck::Objects all;
    SqliteStatement rows = connection.prepare("SELECT type || ' ' || name, sql FROM sqlite_schema"
                                              " WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite_%'");
    while (rows.step())
        all.insert(rows.bytes(0), rows.bytes(1));
    return all;
}

/// Without nulls at its end: a row that was logged before its last fields existed does not have them.
QByteArray hashOf(const QByteArray& row)
{
    static const QByteArray null = ",null";
    QByteArray values = QByteArray::fromRawData(row.constData(), qMax(0, row.size() - 1)); // no bracket
    while (values.endsWith(null))
        values = QByteArray::fromRawData(row.constData(), values.size() - null.size());
    return QCryptographicHash::hash(values, QCryptographicHash::Md5);
}

/// The rows of a table according to the log, as hashes by key.
bool loggedRows(SqliteConnection& connection, const QByteArray& table, QHash<QByteArray, QByteArray>* rows)
{
    SqliteStatement entries =
        connection.prepare("SELECT rowKey, newRow FROM ChangeLog WHERE tableName = ? ORDER BY entry");
    entries.bind(1, table);
    while (entries.step()) {
        if (entries.isNull(1))
            rows->remove(entries.bytes(0));
        else
            rows->insert(entries.bytes(0), hashOf(entries.bytes(1)));
    }
    return entries.code() == SQLITE_DONE;
}
} // namespace

bool SqliteCheck::place(SqliteConnection& connection, QVector<Finding>* findings)
{
    static const QList<QByteArray> remote = {"nfs",   "nfs4", "cifs", "smb",        "smb3",           "smbfs",
                                             "ncpfs", "afs",  "9p",   "fuse.sshfs", "fuse.glusterfs", "ceph"};
    const QByteArray kind = QStorageInfo(connection.file()).fileSystemType();
    if (remote.contains(kind.toLower()))
        add(findings, Finding::Note,
            "Файл хранилища лежит на сетевой файловой системе (%1): одновременная работа программ может его "
            "повредить.",
            kind);
    return true;
}

bool SqliteCheck::engine(SqliteConnection& connection, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка файла");
    SqliteStatement integrity = connection.prepare("PRAGMA integrity_check");
    while (integrity.step())
        if (integrity.bytes(0) != "ok")
            add(findings, Finding::Fault, "Файл повреждён: %1.", integrity.bytes(0));
    if (integrity.code() != SQLITE_DONE) {
        *error = connection.lastError();
        return false;
    }
    return addRows(connection, "SELECT \"table\", parent FROM pragma_foreign_key_check", Finding::Fault,
                   "Строка таблицы «%1» ссылается на строку таблицы «%2», которой нет.", findings, error);
}

bool SqliteCheck::schema(SqliteConnection& connection, QVector<Finding>* findings, StoreError* error)
{
    const auto fresh =
        SqliteConnection::open(QStringLiteral(":memory:"), SqliteConnection::Create, 1000, error);
    if (!fresh || !SqliteSchema::install(*fresh, error))
        return false;
    ContentCheck::compare(objects(*fresh), objects(connection), findings);
    return true;
}

bool SqliteCheck::content(SqliteConnection& connection, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка ссылок");
    for (const ContentCheck::Look& look : ContentCheck::looks())
        if (!addRows(connection, look.sql, look.grade, look.text, findings, error))
            return false;
    return addRows(connection, "SELECT number FROM CurrentTransaction", Finding::Fault,
                   "Осталась строка незавершённой транзакции %1.", findings, error);
}

bool SqliteCheck::search(SqliteConnection& connection, QVector<Finding>* findings, StoreError* error)
{
    const LongWork work("Проверка поиска");
    const int before = findings->size();
    const QByteArray outOfStep =
        "SELECT recordKey FROM SearchSource AS Q WHERE NOT EXISTS (SELECT 1 FROM RecordSearch AS S"
        " WHERE S.recordKey = Q.recordKey AND S.words = Q.words AND S.equipment = Q.equipment"
        " AND S.marks = Q.marks AND (S.number < 0 OR S.number >> 16 = Q.second))"
        " UNION ALL SELECT recordKey FROM RecordSearch WHERE recordKey NOT IN (SELECT KeyLink FROM "
        "LogbookRecords)";
    if (!addRows(connection, "SELECT count(*), min(recordKey) FROM (" + outOfStep + ") HAVING count(*) > 0",
                 Finding::Fault, ContentCheck::searchOutOfStep, findings, error))
        return false;
    if (findings->size() > before)
        return true;
    // The engine compares its index with the rows only on a writing connection; nothing is written.
    StoreError ignored;
    const auto writer =
        SqliteConnection::open(connection.file(), SqliteConnection::ReadWrite, 1000, &ignored);
    if (!writer)
        return true;
    SqliteStatement compare =
        writer->prepare("INSERT INTO RecordWords (RecordWords, rank) VALUES ('integrity-check', 1)");
    if (compare.run())
        return true;
    const int code = compare.code() & 0xFF;
    if (code == SQLITE_CORRUPT)
        add(findings, Finding::Fault,
            "Указатель поиска по архиву повреждён. Исправит vrk-admin check --rebuild-search.");
    else if (code != SQLITE_BUSY && code != SQLITE_READONLY && code != SQLITE_CANTOPEN) {
        *error = writer->lastError();
        return false;
    }
    return true;
}

bool SqliteCheck::log(SqliteConnection& connection, QVector<Finding>* findings, StoreError* error)
{
    SqliteStatement last = connection.prepare("SELECT coalesce(max(number), 0) FROM ChangeTransactions");
    const LongWork work("Проверка журнала изменений", last.step() ? last.integer(0) : 0);
    SqliteStatement heads = connection.prepare(
        "SELECT number, batchKey, login, loader, time, chain FROM ChangeTransactions ORDER BY number");
    qint64 expected = 1;
    while (heads.step()) {
        const TransactionChain::Head head{heads.integer(0), heads.bytes(1), heads.bytes(2),
                                          heads.integer(3) != 0, heads.real(4)};
        if (head.number != expected)
            add(findings, Finding::Fault, ContentCheck::missingTransactions, QByteArray::number(expected),
                QByteArray::number(head.number - 1));
        QByteArray chain;
        if (!TransactionChain::next(connection, head, &chain))
            break;
        if (chain != heads.bytes(5))
            add(findings, Finding::Fault, ContentCheck::changedTransaction, QByteArray::number(head.number));
        expected = head.number + 1;
        work.advance(head.number);
    }
    if (heads.code() != SQLITE_DONE) {
        *error = connection.lastError();
        return false;
    }
    if (!addRows(connection,
                 "SELECT DISTINCT number FROM ChangeLog"
                 " WHERE number NOT IN (SELECT number FROM ChangeTransactions)",
                 Finding::Fault, ContentCheck::strayEntries, findings, error))
        return false;

    for (const CatalogTable& table : TableCatalog::loggedTables()) {
        QHash<QByteArray, QByteArray> logged;
        QByteArray columns;
        for (const CatalogField& field : table.fields)
            columns += (columns.isEmpty() ? "" : ", ") + field.name;
        SqliteStatement rows = connection.prepare("SELECT " + table.rowKeyOf("T") + ", vrk_row(" + columns +
                                                  ") FROM " + table.name + " AS T");
        bool read = loggedRows(connection, table.name, &logged);
        while (read && rows.step()) {
            if (logged.take(rows.bytes(0)) != hashOf(rows.bytes(1)))
                add(findings, Finding::Fault, ContentCheck::changedRow, table.name, rows.bytes(0));
        }
        if (!read || rows.code() != SQLITE_DONE) {
            *error = connection.lastError();
            return false;
        }
        for (auto lost = logged.cbegin(); lost != logged.cend(); ++lost)
            add(findings, Finding::Fault, ContentCheck::lostRow, table.name, lost.key());
    }
    return true;
}
