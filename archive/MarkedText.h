#pragma once

#include "SearchWords.h"
#include "TemplateText.h"

/// Texts of templates (TemplateText) with marks.
namespace MarkedText
{
/// A plain text, shown as it is, in one look.
QString passage(const QString& text, TemplateText::Looks looks);

/// Marks the search words in the text of a record: bold and underlined. Words are also found across markup.
QString html(const QString& html, const QVector<SearchWords::Term>& terms);
} // namespace MarkedText
