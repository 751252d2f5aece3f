-- Step 1: the tables that the catalog declares, the store's own tables, the indexes, the change log. Texts
-- compare as bytes. Worker keys are not references: people come and go. Identifiers are not quoted, so the
-- server keeps them in lower case.

CREATE TABLE LogbookWorkshifts (
    KeyLink text COLLATE "C" PRIMARY KEY,
    DepartmentKey text COLLATE "C",
    OpenWorkerKey text COLLATE "C",
    CloseWorkerKey text COLLATE "C",
    createdAt double precision,
    startTime double precision,
    endTime double precision
);
CREATE INDEX LogbookWorkshifts_Department ON LogbookWorkshifts (DepartmentKey, startTime DESC NULLS LAST);
CREATE INDEX LogbookWorkshifts_Open ON LogbookWorkshifts (DepartmentKey, CloseWorkerKey);
CREATE INDEX LogbookWorkshifts_Opener ON LogbookWorkshifts (OpenWorkerKey);

CREATE TABLE LogbookWorkersWorkshift (
    KeyLink text COLLATE "C" PRIMARY KEY,
    WorkshiftKey text COLLATE "C" REFERENCES LogbookWorkshifts ON DELETE CASCADE,
    WorkerKey text COLLATE "C",
    opening smallint
);
CREATE INDEX LogbookWorkersWorkshift_Workshift ON LogbookWorkersWorkshift (WorkshiftKey);
CREATE INDEX LogbookWorkersWorkshift_Worker ON LogbookWorkersWorkshift (WorkerKey);

CREATE TABLE LogbookRecords (
    KeyLink text COLLATE "C" PRIMARY KEY,
    ShiftKey text COLLATE "C" REFERENCES LogbookWorkshifts,
    WorkerKey text COLLATE "C",
    VisaWorkerKey text COLLATE "C",
    ReceiverWorkerKey text COLLATE "C",
    OriginRecordKey text COLLATE "C",
    SecondMarkWorkerKey text COLLATE "C",
    recordTime double precision,
    eventTime double precision,
    firstMarkTime double precision,
    secondMarkTime double precision,
    executionTime double precision,
    html text COLLATE "C",
    status integer,
    direction integer
);
CREATE INDEX LogbookRecords_Shift ON LogbookRecords (ShiftKey, recordTime);
CREATE INDEX LogbookRecords_Time ON LogbookRecords (recordTime);
CREATE INDEX LogbookRecords_Worker ON LogbookRecords (WorkerKey);
CREATE INDEX LogbookRecords_Origin ON LogbookRecords (OriginRecordKey) WHERE OriginRecordKey IS NOT NULL;

CREATE TABLE LogbookComments (
    KeyLink text COLLATE "C" PRIMARY KEY,
    WorkerKey text COLLATE "C",
    RecordKey text COLLATE "C" REFERENCES LogbookRecords ON DELETE CASCADE,
    commentTime double precision,
    text_ text COLLATE "C",
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime double precision NOT NULL DEFAULT 0
);
CREATE INDEX LogbookComments_Record ON LogbookComments (RecordKey);
CREATE INDEX LogbookComments_Unread ON LogbookComments (readedTime) WHERE readedTime = 0;

CREATE TABLE LogbookFiles (
    KeyLink text COLLATE "C" PRIMARY KEY,
    WorkerKey text COLLATE "C",
    RecordKey text COLLATE "C" REFERENCES LogbookRecords ON DELETE CASCADE,
    fileName text COLLATE "C",
    fileData bytea
);
CREATE INDEX LogbookFiles_Record ON LogbookFiles (RecordKey);

CREATE TABLE LogbookCatsTemplate (
    KeyLink text COLLATE "C" PRIMARY KEY,
    -- Deferred, so that a category may be deleted and inserted again in one transaction, which is how it moves.
    ParentKey text COLLATE "C" REFERENCES LogbookCatsTemplate DEFERRABLE INITIALLY DEFERRED,
    OrgTypeKey text COLLATE "C",
    DepartmentKey text COLLATE "C",
    nameLoc text COLLATE "C"
);
CREATE INDEX LogbookCatsTemplate_Parent ON LogbookCatsTemplate (ParentKey);

CREATE TABLE LogbookTemplates (
    KeyLink text COLLATE "C" PRIMARY KEY,
    CategoryKey text COLLATE "C" REFERENCES LogbookCatsTemplate DEFERRABLE INITIALLY DEFERRED,
    nameLoc text COLLATE "C",
    html text COLLATE "C"
);
CREATE INDEX LogbookTemplates_Category ON LogbookTemplates (CategoryKey);

CREATE TABLE Users (
    KeyLink text COLLATE "C" PRIMARY KEY,
    login text COLLATE "C" NOT NULL UNIQUE,
    name_ text COLLATE "C",
    deleted_ smallint
);

CREATE TABLE UserRights (
    KeyLink text COLLATE "C" PRIMARY KEY,
    UserKey text COLLATE "C",
    rightName text COLLATE "C"
);
CREATE UNIQUE INDEX UserRights_User ON UserRights (UserKey, rightName);

CREATE TABLE Workers (
    KeyLink text COLLATE "C" PRIMARY KEY,
    UserKey text COLLATE "C",
    DepartmentKey text COLLATE "C",
    firstName text COLLATE "C",
    lastName text COLLATE "C",
    patronymicName text COLLATE "C",
    safetyGroup integer,
    deleted_ smallint
);
CREATE INDEX Workers_User ON Workers (UserKey);
CREATE INDEX Workers_Department ON Workers (DepartmentKey);

CREATE TABLE Departments (
    KeyLink text COLLATE "C" PRIMARY KEY,
    OrganizationKey text COLLATE "C",
    ParentKey text COLLATE "C",
    name_ text COLLATE "C"
);

CREATE TABLE Organizations (
    KeyLink text COLLATE "C" PRIMARY KEY,
    OrgTypeKey text COLLATE "C",
    ParentKey text COLLATE "C",
    name_ text COLLATE "C"
);

CREATE TABLE OrgTypes (
    KeyLink text COLLATE "C" PRIMARY KEY,
    name_ text COLLATE "C"
);

CREATE TABLE Shifts (
    KeyLink text COLLATE "C" PRIMARY KEY,
    DepartmentKey text COLLATE "C",
    name_ text COLLATE "C",
    startTime double precision,
    endTime double precision
);
CREATE INDEX Shifts_Department ON Shifts (DepartmentKey);

CREATE TABLE Roles (
    KeyLink text COLLATE "C" PRIMARY KEY,
    DepartmentKey text COLLATE "C",
    name_ text COLLATE "C"
);
CREATE INDEX Roles_Department ON Roles (DepartmentKey);

CREATE TABLE WorkerRoles (
    KeyLink text COLLATE "C" PRIMARY KEY,
    RoleKey text COLLATE "C",
    WorkerKey text COLLATE "C"
);
CREATE INDEX WorkerRoles_Role ON WorkerRoles (RoleKey);

CREATE TABLE Tables (
    KeyLink text COLLATE "C" PRIMARY KEY,
    nameLat text COLLATE "C",
    nameLoc text COLLATE "C"
);

CREATE TABLE Fields (
    KeyLink text COLLATE "C" PRIMARY KEY,
    TablesKey text COLLATE "C",
    nameLat text COLLATE "C",
    nameLoc text COLLATE "C"
);

CREATE TABLE TemplateParamCategories (
    KeyLink text COLLATE "C" PRIMARY KEY,
    ParentKey text COLLATE "C" REFERENCES TemplateParamCategories DEFERRABLE INITIALLY DEFERRED,
    nameLoc text COLLATE "C"
);
CREATE INDEX TemplateParamCategories_Parent ON TemplateParamCategories (ParentKey);

CREATE TABLE TemplateParams (
    KeyLink text COLLATE "C" PRIMARY KEY,
    CategoryKey text COLLATE "C" REFERENCES TemplateParamCategories DEFERRABLE INITIALLY DEFERRED,
    nameLoc text COLLATE "C",
    html text COLLATE "C"
);
CREATE INDEX TemplateParams_Category ON TemplateParams (CategoryKey);

CREATE TABLE Equipment (
    KeyLink text COLLATE "C" PRIMARY KEY,
    ParentKey text COLLATE "C",
    DepartmentKey text COLLATE "C",
    kind text COLLATE "C",
    name_ text COLLATE "C",
    voltage text COLLATE "C"
);
CREATE INDEX Equipment_Parent ON Equipment (ParentKey);

CREATE TABLE OperLogCategories (
    KeyLink text COLLATE "C" PRIMARY KEY,
    ParentKey text COLLATE "C",
    OrgTypeKey text COLLATE "C",
    DepartmentKey text COLLATE "C",
    name_ text COLLATE "C"
);

CREATE TABLE OperLogTemplates (
    KeyLink text COLLATE "C" PRIMARY KEY,
    CategoryKey text COLLATE "C",
    name_ text COLLATE "C",
    text_ text COLLATE "C",
    canStartShift smallint,
    canEndShift smallint,
    isNecessaryFinishTime smallint,
    icon text COLLATE "C",
    completingIcon text COLLATE "C",
    completingCommand text COLLATE "C"
);

CREATE TABLE OperLogTemplateParams (
    KeyLink text COLLATE "C" PRIMARY KEY,
    nameLoc text COLLATE "C",
    nameLat text COLLATE "C",
    param text COLLATE "C",
    TableKey text COLLATE "C",
    FieldTypeKey text COLLATE "C"
);

-- Tables that are not in the catalog.

CREATE TABLE StoreProperties (
    name text COLLATE "C" PRIMARY KEY, -- codec, timeZone, epoch, schema
    value text COLLATE "C" NOT NULL
);

CREATE TABLE StoreFiles (
    folder text COLLATE "C",
    name text COLLATE "C",
    content bytea NOT NULL,
    PRIMARY KEY (folder, name)
);

-- The end of the change log: one row. A transaction locks it from its very end to its commit, so that
-- numbers are contiguous and in order of commit.
CREATE TABLE ChangeHead (
    number bigint NOT NULL,
    chain bytea NOT NULL,
    notified timestamptz NOT NULL -- when listeners were last woken
) WITH (fillfactor = 10);
INSERT INTO ChangeHead VALUES (0, '', '-infinity');

-- One row for each committed transaction: who, when, and the chain over all previous transactions.
CREATE TABLE ChangeTransactions (
    number bigint PRIMARY KEY,
    batchKey text COLLATE "C" NOT NULL UNIQUE,
    login text COLLATE "C" NOT NULL,
    loader integer NOT NULL,
    time double precision NOT NULL,
    chain bytea NOT NULL
);

-- One row for each changed row. The values are JSON arrays in the order of the table's fields; a blob is
-- represented by its hash and length.
CREATE TABLE ChangeLog (
    entry bigint GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY,
    number bigint NOT NULL,
    tableName text COLLATE "C" NOT NULL,
    rowKey text COLLATE "C" NOT NULL,
    event integer NOT NULL,
    oldRow text COLLATE "C",
    newRow text COLLATE "C"
);
CREATE INDEX ChangeLog_Number ON ChangeLog (number, entry);

-- The changes of running transactions so far. A transaction moves its rows into the log when it ends, so
-- that everybody sees only his own rows here.
CREATE UNLOGGED TABLE ChangePending (
    xid xid8 NOT NULL,
    entry bigint GENERATED ALWAYS AS IDENTITY,
    isFirst boolean NOT NULL,
    tableName text COLLATE "C" NOT NULL,
    rowKey text COLLATE "C" NOT NULL,
    event integer NOT NULL,
    oldRow text COLLATE "C",
    newRow text COLLATE "C",
    PRIMARY KEY (xid, entry)
);
