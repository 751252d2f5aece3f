#include "PostgresSchema.h"

#include "GenGuid32.h"
#include "SchemaScript.h"
#include "StoreErrors.h"
#include "TableCatalog.h"

#include <QRegularExpression>

namespace
{
const char ownerScript[] = "GRANT USAGE, CREATE ON SCHEMA public TO vrk_owner;\n"
                           "SET ROLE vrk_owner;\n";

const char functionHead[] =
    "() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER\n"
    "    SET search_path = pg_catalog, public, pg_temp SET extra_float_digits = 1 AS $$\n";

QByteArray logSql(const CatalogTable& table)
{
    QByteArray checks = "    IF TG_OP = 'UPDATE' AND " + table.rowKeyOf("NEW") + " <> " +
                        table.rowKeyOf("OLD") +
                        " THEN\n        PERFORM vrk_refuse('Ключ строки не изменяется.');\n    END IF;\n";
    if (table.fieldIndex("KeyLink") >= 0)
        checks +=
            "    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\\x01-\\x1f''\"\\\\]') THEN\n"
            "        PERFORM vrk_refuse('Недопустимый ключ строки.');\n    END IF;\n";
    if (table.isCategoryTree()) {
        checks += "    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN\n"
                  "        PERFORM vrk_hold_trees();\n"
                  "        PERFORM vrk_refuse('Категория не может лежать внутри самой себя.')\n"
                  "        WHERE NEW.KeyLink IN (\n"
                  "            WITH RECURSIVE up (k) AS (\n"
                  "                SELECT NEW.ParentKey UNION\n"
                  "                SELECT T.ParentKey FROM up JOIN " +
                  table.name +
                  " AS T ON T.KeyLink = up.k)\n"
                  "            SELECT k FROM up);\n    END IF;\n";
    }
    QByteArray faults;
    for (const QByteArray& field : table.reals())
        faults += (faults.isEmpty() ? "" : " OR ") + QByteArray("NEW.") + field +
                  " IN ('NaN', 'Infinity', '-Infinity') AND NEW." + field + " IS DISTINCT FROM OLD." + field;
    if (!faults.isEmpty())
        checks += "    IF " + faults +
                  " THEN\n        PERFORM vrk_refuse('Недопустимое время или число.');\n    END IF;\n";
    const QByteArray name = "Log_" + table.name;
    return "CREATE FUNCTION " + name + functionHead + "BEGIN\n" + checks + "    PERFORM vrk_log('" +
           table.name + "', CASE TG_OP WHEN 'DELETE' THEN " + table.rowKeyOf("OLD") + " ELSE " +
           table.rowKeyOf("NEW") +
           " END,\n"
           "        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,\n"
           "        CASE WHEN TG_OP <> 'INSERT' THEN " +
           PostgresSchema::rowOf(table, "OLD") + " END,\n        CASE WHEN TG_OP <> 'DELETE' THEN " +
           PostgresSchema::rowOf(table, "NEW") +
           " END);\n    RETURN NULL;\nEND $$;\n"
           "CREATE TRIGGER Z_Log AFTER INSERT OR UPDATE OR DELETE ON " +
           table.name + " FOR EACH ROW EXECUTE FUNCTION " + name +
           "();\n"
           "CREATE TRIGGER KeepRows BEFORE TRUNCATE ON " +
           table.name + " FOR EACH STATEMENT EXECUTE FUNCTION vrk_keep_rows();\n";
}

SchemaScript::Dialect dialect()
{
    return {"postgresql",
            QByteArray("CREATE FUNCTION %name") + functionHead +
                "BEGIN\n    IF NOT vrk_is_loader()%condition THEN\n",
            "    END IF;\n    RETURN %row;\nEND $$;\nCREATE TRIGGER %name BEFORE %operation ON %table\n"
            "    FOR EACH ROW EXECUTE FUNCTION %name();",
            "PERFORM vrk_refuse(%text)",
            "(%values::json ->> %place)::integer",
            logSql};
}

QByteArray grantsSql()
{
    QByteArray tables;
    for (const CatalogTable& table : TableCatalog::tables())
        tables += (tables.isEmpty() ? "" : ", ") + table.name;
    return "GRANT SELECT, INSERT, UPDATE, DELETE ON " + tables +
           " TO vrk_client;\n"
           "GRANT SELECT ON StoreProperties, StoreFiles, ChangeHead, ChangeEnd, ChangeTransactions, "
           "ChangeLog, RecordSearch, LongestShift TO "
           "vrk_client;\n"
           // A trigger runs without rights of the user who fires it. A user with the right to call these
           // functions could create a table, where the server lets him, and attach the log's functions to
           // it.
           "REVOKE EXECUTE ON ALL FUNCTIONS IN SCHEMA public FROM PUBLIC;\n"
           "GRANT EXECUTE ON FUNCTION vrk_write_file TO vrk_client;\n";
}
} // namespace

QByteArray PostgresSchema::identifier(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

QByteArray PostgresSchema::literal(const QByteArray& text)
{
    return "'" + QByteArray(text).replace("'", "''") + "'";
}

QByteArray PostgresSchema::rowOf(const CatalogTable& table, const QByteArray& alias)
{
    QByteArray values;
    for (const CatalogField& field : table.fields) {
        const QByteArray name = alias + '.' + field.name;
        values += values.isEmpty() ? "" : ", ";
        if (field.type == mdr_TBlob)
            values += "coalesce('{\"sha256\":\"' || encode(sha256(" + name +
                      "), 'hex') || '\",\"length\":' || length(" + name + ") || '}', 'null')";
        else
            values += "coalesce(to_json(" + name + ")::text, 'null')";
    }
    return "'[' || concat_ws(',', " + values + ") || ']'";
}

namespace
{
QByteArray versionSql()
{
    return "INSERT INTO StoreProperties (name, value) VALUES ('schema', '" +
           QByteArray::number(SchemaScript::version) +
           "') ON CONFLICT (name) DO UPDATE SET value = excluded.value;\n";
}

QByteArray fillSearchSql()
{
    return SchemaScript::file("postgresql-fill-search.sql");
}

/// Makes the tables of version \a from those of this one, and creates everything else.
QByteArray objectsSql(int from)
{
    const SchemaScript::Dialect own = dialect();
    return SchemaScript::steps(own.engine, from) + SchemaScript::definitions(own) + grantsSql();
}

} // namespace

bool PostgresSchema::makeRoles(PgConnection& link, StoreError* error)
{
    return link.exec(SchemaScript::file("postgresql-roles.sql"), error);
}

namespace
{
/// From here to the end of the transaction, writes belong to the administrator and no rule applies.
QByteArray loaderSql()
{
    return "SELECT set_config('vrk.batch_key', '" + GenGuid32() +
           "', true), set_config('vrk.loader', 'on', true);\n";
}

/// Logs the content that the store's own tables had before they were logged.
QByteArray logOwnRowsSql()
{
    QByteArray all;
    for (const CatalogTable& table : TableCatalog::loggedTables())
        if (!TableCatalog::table(table.name))
            all += "SELECT vrk_log('" + table.name + "', " + table.rowKeyOf("T") + ", 601, NULL, " +
                   PostgresSchema::rowOf(table, "T") + ") FROM " + table.name + " AS T;\n";
    return all;
}
} // namespace

bool PostgresSchema::beginLogged(PgConnection& link, StoreError* error)
{
    return link.exec("BEGIN; " + loaderSql(), error);
}

bool PostgresSchema::install(PgConnection& link, StoreError* error)
{
    return link.exec(SchemaScript::file("postgresql-roles.sql") + ownerScript + objectsSql(0) + versionSql() +
                         "RESET ROLE;\n",
                     error);
}

bool PostgresSchema::installAside(PgConnection& link, const QByteArray& schema, StoreError* error)
{
    // The scripts write the schema's name in lower case, and PUBLIC in capitals.
    const QString objects =
        QString::fromUtf8(objectsSql(0))
            .replace(QRegularExpression(QStringLiteral("\\bpublic\\b")), QString::fromLatin1(schema));
    return link.exec("CREATE SCHEMA " + schema + " AUTHORIZATION vrk_owner; SET LOCAL search_path = " +
                         schema + "; SET LOCAL ROLE vrk_owner;\n" + objects.toUtf8() + "RESET ROLE;\n",
                     error);
}

bool PostgresSchema::upgrade(PgConnection& link, int from, StoreError* error)
{
    return link.exec("SET ROLE vrk_owner;\n" + SchemaScript::file("postgresql-drop-rules.sql") +
                         objectsSql(from) + (from < 4 ? logOwnRowsSql() : QByteArray()) + versionSql() +
                         (from < 2 ? fillSearchSql() : QByteArray()) + "RESET ROLE;\n",
                     error);
}

bool PostgresSchema::rebuildSearch(PgConnection& link, StoreError* error)
{
    return link.exec(
        QByteArray("SET ROLE vrk_owner;\nLOCK TABLE LogbookRecords IN SHARE ROW EXCLUSIVE MODE;\n") +
            fillSearchSql() + "RESET ROLE;\n",
        error);
}

int PostgresSchema::versionOf(PgConnection& link, StoreError* error)
{
    const PgResult version = link.run("SELECT value FROM StoreProperties WHERE name = 'schema'", error);
    if (version)
        return version.rows() > 0 ? version.bytes(0, 0).toInt() : 0;
    if (link.failureState() == "42P01") {
        error->code = StoreError::NotAStore;
        error->text = QString::fromUtf8("База данных «%1» не является хранилищем журнала.").arg(link.place());
    }
    return -1;
}

bool PostgresSchema::isOurs(PgConnection& link, StoreError* error)
{
    const int version = versionOf(link, error);
    if (version < 0)
        return false;
    *error = StoreErrors::version(version, link.place());
    return !*error;
}

bool PostgresSchema::columns(PgConnection& link,
                             QHash<QPair<Oid, int>, QPair<QByteArray, QByteArray>>* columns,
                             StoreError* error)
{
    const PgResult rows = link.run("SELECT C.oid::bigint, A.attnum, C.relname::text, A.attname::text"
                                   " FROM pg_class AS C JOIN pg_attribute AS A ON A.attrelid = C.oid"
                                   " WHERE C.relnamespace = 'public'::regnamespace AND C.relkind = 'r'"
                                   " AND A.attnum > 0 AND NOT A.attisdropped",
                                   error);
    if (!rows)
        return false;
    columns->clear();
    for (int i = 0; i < rows.rows(); ++i)
        columns->insert({static_cast<Oid>(rows.integer(i, 0)), static_cast<int>(rows.integer(i, 1))},
                        {rows.bytes(i, 2), rows.bytes(i, 3)});
    return true;
}
