#include "CModelTable.h"

#include "Fields.h"

CModelTable::CModelTable(const std::string& tableName) : name(tableName)
{
    data.lastError = MDACreate(&data.array, 0);
}

MDRData* recordByKeyLink(const CModelTable* table, const char* key)
{
    return table ? recordByKeyLink(table->data, key) : nullptr;
}

MDRData* recordByKeyLink(const CMDArray& array, const char* key)
{
    if (!key || *key == '\0')
        return nullptr;
    const MDRRange found = MDARecsWith(array.array, Field::KeyLink, key);
    return found.count > 0 ? *found.begin() : nullptr;
}
