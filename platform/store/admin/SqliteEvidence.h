#pragma once

#include "EvidenceLog.h"

class SqliteConnection;

/// EvidenceLog for a SQLite file. Tiles and heads are kept back until commit(), so that writers of the
/// journal do not wait while the tree is computed.
class SqliteEvidence : public EvidenceLog
{
public:
    static std::unique_ptr<EvidenceLog> open(const QString& file, Access access, StoreError* error);
    ~SqliteEvidence() override;

    bool end(qint64* number, QByteArray* epoch) override;
    bool read(qint64 from, qint64 to, const Take& take) override;
    bool numbersOf(const QByteArray& key, const QByteArray& table, QVector<qint64>* numbers) override;
    bool tile(int level, qint64 place, QByteArray* hashes) override;
    bool writeTile(int level, qint64 place, const QByteArray& hashes) override;
    bool heads(QMap<qint64, QByteArray>* notes) override;
    bool writeHead(qint64 size, const QByteArray& note) override;
    bool commit() override;

private:
    SqliteEvidence(std::unique_ptr<SqliteConnection> read, StoreError* error);

    std::unique_ptr<SqliteConnection> m_read;
    QMap<QPair<int, qint64>, QByteArray> m_tiles; ///< written since open()
    QMap<qint64, QByteArray> m_heads;
};
