#pragma once

#include "LogBookTab.h"
#include "RecordValue.h"

#include <QTableView>
#include <vector>

class VrkTableProxyModel;

/// Functions that query the rows of a journal's page, for the checks of whole windows.
namespace JournalRows
{
inline QByteArray bytes(const MDRData* record, const char* field)
{
    return MDRValue::copy(Row(record).value(field));
}
inline bool hasText(const MDRData* record, const char* field)
{
    return MDRValue::hasText(Row(record).value(field));
}
/// The status, -1 without one.
inline int status(const MDRData* record)
{
    const MDRVar value = Row(record).value("status");
    return value.isNull || value.type == mdr_TNone ? -1 : value.value.number;
}
/// All records of an array, in the order of its first key.
inline std::vector<MDRData*> all(const CMDArray& rows)
{
    std::vector<MDRData*> records;
    for (int i = 0; i < rows.RecCount(); ++i)
        records.push_back(MDARec(rows.array, 0, i));
    return records;
}
} // namespace JournalRows
