#pragma once

#include "HtmlParser.h"
#include "TemplateText.h"

#include <QString>
#include <QTextCharFormat>
#include <vector>

/// A parameter as one character of the edited text. The character's format contains all its data, so that
/// moving, copying, deletion and undo work.
struct TemplateEditorChip {
    static constexpr int ObjectType = QTextFormat::UserObject + 1;

    std::vector<HtmlParser::Property> properties; ///< all properties, in their order
    QString shownText;
    TemplateText::Looks looks;

    QTextCharFormat format() const;
    static bool isChip(const QTextCharFormat& format) { return format.objectType() == ObjectType; }
    /// Returns an empty chip for any other format.
    static TemplateEditorChip fromFormat(const QTextCharFormat& format);
    /// The format for text next to the chip.
    static QTextCharFormat withoutChip(const QTextCharFormat& format);
    /// The chip's caption, without building the whole chip.
    static QString caption(const QTextCharFormat& format);
    static bool isOptional(const QTextCharFormat& format);

    QString property(const char* name) const;
    bool hasProperty(const char* name) const;
    /// Replaces the value of the property, or appends the property.
    void setProperty(const char* name, const QString& value);
    void removeProperty(const char* name);

    /// The parameter's html, with a strike-out inside its element; other looks are written around it.
    QString html() const;
    /// The parameters of a text, with their looks.
    static std::vector<TemplateEditorChip> read(const QString& html);
};
