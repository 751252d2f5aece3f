#include "ScriptHost.h"

#include "Store.h"
#include "TableCatalog.h"

#include <QJSEngine>

ScriptHost::ScriptHost(QJSEngine* engine, Store* store) : m_engine(engine), m_store(store) {}

QJSValue ScriptHost::modelTableByName(const QString& name)
{
    const CatalogTable* table = TableCatalog::table(name.toLatin1());
    if (!table)
        return QJSValue(QJSValue::NullValue);
    QJSValue handle = m_engine->newObject();
    handle.setProperty(QStringLiteral("table"), QString::fromLatin1(table->name));
    return handle;
}

QByteArray ScriptHost::tableName(const QJSValue& table, int key)
{
    const QByteArray name = table.property(QStringLiteral("table")).toString().toLatin1();
    const CatalogTable* known = TableCatalog::table(name);
    if (!known || key < 0 || key >= known->keys.size()) {
        m_engine->throwError(QStringLiteral("no such table or key"));
        return QByteArray();
    }
    return known->name;
}

QJSValue ScriptHost::recordCount(const QJSValue& table)
{
    const QByteArray name = tableName(table);
    return name.isEmpty() ? QJSValue() : QJSValue(static_cast<double>(m_store->rowCount(name)));
}

QJSValue ScriptHost::seekRecord(const QJSValue& table, int key, const QJSValue& values)
{
    const QByteArray name = tableName(table, key);
    if (name.isEmpty())
        return QJSValue();
    bool exact = false;
    const qint64 index = m_store->seek(name, key, values.toVariant().toList(), &exact);
    QJSValue found = m_engine->newArray(2);
    found.setProperty(0, rowAt(name, key, index));
    found.setProperty(1, static_cast<double>(index));
    return found;
}

QJSValue ScriptHost::record(const QJSValue& table, int key, double index)
{
    const QByteArray name = tableName(table, key);
    return name.isEmpty() ? QJSValue() : rowAt(name, key, static_cast<qint64>(index));
}

QJSValue ScriptHost::rowAt(const QByteArray& table, int key, qint64 index)
{
    if (index < 0 || index >= m_store->rowCount(table))
        return QJSValue(QJSValue::NullValue);
    QJSValue row = m_engine->newObject();
    const QVariantMap fields = m_store->row(table, key, index);
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        if (field->isValid() && !field->isNull())
            row.setProperty(field.key(), m_engine->toScriptValue(*field));
    }
    return row;
}

QJSValue ScriptHost::fieldValue(const QJSValue& record, const QString& field)
{
    if (!record.isObject()) {
        m_engine->throwError(QStringLiteral("no record"));
        return QJSValue();
    }
    return record.hasOwnProperty(field) ? record.property(field) : QJSValue(QJSValue::NullValue);
}
