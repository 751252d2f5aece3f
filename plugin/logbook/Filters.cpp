#include "Filters.h"

#include "CModelTable.h"
#include "LogbookFields.h"
#include "RecordValue.h"

bool FilterByStatus::isAcceptRow(const CMDArray*, MDRData* record) const
{
    return !isEnabled() || !hasStatus(record, StatusDraft);
}

bool FilterOnlyApprove::isAcceptRow(const CMDArray*, MDRData* record) const
{
    return !isEnabled() || hasStatus(record, StatusApproved);
}

FilterUnreadedComments::FilterUnreadedComments(CModelTable* comments, QObject* parent)
    : VrkTableFilterRow(parent), m_comments(comments)
{
}

bool FilterUnreadedComments::isAcceptRow(const CMDArray*, MDRData* record) const
{
    if (!isEnabled())
        return true;
    const MDRVar key = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(key))
        return false;
    for (const MDRData* comment : MDARecsWith(m_comments->data.array, "RecordKey", key.value.text.data))
        if (!MDRValue::hasTime(recordValue(comment, "readedTime")))
            return true;
    return false;
}
