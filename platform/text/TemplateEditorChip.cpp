#include "TemplateEditorChip.h"

#include <algorithm>

namespace
{
enum Property { Element = QTextFormat::UserProperty + 1, Caption, Optional, Raise };

template <class Properties>
auto found(Properties& properties, const char* name)
{
    return std::find_if(properties.begin(), properties.end(),
                        [name](const HtmlParser::Property& property) { return property.first == name; });
}
} // namespace

QTextCharFormat TemplateEditorChip::format() const
{
    QString shown = shownText.trimmed().isEmpty() ? property("locname") : shownText;
    if (shown.trimmed().isEmpty())
        shown = property("name");
    QTextCharFormat format = TemplateText::charFormat(looks);
    // The chip itself is never raised: its vertical alignment is that of an inline object.
    format.setProperty(Raise, int(looks & (TemplateText::Raised | TemplateText::Lowered)));
    format.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    format.setObjectType(ObjectType);
    format.setProperty(Element, html());
    format.setProperty(Caption, (property("before") + shown + property("after")).simplified());
    format.setProperty(Optional, hasProperty("optional"));
    return format;
}

TemplateEditorChip TemplateEditorChip::fromFormat(const QTextCharFormat& format)
{
    TemplateEditorChip chip;
    if (!isChip(format))
        return chip;
    std::vector<TemplateEditorChip> chips = read(format.stringProperty(Element));
    if (!chips.empty())
        chip = std::move(chips.front());
    chip.looks = TemplateText::looksOf(format) | TemplateText::Looks(format.intProperty(Raise));
    return chip;
}

QTextCharFormat TemplateEditorChip::withoutChip(const QTextCharFormat& format)
{
    return TemplateText::charFormat(isChip(format) ? TemplateText::looksOf(format) |
                                                         TemplateText::Looks(format.intProperty(Raise))
                                                   : TemplateText::looksOf(format));
}

QString TemplateEditorChip::caption(const QTextCharFormat& format)
{
    return format.stringProperty(Caption);
}

bool TemplateEditorChip::isOptional(const QTextCharFormat& format)
{
    return format.boolProperty(Optional);
}

QString TemplateEditorChip::property(const char* name) const
{
    const auto it = found(properties, name);
    return it == properties.end() ? QString() : QString::fromStdString(it->second);
}

bool TemplateEditorChip::hasProperty(const char* name) const
{
    return found(properties, name) != properties.end();
}

void TemplateEditorChip::setProperty(const char* name, const QString& value)
{
    const auto it = found(properties, name);
    if (it == properties.end())
        properties.emplace_back(name, value.toStdString());
    else
        it->second = value.toStdString();
}

void TemplateEditorChip::removeProperty(const char* name)
{
    const auto isNamed = [name](const HtmlParser::Property& property) { return property.first == name; };
    properties.erase(std::remove_if(properties.begin(), properties.end(), isNamed), properties.end());
}

QString TemplateEditorChip::html() const
{
    // Html viewers may drop spaces at the ends of a line, so they are written as entities.
    constexpr QChar kept(0xE000); // not used in any text
    QString shown = shownText;
    const auto endsLine = [&shown](int i) {
        return i < 0 || i == shown.size() || shown.at(i) == QLatin1Char('\n');
    };
    for (int i = 0; i < shown.size(); ++i) {
        if (shown.at(i) == QLatin1Char(' ') && (endsLine(i - 1) || endsLine(i + 1)))
            shown[i] = kept;
    }
    QString element = QString::fromStdString(HtmlParser::createParameter(properties, shown.toStdString()));
    if (looks & TemplateText::StruckOut) {
        // Values in the opening tag contain no bracket: the first one ends the tag.
        element.insert(element.size() - 4, QStringLiteral("</span>"));
        element.insert(element.indexOf(QLatin1Char('>')) + 1,
                       QStringLiteral("<span style=\" text-decoration: line-through;\">"));
    }
    element.replace(kept, QLatin1String("&#32;"));
    return element;
}

std::vector<TemplateEditorChip> TemplateEditorChip::read(const QString& html)
{
    const HtmlParser parser(html.toStdString());
    std::vector<TemplateEditorChip> chips(parser.countParameters());
    for (unsigned i = 0; i < parser.countParameters(); ++i)
        chips[i].properties = parser.properties(i);
    std::vector<bool> seen(chips.size(), false);
    for (const TemplateText::Run& run : TemplateText::runs(html)) {
        if (run.parameter < 0)
            continue;
        const auto index = static_cast<std::size_t>(run.parameter);
        if (!seen[index])
            chips[index].looks = run.looks; // of several looks, the first applies to the whole parameter
        seen[index] = true;
        chips[index].shownText += run.text;
        chips[index].shownText.remove(QChar::ObjectReplacementCharacter);
    }
    return chips;
}
