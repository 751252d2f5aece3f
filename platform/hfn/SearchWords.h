#pragma once

#include "VrkExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Defines what a word is for a search, and when it is found. Words are runs of letters and digits in any case; "ё"
/// and "е" are one letter. A word is found by any of its forms. Words of four letters and more are also found by
/// their beginning; shorter ones and numbers only as a whole, unless a "*" follows at least two characters in the
/// query.
namespace SearchWords
{
/// A word of a query.
struct Term {
    QString stem;
    bool isBeginning = false; ///< also finds words that begin with the stem
};

/// The stem of each word of a text, in order.
VRK_EXPORT QStringList stems(const QString& text);
/// The words of a query; all must be found.
VRK_EXPORT QVector<Term> terms(const QString& query);

/// A word in a text.
struct Place {
    int begin;
    int length;
};
/// The positions of the query's words in a text, in order.
VRK_EXPORT QVector<Place> places(const QString& text, const QVector<Term>& terms);
} // namespace SearchWords
