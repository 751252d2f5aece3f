#include "CLiteModel.h"

CModelTable* CLiteModel::GetTableByName(const std::string& name) const
{
    const auto found = m_tables.find(name);
    return found != m_tables.end() ? found->second.get() : nullptr;
}

void CLiteModel::add(std::unique_ptr<CModelTable> table)
{
    if (table != nullptr)
        m_tables[table->name] = std::move(table);
}

void CLiteModel::Clear()
{
    m_tables.clear();
}
