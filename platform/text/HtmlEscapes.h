#pragma once

#include <string>
#include <string_view>

/// The escapes of template texts, on bytes of any encoding that extends ASCII.
namespace HtmlEscapes
{
/// Escapes as %XX what separates properties or reads as markup, in attributes without quotes too: blanks, control
/// characters and % ; = & < > [ ] " '.
std::string toPercent(std::string_view text, char alsoEscaped = '\0');
/// The inverse; a "%" without two hexadecimal digits stands for itself.
std::string fromPercent(std::string_view text);

/// Plain text as content of an element. A "," or "." right behind a tag is escaped, for the conversion of old
/// templates sets a blank between ">" and those.
std::string toHtml(std::string_view text);
/// Resolves entities of ASCII characters and the no-break blank, which becomes a blank; others stand as they
/// are, because the encoding is not known here.
std::string fromEntities(std::string_view html);
/// Appends text of an element to \a text as a reader sees it: entities resolved, runs of blanks and line ends
/// as one blank. \a blank carries over whether the last character was such a blank.
void appendCollapsed(std::string_view html, std::string& text, bool& blank);
} // namespace HtmlEscapes
