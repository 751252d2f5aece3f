#pragma once

#include "CModelTable.h"

#include <map>
#include <memory>

/// Container of model tables by name, filled by CToolLiteModel. Owns the tables.
class VRK_EXPORT CLiteModel
{
public:
    /// Returns the table, or null when it was not received. Names are compared exactly.
    CModelTable* GetTableByName(const std::string& name) const;
    /// Adds the table; replaces a table of the same name.
    void add(std::unique_ptr<CModelTable> table);
    void Clear();

private:
    std::map<std::string, std::unique_ptr<CModelTable>> m_tables;
};
