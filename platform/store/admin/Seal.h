#pragma once

#include "EvidenceLog.h"
#include "LogHead.h"

/// Seals the change log of a store: extends its tree by the transactions written since the last time and
/// keeps the new head, signed. Writers of the journal do not wait.
namespace Seal
{
/// \a seen are the heads that these keys are known to have signed, from a place outside the store; the log
/// must contain them. Returns the note of the new head, or the last one if nothing was written since. False
/// with \a error if the log does not contain a head: somebody has changed it, and nothing is signed.
bool make(EvidenceLog& log, const std::vector<std::unique_ptr<SealKey>>& keys,
          const QVector<QByteArray>& seen, QByteArray* note, StoreError* error);
} // namespace Seal
