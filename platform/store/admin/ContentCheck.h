#pragma once

#include "StoreAdmin.h"

#include <QMap>

/// The queries of a check, the same for both engines.
namespace ContentCheck
{
/// One select: each row of its answer is a finding; its first two columns are inserted into the text.
struct Look {
    QByteArray sql;
    StoreAdmin::Finding::Grade grade;
    const char* text;
};
/// References by key between tables, states of records, trees, workshifts whose opening was never
/// completed.
QVector<Look> looks();

/// For the search: the number of wrong records, and the key of one.
constexpr char searchOutOfStep[] =
    "Поиск по архиву не видит записи такими, какие они есть: %1, например «%2». "
    "Исправит vrk-admin check --rebuild-search.";

/// For the change log.
constexpr char missingTransactions[] = "В журнале изменений нет транзакций с %1 по %2.";
constexpr char changedTransaction[] = "Транзакция %1 журнала изменений изменена после записи.";
constexpr char strayEntries[] = "Строки журнала изменений не принадлежат ни одной транзакции (%1).";
constexpr char changedRow[] = "Строка «%2» таблицы «%1» изменена в обход журнала изменений.";
constexpr char lostRow[] = "Строка «%2» таблицы «%1» исчезла в обход журнала изменений.";

constexpr char unsoundCopy[] = "Копия не прошла проверку: %1";
constexpr char unsoundLog[] = "Указатель поиска не составляется: записи или журнал изменений переделаны. %1";

constexpr char strange[] = "В схеме хранилища есть лишнее «%1».";
/// The definitions of a schema by the names of its objects.
using Objects = QMap<QByteArray, QByteArray>;
/// Finds how a schema differs from a fresh one.
void compare(const Objects& fresh, const Objects& present, QVector<StoreAdmin::Finding>* findings);

/// Whether the findings contain no fault; otherwise sets the error, whose \a text contains the first one.
bool isSound(const QVector<StoreAdmin::Finding>& findings, StoreError* error, const char* text = unsoundCopy);

/// Appends one finding; replaces "%1" and "%2" in the text.
void add(QVector<StoreAdmin::Finding>* findings, StoreAdmin::Finding::Grade grade, const char* text,
         const QByteArray& first = QByteArray(), const QByteArray& second = QByteArray());
} // namespace ContentCheck
