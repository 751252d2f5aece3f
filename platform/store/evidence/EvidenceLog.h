#pragma once

#include "LogLeaf.h"
#include "StoreError.h"

#include <functional>
#include <memory>
#include <QMap>
#include <QString>
#include <QVector>

/// The change log of a store as the evidence reads it, and the place of the evidence in the store: tiles of
/// the tree and signed heads. One consistent reading from the opening on; writing ends with commit().
/// The functions set the error that the opening received and return false.
class EvidenceLog
{
public:
    enum Access { Read, Write };
    virtual ~EvidenceLog() = default;

    /// The number of the last transaction, and the epoch of the store.
    virtual bool end(qint64* number, QByteArray* epoch) = 0;
    using Take = std::function<bool(const LoggedTransaction&)>;
    /// Passes the transactions \a from to \a to to \a take in order, until it returns false.
    virtual bool read(qint64 from, qint64 to, const Take& take) = 0;
    /// The transactions that changed the row with this key in any table, or in \a table; ascending.
    virtual bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) = 0;

    /// A stored tile of the tree (HashTiles); empty if there is none.
    virtual bool tile(int level, qint64 place, QByteArray* hashes) = 0;
    virtual bool writeTile(int level, qint64 place, const QByteArray& hashes) = 0;
    /// The signed heads by their sizes.
    virtual bool heads(QMap<qint64, QByteArray>* notes) = 0;
    virtual bool writeHead(qint64 size, const QByteArray& note) = 0;
    virtual bool commit() = 0;

protected:
    explicit EvidenceLog(StoreError* error) : m_error(error) {}

    StoreError* m_error;
};
