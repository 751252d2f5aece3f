#pragma once

#include "VrkExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Defines what a word is for a search, and when it is found. Words are runs of letters and digits in any case; "ё"
/// and "е" are one letter. A word is found by any of its forms. Words of four letters and more are also found by
/// their beginning; shorter ones and numbers only as a whole, unless a "*" follows at least two characters in the
/// query. Words in quotes must stand side by side, in any form; a word or a phrase behind a "-" must not occur. A quote
/// that is not closed and a "-" between words are nothing special.
namespace SearchWords
{
/// A word of a query.
struct Term {
    QString stem;
    bool isBeginning = false; ///< also finds words that begin with the stem
};

/// The stem of each word of a text, in order.
VRK_EXPORT QStringList stems(const QString& text);
using Phrase = QVector<Term>; ///< of at least two words

/// What a query asks for. No text is wrong: what is no phrase and no exclusion is words.
struct Query {
    QVector<Term> terms;     ///< all must be found, also those of the phrases
    QVector<Term> excluded;  ///< none may be found
    QVector<Phrase> phrases; ///< all must be found
    QVector<Phrase> excludedPhrases;

    bool hasPhrases() const { return !phrases.isEmpty() || !excludedPhrases.isEmpty(); }
};
VRK_EXPORT Query query(const QString& text);
/// The words of a query that must be found.
VRK_EXPORT QVector<Term> terms(const QString& query);
/// Whether the words of a text, as stems, fit the phrases of a query.
VRK_EXPORT bool fitsPhrases(const QStringList& stems, const Query& query);

/// A word in a text.
struct Place {
    int begin;
    int length;
};
/// The positions of the query's words in a text, in order.
VRK_EXPORT QVector<Place> places(const QString& text, const QVector<Term>& terms);
} // namespace SearchWords
