#pragma once

#include "SearchWords.h"

/// The text of a record with the words of a search marked: bold and underlined.
namespace MarkedText
{
/// \a html and the answer are texts of templates (TemplateText). Words are found across the markup within them.
QString html(const QString& html, const QVector<SearchWords::Term>& terms);
} // namespace MarkedText
