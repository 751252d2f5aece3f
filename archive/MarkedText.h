#pragma once

#include "SearchWords.h"

/// Marks the search words in the text of a record: bold and underlined.
namespace MarkedText
{
/// \a html and the result are texts of templates (TemplateText). Words are also found across markup.
QString html(const QString& html, const QVector<SearchWords::Term>& terms);
} // namespace MarkedText
