#include "RecordPreparer.h"

#include "RecordValue.h"

#include <string>

RecordPreparer::RecordPreparer(CModelTable& records, CModelTable& comments, CModelTable& files)
    : m_records(records), m_comments(comments), m_files(files)
{
}

void RecordPreparer::prepareRecords()
{
    for (int i = 0; i < m_records.data.RecCount(); ++i)
        prepareRecord(MDARec(m_records.data.array, 0, i));
}

void RecordPreparer::prepareRecord(MDRData* record)
{
    prepareRecordHtml(record);
    prepareRecordComment(record);
    prepareRecordFile(record);
}

void RecordPreparer::prepareRecordHtml(MDRData* record)
{
    CMDArray& records = m_records.data;
    MDRVar value;
    records.GetVal(record, "html", value);
    if (MDARecArr(record) != records.array || !MDRValue::hasText(value))
        return;

    const HtmlParser parser = templateOf(value);
    std::string substation;
    std::string line;
    for (unsigned i = 0; i < parser.countParameters() && (substation.empty() || line.empty()); ++i) {
        const QByteArray name = QByteArray::fromStdString(parser.propertyNameValue(i)).toLower();
        if (name == "substation")
            substation = parser.displayText(i);
        else if (name == "line")
            line = parser.displayText(i);
    }
    // The other way round than the column's header, and meant so.
    const std::string object = substation + (substation.empty() || line.empty() ? "" : "/") + line;
    if (object.empty())
        return;
    const MDRVar text = MDRValue::text(object.data(), static_cast<int>(object.size()));
    records.lastError = MDRSetVal(MDRFldByName(records.array, "object"), record, &text);
}

void RecordPreparer::prepareRecordComment(MDRData* record)
{
    markOwned(record, "comment", m_comments);
}

void RecordPreparer::prepareRecordFile(MDRData* record)
{
    markOwned(record, "file", m_files);
}

void RecordPreparer::markOwned(MDRData* record, const char* field, CModelTable& owned)
{
    CMDArray& records = m_records.data;
    if (MDARecArr(record) != records.array)
        return;
    MDRVar key;
    records.GetVal(record, "KeyLink", key);
    const bool isOwner =
        MDRValue::hasText(key) && MDARecsWith(owned.data.array, "RecordKey", key.value.text.data).count > 0;
    const MDRVar value = MDRValue::boolean(isOwner);
    records.lastError = MDRSetVal(MDRFldByName(records.array, field), record, &value);
}
