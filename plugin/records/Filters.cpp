#include "Filters.h"

#include "CModelTable.h"
#include "LogbookFields.h"
#include "RecordValue.h"

bool FilterByStatus::isAcceptRow(const CMDArray*, MDRData* record) const
{
    if (!isEnabled() || !hasStatus(record, StatusDraft))
        return true;
    return !m_shown.isEmpty() && Row(record).bytes(Field::KeyLink) == m_shown;
}

void FilterByStatus::setShown(const QByteArray& recordKey)
{
    if (recordKey == m_shown)
        return;
    m_shown = recordKey;
    if (isEnabled())
        emit enabledChanged(true); // proxies with this rule filter again
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
    const MDRVar key = Row(record).value(Field::KeyLink);
    if (!MDRValue::hasText(key))
        return false;
    for (const MDRData* comment : MDARecsWith(m_comments->data.array, Field::RecordKey, key.value.text.data))
        if (!Row(comment).has(Field::readedTime))
            return true;
    return false;
}
