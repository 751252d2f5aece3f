-- Keeps the search index up to date with the records. Recreated at every step of the schema.

-- The content of the row for each record. Keys are written as hexadecimal words, since they may contain any
-- character.
CREATE VIEW SearchSource AS
    SELECT R.KeyLink AS recordKey,
           min(max(CAST(coalesce(R.recordTime, 0) AS INTEGER), 0), (1 << 42) - 1) AS second,
           vrk_words(R.html) AS words, vrk_equipment(R.html) AS equipment,
           'record d' || hex(coalesce(W.DepartmentKey, '')) || ' a' || hex(coalesce(R.WorkerKey, ''))
           || ' s' || coalesce(R.status, 0) AS marks
    FROM LogbookRecords AS R LEFT JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey;

-- A second has 65536 numbers; records beyond that are found last.
CREATE VIEW SearchNumbers AS
    SELECT recordKey, CASE
        WHEN EXISTS (SELECT 1 FROM RecordSearch WHERE number = (second << 16) + 65535)
            THEN (SELECT min(min(number), 0) - 1 FROM RecordSearch)
        ELSE coalesce((SELECT max(number) + 1 FROM RecordSearch
                       WHERE number BETWEEN second << 16 AND (second << 16) + 65534), second << 16)
        END AS number, words, equipment, marks
    FROM SearchSource;

CREATE TRIGGER Search_Records_insert AFTER INSERT ON LogbookRecords
BEGIN
    INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)
    SELECT number, recordKey, words, equipment, marks FROM SearchNumbers WHERE recordKey = NEW.KeyLink;
END;

CREATE TRIGGER Search_Records_update AFTER UPDATE OF html, recordTime, ShiftKey, WorkerKey, status ON LogbookRecords
WHEN NEW.html IS NOT OLD.html OR NEW.recordTime IS NOT OLD.recordTime OR NEW.ShiftKey IS NOT OLD.ShiftKey
  OR NEW.WorkerKey IS NOT OLD.WorkerKey OR NEW.status IS NOT OLD.status
BEGIN
    DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
    INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)
    SELECT number, recordKey, words, equipment, marks FROM SearchNumbers WHERE recordKey = NEW.KeyLink;
END;

CREATE TRIGGER Search_Records_delete AFTER DELETE ON LogbookRecords
BEGIN
    DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
END;

-- The index keeps no copy of its content, so the old values must be passed to it.

CREATE TRIGGER Search_insert AFTER INSERT ON RecordSearch
BEGIN
    INSERT INTO RecordWords (rowid, words, equipment, marks)
    VALUES (NEW.number, NEW.words, NEW.equipment, NEW.marks);
END;

CREATE TRIGGER Search_delete AFTER DELETE ON RecordSearch
BEGIN
    INSERT INTO RecordWords (RecordWords, rowid, words, equipment, marks)
    VALUES ('delete', OLD.number, OLD.words, OLD.equipment, OLD.marks);
END;
