-- Triggers are dropped with their functions; one drop may remove others.
DO $$ DECLARE thing text; BEGIN
FOREACH thing IN ARRAY (SELECT coalesce(array_agg(oid::regclass::text), '{}') FROM pg_class
    WHERE relnamespace = 'public'::regnamespace AND relkind = 'v') LOOP
    EXECUTE 'DROP VIEW IF EXISTS ' || thing || ' CASCADE'; END LOOP;
FOREACH thing IN ARRAY (SELECT coalesce(array_agg(oid::regprocedure::text), '{}') FROM pg_proc
    WHERE pronamespace = 'public'::regnamespace AND pg_get_userbyid(proowner) = 'vrk_owner') LOOP
    EXECUTE 'DROP FUNCTION IF EXISTS ' || thing || ' CASCADE'; END LOOP;
END $$;
