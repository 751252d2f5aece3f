#include "RecordCensus.h"

#include "LogbookFields.h"
#include "RecordValue.h"

#include <string_view>

namespace
{
bool isKey(const MDRVar& text, const QByteArray& key)
{
    const MDRVar::Text& bytes = text.value.text;
    return std::string_view(bytes.data, static_cast<std::size_t>(bytes.length)) == key.constData();
}
} // namespace

bool RecordCensus::isDraft(const MDRData* record)
{
    return hasStatus(record, StatusDraft);
}

bool RecordCensus::isAuthor(const MDRData* record, const QByteArray& workerKey)
{
    const MDRVar author = Row(record).value(Field::WorkerKey);
    return MDRValue::hasText(author) && isKey(author, workerKey);
}

bool RecordCensus::isSignable(const MDRData* record, const QByteArray& workerKey)
{
    const MDRVar author = Row(record).value(Field::WorkerKey);
    return MDRValue::hasText(author) && !isKey(author, workerKey) && hasStatus(record, StatusApproved);
}

void RecordCensus::put(const MDRData* record)
{
    remove(record);
    int traits = 0;
    if (isDraft(record))
        traits = isAuthor(record, m_workerKey) ? Draft | MyDraft : Draft;
    else if (isSignable(record, m_workerKey))
        traits = Signable;
    if (traits == 0)
        return;
    m_traits.insert(record, traits);
    count(traits, 1);
}

void RecordCensus::clear()
{
    m_traits.clear();
    m_drafts = m_myDrafts = m_signable = 0;
}

void RecordCensus::count(int traits, int step)
{
    m_drafts += traits & Draft ? step : 0;
    m_myDrafts += traits & MyDraft ? step : 0;
    m_signable += traits & Signable ? step : 0;
}
