#pragma once

#include "TableCatalog.h"

#include <QVariant>

/// A key that the catalog declares for a table, and the statements by which scripts seek and walk in its
/// order. Null is the least value: first in ascending order, last in descending order.
class DeclaredKey
{
public:
    struct Field {
        const CatalogField* field;
        bool isFalling;
    };

    /// Has no fields if there is no such table or key.
    DeclaredKey(const CatalogTable* table, int key);

    const CatalogTable* table;
    QVector<Field> fields;

    /// Selects the rows that have the first \a count values. Parameters are \a sign and a number from 1.
    QByteArray sameSql(int count, char sign) const;
    /// Counts the rows before the first \a count values.
    QByteArray beforeSql(int count, char sign) const;
    /// Selects the row at the position \a parameter, all fields in order; equal rows are ordered by \a tie.
    QByteArray rowSql(const QByteArray& parameter, const QByteArray& tie) const;
    /// The fields of such a row from a reader (EngineStore), by their names.
    template <class Reader>
    QVariantMap fieldsOf(const Reader& row) const
    {
        QVariantMap all;
        for (int i = 0; i < table->fields.size(); ++i)
            all.insert(QString::fromLatin1(table->fields.at(i).name),
                       row.isNull(i) ? QVariant() : valueOf(row, i));
        return all;
    }
    /// Whether scripts pass the value as a number, not as a text.
    static bool isNumber(const QVariant& value);

private:
    template <class Reader>
    QVariant valueOf(const Reader& row, int column) const
    {
        switch (table->fields.at(column).type) {
        case mdr_TDouble:
            return row.real(column);
        case mdr_TChar:
        case mdr_TMemo:
            return QString::fromUtf8(row.bytes(column));
        case mdr_TBlob:
            return row.bytes(column);
        default:
            return static_cast<int>(row.integer(column));
        }
    }
};
