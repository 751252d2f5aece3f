#pragma once

#include "MDArray.h"

/// Value holder of one record array: owns the array and keeps the code of the last operation.
class VRK_EXPORT CMDArray
{
public:
    CMDArray() = default;
    ~CMDArray() { MDADestroy(array); }
    CMDArray(const CMDArray&) = delete;
    CMDArray& operator=(const CMDArray&) = delete;

    /// Takes over an answer of the server. Null or the present array: lastError becomes mdr_Assign, nothing
    /// changes.
    CMDArray& operator=(MDArray* answer);

    /// Adds a key (format of MDRKeyDescr) as the last one; returns the code.
    int KeyAdd(const char* fields, int flags);
    /// Posts a record of this array and returns its final address; null for null and foreign records.
    MDRData* RecPost(MDRData* record);
    /// Sets a field and its user mark; skipped when there is no such field.
    void SetValF(MDRData* record, const char* name, const MDRVar& value);
    /// Reads a field; without such a field only the type of \a value becomes 0.
    void GetVal(const MDRData* record, const char* name, MDRVar& value) const;
    /// 0 without a key, otherwise the count of key 0.
    int RecCount() const { return MDAKeyRecCount(array, 0); }

    MDArray* array = nullptr;
    int lastError = 0;
};
