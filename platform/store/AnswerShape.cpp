#include "AnswerShape.h"

#include "TableCatalog.h"

#include <limits>
#include <QRegularExpression>

namespace
{
MDRFieldDescr describe(const char* name, MDRType type, int width)
{
    MDRFieldDescr field = {};
    qstrncpy(field.name, name, sizeof field.name);
    field.type = type;
    field.width = static_cast<std::uint8_t>(width);
    return field;
}

/// A table that the text takes in more than once cannot tell which of its keys goes with which of its blobs.
bool isTakenOnce(const QByteArray& sql, const QByteArray& table)
{
    const QRegularExpression mention(
        QStringLiteral("\\b%1\\b(?!\\s*[\"\\]`]?\\s*\\.)").arg(QString::fromLatin1(table)),
        QRegularExpression::CaseInsensitiveOption);
    auto matches = mention.globalMatch(QString::fromUtf8(sql));
    int count = 0;
    for (; matches.hasNext(); matches.next())
        ++count;
    return count == 1;
}

MDRType computedType(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: {
        const sqlite3_int64 number = sqlite3_column_int64(statement, column);
        const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                          number <= std::numeric_limits<std::int32_t>::max();
        return fits ? mdr_TInt32 : mdr_TDouble;
    }
    case SQLITE_FLOAT:
        return mdr_TDouble;
    case SQLITE_BLOB:
        return mdr_TBlob;
    default:
        return mdr_TMemo;
    }
}
} // namespace

AnswerShape AnswerShape::of(sqlite3_stmt* statement, const QByteArray& sql)
{
    AnswerShape shape;
    const int count = sqlite3_column_count(statement);
    QVector<QByteArray> tables(count);
    for (int i = 0; i < count; ++i) {
        Column column;
        const char* name = sqlite3_column_name(statement, i);
        const char* origin = sqlite3_column_origin_name(statement, i);
        const CatalogTable* table = nullptr;
        if (origin)
            table = TableCatalog::table(sqlite3_column_table_name(statement, i));
        const int index = table ? table->fieldIndex(origin) : -1;
        if (index >= 0) {
            const CatalogField& field = table->fields.at(index);
            tables[i] = table->name;
            const bool renamed = qstricmp(name, field.name) != 0;
            column.field = describe(renamed ? name : field.name.constData(), field.type, field.width);
        } else {
            column.field = describe(name, mdr_TMemo, 0);
            column.isComputed = true;
        }
        shape.columns.append(column);
    }
    for (int i = 0; i < count; ++i) {
        Column& blob = shape.columns[i];
        if (blob.isComputed || blob.field.type != mdr_TBlob || !isTakenOnce(sql, tables.at(i)))
            continue;
        for (int k = 0; k < count && blob.keyColumn < 0; ++k) {
            const char* origin = sqlite3_column_origin_name(statement, k);
            if (origin && tables.at(k) == tables.at(i) && qstricmp(origin, "KeyLink") == 0)
                blob.keyColumn = k;
        }
        if (blob.keyColumn >= 0)
            blob.table = tables.at(i);
    }
    return shape;
}

bool AnswerShape::hasStoredBlobs() const
{
    for (const Column& column : columns)
        if (column.keyColumn >= 0)
            return true;
    return false;
}

QByteArray AnswerShape::wrapped(const QByteArray& sql) const
{
    QByteArray names;
    QByteArray values;
    for (int i = 0; i < columns.size(); ++i) {
        const QByteArray name = "c" + QByteArray::number(i);
        names += (i ? ", " : "") + name;
        // The length of a blob is known without reading it.
        values += (i ? ", " : "") + (columns.at(i).keyColumn >= 0 ? "length(" + name + ")" : name);
    }
    // The select may end with a remark, hence the line break.
    return "WITH answer (" + names + ") AS (" + sql + "\n) SELECT " + values + " FROM answer";
}

void AnswerShape::settle(sqlite3_stmt* statement, bool hasRow)
{
    for (int i = 0; hasRow && i < columns.size(); ++i)
        if (columns.at(i).isComputed)
            columns[i].field.type = computedType(statement, i);
}

QVector<MDRFieldDescr> AnswerShape::descriptors() const
{
    QVector<MDRFieldDescr> all;
    for (const Column& column : columns)
        all.append(column.field);
    return all;
}
