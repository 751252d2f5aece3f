#pragma once

#include "EpochHistory.h"
#include "HashTiles.h"
#include "LogHead.h"

#include <QDir>
#include <QFile>

/// Writes the change log of a store with its proofs into a folder (docs/evidence-format.md), for somebody
/// who has neither the store nor our program.
class EvidenceExport
{
public:
    struct Choice {
        double from = 0; ///< of the transactions' times, inclusive; 0: from the beginning
        double to = 0;   ///< 0: to the end
        QSet<QByteArray>
            rows; ///< only the rows with these keys and the signatures under them; empty: all rows
        /// Notes that the verifier has: a part of the log proves that it continues them. A whole export
        /// proves all heads without it.
        QVector<QByteArray> heads;

        bool isWhole() const { return from == 0 && to == 0 && rows.isEmpty(); }
    };
    /// \a keys is the named file of the store with the public keys.
    EvidenceExport(EvidenceLog& log, const QByteArray& keys, const Choice& choice);

    /// Fills an empty folder. False with an \a error, which may also be the log's own.
    bool write(const QDir& folder, StoreError* error);
    /// The number of transactions written, and the head that they are proven by.
    qint64 count() const { return m_count; }
    const LogHead& head() const { return m_head; }
    /// Whether every transaction written is proven by this head.
    bool isProven() const { return m_isProven; }

private:
    bool findHead(StoreError* error);
    bool findStamps();
    /// For a person without our program, with how to prove the time.
    QByteArray readMe() const;
    bool writeLog(StoreError* error);
    bool writeTransaction(const LoggedTransaction& transaction, const HashTiles& tiles);
    /// Whether a row is shown.
    bool isShown(const LoggedTransaction& transaction, const LoggedRow& row) const;
    QByteArray proof(const HashTiles& tiles, const EpochHistory& epochs) const;
    bool writeFile(const QString& name, const QByteArray& content, StoreError* error);

    EvidenceLog& m_log;
    QByteArray m_keys;
    Choice m_choice;
    QDir m_folder;
    QFile m_lines;
    QMap<qint64, QByteArray> m_heads;
    QMap<qint64, QByteArray> m_stamps; ///< of these heads
    LogHead m_head;
    QVector<qint64> m_whole; ///< the leaves with a line, below the head
    qint64 m_count = 0;
    bool m_isProven = true;
};
