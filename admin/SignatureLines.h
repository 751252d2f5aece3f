#pragma once

#include "RowChange.h"

/// The signatures of changes, and whether what was signed is what stands now.
namespace SignatureLines
{
/// A line about the signature of a change; empty if it needs none. \a changes are those of its row, in order.
QString of(const RowChange& change, const QVector<RowChange>& changes);
} // namespace SignatureLines
