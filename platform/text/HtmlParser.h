#pragma once

#include "VrkExport.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Reads and changes the text of a template or of a record: rich text, parameters, template properties.
///
/// A parameter is an anchor element; the link target contains its properties, in their order:
///     <a href="parameter:name=text;locname=Label">shown text</a>
/// Template properties are in one element that a rich-text view does not show:
///     <meta name="template" content="open_wshift;first_mark=:/markers/worker_red.png">
/// In names and values only special ASCII characters are escaped, as %XX, so that converting the text
/// converts them correctly. Bytes above 127 are opaque: the text may be in Windows-1251 or UTF-8, and
/// returned strings have its encoding.
///
/// Broken markup is never an error: an incomplete tag is text, an unclosed element ends where the next
/// anchor begins or the text ends. All work is linear in the length of the text. Indexes without a
/// parameter give empty answers and change nothing.
class VRK_EXPORT HtmlParser
{
public:
    using Property = std::pair<std::string, std::string>;

    HtmlParser() = default;
    explicit HtmlParser(const std::string& html);
    void setHtml(const std::string& html);

    /// \name Parameters, numbered from 0 in the order of the text
    /// @{
    unsigned countParameters() const;
    /// The property "name": the base name of parameter \a i.
    std::string propertyNameValue(unsigned i) const;
    /// Any property of parameter \a i; empty if it has none of this name.
    std::string propertyValue(unsigned i, const std::string& name) const;
    bool isExistProperty(unsigned i, const std::string& name) const;
    /// All properties of parameter \a i in their order, the datum among them as "data".
    std::vector<Property> properties(unsigned i) const;
    /// The shown text without markup; a line break is "\n".
    std::string displayText(unsigned i) const;
    /// Replaces the shown text. An element that encloses all of it, such as a strike-out, is kept.
    void setDisplayText(unsigned i, const std::string& text);
    /// The shown text without the words around the value: the properties "before" and "after" of the
    /// parameter. These words are shown only together with the value.
    std::string valueText(unsigned i) const;
    /// Shows a value with the words around it; for an empty value shows nothing.
    void setValueText(unsigned i, const std::string& value);
    /// The datum; empty if there is none.
    std::string propertyData(unsigned i) const;
    /// Attaches a datum, such as the key of a reference record; an empty one removes it.
    void setPropertyData(unsigned i, const std::string& data);
    /// @}

    /// \name Template properties
    /// @{
    bool isExistTemplateProperty(const std::string& name) const;
    /// Reads a text property; \a value is unchanged if the property is absent or a flag.
    void templatePropertyValue(const std::string& name, std::string& value) const;
    /// Reads a flag; \a value is unchanged if the property is absent or a text.
    void templatePropertyValue(const std::string& name, bool& value) const;
    /// Sets a flag; false removes it, because an absent flag is false.
    void setTemplateProperty(const std::string& name, bool value);
    void setTemplateProperty(const std::string& name, const std::string& value);
    /// Without this overload a literal would be taken for a flag.
    void setTemplateProperty(const std::string& name, const char* value);
    void removeTemplateProperty(const std::string& name);
    /// @}

    /// The text with all changes applied; without changes it is the original, byte for byte. False omits
    /// the template properties.
    std::string readyHtml(bool withTemplateProperties) const;

    /// The text of one parameter. "name" comes first among the properties; "optional", with any value,
    /// makes the parameter optional; "before" and "after" are words that are shown only with its value.
    static std::string createParameter(const std::vector<Property>& properties,
                                       const std::string& displayText);
    /// Packs the values of a list into one property value.
    static std::string createListProperty(const std::vector<std::string>& values);
    /// The inverse of createListProperty: "" is the empty list.
    static std::vector<std::string> listValues(const std::string& property);
    /// The datum of a parameter from the link target that a view reports for it; empty for any other link.
    static std::string dataFromProperties(const std::string& link);
    /// Characters that must not occur in property values, separated by single spaces, or without separators
    /// if \a separated is false. The format itself supports every character; these are the ones that read
    /// as markup elsewhere.
    static std::string invalidChars(bool separated);
    /// Plain text in the form for html: special characters escaped, line breaks as elements, spaces kept.
    static std::string escaped(const std::string& text);

private:
    struct Parameter {
        std::size_t begin = 0;        ///< "<" of the opening tag
        std::size_t linkBegin = 0;    ///< after "parameter:"
        std::size_t linkEnd = 0;      ///< the closing quote
        std::size_t contentBegin = 0; ///< after ">" of the opening tag
        std::size_t contentEnd = 0;   ///< "<" of the closing tag
        bool closed = false;
        bool linkChanged = false;
        bool contentChanged = false;
        std::string link;    ///< valid if linkChanged
        std::string content; ///< valid if contentChanged
    };
    struct TemplateProperty {
        std::string name;
        std::string value;
        bool flag;
    };
    struct PropertyElement {
        std::size_t begin;
        std::size_t end;
        bool behindStray; ///< a stray "<" comes before; it must not combine with the following text
    };

    void parse();
    void readTemplateProperties(std::string_view content);
    std::string_view link(const Parameter& parameter) const;
    std::string_view content(const Parameter& parameter) const;
    TemplateProperty* templateProperty(const std::string& name);
    const TemplateProperty* templateProperty(const std::string& name) const;
    std::string templatePropertiesElement() const;

    std::string m_html;
    std::vector<Parameter> m_parameters;
    std::vector<TemplateProperty> m_templateProperties;
    std::vector<PropertyElement>
        m_propertyElements; ///< positions of the elements with template properties in m_html
    bool m_templatePropertiesChanged = false;
};
