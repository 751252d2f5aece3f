#pragma once

#include <QString>

/// Removes the endings of Russian words, so that all forms of a word have one stem: the rules of the Snowball
/// stemmer, which a PostgreSQL server also applies. The stem is not a word; it is the same for most forms of one
/// word.
namespace RussianStem
{
/// The stem of a word in lower case without "ё"; a word without Russian vowels is its own stem.
QString of(const QString& word);
} // namespace RussianStem
