#include "RecordText.h"

#include "HtmlScanner.h"

#include <algorithm>
#include <cctype>

namespace
{
using Scanner = HtmlScanner<char16_t>;

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
} // namespace

RecordText::RecordText(const QString& html)
{
    Scanner scanner(Scanner::View(reinterpret_cast<const char16_t*>(html.utf16()),
                                  static_cast<std::size_t>(html.size())));
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
                append(scanner.view(token), &equipment);
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
            equipment.append(QLatin1Char(' '));
        }
    }
}
