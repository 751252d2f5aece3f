#pragma once

#include "StoreAdmin.h"

/// What a check asks of the tables, the same of both engines.
namespace ContentCheck
{
/// One select: each of its rows is a finding, its first two columns put into the text.
struct Look {
    QByteArray sql;
    StoreAdmin::Finding::Grade grade;
    const char* text;
};
/// References by key between tables, states of records, trees, workshifts that were never finished opening.
QVector<Look> looks();

/// Of the search: how many records, and the key of one.
constexpr char searchOutOfStep[] =
    "Поиск по архиву не видит записи такими, какие они есть: %1, например «%2». "
    "Исправит vrk-admin check --rebuild-search.";

/// Of objects, against those of a fresh schema.
constexpr char missing[] = "В схеме хранилища недостаёт «%1».";
constexpr char changed[] = "В схеме хранилища изменено «%1».";
constexpr char strange[] = "В схеме хранилища есть лишнее «%1».";

/// Appends one finding; "%1" and "%2" of the text are replaced.
void add(QVector<StoreAdmin::Finding>* findings, StoreAdmin::Finding::Grade grade, const char* text,
         const QByteArray& first = QByteArray(), const QByteArray& second = QByteArray());
} // namespace ContentCheck
