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

qint64 EpochHistory::endOf(const QByteArray& epoch) const
{
    if (epoch == m_current)
        return m_end;
    const auto ended = std::find_if(m_changes.crbegin(), m_changes.crend(), [&](const Change& change) {
        return !epoch.isEmpty() && change.former == epoch;
    });
    return ended == m_changes.crend() ? -1 : ended->number - 1;
}
