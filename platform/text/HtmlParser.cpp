#include "HtmlParser.h"

#include "HtmlEscapes.h"
#include "HtmlScanner.h"

#include <algorithm>
#include <unordered_set>

namespace
{
using Scanner = HtmlScanner<char>;

constexpr std::string_view scheme = "parameter:";
constexpr const char* dataProperty = "data";

struct Edit {
    std::size_t begin;
    std::size_t end;
    std::string text;
};

/// Calls \a piece(name, value, hasValue) for each "name=value" or "name" of a packed list; stops when it
/// returns false.
template <class Piece>
void forEachProperty(std::string_view packed, Piece piece)
{
    while (!packed.empty()) {
        const std::size_t end = std::min(packed.find(';'), packed.size());
        const std::string_view part = packed.substr(0, end);
        packed.remove_prefix(std::min(end + 1, packed.size()));
        const std::size_t equal = part.find('=');
        const bool hasValue = equal != std::string_view::npos;
        const std::string_view name = part.substr(0, equal);
        if (!name.empty() && !piece(name, hasValue ? part.substr(equal + 1) : std::string_view(), hasValue))
            return;
    }
}

/// Links are written without entities; a view or an editor may have added some.
std::string plainLink(std::string_view raw)
{
    return raw.find('&') == std::string_view::npos ? std::string(raw) : HtmlEscapes::fromEntities(raw);
}

bool findProperty(std::string_view rawLink, const std::string& name, std::string& value)
{
    bool found = false;
    const auto take = [&](std::string_view key, std::string_view packed, bool) {
        const bool isEscaped = key.find('%') != std::string_view::npos;
        found = isEscaped ? HtmlEscapes::fromPercent(key) == name : key == name;
        if (found)
            value = HtmlEscapes::fromPercent(packed);
        return !found;
    };
    if (rawLink.find('&') == std::string_view::npos)
        forEachProperty(rawLink, take);
    else
        forEachProperty(HtmlEscapes::fromEntities(rawLink), take);
    return found;
}

std::string packedProperties(const std::vector<HtmlParser::Property>& properties)
{
    std::string packed;
    for (const HtmlParser::Property& property : properties) {
        if (!packed.empty())
            packed += ';';
        packed += HtmlEscapes::toPercent(property.first) + '=' + HtmlEscapes::toPercent(property.second);
    }
    return packed;
}

std::string plainContent(std::string_view content)
{
    std::string text;
    bool blank = false; // the last character is a space that absorbs the following ones
    Scanner scanner(content);
    Scanner::Token token;
    while (scanner.next(token)) {
        if (token.kind == Scanner::Open && Scanner::equals(token.name, "br")) {
            text += '\n';
            blank = false;
        }
        if (token.kind == Scanner::Text)
            HtmlEscapes::appendCollapsed(scanner.view(token), text, blank);
    }
    return text;
}

/// The tags that enclose the whole content also enclose the new text: {length before, length after}.
std::pair<std::size_t, std::size_t> enclosingTags(std::string_view content)
{
    std::vector<Scanner::Token> leading;
    std::vector<Scanner::Token> trailing;
    Scanner scanner(content);
    Scanner::Token token;
    bool inFront = true;
    while (scanner.next(token)) {
        inFront = inFront && token.kind == Scanner::Open;
        if (inFront)
            leading.push_back(token);
        if (token.kind == Scanner::Close)
            trailing.push_back(token);
        else
            trailing.clear();
    }
    std::size_t depth = 0;
    while (depth < leading.size() && depth < trailing.size() &&
           leading[depth].name == trailing[trailing.size() - 1 - depth].name)
        ++depth;
    if (depth == 0)
        return {0, 0};
    return {leading[depth - 1].end, content.size() - trailing[trailing.size() - depth].begin};
}
} // namespace

HtmlParser::HtmlParser(const std::string& html)
{
    setHtml(html);
}

void HtmlParser::setHtml(const std::string& html)
{
    *this = HtmlParser();
    m_html = html;
    parse();
}

void HtmlParser::parse()
{
    Scanner scanner(m_html);
    Scanner::Token token;
    const auto endParameter = [this](std::size_t at, bool closed) {
        if (m_parameters.empty() || m_parameters.back().contentEnd != 0)
            return;
        m_parameters.back().contentEnd = at;
        m_parameters.back().closed = closed;
    };
    bool stray = false;
    while (scanner.next(token)) {
        const bool behindStray = stray;
        stray = token.kind == Scanner::Text && m_html[token.begin] == '<';
        if (token.kind == Scanner::Close && Scanner::equals(token.name, "a"))
            endParameter(token.begin, true);
        if (token.kind != Scanner::Open)
            continue;
        if (Scanner::equals(token.name, "a")) {
            endParameter(token.begin, false);
            const Scanner::Span link = scanner.parameterLink(token);
            if (link.found) {
                m_parameters.emplace_back();
                Parameter& parameter = m_parameters.back();
                parameter.linkBegin = link.begin;
                parameter.linkEnd = link.end;
                parameter.contentBegin = token.end;
            }
        } else if (Scanner::equals(token.name, "meta") &&
                   scanner.view(scanner.attribute(token, "name")) == "template") {
            readTemplateProperties(scanner.view(scanner.attribute(token, "content")));
            m_propertyElements.push_back({token.begin, token.end, behindStray});
        }
    }
    endParameter(m_html.size(), false);
}

void HtmlParser::readTemplateProperties(std::string_view content)
{
    const std::string packed = plainLink(content);
    std::unordered_set<std::string> known; // the first property of a name counts
    for (const TemplateProperty& property : m_templateProperties)
        known.insert(property.name);
    forEachProperty(packed, [this, &known](std::string_view key, std::string_view value, bool hasValue) {
        const std::string name = HtmlEscapes::fromPercent(key);
        if (known.insert(name).second)
            m_templateProperties.push_back({name, HtmlEscapes::fromPercent(value), !hasValue});
        return true;
    });
}

unsigned HtmlParser::countParameters() const
{
    return static_cast<unsigned>(m_parameters.size());
}

std::string_view HtmlParser::link(const Parameter& parameter) const
{
    if (parameter.linkChanged)
        return parameter.link;
    return std::string_view(m_html).substr(parameter.linkBegin, parameter.linkEnd - parameter.linkBegin);
}

std::string_view HtmlParser::content(const Parameter& parameter) const
{
    if (parameter.contentChanged)
        return parameter.content;
    return std::string_view(m_html).substr(parameter.contentBegin,
                                           parameter.contentEnd - parameter.contentBegin);
}

std::string HtmlParser::propertyNameValue(unsigned i) const
{
    return propertyValue(i, "name");
}

std::string HtmlParser::propertyValue(unsigned i, const std::string& name) const
{
    std::string value;
    if (i < m_parameters.size())
        findProperty(link(m_parameters[i]), name, value);
    return value;
}

bool HtmlParser::isExistProperty(unsigned i, const std::string& name) const
{
    std::string value;
    return i < m_parameters.size() && findProperty(link(m_parameters[i]), name, value);
}

std::vector<HtmlParser::Property> HtmlParser::properties(unsigned i) const
{
    std::vector<Property> list;
    if (i >= m_parameters.size())
        return list;
    const std::string packed = plainLink(link(m_parameters[i]));
    forEachProperty(packed, [&list](std::string_view key, std::string_view value, bool) {
        list.emplace_back(HtmlEscapes::fromPercent(key), HtmlEscapes::fromPercent(value));
        return true;
    });
    return list;
}

std::string HtmlParser::displayText(unsigned i) const
{
    return i < m_parameters.size() ? plainContent(content(m_parameters[i])) : std::string();
}

void HtmlParser::setDisplayText(unsigned i, const std::string& text)
{
    if (i >= m_parameters.size())
        return;
    Parameter& parameter = m_parameters[i];
    const std::string old(content(parameter));
    const auto [front, behind] = enclosingTags(old);
    parameter.content = old.substr(0, front) + escaped(text) + old.substr(old.size() - behind);
    parameter.contentChanged = true;
    for (const PropertyElement& element : m_propertyElements) { // it would go with the old text
        if (element.begin >= parameter.contentBegin && element.begin < parameter.contentEnd)
            m_templatePropertiesChanged = true;
    }
}

std::string HtmlParser::valueText(unsigned i) const
{
    const std::string shown = displayText(i);
    const std::string before = propertyValue(i, "before");
    const std::string after = propertyValue(i, "after");
    const bool wrapped = shown.size() >= before.size() + after.size() &&
                         shown.compare(0, before.size(), before) == 0 &&
                         shown.compare(shown.size() - after.size(), after.size(), after) == 0;
    return wrapped ? shown.substr(before.size(), shown.size() - before.size() - after.size()) : shown;
}

void HtmlParser::setValueText(unsigned i, const std::string& value)
{
    setDisplayText(i, value.empty() ? value : propertyValue(i, "before") + value + propertyValue(i, "after"));
}

std::string HtmlParser::propertyData(unsigned i) const
{
    return propertyValue(i, dataProperty);
}

void HtmlParser::setPropertyData(unsigned i, const std::string& data)
{
    if (i >= m_parameters.size() || propertyData(i) == data)
        return;
    std::vector<Property> list = properties(i);
    const auto isData = [](const Property& property) { return property.first == dataProperty; };
    list.erase(std::remove_if(list.begin(), list.end(), isData), list.end());
    if (!data.empty())
        list.emplace_back(dataProperty, data);
    m_parameters[i].link = packedProperties(list);
    m_parameters[i].linkChanged = true;
}

HtmlParser::TemplateProperty* HtmlParser::templateProperty(const std::string& name)
{
    for (TemplateProperty& property : m_templateProperties) {
        if (property.name == name)
            return &property;
    }
    return nullptr;
}

const HtmlParser::TemplateProperty* HtmlParser::templateProperty(const std::string& name) const
{
    return const_cast<HtmlParser*>(this)->templateProperty(name);
}

bool HtmlParser::isExistTemplateProperty(const std::string& name) const
{
    return templateProperty(name) != nullptr;
}

void HtmlParser::templatePropertyValue(const std::string& name, std::string& value) const
{
    const TemplateProperty* property = templateProperty(name);
    if (property && !property->flag)
        value = property->value;
}

void HtmlParser::templatePropertyValue(const std::string& name, bool& value) const
{
    const TemplateProperty* property = templateProperty(name);
    if (property && property->flag)
        value = true;
}

void HtmlParser::setTemplateProperty(const std::string& name, bool value)
{
    if (!value) {
        removeTemplateProperty(name);
        return;
    }
    TemplateProperty* property = templateProperty(name);
    if (property && property->flag)
        return;
    if (property)
        *property = {name, std::string(), true};
    else
        m_templateProperties.push_back({name, std::string(), true});
    m_templatePropertiesChanged = true;
}

void HtmlParser::setTemplateProperty(const std::string& name, const std::string& value)
{
    TemplateProperty* property = templateProperty(name);
    if (property && !property->flag && property->value == value)
        return;
    if (property)
        *property = {name, value, false};
    else
        m_templateProperties.push_back({name, value, false});
    m_templatePropertiesChanged = true;
}

void HtmlParser::setTemplateProperty(const std::string& name, const char* value)
{
    setTemplateProperty(name, std::string(value));
}

void HtmlParser::removeTemplateProperty(const std::string& name)
{
    const auto named = [&name](const TemplateProperty& property) { return property.name == name; };
    const auto end = std::remove_if(m_templateProperties.begin(), m_templateProperties.end(), named);
    m_templatePropertiesChanged = m_templatePropertiesChanged || end != m_templateProperties.end();
    m_templateProperties.erase(end, m_templateProperties.end());
}

std::string HtmlParser::templatePropertiesElement() const
{
    std::string packed;
    for (const TemplateProperty& property : m_templateProperties) {
        if (!packed.empty())
            packed += ';';
        packed += HtmlEscapes::toPercent(property.name);
        if (!property.flag)
            packed += '=' + HtmlEscapes::toPercent(property.value);
    }
    return packed.empty() ? packed : "<meta name=\"template\" content=\"" + packed + "\">";
}

std::string HtmlParser::readyHtml(bool withTemplateProperties) const
{
    std::vector<Edit> edits;
    for (const Parameter& parameter : m_parameters) {
        if (parameter.linkChanged)
            edits.push_back({parameter.linkBegin, parameter.linkEnd, parameter.link});
        if (parameter.contentChanged)
            edits.push_back({parameter.contentBegin, parameter.contentEnd,
                             parameter.closed ? parameter.content : parameter.content + "</a>"});
    }
    if (m_templatePropertiesChanged || !withTemplateProperties) {
        for (const PropertyElement& element : m_propertyElements)
            edits.push_back({element.begin, element.end, element.behindStray ? "<!>" : ""});
    }
    // If two begin at the same position, the enclosing one comes first, and a parameter's before others.
    std::stable_sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) {
        return a.begin != b.begin ? a.begin < b.begin : a.end > b.end;
    });

    std::string ready;
    ready.reserve(m_html.size() + 64);
    if (m_templatePropertiesChanged && withTemplateProperties)
        ready = templatePropertiesElement();
    std::size_t position = 0;
    for (const Edit& edit : edits) {
        if (edit.begin < position)
            continue; // inside a text that was replaced
        ready.append(m_html, position, edit.begin - position);
        ready += edit.text;
        position = edit.end;
    }
    ready.append(m_html, position, std::string::npos);
    return ready;
}

std::string HtmlParser::createParameter(const std::vector<Property>& properties,
                                        const std::string& displayText)
{
    return "<a href=\"" + std::string(scheme) + packedProperties(properties) + "\">" + escaped(displayText) +
           "</a>";
}

std::string HtmlParser::createListProperty(const std::vector<std::string>& values)
{
    std::string list;
    for (const std::string& value : values)
        list += HtmlEscapes::toPercent(value, '|') + '|';
    return list;
}

std::vector<std::string> HtmlParser::listValues(const std::string& property)
{
    std::vector<std::string> values;
    std::string_view rest = property;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('|'), rest.size());
        values.push_back(HtmlEscapes::fromPercent(rest.substr(0, end)));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return values;
}

std::string HtmlParser::dataFromProperties(const std::string& link)
{
    std::string data;
    if (std::string_view(link).substr(0, scheme.size()) == scheme)
        findProperty(std::string_view(link).substr(scheme.size()), dataProperty, data);
    return data;
}

std::string HtmlParser::invalidChars(bool separated)
{
    return separated ? "< > \"" : "<>\"";
}

std::string HtmlParser::escaped(const std::string& text)
{
    return HtmlEscapes::toHtml(text);
}
