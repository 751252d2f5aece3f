DO $$ DECLARE thing text; BEGIN
EXECUTE format('REVOKE ALL ON DATABASE %1$I FROM PUBLIC; GRANT CONNECT ON DATABASE %1$I TO vrk_client, vrk_seal',
    current_database());
FOR thing IN SELECT oid::regprocedure FROM pg_proc WHERE pronamespace = 'pg_catalog'::regnamespace
    AND %closed AND has_function_privilege('public', oid, 'EXECUTE') LOOP
    EXECUTE format('REVOKE EXECUTE ON FUNCTION %s FROM PUBLIC', thing); END LOOP;
IF has_language_privilege('public', 'plpgsql', 'USAGE') THEN
    REVOKE USAGE ON LANGUAGE plpgsql FROM PUBLIC; END IF;
IF NOT has_language_privilege('vrk_owner', 'plpgsql', 'USAGE') THEN
    GRANT USAGE ON LANGUAGE plpgsql TO vrk_owner; END IF;
IF NOT has_function_privilege('vrk_owner', 'pg_notify(text,text)', 'EXECUTE') THEN
    GRANT EXECUTE ON FUNCTION pg_notify(text, text) TO vrk_owner; END IF;
REVOKE CREATE ON SCHEMA public FROM PUBLIC;
END $$
