#pragma once

#include "CModelTable.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "MDRValues.h"

/// Short ways to ask a record, whatever array it is in.

/// The value of a field; type 0 when there is no such field or no record.
inline MDRVar recordValue(const MDRData* record, const char* field)
{
    MDRVar value;
    if (record)
        MDRGetVal(MDRFldByName(MDARecArr(record), field), record, &value);
    return value;
}

/// The record with this key; null when there is none, or no table.
inline MDRData* recordWithKey(const CModelTable* table, const QByteArray& key)
{
    if (!table || key.isEmpty())
        return nullptr;
    const MDRRange found = MDARecsWith(table->data.array, Field::KeyLink, key.constData());
    return found.count > 0 ? *found.begin() : nullptr;
}

/// The status is known and is this one (RecordStatus).
inline bool hasStatus(const MDRData* record, int status)
{
    const MDRVar value = recordValue(record, Field::status);
    return value.type == mdr_TInt32 && !value.isNull && value.value.number == status;
}

/// A flag that is set, neither null nor absent.
inline bool isSet(const MDRVar& flag)
{
    return flag.type != mdr_TNone && !flag.isNull && flag.value.number != 0;
}

/// The template that a value of the field html holds; one without parameters and properties when it is absent.
inline HtmlParser templateOf(const MDRVar& html)
{
    HtmlParser parser;
    if (MDRValue::hasText(html))
        parser.setHtml(std::string(html.value.text.data, static_cast<std::size_t>(html.value.text.length)));
    return parser;
}
