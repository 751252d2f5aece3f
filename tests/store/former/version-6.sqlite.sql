PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE LogbookWorkshifts (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    OpenWorkerKey TEXT,
    CloseWorkerKey TEXT,
    createdAt REAL,
    startTime REAL,
    endTime REAL
) STRICT;
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_PAST','DEP_CDS','WORKER_IVANOV','WORKER_IVANOV',1795342038.0,1795342038.0,1795428438.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_OPEN','DEP_CDS','WORKER_IVANOV',NULL,1795428438.0,1795428438.0,1795514838.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_ZAR_OPEN','DEP_ZAR','WORKER_SMIRNOV_ZAR',NULL,1795442838.0,1795442838.0,1795486038.0);
CREATE TABLE LogbookWorkersWorkshift (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkshiftKey TEXT REFERENCES LogbookWorkshifts (KeyLink) ON DELETE CASCADE,
    WorkerKey TEXT,
    opening INTEGER
) STRICT;
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_CDS_1','SHIFT_CDS_OPEN','WORKER_IVANOV',1);
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_CDS_2','SHIFT_CDS_OPEN','WORKER_PETROV',1);
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_ZAR_1','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',1);
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',1);
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',1);
INSERT INTO LogbookWorkersWorkshift VALUES('CREW_PAST_3','SHIFT_CDS_PAST','WORKER_PETROV',0);
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
INSERT INTO LogbookRecords VALUES('REC_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795348038.0,1795348038.0,NULL,NULL,NULL,'Принята сводка погоды.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',NULL,NULL,NULL,NULL,1795396038.0,1795396038.0,NULL,NULL,NULL,'Проверена связь с подстанциями.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_OPENING','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795428438.0,1795428438.0,NULL,NULL,NULL,'<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_MESSAGE','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,'WORKER_SMIRNOV_ZAR',NULL,NULL,1795432038.0,1795432038.0,NULL,NULL,NULL,'Запрошено состояние <b>нагрузки</b>.',0,1);
INSERT INTO LogbookRecords VALUES('REC_REPLACED','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795435638.0,1795435638.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',2,NULL);
INSERT INTO LogbookRecords VALUES('REC_SUCCESSOR','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,'REC_REPLACED',NULL,1795435638.0,1795435638.0,NULL,NULL,1795436238.0,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_ORDER','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795439238.0,1795439238.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_TRIP','SHIFT_CDS_OPEN','WORKER_PETROV','WORKER_SIDOROVA',NULL,NULL,NULL,1795442838.0,1795442838.0,1795442778.0,NULL,NULL,'<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_IVANOV','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795446438.0,1795446438.0,NULL,NULL,NULL,'Черновик: осмотр оборудования.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_PETROV','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795448238.0,1795448238.0,NULL,NULL,NULL,'Черновик: доклад бригады.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_ZAR','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',NULL,NULL,NULL,NULL,1795444038.0,1795444038.0,NULL,NULL,NULL,'Схема сверена по щиту.',0,NULL);
CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
INSERT INTO LogbookComments VALUES('COM_UNREAD','WORKER_PETROV','REC_OPENING',1795429038.0,'Уточните период смены.',0.0);
INSERT INTO LogbookComments VALUES('COM_READ','WORKER_IVANOV','REC_ORDER',1795439838.0,'Исполнение доложить до конца смены.',1795440438.0);
INSERT INTO LogbookComments VALUES('COM_PAST','WORKER_SIDOROVA','REC_PAST_1',1795402038.0,'Приложите сводку к записи.',0.0);
CREATE TABLE LogbookFiles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    fileName TEXT,
    fileData BLOB
) STRICT;
INSERT INTO LogbookFiles VALUES('FILE_TEXT','WORKER_PETROV','REC_TRIP','осциллограмма.txt',X'743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a');
INSERT INTO LogbookFiles VALUES('FILE_IMAGE','WORKER_PETROV','REC_TRIP','фото опоры № 12.png',X'89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082');
CREATE TABLE LogbookTemplates (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    -- Deferred, so that a category may be deleted and inserted again in one transaction, which is how it moves.
    CategoryKey TEXT REFERENCES LogbookCatsTemplate (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    nameLoc TEXT,
    html TEXT
) STRICT;
INSERT INTO LogbookTemplates VALUES('TPL_OPEN','CAT_COMMON','Приём смены','<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Диспетчер</a> <a href="parameter:name=interval;locname=Период%20смены">Период смены</a>.');
INSERT INTO LogbookTemplates VALUES('TPL_CLOSE','CAT_COMMON','Сдача смены','<meta name="template" content="close_wshift">Смену сдал <a href="parameter:name=employee_fio;locname=Сдал">Сдал</a>.');
INSERT INTO LogbookTemplates VALUES('TPL_ORDER','CAT_COMMON_SUB','Команда на производство переключений','<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">Подстанция</a> отключить <a href="parameter:name=text;locname=Оборудование">Оборудование</a>.');
INSERT INTO LogbookTemplates VALUES('TPL_TRIP','CAT_NETS','Автоматическое отключение линии','<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">Линия</a> на <a href="parameter:name=substation;locname=Подстанция">Подстанция</a>.');
INSERT INTO LogbookTemplates VALUES('TPL_TEXT','CAT_CDS','Штормовое предупреждение','Получено штормовое предупреждение: усиление ветра.');
CREATE TABLE LogbookCatsTemplate (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT REFERENCES LogbookCatsTemplate (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    OrgTypeKey TEXT,
    DepartmentKey TEXT,
    nameLoc TEXT
) STRICT;
INSERT INTO LogbookCatsTemplate VALUES('CAT_COMMON',NULL,NULL,NULL,'Оперативная смена');
INSERT INTO LogbookCatsTemplate VALUES('CAT_COMMON_SUB','CAT_COMMON',NULL,NULL,'Команды и переключения');
INSERT INTO LogbookCatsTemplate VALUES('CAT_NETS',NULL,'TYPE_NETS',NULL,'Технологические нарушения');
INSERT INTO LogbookCatsTemplate VALUES('CAT_CDS',NULL,NULL,'DEP_CDS','Погода');
INSERT INTO LogbookCatsTemplate VALUES('CAT_ZAR',NULL,NULL,'DEP_ZAR','Сообщения');
CREATE TABLE Users (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    login TEXT NOT NULL UNIQUE,
    name_ TEXT,
    deleted_ INTEGER
) STRICT;
INSERT INTO Users VALUES('USER_IVANOV','ivanov','Иванов Иван Иванович',0);
INSERT INTO Users VALUES('USER_PETROV','petrov','Петров Пётр Петрович',0);
INSERT INTO Users VALUES('USER_SIDOROVA','sidorova','Сидорова Анна Сергеевна',0);
INSERT INTO Users VALUES('USER_SMIRNOV','smirnov','Смирнов Олег Павлович',0);
INSERT INTO Users VALUES('USER_KUZNETSOV','kuznetsov','Кузнецов Лев Андреевич',0);
INSERT INTO Users VALUES('USER_VIEWER','viewer','Наблюдатель',0);
CREATE TABLE UserRights (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    UserKey TEXT,
    rightName TEXT
) STRICT;
INSERT INTO UserRights VALUES('RIGHT_SIDOROVA','USER_SIDOROVA','ADMINISTRATOR');
INSERT INTO UserRights VALUES('RIGHT_SMIRNOV','USER_SMIRNOV','ADMINISTRATOR_OPERLOG_LOCAL');
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
INSERT INTO Workers VALUES('WORKER_IVANOV','USER_IVANOV','DEP_CDS','Иван','Иванов','Иванович',5,0);
INSERT INTO Workers VALUES('WORKER_PETROV','USER_PETROV','DEP_CDS','Пётр','Петров','Петрович',4,0);
INSERT INTO Workers VALUES('WORKER_SIDOROVA','USER_SIDOROVA','DEP_CDS','Анна','Сидорова','Сергеевна',5,0);
INSERT INTO Workers VALUES('WORKER_SMIRNOV_ZAR','USER_SMIRNOV','DEP_ZAR','Олег','Смирнов','Павлович',0,0);
INSERT INTO Workers VALUES('WORKER_SMIRNOV_ODS','USER_SMIRNOV','DEP_ODS','Олег','Смирнов','Павлович',0,0);
INSERT INTO Workers VALUES('WORKER_KUZNETSOV','USER_KUZNETSOV','DEP_CDS','Лев','Кузнецов','Андреевич',3,1);
CREATE TABLE Departments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    OrganizationKey TEXT,
    ParentKey TEXT,
    name_ TEXT
) STRICT;
INSERT INTO Departments VALUES('DEP_ODS','ORG_CENTER',NULL,'ОДС');
INSERT INTO Departments VALUES('DEP_CDS','ORG_NETS',NULL,'ЦДС');
INSERT INTO Departments VALUES('DEP_ZAR','ORG_NETS','DEP_CDS','Заречная диспетчерская группа');
CREATE TABLE Organizations (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    OrgTypeKey TEXT,
    ParentKey TEXT,
    name_ TEXT
) STRICT;
INSERT INTO Organizations VALUES('ORG_CENTER','TYPE_CENTER',NULL,'ДЦ «Северная дуга»');
INSERT INTO Organizations VALUES('ORG_NETS','TYPE_NETS',NULL,'Электросети «Ключевой край»');
CREATE TABLE OrgTypes (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    name_ TEXT
) STRICT;
INSERT INTO OrgTypes VALUES('TYPE_CENTER','Диспетчерский центр');
INSERT INTO OrgTypes VALUES('TYPE_NETS','Электросетевая организация');
CREATE TABLE Shifts (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    name_ TEXT,
    startTime REAL,
    endTime REAL
) STRICT;
INSERT INTO Shifts VALUES('TIMETABLE_CDS_DAY','DEP_CDS','Дневная',28800.0,72000.0);
INSERT INTO Shifts VALUES('TIMETABLE_CDS_NIGHT','DEP_CDS','Ночная',72000.0,28800.0);
INSERT INTO Shifts VALUES('TIMETABLE_ZAR_DAY','DEP_ZAR','Дневная',28800.0,72000.0);
CREATE TABLE Roles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    DepartmentKey TEXT,
    name_ TEXT
) STRICT;
INSERT INTO Roles VALUES('ROLE_CDS_SENIOR','DEP_CDS','Старший диспетчер');
INSERT INTO Roles VALUES('ROLE_CDS_DISPATCHER','DEP_CDS','Диспетчер');
INSERT INTO Roles VALUES('ROLE_ZAR','DEP_ZAR','Диспетчер группы');
CREATE TABLE WorkerRoles (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    RoleKey TEXT,
    WorkerKey TEXT
) STRICT;
INSERT INTO WorkerRoles VALUES('WROLE_IVANOV_1','ROLE_CDS_SENIOR','WORKER_IVANOV');
INSERT INTO WorkerRoles VALUES('WROLE_IVANOV_2','ROLE_CDS_DISPATCHER','WORKER_IVANOV');
INSERT INTO WorkerRoles VALUES('WROLE_PETROV','ROLE_CDS_DISPATCHER','WORKER_PETROV');
INSERT INTO WorkerRoles VALUES('WROLE_SMIRNOV','ROLE_ZAR','WORKER_SMIRNOV_ZAR');
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
INSERT INTO TemplateParamCategories VALUES('PARCAT_MAIN',NULL,'Общие параметры');
CREATE TABLE TemplateParams (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    CategoryKey TEXT REFERENCES TemplateParamCategories (KeyLink) DEFERRABLE INITIALLY DEFERRED,
    nameLoc TEXT,
    html TEXT
) STRICT;
INSERT INTO TemplateParams VALUES('PAR_TEXT','PARCAT_MAIN','Текст','<a href="parameter:name=text;locname=Текст">Текст</a>');
INSERT INTO TemplateParams VALUES('PAR_LIST','PARCAT_MAIN','Состояние связи','<a href="parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|">Состояние связи</a>');
CREATE TABLE Equipment (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    ParentKey TEXT,
    DepartmentKey TEXT,
    kind TEXT,
    name_ TEXT,
    voltage TEXT
) STRICT;
INSERT INTO Equipment VALUES('EQ_SUBSTATION',NULL,'DEP_ZAR','substation','ПС 110 кВ Заречная','110');
INSERT INTO Equipment VALUES('EQ_BAY','EQ_SUBSTATION','DEP_ZAR','bay','В 110 Полевая I цепь','110');
INSERT INTO Equipment VALUES('EQ_LINE',NULL,'DEP_CDS','line','ВЛ 110 кВ Полевая – Заречная','110');
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
CREATE TABLE StoreProperties (
    name TEXT PRIMARY KEY NOT NULL, -- codec, timeZone, epoch
    value TEXT NOT NULL
) STRICT, WITHOUT ROWID;
INSERT INTO StoreProperties VALUES('codec','Windows-1251');
INSERT INTO StoreProperties VALUES('epoch','484C732F425B61ABD145B956B509C1CE');
INSERT INTO StoreProperties VALUES('signatures','1');
INSERT INTO StoreProperties VALUES('timeZone','Europe/Moscow');
CREATE TABLE StoreFiles (
    folder TEXT NOT NULL,
    name TEXT NOT NULL,
    content BLOB NOT NULL,
    PRIMARY KEY (folder, name)
) STRICT;
CREATE TABLE ChangeTransactions (
    number INTEGER PRIMARY KEY,
    batchKey TEXT NOT NULL UNIQUE,
    login TEXT NOT NULL,
    loader INTEGER NOT NULL,
    time REAL NOT NULL,
    chain BLOB NOT NULL
) STRICT;
INSERT INTO ChangeTransactions VALUES(1,'22FBE41EE1FB849EA348149D8914F194','root',1,1795450038.0,X'1c6fcc8eec985b0860ae9ad6ec30e7b819e1c09aabeaa6eabf82415ce6d1ffc0');
INSERT INTO ChangeTransactions VALUES(2,'D7A786B1E23E3356C58861FC23928E1A','root',1,1795450038.0,X'0d1e0c4831ce14267603ce237d6bfa0512907444801a3ececd1965e8aa2b02a1');
INSERT INTO ChangeTransactions VALUES(3,'D2925EED5B86F1EFFEF9EE15121C3EFC','root',1,1795450038.0,X'55739c43f230c42106110a99abfb44c25c0047f15d2dd196dbdfb571bcc6e80e');
INSERT INTO ChangeTransactions VALUES(4,'5166749B7FBF8EF038867D328334C320','root',1,1795450038.0,X'79e0351e293b68036b2552d8a3ff4b40ae99ccd0fc6fbcf662c15a3472e00cd0');
INSERT INTO ChangeTransactions VALUES(5,'ABBD9F6A64970148910933278B2290C3','root',1,1795450038.0,X'f191030f93e0d9a783bc9c175bca27b9f8f5509850c215333bb34bbcc4194d70');
INSERT INTO ChangeTransactions VALUES(6,'E5B780BCA5FADF870D283E9FB015C817','root',1,1795450038.0,X'd42f7f69a31934fa393a3c8ff18806cfa0d69732b3eb524dcf80edb9a2d675df');
INSERT INTO ChangeTransactions VALUES(7,'8F0FF3192CF0F9EC0F1882051FA391FE','root',1,1795450038.0,X'ff125df3ea4c9576e7fb4cf85fe5279cf3adcbdb6ee6587887f87a0b70fc53ba');
INSERT INTO ChangeTransactions VALUES(8,'33F4D668898C6CE031CFBD347CB2B5BD','root',1,1795450038.0,X'905146794e3a5fd662d0c4b954d553e80108ce0ffebf7442b7a64895b02ac25d');
INSERT INTO ChangeTransactions VALUES(9,'1A7BE2BC33A7A05D5C25D376B70DF7E0','root',1,1795450038.0,X'6441afa3571dc2395c9fa7bd109a0373bff59c171bf30b8e3dfc3f8b1db4a07d');
INSERT INTO ChangeTransactions VALUES(10,'E0D0D72D1CD29678CDC9EBCE36489F5C','root',1,1795450038.0,X'8801eaf25255e2a4705de6275992c9cd25f138f94988ab0b75fc0f0ea91df0c9');
INSERT INTO ChangeTransactions VALUES(11,'1C67C8DBF9EC23E5BD5034726D7359F0','root',1,1795450038.0,X'8a9ac23609661f0df6f5a3a9f39e0f3d061eaa01a7deb7554de2da9d1879eccc');
INSERT INTO ChangeTransactions VALUES(12,'EE5BF9F51105AFD73DDB2B239FF3ACDE','root',1,1795450038.0,X'305e9c36e8997078ba43636c26d59fd6ad9613ea9aa73260c0f145bb0a03c21c');
INSERT INTO ChangeTransactions VALUES(13,'B67CA558C2944BE81D0259E3D506885E','root',1,1795450038.0,X'ee763890939d8b4568b02f9f152127a596c1c9a654d9e47a8d9469fa0fb102d0');
INSERT INTO ChangeTransactions VALUES(14,'8D8025A4FA435264680698B5996C9834','root',1,1795450038.0,X'ab327995ed5711b0d0e92e1acba4f01da2a1d6fc4a375acda93f2287652db59d');
INSERT INTO ChangeTransactions VALUES(15,'0AFF5A7B7C26DCD8D21F9940F24911BC','root',1,1795450038.0,X'8692b88c05a990e3868b64733eb6f3aac0f852cbe5394e1cac3d433fa8d78e48');
INSERT INTO ChangeTransactions VALUES(16,'4F1BB23FB2144DBCF58E6AA0A2E0D3E2','root',1,1795450038.0,X'a5cb8f9329459da5692a2688f8e4a0dda66c81ab307813d28531e4ea91a977bd');
INSERT INTO ChangeTransactions VALUES(17,'F8AF2C645D39BB085C38FAF0AF2CDEDC','root',1,1795450038.0,X'8200564332b190e8bcdf52d037acff507228289c0edef5f3c3fe7391b3271afe');
INSERT INTO ChangeTransactions VALUES(18,'06705B666D4B3AD06E34D4B95FD6EF69','root',1,1795450038.0,X'aab698aaf0861afb16097edecc7c11b540db2e12f3b3fe728a3a26657d66199d');
INSERT INTO ChangeTransactions VALUES(19,'68F434EE617D9D3CCAFA8928426DDB72','root',1,1795450038.0,X'05204b82070bb066ddf37093a762bffb0577df0600000f73832203b8af94cb64');
INSERT INTO ChangeTransactions VALUES(20,'6AA819862B7DCC81F53AE512D79D70FA','root',1,1795450038.0,X'63221659cf65a864712f8166623d8c020fb2259ed19977f0272aa90952357bcc');
INSERT INTO ChangeTransactions VALUES(21,'677C0265AC9AA86E3C17C7300B27A69D','root',1,1795450038.0,X'51445aa0d768a42da6ecd2801b6c399760b198441984ea43b26794a83248dc2a');
INSERT INTO ChangeTransactions VALUES(22,'5BD21C4C9BD8E9301A2BA6D87CFC66CC','root',1,1795450038.0,X'5bbeeb2f05fb3cd4061e1a42990116de5669747979269d7932f0c0906ab81318');
INSERT INTO ChangeTransactions VALUES(23,'89D55F689A859435CA9FDA17252508ED','root',1,1795450038.0,X'8775b6f009aa647149ddb7483bd3893d79f46a62305a8f4ea2b0084c9d92b2df');
INSERT INTO ChangeTransactions VALUES(24,'06249E3D95EFE119EF650A5F83FC9C57','root',1,1795450038.0,X'88774b0e0bfa0ad97cb6edf71bbb8ea2029f1f8093747c9c33879d7789af42e1');
INSERT INTO ChangeTransactions VALUES(25,'D6633B972577E00948B5F68B33A7BB3C','root',1,1795450038.0,X'22af9fc31a03028042ed37b9ee6aa7c0bd07deb0f21a8d0598c2334f833c9837');
INSERT INTO ChangeTransactions VALUES(26,'8EC3CA108007B3486A9FF9B87559A3F0','root',1,1795450038.0,X'1611f7fac87db17e353bb1345bcfa34510b72e47aa8a0c7b81743c58cfcf9a6b');
INSERT INTO ChangeTransactions VALUES(27,'57E69145A9164B731BC0978C6DA393AC','root',1,1795450038.0,X'395a2c4fdb3f1886e07ae1b7985908a927e849e4f34bb83fb90b2dbab09ec7fd');
INSERT INTO ChangeTransactions VALUES(28,'46E5A504CE1D6B46CC113778ED2B2F5A','root',1,1795450038.0,X'85232ecd616b0196d0b5913aa21871978bff6db693a5ba56fdff80ba30fb43e1');
INSERT INTO ChangeTransactions VALUES(29,'C8E432D4C629775A967DB32D59536368','root',1,1795450038.0,X'73130c19b81dffe5905b9dae68a6c2fd5562e398d81f90089d6818017edd30dc');
INSERT INTO ChangeTransactions VALUES(30,'7F7E337186A4C9A193DE0019AF924C90','root',1,1795450038.0,X'ac142a8eada2eb7a2e9f5d8eceeece0b81ad301ffb7e72448c7ac5e05ec131b4');
INSERT INTO ChangeTransactions VALUES(31,'A3019605D1697D0EA66AAB4455B293DB','root',1,1795450038.0,X'1b31098b58e923078fb69b3af04fd9d03b48dc07e7daf6449201c50262aea6d1');
INSERT INTO ChangeTransactions VALUES(32,'774C5A0E46756831CC026A989DE52AE6','root',1,1795450038.0,X'6e9d6daf060cc5982505974ae3f75c6fd31bf4b496c83450f9e4e3aa3e0ffcb4');
INSERT INTO ChangeTransactions VALUES(33,'E39281708A9243FF7E4CA7756A15EF2E','root',1,1795450038.0,X'7dff77385ffc30dccba05e7b4c60214df323f1a2cb3a0fd1892b75fc77c67fc9');
INSERT INTO ChangeTransactions VALUES(34,'CDE031D3C3951F37D45BF0D4926E59B8','root',1,1795450038.0,X'd94cfd81d58daca2167901533da81b94ecab70bdfe0de7bd591a3942b2081b9e');
INSERT INTO ChangeTransactions VALUES(35,'DAAD8EE7C206F272B27F922358281CC9','root',1,1795450038.0,X'4cc6d0c6a0721c5f38fe44fd7ede274a32fecaa14ab0181f48093b474dba0e7c');
INSERT INTO ChangeTransactions VALUES(36,'C717311D2531BBB0E63C3C872B706BB3','root',1,1795450038.0,X'f471325a150ec6e1bb2a026740fd9885c9e4854c70197138b09bb03845d9d92d');
INSERT INTO ChangeTransactions VALUES(37,'D587351E46590A67B60DF17A2769E516','root',1,1795450038.0,X'1415187e63c9bf82c97b1b33cfcd4137a9b328298358c5df9f391b9b13edb102');
INSERT INTO ChangeTransactions VALUES(38,'352A163AFB21FC712DF6D6D1EC1FDDA4','root',1,1795450038.0,X'69aa7d51edb62ae2eeeeafcf01cebadf05c36e348d1748a22d31f50f5fff9556');
INSERT INTO ChangeTransactions VALUES(39,'1E75C4F3DCA43B8855C3F661B9CDC7AD','root',1,1795450038.0,X'5acf9efa082ffe582dd3b59a48e3451afbf8ceb9732d37821707abfcfed529da');
INSERT INTO ChangeTransactions VALUES(40,'42DC45A9D583027CF140256D785B9F36','root',1,1795450038.0,X'1c85579beb1c1e8728f5abd7aa8ae39f5850eeaef6f322c7da847ff4999a9a20');
INSERT INTO ChangeTransactions VALUES(41,'C8A520BAB11ABE16F410DA75341C3E97','root',1,1795450038.0,X'e7e31a3c0debe2f23162978b97d8e3443feb87775c4203c08a00c00629449941');
INSERT INTO ChangeTransactions VALUES(42,'A569F2BEAF03455C1A144573AC0C6242','root',1,1795450038.0,X'12ea37ad4808f2e5954dceff26b4410739cf56e6c3ec038d5e6251779ad02356');
INSERT INTO ChangeTransactions VALUES(43,'ACF879C59D2B9FA2056C29BB850C21F6','root',1,1795450038.0,X'8503ccbdecf3cbceccab6bc53b650fe07389a8e379877dfa5facbba2a0bbecd5');
INSERT INTO ChangeTransactions VALUES(44,'F645AD66952A34C17F67AC1ED7FA79A6','root',1,1795450038.0,X'4b575ce810e201b0f965e640a85c366707cd3e4c74c068cb82ca6187581870fd');
INSERT INTO ChangeTransactions VALUES(45,'42C7048E0EA2AD512211E562B741051B','root',1,1795450038.0,X'0c8095b94adb29b9ebae9e61c13ef65a5dfe7cb65e754a7c4cab665b54247931');
INSERT INTO ChangeTransactions VALUES(46,'7319FE477A53F8B4D76AB97385E73872','root',1,1795450038.0,X'1bbcd5ce8dba61f8d7827fec9ab1b79cce12d8e436445d0b965eccf336a5f1ed');
INSERT INTO ChangeTransactions VALUES(47,'84BDB113798B396073893481B13344E6','root',1,1795450038.0,X'45d5aa18c9a7083d6fe6ca38383724039454023132aeeaa1338c8b2833af4eb0');
INSERT INTO ChangeTransactions VALUES(48,'7C88A105D54DAE9ED7BA17160F52FACC','root',1,1795450038.0,X'0cf38198d25a301b73645f2f6d46e348f496911246a977d0f3f38d05cedd7766');
INSERT INTO ChangeTransactions VALUES(49,'3FC767A735DE027B1CE7444EA5F7B0EA','root',1,1795450038.0,X'faaf43196f59fddb9584cfccf895500dd4b10bc85b52939c2cb3fef130b73dc4');
INSERT INTO ChangeTransactions VALUES(50,'DA1AACA1F60CD291403E25E1FD8DBF0B','root',1,1795450038.0,X'76a3914264e1a6bf92c282d9bc867ba7e5556ea163c858e9e6f42f163952202c');
INSERT INTO ChangeTransactions VALUES(51,'D9C0B49E5B2994602083CB2BAFC71AFE','root',1,1795450038.0,X'53e3aa4fa00cb0fb1419c50fbfea2304fcf04aca70abe9a9f55945d471931d4d');
INSERT INTO ChangeTransactions VALUES(52,'271D7371D872865081A373D8214A8ED3','root',1,1795450038.0,X'ae5244a6d30bf2a7ff6488c1a52845ae295fa49ac7d739a462c84e5146cd4ee5');
INSERT INTO ChangeTransactions VALUES(53,'33035EE31C5786C1333F7B99FD78E7A7','root',1,1795450038.0,X'd5a8d188388903e9a012a2a46dac4b37102eb2b22d0022838785cd25702a0078');
INSERT INTO ChangeTransactions VALUES(54,'2F4719BD0E84222D42D7B1B444622D41','root',1,1795450038.0,X'0a603435671cd61e570146dc96e74665d3dc2e59b17c7c78518a4ca78149f6ff');
INSERT INTO ChangeTransactions VALUES(55,'89C814CC150332F832B4C0F5526FF9EB','root',1,1795450038.0,X'3c8c142ad6db093ddb415a2e9b0fcf87755bfe3d770556c1d298af09018a2989');
INSERT INTO ChangeTransactions VALUES(56,'18715BB0BEF59EC22157D796B1B70938','root',1,1795450038.0,X'1d00dca44f00cb52aaa6dadfae32e75f7570d23f7c75993b8fa9965a4069fb9d');
INSERT INTO ChangeTransactions VALUES(57,'F3932D667A0CD08AD7CC660673A37CB4','root',1,1795450038.0,X'0995a82cfecff6b8b21d14bf67e5fea968aaeef00bb41dd1f87bb234611b1416');
INSERT INTO ChangeTransactions VALUES(58,'17AEC65C076BCD7B1143732E7FC56B99','root',1,1795450038.0,X'cbf1c704c41ba2c57b122b16fcaca120bc25d566e70859740496336562582425');
INSERT INTO ChangeTransactions VALUES(59,'3B106370735F18BFB7C1937AD3DEF583','root',1,1795450038.0,X'44f4b88bf69056efa537fa4fa5399b2fdc701a5a76f46f37fada797587587ef1');
INSERT INTO ChangeTransactions VALUES(60,'0FDCF00BF6ED557CD63494CADA8394B7','root',1,1795450038.0,X'7339d8723e1c656f8cac9a6bfeddb3721d6285de868e54e440a674ceb047bd15');
INSERT INTO ChangeTransactions VALUES(61,'1546301682C09A02AAF86A74306C882F','root',1,1795450038.0,X'310183e1a9cfd513a3fb4ad1c0a103a299e6e49789176f6dc5f6fcdd288a4beb');
INSERT INTO ChangeTransactions VALUES(62,'174BCD8F8D2CA389979BF5C2D6AB6C82','root',1,1795450038.0,X'a7207ed80d504086a61ccf74df64d1c53a7c2bcf489aacb3add28648a7c94c7a');
INSERT INTO ChangeTransactions VALUES(63,'6C0197B35780B8B279915EC3344EE36F','root',1,1795450038.0,X'2179fc432e90cd23b914ddf69187403f619799f18a4b5abdad67a2078f016bc9');
INSERT INTO ChangeTransactions VALUES(64,'59091DEDC55EB21EA62EE07AEC0E8B46','root',1,1795450038.0,X'0a61698cae125bb9445d8e401235528d0158846ff48c4ff93e1162e0aff33a35');
INSERT INTO ChangeTransactions VALUES(65,'29C3E82120E46632493E9B01424D54FA','root',1,1795450038.0,X'604c2a0108db3785b1fa2f4feda2c31257502d4973abace13a77f3f822271433');
INSERT INTO ChangeTransactions VALUES(66,'5134D5F30933DABA5C1BB63E87E64EEB','root',1,1795450038.0,X'43d0265d7e2f29171bbb9f772bca54a7e3c3135c76d7e6b2f7d2b2051bee1b8f');
INSERT INTO ChangeTransactions VALUES(67,'ADA17764CD38789F10082ADF097ADCD6','root',1,1795450038.0,X'b68fde01e9eee29c12f8c314ec55722dca0e6645c203decbc3d2d45556d4941f');
INSERT INTO ChangeTransactions VALUES(68,'5E86084BE9312A770E872E300CCAF146','root',1,1795450038.0,X'7a7aa3178c24912c81a69fbce3fc49b526361d8171b95306978a357dbd15cbf6');
INSERT INTO ChangeTransactions VALUES(69,'FBFAF30DCB0E65697621EAE938DF1A78','root',1,1795450038.0,X'8cab910410e5189b6a47328920bbef3365773c495bf8a3647f7ad9ca36773233');
INSERT INTO ChangeTransactions VALUES(70,'09F27BBE2AB27E8EDA1C9B6FA1A10467','root',1,1795450038.0,X'40b3002abd05e4ae7510fa59cd2e79ebcddcf7315cc55d331f79a42ae7853c0b');
INSERT INTO ChangeTransactions VALUES(71,'43C0D88FC7CE4157B654010230C1764E','root',1,1795450038.0,X'b477779b2d1ff6a3d5dde1100b1d31517aceb7dbd9fdf5da9fd76ec881e2e870');
INSERT INTO ChangeTransactions VALUES(72,'2EE1BF1974340E2AEF4925027893477A','root',1,1795450038.0,X'fbdbe87505b0278768fe43e66e18c2aceba7278ee95720b9ec251a35ae4486a5');
INSERT INTO ChangeTransactions VALUES(73,'608F04B22DEC118E51FFEE7744500B41','root',1,1795450038.0,X'f312b4f0a07ac07d033a2e4f3e0c65613db81d72831e4177dceb1ec60d4b9315');
INSERT INTO ChangeTransactions VALUES(74,'052BE07AC926D6D00F0474EC32438B65','root',1,1795450038.0,X'2b90df849cfd5b13ae222c70a9e8b0987a621bf49c0e8221ae112f974b55fe30');
CREATE TABLE ChangeLog (
    entry INTEGER PRIMARY KEY,
    number INTEGER NOT NULL,
    tableName TEXT NOT NULL,
    rowKey TEXT NOT NULL,
    event INTEGER NOT NULL,
    oldRow TEXT,
    newRow TEXT
) STRICT;
INSERT INTO ChangeLog VALUES(1,1,'StoreProperties','codec',601,NULL,'["codec","Windows-1251"]');
INSERT INTO ChangeLog VALUES(2,1,'StoreProperties','timeZone',601,NULL,'["timeZone","Europe/Moscow"]');
INSERT INTO ChangeLog VALUES(3,1,'StoreProperties','epoch',601,NULL,'["epoch","484C732F425B61ABD145B956B509C1CE"]');
INSERT INTO ChangeLog VALUES(4,1,'StoreProperties','signatures',601,NULL,'["signatures","1"]');
INSERT INTO ChangeLog VALUES(5,2,'OrgTypes','TYPE_CENTER',601,NULL,'["TYPE_CENTER","Диспетчерский центр"]');
INSERT INTO ChangeLog VALUES(6,3,'OrgTypes','TYPE_NETS',601,NULL,'["TYPE_NETS","Электросетевая организация"]');
INSERT INTO ChangeLog VALUES(7,4,'Organizations','ORG_CENTER',601,NULL,'["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]');
INSERT INTO ChangeLog VALUES(8,5,'Organizations','ORG_NETS',601,NULL,'["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]');
INSERT INTO ChangeLog VALUES(9,6,'Departments','DEP_ODS',601,NULL,'["DEP_ODS","ORG_CENTER",null,"ОДС"]');
INSERT INTO ChangeLog VALUES(10,7,'Departments','DEP_CDS',601,NULL,'["DEP_CDS","ORG_NETS",null,"ЦДС"]');
INSERT INTO ChangeLog VALUES(11,8,'Departments','DEP_ZAR',601,NULL,'["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]');
INSERT INTO ChangeLog VALUES(12,9,'Users','USER_IVANOV',601,NULL,'["USER_IVANOV","ivanov","Иванов Иван Иванович",0]');
INSERT INTO ChangeLog VALUES(13,10,'Users','USER_PETROV',601,NULL,'["USER_PETROV","petrov","Петров Пётр Петрович",0]');
INSERT INTO ChangeLog VALUES(14,11,'Users','USER_SIDOROVA',601,NULL,'["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]');
INSERT INTO ChangeLog VALUES(15,12,'Users','USER_SMIRNOV',601,NULL,'["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]');
INSERT INTO ChangeLog VALUES(16,13,'Users','USER_KUZNETSOV',601,NULL,'["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]');
INSERT INTO ChangeLog VALUES(17,14,'Users','USER_VIEWER',601,NULL,'["USER_VIEWER","viewer","Наблюдатель",0]');
INSERT INTO ChangeLog VALUES(18,15,'UserRights','RIGHT_SIDOROVA',601,NULL,'["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]');
INSERT INTO ChangeLog VALUES(19,16,'UserRights','RIGHT_SMIRNOV',601,NULL,'["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]');
INSERT INTO ChangeLog VALUES(20,17,'Workers','WORKER_IVANOV',601,NULL,'["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]');
INSERT INTO ChangeLog VALUES(21,18,'Workers','WORKER_PETROV',601,NULL,'["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]');
INSERT INTO ChangeLog VALUES(22,19,'Workers','WORKER_SIDOROVA',601,NULL,'["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]');
INSERT INTO ChangeLog VALUES(23,20,'Workers','WORKER_SMIRNOV_ZAR',601,NULL,'["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(24,21,'Workers','WORKER_SMIRNOV_ODS',601,NULL,'["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(25,22,'Workers','WORKER_KUZNETSOV',601,NULL,'["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]');
INSERT INTO ChangeLog VALUES(26,23,'Roles','ROLE_CDS_SENIOR',601,NULL,'["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]');
INSERT INTO ChangeLog VALUES(27,24,'Roles','ROLE_CDS_DISPATCHER',601,NULL,'["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]');
INSERT INTO ChangeLog VALUES(28,25,'Roles','ROLE_ZAR',601,NULL,'["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]');
INSERT INTO ChangeLog VALUES(29,26,'WorkerRoles','WROLE_IVANOV_1',601,NULL,'["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(30,27,'WorkerRoles','WROLE_IVANOV_2',601,NULL,'["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(31,28,'WorkerRoles','WROLE_PETROV',601,NULL,'["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]');
INSERT INTO ChangeLog VALUES(32,29,'WorkerRoles','WROLE_SMIRNOV',601,NULL,'["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]');
INSERT INTO ChangeLog VALUES(33,30,'Shifts','TIMETABLE_CDS_DAY',601,NULL,'["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(34,31,'Shifts','TIMETABLE_CDS_NIGHT',601,NULL,'["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]');
INSERT INTO ChangeLog VALUES(35,32,'Shifts','TIMETABLE_ZAR_DAY',601,NULL,'["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(36,33,'LogbookCatsTemplate','CAT_COMMON',601,NULL,'["CAT_COMMON",null,null,null,"Оперативная смена"]');
INSERT INTO ChangeLog VALUES(37,34,'LogbookCatsTemplate','CAT_COMMON_SUB',601,NULL,'["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]');
INSERT INTO ChangeLog VALUES(38,35,'LogbookCatsTemplate','CAT_NETS',601,NULL,'["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]');
INSERT INTO ChangeLog VALUES(39,36,'LogbookCatsTemplate','CAT_CDS',601,NULL,'["CAT_CDS",null,null,"DEP_CDS","Погода"]');
INSERT INTO ChangeLog VALUES(40,37,'LogbookCatsTemplate','CAT_ZAR',601,NULL,'["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]');
INSERT INTO ChangeLog VALUES(41,38,'LogbookTemplates','TPL_OPEN',601,NULL,'["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Диспетчер</a> <a href=\"parameter:name=interval;locname=Период%20смены\">Период смены</a>."]');
INSERT INTO ChangeLog VALUES(42,39,'LogbookTemplates','TPL_CLOSE',601,NULL,'["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\"template\" content=\"close_wshift\">Смену сдал <a href=\"parameter:name=employee_fio;locname=Сдал\">Сдал</a>."]');
INSERT INTO ChangeLog VALUES(43,40,'LogbookTemplates','TPL_ORDER',601,NULL,'["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">Оборудование</a>."]');
INSERT INTO ChangeLog VALUES(44,41,'LogbookTemplates','TPL_TRIP',601,NULL,'["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">Линия</a> на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a>."]');
INSERT INTO ChangeLog VALUES(45,42,'LogbookTemplates','TPL_TEXT',601,NULL,'["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]');
INSERT INTO ChangeLog VALUES(46,43,'TemplateParamCategories','PARCAT_MAIN',601,NULL,'["PARCAT_MAIN",null,"Общие параметры"]');
INSERT INTO ChangeLog VALUES(47,44,'TemplateParams','PAR_TEXT',601,NULL,'["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\"parameter:name=text;locname=Текст\">Текст</a>"]');
INSERT INTO ChangeLog VALUES(48,45,'TemplateParams','PAR_LIST',601,NULL,'["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\">Состояние связи</a>"]');
INSERT INTO ChangeLog VALUES(49,46,'Equipment','EQ_SUBSTATION',601,NULL,'["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]');
INSERT INTO ChangeLog VALUES(50,47,'Equipment','EQ_BAY',601,NULL,'["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]');
INSERT INTO ChangeLog VALUES(51,48,'Equipment','EQ_LINE',601,NULL,'["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]');
INSERT INTO ChangeLog VALUES(52,49,'LogbookWorkshifts','SHIFT_CDS_PAST',601,NULL,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795342038,1795342038,1795428438]');
INSERT INTO ChangeLog VALUES(53,50,'LogbookWorkshifts','SHIFT_CDS_OPEN',601,NULL,'["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795428438,1795428438,1795514838]');
INSERT INTO ChangeLog VALUES(54,51,'LogbookWorkshifts','SHIFT_ZAR_OPEN',601,NULL,'["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795442838,1795442838,1795486038]');
INSERT INTO ChangeLog VALUES(55,52,'LogbookWorkshifts','SHIFT_CDS_PAST',602,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795342038,1795342038,1795428438]','["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795342038,1795342038,1795428438]');
INSERT INTO ChangeLog VALUES(56,53,'LogbookWorkersWorkshift','CREW_CDS_1',601,NULL,'["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(57,54,'LogbookWorkersWorkshift','CREW_CDS_2',601,NULL,'["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]');
INSERT INTO ChangeLog VALUES(58,55,'LogbookWorkersWorkshift','CREW_ZAR_1',601,NULL,'["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]');
INSERT INTO ChangeLog VALUES(59,56,'LogbookWorkersWorkshift','CREW_PAST_1',601,NULL,'["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(60,57,'LogbookWorkersWorkshift','CREW_PAST_2',601,NULL,'["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]');
INSERT INTO ChangeLog VALUES(61,58,'LogbookWorkersWorkshift','CREW_PAST_3',601,NULL,'["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]');
INSERT INTO ChangeLog VALUES(62,59,'LogbookRecords','REC_PAST_1',601,NULL,'["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795348038,1795348038,null,null,null,"Принята сводка погоды.",0,null]');
INSERT INTO ChangeLog VALUES(63,60,'LogbookRecords','REC_PAST_2',601,NULL,'["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795396038,1795396038,null,null,null,"Проверена связь с подстанциями.",0,null]');
INSERT INTO ChangeLog VALUES(64,61,'LogbookRecords','REC_OPENING',601,NULL,'["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795428438,1795428438,null,null,null,"<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Иванов И.И. гр.V</a> <a href=\"parameter:name=interval;locname=Период%20смены\">с 20:00 по 08:00</a>.",0,null]');
INSERT INTO ChangeLog VALUES(65,62,'LogbookRecords','REC_MESSAGE',601,NULL,'["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795432038,1795432038,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]');
INSERT INTO ChangeLog VALUES(66,63,'LogbookRecords','REC_REPLACED',601,NULL,'["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795435638,1795435638,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]');
INSERT INTO ChangeLog VALUES(67,64,'LogbookRecords','REC_SUCCESSOR',601,NULL,'["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795435638,1795435638,null,null,1795436238,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(68,65,'LogbookRecords','REC_ORDER',601,NULL,'["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795439238,1795439238,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 35 кВ Ольховка</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ф. 7</a>.",0,null]');
INSERT INTO ChangeLog VALUES(69,66,'LogbookRecords','REC_TRIP',601,NULL,'["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795442838,1795442838,1795442778,null,null,"<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(70,67,'LogbookRecords','REC_DRAFT_IVANOV',601,NULL,'["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795446438,1795446438,null,null,null,"Черновик: осмотр оборудования.",1,null]');
INSERT INTO ChangeLog VALUES(71,68,'LogbookRecords','REC_DRAFT_PETROV',601,NULL,'["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795448238,1795448238,null,null,null,"Черновик: доклад бригады.",1,null]');
INSERT INTO ChangeLog VALUES(72,69,'LogbookRecords','REC_ZAR',601,NULL,'["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795444038,1795444038,null,null,null,"Схема сверена по щиту.",0,null]');
INSERT INTO ChangeLog VALUES(73,70,'LogbookComments','COM_UNREAD',601,NULL,'["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795429038,"Уточните период смены.",0]');
INSERT INTO ChangeLog VALUES(74,71,'LogbookComments','COM_READ',601,NULL,'["COM_READ","WORKER_IVANOV","REC_ORDER",1795439838,"Исполнение доложить до конца смены.",1795440438]');
INSERT INTO ChangeLog VALUES(75,72,'LogbookComments','COM_PAST',601,NULL,'["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795402038,"Приложите сводку к записи.",0]');
INSERT INTO ChangeLog VALUES(76,73,'LogbookFiles','FILE_TEXT',601,NULL,'["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]');
INSERT INTO ChangeLog VALUES(77,74,'LogbookFiles','FILE_IMAGE',601,NULL,'["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]');
CREATE TABLE CurrentTransaction (
    number INTEGER PRIMARY KEY,
    login TEXT NOT NULL,
    userKey TEXT NOT NULL,
    loader INTEGER NOT NULL
) STRICT;
CREATE TABLE RecordSearch (
    number INTEGER PRIMARY KEY,
    recordKey TEXT NOT NULL UNIQUE,
    words TEXT NOT NULL,
    equipment TEXT NOT NULL,
    marks TEXT NOT NULL -- of every record, of its department, author and status, as words
) STRICT;
INSERT INTO RecordSearch VALUES(117659929018368,'REC_PAST_1','принят сводк погод','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117663074746368,'REC_PAST_2','провер связ с подстанц','','record d4445505F434453 a574F524B45525F4B555A4E4554534F56 s0');
INSERT INTO RecordSearch VALUES(117665198112768,'REC_OPENING','смен приня иван и гр v с 20 00 по 08','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117665434042368,'REC_MESSAGE','запрош состоян нагрузк','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117665669971968,'REC_REPLACED','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s2');
INSERT INTO RecordSearch VALUES(117665669971969,'REC_SUCCESSOR','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117665905901568,'REC_ORDER','отда команд на пс 35 кв ольховк отключ ф 7','пс 35 кв ольховк','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117666141831168,'REC_TRIP','отключ вл 110 кв полев заречн на пс','вл 110 кв полев заречн пс','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117666220474368,'REC_ZAR','схем свер по щит','','record d4445505F5A4152 a574F524B45525F534D49524E4F565F5A4152 s0');
INSERT INTO RecordSearch VALUES(117666377760768,'REC_DRAFT_IVANOV','черновик осмотр оборудован','','record d4445505F434453 a574F524B45525F4956414E4F56 s1');
INSERT INTO RecordSearch VALUES(117666495725568,'REC_DRAFT_PETROV','черновик доклад бригад','','record d4445505F434453 a574F524B45525F504554524F56 s1');
PRAGMA writable_schema=ON;
INSERT INTO sqlite_schema(type,name,tbl_name,rootpage,sql)VALUES('table','RecordWords','RecordWords',0,'CREATE VIRTUAL TABLE RecordWords USING fts5 (
    words, equipment, marks,
    content = ''RecordSearch'', content_rowid = ''number'', detail = ''column'', columnsize = 0,
    tokenize = ''unicode61 remove_diacritics 0''
)');
CREATE TABLE IF NOT EXISTS 'RecordWords_data'(id INTEGER PRIMARY KEY, block BLOB);
INSERT INTO RecordWords_data VALUES(1,X'0b47122c');
INSERT INTO RecordWords_data VALUES(10,X'00000000010b0b000b0101010201010301010401010501010601010701010801010901010a01010b0101');
INSERT INTO RecordWords_data VALUES(137438953473,X'000000a11c306135373466353234623435353235663439353634313465346635369ae0adb29880000204010f6434343435353035663433343435339ae0adb2988000020401067265636f72649ae0adb29880000204010273309ae0adb29880000204010ad0bfd0bed0b3d0bed0b49ae0adb29880000202030ad180d0b8d0bdd18fd1829ae0adb29880000202010ad181d0b2d0bed0b4d0ba9ae0adb2988000020204261a110d1515');
INSERT INTO RecordWords_data VALUES(274877906945,X'000000b622306135373466353234623435353235663462353535613465343535343533346635369ae0b98e9880000204010f6434343435353035663433343435339ae0b98e988000020401067265636f72649ae0b98e9880000204010273309ae0b98e98800002040110d0bfd0bed0b4d181d182d0b0d0bdd1869ae0b98e9880000202030ad180d0bed0b2d0b5d1809ae0b98e98800002020102d1819ae0b98e98800002020306d0b2d18fd0b79ae0b98e9880000202042c1a110d1b150d');
INSERT INTO RecordWords_data VALUES(412316860417,X'000000ff033030309ae0c182d8800002020201389ae0c182d880000202010232309ae0c182d880000202011b6135373466353234623435353235663439353634313465346635369ae0c182d880000204010f6434343435353035663433343435339ae0c182d88000020401067265636f72649ae0c182d880000204010273309ae0c182d8800002040101769ae0c182d8800002020104d0b3d1809ae0c182d8800002020201b89ae0c182d8800002020306d0b2d0b0d0bd9ae0c182d8800002020203bfd0be9ae0c182d8800002020308d180d0b8d0bdd18f9ae0c182d8800002020102d1819ae0c182d8800002020306d0bcd0b5d0bd9ae0c182d880000202040d0c0d261a110d0c0f0c110e130d');
INSERT INTO RecordWords_data VALUES(549755813889,X'000000aa1c306135373466353234623435353235663439353634313465346635369ae0c1f39880000204010f6434343435353035663433343435339ae0c1f3988000020401067265636f72649ae0c1f39880000204010273309ae0c1f39880000204010cd0b7d0b0d0bfd180d0bed1889ae0c1f39880000202020dbdd0b0d0b3d180d183d0b7d0ba9ae0c1f39880000202010ed181d0bed181d182d0bed18fd0bd9ae0c1f3988000020204261a110d1718');
INSERT INTO RecordWords_data VALUES(687194767361,X'0000012204303131309ae0c2e3d88000040203011b6135373466353234623435353235663439353634313465346635369ae0c2e3d880000204010f6434343435353035663433343435339ae0c2e3d88000020401067265636f72649ae0c2e3d880000204010273329ae0c2e3d8800002040104d0b2d0bb9ae0c2e3d880000202020bb7d0b0d180d0b5d187d0bd9ae0c2e3d8800002020203bad0b29ae0c2e3d880000402030409bed0bcd0b0d0bdd0b49ae0c2e3d8800002020209bbd183d0b3d0bed0b29ae0c2e3d880000402030203bdd0b09ae0c2e3d8800002020207bed182d0b4d0b09ae0c2e3d8800002020607bad0bbd18ed1879ae0c2e3d8800002020209bfd0bed0bbd0b5d0b29ae0c2e3d8800002020302d1819ae0c2e3d88000040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(824633720833,X'0000012204303131309ae0c2e3d88001040203011b6135373466353234623435353235663439353634313465346635369ae0c2e3d880010204010f6434343435353035663433343435339ae0c2e3d88001020401067265636f72649ae0c2e3d880010204010273309ae0c2e3d8800102040104d0b2d0bb9ae0c2e3d880010202020bb7d0b0d180d0b5d187d0bd9ae0c2e3d8800102020203bad0b29ae0c2e3d880010402030409bed0bcd0b0d0bdd0b49ae0c2e3d8800102020209bbd183d0b3d0bed0b29ae0c2e3d880010402030203bdd0b09ae0c2e3d8800102020207bed182d0b4d0b09ae0c2e3d8800102020607bad0bbd18ed1879ae0c2e3d8800102020209bfd0bed0bbd0b5d0b29ae0c2e3d8800102020302d1819ae0c2e3d88001040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(962072674305,X'00000106033033359ae0c3d49880000402030101379ae0c3d49880000202011b6135373466353234623435353235663530343535343532346635369ae0c3d49880000204010f6434343435353035663433343435339ae0c3d4988000020401067265636f72649ae0c3d49880000204010273309ae0c3d498800002040104d0bad0b29ae0c3d49880000402030409bed0bcd0b0d0bdd0b49ae0c3d498800002020203bdd0b09ae0c3d49880000202020dbed0bbd18cd185d0bed0b2d0ba9ae0c3d49880000402030306d182d0b4d0b09ae0c3d498800002020607bad0bbd18ed1879ae0c3d498800002020203bfd1819ae0c3d49880000402030102d1849ae0c3d49880000202040e0c261a110d10140e1911120f');
INSERT INTO RecordWords_data VALUES(1099511627777,X'000000ee04303131309ae0c4c4d88000040203011b6135373466353234623435353235663530343535343532346635369ae0c4c4d880000204010f6434343435353035663433343435339ae0c4c4d88000020401067265636f72649ae0c4c4d880000204010273309ae0c4c4d8800002040104d0b2d0bb9ae0c4c4d88000040203020bb7d0b0d180d0b5d187d0bd9ae0c4c4d880000402030203bad0b29ae0c4c4d880000402030203bdd0b09ae0c4c4d880000202020bbed182d0bad0bbd18ed1879ae0c4c4d8800002020209bfd0bed0bbd0b5d0b29ae0c4c4d880000402030302d1819ae0c4c4d88000040203040f261a110d10170f0e1615');
INSERT INTO RecordWords_data VALUES(1236950581249,X'000000b11c306135373466353234623435353235663439353634313465346635369ae0c5b59880000204010f6434343435353035663433343435339ae0c5b5988000020401067265636f72649ae0c5b59880000204010273319ae0c5b598800002040114d0bed0b1d0bed180d183d0b4d0bed0b2d0b0d0bd9ae0c5b59880000202030ad181d0bcd0bed182d1809ae0c5b598800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0c5b5988000020204261a110d1f15');
INSERT INTO RecordWords_data VALUES(1374389534721,X'000000aa1c306135373466353234623435353235663530343535343532346635369ae0c5edb880000204010f6434343435353035663433343435339ae0c5edb88000020401067265636f72649ae0c5edb880000204010273319ae0c5edb880000204010cd0b1d180d0b8d0b3d0b0d0b49ae0c5edb880000202020bb4d0bed0bad0bbd0b0d0b49ae0c5edb8800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0c5edb88000020204261a110d1716');
INSERT INTO RecordWords_data VALUES(1511828488193,X'000000af2630613537346635323462343535323566353334643439353234653466353635663561343135329ae0c4ea9880000204010f6434343435353035663561343135329ae0c4ea988000020401067265636f72649ae0c4ea9880000204010273309ae0c4ea98800002040104d0bfd0be9ae0c4ea98800002020108d181d0b2d0b5d1809ae0c4ea98800002020306d185d0b5d0bc9ae0c4ea9880000202020589d0b8d1829ae0c4ea988000020204301a110d0f1311');
CREATE TABLE IF NOT EXISTS 'RecordWords_idx'(segid, term, pgno, PRIMARY KEY(segid, term)) WITHOUT ROWID;
INSERT INTO RecordWords_idx VALUES(1,X'',2);
INSERT INTO RecordWords_idx VALUES(2,X'',2);
INSERT INTO RecordWords_idx VALUES(3,X'',2);
INSERT INTO RecordWords_idx VALUES(4,X'',2);
INSERT INTO RecordWords_idx VALUES(5,X'',2);
INSERT INTO RecordWords_idx VALUES(6,X'',2);
INSERT INTO RecordWords_idx VALUES(7,X'',2);
INSERT INTO RecordWords_idx VALUES(8,X'',2);
INSERT INTO RecordWords_idx VALUES(9,X'',2);
INSERT INTO RecordWords_idx VALUES(10,X'',2);
INSERT INTO RecordWords_idx VALUES(11,X'',2);
CREATE TABLE IF NOT EXISTS 'RecordWords_config'(k PRIMARY KEY, v) WITHOUT ROWID;
INSERT INTO RecordWords_config VALUES('version',4);
CREATE TABLE LogMark (
    id INTEGER PRIMARY KEY CHECK (id = 1),
    former BLOB NOT NULL,
    present BLOB NOT NULL
) STRICT;
INSERT INTO LogMark VALUES(1,X'f312b4f0a07ac07d033a2e4f3e0c65613db81d72831e4177dceb1ec60d4b9315',X'2b90df849cfd5b13ae222c70a9e8b0987a621bf49c0e8221ae112f974b55fe30');
CREATE TABLE LogTiles (
    level INTEGER NOT NULL,
    place INTEGER NOT NULL,
    hashes BLOB NOT NULL,
    UNIQUE (level, place)
) STRICT;
CREATE TABLE LogHeads (
    size INTEGER PRIMARY KEY,
    note TEXT NOT NULL
) STRICT;
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
CREATE TABLE LogStamps (
    size INTEGER PRIMARY KEY,
    response BLOB NOT NULL
) STRICT;
CREATE INDEX LogbookWorkshifts_Department ON LogbookWorkshifts (DepartmentKey, startTime DESC);
CREATE INDEX LogbookWorkshifts_Open ON LogbookWorkshifts (DepartmentKey, CloseWorkerKey);
CREATE INDEX LogbookWorkshifts_Opener ON LogbookWorkshifts (OpenWorkerKey);
CREATE INDEX LogbookWorkersWorkshift_Workshift ON LogbookWorkersWorkshift (WorkshiftKey);
CREATE INDEX LogbookWorkersWorkshift_Worker ON LogbookWorkersWorkshift (WorkerKey);
CREATE INDEX LogbookRecords_Shift ON LogbookRecords (ShiftKey, recordTime);
CREATE INDEX LogbookRecords_Time ON LogbookRecords (recordTime);
CREATE INDEX LogbookRecords_Worker ON LogbookRecords (WorkerKey);
CREATE INDEX LogbookRecords_Origin ON LogbookRecords (OriginRecordKey) WHERE OriginRecordKey IS NOT NULL;
CREATE INDEX LogbookComments_Record ON LogbookComments (RecordKey);
CREATE INDEX LogbookComments_Unread ON LogbookComments (readedTime) WHERE readedTime = 0;
CREATE INDEX LogbookFiles_Record ON LogbookFiles (RecordKey);
CREATE INDEX LogbookTemplates_Category ON LogbookTemplates (CategoryKey);
CREATE INDEX LogbookCatsTemplate_Parent ON LogbookCatsTemplate (ParentKey);
CREATE UNIQUE INDEX UserRights_User ON UserRights (UserKey, rightName);
CREATE INDEX Workers_User ON Workers (UserKey);
CREATE INDEX Workers_Department ON Workers (DepartmentKey);
CREATE INDEX Shifts_Department ON Shifts (DepartmentKey);
CREATE INDEX Roles_Department ON Roles (DepartmentKey);
CREATE INDEX WorkerRoles_Role ON WorkerRoles (RoleKey);
CREATE INDEX TemplateParams_Category ON TemplateParams (CategoryKey);
CREATE INDEX Equipment_Parent ON Equipment (ParentKey);
CREATE INDEX ChangeLog_Number ON ChangeLog (number);
CREATE INDEX ChangeLog_Row ON ChangeLog (rowKey);
CREATE TRIGGER Log_noUpdate BEFORE UPDATE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Log_noDelete BEFORE DELETE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noUpdate BEFORE UPDATE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noDelete BEFORE DELETE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Signatures_noUpdate BEFORE UPDATE ON LogSignatures
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Signatures_noDelete BEFORE DELETE ON LogSignatures
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE VIEW CurrentPerson AS
    SELECT Workers.KeyLink, Workers.DepartmentKey, coalesce(Workers.deleted_, 0) AS removed
    FROM CurrentTransaction JOIN Workers ON Workers.UserKey = CurrentTransaction.userKey
    WHERE CurrentTransaction.userKey <> '';
CREATE VIEW CurrentWorkers AS SELECT KeyLink, DepartmentKey FROM CurrentPerson WHERE removed = 0;
CREATE VIEW CurrentRights AS
    SELECT UserRights.rightName
    FROM CurrentTransaction JOIN UserRights ON UserRights.UserKey = CurrentTransaction.userKey;
CREATE VIEW CurrentOpenWorkshifts AS
    SELECT W.KeyLink
    FROM LogbookWorkshifts AS W
    WHERE coalesce(W.CloseWorkerKey, '') = ''
      AND (W.OpenWorkerKey IN (SELECT KeyLink FROM CurrentWorkers)
           OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift AS C
                      WHERE C.WorkshiftKey = W.KeyLink AND C.opening = 1
                        AND C.WorkerKey IN (SELECT KeyLink FROM CurrentWorkers)));
CREATE VIEW LongestShift AS
    SELECT coalesce((SELECT CAST(value AS integer) FROM StoreProperties WHERE name = 'longestShift'), 172800) AS seconds;
CREATE TRIGGER Rule_Workshifts_insert BEFORE INSERT ON LogbookWorkshifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Смену открывают от своего имени и в своём подразделении.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentWorkers
                      WHERE KeyLink = NEW.OpenWorkerKey AND DepartmentKey = NEW.DepartmentKey);
    SELECT RAISE(ABORT, 'Новая смена должна быть открытой.') WHERE coalesce(NEW.CloseWorkerKey, '') <> '';
    SELECT RAISE(ABORT, 'Смена не может начаться раньше окончания предыдущей смены подразделения.')
    WHERE coalesce(NEW.startTime, 0) < coalesce((SELECT endTime FROM LogbookWorkshifts
                                                 WHERE DepartmentKey = NEW.DepartmentKey
                                                 ORDER BY startTime DESC NULLS LAST LIMIT 1), 0);
    -- Another shift could not begin before the end of this one, which may be years away by a slip of the hand.
    SELECT RAISE(ABORT, 'Смена длиннее, чем разрешено в этом журнале. Проверьте её начало и конец.')
    WHERE coalesce(NEW.endTime, 0) - coalesce(NEW.startTime, 0) > (SELECT seconds FROM LongestShift);
END
;
CREATE TRIGGER Rule_Workshifts_update BEFORE UPDATE ON LogbookWorkshifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'У смены меняется только отметка о её закрытии.')
    WHERE (NEW.DepartmentKey IS DISTINCT FROM OLD.DepartmentKey OR NEW.OpenWorkerKey IS DISTINCT FROM OLD.OpenWorkerKey OR NEW.createdAt IS DISTINCT FROM OLD.createdAt OR NEW.startTime IS DISTINCT FROM OLD.startTime OR NEW.endTime IS DISTINCT FROM OLD.endTime);
    SELECT RAISE(ABORT, 'Смена уже закрыта.')
    WHERE (NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey) AND coalesce(OLD.CloseWorkerKey, '') <> '';
    SELECT RAISE(ABORT, 'Смену закрывает от своего имени работник этой смены.')
    WHERE (NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey)
      AND (OLD.KeyLink NOT IN (SELECT KeyLink FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.KeyLink)
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
END;
CREATE TRIGGER Rule_Workshifts_delete BEFORE DELETE ON LogbookWorkshifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Удалить можно только свою открытую смену без записей.')
    WHERE coalesce(OLD.CloseWorkerKey, '') <> ''
       OR coalesce(OLD.OpenWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
       OR EXISTS (SELECT 1 FROM LogbookRecords WHERE ShiftKey = OLD.KeyLink);
END;
CREATE TRIGGER Rule_Crew_insert BEFORE INSERT ON LogbookWorkersWorkshift
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Состав открытой смены меняет только работник этой смены.')
    WHERE NEW.opening = 1
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.WorkshiftKey);
    SELECT RAISE(ABORT, 'Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(NEW.opening, 0) <> 1
      AND NOT EXISTS (SELECT 1 FROM LogbookWorkshifts
                      WHERE KeyLink = NEW.WorkshiftKey
                        AND CloseWorkerKey IN (SELECT KeyLink FROM CurrentWorkers));
END;
CREATE TRIGGER Rule_Crew_update BEFORE UPDATE ON LogbookWorkersWorkshift
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Строки состава смены не изменяются.')
    WHERE (NEW.WorkshiftKey IS DISTINCT FROM OLD.WorkshiftKey OR NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.opening IS DISTINCT FROM OLD.opening);
END;
CREATE TRIGGER Rule_Crew_delete BEFORE DELETE ON LogbookWorkersWorkshift
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Состав открытой смены меняет только работник этой смены.')
    WHERE OLD.opening = 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts WHERE KeyLink = OLD.WorkshiftKey)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.WorkshiftKey);
    SELECT RAISE(ABORT, 'Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(OLD.opening, 0) <> 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts
                  WHERE KeyLink = OLD.WorkshiftKey
                    AND coalesce(CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
END;
CREATE TRIGGER Rule_Records_insert BEFORE INSERT ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Новая запись может быть только черновиком или утверждённой.')
    WHERE coalesce(NEW.status, -1) NOT IN (0, 1);
    SELECT RAISE(ABORT, 'Записи вносят работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.ShiftKey);
    -- Or, in a record that replaces another, the author of that one. Rule_Transactions_insert sees to the replacement.
    SELECT RAISE(ABORT, 'Автором записи может быть только тот, кто её вносит.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND (NEW.status <> 0
           OR NOT EXISTS (SELECT 1 FROM LogbookRecords AS R
                          WHERE R.KeyLink = NEW.OriginRecordKey AND R.status <> 1
                            AND (R.ShiftKey, R.WorkerKey, R.ReceiverWorkerKey, R.SecondMarkWorkerKey, R.recordTime,
                                 R.eventTime, R.firstMarkTime, R.secondMarkTime, R.html, R.direction)
                                IS NOT DISTINCT FROM
                                (NEW.ShiftKey, NEW.WorkerKey, NEW.ReceiverWorkerKey, NEW.SecondMarkWorkerKey,
                                 NEW.recordTime, NEW.eventTime, NEW.firstMarkTime, NEW.secondMarkTime, NEW.html,
                                 NEW.direction)));
    SELECT RAISE(ABORT, 'Новая запись не может нести визу.') WHERE coalesce(NEW.VisaWorkerKey, '') <> '';
END
;
CREATE VIEW ForeignRecords AS
    SELECT L.number, R.KeyLink, R.OriginRecordKey
    FROM ChangeLog AS L JOIN LogbookRecords AS R ON R.KeyLink = L.rowKey
    WHERE L.tableName = 'LogbookRecords' AND L.event = 601
      AND coalesce(R.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
CREATE TRIGGER Rule_Transactions_insert BEFORE INSERT ON ChangeTransactions
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Автором записи может быть только тот, кто её вносит.')
    WHERE EXISTS (SELECT 1 FROM ForeignRecords AS F
                  WHERE F.number = NEW.number
                    AND NOT EXISTS (SELECT 1 FROM ChangeLog AS L
                                    WHERE L.number = NEW.number AND L.tableName = 'LogbookRecords' AND L.event = 602
                                      AND L.rowKey = F.OriginRecordKey
                                      AND (L.oldRow ->> 13) = 0
                                      AND (L.newRow ->> 13) = 2));
    SELECT RAISE(ABORT, 'Запись заменяется одной новой.')
    WHERE EXISTS (SELECT 1 FROM ForeignRecords WHERE number = NEW.number
                  GROUP BY OriginRecordKey HAVING count(*) > 1);
END;
CREATE TRIGGER Rule_Records_secondMark BEFORE UPDATE OF SecondMarkWorkerKey, secondMarkTime ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Второй маркер ставят от своего имени.')
    WHERE (NEW.SecondMarkWorkerKey IS DISTINCT FROM OLD.SecondMarkWorkerKey OR NEW.secondMarkTime IS DISTINCT FROM OLD.secondMarkTime)
      AND (coalesce(NEW.SecondMarkWorkerKey, '') <> '' OR coalesce(NEW.secondMarkTime, 0) <> 0)
      AND coalesce(NEW.SecondMarkWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;
CREATE TRIGGER Rule_Records_visa BEFORE UPDATE OF VisaWorkerKey ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND ((NEW.VisaWorkerKey IS DISTINCT FROM OLD.VisaWorkerKey))
BEGIN
    SELECT RAISE(ABORT, 'Виза ставится только на утверждённую запись.')
    WHERE OLD.status IS DISTINCT FROM 0 OR NEW.status IS DISTINCT FROM 0;
    SELECT RAISE(ABORT, 'Визу ставят от своего имени.')
    WHERE coalesce(NEW.VisaWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    SELECT RAISE(ABORT, 'Автор не визирует свою запись.')
    WHERE coalesce(OLD.WorkerKey, '') = '' OR OLD.WorkerKey IN (SELECT KeyLink FROM CurrentPerson);
END;
CREATE TRIGGER Rule_Records_update BEFORE UPDATE ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Такая смена состояния записи недопустима.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status)
      AND NOT (coalesce(OLD.status, -1) = 1 AND coalesce(NEW.status, -1) = 0
               OR coalesce(OLD.status, -1) = 0 AND coalesce(NEW.status, -1) = 2);
    SELECT RAISE(ABORT, 'Автор, смена и первичная запись не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.ShiftKey IS DISTINCT FROM OLD.ShiftKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey);
    SELECT RAISE(ABORT, 'Утверждённая запись не изменяется.')
    WHERE OLD.status IS DISTINCT FROM 1
      AND ((NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
           OR (NEW.executionTime IS DISTINCT FROM OLD.executionTime)
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    SELECT RAISE(ABORT, 'Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status OR NEW.executionTime IS DISTINCT FROM OLD.executionTime OR NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
END;
CREATE TRIGGER Rule_Records_delete BEFORE DELETE ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Удалить можно только черновик.') WHERE OLD.status IS DISTINCT FROM 1;
    SELECT RAISE(ABORT, 'Черновики удаляют работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
END;
CREATE TRIGGER Rule_Comments_insert BEFORE INSERT ON LogbookComments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Комментарий пишут от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;
CREATE TRIGGER Rule_Comments_update BEFORE UPDATE ON LogbookComments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Автор комментария и его запись не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey);
    SELECT RAISE(ABORT, 'Комментарий изменяет только его автор.')
    WHERE (NEW.text_ IS DISTINCT FROM OLD.text_ OR NEW.commentTime IS DISTINCT FROM OLD.commentTime)
      AND coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;
CREATE TRIGGER Rule_Comments_delete BEFORE DELETE ON LogbookComments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Комментарий удаляет только его автор.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
END;
CREATE TRIGGER Rule_Files_insert BEFORE INSERT ON LogbookFiles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Файл прикрепляют от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;
CREATE TRIGGER Rule_Files_update BEFORE UPDATE ON LogbookFiles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Прикреплённый файл не изменяется.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey OR NEW.fileName IS DISTINCT FROM OLD.fileName OR NEW.fileData IS DISTINCT FROM OLD.fileData);
END;
CREATE TRIGGER Rule_Files_delete BEFORE DELETE ON LogbookFiles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Файл удаляет только тот, кто его прикрепил.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
END;
CREATE VIEW TemplateLevels AS
    WITH RECURSIVE levels (KeyLink, DepartmentKey) AS (
        SELECT KeyLink, DepartmentKey FROM LogbookCatsTemplate WHERE coalesce(ParentKey, '') = ''
        UNION
        SELECT C.KeyLink, levels.DepartmentKey
        FROM levels JOIN LogbookCatsTemplate AS C ON C.ParentKey = levels.KeyLink)
    SELECT KeyLink, DepartmentKey FROM levels;
CREATE VIEW CurrentTemplateDepartments AS
    SELECT DepartmentKey FROM CurrentWorkers
    WHERE EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR_OPERLOG_LOCAL');
CREATE TRIGGER Rule_Categories_insert BEFORE INSERT ON LogbookCatsTemplate
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Categories_update BEFORE UPDATE ON LogbookCatsTemplate
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Categories_delete BEFORE DELETE ON LogbookCatsTemplate
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_insert BEFORE INSERT ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_update BEFORE UPDATE ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_delete BEFORE DELETE ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Users_insert BEFORE INSERT ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Users_update BEFORE UPDATE ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Users_delete BEFORE DELETE ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_UserRights_insert BEFORE INSERT ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_UserRights_update BEFORE UPDATE ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_UserRights_delete BEFORE DELETE ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Workers_insert BEFORE INSERT ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Workers_update BEFORE UPDATE ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Workers_delete BEFORE DELETE ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Departments_insert BEFORE INSERT ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Departments_update BEFORE UPDATE ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Departments_delete BEFORE DELETE ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Organizations_insert BEFORE INSERT ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Organizations_update BEFORE UPDATE ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Organizations_delete BEFORE DELETE ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OrgTypes_insert BEFORE INSERT ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OrgTypes_update BEFORE UPDATE ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OrgTypes_delete BEFORE DELETE ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Shifts_insert BEFORE INSERT ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Shifts_update BEFORE UPDATE ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Shifts_delete BEFORE DELETE ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Roles_insert BEFORE INSERT ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Roles_update BEFORE UPDATE ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Roles_delete BEFORE DELETE ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_WorkerRoles_insert BEFORE INSERT ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_WorkerRoles_update BEFORE UPDATE ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_WorkerRoles_delete BEFORE DELETE ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Tables_insert BEFORE INSERT ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Tables_update BEFORE UPDATE ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Tables_delete BEFORE DELETE ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Fields_insert BEFORE INSERT ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Fields_update BEFORE UPDATE ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Fields_delete BEFORE DELETE ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_TemplateParamCategories_insert BEFORE INSERT ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_TemplateParamCategories_update BEFORE UPDATE ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_TemplateParamCategories_delete BEFORE DELETE ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_TemplateParams_insert BEFORE INSERT ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_TemplateParams_update BEFORE UPDATE ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_TemplateParams_delete BEFORE DELETE ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR'))
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.');
END;
CREATE TRIGGER Rule_Equipment_insert BEFORE INSERT ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Equipment_update BEFORE UPDATE ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_Equipment_delete BEFORE DELETE ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogCategories_insert BEFORE INSERT ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogCategories_update BEFORE UPDATE ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogCategories_delete BEFORE DELETE ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplates_insert BEFORE INSERT ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplates_update BEFORE UPDATE ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplates_delete BEFORE DELETE ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplateParams_insert BEFORE INSERT ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplateParams_update BEFORE UPDATE ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE TRIGGER Rule_OperLogTemplateParams_delete BEFORE DELETE ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.');
END;
CREATE VIEW SearchSource AS
    SELECT R.KeyLink AS recordKey,
           min(max(CAST(coalesce(R.recordTime, 0) AS INTEGER), 0), (1 << 42) - 1) AS second,
           vrk_words(R.html) AS words, vrk_equipment(R.html) AS equipment,
           'record d' || hex(coalesce(W.DepartmentKey, '')) || ' a' || hex(coalesce(R.WorkerKey, ''))
           || ' s' || coalesce(R.status, 0) AS marks
    FROM LogbookRecords AS R LEFT JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey;
CREATE VIEW SearchNumbers AS
    SELECT recordKey, CASE
        WHEN EXISTS (SELECT 1 FROM RecordSearch WHERE number = (second << 16) + 65535)
            THEN (SELECT min(min(number), 0) - 1 FROM RecordSearch)
        ELSE coalesce((SELECT max(number) + 1 FROM RecordSearch
                       WHERE number BETWEEN second << 16 AND (second << 16) + 65534), second << 16)
        END AS number, words, equipment, marks
    FROM SearchSource;
CREATE TRIGGER Search_Records_insert AFTER INSERT ON LogbookRecords
BEGIN
    INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)
    SELECT number, recordKey, words, equipment, marks FROM SearchNumbers WHERE recordKey = NEW.KeyLink;
END;
CREATE TRIGGER Search_Records_update AFTER UPDATE OF html, recordTime, ShiftKey, WorkerKey, status ON LogbookRecords
WHEN NEW.html IS NOT OLD.html OR NEW.recordTime IS NOT OLD.recordTime OR NEW.ShiftKey IS NOT OLD.ShiftKey
  OR NEW.WorkerKey IS NOT OLD.WorkerKey OR NEW.status IS NOT OLD.status
BEGIN
    DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
    INSERT INTO RecordSearch (number, recordKey, words, equipment, marks)
    SELECT number, recordKey, words, equipment, marks FROM SearchNumbers WHERE recordKey = NEW.KeyLink;
END;
CREATE TRIGGER Search_Records_delete AFTER DELETE ON LogbookRecords
BEGIN
    DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
END;
CREATE TRIGGER Search_insert AFTER INSERT ON RecordSearch
BEGIN
    INSERT INTO RecordWords (rowid, words, equipment, marks)
    VALUES (NEW.number, NEW.words, NEW.equipment, NEW.marks);
END;
CREATE TRIGGER Search_delete AFTER DELETE ON RecordSearch
BEGIN
    INSERT INTO RecordWords (RecordWords, rowid, words, equipment, marks)
    VALUES ('delete', OLD.number, OLD.words, OLD.equipment, OLD.marks);
END;
CREATE TRIGGER Log_LogbookWorkshifts_insert AFTER insert ON LogbookWorkshifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.createdAt) = 9e999 OR abs(NEW.startTime) = 9e999 OR abs(NEW.endTime) = 9e999;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkshifts', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.OpenWorkerKey, NEW.CloseWorkerKey, NEW.createdAt, NEW.startTime, NEW.endTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Sign_LogbookWorkshifts_insert AFTER insert ON LogbookWorkshifts
WHEN (CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(NULL, '') = '' THEN 'closing' END) IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), (CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(NULL, '') = '' THEN 'closing' END), login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), 'LogbookWorkshifts', NEW.KeyLink, vrk_leaf('LogbookWorkshifts', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.OpenWorkerKey, NEW.CloseWorkerKey, NEW.createdAt, NEW.startTime, NEW.endTime))
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookWorkshifts_update AFTER update ON LogbookWorkshifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.createdAt) = 9e999 AND NEW.createdAt IS NOT OLD.createdAt OR abs(NEW.startTime) = 9e999 AND NEW.startTime IS NOT OLD.startTime OR abs(NEW.endTime) = 9e999 AND NEW.endTime IS NOT OLD.endTime;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkshifts', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.OpenWorkerKey, OLD.CloseWorkerKey, OLD.createdAt, OLD.startTime, OLD.endTime), vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.OpenWorkerKey, NEW.CloseWorkerKey, NEW.createdAt, NEW.startTime, NEW.endTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Sign_LogbookWorkshifts_update AFTER update ON LogbookWorkshifts
WHEN (CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(OLD.CloseWorkerKey, '') = '' THEN 'closing' END) IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), (CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(OLD.CloseWorkerKey, '') = '' THEN 'closing' END), login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), 'LogbookWorkshifts', NEW.KeyLink, vrk_leaf('LogbookWorkshifts', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.OpenWorkerKey, OLD.CloseWorkerKey, OLD.createdAt, OLD.startTime, OLD.endTime), vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.OpenWorkerKey, NEW.CloseWorkerKey, NEW.createdAt, NEW.startTime, NEW.endTime))
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookWorkshifts_delete AFTER delete ON LogbookWorkshifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkshifts', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.OpenWorkerKey, OLD.CloseWorkerKey, OLD.createdAt, OLD.startTime, OLD.endTime), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookWorkersWorkshift_insert AFTER insert ON LogbookWorkersWorkshift
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkersWorkshift', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.WorkshiftKey, NEW.WorkerKey, NEW.opening)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookWorkersWorkshift_update AFTER update ON LogbookWorkersWorkshift
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkersWorkshift', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.WorkshiftKey, OLD.WorkerKey, OLD.opening), vrk_row(NEW.KeyLink, NEW.WorkshiftKey, NEW.WorkerKey, NEW.opening)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookWorkersWorkshift_delete AFTER delete ON LogbookWorkersWorkshift
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookWorkersWorkshift', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.WorkshiftKey, OLD.WorkerKey, OLD.opening), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookRecords_insert AFTER insert ON LogbookRecords
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.recordTime) = 9e999 OR abs(NEW.eventTime) = 9e999 OR abs(NEW.firstMarkTime) = 9e999 OR abs(NEW.secondMarkTime) = 9e999 OR abs(NEW.executionTime) = 9e999;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookRecords', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ShiftKey, NEW.WorkerKey, NEW.VisaWorkerKey, NEW.ReceiverWorkerKey, NEW.OriginRecordKey, NEW.SecondMarkWorkerKey, NEW.recordTime, NEW.eventTime, NEW.firstMarkTime, NEW.secondMarkTime, NEW.executionTime, NEW.html, NEW.status, NEW.direction)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Sign_LogbookRecords_insert AFTER insert ON LogbookRecords
WHEN (CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(NULL, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND NULL IS DISTINCT FROM 0 THEN 'approval'
         WHEN NULL = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END) IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), (CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(NULL, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND NULL IS DISTINCT FROM 0 THEN 'approval'
         WHEN NULL = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END), login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), 'LogbookRecords', NEW.KeyLink, vrk_leaf('LogbookRecords', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ShiftKey, NEW.WorkerKey, NEW.VisaWorkerKey, NEW.ReceiverWorkerKey, NEW.OriginRecordKey, NEW.SecondMarkWorkerKey, NEW.recordTime, NEW.eventTime, NEW.firstMarkTime, NEW.secondMarkTime, NEW.executionTime, NEW.html, NEW.status, NEW.direction))
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookRecords_update AFTER update ON LogbookRecords
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.recordTime) = 9e999 AND NEW.recordTime IS NOT OLD.recordTime OR abs(NEW.eventTime) = 9e999 AND NEW.eventTime IS NOT OLD.eventTime OR abs(NEW.firstMarkTime) = 9e999 AND NEW.firstMarkTime IS NOT OLD.firstMarkTime OR abs(NEW.secondMarkTime) = 9e999 AND NEW.secondMarkTime IS NOT OLD.secondMarkTime OR abs(NEW.executionTime) = 9e999 AND NEW.executionTime IS NOT OLD.executionTime;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookRecords', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ShiftKey, OLD.WorkerKey, OLD.VisaWorkerKey, OLD.ReceiverWorkerKey, OLD.OriginRecordKey, OLD.SecondMarkWorkerKey, OLD.recordTime, OLD.eventTime, OLD.firstMarkTime, OLD.secondMarkTime, OLD.executionTime, OLD.html, OLD.status, OLD.direction), vrk_row(NEW.KeyLink, NEW.ShiftKey, NEW.WorkerKey, NEW.VisaWorkerKey, NEW.ReceiverWorkerKey, NEW.OriginRecordKey, NEW.SecondMarkWorkerKey, NEW.recordTime, NEW.eventTime, NEW.firstMarkTime, NEW.secondMarkTime, NEW.executionTime, NEW.html, NEW.status, NEW.direction)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Sign_LogbookRecords_update AFTER update ON LogbookRecords
WHEN (CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(OLD.VisaWorkerKey, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND OLD.status IS DISTINCT FROM 0 THEN 'approval'
         WHEN OLD.status = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END) IS NOT NULL AND (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
    SELECT hex(randomblob(16)), (CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(OLD.VisaWorkerKey, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND OLD.status IS DISTINCT FROM 0 THEN 'approval'
         WHEN OLD.status = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END), login, coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
        unixepoch(), 'LogbookRecords', NEW.KeyLink, vrk_leaf('LogbookRecords', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ShiftKey, OLD.WorkerKey, OLD.VisaWorkerKey, OLD.ReceiverWorkerKey, OLD.OriginRecordKey, OLD.SecondMarkWorkerKey, OLD.recordTime, OLD.eventTime, OLD.firstMarkTime, OLD.secondMarkTime, OLD.executionTime, OLD.html, OLD.status, OLD.direction), vrk_row(NEW.KeyLink, NEW.ShiftKey, NEW.WorkerKey, NEW.VisaWorkerKey, NEW.ReceiverWorkerKey, NEW.OriginRecordKey, NEW.SecondMarkWorkerKey, NEW.recordTime, NEW.eventTime, NEW.firstMarkTime, NEW.secondMarkTime, NEW.executionTime, NEW.html, NEW.status, NEW.direction))
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookRecords_delete AFTER delete ON LogbookRecords
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookRecords', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.ShiftKey, OLD.WorkerKey, OLD.VisaWorkerKey, OLD.ReceiverWorkerKey, OLD.OriginRecordKey, OLD.SecondMarkWorkerKey, OLD.recordTime, OLD.eventTime, OLD.firstMarkTime, OLD.secondMarkTime, OLD.executionTime, OLD.html, OLD.status, OLD.direction), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookComments_insert AFTER insert ON LogbookComments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.commentTime) = 9e999 OR abs(NEW.readedTime) = 9e999;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookComments', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.WorkerKey, NEW.RecordKey, NEW.commentTime, NEW.text_, NEW.readedTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookComments_update AFTER update ON LogbookComments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.commentTime) = 9e999 AND NEW.commentTime IS NOT OLD.commentTime OR abs(NEW.readedTime) = 9e999 AND NEW.readedTime IS NOT OLD.readedTime;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookComments', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.WorkerKey, OLD.RecordKey, OLD.commentTime, OLD.text_, OLD.readedTime), vrk_row(NEW.KeyLink, NEW.WorkerKey, NEW.RecordKey, NEW.commentTime, NEW.text_, NEW.readedTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookComments_delete AFTER delete ON LogbookComments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookComments', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.WorkerKey, OLD.RecordKey, OLD.commentTime, OLD.text_, OLD.readedTime), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookFiles_insert AFTER insert ON LogbookFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookFiles', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.WorkerKey, NEW.RecordKey, NEW.fileName, NEW.fileData)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookFiles_update AFTER update ON LogbookFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookFiles', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.WorkerKey, OLD.RecordKey, OLD.fileName, OLD.fileData), vrk_row(NEW.KeyLink, NEW.WorkerKey, NEW.RecordKey, NEW.fileName, NEW.fileData)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookFiles_delete AFTER delete ON LogbookFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookFiles', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.WorkerKey, OLD.RecordKey, OLD.fileName, OLD.fileData), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookTemplates_insert AFTER insert ON LogbookTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookTemplates', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.nameLoc, NEW.html)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookTemplates_update AFTER update ON LogbookTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookTemplates', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.nameLoc, OLD.html), vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.nameLoc, NEW.html)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookTemplates_delete AFTER delete ON LogbookTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookTemplates', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.nameLoc, OLD.html), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookCatsTemplate_insert AFTER insert ON LogbookCatsTemplate
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')
    WHERE NEW.KeyLink IN (
        WITH RECURSIVE up (k) AS (
            SELECT NEW.ParentKey UNION
            SELECT T.ParentKey FROM up JOIN LogbookCatsTemplate AS T ON T.KeyLink = up.k)
        SELECT k FROM up);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookCatsTemplate', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.OrgTypeKey, NEW.DepartmentKey, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookCatsTemplate_update AFTER update ON LogbookCatsTemplate
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')
    WHERE NEW.KeyLink IN (
        WITH RECURSIVE up (k) AS (
            SELECT NEW.ParentKey UNION
            SELECT T.ParentKey FROM up JOIN LogbookCatsTemplate AS T ON T.KeyLink = up.k)
        SELECT k FROM up);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookCatsTemplate', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.OrgTypeKey, OLD.DepartmentKey, OLD.nameLoc), vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.OrgTypeKey, NEW.DepartmentKey, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogbookCatsTemplate_delete AFTER delete ON LogbookCatsTemplate
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogbookCatsTemplate', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.OrgTypeKey, OLD.DepartmentKey, OLD.nameLoc), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Users_insert AFTER insert ON Users
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Users', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.login, NEW.name_, NEW.deleted_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Users_update AFTER update ON Users
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Users', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.login, OLD.name_, OLD.deleted_), vrk_row(NEW.KeyLink, NEW.login, NEW.name_, NEW.deleted_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Users_delete AFTER delete ON Users
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Users', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.login, OLD.name_, OLD.deleted_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_UserRights_insert AFTER insert ON UserRights
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'UserRights', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.UserKey, NEW.rightName)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_UserRights_update AFTER update ON UserRights
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'UserRights', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.UserKey, OLD.rightName), vrk_row(NEW.KeyLink, NEW.UserKey, NEW.rightName)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_UserRights_delete AFTER delete ON UserRights
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'UserRights', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.UserKey, OLD.rightName), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Workers_insert AFTER insert ON Workers
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Workers', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.UserKey, NEW.DepartmentKey, NEW.firstName, NEW.lastName, NEW.patronymicName, NEW.safetyGroup, NEW.deleted_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Workers_update AFTER update ON Workers
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Workers', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.UserKey, OLD.DepartmentKey, OLD.firstName, OLD.lastName, OLD.patronymicName, OLD.safetyGroup, OLD.deleted_), vrk_row(NEW.KeyLink, NEW.UserKey, NEW.DepartmentKey, NEW.firstName, NEW.lastName, NEW.patronymicName, NEW.safetyGroup, NEW.deleted_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Workers_delete AFTER delete ON Workers
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Workers', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.UserKey, OLD.DepartmentKey, OLD.firstName, OLD.lastName, OLD.patronymicName, OLD.safetyGroup, OLD.deleted_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Departments_insert AFTER insert ON Departments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Departments', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.OrganizationKey, NEW.ParentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Departments_update AFTER update ON Departments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Departments', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.OrganizationKey, OLD.ParentKey, OLD.name_), vrk_row(NEW.KeyLink, NEW.OrganizationKey, NEW.ParentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Departments_delete AFTER delete ON Departments
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Departments', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.OrganizationKey, OLD.ParentKey, OLD.name_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Organizations_insert AFTER insert ON Organizations
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Organizations', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.OrgTypeKey, NEW.ParentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Organizations_update AFTER update ON Organizations
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Organizations', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.OrgTypeKey, OLD.ParentKey, OLD.name_), vrk_row(NEW.KeyLink, NEW.OrgTypeKey, NEW.ParentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Organizations_delete AFTER delete ON Organizations
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Organizations', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.OrgTypeKey, OLD.ParentKey, OLD.name_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OrgTypes_insert AFTER insert ON OrgTypes
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OrgTypes', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OrgTypes_update AFTER update ON OrgTypes
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OrgTypes', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.name_), vrk_row(NEW.KeyLink, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OrgTypes_delete AFTER delete ON OrgTypes
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OrgTypes', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.name_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Shifts_insert AFTER insert ON Shifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.startTime) = 9e999 OR abs(NEW.endTime) = 9e999;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Shifts', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.name_, NEW.startTime, NEW.endTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Shifts_update AFTER update ON Shifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.startTime) = 9e999 AND NEW.startTime IS NOT OLD.startTime OR abs(NEW.endTime) = 9e999 AND NEW.endTime IS NOT OLD.endTime;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Shifts', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.name_, OLD.startTime, OLD.endTime), vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.name_, NEW.startTime, NEW.endTime)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Shifts_delete AFTER delete ON Shifts
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Shifts', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.name_, OLD.startTime, OLD.endTime), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Roles_insert AFTER insert ON Roles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Roles', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Roles_update AFTER update ON Roles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Roles', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.name_), vrk_row(NEW.KeyLink, NEW.DepartmentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Roles_delete AFTER delete ON Roles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Roles', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.DepartmentKey, OLD.name_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_WorkerRoles_insert AFTER insert ON WorkerRoles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'WorkerRoles', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.RoleKey, NEW.WorkerKey)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_WorkerRoles_update AFTER update ON WorkerRoles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'WorkerRoles', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.RoleKey, OLD.WorkerKey), vrk_row(NEW.KeyLink, NEW.RoleKey, NEW.WorkerKey)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_WorkerRoles_delete AFTER delete ON WorkerRoles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'WorkerRoles', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.RoleKey, OLD.WorkerKey), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Tables_insert AFTER insert ON Tables
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Tables', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.nameLat, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Tables_update AFTER update ON Tables
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Tables', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.nameLat, OLD.nameLoc), vrk_row(NEW.KeyLink, NEW.nameLat, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Tables_delete AFTER delete ON Tables
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Tables', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.nameLat, OLD.nameLoc), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Fields_insert AFTER insert ON Fields
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Fields', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.TablesKey, NEW.nameLat, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Fields_update AFTER update ON Fields
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Fields', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.TablesKey, OLD.nameLat, OLD.nameLoc), vrk_row(NEW.KeyLink, NEW.TablesKey, NEW.nameLat, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Fields_delete AFTER delete ON Fields
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Fields', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.TablesKey, OLD.nameLat, OLD.nameLoc), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParamCategories_insert AFTER insert ON TemplateParamCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')
    WHERE NEW.KeyLink IN (
        WITH RECURSIVE up (k) AS (
            SELECT NEW.ParentKey UNION
            SELECT T.ParentKey FROM up JOIN TemplateParamCategories AS T ON T.KeyLink = up.k)
        SELECT k FROM up);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParamCategories', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParamCategories_update AFTER update ON TemplateParamCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Категория не может лежать внутри самой себя.')
    WHERE NEW.KeyLink IN (
        WITH RECURSIVE up (k) AS (
            SELECT NEW.ParentKey UNION
            SELECT T.ParentKey FROM up JOIN TemplateParamCategories AS T ON T.KeyLink = up.k)
        SELECT k FROM up);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParamCategories', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.nameLoc), vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.nameLoc)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParamCategories_delete AFTER delete ON TemplateParamCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParamCategories', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.nameLoc), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParams_insert AFTER insert ON TemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParams', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.nameLoc, NEW.html)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParams_update AFTER update ON TemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParams', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.nameLoc, OLD.html), vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.nameLoc, NEW.html)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_TemplateParams_delete AFTER delete ON TemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'TemplateParams', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.nameLoc, OLD.html), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Equipment_insert AFTER insert ON Equipment
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Equipment', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.DepartmentKey, NEW.kind, NEW.name_, NEW.voltage)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Equipment_update AFTER update ON Equipment
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Equipment', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.DepartmentKey, OLD.kind, OLD.name_, OLD.voltage), vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.DepartmentKey, NEW.kind, NEW.name_, NEW.voltage)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_Equipment_delete AFTER delete ON Equipment
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'Equipment', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.DepartmentKey, OLD.kind, OLD.name_, OLD.voltage), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogCategories_insert AFTER insert ON OperLogCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogCategories', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.OrgTypeKey, NEW.DepartmentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogCategories_update AFTER update ON OperLogCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogCategories', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.OrgTypeKey, OLD.DepartmentKey, OLD.name_), vrk_row(NEW.KeyLink, NEW.ParentKey, NEW.OrgTypeKey, NEW.DepartmentKey, NEW.name_)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogCategories_delete AFTER delete ON OperLogCategories
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogCategories', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.ParentKey, OLD.OrgTypeKey, OLD.DepartmentKey, OLD.name_), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplates_insert AFTER insert ON OperLogTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplates', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.name_, NEW.text_, NEW.canStartShift, NEW.canEndShift, NEW.isNecessaryFinishTime, NEW.icon, NEW.completingIcon, NEW.completingCommand)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplates_update AFTER update ON OperLogTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplates', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.name_, OLD.text_, OLD.canStartShift, OLD.canEndShift, OLD.isNecessaryFinishTime, OLD.icon, OLD.completingIcon, OLD.completingCommand), vrk_row(NEW.KeyLink, NEW.CategoryKey, NEW.name_, NEW.text_, NEW.canStartShift, NEW.canEndShift, NEW.isNecessaryFinishTime, NEW.icon, NEW.completingIcon, NEW.completingCommand)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplates_delete AFTER delete ON OperLogTemplates
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplates', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.CategoryKey, OLD.name_, OLD.text_, OLD.canStartShift, OLD.canEndShift, OLD.isNecessaryFinishTime, OLD.icon, OLD.completingIcon, OLD.completingCommand), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplateParams_insert AFTER insert ON OperLogTemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplateParams', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.nameLoc, NEW.nameLat, NEW.param, NEW.TableKey, NEW.FieldTypeKey)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplateParams_update AFTER update ON OperLogTemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplateParams', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.nameLoc, OLD.nameLat, OLD.param, OLD.TableKey, OLD.FieldTypeKey), vrk_row(NEW.KeyLink, NEW.nameLoc, NEW.nameLat, NEW.param, NEW.TableKey, NEW.FieldTypeKey)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_OperLogTemplateParams_delete AFTER delete ON OperLogTemplateParams
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'OperLogTemplateParams', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.nameLoc, OLD.nameLat, OLD.param, OLD.TableKey, OLD.FieldTypeKey), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreProperties_insert AFTER insert ON StoreProperties
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreProperties', NEW.name, 601, NULL, vrk_row(NEW.name, NEW.value)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreProperties_update AFTER update ON StoreProperties
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.name IS NOT OLD.name;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreProperties', NEW.name, 602, vrk_row(OLD.name, OLD.value), vrk_row(NEW.name, NEW.value)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreProperties_delete AFTER delete ON StoreProperties
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreProperties', OLD.name, 603, vrk_row(OLD.name, OLD.value), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreFiles_insert AFTER insert ON StoreFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreFiles', NEW.folder || '/' || NEW.name, 601, NULL, vrk_row(NEW.folder, NEW.name, NEW.content)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreFiles_update AFTER update ON StoreFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.folder || '/' || NEW.name IS NOT OLD.folder || '/' || OLD.name;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreFiles', NEW.folder || '/' || NEW.name, 602, vrk_row(OLD.folder, OLD.name, OLD.content), vrk_row(NEW.folder, NEW.name, NEW.content)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_StoreFiles_delete AFTER delete ON StoreFiles
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'StoreFiles', OLD.folder || '/' || OLD.name, 603, vrk_row(OLD.folder, OLD.name, OLD.content), NULL
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogSignatures_insert AFTER insert ON LogSignatures
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Недопустимый ключ строки.')
    WHERE NEW.KeyLink = '' OR NEW.KeyLink GLOB '*[' || char(1) || '-' || char(31) || char(39) || '"\]*';
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.time) = 9e999;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogSignatures', NEW.KeyLink, 601, NULL, vrk_row(NEW.KeyLink, NEW.meaning, NEW.login, NEW.person, NEW.time, NEW.signedTable, NEW.signedKey, NEW.rowHash)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogSignatures_update AFTER update ON LogSignatures
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    SELECT RAISE(ABORT, 'Ключ строки не изменяется.')
    WHERE NEW.KeyLink IS NOT OLD.KeyLink;
    SELECT RAISE(ABORT, 'Недопустимое время или число.')
    WHERE abs(NEW.time) = 9e999 AND NEW.time IS NOT OLD.time;
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogSignatures', NEW.KeyLink, 602, vrk_row(OLD.KeyLink, OLD.meaning, OLD.login, OLD.person, OLD.time, OLD.signedTable, OLD.signedKey, OLD.rowHash), vrk_row(NEW.KeyLink, NEW.meaning, NEW.login, NEW.person, NEW.time, NEW.signedTable, NEW.signedKey, NEW.rowHash)
    FROM CurrentTransaction;
END;
CREATE TRIGGER Log_LogSignatures_delete AFTER delete ON LogSignatures
BEGIN
    SELECT RAISE(ABORT, 'Данные изменяются только через хранилище журнала.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentTransaction);
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT number, 'LogSignatures', OLD.KeyLink, 603, vrk_row(OLD.KeyLink, OLD.meaning, OLD.login, OLD.person, OLD.time, OLD.signedTable, OLD.signedKey, OLD.rowHash), NULL
    FROM CurrentTransaction;
END;
PRAGMA writable_schema=OFF;
COMMIT;
PRAGMA application_id = 1448233802;
PRAGMA user_version = 6;
