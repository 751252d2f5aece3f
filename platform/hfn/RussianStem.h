#pragma once

#include <QString>

/// Takes the endings off Russian words, so that all forms of a word meet in one stem: the rules of the Snowball stemmer,
/// which a PostgreSQL server applies too. The answer is no word, only the same for most forms of one.
namespace RussianStem
{
/// The stem of a word in lower case without "ё"; a word without Russian vowels is its own.
QString of(const QString& word);
} // namespace RussianStem
