#pragma once

#include "VrkExport.h"

#include <QFlags>
#include <QString>
#include <QTextCharFormat>
#include <QVector>

class QTextDocument;

/// What a reader sees of the html of a template or a record. All functions take the html decoded from the
/// session's code page. They know what template texts are made of: paragraphs and line breaks, bold, italic,
/// underlined, struck-out, raised and lowered passages, parameters. Everything else in the markup is passed
/// over; colours and fonts are those of the theme.
namespace TemplateText
{
enum Look { Bold = 1, Italic = 2, Underlined = 4, StruckOut = 8, Raised = 16, Lowered = 32 };
Q_DECLARE_FLAGS(Looks, Look)

/// A passage of one look.
struct Run {
    QString text; ///< line breaks are "\n", no-break blanks stand as such
    Looks looks;
    int parameter = -1; ///< index of the parameter whose shown text this is, -1 outside of parameters
};

/// The visible passages in order. Each parameter has at least one run, an empty one when it shows nothing.
VRK_EXPORT QVector<Run> runs(const QString& html);
VRK_EXPORT QTextCharFormat charFormat(Looks looks);
/// The inverse; what a format has beyond the looks is passed over.
VRK_EXPORT Looks looksOf(const QTextCharFormat& format);

/// The visible text in one string: parameters with their shown texts, no-break blanks as blanks. Made for
/// role 0, search, sorting and copying; a few microseconds a record.
VRK_EXPORT QString plain(const QString& html);

/// Replaces the document's content by the rendered text, for painting and measuring. \a parameter is laid
/// over the look of shown texts of parameters. Font, width and margin are the document's own; it keeps no
/// undo history.
VRK_EXPORT void fill(QTextDocument* document, const QString& html,
                     const QTextCharFormat& parameter = QTextCharFormat());
} // namespace TemplateText

Q_DECLARE_OPERATORS_FOR_FLAGS(TemplateText::Looks)
