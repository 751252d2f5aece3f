#pragma once

#include "TableCatalog.h"

/// A key that the catalog declares for a table, and the statements by which scripts seek and walk in its order. Null
/// is the least value: first in rising order, last in falling.
class DeclaredKey
{
public:
    struct Field {
        const CatalogField* field;
        bool isFalling;
    };

    /// Without fields when there is no such table or key.
    DeclaredKey(const CatalogTable* table, int key);

    const CatalogTable* table;
    QVector<Field> fields;

    /// The rows that have the first \a count values. Parameters are \a sign and a number from 1.
    QByteArray sameSql(int count, char sign) const;
    /// How many rows come before the first \a count values.
    QByteArray beforeSql(int count, char sign) const;
    /// The row at the place that \a parameter tells, all fields in order; equal ones by \a tie.
    QByteArray rowSql(const QByteArray& parameter, const QByteArray& tie) const;
};
