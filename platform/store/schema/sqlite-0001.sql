-- Step 1: the tables that the catalog declares, the store's own tables, the indexes. Texts compare as bytes
-- (BINARY, SQLite's default). Worker keys are not references: people come and go.

CREATE TABLE LogbookWorkshifts (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    OpenWorkerKey TEXT,
    CloseWorkerKey TEXT,
    createdAt REAL,
    startTime REAL,
    endTime REAL
) STRICT;
CREATE INDEX LogbookWorkshifts_Department ON LogbookWorkshifts (DepartmentKey, startTime DESC);
CREATE INDEX LogbookWorkshifts_Open ON LogbookWorkshifts (DepartmentKey, CloseWorkerKey);
CREATE INDEX LogbookWorkshifts_Opener ON LogbookWorkshifts (OpenWorkerKey);

CREATE TABLE LogbookWorkersWorkshift (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkshiftKey TEXT REFERENCES LogbookWorkshifts (KeyLink) ON DELETE CASCADE,
    WorkerKey TEXT,
    opening INTEGER
) STRICT;
CREATE INDEX LogbookWorkersWorkshift_Workshift ON LogbookWorkersWorkshift (WorkshiftKey);
CREATE INDEX LogbookWorkersWorkshift_Worker ON LogbookWorkersWorkshift (WorkerKey);

CREATE TABLE LogbookRecords (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ShiftKey TEXT REFERENCES LogbookWorkshifts (KeyLink),
    WorkerKey TEXT,
    VisaWorkerKey TEXT,
    ReceiverWorkerKey TEXT,
    OriginRecordKey TEXT,
    SecondMarkWorkerKey TEXT,
    recordTime REAL,
    eventTime REAL,
    firstMarkTime REAL,
    secondMarkTime REAL,
    executionTime REAL,
    html TEXT,
    status INTEGER,
    direction INTEGER
) STRICT;
CREATE INDEX LogbookRecords_Shift ON LogbookRecords (ShiftKey, recordTime);
CREATE INDEX LogbookRecords_Time ON LogbookRecords (recordTime);
CREATE INDEX LogbookRecords_Worker ON LogbookRecords (WorkerKey);
CREATE INDEX LogbookRecords_Origin ON LogbookRecords (OriginRecordKey) WHERE OriginRecordKey IS NOT NULL;

CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
CREATE INDEX LogbookComments_Record ON LogbookComments (RecordKey);
CREATE INDEX LogbookComments_Unread ON LogbookComments (readedTime) WHERE readedTime = 0;

CREATE TABLE LogbookFiles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    fileName TEXT,
    fileData BLOB
) STRICT;
CREATE INDEX LogbookFiles_Record ON LogbookFiles (RecordKey);

CREATE TABLE LogbookTemplates (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    -- Deferred, so that a category may be deleted and inserted again in one transaction, which is how it moves.
    CategoryKey TEXT REFERENCES LogbookCatsTemplate (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    nameLoc TEXT,
    html TEXT
) STRICT;
CREATE INDEX LogbookTemplates_Category ON LogbookTemplates (CategoryKey);

CREATE TABLE LogbookCatsTemplate (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT REFERENCES LogbookCatsTemplate (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    OrgTypeKey TEXT,
    DepartmentKey TEXT,
    nameLoc TEXT
) STRICT;
CREATE INDEX LogbookCatsTemplate_Parent ON LogbookCatsTemplate (ParentKey);

CREATE TABLE Users (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    login TEXT NOT NULL UNIQUE,
    name_ TEXT,
    deleted_ INTEGER
) STRICT;

CREATE TABLE UserRights (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    UserKey TEXT,
    rightName TEXT
) STRICT;
CREATE UNIQUE INDEX UserRights_User ON UserRights (UserKey, rightName);

CREATE TABLE Workers (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    UserKey TEXT,
    DepartmentKey TEXT,
    firstName TEXT,
    lastName TEXT,
    patronymicName TEXT,
    safetyGroup INTEGER,
    deleted_ INTEGER
) STRICT;
CREATE INDEX Workers_User ON Workers (UserKey);
CREATE INDEX Workers_Department ON Workers (DepartmentKey);

CREATE TABLE Departments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    OrganizationKey TEXT,
    ParentKey TEXT,
    name_ TEXT
) STRICT;

CREATE TABLE Organizations (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    OrgTypeKey TEXT,
    ParentKey TEXT,
    name_ TEXT
) STRICT;

CREATE TABLE OrgTypes (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    name_ TEXT
) STRICT;

CREATE TABLE Shifts (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    name_ TEXT,
    startTime REAL,
    endTime REAL
) STRICT;
CREATE INDEX Shifts_Department ON Shifts (DepartmentKey);

CREATE TABLE Roles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    name_ TEXT
) STRICT;
CREATE INDEX Roles_Department ON Roles (DepartmentKey);

CREATE TABLE WorkerRoles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    RoleKey TEXT,
    WorkerKey TEXT
) STRICT;
CREATE INDEX WorkerRoles_Role ON WorkerRoles (RoleKey);

CREATE TABLE Tables (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    nameLat TEXT,
    nameLoc TEXT
) STRICT;

CREATE TABLE Fields (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    TablesKey TEXT,
    nameLat TEXT,
    nameLoc TEXT
) STRICT;

CREATE TABLE TemplateParamCategories (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT REFERENCES TemplateParamCategories (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    nameLoc TEXT
) STRICT;

CREATE TABLE TemplateParams (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    CategoryKey TEXT REFERENCES TemplateParamCategories (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    nameLoc TEXT,
    html TEXT
) STRICT;
CREATE INDEX TemplateParams_Category ON TemplateParams (CategoryKey);

CREATE TABLE Equipment (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT,
    DepartmentKey TEXT,
    kind TEXT,
    name_ TEXT,
    voltage TEXT
) STRICT;
CREATE INDEX Equipment_Parent ON Equipment (ParentKey);

CREATE TABLE OperLogCategories (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT,
    OrgTypeKey TEXT,
    DepartmentKey TEXT,
    name_ TEXT
) STRICT;

CREATE TABLE OperLogTemplates (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    CategoryKey TEXT,
    name_ TEXT,
    text_ TEXT,
    canStartShift INTEGER,
    canEndShift INTEGER,
    isNecessaryFinishTime INTEGER,
    icon TEXT,
    completingIcon TEXT,
    completingCommand TEXT
) STRICT;

CREATE TABLE OperLogTemplateParams (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    nameLoc TEXT,
    nameLat TEXT,
    param TEXT,
    TableKey TEXT,
    FieldTypeKey TEXT
) STRICT;

-- Tables that are not in the catalog.

CREATE TABLE StoreProperties (
    name TEXT PRIMARY KEY NOT NULL, -- codec, timeZone, epoch
    value TEXT NOT NULL
) STRICT, WITHOUT ROWID;

CREATE TABLE StoreFiles (
    folder TEXT NOT NULL,
    name TEXT NOT NULL,
    content BLOB NOT NULL,
    PRIMARY KEY (folder, name)
) STRICT;

-- One row for each committed transaction: who, when, and the chain over all previous transactions.
CREATE TABLE ChangeTransactions (
    number INTEGER PRIMARY KEY,
    batchKey TEXT NOT NULL UNIQUE,
    login TEXT NOT NULL,
    loader INTEGER NOT NULL,
    time REAL NOT NULL,
    chain BLOB NOT NULL
) STRICT;

-- One row for each changed row. The values are JSON arrays in the order of the table's fields; a blob is
-- represented by its hash and length.
CREATE TABLE ChangeLog (
    entry INTEGER PRIMARY KEY,
    number INTEGER NOT NULL,
    tableName TEXT NOT NULL,
    rowKey TEXT NOT NULL,
    event INTEGER NOT NULL,
    oldRow TEXT,
    newRow TEXT
) STRICT;
CREATE INDEX ChangeLog_Number ON ChangeLog (number);

-- Contains one row while a transaction of the store is being written, otherwise none.
CREATE TABLE CurrentTransaction (
    number INTEGER PRIMARY KEY,
    login TEXT NOT NULL,
    userKey TEXT NOT NULL,
    loader INTEGER NOT NULL
) STRICT;
