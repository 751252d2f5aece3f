-- What exists on a server and does not belong to a store: a grade, a text with %1 and %2, and the words for them.
-- $1: the text for an object. %closed: the condition on a closed function.
WITH store AS (
    -- The owner of the database may drop it: no rule limits him.
    SELECT oid, datdba AS owner FROM pg_database WHERE datname = current_database()
),
ours (name) AS (VALUES ('vrk_owner'), ('vrk_client'), ('vrk_loader'), ('vrk_seal')),
person AS (
    SELECT R.oid
    FROM pg_roles AS R, store
    WHERE NOT R.rolsuper AND R.oid <> store.owner AND pg_has_role(R.oid, 'vrk_client', 'MEMBER')
        AND R.rolname NOT IN (SELECT name FROM ours)
),
sealer AS (
    SELECT R.oid
    FROM pg_roles AS R, store
    WHERE NOT R.rolsuper AND R.oid <> store.owner AND pg_has_role(R.oid, 'vrk_seal', 'MEMBER')
        AND R.rolname NOT IN (SELECT name FROM ours)
),
-- Objects that exist neither on a fresh server nor in a fresh store; the server's own objects have lower numbers.
strange (classid, objid) AS (
    SELECT 'pg_extension'::regclass, oid FROM pg_extension WHERE extname <> 'plpgsql'
    UNION ALL SELECT 'pg_event_trigger'::regclass, oid FROM pg_event_trigger
    UNION ALL SELECT 'pg_foreign_server'::regclass, oid FROM pg_foreign_server
    UNION ALL SELECT 'pg_cast'::regclass, oid FROM pg_cast WHERE oid >= 16384
    UNION ALL SELECT 'pg_language'::regclass, oid FROM pg_language WHERE oid >= 16384
    UNION ALL SELECT 'pg_default_acl'::regclass, oid FROM pg_default_acl
    UNION ALL SELECT 'pg_namespace'::regclass, oid FROM pg_namespace
        WHERE oid >= 16384 AND nspname <> 'public' AND nspname NOT LIKE 'pg\_%'
    UNION ALL SELECT 'pg_proc'::regclass, oid FROM pg_proc
        WHERE oid >= 16384 AND pronamespace IN ('pg_catalog'::regnamespace, 'information_schema'::regnamespace)
    UNION ALL SELECT 'pg_operator'::regclass, oid FROM pg_operator
        WHERE oid >= 16384 AND oprnamespace = 'pg_catalog'::regnamespace
    UNION ALL SELECT 'pg_class'::regclass, oid FROM pg_class
        WHERE oid >= 16384 AND relnamespace IN ('pg_catalog'::regnamespace, 'information_schema'::regnamespace)
),
server_object AS (
    SELECT 'pg_proc'::regclass AS catalog, oid, proacl AS acl, proowner AS owner, pronamespace AS place,
        'f'::"char" AS kind FROM pg_proc
    UNION ALL SELECT 'pg_class'::regclass, oid, relacl, relowner, relnamespace, 'r' FROM pg_class
),
granted (name, grantee) AS (
    -- Grants on the server's functions or tables that are neither its defaults nor made by a store.
    SELECT DISTINCT CASE O.kind WHEN 'f' THEN O.oid::regprocedure::text ELSE O.oid::regclass::text END, A.grantee
    FROM server_object AS O
    LEFT JOIN pg_init_privs AS I ON I.objoid = O.oid AND I.classoid = O.catalog AND I.objsubid = 0,
    aclexplode(O.acl) AS A
    WHERE A.grantee <> O.owner
        AND (O.place = 'pg_catalog'::regnamespace
            OR O.place = 'information_schema'::regnamespace AND A.privilege_type <> 'SELECT')
        AND NOT EXISTS (SELECT 1 FROM aclexplode(coalesce(I.initprivs, acldefault(O.kind, O.owner))) AS W
            WHERE W.grantee = A.grantee AND W.privilege_type = A.privilege_type)
        AND (A.grantee <> 'vrk_owner'::regrole OR O.oid <> 'pg_notify(text,text)'::regprocedure)

    UNION ALL
    SELECT 'language ' || L.lanname, A.grantee
    FROM pg_language AS L, aclexplode(L.lanacl) AS A
    WHERE A.grantee NOT IN (0, L.lanowner, 'vrk_owner'::regrole)

    UNION ALL
    SELECT 'schema ' || N.nspname, A.grantee
    FROM pg_namespace AS N, aclexplode(N.nspacl) AS A
    WHERE N.nspname IN ('public', 'pg_catalog', 'information_schema') AND A.privilege_type <> 'USAGE'
        AND A.grantee <> N.nspowner AND (N.nspname <> 'public' OR A.grantee <> 'vrk_owner'::regrole)

    -- Whether everybody may connect and create tables depends on how the database was created: `doctor` reports it.
    UNION ALL
    SELECT 'database ' || D.datname, A.grantee
    FROM pg_database AS D, aclexplode(D.datacl) AS A
    WHERE D.datname = current_database() AND A.grantee <> D.datdba
        AND (A.privilege_type = 'CREATE' OR A.is_grantable OR A.grantee <> 0
            AND (A.grantee NOT IN ('vrk_client'::regrole, 'vrk_seal'::regrole) OR A.privilege_type <> 'CONNECT'))
)
SELECT 'fault', $1::text, pg_describe_object(classid, objid, 0), '' FROM strange
UNION ALL
SELECT 'fault', $1::text, 'subscription ' || subname, '' FROM pg_subscription, store WHERE subdbid = store.oid

UNION ALL
SELECT 'fault', 'Функция сервера «%1», которой можно помешать другим, открыта всем.', oid::regprocedure::text, ''
FROM pg_proc
WHERE pronamespace = 'pg_catalog'::regnamespace AND %closed AND has_function_privilege('public', oid, 'EXECUTE')

UNION ALL
SELECT 'fault', 'Язык сервера «%1», на котором можно помешать другим, открыт всем.', lanname::text, ''
FROM pg_language
WHERE lanpltrusted AND lanname <> 'sql' AND has_language_privilege('public', oid, 'USAGE')

UNION ALL
SELECT 'fault', 'У роли «%2» есть лишние права на «%1».', name,
    CASE WHEN grantee = 0 THEN 'PUBLIC' ELSE pg_get_userbyid(grantee)::text END
FROM granted

UNION ALL
SELECT 'fault', 'Роль «%1» не должна входить на сервер.', rolname::text, ''
FROM pg_roles
WHERE rolcanlogin AND rolname IN (SELECT name FROM ours)

UNION ALL
SELECT 'fault', 'Роль «%1» имеет свойство %2, которого у неё быть не должно.', R.rolname::text, A.name
FROM pg_roles AS R, store, LATERAL (VALUES ('SUPERUSER', R.rolsuper), ('CREATEROLE', R.rolcreaterole),
    ('CREATEDB', R.rolcreatedb), ('REPLICATION', R.rolreplication), ('BYPASSRLS', R.rolbypassrls)) AS A (name, has)
WHERE A.has AND (R.rolname IN (SELECT name FROM ours) OR R.oid IN (SELECT oid FROM person)
    OR R.oid IN (SELECT oid FROM sealer)
    OR R.rolsuper AND A.name = 'SUPERUSER' AND R.oid <> store.owner
        AND EXISTS (SELECT 1 FROM Users
            WHERE Users.login = R.rolname::text COLLATE "C" AND coalesce(deleted_, 0) = 0))

UNION ALL
SELECT 'fault', 'Роль «%1» не должна состоять в роли «%2».', R.rolname::text, G.rolname::text
FROM store, pg_auth_members AS M
JOIN pg_roles AS R ON R.oid = M.member
JOIN pg_roles AS G ON G.oid = M.roleid
WHERE R.oid <> store.owner AND NOT R.rolsuper
    AND (G.rolname IN ('vrk_owner', 'vrk_loader') OR R.rolname IN ('vrk_owner', 'vrk_client', 'vrk_seal')
        OR R.rolname = 'vrk_loader' AND G.rolname <> 'vrk_client'
        OR R.oid IN (SELECT oid FROM person) AND G.rolname <> 'vrk_client'
        OR R.oid IN (SELECT oid FROM sealer) AND R.oid NOT IN (SELECT oid FROM person) AND G.rolname <> 'vrk_seal'
        OR G.rolname IN ('vrk_client', 'vrk_seal') AND M.admin_option)

UNION ALL
SELECT 'note', 'Роль «%1» читает журнал, а среди его пользователей её нет.', R.rolname::text, ''
FROM pg_roles AS R
WHERE R.oid IN (SELECT oid FROM person) AND R.rolcanlogin
    AND NOT EXISTS (SELECT 1 FROM Users WHERE Users.login = R.rolname::text COLLATE "C")

UNION ALL
SELECT 'fault', 'Для «%1» на сервере записана лишняя настройка: %2.',
    coalesce(R.rolname::text, 'database ' || current_database()), setting
FROM store, pg_db_role_setting AS S
LEFT JOIN pg_roles AS R ON R.oid = S.setrole, unnest(S.setconfig) AS setting
WHERE S.setdatabase IN (0, store.oid)
    AND (S.setrole = 0 OR R.rolname IN (SELECT name FROM ours) OR R.oid IN (SELECT oid FROM person)
        OR R.oid IN (SELECT oid FROM sealer))
