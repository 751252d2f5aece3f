#include "Seal.h"

#include "EpochHistory.h"
#include "HashTiles.h"
#include "StoreErrors.h"

namespace
{
bool refuse(StoreError* error, const char* text, qint64 number)
{
    return StoreErrors::raise(error, StoreError::Refused, text, QString::number(number));
}

/// Whether the log contains the heads, as far as they belong to its epochs.
bool contains(EvidenceLog& log, const HashTiles& tiles, const QVector<LogHead>& heads, StoreError* error)
{
    EpochHistory epochs;
    if (!epochs.load(log))
        return false;
    for (const LogHead& head : heads) {
        const qint64 reach = epochs.endOf(head.epoch);
        if (reach < 0)
            return refuse(error, "Печать %1 принадлежит другому хранилищу: этим ключом его не опечатывали.",
                          head.size);
        if (head.size > reach && head.epoch == epochs.current())
            return refuse(error, "Журнал изменений обрезан: в нём нет того, что опечатано до %1.", head.size);
        if (head.size <= qMin(reach, tiles.size()) && tiles.root(head.size) != head.root)
            return refuse(error, "Журнал изменений не тот, что был опечатан до %1.", head.size);
    }
    return true;
}
} // namespace

bool Seal::make(EvidenceLog& log, const std::vector<std::unique_ptr<SealKey>>& keys,
                const QVector<QByteArray>& seen, QByteArray* note, StoreError* error)
{
    QVector<VerifierKey> own;
    for (const auto& key : keys)
        own.append(key->verifier());
    QMap<qint64, QByteArray> stored;
    LogHead head;
    if (!log.heads(&stored) || !log.end(&head.size, &head.epoch))
        return false;

    // Heads of other keys count for nothing here: anybody may have written them.
    QVector<LogHead> known;
    const auto remember = [&](const QByteArray& text) {
        const SignedNote signedNote(text);
        const bool isOwn = signedNote.signer(own).isValid();
        if (isOwn)
            known.append(signedNote.head());
        return isOwn;
    };
    for (const QByteArray& text : seen)
        remember(text);
    qint64 sealed = 0;
    for (auto it = stored.cbegin(); it != stored.cend() && it.key() <= head.size; ++it)
        if (remember(it.value())) {
            sealed = it.key();
            *note = it.value();
        }

    HashTiles tiles(log, sealed);
    if (!contains(log, tiles, known, error))
        return false;
    if (sealed == head.size)
        return true;
    const auto take = [&tiles](const LoggedTransaction& transaction) {
        return transaction.number == tiles.size() + 1 && tiles.append(LogLeaf::ofTransaction(transaction));
    };
    if (!log.read(sealed + 1, head.size, take))
        return false;
    if (tiles.size() != head.size)
        return refuse(error, "Журнал изменений или его дерево повреждены у транзакции %1.", tiles.size() + 1);
    if (!tiles.flush() || !contains(log, tiles, known, error))
        return false;
    head.root = tiles.root();
    if (tiles.isBroken())
        return refuse(error, "Журнал изменений или его дерево повреждены до транзакции %1.", tiles.size());
    head.time = QDateTime::currentDateTimeUtc();
    *note = head.note(keys);
    if (note->isEmpty())
        return StoreErrors::raise(error, StoreError::Internal, "Печать не удалось подписать.");
    return log.writeHead(head.size, *note) && log.commit();
}
