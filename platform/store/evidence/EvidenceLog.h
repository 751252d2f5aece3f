#pragma once

#include "LogLeaf.h"
#include "StoreError.h"

#include <functional>
#include <memory>
#include <QByteArrayList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

/// The change log of a store as the evidence reads it, and the place of the evidence in the store: tiles of
/// the tree and signed heads. Store::evidence opens it. One consistent reading from the opening on; writing ends
/// with commit(). The functions set the error that the opening received and return false.
class EvidenceLog
{
public:
    virtual ~EvidenceLog() = default;

    /// The number of the last transaction, and the epoch of the store.
    virtual bool end(qint64* number, QByteArray* epoch) = 0;
    using Take = std::function<bool(const LoggedTransaction&)>;
    /// Passes the transactions \a from to \a to to \a take in order, until it returns false.
    virtual bool read(qint64 from, qint64 to, const Take& take) = 0;
    /// The transactions that changed the row with this key in any table, or in \a table; ascending.
    virtual bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) = 0;
    /// Passes the changes of the rows with these keys until the transaction \a to, in order of the transactions, which
    /// contain only these rows.
    virtual bool rowsOf(const QByteArrayList& keys, qint64 to, const Take& take) = 0;
    /// Appends the rows of these tables that the transactions after \a since and until \a to removed, as they were.
    virtual bool removed(const QByteArrayList& tables, qint64 since, qint64 to, QVector<LoggedRow>* rows) = 0;
    /// The transactions whose batch keys begin so, with these keys.
    virtual bool batches(const QByteArray& beginning, QMap<qint64, QByteArray>* keys) = 0;
    /// Adds the keys of the present rows of a table whose \a field is one of \a values; of all rows without a field.
    virtual bool keysOf(const QByteArray& table, const QByteArray& field, const QByteArrayList& values,
                        QSet<QByteArray>* keys) = 0;
    /// When a transaction was written; 0 if there is none with this number.
    virtual bool timeOf(qint64 number, double* time) = 0;
    /// The chain hash after a transaction; empty if there is none with this number.
    virtual bool chainOf(qint64 number, QByteArray* chain) = 0;

    /// A stored tile of the tree (HashTiles); empty if there is none.
    virtual bool tile(int level, qint64 place, QByteArray* hashes) = 0;
    virtual bool writeTile(int level, qint64 place, const QByteArray& hashes) = 0;
    /// The signed heads by their sizes, from a size on.
    virtual bool headsFrom(qint64 size, QMap<qint64, QByteArray>* notes) = 0;
    bool heads(QMap<qint64, QByteArray>* notes) { return headsFrom(0, notes); }
    /// The head of the largest size; empty if there is none.
    virtual bool newestHead(QByteArray* note) = 0;
    virtual bool writeHead(qint64 size, const QByteArray& note) = 0;
    /// The responses of a time stamp authority for the heads, by the heads' sizes.
    virtual bool stamps(QMap<qint64, QByteArray>* responses) = 0;
    virtual bool writeStamp(qint64 size, const QByteArray& response) = 0;
    virtual bool commit() = 0;

protected:
    explicit EvidenceLog(StoreError* error) : m_error(error) {}

    StoreError* m_error;
};
