#pragma once

#include <QHash>
#include <QString>

/// The text of a template split into the cells of a row. The text cell contains the readable notation of
/// the demo's templates ({type:label}, *bold*, ~struck out~, line breaks), or "html:" and the stored text
/// if the notation cannot express it.
struct TemplateCells {
    QString text;
    QHash<QByteArray, QString>
        properties; ///< flags with "1", markers by their paths; missing properties are absent

    explicit TemplateCells(const QString& html = QString());
    /// A template property; also works for a text that the notation cannot express.
    static bool hasFlag(const QString& html, const char* name);
    /// The text in its stored form. Empty with \a error if the notation is broken.
    QString html(QString* error) const;
    bool operator==(const TemplateCells& other) const
    {
        return text == other.text && properties == other.properties;
    }
};
