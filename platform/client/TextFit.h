#pragma once

#include <bitset>
#include <QString>
#include <QVector>

class QTextCodec;

/// Fits text into a code page: finds the characters that it cannot carry and their nearest kin.
class TextFit
{
public:
    /// One passage to replace.
    struct Change {
        int start;
        int length;
        QString replacement; ///< empty: the passage is left out
    };

    /// A null or Unicode codec carries everything.
    explicit TextFit(const QTextCodec* codec = nullptr);

    /// What to replace in \a text, from its start to its end; empty when all of it can be carried.
    QVector<Change> changes(const QString& text) const;
    static QString applied(QString text, const QVector<Change>& changes);
    /// Tells the user in Russian what becomes of \a text.
    static QString notice(const QString& text, const QVector<Change>& changes);

private:
    bool carries(QChar character) const { return m_all || m_carried[character.unicode()]; }
    bool carries(const QString& text) const;
    QString kin(const QString& passage) const;

    bool m_all = false;
    std::bitset<65536> m_carried;
};
