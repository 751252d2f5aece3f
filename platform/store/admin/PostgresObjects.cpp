#include "PostgresObjects.h"

#include "ContentCheck.h"
#include "PostgresSchema.h"

namespace
{
using StoreAdmin::Finding;

const char aside[] = "vrk_fresh"; // the fresh schema for the comparison

// Grants as text, without who granted them.
QByteArray grantsOf(const QByteArray& list, const QByteArray& kind, const QByteArray& owner)
{
    return "(SELECT string_agg(concat_ws(' ', CASE WHEN A.grantee = 0 THEN 'PUBLIC' ELSE "
           "pg_get_userbyid(A.grantee)::text END, A.privilege_type, CASE WHEN A.is_grantable THEN '*' END), "
           "', ' ORDER BY A.grantee, A.privilege_type) FROM aclexplode(coalesce(" +
           list + ", acldefault('" + kind + "', " + owner + "))) AS A)";
}

// Each select returns names and definitions of objects in the schema $1. The session's search path contains
// only the server's own schema, so all definitions are qualified.
QVector<QByteArray> selects()
{
    const QByteArray relation =
        "CASE C.relkind WHEN 'r' THEN 'table ' WHEN 'v' THEN 'view ' WHEN 'S' THEN 'sequence ' WHEN 'm' THEN "
        "'materialized view ' WHEN 'p' THEN 'table ' WHEN 'f' THEN 'foreign table ' ELSE 'type ' END || "
        "C.relname";
    const QByteArray relations = " FROM pg_class AS C WHERE C.relnamespace = $1::regnamespace "
                                 "AND C.relkind NOT IN ('i', 'I', 't')";
    const QByteArray function = "P.proname || '(' || pg_get_function_identity_arguments(P.oid) || ')'";
    const QByteArray functions = " FROM pg_proc AS P WHERE P.pronamespace = $1::regnamespace";
    return {
        "SELECT " + relation +
            ", concat_ws(' ', C.relkind, C.relpersistence, C.relrowsecurity, C.relforcerowsecurity, "
            "C.relreplident, C.reloptions, (SELECT concat_ws(' ', seqtypid::regtype, seqstart, seqincrement, "
            "seqmax, seqmin, seqcache, seqcycle) FROM pg_sequence WHERE seqrelid = C.oid), "
            "(SELECT string_agg(inhparent::regclass::text, ' ') FROM pg_inherits WHERE inhrelid = C.oid), "
            "CASE WHEN C.relkind IN ('v', 'm') THEN pg_get_viewdef(C.oid) END)" +
            relations,
        "SELECT 'column ' || C.relname || '.' || A.attname, concat_ws(' ', (SELECT count(*) FROM "
        "pg_attribute AS "
        "B WHERE B.attrelid = A.attrelid AND B.attnum > 0 AND B.attnum < A.attnum AND NOT B.attisdropped), "
        "format_type(A.atttypid, A.atttypmod), nullif(A.attcollation, 0)::regcollation, A.attnotnull, "
        "A.attidentity, A.attgenerated, A.attoptions, pg_get_expr(D.adbin, D.adrelid)) "
        "FROM pg_attribute AS A JOIN pg_class AS C ON C.oid = A.attrelid LEFT JOIN pg_attrdef AS D "
        "ON D.adrelid = A.attrelid AND D.adnum = A.attnum WHERE C.relnamespace = $1::regnamespace "
        "AND C.relkind NOT IN ('i', 'I', 't', 'S') AND A.attnum > 0 AND NOT A.attisdropped",
        "SELECT 'owner of ' || " + relation + ", pg_get_userbyid(C.relowner)" + relations,
        "SELECT 'grants on ' || " + relation + ", CASE C.relkind WHEN 'S' THEN " +
            grantsOf("C.relacl", "s", "C.relowner") + " ELSE " + grantsOf("C.relacl", "r", "C.relowner") +
            " END" + relations,
        "SELECT 'grants on column ' || C.relname || '.' || A.attname, A.attacl::text FROM pg_attribute AS A "
        "JOIN pg_class AS C ON C.oid = A.attrelid WHERE C.relnamespace = $1::regnamespace AND A.attacl IS "
        "NOT "
        "NULL AND NOT A.attisdropped",
        "SELECT 'index ' || C.relname, concat_ws(' ', pg_get_indexdef(C.oid), I.indisvalid, I.indisready, "
        "I.indislive, I.indisclustered, I.indisreplident, I.indimmediate, pg_get_userbyid(C.relowner)) "
        "FROM pg_index AS I JOIN pg_class AS C ON C.oid = I.indexrelid "
        "WHERE C.relnamespace = $1::regnamespace",
        "SELECT 'constraint ' || coalesce(C.relname || '.', '') || K.conname, concat_ws(' ', K.contype, "
        "CASE WHEN K.contype <> 't' THEN pg_get_constraintdef(K.oid) END, K.condeferrable, K.condeferred, "
        "K.convalidated) FROM pg_constraint AS K LEFT JOIN pg_class AS C ON C.oid = K.conrelid "
        "WHERE K.connamespace = $1::regnamespace",
        // Triggers that the server creates for references have numbers in their names.
        "SELECT 'trigger ' || CASE WHEN T.tgisinternal THEN K.conname || ' ' || T.tgfoid::regproc ELSE "
        "T.tgname "
        "END || ' on ' || C.relname, T.tgenabled::text || CASE WHEN T.tgisinternal THEN '' ELSE "
        "pg_get_triggerdef(T.oid) END FROM pg_trigger AS T JOIN pg_class AS C ON C.oid = T.tgrelid "
        "LEFT JOIN pg_constraint AS K ON K.oid = T.tgconstraint WHERE C.relnamespace = $1::regnamespace",
        "SELECT 'rule ' || R.rulename || ' on ' || C.relname, R.ev_enabled::text || pg_get_ruledef(R.oid) "
        "FROM pg_rewrite AS R JOIN pg_class AS C ON C.oid = R.ev_class "
        "WHERE C.relnamespace = $1::regnamespace AND (R.rulename <> '_RETURN' OR R.ev_enabled <> 'O')",
        "SELECT 'policy ' || P.polname || ' on ' || C.relname, '' FROM pg_policy AS P JOIN pg_class AS C "
        "ON C.oid = P.polrelid WHERE C.relnamespace = $1::regnamespace",
        "SELECT 'function ' || " + function +
            ", CASE WHEN P.prokind = 'a' THEN '' ELSE pg_get_functiondef(P.oid) END" + functions,
        "SELECT 'owner of function ' || " + function + ", pg_get_userbyid(P.proowner)" + functions,
        "SELECT 'grants on function ' || " + function + ", " + grantsOf("P.proacl", "f", "P.proowner") +
            functions,
        "SELECT 'type ' || typname, typtype::text || pg_get_userbyid(typowner) FROM pg_type "
        "WHERE typnamespace = $1::regnamespace AND typrelid = 0 AND typelem = 0",
        "SELECT 'dictionary ' || D.dictname, concat_ws(' ', N.nspname, T.tmplname, D.dictinitoption, "
        "pg_get_userbyid(D.dictowner)) FROM pg_ts_dict AS D JOIN pg_ts_template AS T ON T.oid = "
        "D.dicttemplate "
        "JOIN pg_namespace AS N ON N.oid = T.tmplnamespace WHERE D.dictnamespace = $1::regnamespace",
        "SELECT pg_describe_object(classid, objid, 0), '' FROM ("
        "SELECT 'pg_operator'::regclass AS classid, oid AS objid, oprnamespace AS place FROM pg_operator "
        "UNION ALL SELECT 'pg_opclass'::regclass, oid, opcnamespace FROM pg_opclass "
        "UNION ALL SELECT 'pg_opfamily'::regclass, oid, opfnamespace FROM pg_opfamily "
        "UNION ALL SELECT 'pg_collation'::regclass, oid, collnamespace FROM pg_collation "
        "UNION ALL SELECT 'pg_conversion'::regclass, oid, connamespace FROM pg_conversion "
        "UNION ALL SELECT 'pg_statistic_ext'::regclass, oid, stxnamespace FROM pg_statistic_ext "
        "UNION ALL SELECT 'pg_ts_config'::regclass, oid, cfgnamespace FROM pg_ts_config "
        "UNION ALL SELECT 'pg_ts_parser'::regclass, oid, prsnamespace FROM pg_ts_parser "
        "UNION ALL SELECT 'pg_ts_template'::regclass, oid, tmplnamespace FROM pg_ts_template) AS O "
        "WHERE place = $1::regnamespace",
    };
}

using ContentCheck::Objects;

bool addObjects(PgConnection& link, const QByteArray& schema, Objects* objects, StoreError* error)
{
    for (const QByteArray& select : selects()) {
        const PgResult rows = link.run("SELECT name::text, coalesce(definition::text, '') FROM (" + select +
                                           ") AS O (name, definition)",
                                       PgValues().text(schema), error);
        if (!rows)
            return false;
        for (int i = 0; i < rows.rows(); ++i)
            objects->insert(rows.bytes(i, 0).replace(schema, "public"),
                            rows.bytes(i, 1).replace(schema, "public"));
    }
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
