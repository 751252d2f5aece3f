#include "DeclaredKey.h"

#include <QList>

DeclaredKey::DeclaredKey(const CatalogTable* known, int key) : table(known)
{
    if (!table || key < 0 || key >= table->keys.size())
        return;
    for (const QByteArray& part : table->keys.at(key).split(';')) {
        const int colon = part.indexOf(':');
        const int index = table->fieldIndex(colon < 0 ? part : part.left(colon));
        if (index >= 0)
            fields.append({&table->fields.at(index), colon >= 0});
    }
}

QByteArray DeclaredKey::sameSql(int count, char sign) const
{
    QByteArray equal;
    for (int i = 0; i < count; ++i)
        equal += " AND " + fields.at(i).field->name + " = " + sign + QByteArray::number(i + 1);
    return "SELECT 1 FROM " + table->name + " WHERE TRUE" + equal + " LIMIT 1";
}

QByteArray DeclaredKey::beforeSql(int count, char sign) const
{
    // Equal in the leading fields and before the value in the next one.
    QByteArray before = "FALSE";
    QByteArray equal;
    for (int i = 0; i < count; ++i) {
        const QByteArray& name = fields.at(i).field->name;
        const QByteArray parameter = sign + QByteArray::number(i + 1);
        before += " OR (" + equal +
                  (fields.at(i).isFalling ? name + " > " + parameter
                                          : "(" + name + " < " + parameter + " OR " + name + " IS NULL)") +
                  ")";
        equal += name + " = " + parameter + " AND ";
    }
    return "SELECT count(*) FROM " + table->name + " WHERE " + before;
}

QByteArray DeclaredKey::rowSql(const QByteArray& parameter, const QByteArray& tie) const
{
    QByteArray columns;
    for (const CatalogField& field : table->fields)
        columns += (columns.isEmpty() ? "" : ", ") + field.name;
    QByteArray order;
    for (const Field& field : fields)
        order += field.field->name + (field.isFalling ? " DESC NULLS LAST, " : " ASC NULLS FIRST, ");
    return "SELECT " + columns + " FROM " + table->name + " ORDER BY " + order + tie + " LIMIT 1 OFFSET " +
           parameter;
}

bool DeclaredKey::isNumber(const QVariant& value)
{
    return value.userType() == QMetaType::Double || value.userType() == QMetaType::Int ||
           value.userType() == QMetaType::LongLong || value.userType() == QMetaType::Bool;
}
