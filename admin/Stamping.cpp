#include "Stamping.h"

#include "EvidenceLog.h"
#include "StoreErrors.h"
#include "TimeStamp.h"

#include <QFile>

bool Stamping::obtain(const QMap<qint64, QByteArray>& heads, qint64* size, QByteArray* response,
                      StoreError* error) const
{
    *size = heads.lastKey();
    if (!isResponse()) {
        QByteArray query;
        return TimeStamp::request(heads.last(), &query, error) &&
               TimeStamp::ask(m_way, query, m_seconds, response, error);
    }
    QFile file(m_way);
    if (!file.open(QIODevice::ReadOnly))
        return StoreErrors::raise(error, StoreError::Missing, "Файл «%1» не найден.", m_way);
    *response = file.readAll();
    for (auto head = heads.cend(); head != heads.cbegin();) {
        --head;
        if (TimeStamp::isFor(*response, head.value())) {
            *size = head.key();
            return true;
        }
    }
    return StoreErrors::raise(error, StoreError::BadRequest,
                              "В файле «%1» нет метки времени для печатей этого хранилища.", m_way);
}

Command::ExitCode Stamping::writeRequest(const QMap<qint64, QByteArray>& heads, Streams& streams) const
{
    StoreError error;
    QByteArray query;
    if (!TimeStamp::request(heads.last(), &query, &error))
        return Command::fail(streams, error);
    QFile file(m_way);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(query) != query.size() ||
        !file.flush()) {
        streams.err << QStringLiteral("Файл «%1» нельзя записать, или он уже есть.\n").arg(m_way);
        return Command::Failed;
    }
    streams.out << QStringLiteral("Запрос метки времени для печати %1: %2\n").arg(heads.lastKey()).arg(m_way);
    return Command::Success;
}

Command::ExitCode Stamping::run(Store& store, Streams& streams) const
{
    StoreError error;
    QMap<qint64, QByteArray> heads;
    QMap<qint64, QByteArray> stamps;
    if (const auto log = store.evidence(Store::Access::Read, &error);
        !log || !log->heads(&heads) || !log->stamps(&stamps))
        return Command::fail(streams, error);
    if (heads.isEmpty()) {
        streams.err << QStringLiteral("Журнал изменений ещё не опечатан.\n");
        return Command::Failed;
    }
    if (isRequest())
        return writeRequest(heads, streams);
    if (!isResponse() && TimeStamp::isFor(stamps.value(heads.lastKey()), heads.last())) {
        streams.out << QStringLiteral("Метка времени печати %1 уже есть.\n").arg(heads.lastKey());
        return Command::Success;
    }
    // The store is not held while the authority is asked.
    qint64 size = 0;
    QByteArray response;
    if (!obtain(heads, &size, &response, &error) ||
        !TimeStamp::verify(heads.value(size), response, m_ca, &error))
        return Command::fail(streams, error);
    const auto log = store.evidence(Store::Access::Write, &error);
    if (!log || !log->writeStamp(size, response) || !log->commit())
        return Command::fail(streams, error);
    streams.out << QStringLiteral("Метка времени печати %1 проверена и сохранена.\n").arg(size);
    return Command::Success;
}
