-- The trigger that logs an operation on a table and refuses changes that bypass the store. No engine has a
-- literal for infinity, but a number that is too large reads as infinity. NaN is stored as null.
CREATE TRIGGER Log_%table_%operation AFTER %operation ON %table
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
-- IF insert keyed
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
-- END IF
-- IF update
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE %key(NEW) IS NOT %key(OLD);
-- END IF
-- IF write tree
    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')
    WHERE NEW.KeyLink IN (
        WITH RECURSIVE up (k) AS (
            SELECT NEW.ParentKey UNION
            SELECT T.ParentKey FROM up JOIN %table AS T ON T.KeyLink = up.k)
        SELECT k FROM up);
-- END IF
-- IF insert reals
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE %any{abs(NEW.#) = 9e999};
-- END IF
-- IF update reals
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE %any{abs(NEW.#) = 9e999 AND NEW.# IS NOT OLD.#};
-- END IF
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
-- IF insert
    SELECT number, '%table', %key(NEW), 601, NULL, %row(NEW)
-- END IF
-- IF update
    SELECT number, '%table', %key(NEW), 602, %row(OLD), %row(NEW)
-- END IF
-- IF delete
    SELECT number, '%table', %key(OLD), 603, %row(OLD), NULL
-- END IF
    FROM CurrentTransaction;
END;
-- IF insert signed
-- The signature of the person who makes the change.
CREATE TRIGGER Sign_%table_%operation AFTER %operation ON %table
WHEN %meaning IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), %meaning, login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), '%table', %key(NEW), vrk_leaf('%table', %key(NEW), 601, NULL, %row(NEW))
    FROM CurrentTransaction;
END;
-- END IF
-- IF update signed
-- The signature of the person who makes the change.
CREATE TRIGGER Sign_%table_%operation AFTER %operation ON %table
WHEN %meaning IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), %meaning, login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), '%table', %key(NEW), vrk_leaf('%table', %key(NEW), 602, %row(OLD), %row(NEW))
    FROM CurrentTransaction;
END;
-- END IF
