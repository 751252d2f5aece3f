#pragma once

#include <QByteArray>

struct sqlite3;

/// What the search finds a record by, out of its html: the stems of the words that a reader sees, and of those that name
/// equipment. Tags are not words, nor are the properties that ride in them; entities part words. The functions of a
/// server's store, vrk_words and vrk_equipment, do the same.
struct RecordWords {
    /// \a html in UTF-8.
    explicit RecordWords(const QByteArray& html);

    /// Each stem once, parted by blanks, in UTF-8; what stands behind the first thousands of words is left out.
    QByteArray words;
    QByteArray equipment;

    /// Makes vrk_words(html) and vrk_equipment(html) known to a connection.
    static void installFunctions(sqlite3* database);
};
