#pragma once

#include "MDArray.h"
#include "SqliteConnection.h"

#include <QVector>

/// What the answer of a select looks like: names and types of its columns, from the catalog where they come straight
/// out of a table, from the first row where they are computed.
struct AnswerShape {
    struct Column {
        MDRFieldDescr field = {};
        bool isComputed = false; ///< not straight out of a table: the first row decides the type
        int keyColumn = -1;      ///< of a blob that stays in the store: where its row's KeyLink stands
        QByteArray table;        ///< of a blob that stays in the store
    };
    QVector<Column> columns;

    /// \a sql is the text that the statement was made from; whether a blob can stay in the store depends on it.
    static AnswerShape of(sqlite3_stmt* statement, const QByteArray& sql);

    bool hasStoredBlobs() const;
    /// The same select, with the lengths of the blobs that stay in the store in their place.
    QByteArray wrapped(const QByteArray& sql) const;
    /// Decides the types of computed columns by the row on which the statement stands, if it has one.
    void settle(sqlite3_stmt* statement, bool hasRow);
    QVector<MDRFieldDescr> descriptors() const;
};
