-- Nobody writes between the truncation and the end of the transaction.
TRUNCATE RecordSearch;
DROP INDEX IF EXISTS RecordSearch_Words;
INSERT INTO RecordSearch (recordKey, recordTime, words)
    SELECT recordKey, recordTime, words FROM SearchSource;
CREATE INDEX RecordSearch_Words ON RecordSearch USING gin (words) WITH (fastupdate = off);
ANALYZE RecordSearch;
