#include "SqliteStore.h"
#include "TableCatalog.h"

#include <QStringList>

namespace
{
struct KeyField {
    const CatalogField* field;
    bool falling;
};

/// The fields of a declared key; empty when there is no such table or key.
QVector<KeyField> keyFields(const CatalogTable* table, int key)
{
    QVector<KeyField> fields;
    if (!table || key < 0 || key >= table->keys.size())
        return fields;
    for (const QByteArray& part : table->keys.at(key).split(';')) {
        const int colon = part.indexOf(':');
        const int index = table->fieldIndex(colon < 0 ? part : part.left(colon));
        if (index >= 0)
            fields.append({&table->fields.at(index), colon >= 0});
    }
    return fields;
}

void bindVariant(SqliteStatement& statement, int parameter, const QVariant& value)
{
    const bool isNumber = value.type() == QVariant::Double || value.type() == QVariant::Int ||
                          value.type() == QVariant::LongLong || value.type() == QVariant::Bool;
    if (isNumber) {
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
    // The first read fixes what is seen until endRead.
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
    const CatalogTable* known = TableCatalog::table(table);
    const QVector<KeyField> fields = keyFields(known, key);
    if (fields.isEmpty() || values.size() > fields.size() || !ready(&error))
        return 0;
    // Rows before the values: equal in the leading fields and before them in the next one. Null is the least.
    QByteArray before;
    QByteArray equal;
    for (int i = 0; i < values.size(); ++i) {
        const QByteArray name = fields.at(i).field->name;
        const QByteArray parameter = "?" + QByteArray::number(i + 1);
        const QByteArray less = fields.at(i).falling
                                    ? name + " > " + parameter
                                    : "(" + name + " < " + parameter + " OR " + name + " IS NULL)";
        before += (i ? " OR " : "") + QByteArray("(") + equal + less + ")";
        equal += name + " = " + parameter + " AND ";
    }
    SqliteStatement row = m_read->cached("SELECT count(*) FROM " + known->name + " WHERE " +
                                         (before.isEmpty() ? QByteArray("0") : before));
    SqliteStatement same = m_read->cached("SELECT 1 FROM " + known->name + " WHERE " + equal + "1 LIMIT 1");
    for (int i = 0; i < values.size(); ++i) {
        bindVariant(row, i + 1, values.at(i));
        bindVariant(same, i + 1, values.at(i));
    }
    *exact = same.step();
    return row.step() ? row.integer(0) : 0;
}

QVariantMap SqliteStore::row(const QByteArray& table, int key, qint64 index)
{
    QVariantMap fields;
    StoreError error;
    const CatalogTable* known = TableCatalog::table(table);
    const QVector<KeyField> order = keyFields(known, key);
    if (order.isEmpty() || index < 0 || !ready(&error))
        return fields;
    QByteArray columns;
    for (const CatalogField& field : known->fields)
        columns += (columns.isEmpty() ? "" : ", ") + field.name;
    QByteArray orderBy;
    for (const KeyField& field : order)
        orderBy += field.field->name + (field.falling ? " DESC, " : ", ");
    SqliteStatement row = m_read->cached("SELECT " + columns + " FROM " + known->name + " ORDER BY " +
                                         orderBy + "rowid LIMIT 1 OFFSET ?");
    row.bind(1, index);
    if (!row.step())
        return fields;
    for (int i = 0; i < known->fields.size(); ++i) {
        const CatalogField& field = known->fields.at(i);
        QVariant value;
        if (!row.isNull(i)) {
            switch (field.type) {
            case mdr_TDouble:
                value = row.real(i);
                break;
            case mdr_TChar:
            case mdr_TMemo:
                value = QString::fromUtf8(row.bytes(i));
                break;
            case mdr_TBlob:
                value = row.bytes(i);
                break;
            default:
                value = static_cast<int>(row.integer(i));
            }
        }
        fields.insert(QString::fromLatin1(field.name), value);
    }
    return fields;
}
