#pragma once

#include "EvidenceLog.h"

class PgConnection;

/// EvidenceLog for a store on a PostgreSQL server: one transaction that sees one state of the store.
class PostgresEvidence : public EvidenceLog
{
public:
    static std::unique_ptr<EvidenceLog> open(const QString& url, Access access, StoreError* error);
    ~PostgresEvidence() override;

    bool end(qint64* number, QByteArray* epoch) override;
    bool read(qint64 from, qint64 to, const Take& take) override;
    bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) override;
    bool tile(int level, qint64 place, QByteArray* hashes) override;
    bool writeTile(int level, qint64 place, const QByteArray& hashes) override;
    bool heads(QMap<qint64, QByteArray>* notes) override;
    bool writeHead(qint64 size, const QByteArray& note) override;
    bool commit() override;

private:
    PostgresEvidence(std::unique_ptr<PgConnection> link, StoreError* error);

    std::unique_ptr<PgConnection> m_link;
};
