#pragma once

#include <QByteArray>

struct sqlite3;

/// The words by which the search finds a record, taken from its html: the stems of the visible words, and
/// of those that name equipment. Tags and the properties in them are not words; entities separate words.
/// The functions vrk_words and vrk_equipment of a server's store do the same.
struct RecordWords {
    /// \a html in UTF-8.
    explicit RecordWords(const QByteArray& html);

    /// Each stem once, separated by blanks, in UTF-8; only the first several thousand words are used.
    QByteArray words;
    QByteArray equipment;

    /// Adds the functions vrk_words(html) and vrk_equipment(html) to a connection.
    static void installFunctions(sqlite3* database);
};
