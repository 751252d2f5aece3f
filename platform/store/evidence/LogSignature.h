#pragma once

#include "LogLeaf.h"

#include <QString>

/// A signature in the change log, which the store itself writes when a person puts a visa on a record, approves or
/// cancels a record, or closes a workshift: who, in which meaning, over which row of the log.
struct LogSignature {
    QByteArray meaning; ///< as in signatures.sql
    QByteArray login;
    QByteArray person; ///< his name at that time
    double time = 0;   ///< seconds since 1970, UTC
    QByteArray table;
    QByteArray key;
    QByteArray rowHash; ///< of the leaf of the signed row (LogLeaf), hexadecimal

    /// The table of the signatures.
    static constexpr char tableName[] = "LogSignatures";
    /// Whether the log shows from this row on that changes are signed.
    static bool isBeginning(const LoggedRow& row);
    /// The meaning of a change that needs a signature; empty for all others.
    static QByteArray meaningOf(const LoggedRow& row);
    /// Reads a row of the signatures; false if the row is none, or no new one.
    static bool read(const LoggedRow& row, LogSignature* signature);
    /// Whether it signs exactly this row of its transaction, by the person who wrote it.
    bool fits(const LoggedTransaction& transaction, const LoggedRow& row) const;
    /// A meaning in the user's words.
    static QString words(const QByteArray& meaning);
};
