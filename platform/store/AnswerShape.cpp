#include "AnswerShape.h"

#include "TableCatalog.h"

#include <cctype>
#include <QRegularExpression>

namespace
{
MDRFieldDescr describe(const QByteArray& name, MDRType type, int width)
{
    MDRFieldDescr field = {};
    qstrncpy(field.name, name.constData(), sizeof field.name);
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
} // namespace

AnswerShape AnswerShape::of(const QVector<Origin>& origins, const QByteArray& sql)
{
    AnswerShape shape;
    for (const Origin& origin : origins) {
        Column column;
        if (origin.table) {
            const CatalogField& field = origin.table->fields.at(origin.field);
            const bool isRenamed = qstricmp(origin.name, field.name) != 0;
            column.field = describe(isRenamed ? origin.name : field.name, field.type, field.width);
        } else {
            column.field = describe(origin.name, mdr_TMemo, 0);
            column.isComputed = true;
        }
        shape.columns.append(column);
    }
    for (int i = 0; i < origins.size(); ++i) {
        Column& blob = shape.columns[i];
        const CatalogTable* table = origins.at(i).table;
        if (blob.isComputed || blob.field.type != mdr_TBlob || !isTakenOnce(sql, table->name))
            continue;
        for (int k = 0; k < origins.size() && blob.keyColumn < 0; ++k) {
            const Origin& key = origins.at(k);
            if (key.table == table && table->fields.at(key.field).name == "KeyLink")
                blob.keyColumn = k;
        }
        if (blob.keyColumn >= 0)
            blob.table = table->name;
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

QByteArray AnswerShape::wrapped(const QByteArray& sql, const Expression& other) const
{
    QByteArray names;
    QByteArray values;
    for (int i = 0; i < columns.size(); ++i) {
        const QByteArray name = "c" + QByteArray::number(i);
        names += (i ? ", " : "") + name;
        values += i ? ", " : "";
        // The length of a blob is known without reading it.
        if (columns.at(i).keyColumn >= 0)
            values += "length(" + name + ")";
        else
            values += other ? other(i, name) : name;
    }
    // The select may end with a remark, hence the line break.
    return "WITH answer (" + names + ") AS (" + sql + "\n) SELECT " + values + " FROM answer";
}

QVector<MDRFieldDescr> AnswerShape::descriptors() const
{
    QVector<MDRFieldDescr> all;
    for (const Column& column : columns)
        all.append(column.field);
    return all;
}

QByteArray AnswerShape::withoutEnd(const QByteArray& sql)
{
    // The end is behind the last character that is no blank, no semicolon and in no remark.
    int end = 0;
    for (int i = 0; i < sql.size();) {
        const char c = sql.at(i);
        int next = i + 1;
        if (sql.mid(i, 2) == "--") {
            const int line = sql.indexOf('\n', i);
            next = line < 0 ? sql.size() : line + 1;
        } else if (sql.mid(i, 2) == "/*") {
            const int closed = sql.indexOf("*/", i + 2);
            next = closed < 0 ? sql.size() : closed + 2;
        } else if (c == '\'' || c == '"') {
            const int closed = sql.indexOf(c, i + 1);
            next = closed < 0 ? sql.size() : closed + 1;
            end = next;
        } else if (c != ';' && !isspace(static_cast<unsigned char>(c))) {
            end = next;
        }
        i = next;
    }
    return sql.left(end);
}
