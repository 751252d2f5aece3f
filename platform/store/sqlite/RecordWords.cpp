#include "RecordWords.h"

#include "RecordText.h"
#include "SearchWords.h"

#include <algorithm>
#include <QSet>
#include <sqlite3.h>

namespace
{
constexpr int mostWords = 5000;
constexpr int mostEquipmentWords = 500;

QByteArray distinct(const QString& text, int most)
{
    QByteArray joined;
    QSet<QString> known;
    const QStringList stems = SearchWords::stems(text);
    for (int i = 0; i < qMin(most, stems.size()); ++i) {
        if (known.contains(stems.at(i)))
            continue;
        known.insert(stems.at(i));
        joined += (joined.isEmpty() ? "" : " ") + stems.at(i).toUtf8();
    }
    return joined;
}

QByteArray htmlOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? QByteArray::fromRawData(text, sqlite3_value_bytes(value)) : QByteArray();
}

template <QByteArray RecordWords::*part>
void function(sqlite3_context* context, int, sqlite3_value** values)
{
    const QByteArray answer = RecordWords(htmlOf(values[0])).*part;
    sqlite3_result_text(context, answer.isEmpty() ? "" : answer.constData(), answer.size(), SQLITE_TRANSIENT);
}
} // namespace

RecordWords::RecordWords(const QByteArray& html)
{
    const RecordText text(QString::fromUtf8(html));
    words = distinct(text.visible, mostWords);
    equipment = distinct(text.equipment, mostEquipmentWords);
}

void RecordWords::installFunctions(sqlite3* database)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function_v2(database, "vrk_words", 1, flags, nullptr, function<&RecordWords::words>,
                               nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(database, "vrk_equipment", 1, flags, nullptr,
                               function<&RecordWords::equipment>, nullptr, nullptr, nullptr);
}
