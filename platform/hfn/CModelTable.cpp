#include "CModelTable.h"

CModelTable::CModelTable(const std::string& tableName) : name(tableName)
{
    data.lastError = MDACreate(&data.array, 0);
}
