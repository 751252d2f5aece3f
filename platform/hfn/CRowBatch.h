#pragma once

#include "CMDArray.h"

#include <QByteArray>

/// An array of changed rows on its way to the server: the fields of one table and the order-of-entry key,
/// without which an array would count as empty. Destroyed with its scope.
class VRK_EXPORT CRowBatch : public CMDArray
{
public:
    /// lastError tells whether the fields were taken.
    CRowBatch(const MDRFieldDescr* fields, int count);
    /// With the fields of another array, without its records.
    explicit CRowBatch(const CMDArray& structure);

    /// A fresh record with this flag and its KeyLink set without the user mark. Fill it, then RecPost it.
    MDRData* newRow(MDRFlag flag, const QByteArray& keyLink);
};
