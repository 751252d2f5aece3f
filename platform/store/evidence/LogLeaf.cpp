#include "LogLeaf.h"

TreeHash LogLeaf::ofRow(const LoggedRow& row)
{
    thread_local Sha256 hash;
    return hash.byte(0)
        .text(row.table)
        .text(row.key)
        .integer(row.event)
        .optional(row.oldRow)
        .optional(row.newRow)
        .result();
}

MerkleLeaves LogLeaf::rows(const LoggedTransaction& transaction)
{
    MerkleLeaves leaves;
    for (const LoggedRow& row : transaction.rows)
        leaves.append(ofRow(row));
    return leaves;
}

TreeHash LogLeaf::ofTransaction(const LoggedTransaction& transaction)
{
    thread_local Sha256 hash;
    return hash.byte(0)
        .integer(transaction.number)
        .text(transaction.batchKey)
        .text(transaction.login)
        .text(transaction.role())
        .real(transaction.time)
        .integer(transaction.rows.size())
        .add(rows(transaction).root())
        .result();
}
