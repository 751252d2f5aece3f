-- Step 2: the search over the records of all workshifts.

-- Finds the stem of a word. Without stop words: short words distinguish records here.
CREATE TEXT SEARCH DICTIONARY public.vrk_russian (TEMPLATE = pg_catalog.snowball, Language = russian);

-- The search words of each record: the stems of its words, those of its equipment after "e:", and the marks
-- of its department, author and status after "d:", "a:" and "s:".
CREATE TABLE RecordSearch (
    recordKey text COLLATE "C" PRIMARY KEY,
    recordTime double precision NOT NULL,
    words tsvector NOT NULL
);
-- Updated at once, so that no search has to scan a pending list.
CREATE INDEX RecordSearch_Words ON RecordSearch USING gin (words) WITH (fastupdate = off);
CREATE INDEX RecordSearch_Time ON RecordSearch (recordTime, recordKey);
