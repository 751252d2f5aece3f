#include "TransactionChain.h"

#include "SqliteConnection.h"

#include <cstring>
#include <QCryptographicHash>

namespace
{
/// Each part is preceded by its length, so that different parts cannot give the same bytes.
void add(QCryptographicHash* hash, const QByteArray& part)
{
    hash->addData(QByteArray::number(part.size()) + ':');
    hash->addData(part);
}
} // namespace

bool TransactionChain::next(SqliteConnection& connection, const Head& head, QByteArray* chain)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    SqliteStatement before = connection.cached("SELECT chain FROM ChangeTransactions WHERE number = ?");
    before.bind(1, head.number - 1);
    if (!before.step() && before.code() != SQLITE_DONE)
        return false;
    add(&hash, before.code() == SQLITE_ROW ? before.bytes(0) : QByteArray());
    add(&hash, QByteArray::number(head.number));
    add(&hash, head.batchKey);
    add(&hash, head.login);
    add(&hash, head.loader ? "loader" : "person");
    add(&hash, QByteArray::number(head.time, 'g', 17));

    SqliteStatement rows = connection.cached(
        "SELECT tableName, rowKey, event, oldRow, newRow FROM ChangeLog WHERE number = ? ORDER BY entry");
    rows.bind(1, head.number);
    while (rows.step())
        for (int column = 0; column < 5; ++column)
            add(&hash, rows.bytes(column));
    *chain = hash.result();
    return rows.code() == SQLITE_DONE;
}
