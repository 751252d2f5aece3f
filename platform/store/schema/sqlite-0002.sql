-- Step 2: the search over the records of all workshifts.

-- The search words of each record. The number orders the rows by recordTime.
CREATE TABLE RecordSearch (
    number INTEGER PRIMARY KEY,
    recordKey TEXT NOT NULL UNIQUE,
    words TEXT NOT NULL,
    equipment TEXT NOT NULL,
    marks TEXT NOT NULL -- of every record, of its department, author and status, as words
) STRICT;

-- The words of these rows, indexed.
CREATE VIRTUAL TABLE RecordWords USING fts5 (
    words, equipment, marks,
    content = 'RecordSearch', content_rowid = 'number', detail = 'column', columnsize = 0,
    tokenize = 'unicode61 remove_diacritics 0'
);
