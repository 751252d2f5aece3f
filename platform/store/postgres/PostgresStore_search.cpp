#include "PostgresStore.h"
#include "SearchWords.h"

namespace
{
/// A lexeme in the notation of a query.
QByteArray lexeme(QByteArray text)
{
    return '\'' + text.replace('\\', "\\\\").replace('\'', "''") + '\'';
}

QByteArray lexeme(const char* kind, const SearchWords::Term& term)
{
    return lexeme(kind + term.stem.toUtf8()) + (term.isBeginning ? ":*" : "");
}

QByteArray matchOf(const RecordQuery& query)
{
    QByteArrayList parts;
    const auto append = [&parts](const char* kind, const SearchWords::Query& words) {
        for (const SearchWords::Term& term : words.terms)
            parts.append(lexeme(kind, term));
        for (const SearchWords::Term& term : words.excluded)
            parts.append('!' + lexeme(kind, term));
    };
    append("", SearchWords::query(query.words));
    append("e:", SearchWords::query(query.equipment));
    if (!query.departmentKey.isEmpty())
        parts.append(lexeme("d:" + query.departmentKey));
    if (!query.workerKey.isEmpty())
        parts.append(lexeme("a:" + query.workerKey));
    if (query.status >= 0)
        parts.append(lexeme("s:" + QByteArray::number(query.status)));
    return parts.join(" & ");
}
} // namespace

MDArray* PostgresStore::searchIndex(const RecordQuery& query, StoreError* error)
{
    QByteArrayList conditions{"true"};
    const QByteArray match = matchOf(query);
    if (!match.isEmpty())
        conditions.append("words @@ " + literal(match) + "::tsquery");
    if (query.from > 0)
        conditions.append("recordTime >= " + QByteArray::number(query.from, 'g', 15));
    if (query.to > 0)
        conditions.append("recordTime < " + QByteArray::number(query.to, 'g', 15));
    return select(
        "SELECT R.*, W.DepartmentKey, W.startTime, W.endTime FROM (SELECT recordKey, recordTime FROM "
        "RecordSearch WHERE " +
            conditions.join(" AND ") + " ORDER BY recordTime DESC, recordKey DESC LIMIT " +
            QByteArray::number(qMax(query.limit, 0)) +
            ") AS Found JOIN LogbookRecords AS R ON R.KeyLink = Found.recordKey LEFT JOIN "
            "LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey ORDER BY Found.recordTime DESC, "
            "Found.recordKey DESC",
        error);
}
