#pragma once

#include "VrkExport.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// What a search takes for a word and when a word is found. Words are runs of letters and digits, whatever their case; "ё"
/// and "е" are one letter. A word is found by any of its forms. Words of four letters and more are found by their beginning
/// as well, shorter ones and numbers only as a whole, unless a "*" follows two characters or more in the query.
namespace SearchWords
{
/// A word of a query.
struct Term {
    QString stem;
    bool isBeginning = false; ///< words that begin with the stem are found too
};

/// The stem of each word of a text, in order.
VRK_EXPORT QStringList stems(const QString& text);
/// The words of a query; each has to be found.
VRK_EXPORT QVector<Term> terms(const QString& query);

/// A word in a text.
struct Place {
    int begin;
    int length;
};
/// Where the words of a query stand in a text, in order.
VRK_EXPORT QVector<Place> places(const QString& text, const QVector<Term>& terms);
} // namespace SearchWords
