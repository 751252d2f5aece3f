#include "RecordPreparer.h"

#include "Fields.h"
#include "RecordValue.h"

#include <string>

RecordPreparer::RecordPreparer(CModelTable& records, CModelTable& comments, CModelTable& files)
    : m_records(records), m_comments(comments), m_files(files)
{
}

RecordPreparer::Fields::Fields(const MDArray* records)
    : key(MDRFldByName(records, Field::KeyLink)),
      html(MDRFldByName(records, Field::html)),
      object(MDRFldByName(records, Field::object)),
      comment(MDRFldByName(records, Field::comment)),
      file(MDRFldByName(records, Field::file))
{
}

void RecordPreparer::prepareRecords()
{
    const Fields fields(m_records.data.array);
    for (int i = 0; i < m_records.data.RecCount(); ++i)
        prepare(MDARec(m_records.data.array, 0, i), fields);
}

void RecordPreparer::prepareRecord(MDRData* record)
{
    prepare(record, Fields(m_records.data.array));
}

void RecordPreparer::prepare(MDRData* record, const Fields& fields)
{
    fillObject(record, fields);
    markOwner(record, fields, fields.comment, m_comments);
    markOwner(record, fields, fields.file, m_files);
}

void RecordPreparer::prepareRecordHtml(MDRData* record)
{
    fillObject(record, Fields(m_records.data.array));
}

void RecordPreparer::prepareRecordComment(MDRData* record)
{
    const Fields fields(m_records.data.array);
    markOwner(record, fields, fields.comment, m_comments);
}

void RecordPreparer::prepareRecordFile(MDRData* record)
{
    const Fields fields(m_records.data.array);
    markOwner(record, fields, fields.file, m_files);
}

void RecordPreparer::fillObject(MDRData* record, const Fields& fields)
{
    CMDArray& records = m_records.data;
    MDRVar value;
    MDRGetVal(fields.html, record, &value);
    if (MDARecArr(record) != records.array || !MDRValue::hasText(value))
        return;

    const HtmlParser parser = templateOf(value);
    std::string substation;
    std::string line;
    for (unsigned i = 0; i < parser.countParameters() && (substation.empty() || line.empty()); ++i) {
        const std::string name = parser.propertyNameValue(i);
        if (qstricmp(name.c_str(), "substation") == 0)
            substation = parser.valueText(i);
        else if (qstricmp(name.c_str(), "line") == 0)
            line = parser.valueText(i);
    }
    // Deliberate: the opposite order of the column's header.
    const std::string object = substation + (substation.empty() || line.empty() ? "" : "/") + line;
    if (object.empty())
        return;
    const MDRVar text = MDRValue::text(object.data(), static_cast<int>(object.size()));
    records.lastError = MDRSetVal(fields.object, record, &text);
}

void RecordPreparer::markOwner(MDRData* record, const Fields& fields, const MDRField* mark,
                               CModelTable& owned)
{
    CMDArray& records = m_records.data;
    if (MDARecArr(record) != records.array)
        return;
    MDRVar key;
    MDRGetVal(fields.key, record, &key);
    const bool isOwner = MDRValue::hasText(key) &&
                         MDARecsWith(owned.data.array, Field::RecordKey, key.value.text.data).count > 0;
    const MDRVar value = MDRValue::boolean(isOwner);
    records.lastError = MDRSetVal(mark, record, &value);
}
