#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The write-ahead log of a store's file: the transactions that SQLite has committed and not yet copied to
/// the file. After a crash the log is needed; SQLite replays any log at this place, even one that belongs
/// to another file of the same name.
///
/// Therefore every transaction leaves a mark in the table LogMark, one page: 32 bytes of its own and the 32
/// bytes of the mark before it. A log belongs to a file if the file's mark is one of those in the log, or
/// the one before its first.
class SqliteWal
{
public:
    static constexpr int markLength = 32;

    explicit SqliteWal(const QString& file) : m_file(file) {}

    /// The name of a file's log.
    static QString of(const QString& file) { return file + QLatin1String("-wal"); }
    static QString indexOf(const QString& file) { return file + QLatin1String("-shm"); }
    /// Whether the log has any content.
    bool isFilled() const;
    /// True if the log certainly belongs to another file. Changes neither.
    bool isForeign() const;

private:
    /// The mark in the file itself, without the log; empty if there is none.
    QByteArray ownMark() const;
    /// The mark before the log's first and all marks of the log's committed transactions.
    QVector<QByteArray> marks() const;
    bool seemsForeign() const;

    QString m_file;
};
