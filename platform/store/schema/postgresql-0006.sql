-- Step 6: an account for the seal (postgresql-roles.sql), signatures.

-- Who signed what: the hash is that of the row's leaf in the change log (LogLeaf), as hexadecimal digits.
CREATE TABLE LogSignatures (
    KeyLink text COLLATE "C" PRIMARY KEY,
    meaning text COLLATE "C" NOT NULL,
    login text COLLATE "C" NOT NULL,
    person text COLLATE "C" NOT NULL,
    time double precision NOT NULL,
    signedTable text COLLATE "C" NOT NULL,
    signedKey text COLLATE "C" NOT NULL,
    rowHash text COLLATE "C" NOT NULL
);

-- Time stamps (RFC 3161) of an outside authority for the notes in LogHeads.
CREATE TABLE LogStamps (
    size bigint PRIMARY KEY,
    response bytea NOT NULL
);
