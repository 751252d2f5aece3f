#pragma once

#include "LogLeaf.h"
#include "StoreAdmin.h"

/// Compares the signatures of the change log with the changes that they sign: each visa, approval, cancellation and
/// closing by a person has one, and each signature fits a row of its transaction.
class SignatureAudit
{
public:
    explicit SignatureAudit(QVector<StoreAdmin::Finding>* findings) : m_findings(findings) {}

    /// Takes the next transaction of the log.
    void take(const LoggedTransaction& transaction);
    /// After the last one.
    void end();

private:
    QVector<StoreAdmin::Finding>* m_findings;
    qint64 m_first = 0; ///< the transaction from which on changes are signed; 0: not reached
    int m_unsigned = 0; ///< changes before it
};
