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
    "    SET search_path = pg_catalog, public, pg_temp SET extra_float_digits = 1 AS $$";

QByteArray logSql(const CatalogTable& table)
{
    return SchemaScript::ofTable("postgresql-table.sql", table, {}, PostgresSchema::rowOf)
        .replace("%head", functionHead);
}

SchemaScript::Dialect dialect()
{
    return {"postgresql",
            QByteArray("CREATE FUNCTION %name") + functionHead +
                "\nBEGIN\n    IF NOT vrk_is_loader()%condition THEN\n",
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
    return SchemaScript::file("postgresql-grants.sql").replace("%tables", tables);
}
} // namespace

QByteArray PostgresSchema::identifier(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
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

/// The log shows from which transaction on there are signatures.
QByteArray signaturesSql(int from)
{
    return from < 6 ? "INSERT INTO StoreProperties (name, value) VALUES ('signatures', '1');\n" : "";
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
                         signaturesSql(0) + "RESET ROLE;\n",
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
    return link.exec(SchemaScript::file("postgresql-roles.sql") + "SET ROLE vrk_owner;\n" +
                         SchemaScript::file("postgresql-drop-rules.sql") + objectsSql(from) +
                         (from < 4 ? logOwnRowsSql() : QByteArray()) + versionSql() + signaturesSql(from) +
                         (from < 2 ? SchemaScript::file("postgresql-fill-search.sql") : QByteArray()) +
                         "RESET ROLE;\n",
                     error);
}

bool PostgresSchema::rebuildSearch(PgConnection& link, StoreError* error)
{
    return link.exec(
        QByteArray("SET ROLE vrk_owner;\nLOCK TABLE LogbookRecords IN SHARE ROW EXCLUSIVE MODE;\n") +
            SchemaScript::file("postgresql-fill-search.sql") + "RESET ROLE;\n",
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
