-- Names and definitions of the objects in the schema $1, for the comparison with a fresh one. The session's search
-- path contains only the server's own schema, so all definitions are qualified.
WITH relation AS (
    SELECT CASE relkind
            WHEN 'r' THEN 'table '
            WHEN 'v' THEN 'view '
            WHEN 'S' THEN 'sequence '
            WHEN 'm' THEN 'materialized view '
            WHEN 'p' THEN 'table '
            WHEN 'f' THEN 'foreign table '
            ELSE 'type '
        END || relname AS name, C.*
    FROM pg_class AS C
    WHERE relnamespace = $1::regnamespace AND relkind NOT IN ('i', 'I', 't')
),
function AS (
    SELECT proname || '(' || pg_get_function_identity_arguments(P.oid) || ')' AS name, P.*
    FROM pg_proc AS P
    WHERE pronamespace = $1::regnamespace
),
granted AS (
    SELECT 'grants on ' || name AS name,
        coalesce(relacl, acldefault(CASE relkind WHEN 'S' THEN 's' ELSE 'r' END::"char", relowner)) AS acl
    FROM relation
    UNION ALL
    SELECT 'grants on function ' || name, coalesce(proacl, acldefault('f', proowner)) FROM function
),
-- Objects that need no more than their names.
other AS (
    SELECT 'pg_operator'::regclass AS classid, oid AS objid, oprnamespace AS place FROM pg_operator
    UNION ALL SELECT 'pg_opclass'::regclass, oid, opcnamespace FROM pg_opclass
    UNION ALL SELECT 'pg_opfamily'::regclass, oid, opfnamespace FROM pg_opfamily
    UNION ALL SELECT 'pg_collation'::regclass, oid, collnamespace FROM pg_collation
    UNION ALL SELECT 'pg_conversion'::regclass, oid, connamespace FROM pg_conversion
    UNION ALL SELECT 'pg_statistic_ext'::regclass, oid, stxnamespace FROM pg_statistic_ext
    UNION ALL SELECT 'pg_ts_config'::regclass, oid, cfgnamespace FROM pg_ts_config
    UNION ALL SELECT 'pg_ts_parser'::regclass, oid, prsnamespace FROM pg_ts_parser
    UNION ALL SELECT 'pg_ts_template'::regclass, oid, tmplnamespace FROM pg_ts_template
),
object (name, definition) AS (
    SELECT name, concat_ws(' ', relkind, relpersistence, relrowsecurity, relforcerowsecurity, relreplident, reloptions,
        (SELECT concat_ws(' ', seqtypid::regtype, seqstart, seqincrement, seqmax, seqmin, seqcache, seqcycle)
            FROM pg_sequence WHERE seqrelid = relation.oid),
        (SELECT string_agg(inhparent::regclass::text, ' ') FROM pg_inherits WHERE inhrelid = relation.oid),
        CASE WHEN relkind IN ('v', 'm') THEN pg_get_viewdef(oid) END)
    FROM relation

    UNION ALL
    SELECT 'owner of ' || name, pg_get_userbyid(relowner) FROM relation

    UNION ALL
    SELECT 'column ' || relname || '.' || A.attname, concat_ws(' ',
        (SELECT count(*) FROM pg_attribute AS B
            WHERE B.attrelid = A.attrelid AND B.attnum > 0 AND B.attnum < A.attnum AND NOT B.attisdropped),
        format_type(A.atttypid, A.atttypmod), nullif(A.attcollation, 0)::regcollation, A.attnotnull, A.attidentity,
        A.attgenerated, A.attoptions, pg_get_expr(D.adbin, D.adrelid))
    FROM pg_attribute AS A
    JOIN relation ON relation.oid = A.attrelid
    LEFT JOIN pg_attrdef AS D ON D.adrelid = A.attrelid AND D.adnum = A.attnum
    WHERE relkind <> 'S' AND A.attnum > 0 AND NOT A.attisdropped

    UNION ALL
    SELECT 'grants on column ' || C.relname || '.' || A.attname, A.attacl::text
    FROM pg_attribute AS A
    JOIN pg_class AS C ON C.oid = A.attrelid
    WHERE C.relnamespace = $1::regnamespace AND A.attacl IS NOT NULL AND NOT A.attisdropped

    -- Grants as text, without who granted them.
    UNION ALL
    SELECT name, (SELECT string_agg(concat_ws(' ',
            CASE WHEN A.grantee = 0 THEN 'PUBLIC' ELSE pg_get_userbyid(A.grantee)::text END,
            A.privilege_type, CASE WHEN A.is_grantable THEN '*' END), ', ' ORDER BY A.grantee, A.privilege_type)
        FROM aclexplode(acl) AS A)
    FROM granted

    UNION ALL
    SELECT 'index ' || C.relname, concat_ws(' ', pg_get_indexdef(C.oid), I.indisvalid, I.indisready, I.indislive,
        I.indisclustered, I.indisreplident, I.indimmediate, pg_get_userbyid(C.relowner))
    FROM pg_index AS I
    JOIN pg_class AS C ON C.oid = I.indexrelid
    WHERE C.relnamespace = $1::regnamespace

    UNION ALL
    SELECT 'constraint ' || coalesce(C.relname || '.', '') || K.conname, concat_ws(' ', K.contype,
        CASE WHEN K.contype <> 't' THEN pg_get_constraintdef(K.oid) END, K.condeferrable, K.condeferred,
        K.convalidated)
    FROM pg_constraint AS K
    LEFT JOIN pg_class AS C ON C.oid = K.conrelid
    WHERE K.connamespace = $1::regnamespace

    -- Triggers that the server creates for references have numbers in their names.
    UNION ALL
    SELECT 'trigger ' || CASE WHEN T.tgisinternal THEN K.conname || ' ' || T.tgfoid::regproc ELSE T.tgname END
            || ' on ' || C.relname,
        T.tgenabled::text || CASE WHEN T.tgisinternal THEN '' ELSE pg_get_triggerdef(T.oid) END
    FROM pg_trigger AS T
    JOIN pg_class AS C ON C.oid = T.tgrelid
    LEFT JOIN pg_constraint AS K ON K.oid = T.tgconstraint
    WHERE C.relnamespace = $1::regnamespace

    UNION ALL
    SELECT 'rule ' || R.rulename || ' on ' || C.relname, R.ev_enabled::text || pg_get_ruledef(R.oid)
    FROM pg_rewrite AS R
    JOIN pg_class AS C ON C.oid = R.ev_class
    WHERE C.relnamespace = $1::regnamespace AND (R.rulename <> '_RETURN' OR R.ev_enabled <> 'O')

    UNION ALL
    SELECT 'policy ' || P.polname || ' on ' || C.relname, ''
    FROM pg_policy AS P
    JOIN pg_class AS C ON C.oid = P.polrelid
    WHERE C.relnamespace = $1::regnamespace

    UNION ALL
    SELECT 'function ' || name, CASE WHEN prokind = 'a' THEN '' ELSE pg_get_functiondef(oid) END FROM function

    UNION ALL
    SELECT 'owner of function ' || name, pg_get_userbyid(proowner) FROM function

    UNION ALL
    SELECT 'type ' || typname, typtype::text || pg_get_userbyid(typowner)
    FROM pg_type
    WHERE typnamespace = $1::regnamespace AND typrelid = 0 AND typelem = 0

    UNION ALL
    SELECT 'dictionary ' || D.dictname, concat_ws(' ', N.nspname, T.tmplname, D.dictinitoption,
        pg_get_userbyid(D.dictowner))
    FROM pg_ts_dict AS D
    JOIN pg_ts_template AS T ON T.oid = D.dicttemplate
    JOIN pg_namespace AS N ON N.oid = T.tmplnamespace
    WHERE D.dictnamespace = $1::regnamespace

    UNION ALL
    SELECT pg_describe_object(classid, objid, 0), '' FROM other WHERE place = $1::regnamespace
)
SELECT name::text, coalesce(definition::text, '') FROM object
