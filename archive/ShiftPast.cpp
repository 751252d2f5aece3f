#include "ShiftPast.h"

ShiftPast::ShiftPast(const QVector<RowChange>& changes) : m_changes(changes) {}

int ShiftPast::endOf(int place) const
{
    while (place >= 0 && place + 1 < m_changes.size() &&
           m_changes.at(place + 1).number == m_changes.at(place).number)
        ++place;
    return place;
}

int ShiftPast::placeAt(double time) const
{
    int place = -1;
    for (int i = 0; i < m_changes.size() && m_changes.at(i).time <= time; ++i)
        place = i;
    return endOf(place);
}

int ShiftPast::next(int place) const
{
    return place + 1 < m_changes.size() ? endOf(place + 1) : place;
}

int ShiftPast::previous(int place) const
{
    if (place < 0)
        return place;
    const qint64 number = m_changes.at(place).number;
    int before = place;
    while (before >= 0 && m_changes.at(before).number == number)
        --before;
    return before >= 0 ? before : place;
}

QMap<QByteArray, const RowChange*> ShiftPast::rows(const QByteArray& table, int place) const
{
    QMap<QByteArray, const RowChange*> present;
    for (int i = 0; i <= place && i < m_changes.size(); ++i) {
        const RowChange& change = m_changes.at(i);
        if (change.table != table)
            continue;
        if (change.event == RowChange::Removed)
            present.remove(change.key);
        else
            present.insert(change.key, &change);
    }
    return present;
}
