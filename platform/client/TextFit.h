#pragma once

#include <bitset>
#include <QString>
#include <QVector>

class QTextCodec;

/// Fits text to a code page: finds the characters that it does not have and their closest replacements.
class TextFit
{
public:
    /// One passage to replace.
    struct Change {
        int start;
        int length;
        QString replacement; ///< empty: the passage is dropped
    };

    /// A null or Unicode codec has all characters.
    explicit TextFit(const QTextCodec* codec = nullptr);

    /// The replacements for \a text, from its start to its end; empty if the code page has all its
    /// characters.
    QVector<Change> changes(const QString& text) const;
    static QString applied(QString text, const QVector<Change>& changes);
    /// Describes the changes to \a text for the user, in Russian.
    static QString notice(const QString& text, const QVector<Change>& changes);

private:
    bool carries(QChar character) const { return m_all || m_carried[character.unicode()]; }
    bool carries(const QString& text) const;
    QString closest(const QString& passage) const;

    bool m_all = false;
    std::bitset<65536> m_carried;
};
