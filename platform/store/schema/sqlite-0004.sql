-- Step 4.

-- One row, changed by every transaction, which ties the file to its write-ahead log (SqliteWal). Each value is 32 bytes.
CREATE TABLE LogMark (
    id INTEGER PRIMARY KEY CHECK (id = 1),
    former BLOB NOT NULL,
    present BLOB NOT NULL
) STRICT;
INSERT INTO LogMark (id, former, present) VALUES (1, zeroblob(32), randomblob(32));
