#include "AnswerShape.h"

#include "StoreErrors.h"
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

/// If the text names a table more than once, it is unknown which of its keys belongs to which of its blobs.
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

bool isBlank(char c)
{
    return isspace(static_cast<unsigned char>(c)) != 0;
}

/// Whether a SQL comment begins here.
bool isRemark(const QByteArray& sql, int at)
{
    const char c = sql.at(at);
    const char after = at + 1 < sql.size() ? sql.at(at + 1) : '\0';
    return (c == '-' && after == '-') || (c == '/' && after == '*');
}

/// The end of the comment, the quoted text or the single character that begins here.
int pieceEnd(const QByteArray& sql, int at)
{
    const char c = sql.at(at);
    if (isRemark(sql, at)) {
        const int last = c == '-' ? sql.indexOf('\n', at) : sql.indexOf("*/", at + 2);
        return last < 0 ? sql.size() : last + (c == '-' ? 1 : 2);
    }
    if (c != '\'' && c != '"')
        return at + 1;
    const int closed = sql.indexOf(c, at + 1);
    return closed < 0 ? sql.size() : closed + 1;
}

/// Whether the preceding word is IN.
bool isBehindIn(const QByteArray& sql, int at)
{
    int end = at;
    while (end > 0 && isBlank(sql.at(end - 1)))
        --end;
    return end > 2 && qstrnicmp(sql.constData() + end - 2, "in", 2) == 0 && isBlank(sql.at(end - 3));
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

bool AnswerShape::isNarrow(StoreError* error) const
{
    constexpr int mostFields = 255;
    return columns.size() <= mostFields ||
           StoreErrors::raise(error, StoreError::BadRequest, "В ответе на запрос слишком много полей.");
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
    // The select may end with a comment, which the line break ends.
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
    // The end is after the last character that is no blank, no semicolon and not in a comment.
    int end = 0;
    for (int i = 0; i < sql.size();) {
        const int next = pieceEnd(sql, i);
        if (!isRemark(sql, i) && sql.at(i) != ';' && !isBlank(sql.at(i)))
            end = next;
        i = next;
    }
    return sql.left(end);
}

QByteArray AnswerShape::withoutLists(const QByteArray& sql)
{
    QByteArray lean;
    int taken = 0; // the text before this position is copied or dropped
    for (int i = 0; i < sql.size();) {
        const int next = pieceEnd(sql, i);
        if (sql.at(i) == '(' && isBehindIn(sql, i) && next < sql.size() && sql.at(next) == '\'') {
            const int first = pieceEnd(sql, next);
            lean += sql.mid(taken, first - taken);
            i = first;
            while (i + 1 < sql.size() && sql.at(i) == ',' && sql.at(i + 1) == '\'')
                i = pieceEnd(sql, i + 1);
            taken = i;
        } else {
            i = next;
        }
    }
    return lean + sql.mid(taken);
}
