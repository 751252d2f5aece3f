-- Step 2: the search over the records of all workshifts.

-- Finds the stem of a word. Without words to be passed over: short ones tell records apart here.
CREATE TEXT SEARCH DICTIONARY public.vrk_russian (TEMPLATE = pg_catalog.snowball, Language = russian);

-- What each record is found by: the stems of its words, those of its equipment behind "e:", and the marks of its
-- department, author and status behind "d:", "a:" and "s:".
CREATE TABLE RecordSearch (
    recordKey text COLLATE "C" PRIMARY KEY,
    recordTime double precision NOT NULL,
    words tsvector NOT NULL
);
-- At once, so that no search has to look through what waits to be entered.
CREATE INDEX RecordSearch_Words ON RecordSearch USING gin (words) WITH (fastupdate = off);
CREATE INDEX RecordSearch_Time ON RecordSearch (recordTime, recordKey);
