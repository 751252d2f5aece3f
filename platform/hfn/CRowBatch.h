#pragma once

#include "CMDArray.h"

#include <QByteArray>

/// An array of changed rows to be sent to the server: the fields of one table and the order-of-entry key, without
/// which an array would count as empty. Freed at the end of its scope.
class VRK_EXPORT CRowBatch : public CMDArray
{
public:
    /// lastError says whether the fields were accepted.
    CRowBatch(const MDRFieldDescr* fields, int count);
    template <int Count>
    explicit CRowBatch(const MDRFieldDescr (&fields)[Count]) : CRowBatch(fields, Count)
    {
    }
    /// Takes the fields of another array, without its records.
    explicit CRowBatch(const CMDArray& structure);

    /// A fresh record with this flag and KeyLink, which gets no user mark. Fill it, then RecPost it.
    MDRData* newRow(MDRFlag flag, const QByteArray& keyLink);
};
