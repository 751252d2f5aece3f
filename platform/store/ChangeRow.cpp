#include "ChangeRow.h"

#include <charconv>
#include <cstring>
#include <QCryptographicHash>
#include <sqlite3.h>

namespace
{
void appendText(QByteArray* json, const char* text, int length)
{
    static const char digits[] = "0123456789abcdef";
    json->append('"');
    int written = 0;
    for (int i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x20 && byte != '"' && byte != '\\')
            continue;
        json->append(text + written, i - written);
        written = i + 1;
        if (byte >= 0x20) {
            json->append('\\').append(static_cast<char>(byte));
        } else {
            json->append("\\u00").append(digits[byte >> 4]).append(digits[byte & 15]);
        }
    }
    json->append(text + written, length - written);
    json->append('"');
}

void appendValue(QByteArray* json, sqlite3_value* value)
{
    char buffer[32];
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        json->append(QByteArray::number(static_cast<qlonglong>(sqlite3_value_int64(value))));
        break;
    case SQLITE_FLOAT: {
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, sqlite3_value_double(value)).ptr;
        json->append(buffer, static_cast<int>(end - buffer));
        break;
    }
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        appendText(json, text, sqlite3_value_bytes(value));
        break;
    }
    case SQLITE_BLOB: {
        const auto* data = static_cast<const char*>(sqlite3_value_blob(value));
        const int length = sqlite3_value_bytes(value);
        QCryptographicHash hash(QCryptographicHash::Sha256);
        hash.addData(data, length);
        json->append("{\"sha256\":\"").append(hash.result().toHex()).append("\",\"length\":");
        json->append(QByteArray::number(length)).append('}');
        break;
    }
    default:
        json->append("null");
    }
}

void rowFunction(sqlite3_context* context, int count, sqlite3_value** values)
{
    QByteArray json("[");
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            json.append(',');
        appendValue(&json, values[i]);
    }
    json.append(']');
    sqlite3_result_text(context, json.constData(), json.size(), SQLITE_TRANSIENT);
}

/// The end of the value that begins at \a from: after its last character; -1 if the text is truncated.
int valueEnd(const QByteArray& json, int from)
{
    bool quoted = false;
    int depth = 0;
    for (int i = from; i < json.size(); ++i) {
        const char c = json.at(i);
        if (quoted) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                quoted = false;
            continue;
        }
        if (c == '"')
            quoted = true;
        else if (depth == 0 && (c == ',' || c == ']'))
            return i;
        else if (c == '{')
            ++depth;
        else if (c == '}')
            --depth;
    }
    return -1;
}
} // namespace

void ChangeRow::installFunction(sqlite3* database)
{
    sqlite3_create_function_v2(database, "vrk_row", -1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                               nullptr, rowFunction, nullptr, nullptr, nullptr);
}

QByteArray ChangeRow::quoted(const QByteArray& text)
{
    QByteArray json;
    appendText(&json, text.constData(), text.size());
    return json;
}

ChangeRow::ChangeRow(const QByteArray& json)
{
    if (!json.startsWith('[') || !json.endsWith(']'))
        return;
    for (int at = 1; at < json.size();) {
        const int end = valueEnd(json, at);
        if (end < 0) {
            m_values.clear();
            return;
        }
        m_values.append(QByteArray::fromRawData(json.constData() + at, end - at));
        at = end + 1;
    }
}

QByteArray ChangeRow::text(int index) const
{
    const QByteArray value = raw(index);
    if (value.size() < 2 || !value.startsWith('"'))
        return QByteArray();
    QByteArray plain;
    plain.reserve(value.size());
    for (int i = 1; i < value.size() - 1; ++i) {
        if (value.at(i) != '\\') {
            plain.append(value.at(i));
        } else if (value.at(i + 1) == 'u') {
            plain.append(static_cast<char>(value.mid(i + 4, 2).toInt(nullptr, 16)));
            i += 5;
        } else {
            static const char escaped[] = "bfnrt";
            const char* found = std::strchr(escaped, value.at(++i));
            plain.append(found ? "\b\f\n\r\t"[found - escaped] : value.at(i));
        }
    }
    return plain.isNull() ? QByteArray("") : plain;
}
