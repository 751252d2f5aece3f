#pragma once

#include "EvidenceLog.h"
#include "Store.h"

class PgConnection;

/// EvidenceLog for a store on a PostgreSQL server: one transaction that sees one state of the store.
class PostgresEvidence : public EvidenceLog
{
public:
    /// Over another connection with the address and credentials of this one.
    static std::unique_ptr<EvidenceLog> open(const PgConnection& like, Store::Access access, int deadlineMs,
                                             StoreError* error);
    ~PostgresEvidence() override;

    bool end(qint64* number, QByteArray* epoch) override;
    bool read(qint64 from, qint64 to, const Take& take) override;
    bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) override;
    bool rowsOf(const QByteArrayList& keys, qint64 to, const Take& take) override;
    bool removed(const QByteArrayList& tables, qint64 since, qint64 to, QVector<LoggedRow>* rows) override;
    bool batches(const QByteArray& beginning, QMap<qint64, QByteArray>* keys) override;
    bool keysOf(const QByteArray& table, const QByteArray& field, const QByteArrayList& values,
                QSet<QByteArray>* keys) override;
    bool timeOf(qint64 number, double* time) override;
    bool chainOf(qint64 number, QByteArray* chain) override;
    bool tile(int level, qint64 place, QByteArray* hashes) override;
    bool writeTile(int level, qint64 place, const QByteArray& hashes) override;
    bool headsFrom(qint64 size, QMap<qint64, QByteArray>* notes) override;
    bool newestHead(QByteArray* note) override;
    bool writeHead(qint64 size, const QByteArray& note) override;
    bool stamps(QMap<qint64, QByteArray>* responses) override;
    bool writeStamp(qint64 size, const QByteArray& response) override;
    bool commit() override;

private:
    PostgresEvidence(std::unique_ptr<PgConnection> link, StoreError* error);

    std::unique_ptr<PgConnection> m_link;
};
