#pragma once

#include <QHash>
#include <QStringList>

/// A list of words in which a misspelt one is looked up: a letter more or less, another one, or two exchanged count
/// as one difference each.
class NearWords
{
public:
    /// The words of the list as they are written in it; short ones and abbreviations in capitals are left out.
    void setWords(const QStringList& words);
    /// At most three words that differ from \a word in one place, or in two if it is long; the nearest first.
    QStringList of(const QString& word) const;

private:
    QHash<QString, QString> m_words; ///< by their form for comparisons
};
