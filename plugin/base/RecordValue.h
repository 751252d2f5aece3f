#pragma once

#include "CModelTable.h"
#include "HtmlParser.h"
#include "Row.h"

/// Helpers that read a record of any array.

/// The status is known and is this one (RecordStatus).
inline bool hasStatus(const MDRData* record, int status)
{
    return Row(record).number(Field::status, -1) == status;
}

/// A flag that is set: not null, not absent, not false.
inline bool isSet(const MDRVar& flag)
{
    return flag.type != mdr_TNone && !flag.isNull && flag.value.number != 0;
}

/// The template in a value of the field html; one without parameters and properties if the value is absent.
inline HtmlParser templateOf(const MDRVar& html)
{
    HtmlParser parser;
    if (MDRValue::hasText(html))
        parser.setHtml(std::string(html.value.text.data, static_cast<std::size_t>(html.value.text.length)));
    return parser;
}
