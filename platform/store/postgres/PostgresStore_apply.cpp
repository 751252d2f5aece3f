#include "PostgresStore.h"
#include "RowStatements.h"

#include <algorithm>
#include <QRandomGenerator>
#include <QThread>

namespace
{
constexpr int mostAttempts = 20;
constexpr int longestNapMs = 200; // between two attempts

bool isWorthRepeating(const QByteArray& state)
{
    return state == "40001" || state == "40P01" || state == "23505";
}
} // namespace

bool PostgresStore::apply(const std::vector<StoreWrite>& writes, const QByteArray& batchKey,
                          StoreError* error)
{
    if (!RowStatements::isAnythingFlagged(writes))
        return true;
    if (!canWrite(error))
        return false;
    QElapsedTimer clock;
    clock.start();
    m_isUnsettled = false;
    for (int attempt = 1;; ++attempt) {
        error->clear();
        const int leftMs = std::max(0, m_options.deadlineMs - static_cast<int>(clock.elapsed()));
        if (!(attempt == 1 ? ready(error) : ready(error, leftMs, leftMs))) {
            if (!m_isUnsettled)
                return false;
            if (leftMs == 0) {
                *error = unsettledError(*error);
                return false;
            }
            if (m_progress)
                m_progress();
            QThread::msleep(longestNapMs);
            continue;
        }
        if (writeAll(writes, batchKey, attempt == 1 ? m_options.deadlineMs : leftMs, error)) {
            m_hasNews = true;
            return true;
        }
        const QByteArray state = m_link.failureState();
        const QByteArray constraint = m_link.failureConstraint();
        if (m_link.isOpen()) {
            StoreError ignored;
            m_link.exec("ROLLBACK", &ignored);
            // If another attempt of ours has written the batch in the meantime, the next attempt finds it.
            if (!isWorthRepeating(state) ||
                (state == "23505" && constraint != "changetransactions_batchkey_key"))
                return false;
        } else if (error->code != StoreError::Lost) {
            return false;
        }
        if (attempt == mostAttempts || clock.hasExpired(m_options.deadlineMs)) {
            if (m_isUnsettled)
                *error = unsettledError(*error);
            return false;
        }
        QThread::msleep(
            QRandomGenerator::global()->bounded(1u, unsigned(std::min(5 << attempt, longestNapMs))));
    }
}

bool PostgresStore::writeAll(const std::vector<StoreWrite>& writes, const QByteArray& batchKey, int limitMs,
                             StoreError* error)
{
    if (m_inRead)
        endRead();
    if (!m_link.prepared("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE", {}, error))
        return false;
    const PgResult known =
        m_link.prepared("SELECT set_config('vrk.batch_key', $1, true), set_config('vrk.loader', $2, true), "
                        "EXISTS (SELECT 1 FROM ChangeTransactions WHERE batchKey = $1)",
                        PgValues().text(batchKey).text(m_options.loader ? "on" : "off"), error);
    if (!known)
        return false;
    m_isUnsettled = false; // all server processes of former connections have ended
    if (known.integer(0, 2) == 0) {
        for (const StoreWrite& write : writes) {
            const auto run = [&](const RowStatement& row) {
                m_link.startDeadline(limitMs); // a server that answers is alive, however many rows there are
                return writeRow(row, error);
            };
            if (!RowStatements::forEach(write, *m_codePage, '$', run, error))
                return false;
        }
    }
    m_link.startDeadline(limitMs);
    // From here on, if the answer is lost, only the log shows whether the batch was written.
    m_isUnsettled = true;
    const bool isDone = bool(m_link.prepared("COMMIT", {}, error));
    m_isUnsettled = !isDone && !m_link.isOpen();
    return isDone;
}

bool PostgresStore::isWritten(const QByteArray& batchKey, bool* written, StoreError* error)
{
    if (!readyAside(error))
        return false;
    const PgResult known = m_link.prepared(batchSql, PgValues().text(batchKey), error);
    *written = known && known.rows() > 0;
    return bool(known);
}

StoreError PostgresStore::unsettledError(const StoreError& loss) const
{
    return {
        StoreError::Unsettled,
        QString::fromUtf8("сервер «%1» не подтвердил запись. Когда связь вернётся, журнал скажет, что с ней.")
            .arg(m_link.place()),
        loss.detail};
}

bool PostgresStore::writeRow(const RowStatement& row, StoreError* error)
{
    PgValues values;
    for (const RowStatement::Value& value : row.values) {
        switch (value.kind) {
        case RowStatement::Value::Null:
            values.null();
            break;
        case RowStatement::Value::Text:
            values.text(value.bytes);
            break;
        case RowStatement::Value::Blob:
            values.blob(value.bytes);
            break;
        case RowStatement::Value::Real:
            values.real(value.real);
            break;
        case RowStatement::Value::Number:
            values.number(value.number);
        }
    }
    const PgResult done = m_link.prepared(row.sql, values, error);
    if (!done)
        return false;
    if (row.isUpdate && done.touched() == 0) {
        *error = RowStatements::noSuchRow(row);
        return false;
    }
    return true;
}
