#pragma once

#include "CMDArray.h"

#include <string>

/// A record array with the name of its table on the server.
class VRK_EXPORT CModelTable
{
public:
    explicit CModelTable(const std::string& name);
    /// With these fields and one key, such as Field::KeyLink; "" is the order of entry.
    template <int Count>
    CModelTable(const std::string& tableName, const MDRFieldDescr (&fields)[Count], const char* key)
        : CModelTable(tableName)
    {
        data.lastError = MDAFldAdd(data.array, Count, fields);
        data.KeyAdd(key, 0);
    }

    operator CMDArray&() { return data; }
    operator const CMDArray&() const { return data; }

    std::string name;
    CMDArray data;
};

/// The first record with this key, in order of entry. Null if there is none, without a table, and for a
/// null or an empty key.
VRK_EXPORT MDRData* recordByKeyLink(const CModelTable* table, const char* key);
VRK_EXPORT MDRData* recordByKeyLink(const CMDArray& array, const char* key);
