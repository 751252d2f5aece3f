-- The rights of persons; %tables are all tables that the store offers.
GRANT SELECT, INSERT, UPDATE, DELETE ON %tables TO vrk_client;
GRANT SELECT ON StoreProperties, StoreFiles, ChangeHead, ChangeEnd, ChangeTransactions, ChangeLog, LogTiles, LogHeads,
    LogStamps, LogSignatures, RecordSearch, LongestShift TO vrk_client;

-- The account that seals reads the log and writes the evidence, nothing else of the journal.
GRANT SELECT ON StoreProperties, StoreFiles, ChangeHead, ChangeEnd, ChangeTransactions, ChangeLog TO vrk_seal;
GRANT SELECT, INSERT, UPDATE ON LogTiles, LogHeads, LogStamps TO vrk_seal;

-- A trigger runs without rights of the user who fires it. A user with the right to call these functions could
-- create a table, where the server lets him, and attach the log's functions to it.
REVOKE EXECUTE ON ALL FUNCTIONS IN SCHEMA public FROM PUBLIC;
GRANT EXECUTE ON FUNCTION vrk_write_file TO vrk_client, vrk_seal;
