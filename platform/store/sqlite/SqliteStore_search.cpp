#include "SearchWords.h"
#include "SqliteStore.h"

#include <cmath>

namespace
{
/// Stems are letters and digits, so they need no other quoting.
QByteArray phrase(const SearchWords::Term& term)
{
    return '"' + term.stem.toUtf8() + '"' + (term.isBeginning ? "*" : "");
}

QByteArray inColumn(const char* column, const QByteArrayList& phrases)
{
    return phrases.isEmpty() ? QByteArray() : column + (" : (" + phrases.join(" AND ") + ')');
}

QByteArray matchOf(const RecordQuery& query)
{
    QByteArrayList words;
    for (const SearchWords::Term& term : SearchWords::terms(query.words))
        words.append(phrase(term));
    QByteArrayList equipment;
    for (const SearchWords::Term& term : SearchWords::terms(query.equipment))
        equipment.append(phrase(term));
    QByteArrayList marks;
    if (!query.departmentKey.isEmpty())
        marks.append("\"d" + query.departmentKey.toHex() + '"');
    if (!query.workerKey.isEmpty())
        marks.append("\"a" + query.workerKey.toHex() + '"');
    if (query.status >= 0)
        marks.append("\"s" + QByteArray::number(query.status) + '"');
    if (words.isEmpty() && equipment.isEmpty() && marks.isEmpty())
        marks.append("record");
    QByteArrayList parts{inColumn("words", words), inColumn("equipment", equipment),
                         inColumn("marks", marks)};
    parts.removeAll(QByteArray());
    return parts.join(" AND ");
}

/// The first row number of a second.
QByteArray numberAt(double second)
{
    constexpr double last = (Q_INT64_C(1) << 42) - 1;
    return QByteArray::number(static_cast<qint64>(qBound(0.0, std::ceil(second), last)) << 16);
}
} // namespace

MDArray* SqliteStore::search(const RecordQuery& query, StoreError* error)
{
    // The engine opens its index with its own statements, which the authorizer for foreign selects would
    // refuse.
    if (!ready(error))
        return nullptr;
    m_read->cached("SELECT rowid FROM RecordWords LIMIT 0").run();
    // The index returns its rows in the order of their numbers, so it stops at the limit.
    QByteArray bounds;
    if (query.from > 0)
        bounds += " AND rowid >= " + numberAt(query.from);
    if (query.to > 0)
        bounds += " AND rowid < " + numberAt(query.to);
    return select(
        "SELECT R.*, W.DepartmentKey, W.startTime, W.endTime FROM (SELECT rowid AS number FROM RecordWords "
        "WHERE RecordWords MATCH '" +
            matchOf(query) + "'" + bounds + " ORDER BY rowid DESC LIMIT " +
            QByteArray::number(qMax(query.limit, 0)) +
            ") AS Found JOIN RecordSearch AS S ON S.number = Found.number JOIN LogbookRecords AS R ON "
            "R.KeyLink = S.recordKey LEFT JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey "
            "ORDER BY Found.number DESC",
        error);
}
