#pragma once

#include "VrkExport.h"

#include <QFlags>
#include <QString>
#include <QTextCharFormat>
#include <QVector>

class QTextDocument;

/// Reads the visible text of the html of a template or a record. All functions take the html decoded from
/// the session's code page. They support what template texts contain: paragraphs and line breaks, bold,
/// italic, underlined, struck-out, raised and lowered passages, parameters. All other markup is ignored;
/// colours and fonts are those of the theme.
namespace TemplateText
{
enum Look { Bold = 1, Italic = 2, Underlined = 4, StruckOut = 8, Raised = 16, Lowered = 32 };
Q_DECLARE_FLAGS(Looks, Look)

/// A passage with one look.
struct Run {
    QString text; ///< line breaks are "\n", no-break spaces are kept
    Looks looks;
    int parameter = -1; ///< index of the parameter whose shown text this is, -1 outside parameters
};

/// The visible passages in order. Each parameter has at least one run, an empty one if it shows nothing.
VRK_EXPORT QVector<Run> runs(const QString& html);
VRK_EXPORT QTextCharFormat charFormat(Looks looks);
/// The inverse; other properties of a format are ignored.
VRK_EXPORT Looks looksOf(const QTextCharFormat& format);

/// The visible text in one string: parameters with their shown texts, no-break spaces as spaces. For role
/// 0, search, sorting and copying; takes a few microseconds for a record.
VRK_EXPORT QString plain(const QString& html);

/// Replaces the document's content by the rendered text, for painting and measuring. \a parameter is merged
/// into the format of the parameters' shown texts. The document's font, width and margin are unchanged; it
/// keeps no undo history.
VRK_EXPORT void fill(QTextDocument* document, const QString& html,
                     const QTextCharFormat& parameter = QTextCharFormat());
} // namespace TemplateText

Q_DECLARE_OPERATORS_FOR_FLAGS(TemplateText::Looks)
