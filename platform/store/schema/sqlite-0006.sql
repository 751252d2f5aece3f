-- Step 6.

-- Who signed what: the hash is that of the row's leaf in the change log (LogLeaf), as hexadecimal digits.
CREATE TABLE LogSignatures (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    meaning TEXT NOT NULL,
    login TEXT NOT NULL,
    person TEXT NOT NULL,
    time REAL NOT NULL,
    signedTable TEXT NOT NULL,
    signedKey TEXT NOT NULL,
    rowHash TEXT NOT NULL
) STRICT;

-- Time stamps (RFC 3161) of an outside authority for the notes in LogHeads.
CREATE TABLE LogStamps (
    size INTEGER PRIMARY KEY,
    response BLOB NOT NULL
) STRICT;
