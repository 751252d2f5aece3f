#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The write-ahead log beside a store's file: what SQLite has committed and not yet put into the file. After a crash the
/// log is needed; SQLite takes in whichever log lies there, also one that belongs to another file of the same name.
///
/// Therefore every transaction leaves a mark in the table LogMark, one page: 32 bytes of its own and the 32 of the mark
/// before it. A log belongs to a file when the file's mark is one of those in the log, or the one before its first.
class SqliteWal
{
public:
    static constexpr int markLength = 32;

    explicit SqliteWal(const QString& file) : m_file(file) {}

    /// Its name.
    static QString of(const QString& file) { return file + QLatin1String("-wal"); }
    static QString indexOf(const QString& file) { return file + QLatin1String("-shm"); }
    /// Whether anything stands in it.
    bool isFilled() const;
    /// True when the log belongs to another file for certain. Changes neither.
    bool isForeign() const;

private:
    /// The mark in the file itself, without the log; empty where there is none.
    QByteArray ownMark() const;
    /// The mark before the log's first and all marks of the log's committed transactions.
    QVector<QByteArray> marks() const;
    bool seemsForeign() const;

    QString m_file;
};
