#include "SentEdits.h"

#include "EventRow.h"
#include "RecordValue.h"

#include <algorithm>

namespace
{
/// The fields that a user can change, with their new values.
QVector<QPair<const char*, QByteArray>> changedValues(const MDRData* record)
{
    QVector<QPair<const char*, QByteArray>> values;
    for (const char* name : fieldNames(Field::nameLoc, Field::html)) {
        const MDRField* field = MDRFldByName(MDARecArr(record), name);
        bool isMarked = false;
        if (field)
            MDRIsUser(field, record, &isMarked);
        if (isMarked)
            values.append({name, MDRValue::copy(Row(record).value(name))});
    }
    return values;
}

bool hasAll(TEventNciParse* event, const QVector<QPair<const char*, QByteArray>>& values)
{
    return std::all_of(values.begin(), values.end(), [event](const auto& one) {
        return MDRValue::copy(EventRow(*event).value(one.first)) == one.second;
    });
}
} // namespace

void SentEdits::note(const CModelTable& edits)
{
    for (int i = 0; i < edits.data.RecCount(); ++i) {
        const MDRData* record = MDARec(edits.data.array, 0, i);
        const QByteArray key = Row(record).key();
        m_written[key].append({(record->flags & ROW_INSERT) != 0, changedValues(record)});
    }
}

bool SentEdits::take(TEventNciParse* event)
{
    const auto written = m_written.find(event->recordKey);
    if (written == m_written.end())
        return false;
    const auto own = std::find_if(written->begin(), written->end(),
                                  [event](const Written& one) { return hasAll(event, one.values); });
    if (own == written->end())
        return false;
    written->erase(written->begin(), own + 1);
    if (written->isEmpty())
        m_written.erase(written);
    return true;
}

bool SentEdits::isInserted(const QByteArray& key) const
{
    const QVector<Written> written = m_written.value(key);
    return std::any_of(written.begin(), written.end(), [](const Written& one) { return one.isNew; });
}

bool SentEdits::differs(const MDRData* edit, TEventNciParse* event)
{
    return edit && !hasAll(event, changedValues(edit));
}
