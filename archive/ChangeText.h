#pragma once

#include "RowChange.h"

#include <QHash>

class CVrkCliMod;
class KeyNames;

/// Writes the changes of the log for the user: names for keys and logins, words for numbers, template texts as they
/// are read. Characters that turn the direction of a text, or break lines, are visible escapes; long texts end with
/// their length.
class ChangeText
{
public:
    /// Reads the persons of the logins. \a names is not owned. False if the server does not answer.
    bool load(CVrkCliMod* module, const KeyNames* names);

    /// "Иванов Иван Иванович (ivanov)", or "администратор (login)".
    QString who(const RowChange& change) const;
    /// The changed fields, one in a line, before and after; the words that differ are struck out before and bold and
    /// underlined after. Html of TemplateText.
    struct Sides {
        QString before;
        QString after;
    };
    Sides sides(const RowChange& change) const;
    /// Who signed the change, or why nobody did; empty if it needs no signature.
    QString signature(const RowChange& change) const;
    /// Both in one text for a row of a table.
    QString summary(const RowChange& change) const;
    /// A value of a field.
    QString value(const QByteArray& field, const QVariant& value) const;

    static QString time(double time);
    /// A text of the store in which nothing is hidden.
    static QString visible(const QString& text);

private:
    QString name(const QByteArray& field, const QString& text) const;

    const KeyNames* m_names = nullptr;
    QHash<QString, QString> m_persons; ///< by login
};
