-- The functions of the change log. Recreated at every step of the schema, before the triggers of the
-- tables.

-- Ends the statement with a text for the user.
CREATE FUNCTION vrk_refuse(reason text) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    RAISE EXCEPTION USING ERRCODE = 'VR001', MESSAGE = reason;
END $$;

-- Whether the rules of the journal are off: requested by the client, permitted by a role.
CREATE FUNCTION vrk_is_loader() RETURNS boolean LANGUAGE sql STABLE AS $$
    SELECT coalesce(current_setting('vrk.loader', true), '') = 'on'
           AND pg_has_role(session_user, 'vrk_loader', 'MEMBER');
$$;

-- The end of the log, one row. The epoch identifies the history: another database, a restored one and a
-- promoted standby each have a different one. A view, because every reading of every listener queries it,
-- and a function would cost more than the rest.
CREATE VIEW ChangeEnd AS
    SELECT (SELECT value FROM StoreProperties WHERE name = 'epoch')
           || '.' || (SELECT oid FROM pg_database WHERE datname = current_database())
           || '.' || left(pg_walfile_name(pg_current_wal_lsn()), 8) AS epoch,
           number
    FROM ChangeHead;

-- A part of the hashed text, preceded by its length in bytes, so that different parts cannot give the same
-- bytes. The server inlines the function as long as it is this simple.
CREATE FUNCTION vrk_part(part text) RETURNS text LANGUAGE sql IMMUTABLE AS $$
    SELECT coalesce(octet_length(part), 0)::text || ':' || coalesce(part, '');
$$;

-- The hash for a transaction whose rows are in the log: over the previous hash, its own head and every row.
CREATE FUNCTION vrk_chain(before bytea, head ChangeTransactions) RETURNS bytea LANGUAGE sql STABLE
    SET search_path = pg_catalog, public, pg_temp SET extra_float_digits = 1 AS $$
    SELECT sha256(convert_to(length(before)::text || ':', 'UTF8') || before
                  || convert_to(vrk_part(head.number::text) || vrk_part(head.batchKey) || vrk_part(head.login)
                                || vrk_part(CASE WHEN head.loader <> 0 THEN 'loader' ELSE 'person' END)
                                || vrk_part(head.time::text)
                                || coalesce((SELECT string_agg(vrk_part(tableName) || vrk_part(rowKey)
                                                               || vrk_part(event::text) || vrk_part(oldRow)
                                                               || vrk_part(newRow), '' ORDER BY entry)
                                             FROM ChangeLog WHERE ChangeLog.number = head.number), ''), 'UTF8'));
$$;

-- The leaf of a row of the log in the tree of the evidence (docs/evidence-format.md), as hexadecimal digits.
CREATE FUNCTION vrk_bytes(part text) RETURNS bytea LANGUAGE sql IMMUTABLE AS $$
    SELECT int8send(octet_length(part)) || convert_to(part, 'UTF8');
$$;
CREATE FUNCTION vrk_leaf(tableName text, rowKey text, event bigint, oldRow text, newRow text) RETURNS text
    LANGUAGE sql STABLE SET search_path = pg_catalog, public, pg_temp AS $$
    SELECT encode(sha256('\x00'::bytea || vrk_bytes(tableName) || vrk_bytes(rowKey) || int8send(event)
                         || coalesce('\x01'::bytea || vrk_bytes(oldRow), '\x00'::bytea)
                         || coalesce('\x01'::bytea || vrk_bytes(newRow), '\x00'::bytea)), 'hex');
$$;

-- Called for every changed row by the trigger of its table.
CREATE FUNCTION vrk_log(tableName text, rowKey text, event integer, oldRow text, newRow text) RETURNS void
    LANGUAGE plpgsql SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF coalesce(current_setting('vrk.batch_key', true), '') = '' THEN
        PERFORM vrk_refuse('Данные изменяются только через хранилище журнала.');
    END IF;
    INSERT INTO ChangePending (xid, isFirst, tableName, rowKey, event, oldRow, newRow)
    VALUES (pg_current_xact_id(), NOT EXISTS (SELECT 1 FROM ChangePending WHERE xid = pg_current_xact_id()),
            vrk_log.tableName, vrk_log.rowKey, vrk_log.event, vrk_log.oldRow, vrk_log.newRow);
END $$;

-- Ends a transaction: takes its number, writes its log, notifies the listeners.
CREATE FUNCTION vrk_close() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
DECLARE
    last ChangeHead;
    this ChangeTransactions;
    isDue boolean;
BEGIN
    -- What is acknowledged must be on the disk, whatever the client has asked for.
    IF current_setting('synchronous_commit') NOT IN ('on', 'remote_apply') THEN
        PERFORM set_config('synchronous_commit', 'on', true);
    END IF;
    SELECT * INTO STRICT last FROM ChangeHead FOR UPDATE;
    isDue := clock_timestamp() NOT BETWEEN last.notified AND last.notified + interval '25 milliseconds';
    this.number := last.number + 1;
    this.batchKey := current_setting('vrk.batch_key');
    this.loader := vrk_is_loader()::integer;
    this.login := session_user;
    this.time := floor(extract(epoch FROM clock_timestamp()));
    WITH mine AS (DELETE FROM ChangePending WHERE xid = pg_current_xact_id() RETURNING *)
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT this.number, mine.tableName, mine.rowKey, mine.event, mine.oldRow, mine.newRow FROM mine ORDER BY entry;
    this.chain := vrk_chain(last.chain, this);
    INSERT INTO ChangeTransactions SELECT this.*;
    UPDATE ChangeHead
    SET number = this.number, chain = this.chain,
        notified = CASE WHEN isDue THEN clock_timestamp() ELSE notified END;
    IF isDue THEN
        PERFORM pg_notify('vrk_changes', '');
    END IF;
    RETURN NULL;
END $$;
CREATE CONSTRAINT TRIGGER ClosesTransaction AFTER INSERT ON ChangePending DEFERRABLE INITIALLY DEFERRED
    FOR EACH ROW WHEN (NEW.isFirst) EXECUTE FUNCTION vrk_close();

CREATE FUNCTION vrk_zero_readed_time() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    NEW.readedTime := coalesce(NEW.readedTime, 0);
    RETURN NEW;
END $$;
CREATE TRIGGER A_ReadedTime BEFORE INSERT OR UPDATE ON LogbookComments
    FOR EACH ROW EXECUTE FUNCTION vrk_zero_readed_time();

-- A row that a rule reads must stay unchanged until the end of the transaction: closing a workshift waits
-- for transactions that write into it, and vice versa; two openings in one department run one after
-- another.

CREATE FUNCTION vrk_hold_workshift() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF TG_TABLE_NAME = 'logbookrecords' THEN
        PERFORM FROM LogbookWorkshifts
        WHERE KeyLink = CASE TG_OP WHEN 'INSERT' THEN NEW.ShiftKey ELSE OLD.ShiftKey END FOR SHARE;
    ELSIF TG_TABLE_NAME = 'logbookworkersworkshift' THEN
        PERFORM FROM LogbookWorkshifts
        WHERE KeyLink = CASE TG_OP WHEN 'INSERT' THEN NEW.WorkshiftKey ELSE OLD.WorkshiftKey END FOR SHARE;
    ELSE
        PERFORM FROM Departments WHERE KeyLink = NEW.DepartmentKey FOR NO KEY UPDATE;
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;
CREATE TRIGGER B_Hold BEFORE INSERT OR DELETE OR UPDATE OF status, executionTime, {RecordContent} ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION vrk_hold_workshift();
CREATE TRIGGER B_Hold BEFORE INSERT OR DELETE ON LogbookWorkersWorkshift
    FOR EACH ROW EXECUTE FUNCTION vrk_hold_workshift();
CREATE TRIGGER B_Hold BEFORE INSERT ON LogbookWorkshifts
    FOR EACH ROW EXECUTE FUNCTION vrk_hold_workshift();

-- Whether an account that seals adds a public key to the keys of the store; it keeps those that are there.
CREATE FUNCTION vrk_adds_key(inFolder text, called text, bytes bytea) RETURNS boolean LANGUAGE sql STABLE
    SET search_path = pg_catalog, public, pg_temp AS $$
    SELECT coalesce(pg_has_role(session_user, 'vrk_seal', 'MEMBER') AND inFolder = 'evidence' AND called = 'keys'
        AND starts_with(encode(bytes, 'hex'), coalesce((SELECT encode(content, 'hex') FROM StoreFiles
                                                        WHERE folder = inFolder AND name = called), '')), false);
$$;

-- Writes a named file, or removes it if there are no bytes; false if it did not exist. Clients may not
-- write the table.
CREATE FUNCTION vrk_write_file(inFolder text, called text, bytes bytea) RETURNS boolean LANGUAGE plpgsql
    SECURITY DEFINER SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF NOT vrk_is_loader() AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
        AND NOT vrk_adds_key(inFolder, called, bytes) THEN
        PERFORM vrk_refuse('Файлы хранилища записывает только администратор.');
    END IF;
    IF bytes IS NULL THEN
        DELETE FROM StoreFiles WHERE folder = inFolder AND name = called;
    ELSE
        INSERT INTO StoreFiles (folder, name, content) VALUES (inFolder, called, bytes)
        ON CONFLICT (folder, name) DO UPDATE SET content = excluded.content;
    END IF;
    RETURN FOUND;
END $$;

-- Moves of categories run one after another, because two moves could form a cycle that neither of them
-- sees. Locks a row that no client may lock; anybody could hold an advisory lock.
CREATE FUNCTION vrk_hold_trees() RETURNS void LANGUAGE sql AS $$
    SELECT FROM StoreProperties WHERE name = 'epoch' FOR UPDATE;
$$;

-- The log is permanent, and no table loses rows without it.

CREATE FUNCTION vrk_keep_log() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    PERFORM vrk_refuse('Журнал изменений не изменяется.');
    RETURN NULL;
END $$;
CREATE TRIGGER KeepLog BEFORE UPDATE OR DELETE OR TRUNCATE ON ChangeLog
    FOR EACH STATEMENT EXECUTE FUNCTION vrk_keep_log();
CREATE TRIGGER KeepLog BEFORE UPDATE OR DELETE OR TRUNCATE ON ChangeTransactions
    FOR EACH STATEMENT EXECUTE FUNCTION vrk_keep_log();

CREATE TRIGGER KeepLog BEFORE UPDATE OR DELETE ON LogSignatures
    FOR EACH STATEMENT EXECUTE FUNCTION vrk_keep_log();

CREATE FUNCTION vrk_keep_rows() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    PERFORM vrk_refuse('Таблицы журнала не очищаются целиком.');
    RETURN NULL;
END $$;

-- The writer: one row. The role that the connection was authenticated with, which no client can change.
CREATE VIEW CurrentTransaction AS
    SELECT session_user::text COLLATE "C" AS login,
           coalesce((SELECT KeyLink FROM Users
                     WHERE Users.login = session_user::text COLLATE "C" AND coalesce(deleted_, 0) = 0), '') AS userKey;
