#include "EpochHistory.h"

#include "ChangeRow.h"

#include <algorithm>

bool EpochHistory::load(EvidenceLog& log)
{
    QVector<qint64> numbers;
    if (!log.end(&m_end, &m_current) || !log.numbersOf("epoch", "StoreProperties", &numbers))
        return false;
    const auto take = [this](const LoggedTransaction& transaction) {
        for (const LoggedRow& row : transaction.rows)
            if (row.table == "StoreProperties" && row.key == "epoch")
                m_changes.append({transaction.number, ChangeRow(row.oldRow).text(1),
                                  ChangeRow(row.newRow).text(1), transaction.login, transaction.time});
        return true;
    };
    for (const qint64 number : qAsConst(numbers))
        if (!log.read(number, number, take))
            return false;
    return true;
}

QByteArrayList EpochHistory::missingFrom(const EpochHistory& other) const
{
    QByteArrayList epochs;
    for (const Change& change : m_changes)
        epochs.append(change.former);
    epochs.append(m_current);
    epochs.erase(
        std::remove_if(epochs.begin(), epochs.end(),
                       [&](const QByteArray& epoch) { return epoch.isEmpty() || other.endOf(epoch) >= 0; }),
        epochs.end());
    return epochs;
}

qint64 EpochHistory::endOf(const QByteArray& epoch) const
{
    if (epoch == m_current)
        return m_end;
    const auto ended = std::find_if(m_changes.crbegin(), m_changes.crend(), [&](const Change& change) {
        return !epoch.isEmpty() && change.former == epoch;
    });
    if (ended == m_changes.crend())
        return -1;
    const auto before = std::next(ended);
    return before != m_changes.crend() && before->number == ended->number ? 0 : ended->number - 1;
}
