#include "CVrkCliSes_p.h"

#include "GenGuid32.h"
#include "WrittenRows.h"

#include <QDebug>

namespace
{
/// A broken link shows at once; a server that has stopped answering costs the whole deadline, so there is
/// no second wait.
constexpr int quickMs = 1000;

QByteArray tablesOf(const std::vector<StoreWrite>& writes)
{
    QByteArrayList names;
    for (const StoreWrite& write : writes) {
        if (!names.contains(write.table))
            names.append(write.table);
    }
    return names.join(", ");
}
} // namespace

bool CVrkCliSes::Private::settle(StoreError* error)
{
    if (unsettledKey.isEmpty())
        return true;
    bool written = false;
    if (!store->isWritten(unsettledKey, &written, error))
        return false;
    unsettledKey.clear();
    emit q->writeSettled(written);
    return true;
}

bool CVrkCliSes::Private::apply(const char* function, const std::vector<StoreWrite>& writes)
{
    if (writes.empty())
        return true;
    StoreError error = noLink();
    bool written = false;
    if (connected) {
        Request request(this);
        error.clear();
        const QByteArray batchKey = GenGuid32();
        QElapsedTimer taken;
        taken.start();
        written = settle(&error) && store->apply(writes, batchKey, &error);
        // The answer to a commit may have been lost with the link: the batch key makes it safe to send the
        // batch again.
        if (!written && error.code == StoreError::Lost && taken.elapsed() < quickMs) {
            error.clear();
            written = settle(&error) && store->apply(writes, batchKey, &error);
        }
        if (error.code == StoreError::Unsettled)
            unsettledKey = batchKey;
    }
    WrittenRows rows;
    hasFailedWrites = hasFailedWrites || !written;
    for (const StoreWrite& write : writes)
        if (hasFailedWrites) // otherwise nobody tracks an unsaved text
            rows.add(write.table, write.records);
    if (!written) {
        const QByteArray tables = tablesOf(writes);
        fail(function, error, QString::fromUtf8(tables), true, tables);
        emit q->writeEnded(false, rows);
        return false;
    }
    lastError.clear();
    emit q->writeEnded(true, rows);
    if (started)
        feed->wake();
    return true;
}

bool CVrkCliSes::SqlUpdate(const char* table, MDArray* array, bool, HFNCliParam**)
{
    if (!table || !array) {
        const StoreError invalid{StoreError::BadRequest, tr("Запрос на запись составлен неверно."),
                                 QString()};
        return d->fail(Q_FUNC_INFO, invalid, QString::fromUtf8(table), true, table);
    }
    if (d->blockStarts.empty())
        return d->apply(Q_FUNC_INFO, {{table, array}});

    auto records = std::make_unique<CMDArray>();
    MDACreate(&records->array, 0);
    const int copied = MDACopy(records->array, array, 1);
    if (copied != mdr_Ok) {
        const StoreError invalid{StoreError::TooLarge, tr("Для записи не хватает памяти."),
                                 QString::number(copied)};
        return d->fail(Q_FUNC_INFO, invalid, QString::fromUtf8(table), true, table);
    }
    d->block.push_back({table, std::move(records)});
    return true;
}

void CVrkCliSes::BlockBeg()
{
    d->blockStarts.push_back(d->block.size());
}

bool CVrkCliSes::BlockEnd(bool commit, HFNCliParam**)
{
    if (d->blockStarts.empty()) {
        qWarning().noquote() << Q_FUNC_INFO << "no block is open";
        return false;
    }
    const std::size_t start = d->blockStarts.back();
    d->blockStarts.pop_back();
    if (!commit)
        d->block.resize(start);
    if (!d->blockStarts.empty() || !commit)
        return true;

    const std::vector<Private::Write> block = std::move(d->block);
    d->block.clear();
    std::vector<StoreWrite> writes;
    writes.reserve(block.size());
    for (const Private::Write& write : block)
        writes.push_back({write.table, write.records->array});
    return d->apply(Q_FUNC_INFO, writes);
}
