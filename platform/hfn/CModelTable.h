#pragma once

#include "CMDArray.h"

#include <string>

/// A record array with the name of its table on the server.
class VRK_EXPORT CModelTable
{
public:
    explicit CModelTable(const std::string& name);

    operator CMDArray&() { return data; }
    operator const CMDArray&() const { return data; }

    std::string name;
    CMDArray data;
};

/// The first record with this key, in order of entry. Null if there is none, without a table, and for a
/// null or an empty key.
VRK_EXPORT MDRData* recordByKeyLink(const CModelTable* table, const char* key);
VRK_EXPORT MDRData* recordByKeyLink(const CMDArray& array, const char* key);
