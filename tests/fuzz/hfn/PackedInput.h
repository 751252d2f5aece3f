#pragma once

#include "PackedBytes.h"

/// The bytes of an input after its first one. If the first byte is odd, they become the content of a form
/// with a valid checksum, so that the code after the checksum test is reached.
inline QByteArray packedInput(const std::uint8_t* data, std::size_t size, const char (&tag)[5], bool* wrapped)
{
    *wrapped = size > 0 && data[0] % 2 == 1;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           static_cast<int>(size > 0 ? size - 1 : 0));
    if (!*wrapped)
        return bytes;
    PackedWriter writer(tag);
    for (char c : bytes)
        writer.byte(static_cast<std::uint8_t>(c));
    return writer.finish();
}

/// The content of a form, between its head and its checksum.
inline QByteArray packedContent(const QByteArray& packed)
{
    return packed.mid(9, packed.size() - 13);
}
