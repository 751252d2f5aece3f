#include "PostgresObjects.h"

#include "ContentCheck.h"
#include "PostgresSchema.h"
#include "SchemaScript.h"

namespace
{
using StoreAdmin::Finding;

const char aside[] = "vrk_fresh"; // the fresh schema for the comparison

using ContentCheck::Objects;

bool addObjects(PgConnection& link, const QByteArray& schema, Objects* objects, StoreError* error)
{
    const PgResult rows =
        link.run(SchemaScript::file("postgresql-objects.sql"), PgValues().text(schema), error);
    if (!rows)
        return false;
    for (int i = 0; i < rows.rows(); ++i)
        objects->insert(rows.bytes(i, 0).replace(schema, "public"),
                        rows.bytes(i, 1).replace(schema, "public"));
    return true;
}
} // namespace

bool PostgresObjects::compare(PgConnection& link, QVector<Finding>* findings, StoreError* error)
{
    const PgResult readOnly = link.run("SELECT current_setting('transaction_read_only') = 'on'", error);
    if (!readOnly)
        return false;
    if (readOnly.integer(0, 0) != 0) {
        ContentCheck::add(findings, Finding::Note,
                          "Этот сервер только читает: правила журнала сверит проверка на основном сервере.");
        return true;
    }
    Objects wanted;
    Objects present;
    StoreError ignored;
    const bool isDone = link.exec("BEGIN", error) && PostgresSchema::installAside(link, aside, error) &&
                        link.exec("SET LOCAL search_path = pg_catalog", error) &&
                        addObjects(link, aside, &wanted, error) &&
                        addObjects(link, "public", &present, error);
    if (link.isOpen() && !link.exec("ROLLBACK", &ignored))
        return false;
    if (isDone)
        ContentCheck::compare(wanted, present, findings);
    return isDone;
}
