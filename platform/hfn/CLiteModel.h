#pragma once

#include "CModelTable.h"

#include <map>
#include <memory>

/// Container of model tables by name, filled by CToolLiteModel. Owns the tables.
class VRK_EXPORT CLiteModel
{
public:
    /// The table, or null when it did not arrive. The name is compared exactly.
    CModelTable* GetTableByName(const std::string& name) const;
    /// Takes the table in, in place of one of the same name.
    void add(std::unique_ptr<CModelTable> table);
    void Clear();

private:
    std::map<std::string, std::unique_ptr<CModelTable>> m_tables;
};
