#pragma once

#include "MDArray.h"

#include <functional>
#include <QByteArray>
#include <QVector>

struct CatalogTable;

/// What the answer of a select looks like: names and types of its columns, from the catalog where they come straight
/// out of a table, from the engine or from the first row where they are computed.
struct AnswerShape {
    struct Column {
        MDRFieldDescr field = {};
        bool isComputed = false; ///< not straight out of a table: the engine decides the type
        int keyColumn = -1;      ///< of a blob that stays in the store: where its row's KeyLink stands
        QByteArray table;        ///< of a blob that stays in the store
    };
    /// Where a column comes from.
    struct Origin {
        QByteArray name;                     ///< as the answer calls it
        const CatalogTable* table = nullptr; ///< null for a computed one
        int field = -1;
    };
    QVector<Column> columns;

    /// \a sql is the text of the select; whether a blob can stay in the store depends on it.
    static AnswerShape of(const QVector<Origin>& origins, const QByteArray& sql);

    bool hasStoredBlobs() const;
    /// The same select, with the lengths of the blobs that stay in the store in their place. \a other makes the
    /// expression of every other column out of its name.
    using Expression = std::function<QByteArray(int column, const QByteArray& name)>;
    QByteArray wrapped(const QByteArray& sql, const Expression& other = {}) const;
    QVector<MDRFieldDescr> descriptors() const;

    /// The text of a select without the semicolons and remarks at its end.
    static QByteArray withoutEnd(const QByteArray& sql);
    /// The select with no more than the first of the literals that each IN lists: the columns of its answer are the
    /// same, and the engine understands it sooner.
    static QByteArray withoutLists(const QByteArray& sql);
};
