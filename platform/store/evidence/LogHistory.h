#pragma once

#include "RowChange.h"

#include <QHash>
#include <QSet>

class EvidenceLog;
struct LoggedRow;
struct LoggedTransaction;

/// Who changed which row when, and how: the only reader of the change log for people. It reads the log by the keys
/// of rows, never as a whole; only removed rows are searched for, among the transactions after a known one. On
/// failure the functions return false, and the error of the log's opening is set.
class LogHistory
{
public:
    explicit LogHistory(EvidenceLog* log) : m_log(log) {}

    /// Appends the changes of the row with this key in any table, in order, with their signatures.
    bool ofRow(const QByteArray& key, QVector<RowChange>* changes);
    /// The same of a record with its comments and files, also removed ones.
    bool ofRecord(const QByteArray& key, QVector<RowChange>* changes);
    /// The same of a workshift with its crew and its records, and the comments and files of these; without signatures.
    bool ofWorkshift(const QByteArray& key, QVector<RowChange>* changes);

    /// Appends the removals of the workshifts of a department that \c vrk-admin \c archive took out of the journal.
    bool archivedShifts(const QByteArray& department, QVector<RowChange>* changes);
    /// A new key of the batch that takes a workshift out of the journal.
    static QByteArray archivingBatch(const QByteArray& shift);

    /// The last transaction that was written until \a time; 0 if the log begins later.
    bool numberAt(double time, qint64* number);
    /// The rows of these tables as they were after the transaction \a number: of each its last change until then.
    bool tablesAt(const QByteArrayList& tables, qint64 number, QVector<RowChange>* rows);

    /// One change of a transaction with its values.
    static RowChange change(const LoggedTransaction& transaction, const LoggedRow& row);

private:
    /// Keys of rows by their tables.
    using Rows = QHash<QByteArray, QSet<QByteArray>>;

    /// Appends the removed rows of these tables, except those that went with other archived shifts than the row \a key.
    bool removedWith(const QByteArray& key, const QByteArrayList& tables, qint64 since,
                     QVector<LoggedRow>* rows);
    /// Appends the changes of these rows until the transaction \a to, ordered by number.
    bool read(const Rows& rows, qint64 to, QVector<RowChange>* changes);
    /// Adds the rows of a table whose \a field refers to one of \a owners, those of \a removed included.
    bool addParts(const char* table, const char* field, const QSet<QByteArray>& owners,
                  const QVector<LoggedRow>& removed, Rows* rows);
    /// Adds comments and files.
    bool addRemarks(const QSet<QByteArray>& records, const QVector<LoggedRow>& removed, Rows* rows);
    /// The transaction that inserted a row; 0 if the log does not have it.
    bool firstOf(const QByteArray& table, const QByteArray& key, qint64* number);
    bool end(qint64* number);
    /// Looks for the signatures of the changes from \a begin on.
    bool sign(int begin, QVector<RowChange>* changes);

    EvidenceLog* m_log;
};
