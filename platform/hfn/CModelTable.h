#pragma once

#include "CMDArray.h"

#include <string>

/// A named table: a record array under the name that the server knows it by.
class VRK_EXPORT CModelTable
{
public:
    explicit CModelTable(const std::string& name);

    operator CMDArray&() { return data; }
    operator const CMDArray&() const { return data; }

    std::string name;
    CMDArray data;
};
