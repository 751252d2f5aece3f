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

QByteArray inColumn(const char* column, const QVector<SearchWords::Term>& terms, const char* operation)
{
    QByteArrayList phrases;
    for (const SearchWords::Term& term : terms)
        phrases.append(phrase(term));
    return phrases.isEmpty() ? QByteArray() : column + (" : (" + phrases.join(operation) + ')');
}

QByteArray joined(QByteArrayList parts, const char* operation)
{
    parts.removeAll(QByteArray());
    return parts.join(operation);
}

QByteArray matchOf(const RecordQuery& query)
{
    const SearchWords::Query words = SearchWords::query(query.words);
    const SearchWords::Query equipment = SearchWords::query(query.equipment);
    QByteArrayList marks;
    if (!query.departmentKey.isEmpty())
        marks.append("\"d" + query.departmentKey.toHex() + '"');
    if (!query.workerKey.isEmpty())
        marks.append("\"a" + query.workerKey.toHex() + '"');
    if (query.status >= 0)
        marks.append("\"s" + QByteArray::number(query.status) + '"');
    if (words.terms.isEmpty() && equipment.terms.isEmpty() && marks.isEmpty())
        marks.append("record"); // an exclusion needs something from which it excludes
    const QByteArray found =
        joined({inColumn("words", words.terms, " AND "), inColumn("equipment", equipment.terms, " AND "),
                marks.isEmpty() ? QByteArray() : "marks : (" + marks.join(" AND ") + ')'},
               " AND ");
    const QByteArray excluded =
        joined({inColumn("words", words.excluded, " OR "), inColumn("equipment", equipment.excluded, " OR ")},
               " OR ");
    return excluded.isEmpty() ? found : '(' + found + ") NOT (" + excluded + ')';
}

/// The first row number of a second.
QByteArray numberAt(double second)
{
    constexpr double last = (Q_INT64_C(1) << 42) - 1;
    return QByteArray::number(static_cast<qint64>(qBound(0.0, std::ceil(second), last)) << 16);
}
} // namespace

MDArray* SqliteStore::searchIndex(const RecordQuery& query, StoreError* error)
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
