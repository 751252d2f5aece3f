-- Recreated at every step of the schema.

-- The log is permanent.

CREATE TRIGGER Log_noUpdate BEFORE UPDATE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Log_noDelete BEFORE DELETE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noUpdate BEFORE UPDATE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noDelete BEFORE DELETE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Signatures_noUpdate BEFORE UPDATE ON LogSignatures
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Signatures_noDelete BEFORE DELETE ON LogSignatures
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
