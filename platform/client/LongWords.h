#pragma once

class QTextDocument;

/// Qt needs a time that grows with the square of a word's length to lay out a word that fills many lines:
/// seconds for 100,000 letters, at every key. Only lines that may break at any letter are fast.
namespace LongWords
{
/// From now on lines of the document break at any letter while it contains a very long word, and at words
/// otherwise. Calling it again changes nothing.
void watch(QTextDocument* document);
} // namespace LongWords
