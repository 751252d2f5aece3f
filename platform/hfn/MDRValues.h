#pragma once

/// Helpers that make and test values in transit.

#include "CRowBatch.h"

#include <cstring>
#include <QByteArray>

namespace MDRValue
{
inline MDRVar null()
{
    MDRVar value;
    value.isNull = 1;
    return value;
}

/// The bytes are not copied: they must outlive the value.
inline MDRVar text(const char* bytes, int length, MDRType type = mdr_TChar)
{
    MDRVar value;
    value.type = type;
    value.value.text = {length, bytes};
    return value;
}
inline MDRVar text(const char* bytes)
{
    return text(bytes, static_cast<int>(std::strlen(bytes)));
}
inline MDRVar text(const QByteArray& bytes, MDRType type = mdr_TChar)
{
    return text(bytes.constData(), bytes.size(), type);
}
MDRVar text(QByteArray&&, MDRType = mdr_TChar) = delete; // would dangle

inline MDRVar number(std::int32_t number, MDRType type = mdr_TInt32)
{
    MDRVar value;
    value.type = type;
    value.value.number = number;
    return value;
}
inline MDRVar boolean(bool flag)
{
    return number(flag ? 1 : 0, mdr_TBool);
}
inline MDRVar real(double number)
{
    MDRVar value;
    value.type = mdr_TDouble;
    value.value.real = number;
    return value;
}

inline bool isText(const MDRVar& value)
{
    return value.type == mdr_TChar || value.type == mdr_TMemo || value.type == mdr_TBlob;
}
/// Present: a text that is not null and not empty.
inline bool hasText(const MDRVar& value)
{
    return isText(value) && !value.isNull && value.value.text.length > 0;
}
/// Present: a time that is not null and not zero.
inline bool hasTime(const MDRVar& value)
{
    return value.type == mdr_TDouble && !value.isNull && value.value.real != 0.0;
}
/// The text's bytes without a copy, valid as long as the record is unchanged; empty when absent.
inline QByteArray bytes(const MDRVar& value)
{
    return hasText(value) ? QByteArray::fromRawData(value.value.text.data, value.value.text.length)
                          : QByteArray();
}
/// A copy of the text's bytes; empty when absent.
inline QByteArray copy(const MDRVar& value)
{
    return hasText(value) ? QByteArray(value.value.text.data, value.value.text.length) : QByteArray();
}
} // namespace MDRValue
