#pragma once

#include "Store.h"

#include <functional>

class CodePage;

/// One flagged record as a statement with values.
struct RowStatement {
    struct Value {
        enum Kind { Null, Text, Blob, Real, Number } kind = Null;
        QByteArray bytes; ///< of texts in UTF-8, and of blobs; those of a blob are the record's own
        double real = 0;
        qint32 number = 0;
    };
    QByteArray table; ///< its declared name
    QByteArray sql;   ///< with parameters "?1", "?2" or "$1", "$2"; the first one is the key
    QVector<Value> values;
    bool isUpdate = false; ///< fails without a row
};

/// What both engines write for a batch.
namespace RowStatements
{
/// Whether there is anything to write.
bool isAnythingFlagged(const std::vector<StoreWrite>& writes);
/// Hands every flagged record of \a write to \a run as a statement, in order of entry, until it returns false.
/// False also when a record cannot be written: \a error says why.
bool forEach(const StoreWrite& write, const CodePage& page, char parameterSign,
             const std::function<bool(const RowStatement&)>& run, StoreError* error);
/// The row that an update should change is not there.
StoreError noSuchRow(const RowStatement& statement);
} // namespace RowStatements
