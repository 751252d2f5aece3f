#pragma once

#include <QHash>
#include <QString>

/// The text of a template taken apart into the cells of a row. The text cell holds the readable notation of the demo's
/// templates ({type:label}, *bold*, ~struck out~, line breaks), or "html:" and the text as it is stored where the
/// notation cannot say it.
struct TemplateCells {
    QString text;
    QHash<QByteArray, QString>
        properties; ///< flags with "1", markers by their paths; absent ones are not there

    explicit TemplateCells(const QString& html = QString());
    /// A template property, also of a text that the notation cannot say.
    static bool hasFlag(const QString& html, const char* name);
    /// The text as it is stored. Empty, and \a error says why, when the notation is broken.
    QString html(QString* error) const;
    bool operator==(const TemplateCells& other) const
    {
        return text == other.text && properties == other.properties;
    }
};
