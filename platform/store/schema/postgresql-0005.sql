-- Step 5.

-- The tree over the change log (HashTiles): up to 256 hashes of 32 bytes in each tile.
CREATE TABLE LogTiles (
    level integer,
    place bigint,
    hashes bytea NOT NULL,
    PRIMARY KEY (level, place)
);

-- The signed heads of the change log.
CREATE TABLE LogHeads (
    size bigint PRIMARY KEY,
    note text COLLATE "C" NOT NULL
);

-- For the history of a row.
CREATE INDEX ChangeLog_Row ON ChangeLog (rowKey);
