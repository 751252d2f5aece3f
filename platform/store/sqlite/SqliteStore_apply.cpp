#include "RowStatements.h"
#include "SqliteStore.h"
#include "SqliteTransaction.h"

bool SqliteStore::apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, StoreError* error)
{
    if (!RowStatements::isAnythingFlagged(writes))
        return true;
    if (!ready(error) || !canWrite(error))
        return false;
    const auto work = [&](SqliteTransaction& transaction) {
        {
            SqliteStatement known = m_write->cached(batchSql);
            known.bind(1, batchKey);
            if (known.step())
                return true; // the answer to an earlier call was lost; the work is done
            if (known.code() != SQLITE_DONE)
                return fail(*m_write, error);
        }
        if (!transaction.begin(error))
            return false;
        for (const StoreWrite& write : writes)
            if (!RowStatements::forEach(
                    write, *m_codePage, '?', [&](const RowStatement& row) { return writeRow(row, error); },
                    error))
                return false;
        return transaction.close(batchKey, serverTime(), error);
    };
    return transact(work, error);
}

bool SqliteStore::isWritten(const QByteArray& batchKey, bool* written, StoreError* error)
{
    if (!ready(error))
        return false;
    SqliteStatement known = m_read->cached(batchSql);
    known.bind(1, batchKey);
    *written = known.step();
    return *written || known.code() == SQLITE_DONE || fail(*m_read, error);
}

bool SqliteStore::writeRow(const RowStatement& row, StoreError* error)
{
    SqliteStatement statement = m_write->cached(row.sql);
    if (!statement)
        return fail(*m_write, error);
    for (int i = 0; i < row.values.size(); ++i) {
        const RowStatement::Value& value = row.values.at(i);
        switch (value.kind) {
        case RowStatement::Value::Null:
            sqlite3_bind_null(statement.handle(), i + 1);
            break;
        case RowStatement::Value::Text:
            statement.bind(i + 1, value.bytes);
            break;
        case RowStatement::Value::Blob:
            statement.bindBlob(i + 1, value.bytes);
            break;
        case RowStatement::Value::Real:
            statement.bind(i + 1, value.real);
            break;
        case RowStatement::Value::Number:
            statement.bind(i + 1, qint64(value.number));
        }
    }
    if (!statement.run())
        return fail(*m_write, error);
    if (row.isUpdate && sqlite3_changes(m_write->handle()) == 0) {
        *error = RowStatements::noSuchRow(row);
        return false;
    }
    return true;
}
