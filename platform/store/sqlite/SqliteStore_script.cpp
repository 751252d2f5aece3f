#include "DeclaredKey.h"
#include "SqliteStore.h"

#include <QStringList>

namespace
{
void bindVariant(SqliteStatement& statement, int parameter, const QVariant& value)
{
    if (DeclaredKey::isNumber(value)) {
        statement.bind(parameter, value.toDouble());
    } else {
        const QByteArray text = value.toString().toUtf8();
        sqlite3_bind_text(statement.handle(), parameter, text.constData(), text.size(), SQLITE_TRANSIENT);
    }
}
} // namespace

bool SqliteStore::beginRead(StoreError* error)
{
    if (!ready(error) || !m_read->exec("BEGIN", error))
        return false;
    m_inRead = true;
    // The first read fixes the snapshot until endRead.
    ChangePosition now;
    if (position(&now, error))
        return true;
    endRead();
    return false;
}

void SqliteStore::endRead()
{
    if (m_inRead && m_read)
        m_read->exec("COMMIT");
    m_inRead = false;
}

qint64 SqliteStore::rowCount(const QByteArray& table)
{
    StoreError error;
    const CatalogTable* known = TableCatalog::table(table);
    if (!known || !ready(&error))
        return 0;
    SqliteStatement row = m_read->cached("SELECT count(*) FROM " + known->name);
    return row.step() ? row.integer(0) : 0;
}

qint64 SqliteStore::seek(const QByteArray& table, int key, const QVariantList& values, bool* exact)
{
    *exact = false;
    StoreError error;
    const DeclaredKey declared(TableCatalog::table(table), key);
    if (declared.fields.isEmpty() || values.size() > declared.fields.size() || !ready(&error))
        return 0;
    SqliteStatement row = m_read->cached(declared.beforeSql(values.size(), '?'));
    SqliteStatement same = m_read->cached(declared.sameSql(values.size(), '?'));
    for (int i = 0; i < values.size(); ++i) {
        bindVariant(row, i + 1, values.at(i));
        bindVariant(same, i + 1, values.at(i));
    }
    *exact = same.step();
    return row.step() ? row.integer(0) : 0;
}

QVariantMap SqliteStore::row(const QByteArray& table, int key, qint64 index)
{
    StoreError error;
    const DeclaredKey declared(TableCatalog::table(table), key);
    if (declared.fields.isEmpty() || index < 0 || !ready(&error))
        return QVariantMap();
    SqliteStatement row = m_read->cached(declared.rowSql("?", "rowid"));
    row.bind(1, index);
    return row.step() ? declared.fieldsOf(row) : QVariantMap();
}
