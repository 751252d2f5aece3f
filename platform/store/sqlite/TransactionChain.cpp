#include "TransactionChain.h"

#include "SqliteConnection.h"

bool TransactionChain::next(SqliteConnection& connection, const Head& head, QByteArray* chain)
{
    SqliteStatement before = connection.cached("SELECT chain FROM ChangeTransactions WHERE number = ?");
    before.bind(1, head.number - 1);
    if (!before.step() && before.code() != SQLITE_DONE)
        return false;
    ChainHash hash;
    hash.begin(before.code() == SQLITE_ROW ? before.bytes(0) : QByteArray(), head);

    SqliteStatement rows = connection.cached(
        "SELECT tableName, rowKey, event, oldRow, newRow FROM ChangeLog WHERE number = ? ORDER BY entry");
    rows.bind(1, head.number);
    while (rows.step())
        for (int column = 0; column < 5; ++column)
            hash.add(rows.bytes(column));
    *chain = hash.result();
    return rows.code() == SQLITE_DONE;
}
