#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Reads the texts that contain the demo's data. They all have one notation; each text begins with a remark
/// that lists its words:
///
///     # a remark; empty lines are remarks, too
///     == TITLE              begins a block
///     word: value
///       more of it          two spaces continue the value after a line break
///     ~ LABEL: value        a value with a label
///
/// " | " separates several values of a line, "-" stands for a missing one.
namespace DemoText
{
struct Line {
    QString file;
    int number = 0; ///< from 1
    QString word;   ///< "==" for the title of a block, "~" for a value with a label
    QString label;
    QString value;

    /// The values of the line, missing ones empty; aborts the program if it has not this \a count of them.
    QStringList values(int count) const;
    /// The same for a line with any number of values.
    QStringList values() const;
    /// Aborts the program; the message names file, line and \a fault.
    [[noreturn]] void fail(const QString& fault) const;
    [[noreturn]] void failAtWord() const; ///< whose word the text does not know
};

/// A title and the lines below it.
struct Block {
    Line title;
    QVector<Line> lines;

    /// The first line with this word; null if there is none.
    const Line* line(const QString& word) const;
};

/// The content of a built-in file such as "network.txt".
QByteArray content(const QString& file);
/// The lines of a built-in text. A fault in it aborts the program.
QVector<Line> lines(const QString& file);
/// All lines of a file with titles only.
QVector<Block> blocks(const QString& file);
/// The values of the first line with this word.
QStringList list(const QString& file, const QString& word);

/// The lines of a text up to the first fault, which \a error describes together with its line.
QVector<Line> parse(const QString& text, QString* error);
} // namespace DemoText
