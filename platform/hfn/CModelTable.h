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
