-- Step 5.

-- The tree over the change log (HashTiles): up to 256 hashes of 32 bytes in each tile.
CREATE TABLE LogTiles (
    level INTEGER NOT NULL,
    place INTEGER NOT NULL,
    hashes BLOB NOT NULL,
    UNIQUE (level, place)
) STRICT;

-- The signed heads of the change log.
CREATE TABLE LogHeads (
    size INTEGER PRIMARY KEY,
    note TEXT NOT NULL
) STRICT;

-- For the history of a row.
CREATE INDEX ChangeLog_Row ON ChangeLog (rowKey);
