#include "MDRValues.h"
#include "SqliteStore.h"
#include "TableCatalog.h"
#include "TransactionChain.h"

#include <cmath>

namespace
{
StoreError badRequest(const char* text, const QByteArray& table, const QByteArray& detail = QByteArray())
{
    return {StoreError::BadRequest, QString::fromUtf8(text).arg(QString::fromLatin1(table)),
            QString::fromUtf8(detail)};
}

/// One column to be written: where its value stands in the record and what the store takes it for.
struct Column {
    const MDRField* from;
    const CatalogField* to;
};

bool isFlagged(const StoreWrite& write)
{
    for (const MDRData* record : MDARecsByEntry(write.records))
        if (record->flags & (ROW_INSERT | ROW_UPDATE | ROW_DELETE))
            return true;
    return false;
}

/// A value that the column can take, as the engine takes it. False when it cannot.
bool bindValue(SqliteStatement& statement, int parameter, const MDRVar& value, const CatalogField& to,
               const CodePage& page, QByteArray* bytes)
{
    if (value.isNull || value.type == mdr_TNone)
        return sqlite3_bind_null(statement.handle(), parameter) == SQLITE_OK;
    const bool isText = MDRValue::isText(value);
    switch (to.type) {
    case mdr_TChar:
    case mdr_TMemo:
        if (!isText)
            return false;
        bytes->resize(0);
        page.toUtf8(value.value.text.data, value.value.text.length, bytes);
        return sqlite3_bind_text(statement.handle(), parameter, bytes->constData(), bytes->size(),
                                 SQLITE_TRANSIENT) == SQLITE_OK;
    case mdr_TBlob:
        if (!isText)
            return false;
        // The record outlives the step, so that large files are not copied once more.
        return sqlite3_bind_blob(statement.handle(), parameter,
                                 value.value.text.length > 0 ? value.value.text.data : "",
                                 value.value.text.length, SQLITE_STATIC) == SQLITE_OK;
    case mdr_TDouble: {
        if (isText)
            return false;
        const double real = value.type == mdr_TDouble ? value.value.real : value.value.number;
        return std::isfinite(real) && sqlite3_bind_double(statement.handle(), parameter, real) == SQLITE_OK;
    }
    default: {
        if (isText)
            return false;
        double number = value.type == mdr_TDouble ? std::nearbyint(value.value.real) : value.value.number;
        if (to.type == mdr_TBool)
            number = number != 0 ? 1 : 0;
        if (!(number >= INT32_MIN && number <= INT32_MAX) ||
            (to.type == mdr_TByte && (number < 0 || number > 255)))
            return false;
        return sqlite3_bind_int(statement.handle(), parameter, static_cast<int>(number)) == SQLITE_OK;
    }
    }
}

QByteArray insertSql(const QByteArray& table, const QVector<Column>& columns)
{
    QByteArray names("KeyLink");
    QByteArray values("?1");
    for (int i = 0; i < columns.size(); ++i) {
        names += ", " + columns.at(i).to->name;
        values += ", ?" + QByteArray::number(i + 2);
    }
    return "INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")";
}

QByteArray updateSql(const QByteArray& table, const QVector<Column>& columns)
{
    QByteArray values;
    for (int i = 0; i < columns.size(); ++i)
        values += (i ? ", " : "") + columns.at(i).to->name + " = ?" + QByteArray::number(i + 2);
    // Without a changed field the row is touched all the same: it must be there, and its writer waits for the event.
    if (columns.isEmpty())
        values = "KeyLink = KeyLink";
    return "UPDATE " + table + " SET " + values + " WHERE KeyLink = ?1";
}
} // namespace

bool SqliteStore::apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, StoreError* error)
{
    bool anything = false;
    for (const StoreWrite& write : writes)
        anything = anything || isFlagged(write);
    if (!anything)
        return true;
    if (!ready(error))
        return false;
    if (m_user.login.isEmpty() && !m_options.loader) {
        *error = {StoreError::Refused, QString::fromUtf8("Вход в хранилище не выполнен."), QString()};
        return false;
    }
    if (!m_write->exec("BEGIN IMMEDIATE", error))
        return false;

    const auto inside = [&] {
        {
            SqliteStatement known = m_write->cached("SELECT 1 FROM ChangeTransactions WHERE batchKey = ?");
            known.bind(1, batchKey);
            if (known.step())
                return true; // the answer to an earlier call was lost; the work is done
            if (known.code() != SQLITE_DONE)
                return fail(*m_write, error);
        }
        SqliteStatement last = m_write->cached("SELECT coalesce(max(number), 0) FROM ChangeTransactions");
        if (!last.step())
            return fail(*m_write, error);
        const qint64 number = last.integer(0) + 1;
        const QByteArray login = writerName();
        SqliteStatement begin = m_write->cached(
            "INSERT INTO CurrentTransaction (number, login, userKey, loader) VALUES (?, ?, ?, ?)");
        begin.bind(1, number).bind(2, login).bind(3, m_user.key).bind(4, qint64(m_options.loader));
        if (!begin.run())
            return fail(*m_write, error);
        for (const StoreWrite& write : writes)
            if (!writeBatch(write, error))
                return false;
        return closeTransaction(number, batchKey, error);
    };
    if (inside() && m_write->exec("COMMIT", error))
        return true;
    if (!sqlite3_get_autocommit(m_write->handle()))
        m_write->exec("ROLLBACK");
    return false;
}

bool SqliteStore::writeBatch(const StoreWrite& write, StoreError* error)
{
    const CatalogTable* table = TableCatalog::table(write.table);
    if (!table) {
        *error = badRequest("В хранилище нет таблицы «%1».", write.table);
        return false;
    }
    const MDRField* key = MDRFldByName(write.records, "KeyLink");
    if (!key || (key->type != mdr_TChar && key->type != mdr_TMemo)) {
        *error = badRequest("В строках таблицы «%1» нет ключа.", table->name);
        return false;
    }
    QByteArray keyBytes;
    QByteArray scratch;
    for (const MDRData* record : MDARecsByEntry(write.records)) {
        if (!(record->flags & (ROW_INSERT | ROW_UPDATE | ROW_DELETE)))
            continue;
        MDRVar value;
        MDRGetVal(key, record, &value);
        if (!MDRValue::hasText(value)) {
            *error = badRequest("В строке таблицы «%1» нет ключа.", table->name);
            return false;
        }
        keyBytes.resize(0);
        m_codePage->toUtf8(value.value.text.data, value.value.text.length, &keyBytes);
        if (keyBytes.contains('\0')) {
            *error = badRequest("Недопустимый ключ строки таблицы «%1».", table->name, keyBytes);
            return false;
        }

        QVector<Column> columns;
        if (!(record->flags & ROW_DELETE)) {
            for (int i = 0; i < MDAFldCount(write.records); ++i) {
                const MDRField* field = MDRFldByNum(write.records, i);
                bool marked = false;
                if (field == key || MDRIsUser(field, record, &marked) != mdr_Ok || !marked)
                    continue;
                const int index = table->fieldIndex(field->name);
                if (index < 0) {
                    *error = badRequest("В таблице «%1» нет такого поля.", table->name, field->name);
                    return false;
                }
                columns.append({field, &table->fields.at(index)});
            }
        }
        QByteArray sql = "DELETE FROM " + table->name + " WHERE KeyLink = ?1";
        if (record->flags & ROW_INSERT)
            sql = insertSql(table->name, columns);
        else if (record->flags & ROW_UPDATE)
            sql = updateSql(table->name, columns);

        SqliteStatement statement = m_write->cached(sql);
        if (!statement)
            return fail(*m_write, error);
        statement.bind(1, keyBytes);
        for (int i = 0; i < columns.size(); ++i) {
            const bool there = MDRGetVal(columns.at(i).from, record, &value) == mdr_Ok;
            if (!there || !bindValue(statement, i + 2, value, *columns.at(i).to, *m_codePage, &scratch)) {
                *error = badRequest("Значение не подходит полю таблицы «%1».", table->name,
                                    columns.at(i).to->name);
                return false;
            }
        }
        if (!statement.run())
            return fail(*m_write, error);
        if (record->flags & ROW_UPDATE && sqlite3_changes(m_write->handle()) == 0) {
            *error = {StoreError::NoSuchRow,
                      QString::fromUtf8("Строки, которую нужно изменить, уже нет (таблица «%1»).")
                          .arg(QString::fromLatin1(table->name)),
                      QString::fromUtf8(keyBytes)};
            return false;
        }
    }
    return true;
}

bool SqliteStore::closeTransaction(qint64 number, const QByteArray& batchKey, StoreError* error)
{
    const QByteArray login = writerName();
    TransactionChain::Head head{number, batchKey, login, m_options.loader, serverTime()};
    QByteArray chain;
    if (!TransactionChain::next(*m_write, head, &chain))
        return fail(*m_write, error);
    SqliteStatement log =
        m_write->cached("INSERT INTO ChangeTransactions (number, batchKey, login, loader, time, chain)"
                        " VALUES (?, ?, ?, ?, ?, ?)");
    log.bind(1, number).bind(2, batchKey).bind(3, login).bind(4, qint64(head.loader)).bind(5, head.time);
    log.bindBlob(6, chain);
    SqliteStatement end = m_write->cached("DELETE FROM CurrentTransaction");
    return (log.run() && end.run()) || fail(*m_write, error);
}
