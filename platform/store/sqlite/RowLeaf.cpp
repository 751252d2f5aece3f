#include "RowLeaf.h"

#include "LogLeaf.h"

#include <sqlite3.h>

namespace
{
/// A null array for NULL, otherwise the bytes of the text.
QByteArray textOf(sqlite3_value* value)
{
    if (sqlite3_value_type(value) == SQLITE_NULL)
        return QByteArray();
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const int length = sqlite3_value_bytes(value);
    return length > 0 ? QByteArray(text, length) : QByteArray("");
}

void leafFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    const QByteArray leaf =
        LogLeaf::ofRow({textOf(values[0]), textOf(values[1]), sqlite3_value_int64(values[2]),
                        textOf(values[3]), textOf(values[4])})
            .bytes()
            .toHex();
    sqlite3_result_text(context, leaf.constData(), leaf.size(), SQLITE_TRANSIENT);
}
} // namespace

void RowLeaf::installFunction(sqlite3* database)
{
    sqlite3_create_function_v2(database, "vrk_leaf", 5, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                               nullptr, leafFunction, nullptr, nullptr, nullptr);
}
