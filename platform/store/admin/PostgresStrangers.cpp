#include "PostgresStrangers.h"

#include "ContentCheck.h"
#include "PgConnection.h"
#include "PostgresAccess.h"

namespace
{
using StoreAdmin::Finding;
using Looks = QVector<ContentCheck::Look>;

const char isGranted[] = "У роли «%2» есть лишние права на «%1».";
const char thisDatabase[] = "(SELECT oid FROM pg_database WHERE datname = current_database())";
// The owner of the database may drop it: no rule limits him.
const char databaseOwner[] = "(SELECT datdba FROM pg_database WHERE datname = current_database())";
const char ourRoles[] = "('vrk_owner', 'vrk_client', 'vrk_loader')";

/// A condition on a role R.
QByteArray isPerson()
{
    return QByteArray("(NOT R.rolsuper AND R.oid <> ") + databaseOwner +
           " AND pg_has_role(R.oid, 'vrk_client', 'MEMBER') AND R.rolname NOT IN " + ourRoles + ")";
}

QByteArray granteeName()
{
    return "CASE WHEN A.grantee = 0 THEN 'PUBLIC' ELSE pg_get_userbyid(A.grantee)::text END";
}

/// Objects that exist neither on a fresh server nor in a fresh store; the server's own objects have lower
/// numbers.
Looks objects()
{
    const auto list = [](const char* catalog, const char* condition) {
        return QByteArray("SELECT '") + catalog + "'::regclass AS classid, oid AS objid FROM " + catalog +
               " WHERE " + condition;
    };
    const char later[] = "oid >= 16384";
    const QByteArray all =
        list("pg_extension", "extname <> 'plpgsql'") + " UNION ALL " + list("pg_event_trigger", "true") +
        " UNION ALL " + list("pg_foreign_server", "true") + " UNION ALL " + list("pg_cast", later) +
        " UNION ALL " + list("pg_language", later) + " UNION ALL " + list("pg_default_acl", "true") +
        " UNION ALL " +
        list("pg_namespace", "oid >= 16384 AND nspname <> 'public' AND nspname NOT LIKE 'pg\\_%'") +
        " UNION ALL " +
        list("pg_proc", "oid >= 16384 AND pronamespace IN ('pg_catalog'::regnamespace, "
                        "'information_schema'::regnamespace)") +
        " UNION ALL " + list("pg_operator", "oid >= 16384 AND oprnamespace = 'pg_catalog'::regnamespace") +
        " UNION ALL " +
        list("pg_class", "oid >= 16384 AND relnamespace IN ('pg_catalog'::regnamespace, "
                         "'information_schema'::regnamespace)");
    return {{"SELECT pg_describe_object(classid, objid, 0) FROM (" + all +
                 ") AS O UNION ALL SELECT 'subscription ' || subname FROM pg_subscription WHERE subdbid = " +
                 thisDatabase,
             Finding::Fault, ContentCheck::strange}};
}

/// Grants on the server's functions or tables that are neither its defaults nor made by a store. "%p" is
/// the prefix of the columns.
ContentCheck::Look serverGrants(const QByteArray& catalog, const QByteArray& prefix, const QByteArray& kind,
                                const QByteArray& type)
{
    QByteArray sql =
        "SELECT DISTINCT O.oid::" + type + "::text, " + granteeName() + " FROM " + catalog +
        " AS O LEFT JOIN pg_init_privs AS I ON I.objoid = O.oid AND I.classoid = '" + catalog +
        "'::regclass AND I.objsubid = 0, aclexplode(O.%pacl) AS A WHERE A.grantee <> O.%powner "
        "AND (O.%pnamespace = 'pg_catalog'::regnamespace OR O.%pnamespace = "
        "'information_schema'::regnamespace "
        "AND A.privilege_type <> 'SELECT') AND NOT EXISTS (SELECT 1 FROM aclexplode(coalesce(I.initprivs, "
        "acldefault('" +
        kind +
        "', O.%powner))) AS W WHERE W.grantee = A.grantee AND W.privilege_type = A.privilege_type) "
        "AND (A.grantee <> 'vrk_owner'::regrole OR O.oid <> 'pg_notify(text,text)'::regprocedure)";
    return {sql.replace("%p", prefix), Finding::Fault, isGranted};
}

Looks grants()
{
    return {
        {"SELECT oid::regprocedure::text FROM pg_proc WHERE pronamespace = 'pg_catalog'::regnamespace AND " +
             PostgresAccess::isClosed("proname") + " AND has_function_privilege('public', oid, 'EXECUTE')",
         Finding::Fault, "Функция сервера «%1», которой можно помешать другим, открыта всем."},
        {"SELECT lanname::text FROM pg_language WHERE lanpltrusted AND lanname <> 'sql' "
         "AND has_language_privilege('public', oid, 'USAGE')",
         Finding::Fault, "Язык сервера «%1», на котором можно помешать другим, открыт всем."},
        serverGrants("pg_proc", "pro", "f", "regprocedure"),
        serverGrants("pg_class", "rel", "r", "regclass"),
        {"SELECT 'language ' || L.lanname, " + granteeName() +
             " FROM pg_language AS L, aclexplode(L.lanacl) AS A "
             "WHERE A.grantee NOT IN (0, L.lanowner, 'vrk_owner'::regrole)",
         Finding::Fault, isGranted},
        {"SELECT 'schema ' || N.nspname, " + granteeName() +
             " FROM pg_namespace AS N, aclexplode(N.nspacl) AS A WHERE N.nspname IN ('public', 'pg_catalog', "
             "'information_schema') AND A.privilege_type <> 'USAGE' AND A.grantee <> N.nspowner "
             "AND (N.nspname <> 'public' OR A.grantee <> 'vrk_owner'::regrole)",
         Finding::Fault, isGranted},
        // Whether everybody may connect and create tables depends on how the database was created: `doctor`
        // reports it.
        {"SELECT 'database ' || D.datname, " + granteeName() +
             " FROM pg_database AS D, aclexplode(D.datacl) AS A WHERE D.datname = current_database() "
             "AND A.grantee <> D.datdba AND (A.privilege_type = 'CREATE' OR A.is_grantable OR A.grantee <> 0 "
             "AND (A.grantee <> 'vrk_client'::regrole OR A.privilege_type <> 'CONNECT'))",
         Finding::Fault, isGranted}};
}

Looks roles()
{
    const QByteArray isUser = "EXISTS (SELECT 1 FROM Users WHERE Users.login = R.rolname::text COLLATE \"C\" "
                              "AND coalesce(deleted_, 0) = 0)";
    return {
        {QByteArray("SELECT rolname::text FROM pg_roles WHERE rolcanlogin AND rolname IN ") + ourRoles,
         Finding::Fault, "Роль «%1» не должна входить на сервер."},
        {QByteArray(
             "SELECT R.rolname::text, A.name FROM pg_roles AS R, LATERAL (VALUES ('SUPERUSER', R.rolsuper), "
             "('CREATEROLE', R.rolcreaterole), ('CREATEDB', R.rolcreatedb), ('REPLICATION', "
             "R.rolreplication), ('BYPASSRLS', R.rolbypassrls)) AS A (name, has) WHERE A.has AND "
             "(R.rolname IN ") +
             ourRoles + " OR " + isPerson() + " OR R.rolsuper AND A.name = 'SUPERUSER' AND R.oid <> " +
             databaseOwner + " AND " + isUser + ")",
         Finding::Fault, "Роль «%1» имеет свойство %2, которого у неё быть не должно."},
        {QByteArray("SELECT R.rolname::text, G.rolname::text FROM pg_auth_members AS M JOIN pg_roles AS R ON "
                    "R.oid = "
                    "M.member JOIN pg_roles AS G ON G.oid = M.roleid WHERE R.oid <> ") +
             databaseOwner +
             " AND NOT R.rolsuper AND (G.rolname IN ('vrk_owner', 'vrk_loader') OR R.rolname IN "
             "('vrk_owner', "
             "'vrk_client') OR R.rolname = 'vrk_loader' AND G.rolname <> 'vrk_client' OR " +
             isPerson() + " AND G.rolname <> 'vrk_client' OR G.rolname = 'vrk_client' AND M.admin_option)",
         Finding::Fault, "Роль «%1» не должна состоять в роли «%2»."},
        {"SELECT R.rolname::text FROM pg_roles AS R WHERE " + isPerson() +
             " AND R.rolcanlogin AND NOT EXISTS (SELECT 1 FROM Users WHERE Users.login = R.rolname::text "
             "COLLATE \"C\")",
         Finding::Note, "Роль «%1» читает журнал, а среди его пользователей её нет."},
        {QByteArray("SELECT coalesce(R.rolname::text, 'database ' || current_database()), setting "
                    "FROM pg_db_role_setting AS S LEFT JOIN pg_roles AS R ON R.oid = S.setrole, "
                    "unnest(S.setconfig) AS setting WHERE S.setdatabase IN (0, ") +
             thisDatabase + ") AND (S.setrole = 0 OR R.rolname IN " + ourRoles + " OR " + isPerson() + ")",
         Finding::Fault, "Для «%1» на сервере записана лишняя настройка: %2."}};
}
} // namespace

bool PostgresStrangers::find(PgConnection& link, QVector<Finding>* findings, StoreError* error)
{
    for (const ContentCheck::Look& look : objects() + grants() + roles()) {
        const PgResult rows = link.run(look.sql, error);
        if (!rows)
            return false;
        for (int i = 0; i < rows.rows(); ++i)
            ContentCheck::add(findings, look.grade, look.text, rows.bytes(i, 0),
                              rows.columns() > 1 ? rows.bytes(i, 1) : QByteArray());
    }
    return true;
}
