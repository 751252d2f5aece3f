-- The triggers that log every change of a table and refuse changes that bypass the store.
CREATE FUNCTION Log_%table%head
BEGIN
    IF TG_OP = 'UPDATE' AND %key(NEW) <> %key(OLD) THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
-- IF keyed
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
-- END IF
-- IF tree
    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN
        PERFORM vrk_hold_trees();
        PERFORM vrk_refuse('Категория не может лежать внутри самой себя.')
        WHERE NEW.KeyLink IN (
            WITH RECURSIVE up (k) AS (
                SELECT NEW.ParentKey UNION
                SELECT T.ParentKey FROM up JOIN %table AS T ON T.KeyLink = up.k)
            SELECT k FROM up);
    END IF;
-- END IF
-- IF reals
    IF %any{NEW.# IN ('NaN', 'Infinity', '-Infinity') AND NEW.# IS DISTINCT FROM OLD.#} THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
-- END IF
    PERFORM vrk_log('%table', CASE TG_OP WHEN 'DELETE' THEN %key(OLD) ELSE %key(NEW) END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN %row(OLD) END,
        CASE WHEN TG_OP <> 'DELETE' THEN %row(NEW) END);
    RETURN NULL;
END $$;
CREATE TRIGGER Z_Log AFTER INSERT OR UPDATE OR DELETE ON %table FOR EACH ROW EXECUTE FUNCTION Log_%table();
CREATE TRIGGER KeepRows BEFORE TRUNCATE ON %table FOR EACH STATEMENT EXECUTE FUNCTION vrk_keep_rows();
-- IF signed
-- Writes the signature of the person who makes the change.
CREATE FUNCTION Sign_%table%head
DECLARE
    act text := %meaning;
BEGIN
    IF NOT vrk_is_loader() THEN
        INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
        SELECT upper(translate(gen_random_uuid()::text, '-', '')), act, login,
            coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
            floor(extract(epoch FROM clock_timestamp())), '%table', %key(NEW),
            vrk_leaf('%table', %key(NEW), CASE TG_OP WHEN 'INSERT' THEN 601 ELSE 602 END,
                CASE WHEN TG_OP <> 'INSERT' THEN %row(OLD) END, %row(NEW))
        FROM CurrentTransaction;
    END IF;
    RETURN NULL;
END $$;
CREATE TRIGGER Z_SignInsert AFTER INSERT ON %table FOR EACH ROW WHEN (%inserted IS NOT NULL)
    EXECUTE FUNCTION Sign_%table();
CREATE TRIGGER Z_SignUpdate AFTER UPDATE ON %table FOR EACH ROW WHEN (%meaning IS NOT NULL)
    EXECUTE FUNCTION Sign_%table();
-- END IF
