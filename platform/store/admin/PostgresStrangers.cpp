#include "PostgresStrangers.h"

#include "ContentCheck.h"
#include "PgConnection.h"
#include "PostgresAccess.h"
#include "SchemaScript.h"

bool PostgresStrangers::find(PgConnection& link, QVector<StoreAdmin::Finding>* findings, StoreError* error)
{
    const QByteArray sql = SchemaScript::file("postgresql-strangers.sql")
                               .replace("%closed", PostgresAccess::isClosed("proname"));
    const PgResult rows = link.run(sql, PgValues().text(ContentCheck::strange), error);
    if (!rows)
        return false;
    for (int i = 0; i < rows.rows(); ++i) {
        const bool isNote = rows.bytes(i, 0) == "note";
        ContentCheck::add(findings, isNote ? StoreAdmin::Finding::Note : StoreAdmin::Finding::Fault,
                          rows.bytes(i, 1).constData(), rows.bytes(i, 2), rows.bytes(i, 3));
    }
    return true;
}
