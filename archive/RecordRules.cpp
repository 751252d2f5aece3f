#include "RecordRules.h"

#include "HtmlParser.h"
#include "LogbookFields.h"

int RecordRules::lacksOf(const State& record)
{
    if (record.status == StatusDeleted || (record.status == StatusDraft && !record.isShiftClosed))
        return 0;
    int lacks = record.status == StatusDraft ? Approval : 0;
    const HtmlParser parser(record.html);
    if (!record.hasExecutionTime && parser.isExistTemplateProperty("time_exec"))
        lacks |= ExecutionTime;
    std::string marker;
    parser.templatePropertyValue("second_mark", marker);
    if (!record.hasSecondMark && !marker.empty())
        lacks |= SecondMarker;
    return lacks;
}
