-- Only what a new database grants to everybody: lo_import and lo_export access the server's files and are granted to
-- nobody there. %closed: the condition on a closed function.
DO $$ DECLARE thing text; BEGIN
EXECUTE format('REVOKE CONNECT ON DATABASE %1$I FROM vrk_client, vrk_seal; '
               'GRANT CONNECT, TEMPORARY ON DATABASE %1$I TO PUBLIC', current_database());
FOR thing IN SELECT oid::regprocedure FROM pg_proc WHERE pronamespace = 'pg_catalog'::regnamespace
    AND %closed AND NOT EXISTS (SELECT 1 FROM pg_init_privs AS I WHERE I.objoid = pg_proc.oid
        AND I.classoid = 'pg_proc'::regclass
        AND NOT EXISTS (SELECT 1 FROM aclexplode(I.initprivs) AS A WHERE A.grantee = 0)) LOOP
    EXECUTE format('GRANT EXECUTE ON FUNCTION %s TO PUBLIC', thing); END LOOP;
GRANT USAGE ON LANGUAGE plpgsql TO PUBLIC;
END $$
