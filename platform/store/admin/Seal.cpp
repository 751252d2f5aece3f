#include "Seal.h"

#include "EpochHistory.h"
#include "HashTiles.h"
#include "LongWork.h"
#include "StoreErrors.h"

namespace
{
bool refuse(StoreError* error, const char* text, qint64 number)
{
    return StoreErrors::raise(error, StoreError::Refused, text, QString::number(number));
}

/// A head with its note.
struct Sealed {
    LogHead head;
    QByteArray note;
};

/// The last of the notes that the log must contain; it contains the earlier ones, too, if it contains this
/// one. Notes of other keys count for nothing: anybody may have written them. False with \a error if the log
/// cannot contain one.
bool lastOf(const QVector<QByteArray>& notes, const QVector<VerifierKey>& own, const EpochHistory& epochs,
            Sealed* last, StoreError* error)
{
    for (auto text = notes.crbegin(); text != notes.crend(); ++text) {
        const SignedNote note(*text);
        if (!note.signer(own).isValid())
            continue;
        const LogHead& head = note.head();
        const qint64 reach = epochs.endOf(head.epoch);
        if (reach < 0)
            return refuse(error, "Печать %1 принадлежит другому хранилищу: этим ключом его не опечатывали.",
                          head.size);
        if (head.size <= reach) {
            *last = {head, *text};
            return true;
        }
        if (head.epoch == epochs.current())
            return refuse(error, "Журнал изменений обрезан: в нём нет того, что опечатано до %1.", head.size);
    }
    return true;
}

bool agrees(const HashTiles& tiles, const LogHead& head, StoreError* error)
{
    return head.size == 0 || tiles.root(head.size) == head.root ||
           refuse(error, "Журнал изменений не тот, что был опечатан до %1.", head.size);
}
} // namespace

bool Seal::make(EvidenceLog& log, const std::vector<std::unique_ptr<SealKey>>& keys,
                const QVector<QByteArray>& seen, QByteArray* note, StoreError* error)
{
    QVector<VerifierKey> own;
    for (const auto& key : keys)
        own.append(key->verifier());
    QMap<qint64, QByteArray> heads;
    EpochHistory epochs;
    LogHead head;
    if (!log.heads(&heads) || !log.end(&head.size, &head.epoch) || !epochs.load(log))
        return false;
    QVector<QByteArray> stored;
    for (const QByteArray& text : qAsConst(heads))
        stored.append(text);

    Sealed inStore;
    Sealed outside;
    if (!lastOf(stored, own, epochs, &inStore, error) || !lastOf(seen, own, epochs, &outside, error))
        return false;
    const qint64 sealed = inStore.head.size;
    HashTiles tiles(log, sealed);
    if (!agrees(tiles, inStore.head, error) ||
        (outside.head.size <= sealed && !agrees(tiles, outside.head, error)))
        return false;
    *note = inStore.note;
    if (sealed == head.size)
        return true;
    const LongWork work("Опечатывание", head.size - sealed);
    const auto take = [&](const LoggedTransaction& transaction) {
        work.advance(transaction.number - sealed);
        return transaction.number == tiles.size() + 1 && tiles.append(LogLeaf::ofTransaction(transaction));
    };
    if (!log.read(sealed + 1, head.size, take))
        return false;
    if (tiles.size() != head.size)
        return refuse(error, "Журнал изменений или его дерево повреждены у транзакции %1.", tiles.size() + 1);
    if (!tiles.flush() || !agrees(tiles, outside.head, error))
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
