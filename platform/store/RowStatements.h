#pragma once

#include "Store.h"

#include <functional>

class CodePage;

/// One flagged record as a statement with values.
struct RowStatement {
    struct Value {
        enum Kind { Null, Text, Blob, Real, Number } kind = Null;
        QByteArray bytes; ///< of texts in UTF-8, and of blobs; a blob's bytes belong to the record
        double real = 0;
        qint32 number = 0;
    };
    QByteArray table; ///< its declared name
    QByteArray sql;   ///< with parameters "?1", "?2" or "$1", "$2"; the first is the key
    QVector<Value> values;
    bool isUpdate = false; ///< fails if it changes no row
};

/// The statements that both engines run for a batch.
namespace RowStatements
{
/// Whether any record is flagged.
bool isAnythingFlagged(const std::vector<StoreWrite>& writes);
/// Passes every flagged record of \a write to \a run as a statement, in order of entry, until it returns
/// false. Also false if a record cannot be written; then \a error is set.
bool forEach(const StoreWrite& write, const CodePage& page, char parameterSign,
             const std::function<bool(const RowStatement&)>& run, StoreError* error);
/// The error for an update of a missing row.
StoreError noSuchRow(const RowStatement& statement);
} // namespace RowStatements
