-- Fills the index of the search, whose triggers are off: it is built at once instead of row by row.
DELETE FROM RecordSearch;
INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)
SELECT CASE WHEN place <= 65536 THEN (second << 16) + place - 1 ELSE -row END, recordKey, words, equipment, marks
FROM (
    SELECT *, row_number() OVER (PARTITION BY second ORDER BY recordKey) AS place,
        row_number() OVER (ORDER BY second, recordKey) AS row
    FROM SearchSource)
ORDER BY second, recordKey;
INSERT INTO RecordWords (RecordWords) VALUES ('rebuild');
