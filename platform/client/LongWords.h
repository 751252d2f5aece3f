#pragma once

class QTextDocument;

/// The toolkit lays out a word that fills many lines in a time that grows with the square of its length: seconds for
/// 100,000 letters, at every key. Only lines that may end at any letter are cheap.
namespace LongWords
{
/// From now on lines of the document end at any letter while it holds a very long word, and at words otherwise.
/// Calling it again changes nothing.
void watch(QTextDocument* document);
} // namespace LongWords
