-- Roles belong to the whole server: another store may have created them.
DO $$ BEGIN
IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'vrk_owner') THEN
    CREATE ROLE vrk_owner NOLOGIN; END IF;
IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'vrk_client') THEN
    CREATE ROLE vrk_client NOLOGIN; END IF;
IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'vrk_loader') THEN
    CREATE ROLE vrk_loader NOLOGIN; END IF;
IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = 'vrk_seal') THEN
    CREATE ROLE vrk_seal NOLOGIN; END IF;
END $$;
GRANT vrk_client TO vrk_loader;
