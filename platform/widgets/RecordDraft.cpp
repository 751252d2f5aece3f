#include "RecordDraft.h"

#include "Fields.h"
#include "HtmlParser.h"
#include "MDRValues.h"

#include <QCoreApplication>
#include <QTextCodec>

namespace
{
/// Calls \a take with each field of the draft that has a value in the record; \a field finds a field by
/// name.
template <typename FieldByName>
void readFields(RecordDraft& draft, const MDRData* record, const QTextCodec* codec, const FieldByName& field)
{
    const auto value = [&](const char* name, MDRVar& result) {
        const MDRField* handle = field(name);
        return handle && MDRGetVal(handle, record, &result) == mdr_Ok;
    };
    const auto time = [](const MDRVar& read) { return MDRValue::hasTime(read) ? read.value.real : 0.0; };
    const auto number = [](const MDRVar& read, int absent) {
        return read.isNull ? absent : read.value.number;
    };
    MDRVar read;
    if (value(Field::html, read))
        draft.html = codec->toUnicode(MDRValue::bytes(read));
    if (value(Field::eventTime, read))
        draft.eventTime = time(read);
    if (value(Field::firstMarkTime, read))
        draft.firstMark = time(read);
    if (value(Field::ReceiverWorkerKey, read))
        draft.receiverKey = MDRValue::copy(read);
    if (value(Field::direction, read))
        draft.direction = number(read, DirectionNone);
    if (value(Field::status, read))
        draft.status = number(read, StatusApproved);
}

MDRVar timeOrNull(double time)
{
    return time != 0.0 ? MDRValue::real(time) : MDRValue::null();
}
} // namespace

void RecordDraft::read(const MDRData* record, const QTextCodec* codec)
{
    const MDArray* array = MDARecArr(record);
    readFields(*this, record, codec, [array](const char* name) { return MDRFldByName(array, name); });
}

void RecordDraft::readMarked(const MDRRecordType& type, const MDRData& record, const QTextCodec* codec)
{
    readFields(*this, &record, codec, [&](const char* name) -> const MDRField* {
        const MDRField* field = MDRFldByName(&type, name);
        bool marked = false;
        return MDRIsUser(field, &record, &marked) == mdr_Ok && marked ? field : nullptr;
    });
}

bool RecordDraft::writeChanges(CMDArray& rows, MDRData* row, const RecordDraft& before,
                               const QTextCodec* codec) const
{
    const QByteArray text = codec->fromUnicode(html);
    bool changed = false;
    const auto set = [&](bool differs, const char* name, const MDRVar& value) {
        if (differs)
            rows.SetValF(row, name, value);
        changed = changed || differs;
    };
    set(receiverKey != before.receiverKey, Field::ReceiverWorkerKey,
        receiverKey.isEmpty() ? MDRValue::null() : MDRValue::text(receiverKey));
    set(eventTime != before.eventTime, Field::eventTime, MDRValue::real(eventTime));
    set(firstMark != before.firstMark, Field::firstMarkTime, timeOrNull(firstMark));
    set(html != before.html, Field::html, MDRValue::text(text, mdr_TMemo));
    set(direction != before.direction, Field::direction, MDRValue::number(direction));
    return changed;
}

void RecordDraft::writeAll(CMDArray& rows, MDRData* row, const QTextCodec* codec) const
{
    const QByteArray text = codec->fromUnicode(html);
    rows.SetValF(row, Field::ReceiverWorkerKey,
                 receiverKey.isEmpty() ? MDRValue::null() : MDRValue::text(receiverKey));
    rows.SetValF(row, Field::eventTime, MDRValue::real(eventTime));
    rows.SetValF(row, Field::firstMarkTime, timeOrNull(firstMark));
    rows.SetValF(row, Field::html, MDRValue::text(text, mdr_TMemo));
    rows.SetValF(row, Field::direction, MDRValue::number(direction));
}

RecordDraft RecordDraft::mergedWith(const RecordDraft& theirs, const RecordDraft& before) const
{
    RecordDraft merged = *this;
    const auto take = [&](auto RecordDraft::*value) {
        if (merged.*value == before.*value)
            merged.*value = theirs.*value;
    };
    take(&RecordDraft::html);
    take(&RecordDraft::eventTime);
    take(&RecordDraft::direction);
    take(&RecordDraft::receiverKey);
    return merged;
}

QStringList RecordDraft::differences(const RecordDraft& other) const
{
    QStringList result;
    const auto note = [&result](bool differs, const char* name) {
        if (differs)
            result.append(QCoreApplication::translate("RecordDraft", name));
    };
    note(html != other.html, "текст");
    note(eventTime != other.eventTime, "время события");
    note(receiverKey != other.receiverKey, "корреспондент");
    note(direction != other.direction, "направление");
    return result;
}

QString RecordDraft::firstMarker(const QString& html)
{
    const HtmlParser parser(html.toStdString());
    std::string marker;
    parser.templatePropertyValue("first_mark", marker);
    return QString::fromStdString(marker);
}
