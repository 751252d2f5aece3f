#include "FoundFilter.h"

#include "Fields.h"
#include "HtmlParser.h"
#include "LogbookFields.h"
#include "RecordRules.h"
#include "RecordThings.h"
#include "Row.h"
#include "TemplateText.h"
#include "TextMatch.h"

namespace
{
bool hasMarker(const std::string& html)
{
    const HtmlParser parser(html);
    std::string marker;
    parser.templatePropertyValue("first_mark", marker);
    return !marker.empty();
}

bool isUnfinished(const Row& record)
{
    RecordRules::State state;
    state.html = record.bytes(Field::html).toStdString();
    state.status = record.number(Field::status, StatusDeleted);
    state.hasExecutionTime = record.has(Field::executionTime);
    state.hasSecondMark = record.has(Field::secondMarkTime);
    state.isShiftClosed = true; // a draft is unfinished here in any shift
    return RecordRules::lacksOf(state) != 0;
}
} // namespace

void FoundFilter::setConditions(const Conditions& conditions)
{
    m_conditions = conditions;
    m_parts = TextMatch::parts(conditions.text);
    emit enabledChanged(isEnabled());
}

bool FoundFilter::isAcceptRow(const CMDArray*, MDRData* record) const
{
    const Row row(record);
    if (!isEnabled() || !m_conditions.isAny())
        return true;
    if (!m_conditions.workerKey.isEmpty() && row.bytes(Field::WorkerKey) != m_conditions.workerKey)
        return false;
    if (m_conditions.hasFiles && !m_withFiles.contains(row.key()))
        return false;
    if (m_conditions.isMarked && !hasMarker(row.bytes(Field::html).toStdString()))
        return false;
    if (!m_conditions.marker.isEmpty() && !RecordThings::markers(row).contains(m_conditions.marker))
        return false;
    if (!m_conditions.equipment.isEmpty() &&
        !RecordThings::equipment(row, m_codec).contains(m_conditions.equipment))
        return false;
    if (m_conditions.isUndone && !isUnfinished(row))
        return false;
    return m_parts.isEmpty() ||
           TextMatch::matches(TextMatch::folded(TemplateText::plain(row.text(Field::html, m_codec))),
                              m_parts);
}
