-- Step 7: the chain contains the whole time of a transaction (vrk_chain), not only its seconds.

-- The history of a row asks what was removed with it.
CREATE INDEX ChangeLog_Removed ON ChangeLog (number) WHERE event = 603;
