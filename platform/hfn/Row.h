#pragma once

#include "Fields.h"
#include "MDRValues.h"

#include <QTextCodec>

/// Reads the fields of a record by the constants of Fields.h. A null record and a missing field read as
/// absent. It copies nothing: the record must outlive the row, and the result of bytes() is valid until the
/// record changes.
class Row
{
public:
    explicit Row(const MDRData* record) : m_record(record) {}
    /// A stand-alone record with the description of its fields, such as that of a change event.
    Row(const MDRData* record, const MDRRecordType* type) : m_record(record), m_type(type) {}

    /// The value of any field; its type is mdr_TNone if there is no such field.
    MDRVar value(const char* field) const
    {
        MDRVar value;
        if (m_record)
            MDRGetVal(m_type ? MDRFldByName(m_type, field) : MDRFldByName(MDARecArr(m_record), field),
                      m_record, &value);
        return value;
    }

    /// A copy of the row's key.
    QByteArray key() const { return copy(Field::KeyLink); }

    /// A text that is not null and not empty.
    template <MDRType Type>
    bool has(const TypedField<Type>& field) const
    {
        static_assert(Type == mdr_TChar || Type == mdr_TMemo || Type == mdr_TDouble, "a text or a time");
        if constexpr (Type == mdr_TDouble)
            return MDRValue::hasTime(value(field));
        else
            return MDRValue::hasText(value(field));
    }
    /// The bytes of a text in the code page of the session, without a copy; empty if absent.
    template <MDRType Type>
    QByteArray bytes(const TypedField<Type>& field) const
    {
        static_assert(Type == mdr_TChar || Type == mdr_TMemo || Type == mdr_TBlob, "a text");
        return MDRValue::bytes(value(field));
    }
    template <MDRType Type>
    QByteArray copy(const TypedField<Type>& field) const
    {
        static_assert(Type == mdr_TChar || Type == mdr_TMemo || Type == mdr_TBlob, "a text");
        return MDRValue::copy(value(field));
    }
    template <MDRType Type>
    QString text(const TypedField<Type>& field, const QTextCodec* codec) const
    {
        return codec->toUnicode(bytes(field));
    }
    /// An HfnTime; 0 if absent.
    double time(const RealField& field) const
    {
        const MDRVar time = value(field);
        return MDRValue::hasTime(time) ? time.value.real : 0.0;
    }
    /// A number; \a absent for null and a missing field.
    int number(const NumberField& field, int absent) const
    {
        const MDRVar number = value(field);
        return number.type == mdr_TInt32 && !number.isNull ? number.value.number : absent;
    }
    /// A flag that is set, neither null nor absent.
    bool isSet(const FlagField& field) const
    {
        const MDRVar flag = value(field);
        return flag.type != mdr_TNone && !flag.isNull && flag.value.number != 0;
    }

private:
    const MDRData* m_record;
    const MDRRecordType* m_type = nullptr; ///< null: that of the array which owns the record
};
