#include "RowStatements.h"

#include "CodePage.h"
#include "Fields.h"
#include "MDRValues.h"
#include "TableCatalog.h"

#include <cmath>

namespace
{
using Value = RowStatement::Value;

StoreError badRequest(const char* text, const QByteArray& table, const QByteArray& detail = QByteArray())
{
    return {StoreError::BadRequest, QString::fromUtf8(text).arg(QString::fromLatin1(table)),
            QString::fromUtf8(detail)};
}

/// One column to be written: the position of its value in the record and its type in the store.
struct Column {
    const MDRField* from;
    const CatalogField* to;
};

bool isFlagged(const MDRData* record)
{
    return (record->flags & (ROW_INSERT | ROW_UPDATE | ROW_DELETE)) != 0;
}

/// Converts a value to a form that the column and both engines accept. False if that is impossible.
bool convert(const MDRVar& value, const CatalogField& to, const CodePage& page, Value* converted)
{
    *converted = Value();
    if (value.isNull || value.type == mdr_TNone)
        return true;
    const bool isText = MDRValue::isText(value);
    const bool wantsText = to.type == mdr_TChar || to.type == mdr_TMemo || to.type == mdr_TBlob;
    if (isText != wantsText)
        return false;
    switch (to.type) {
    case mdr_TChar:
    case mdr_TMemo:
        converted->kind = Value::Text;
        converted->bytes = QByteArray("");
        page.toUtf8(value.value.text.data, value.value.text.length, &converted->bytes);
        return true;
    case mdr_TBlob:
        // The record outlives the statement, so large files need no extra copy.
        converted->kind = Value::Blob;
        converted->bytes = value.value.text.length > 0
                               ? QByteArray::fromRawData(value.value.text.data, value.value.text.length)
                               : QByteArray("");
        return true;
    case mdr_TDouble:
        converted->kind = Value::Real;
        converted->real = value.type == mdr_TDouble ? value.value.real : value.value.number;
        return std::isfinite(converted->real);
    default: {
        double number = value.type == mdr_TDouble ? std::nearbyint(value.value.real) : value.value.number;
        if (to.type == mdr_TBool)
            number = number != 0 ? 1 : 0;
        if (!(number >= INT32_MIN && number <= INT32_MAX) ||
            (to.type == mdr_TByte && (number < 0 || number > 255)))
            return false;
        converted->kind = Value::Number;
        converted->number = static_cast<qint32>(number);
        return true;
    }
    }
}

QByteArray insertSql(const QByteArray& table, const QVector<Column>& columns, char sign)
{
    QByteArray names("KeyLink");
    QByteArray values = QByteArray(1, sign) + "1";
    for (int i = 0; i < columns.size(); ++i) {
        names += ", " + columns.at(i).to->name;
        values += QByteArray(", ") + sign + QByteArray::number(i + 2);
    }
    return "INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")";
}

QByteArray updateSql(const QByteArray& table, const QVector<Column>& columns, char sign)
{
    QByteArray values;
    for (int i = 0; i < columns.size(); ++i)
        values += (i ? ", " : "") + columns.at(i).to->name + " = " + sign + QByteArray::number(i + 2);
    // Even without a changed field the row is updated: it must exist, and its writer waits for the event.
    if (columns.isEmpty())
        values = "KeyLink = KeyLink";
    return "UPDATE " + table + " SET " + values + " WHERE KeyLink = " + sign + "1";
}
} // namespace

bool RowStatements::isAnythingFlagged(const std::vector<StoreWrite>& writes)
{
    for (const StoreWrite& write : writes)
        for (const MDRData* record : MDARecsByEntry(write.records))
            if (isFlagged(record))
                return true;
    return false;
}

StoreError RowStatements::noSuchRow(const RowStatement& statement)
{
    return {StoreError::NoSuchRow,
            QString::fromUtf8("Строки, которую нужно изменить, уже нет (таблица «%1»).")
                .arg(QString::fromLatin1(statement.table)),
            QString::fromUtf8(statement.values.first().bytes)};
}

bool RowStatements::forEach(const StoreWrite& write, const CodePage& page, char parameterSign,
                            const std::function<bool(const RowStatement&)>& run, StoreError* error)
{
    const CatalogTable* table = TableCatalog::table(write.table);
    if (!table) {
        *error = badRequest("В хранилище нет таблицы «%1».", write.table);
        return false;
    }
    const MDRField* key = MDRFldByName(write.records, Field::KeyLink);
    if (!key || (key->type != mdr_TChar && key->type != mdr_TMemo)) {
        *error = badRequest("В строках таблицы «%1» нет ключа.", table->name);
        return false;
    }
    for (const MDRData* record : MDARecsByEntry(write.records)) {
        if (!isFlagged(record))
            continue;
        RowStatement statement;
        statement.table = table->name;
        statement.isUpdate = !(record->flags & ROW_INSERT) && record->flags & ROW_UPDATE;
        MDRVar value;
        MDRGetVal(key, record, &value);
        if (!MDRValue::hasText(value)) {
            *error = badRequest("В строке таблицы «%1» нет ключа.", table->name);
            return false;
        }
        Value converted;
        convert(value, {"KeyLink", mdr_TChar, 0}, page, &converted);
        if (converted.bytes.contains('\0')) {
            *error = badRequest("Недопустимый ключ строки таблицы «%1».", table->name, converted.bytes);
            return false;
        }
        statement.values.append(converted);

        QVector<Column> columns;
        for (int i = 0; i < MDAFldCount(write.records) && !(record->flags & ROW_DELETE); ++i) {
            const MDRField* field = MDRFldByNum(write.records, i);
            bool isMarked = false;
            if (field == key || MDRIsUser(field, record, &isMarked) != mdr_Ok || !isMarked)
                continue;
            const int index = table->fieldIndex(field->name);
            if (index < 0) {
                *error = badRequest("В таблице «%1» нет такого поля.", table->name, field->name);
                return false;
            }
            const CatalogField& to = table->fields.at(index);
            if (MDRGetVal(field, record, &value) != mdr_Ok || !convert(value, to, page, &converted)) {
                *error = badRequest("Значение не подходит полю таблицы «%1».", table->name, to.name);
                return false;
            }
            columns.append({field, &to});
            statement.values.append(converted);
        }
        if (record->flags & ROW_INSERT)
            statement.sql = insertSql(table->name, columns, parameterSign);
        else if (record->flags & ROW_UPDATE)
            statement.sql = updateSql(table->name, columns, parameterSign);
        else
            statement.sql = "DELETE FROM " + table->name + " WHERE KeyLink = " + parameterSign + "1";
        if (!run(statement))
            return false;
    }
    return true;
}
