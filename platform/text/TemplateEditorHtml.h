#pragma once

#include <QString>
#include <QStringList>

class QTextCursor;
class QTextDocument;

/// The way of a template's text into a document of passages and chips, and back. Everything is decoded.
namespace TemplateEditorHtml
{
/// Inserts what a reader sees of \a html; parameters become chips.
void insert(QTextCursor& cursor, const QString& html);
/// The same of what fragment() gave.
void insertFragment(QTextCursor& cursor, const QString& html);
/// Inserts plain text as it is: characters that a document takes for structure are left out, tabs are blanks.
void insertPlain(QTextCursor& cursor, const QString& text);
/// The document as a template's text. Blanks that a reader of html would drop become no-break ones. Line ends
/// behind the last text are not seen by a reader and are left out.
QString text(const QTextDocument* document);
/// The passages between two positions, for insertFragment(): blanks and line ends come back as they are.
QString fragment(const QTextDocument* document, int from, int to);

/// The elements with template properties, one behind the other as they stand in \a html.
QString properties(const QString& html);
/// \a html without them.
QString withoutProperties(const QString& html);
/// What \a html has that a template does not carry, named in Russian for a notice: tables, pictures and the
/// like. Colours and fonts are not worth a word.
QStringList uncarried(const QString& html);
} // namespace TemplateEditorHtml
