#include "RecordWords.h"

#include "HtmlScanner.h"
#include "SearchWords.h"

#include <algorithm>
#include <cctype>
#include <QSet>
#include <sqlite3.h>

namespace
{
using Scanner = HtmlScanner<char16_t>;

constexpr int mostWords = 5000;
constexpr int mostEquipmentWords = 500;

/// Elements that may occur within words.
constexpr std::string_view inlines[] = {"a", "b",      "strong", "i",   "em",  "u",    "ins",
                                        "s", "strike", "del",    "sup", "sub", "span", "font"};
constexpr std::string_view unseen[] = {"head", "style", "script", "title"};
/// Parameters whose shown text names equipment.
constexpr std::string_view equipmentParameters[] = {"substation", "line", "bay", "equipmentname",
                                                    "equipmentpath"};

template <class Names>
bool isOneOf(Scanner::View name, const Names& names)
{
    return std::any_of(std::begin(names), std::end(names),
                       [name](std::string_view one) { return Scanner::equals(name, one); });
}

/// Whether a parameter's link, such as "name=line;locname=...", is one of equipment.
bool isOfEquipment(Scanner::View link)
{
    if (!Scanner::equals(link.substr(0, 5), "name="))
        return false;
    link.remove_prefix(5);
    return isOneOf(link.substr(0, link.find(u';')), equipmentParameters);
}

/// Appends text; entities become blanks.
void append(Scanner::View html, QString* text)
{
    for (std::size_t i = 0; i < html.size(); ++i) {
        if (html[i] == u'\u00ad') // where a word may be hyphenated
            continue;
        if (html[i] == u'&') {
            std::size_t end = i + 1;
            while (end < html.size() && (html[end] == u'#' || (html[end] < 128 && std::isalnum(html[end]))))
                ++end;
            if (end > i + 1 && end < html.size() && html[end] == u';') {
                if (!Scanner::equals(html.substr(i, end - i), "&shy"))
                    text->append(QLatin1Char(' '));
                i = end;
                continue;
            }
        }
        text->append(QChar(html[i]));
    }
}

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
    const QString decoded = QString::fromUtf8(html);
    Scanner scanner(Scanner::View(reinterpret_cast<const char16_t*>(decoded.utf16()),
                                  static_cast<std::size_t>(decoded.size())));
    QString visible;
    QString named;
    bool isEquipment = false;
    Scanner::View hidden;
    Scanner::Token token;
    while (scanner.next(token)) {
        if (!hidden.empty()) {
            if (token.kind == Scanner::Close && token.name.size() == hidden.size())
                hidden = {};
            continue;
        }
        if (token.kind == Scanner::Text) {
            append(scanner.view(token), &visible);
            if (isEquipment)
                append(scanner.view(token), &named);
            continue;
        }
        const bool joins = token.kind != Scanner::Comment && isOneOf(token.name, inlines);
        if (!joins)
            visible.append(QLatin1Char(' '));
        if (token.kind == Scanner::Open && isOneOf(token.name, unseen))
            hidden = token.name;
        if (token.kind != Scanner::Comment && Scanner::equals(token.name, "a")) {
            const Scanner::Span link = scanner.parameterLink(token);
            isEquipment = link.found && isOfEquipment(scanner.view(link));
            named.append(QLatin1Char(' '));
        }
    }
    words = distinct(visible, mostWords);
    equipment = distinct(named, mostEquipmentWords);
}

void RecordWords::installFunctions(sqlite3* database)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function_v2(database, "vrk_words", 1, flags, nullptr, function<&RecordWords::words>,
                               nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(database, "vrk_equipment", 1, flags, nullptr,
                               function<&RecordWords::equipment>, nullptr, nullptr, nullptr);
}
