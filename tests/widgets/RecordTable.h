#pragma once

#include "AbstractHfnCellConversion.h"
#include "HfnTime.h"
#include "LogbookFields.h"
#include "MDRValues.h"

#include <QTextCodec>

/// A table of journal records in order of entry, in Windows-1251.
class RecordTable : public CMDArray
{
public:
    RecordTable()
    {
        MDACreate(&array, 0);
        MDAFldAdd(array, fieldCount(LogbookRecordExtFields), LogbookRecordExtFields);
        KeyAdd("", 0);
    }

    static QTextCodec* codec() { return QTextCodec::codecForName("Windows-1251"); }
    static double at(const QString& time)
    {
        return DateTime_To_HfnTime(QDateTime::fromString(time, QStringLiteral("dd.MM.yyyy hh:mm")));
    }

    MDRData* add(const char* key, double recordTime, const QString& html, int status = StatusApproved)
    {
        MDRData* record = MDARecNew(array);
        SetValF(record, "KeyLink", MDRValue::text(key));
        SetValF(record, "recordTime", MDRValue::real(recordTime));
        SetValF(record, "status", MDRValue::number(status));
        setText(record, "html", html);
        return RecPost(record);
    }
    MDRData* add(const char* key, const QString& recordTime, const QString& html, int status = StatusApproved)
    {
        return add(key, at(recordTime), html, status);
    }
    void setText(MDRData* record, const char* field, const QString& text)
    {
        const QByteArray bytes = codec()->fromUnicode(text);
        SetValF(record, field, MDRValue::text(bytes, mdr_TMemo));
    }
    void set(MDRData* record, const char* field, const MDRVar& value)
    {
        MDRData* edited = MDARecEdit(record);
        SetValF(edited, field, value);
        RecPost(edited);
    }
    MDRData* row(int position) const { return MDARec(array, 0, position); }
};

/// Shows times of day, like the journal.
class TimeCell : public AbstractHfnCellConversion
{
public:
    using AbstractHfnCellConversion::AbstractHfnCellConversion;
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        if (cell.role != Qt::DisplayRole)
            return AbstractHfnCellConversion::data(cell);
        MDRVar value;
        MDRGetVal(MDRFldByNum(cell.array->array, cell.field), cell.record, &value);
        return MDRValue::hasTime(value)
                   ? HfnTime_to_DateTime(value.value.real, -1).toString(QStringLiteral("hh:mm"))
                   : QVariant();
    }
};

/// Returns one value for one role.
class FixedCell : public AbstractHfnCellConversion
{
public:
    FixedCell(int role, const QVariant& value) : m_role(role), m_value(value) {}
    QVariant data(const AbstractHfnCellData& cell) const override
    {
        return cell.role == m_role ? m_value : AbstractHfnCellConversion::data(cell);
    }

private:
    int m_role;
    QVariant m_value;
};
