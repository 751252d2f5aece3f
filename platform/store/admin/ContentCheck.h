#pragma once

#include "StoreAdmin.h"

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

/// For objects, compared with those of a fresh schema.
constexpr char missing[] = "В схеме хранилища недостаёт «%1».";
constexpr char changed[] = "В схеме хранилища изменено «%1».";
constexpr char strange[] = "В схеме хранилища есть лишнее «%1».";

/// Appends one finding; replaces "%1" and "%2" in the text.
void add(QVector<StoreAdmin::Finding>* findings, StoreAdmin::Finding::Grade grade, const char* text,
         const QByteArray& first = QByteArray(), const QByteArray& second = QByteArray());
} // namespace ContentCheck
