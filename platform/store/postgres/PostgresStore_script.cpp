#include "DeclaredKey.h"
#include "PostgresStore.h"

#include <QStringList>

namespace
{
PgValues valuesOf(const QVariantList& values)
{
    PgValues bound;
    for (const QVariant& value : values) {
        if (DeclaredKey::isNumber(value))
            bound.real(value.toDouble());
        else
            bound.text(value.toString().toUtf8());
    }
    return bound;
}
} // namespace

bool PostgresStore::beginRead(StoreError* error)
{
    // The first read fixes the snapshot until endRead().
    if (!ready(error) || !m_link.prepared("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY", {}, error))
        return false;
    m_inRead = true;
    return bool(m_link.prepared("SELECT number FROM ChangeHead", {}, error));
}

void PostgresStore::endRead()
{
    StoreError error;
    if (m_inRead && m_link.isOpen())
        m_link.exec("ROLLBACK", &error);
    m_inRead = false;
}

qint64 PostgresStore::rowCount(const QByteArray& table)
{
    StoreError error;
    const CatalogTable* known = TableCatalog::table(table);
    if (!known || !ready(&error))
        return 0;
    const PgResult count = m_link.prepared("SELECT count(*) FROM " + known->name, {}, &error);
    return count ? count.integer(0, 0) : 0;
}

qint64 PostgresStore::seek(const QByteArray& table, int key, const QVariantList& values, bool* exact)
{
    *exact = false;
    StoreError error;
    const DeclaredKey declared(TableCatalog::table(table), key);
    if (declared.fields.isEmpty() || values.size() > declared.fields.size() || !ready(&error))
        return 0;
    const PgValues bound = valuesOf(values);
    const PgResult same = m_link.prepared(declared.sameSql(values.size(), '$'), bound, &error);
    const PgResult before = m_link.prepared(declared.beforeSql(values.size(), '$'), bound, &error);
    *exact = same && same.rows() > 0;
    return before ? before.integer(0, 0) : 0;
}

QVariantMap PostgresStore::row(const QByteArray& table, int key, qint64 index)
{
    StoreError error;
    const DeclaredKey declared(TableCatalog::table(table), key);
    if (declared.fields.isEmpty() || index < 0 || !ready(&error))
        return QVariantMap();
    const PgResult row = m_link.prepared(declared.rowSql("$1", "KeyLink"), PgValues().number(index), &error);
    return row && row.rows() > 0 ? declared.fieldsOf(PgRow(row, 0)) : QVariantMap();
}
