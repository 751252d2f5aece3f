-- Step 7: the history of a row asks what was removed with it.
CREATE INDEX ChangeLog_Removed ON ChangeLog (number) WHERE event = 603;
