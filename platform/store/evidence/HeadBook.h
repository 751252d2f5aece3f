#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// Signed heads that were seen, in a text file outside the store: one note after another, only ever
/// appended.
class HeadBook
{
public:
    explicit HeadBook(const QString& file) : m_file(file) {}

    /// All notes in their order; none if there is no file.
    QVector<QByteArray> notes() const;
    /// Adds a note and syncs it to the disk, unless it is the last one already. False if it cannot be written.
    bool append(const QByteArray& note);

    /// The notes of a text.
    static QVector<QByteArray> parse(const QByteArray& text);
    /// Those of a file or of all files of a folder; false if it cannot be read.
    static bool read(const QString& path, QVector<QByteArray>* notes);

private:
    QString m_file;
};
