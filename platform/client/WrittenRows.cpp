#include "WrittenRows.h"

#include "CMDArray.h"
#include "LogbookFields.h"
#include "MDRValues.h"

#include <algorithm>
#include <QSet>

namespace
{
/// The fields with typed text.
const char* const textFields[] = {Field::html, Field::text_, Field::fileName};

QByteArray bytesOf(const MDArray* array, const MDRData* record, const char* name)
{
    const MDRField* field = MDRFldByName(array, name);
    MDRVar value;
    if (!field || MDRGetVal(field, record, &value) != mdr_Ok)
        return QByteArray();
    return MDRValue::copy(value);
}
} // namespace

void WrittenRows::add(const QByteArray& table, const MDArray* records)
{
    const int count = MDAKeyRecCount(records, 0);
    for (int position = 0; position < count; ++position) {
        const MDRData* record = MDARec(records, 0, position);
        const QByteArray place = table + '/' + bytesOf(records, record, Field::KeyLink);
        Row row;
        if ((record->flags & ROW_UPDATE) == 0)
            row.marks << place + (record->flags & ROW_DELETE ? "/gone" : "");
        for (int i = 0; record->flags & ROW_UPDATE && i < MDAFldCount(records); ++i) {
            const MDRField* field = MDRFldByNum(records, i);
            bool isMarked = false;
            MDRIsUser(field, record, &isMarked);
            if (isMarked)
                row.marks << place + '/' + field->name;
        }
        if (row.marks.isEmpty())
            row.marks << place;
        for (const char* name : textFields)
            if (record->flags & ROW_INSERT && row.text.isEmpty() && MDRFldByName(records, name))
                row.text = bytesOf(records, record, name);
        if (!row.text.isEmpty())
            row.text.prepend(table + '=');
        m_rows.append(row);
    }
}

bool WrittenRows::areAllIn(const WrittenRows& done) const
{
    QSet<QByteArray> known;
    for (const Row& row : done.m_rows) {
        known.insert(row.text);
        for (const QByteArray& mark : row.marks) {
            known.insert(mark);
            known.insert(mark.left(mark.lastIndexOf('/'))); // a row that was changed exists
        }
    }
    return std::all_of(m_rows.begin(), m_rows.end(), [&known](const Row& row) {
        const bool hasAll = std::all_of(row.marks.begin(), row.marks.end(),
                                        [&known](const QByteArray& mark) { return known.contains(mark); });
        return hasAll || (!row.text.isEmpty() && known.contains(row.text));
    });
}
