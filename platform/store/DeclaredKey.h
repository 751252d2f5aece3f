#pragma once

#include "TableCatalog.h"

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
};
