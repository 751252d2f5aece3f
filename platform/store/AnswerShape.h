#pragma once

#include "MDArray.h"

#include <functional>
#include <QByteArray>
#include <QVector>

struct CatalogTable;
struct StoreError;

/// The shape of a select's answer: names and types of its columns. They come from the catalog for plain
/// columns of a table, from the engine or the first row for computed ones.
struct AnswerShape {
    struct Column {
        MDRFieldDescr field = {};
        bool isComputed = false; ///< not a plain column of a table: the engine decides the type
        int keyColumn = -1;      ///< for a blob that stays in the store: the column with its row's KeyLink
        QByteArray table;        ///< for a blob that stays in the store
    };
    /// The origin of a column.
    struct Origin {
        QByteArray name;                     ///< its name in the answer
        const CatalogTable* table = nullptr; ///< null for a computed one
        int field = -1;
    };
    QVector<Column> columns;

    /// \a sql is the text of the select; it decides whether a blob can stay in the store.
    static AnswerShape of(const QVector<Origin>& origins, const QByteArray& sql);

    bool hasStoredBlobs() const;
    /// Whether an array can have so many fields; otherwise sets the error.
    bool isNarrow(StoreError* error) const;
    /// The same select with blobs that stay in the store replaced by their lengths. \a other makes the
    /// expression of every other column from its name.
    using Expression = std::function<QByteArray(int column, const QByteArray& name)>;
    QByteArray wrapped(const QByteArray& sql, const Expression& other = {}) const;
    QVector<MDRFieldDescr> descriptors() const;

    /// The text of a select without semicolons and comments at its end.
    static QByteArray withoutEnd(const QByteArray& sql);
    /// The select with at most the first literal of each IN list: the columns of its answer are the same,
    /// and the engine parses it faster.
    static QByteArray withoutLists(const QByteArray& sql);
};
