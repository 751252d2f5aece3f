#pragma once

#include "HtmlParser.h"
#include "TemplateText.h"

#include <QString>
#include <QTextCharFormat>
#include <vector>

/// A parameter as one character of the text that is edited. All there is to it rides in the character's
/// format, so that moving, copying, deletion and undo take it along.
struct TemplateEditorChip {
    static constexpr int ObjectType = QTextFormat::UserObject + 1;

    std::vector<HtmlParser::Property> properties; ///< all of them, in their order
    QString shownText;
    TemplateText::Looks looks;

    QTextCharFormat format() const;
    static bool isChip(const QTextCharFormat& format) { return format.objectType() == ObjectType; }
    /// A format that is none of a chip gives an empty chip.
    static TemplateEditorChip fromFormat(const QTextCharFormat& format);
    /// The format for text beside the chip.
    static QTextCharFormat withoutChip(const QTextCharFormat& format);
    /// What the chip shows, without making the whole chip.
    static QString caption(const QTextCharFormat& format);
    static bool isOptional(const QTextCharFormat& format);

    QString property(const char* name) const;
    bool hasProperty(const char* name) const;
    /// Replaces the value in its place, or adds the property behind the others.
    void setProperty(const char* name, const QString& value);
    void removeProperty(const char* name);

    /// The parameter in the text, struck out inside of its element; other looks stand around it.
    QString html() const;
    /// The parameters of a text, with the looks they have there.
    static std::vector<TemplateEditorChip> read(const QString& html);
};
