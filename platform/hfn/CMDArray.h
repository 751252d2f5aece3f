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

    /// Takes ownership of an answer of the server. Null or the array already held: lastError becomes mdr_Assign,
    /// nothing changes.
    CMDArray& operator=(MDArray* answer);

    /// Adds a key (format of MDRKeyDescr) as the last one; returns the code.
    int KeyAdd(const char* fields, int flags);
    /// Posts a record of this array and returns its final address; null for null and foreign records.
    MDRData* RecPost(MDRData* record);
    /// Sets a field and its user mark; does nothing if the field does not exist.
    void SetValF(MDRData* record, const char* name, const MDRVar& value);
    /// Reads a field; if the field does not exist, only the type of \a value becomes 0.
    void GetVal(const MDRData* record, const char* name, MDRVar& value) const;
    /// Returns the count of key 0, or 0 without a key.
    int RecCount() const { return MDAKeyRecCount(array, 0); }

    MDArray* array = nullptr;
    int lastError = 0;
};
