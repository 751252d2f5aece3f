#pragma once

#include <QString>

/// The texts in which the search looks for words, taken from a record's html. Tags and the properties in them are
/// not text; entities and elements that are no part of a line are blanks.
struct RecordText {
    explicit RecordText(const QString& html);

    QString visible;
    QString equipment; ///< of what names substations, lines, bays and equipment
};
