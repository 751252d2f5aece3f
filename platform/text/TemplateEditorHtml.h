#pragma once

#include <QString>
#include <QStringList>

class QTextCursor;
class QTextDocument;

/// Converts a template's text to a document of passages and chips, and back. All texts are decoded.
namespace TemplateEditorHtml
{
/// Inserts the visible text of \a html; parameters become chips.
void insert(QTextCursor& cursor, const QString& html);
/// The same for a result of fragment().
void insertFragment(QTextCursor& cursor, const QString& html);
/// Inserts plain text: characters that a document uses for structure are dropped, tabs become spaces.
void insertPlain(QTextCursor& cursor, const QString& text);
/// The document as a template's text. Spaces that a viewer of html would drop become no-break spaces. Line
/// ends after the last text are invisible and are dropped.
QString text(const QTextDocument* document);
/// The passages between two positions, for insertFragment(); spaces and line ends are preserved.
QString fragment(const QTextDocument* document, int from, int to);

/// The elements with template properties, concatenated in the order of \a html.
QString properties(const QString& html);
/// \a html without them.
QString withoutProperties(const QString& html);
/// The content of \a html that a template does not support, named in Russian for a notice: tables, pictures
/// and the like. Colours and fonts are not mentioned.
QStringList uncarried(const QString& html);
} // namespace TemplateEditorHtml
