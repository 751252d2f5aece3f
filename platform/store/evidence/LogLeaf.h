#pragma once

#include "MerkleTree.h"

#include <QByteArray>
#include <QVector>

/// One row of the change log, as it is stored.
struct LoggedRow {
    QByteArray table;
    QByteArray key;
    qint64 event = 0;  ///< 601 inserted, 602 changed, 603 deleted
    QByteArray oldRow; ///< the values (ChangeRow); null if there was no row
    QByteArray newRow;
};

/// One transaction of the change log with all its rows.
struct LoggedTransaction {
    qint64 number = 0;
    QByteArray batchKey;
    QByteArray login;
    bool isLoader = false; ///< imports and the administrator's commands
    double time = 0;       ///< seconds since 1970, UTC
    QVector<LoggedRow> rows;

    QByteArray role() const { return isLoader ? "loader" : "person"; }
};

/// The leaves of the evidence (docs/evidence-format.md).
namespace LogLeaf
{
TreeHash ofRow(const LoggedRow& row);
/// The tree of the rows of a transaction.
MerkleLeaves rows(const LoggedTransaction& transaction);
TreeHash ofTransaction(const LoggedTransaction& transaction);
} // namespace LogLeaf
