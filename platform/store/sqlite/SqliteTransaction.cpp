#include "SqliteTransaction.h"

#include "SqliteConnection.h"
#include "TransactionChain.h"

#include <pwd.h>
#include <unistd.h>

QByteArray SqliteTransaction::account()
{
    const passwd* entry = getpwuid(geteuid());
    return entry ? QByteArray(entry->pw_name) : QByteArray::number(geteuid());
}

bool SqliteTransaction::fail(StoreError* error) const
{
    *error = m_connection.lastError();
    return false;
}

bool SqliteTransaction::begin(StoreError* error)
{
    SqliteStatement last = m_connection.cached("SELECT coalesce(max(number), 0) FROM ChangeTransactions");
    if (!last.step())
        return fail(error);
    m_number = last.integer(0) + 1;
    SqliteStatement begin = m_connection.cached(
        "INSERT INTO CurrentTransaction (number, login, userKey, loader) VALUES (?, ?, coalesce("
        "(SELECT KeyLink FROM Users WHERE KeyLink = ? AND coalesce(deleted_, 0) = 0), ''), ?)");
    begin.bind(1, m_number)
        .bind(2, m_writer.login)
        .bind(3, m_writer.userKey)
        .bind(4, qint64(m_writer.loader));
    return begin.run() || fail(error);
}

bool SqliteTransaction::close(const QByteArray& batchKey, double time, StoreError* error)
{
    const TransactionChain::Head head{m_number, batchKey, m_writer.login, m_writer.loader, time};
    QByteArray chain;
    if (!TransactionChain::next(m_connection, head, &chain))
        return fail(error);
    SqliteStatement log =
        m_connection.cached("INSERT INTO ChangeTransactions (number, batchKey, login, loader, time, chain)"
                            " VALUES (?, ?, ?, ?, ?, ?)");
    log.bind(1, head.number).bind(2, head.batchKey).bind(3, head.login).bind(4, qint64(head.loader));
    log.bind(5, head.time).bindBlob(6, chain);
    SqliteStatement end = m_connection.cached("DELETE FROM CurrentTransaction");
    SqliteStatement mark = m_connection.cached("UPDATE LogMark SET former = present, present = ?");
    mark.bindBlob(1, chain);
    return (log.run() && end.run() && mark.run()) || fail(error);
}
