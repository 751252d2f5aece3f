#pragma once

#include "CModelTable.h"
#include "HtmlParser.h"
#include "Row.h"

/// Short ways to ask a record, whatever array it is in.

/// The status is known and is this one (RecordStatus).
inline bool hasStatus(const MDRData* record, int status)
{
    return Row(record).number(Field::status, -1) == status;
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
