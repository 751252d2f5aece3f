#pragma once

#include <string>
#include <string_view>

/// The escapes of template texts, on bytes of any encoding that extends ASCII.
namespace HtmlEscapes
{
/// Escapes as %XX the characters that separate properties or read as markup, also in attributes without
/// quotes: spaces, control characters and % ; = & < > [ ] " '.
std::string toPercent(std::string_view text, char alsoEscaped = '\0');
/// The inverse; a "%" without two hexadecimal digits is literal.
std::string fromPercent(std::string_view text);

/// Plain text as content of an element. A "," or "." right after a tag is escaped, because the conversion
/// of old templates inserts a space between ">" and these.
std::string toHtml(std::string_view text);
/// Resolves entities of ASCII characters and the no-break space, which becomes a space; other entities are
/// unchanged, because the encoding is not known here.
std::string fromEntities(std::string_view html);
/// Appends the visible text of an element to \a text: entities resolved, runs of spaces and line ends
/// collapsed to one space. \a blank carries over whether the last character was such a space.
void appendCollapsed(std::string_view html, std::string& text, bool& blank);
} // namespace HtmlEscapes
