#pragma once

#include "MDArray.h"

#include <initializer_list>

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
    /// Replaces all keys by these, in order. One that cannot be added is left out; the last key stays, because an
    /// array without a key counts as empty.
    void setKeys(std::initializer_list<const char*> keys);
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
