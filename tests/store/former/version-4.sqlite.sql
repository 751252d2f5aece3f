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
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_PAST','DEP_CDS','WORKER_IVANOV','WORKER_IVANOV',1795265792.0,1795265792.0,1795352192.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_OPEN','DEP_CDS','WORKER_IVANOV',NULL,1795352192.0,1795352192.0,1795438592.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_ZAR_OPEN','DEP_ZAR','WORKER_SMIRNOV_ZAR',NULL,1795366592.0,1795366592.0,1795409792.0);
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
INSERT INTO LogbookRecords VALUES('REC_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795271792.0,1795271792.0,NULL,NULL,NULL,'Принята сводка погоды.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',NULL,NULL,NULL,NULL,1795319792.0,1795319792.0,NULL,NULL,NULL,'Проверена связь с подстанциями.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_OPENING','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795352192.0,1795352192.0,NULL,NULL,NULL,'<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_MESSAGE','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,'WORKER_SMIRNOV_ZAR',NULL,NULL,1795355792.0,1795355792.0,NULL,NULL,NULL,'Запрошено состояние <b>нагрузки</b>.',0,1);
INSERT INTO LogbookRecords VALUES('REC_REPLACED','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795359392.0,1795359392.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',2,NULL);
INSERT INTO LogbookRecords VALUES('REC_SUCCESSOR','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,'REC_REPLACED',NULL,1795359392.0,1795359392.0,NULL,NULL,1795359992.0,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_ORDER','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795362992.0,1795362992.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_TRIP','SHIFT_CDS_OPEN','WORKER_PETROV','WORKER_SIDOROVA',NULL,NULL,NULL,1795366592.0,1795366592.0,1795366532.0,NULL,NULL,'<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_IVANOV','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795370192.0,1795370192.0,NULL,NULL,NULL,'Черновик: осмотр оборудования.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_PETROV','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795371992.0,1795371992.0,NULL,NULL,NULL,'Черновик: доклад бригады.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_ZAR','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',NULL,NULL,NULL,NULL,1795367792.0,1795367792.0,NULL,NULL,NULL,'Схема сверена по щиту.',0,NULL);
CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
INSERT INTO LogbookComments VALUES('COM_UNREAD','WORKER_PETROV','REC_OPENING',1795352792.0,'Уточните период смены.',0.0);
INSERT INTO LogbookComments VALUES('COM_READ','WORKER_IVANOV','REC_ORDER',1795363592.0,'Исполнение доложить до конца смены.',1795364192.0);
INSERT INTO LogbookComments VALUES('COM_PAST','WORKER_SIDOROVA','REC_PAST_1',1795325792.0,'Приложите сводку к записи.',0.0);
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
INSERT INTO StoreProperties VALUES('epoch','1B4B51874E51509FDC5AD6353E246FEB');
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
INSERT INTO ChangeTransactions VALUES(1,'296B533D2B05F5C03B6E08A6B9786332','loader',1,1795373792.0,X'a15686b7a0e6b4b2a497ca30124d48c2221c9fd009cac94172fcc94e729315fd');
INSERT INTO ChangeTransactions VALUES(2,'548E1BF9B635493EE46F15134CDCFC1B','loader',1,1795373792.0,X'f592291843f0cb1922a5f51774ee16957c03815192b410a4da25671c9611bb76');
INSERT INTO ChangeTransactions VALUES(3,'A326FCA1880CB60BA7C8F35A1E135546','loader',1,1795373792.0,X'925c0117fe52f0368c62ee559f5c75e8b5dc630fb9e783e72ad7e6e25174f8a3');
INSERT INTO ChangeTransactions VALUES(4,'0DC7B58293B811CC4363FAD3321BD35D','loader',1,1795373792.0,X'55f75e464e448cbe954a69321106623b49a3e9c1c7411a2d9ee5d8fa932b1005');
INSERT INTO ChangeTransactions VALUES(5,'D0AD204C03A25806BC3EDBC6A657EFB9','loader',1,1795373792.0,X'b1c556b8c928796ee3a610bc4628e89303e8e4af4656b8033c65b0faab6292fd');
INSERT INTO ChangeTransactions VALUES(6,'7E953BBF64D4CC938AB975FA1836DAE1','loader',1,1795373792.0,X'c470db8e7d27b676b4204f4fedc5842863310f4d8974822377d6a2eea62c233e');
INSERT INTO ChangeTransactions VALUES(7,'FC99DE622B8A77F1DBDA2C0E9DB815DC','loader',1,1795373792.0,X'e0dc5c8351259cef850f1f1345fbfc80a542198a3d9cb0784a7babd0bf79876a');
INSERT INTO ChangeTransactions VALUES(8,'6F28685AD8AE4713BDB85C883748CB2D','loader',1,1795373792.0,X'fb6171af9b5f9beafd8f69b41c8dce26d5b639afcf95d7df57cc84083a7ddeab');
INSERT INTO ChangeTransactions VALUES(9,'4CEE6C93CDF76AACDD7A006A6929E1EB','loader',1,1795373792.0,X'f87a116d6287eb67fe8883413a9797c40c42638e926b7ad9cfd357a0c3c2a7a2');
INSERT INTO ChangeTransactions VALUES(10,'40C3AE60FE2D2BEAED9DE0D7E2D3136D','loader',1,1795373792.0,X'62bd83cf637b1e42cdec40f36b20d5c352848062e36895975d64a311ecd29168');
INSERT INTO ChangeTransactions VALUES(11,'6F25FAD3AF9F2150AA158D424236C612','loader',1,1795373792.0,X'514385169666b4258eb2ab72d5c806436029d3d95293303500b882a86bcaa37a');
INSERT INTO ChangeTransactions VALUES(12,'782B399FEDDE133F3C68C33BDBB13505','loader',1,1795373792.0,X'c5e3e75188267083b36b0ddeaa3b5994a113f04ebfef6912a755ea093b97a389');
INSERT INTO ChangeTransactions VALUES(13,'8CF09DE53AB59CF921C165D643CCF3A8','loader',1,1795373792.0,X'87fe4af98f442201ab356056de4ac17b57a175619b242e6f6c8cfea582407567');
INSERT INTO ChangeTransactions VALUES(14,'BEE170AB36152C212FD1225D2C719F7D','loader',1,1795373792.0,X'feb84abc1fb62a33d14764fa58f5cdba7f84c54ab824cd01a3a344b743603407');
INSERT INTO ChangeTransactions VALUES(15,'0DC7E6484B485593F425C52CCA8F5583','loader',1,1795373792.0,X'99281d692ef89fc6c94138cf27215af10b205107820ab01fb8949df999f66a9b');
INSERT INTO ChangeTransactions VALUES(16,'D761ABF578CFBC33EA23D87F99F9352E','loader',1,1795373792.0,X'98ba180701f4b495fb18ddc06ee8338c283d49e9e008d5fe9af7c1d49223b7a6');
INSERT INTO ChangeTransactions VALUES(17,'8EE59FCCD1CC17F1D8E2A789D6ABD776','loader',1,1795373792.0,X'cd6a9859b629f4168194b76710ee2571aff036d2de6fd84014ab9792df730886');
INSERT INTO ChangeTransactions VALUES(18,'DB974C505B1AA35FE48BB2EC0F16811E','loader',1,1795373792.0,X'452a44914a74ef78abdf48748d2bf0f8d33432c92a6a0c840653e0142b251000');
INSERT INTO ChangeTransactions VALUES(19,'DA2235310B2EB3671C226B9138C7D675','loader',1,1795373792.0,X'a02d4566cb23bde53cc40b0010802f5a8b9c6c0d121e1d65fd12e73e4f1c424c');
INSERT INTO ChangeTransactions VALUES(20,'31C9D837A01F667BF011905C9B4845B5','loader',1,1795373792.0,X'bad34b062a42fd48caca95c1566adc35449d0bc0ee57ea2bcff598ebcb7b4c0f');
INSERT INTO ChangeTransactions VALUES(21,'B203A0B553A99C6674315828F8B3F8E4','loader',1,1795373792.0,X'edf6441f047b76eea42bb9f135f2b80baf01e8c06b75e82ff246a33580c9253f');
INSERT INTO ChangeTransactions VALUES(22,'772225E8B9DC60A485368D6C4F78216A','loader',1,1795373792.0,X'f3b10edb4d615290a8ed4adfc1ce7f8b07ba5cc3a771101bbe96fd573e067e43');
INSERT INTO ChangeTransactions VALUES(23,'685BEA4CD7C7A8B555ACA858EBB53D68','loader',1,1795373792.0,X'8de70c2f2ab16376c8e4d73df69acd3619edb245485d0ab0abdd4d8dc595d44d');
INSERT INTO ChangeTransactions VALUES(24,'035CFBD2A64D4F929B9FB5A96CAE576F','loader',1,1795373792.0,X'507f3c41d68ba3666d5dc65e76c4293e5252fe52f7c561ceebf8e9be84b21081');
INSERT INTO ChangeTransactions VALUES(25,'01E8C67DFFF9120B9AE252D0FA0B2936','loader',1,1795373792.0,X'16454d8772ed560db592f3f1f5f8e17e366b01797dc7abd1de51c137e0d01dee');
INSERT INTO ChangeTransactions VALUES(26,'591B05F8547F8B0605549EA1FEB8121F','loader',1,1795373792.0,X'bda1f0e74f5054d3e04ec7bb34771d474d12a32a6ff41960de628591bc6c7667');
INSERT INTO ChangeTransactions VALUES(27,'D464DAACD3BDDFA61FD0AA4E529C00F8','loader',1,1795373792.0,X'39451a2e8348e5d7c356196219d72a79d7b0bc51a243844183e4a069a4f71f27');
INSERT INTO ChangeTransactions VALUES(28,'DDB59B4D9DDD17D64B267257ACE23535','loader',1,1795373792.0,X'359d7243faddcf3ae447b4f7094b1a6362bbbee2f4a31792a8fbfe147b06ae70');
INSERT INTO ChangeTransactions VALUES(29,'850965F982335AB9447AB1EC76DC5F52','loader',1,1795373792.0,X'789f1225587f079f237760ca924f53ddfe07213bf6d2a784dfa3572e5050ac2c');
INSERT INTO ChangeTransactions VALUES(30,'B03A46491AB15D184500E7B008F15F68','loader',1,1795373792.0,X'47360e16c8a8b5de5280da91cc593cbbd7ec05915eaf1e099d160f50f1dcf3dc');
INSERT INTO ChangeTransactions VALUES(31,'BBB7224F149605F3D591E98C364F5641','loader',1,1795373792.0,X'6778cd6fe7b5a5eb72e23080e557627506c5a8cca782aa86906dc3721c84adec');
INSERT INTO ChangeTransactions VALUES(32,'2396FE5AF7A63DBE34FE8DF50E6434A7','loader',1,1795373792.0,X'82174a89788d097d2334826899b6032610bbcd64704eca650b626c6c3c802041');
INSERT INTO ChangeTransactions VALUES(33,'F79D1D0683FCBA3EAF44EC41D7A875E6','loader',1,1795373792.0,X'ae8016984ffb7733557c4d77b0f1624f899b29378ed5d623eb455b2eb0c9d2e6');
INSERT INTO ChangeTransactions VALUES(34,'E198965DD0CE66FBBA51E89E71B40B89','loader',1,1795373792.0,X'd6e2b094f91275639f16f6bf1da2b23e06c8bb7ea13ac47ec1b097d868d30abe');
INSERT INTO ChangeTransactions VALUES(35,'4CA65444922DC7EE5A7862ADFAE4AD00','loader',1,1795373792.0,X'1d1cee00140a44214854236dded2aa89650938319920368c76ea1f0503bb80df');
INSERT INTO ChangeTransactions VALUES(36,'25E70863E7F91D3E719FF7CB599F8799','loader',1,1795373792.0,X'2fb01c358ff9b95b6f271f935bddcfffa8ae157564f3979758b2a7e2b6649c33');
INSERT INTO ChangeTransactions VALUES(37,'DD1649F5E8BA49928B12A4A1F9665457','loader',1,1795373792.0,X'8f7676bd416bcabf855464aaf992c5b75283659515a9400d699ab78b3c90719f');
INSERT INTO ChangeTransactions VALUES(38,'5FA70AAB45682493EBD419C88D53AB95','loader',1,1795373792.0,X'f2c49322760ccbd214c403b6eb3058daad1c09a68513f5e37a3c76b0e9766665');
INSERT INTO ChangeTransactions VALUES(39,'0087DE62C799E758539CA13FABBF97E3','loader',1,1795373792.0,X'3ec92260d457c4cb40f2ce4b9bc2fcea9a33851a3f51d98d5d28018a4630061e');
INSERT INTO ChangeTransactions VALUES(40,'816F4178450996958B06089715C3864C','loader',1,1795373792.0,X'756bcc9fe5f86f97fbdae99d26f56dc7c0ab9a6db6b61bd8ff86e4ebc91f5614');
INSERT INTO ChangeTransactions VALUES(41,'AAF3C33734BF8DAC4A301DFA83E44944','loader',1,1795373792.0,X'c4320c8b84e13abec88a756df0c039f61a2d84a721ff77a4f31691f8ca2e563c');
INSERT INTO ChangeTransactions VALUES(42,'C567294131BB62340A8382D9D5835286','loader',1,1795373792.0,X'0a539dac8d176b92b961b061639c3be7d1557f636f5566fac748b06565263be1');
INSERT INTO ChangeTransactions VALUES(43,'08117E67822EA2539715796047BE758B','loader',1,1795373792.0,X'ba294dccb1e7980daf774d19706f092774edbb365d21bd0b1f372228e610ac18');
INSERT INTO ChangeTransactions VALUES(44,'53BE3E73F013A03C7E6ECE8327E86BD5','loader',1,1795373792.0,X'3cc68f9bade337330265f3c2f5b22deda120ba73a8aa50cb9c77fa2bc09e2ed8');
INSERT INTO ChangeTransactions VALUES(45,'AE252666F7DA6EBFCB945521A6EC26A4','loader',1,1795373792.0,X'9dbab5ceff532cb8da291c0c7727c6068af1f15364339f34651bc8a37be560a8');
INSERT INTO ChangeTransactions VALUES(46,'901757C21735AD59EDA05F3123B302B9','loader',1,1795373792.0,X'c0f4995b3db538a74299aba682eebb31bc23e38c6939fe7d2be46e68f1706370');
INSERT INTO ChangeTransactions VALUES(47,'65F9303843F8B5F0CE7BDABAB41481AD','loader',1,1795373792.0,X'c63dcb9619194ec7a2455e23b2946902ca6dfff38dc3dfcf332e52fb45a3fff3');
INSERT INTO ChangeTransactions VALUES(48,'EC1327BDE719C7ED1B599F40F36A574F','loader',1,1795373792.0,X'29d146364993cba049a3fd5bce7f40a7fc29394085ed34d4ed27b39779c89c68');
INSERT INTO ChangeTransactions VALUES(49,'52CD05CAE5DA5A95EC05067F8DA64E6D','loader',1,1795373792.0,X'2822d49488cd905bfa8dba303cd25cba42657d6d9bd6f53b30f0c4634cd2e0ab');
INSERT INTO ChangeTransactions VALUES(50,'D78B6D47D5CB8B7478B438D485EF129D','loader',1,1795373792.0,X'7f59db77c97367f6e0ec241be59375d4888ecf29a9747a0a92cd9634c4e464bf');
INSERT INTO ChangeTransactions VALUES(51,'7F115B45A3853BD3F7256E9C2977BDD6','loader',1,1795373792.0,X'f6f4695be283a1f10fe212416c70b558134c14732378157dee6f55e3da1435e6');
INSERT INTO ChangeTransactions VALUES(52,'6834931054FEC49A3680F5603B841DFC','loader',1,1795373792.0,X'a284c627fdbe34689fa4218761a09a5f2d0e7322d7037de7f3a9dc39d10144ad');
INSERT INTO ChangeTransactions VALUES(53,'3733AA41DAC2FD42B187644A8258DCC3','loader',1,1795373792.0,X'dd465d4293eb29dfa9138476cc568c34d7ca4a49b801ea50d519957ec2445bec');
INSERT INTO ChangeTransactions VALUES(54,'B0344AFEB732FA7A7BA8B590505FC804','loader',1,1795373792.0,X'f41c364e72f9b907ef9afb85620e767be22987bda53fd258692c2f8f851fc01e');
INSERT INTO ChangeTransactions VALUES(55,'7D279C14F4F2CF9DB4F84856A83F4240','loader',1,1795373792.0,X'e85803d15b8dabc30f6f44307f4843b6fd4dd51d0c699bf9deee8e0df962e5b4');
INSERT INTO ChangeTransactions VALUES(56,'89B58DA95FF199EA2FB23135E5A382ED','loader',1,1795373792.0,X'330059a19838860100f1c83e68d05a94f0ae98463babfd1b04c909d70a71fbea');
INSERT INTO ChangeTransactions VALUES(57,'3B31C11A7D6E1D62E070FB1A0EC16D6C','loader',1,1795373792.0,X'16eacff962619abc15625d776f93f58ab7529c60112d24c0f5eda7aab7aee5fd');
INSERT INTO ChangeTransactions VALUES(58,'7002A422CE451E4BC184ED9495083C50','loader',1,1795373792.0,X'08a65ed39473c1aae8d3c7528dc1eee70c7d20745aa8ad3148e815cf1b8e9e88');
INSERT INTO ChangeTransactions VALUES(59,'318DB3BBC9E601D35D3260923DD3136C','loader',1,1795373792.0,X'25c2bb7049f11ea6eb9d6123a994522d740c08623c241cd8e3819e9d86a91878');
INSERT INTO ChangeTransactions VALUES(60,'865AF4B7A76671DBD87C2AF7B25BB087','loader',1,1795373792.0,X'acf3fc57fc15f58e9bd57b04e5dfb2ee142e1e7986bb898940416233cf976cce');
INSERT INTO ChangeTransactions VALUES(61,'B0AE7D1089E75D42498DC978D76D972B','loader',1,1795373792.0,X'a85200c17d54c039a9fae70021dbb87cdb10827b7bc14247e5c88ec78c1e3515');
INSERT INTO ChangeTransactions VALUES(62,'7A3B79F75FA201B6D6CAB2E0BBB6B639','loader',1,1795373792.0,X'07fbc3e4411bc449e7955244e2ce9e9290e3e735104cabbce97fc9a8bf8e2eca');
INSERT INTO ChangeTransactions VALUES(63,'F66479F3B6098B1F34A094EB17C3DED2','loader',1,1795373792.0,X'50f57d9cef5ed98a8e4453f2a856843e30166c51377994dd846f65521064cff9');
INSERT INTO ChangeTransactions VALUES(64,'9257876968C19B7649B8FD8EBF3FD747','loader',1,1795373792.0,X'61bd5597b0cea1847d8b7e48527591dbcade1f41ef0926917d295f9be0c5c498');
INSERT INTO ChangeTransactions VALUES(65,'ADB51393CF73DD9DE076C6E3DD383BDF','loader',1,1795373792.0,X'f7855cbc9d87c14e40289b519601d48bac6c012bb6e645b58a9358454592bd23');
INSERT INTO ChangeTransactions VALUES(66,'81C227CB39FAD3838A2A2ED9336EC871','loader',1,1795373792.0,X'f8e980205c495eb78f9bc50c60488b866a7c79b4f761b5c5954d2b58f4c2c38e');
INSERT INTO ChangeTransactions VALUES(67,'918CA9EEA5EB0DD2BC82150C90EA4E77','loader',1,1795373792.0,X'156d3df9473eccb2a38f0d7a4980d4910a2419172e13e42a35b7713986e66e6f');
INSERT INTO ChangeTransactions VALUES(68,'A7CC86BB2E7CD8A10E05EC46BBBD42DF','loader',1,1795373792.0,X'd2f3c9ff4d150cb31839cb730715c906a9823da48d2e55fba45a00074f232300');
INSERT INTO ChangeTransactions VALUES(69,'A5414A8A9998A8B57CC0B212DD363276','loader',1,1795373792.0,X'587fdc9ba78bde2ec5f8f608ea0a8c224673e869406a2c3845a1ecf15d927d8e');
INSERT INTO ChangeTransactions VALUES(70,'9AF44711BB57FBBF8B01D5087D3699B5','loader',1,1795373792.0,X'4bcb9d0cf7af83c99ad20a07a273d3d4ba4ecd6c790afa1b28e4af752f132f06');
INSERT INTO ChangeTransactions VALUES(71,'3448196697DE5A84D9DCB06F931DFB84','loader',1,1795373792.0,X'6096a2ed31c2450cc695de39d961d6f8121e99cde10244e5047f1ebc8ebcf8bd');
INSERT INTO ChangeTransactions VALUES(72,'0E51D8A1B594AE04ADC960B3AB333133','loader',1,1795373792.0,X'8683a9ab3ea1fcb984ecb049f5233b6613ea6381ea6493225bf1c1aa25b6021f');
INSERT INTO ChangeTransactions VALUES(73,'80C5FC7B63539BF79D695ECAAF1D32CC','loader',1,1795373792.0,X'fb3a53faf3f58b363c3aa58078b15b25ef74a77783637e897767ad60ab48065e');
INSERT INTO ChangeTransactions VALUES(74,'7F1B90DDB152354F56C6FDFB21DF1404','loader',1,1795373792.0,X'f9412e2038687faa591a48fac586a0262730a24c2a269787a7e5145834b25ab5');
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
INSERT INTO ChangeLog VALUES(3,1,'StoreProperties','epoch',601,NULL,'["epoch","1B4B51874E51509FDC5AD6353E246FEB"]');
INSERT INTO ChangeLog VALUES(4,2,'OrgTypes','TYPE_CENTER',601,NULL,'["TYPE_CENTER","Диспетчерский центр"]');
INSERT INTO ChangeLog VALUES(5,3,'OrgTypes','TYPE_NETS',601,NULL,'["TYPE_NETS","Электросетевая организация"]');
INSERT INTO ChangeLog VALUES(6,4,'Organizations','ORG_CENTER',601,NULL,'["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]');
INSERT INTO ChangeLog VALUES(7,5,'Organizations','ORG_NETS',601,NULL,'["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]');
INSERT INTO ChangeLog VALUES(8,6,'Departments','DEP_ODS',601,NULL,'["DEP_ODS","ORG_CENTER",null,"ОДС"]');
INSERT INTO ChangeLog VALUES(9,7,'Departments','DEP_CDS',601,NULL,'["DEP_CDS","ORG_NETS",null,"ЦДС"]');
INSERT INTO ChangeLog VALUES(10,8,'Departments','DEP_ZAR',601,NULL,'["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]');
INSERT INTO ChangeLog VALUES(11,9,'Users','USER_IVANOV',601,NULL,'["USER_IVANOV","ivanov","Иванов Иван Иванович",0]');
INSERT INTO ChangeLog VALUES(12,10,'Users','USER_PETROV',601,NULL,'["USER_PETROV","petrov","Петров Пётр Петрович",0]');
INSERT INTO ChangeLog VALUES(13,11,'Users','USER_SIDOROVA',601,NULL,'["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]');
INSERT INTO ChangeLog VALUES(14,12,'Users','USER_SMIRNOV',601,NULL,'["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]');
INSERT INTO ChangeLog VALUES(15,13,'Users','USER_KUZNETSOV',601,NULL,'["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]');
INSERT INTO ChangeLog VALUES(16,14,'Users','USER_VIEWER',601,NULL,'["USER_VIEWER","viewer","Наблюдатель",0]');
INSERT INTO ChangeLog VALUES(17,15,'UserRights','RIGHT_SIDOROVA',601,NULL,'["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]');
INSERT INTO ChangeLog VALUES(18,16,'UserRights','RIGHT_SMIRNOV',601,NULL,'["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]');
INSERT INTO ChangeLog VALUES(19,17,'Workers','WORKER_IVANOV',601,NULL,'["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]');
INSERT INTO ChangeLog VALUES(20,18,'Workers','WORKER_PETROV',601,NULL,'["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]');
INSERT INTO ChangeLog VALUES(21,19,'Workers','WORKER_SIDOROVA',601,NULL,'["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]');
INSERT INTO ChangeLog VALUES(22,20,'Workers','WORKER_SMIRNOV_ZAR',601,NULL,'["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(23,21,'Workers','WORKER_SMIRNOV_ODS',601,NULL,'["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(24,22,'Workers','WORKER_KUZNETSOV',601,NULL,'["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]');
INSERT INTO ChangeLog VALUES(25,23,'Roles','ROLE_CDS_SENIOR',601,NULL,'["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]');
INSERT INTO ChangeLog VALUES(26,24,'Roles','ROLE_CDS_DISPATCHER',601,NULL,'["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]');
INSERT INTO ChangeLog VALUES(27,25,'Roles','ROLE_ZAR',601,NULL,'["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]');
INSERT INTO ChangeLog VALUES(28,26,'WorkerRoles','WROLE_IVANOV_1',601,NULL,'["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(29,27,'WorkerRoles','WROLE_IVANOV_2',601,NULL,'["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(30,28,'WorkerRoles','WROLE_PETROV',601,NULL,'["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]');
INSERT INTO ChangeLog VALUES(31,29,'WorkerRoles','WROLE_SMIRNOV',601,NULL,'["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]');
INSERT INTO ChangeLog VALUES(32,30,'Shifts','TIMETABLE_CDS_DAY',601,NULL,'["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(33,31,'Shifts','TIMETABLE_CDS_NIGHT',601,NULL,'["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]');
INSERT INTO ChangeLog VALUES(34,32,'Shifts','TIMETABLE_ZAR_DAY',601,NULL,'["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(35,33,'LogbookCatsTemplate','CAT_COMMON',601,NULL,'["CAT_COMMON",null,null,null,"Оперативная смена"]');
INSERT INTO ChangeLog VALUES(36,34,'LogbookCatsTemplate','CAT_COMMON_SUB',601,NULL,'["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]');
INSERT INTO ChangeLog VALUES(37,35,'LogbookCatsTemplate','CAT_NETS',601,NULL,'["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]');
INSERT INTO ChangeLog VALUES(38,36,'LogbookCatsTemplate','CAT_CDS',601,NULL,'["CAT_CDS",null,null,"DEP_CDS","Погода"]');
INSERT INTO ChangeLog VALUES(39,37,'LogbookCatsTemplate','CAT_ZAR',601,NULL,'["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]');
INSERT INTO ChangeLog VALUES(40,38,'LogbookTemplates','TPL_OPEN',601,NULL,'["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Диспетчер</a> <a href=\"parameter:name=interval;locname=Период%20смены\">Период смены</a>."]');
INSERT INTO ChangeLog VALUES(41,39,'LogbookTemplates','TPL_CLOSE',601,NULL,'["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\"template\" content=\"close_wshift\">Смену сдал <a href=\"parameter:name=employee_fio;locname=Сдал\">Сдал</a>."]');
INSERT INTO ChangeLog VALUES(42,40,'LogbookTemplates','TPL_ORDER',601,NULL,'["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">Оборудование</a>."]');
INSERT INTO ChangeLog VALUES(43,41,'LogbookTemplates','TPL_TRIP',601,NULL,'["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">Линия</a> на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a>."]');
INSERT INTO ChangeLog VALUES(44,42,'LogbookTemplates','TPL_TEXT',601,NULL,'["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]');
INSERT INTO ChangeLog VALUES(45,43,'TemplateParamCategories','PARCAT_MAIN',601,NULL,'["PARCAT_MAIN",null,"Общие параметры"]');
INSERT INTO ChangeLog VALUES(46,44,'TemplateParams','PAR_TEXT',601,NULL,'["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\"parameter:name=text;locname=Текст\">Текст</a>"]');
INSERT INTO ChangeLog VALUES(47,45,'TemplateParams','PAR_LIST',601,NULL,'["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\">Состояние связи</a>"]');
INSERT INTO ChangeLog VALUES(48,46,'Equipment','EQ_SUBSTATION',601,NULL,'["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]');
INSERT INTO ChangeLog VALUES(49,47,'Equipment','EQ_BAY',601,NULL,'["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]');
INSERT INTO ChangeLog VALUES(50,48,'Equipment','EQ_LINE',601,NULL,'["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]');
INSERT INTO ChangeLog VALUES(51,49,'LogbookWorkshifts','SHIFT_CDS_PAST',601,NULL,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795265792,1795265792,1795352192]');
INSERT INTO ChangeLog VALUES(52,50,'LogbookWorkshifts','SHIFT_CDS_OPEN',601,NULL,'["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795352192,1795352192,1795438592]');
INSERT INTO ChangeLog VALUES(53,51,'LogbookWorkshifts','SHIFT_ZAR_OPEN',601,NULL,'["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795366592,1795366592,1795409792]');
INSERT INTO ChangeLog VALUES(54,52,'LogbookWorkshifts','SHIFT_CDS_PAST',602,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795265792,1795265792,1795352192]','["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795265792,1795265792,1795352192]');
INSERT INTO ChangeLog VALUES(55,53,'LogbookWorkersWorkshift','CREW_CDS_1',601,NULL,'["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(56,54,'LogbookWorkersWorkshift','CREW_CDS_2',601,NULL,'["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]');
INSERT INTO ChangeLog VALUES(57,55,'LogbookWorkersWorkshift','CREW_ZAR_1',601,NULL,'["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]');
INSERT INTO ChangeLog VALUES(58,56,'LogbookWorkersWorkshift','CREW_PAST_1',601,NULL,'["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(59,57,'LogbookWorkersWorkshift','CREW_PAST_2',601,NULL,'["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]');
INSERT INTO ChangeLog VALUES(60,58,'LogbookWorkersWorkshift','CREW_PAST_3',601,NULL,'["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]');
INSERT INTO ChangeLog VALUES(61,59,'LogbookRecords','REC_PAST_1',601,NULL,'["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795271792,1795271792,null,null,null,"Принята сводка погоды.",0,null]');
INSERT INTO ChangeLog VALUES(62,60,'LogbookRecords','REC_PAST_2',601,NULL,'["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795319792,1795319792,null,null,null,"Проверена связь с подстанциями.",0,null]');
INSERT INTO ChangeLog VALUES(63,61,'LogbookRecords','REC_OPENING',601,NULL,'["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795352192,1795352192,null,null,null,"<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Иванов И.И. гр.V</a> <a href=\"parameter:name=interval;locname=Период%20смены\">с 20:00 по 08:00</a>.",0,null]');
INSERT INTO ChangeLog VALUES(64,62,'LogbookRecords','REC_MESSAGE',601,NULL,'["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795355792,1795355792,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]');
INSERT INTO ChangeLog VALUES(65,63,'LogbookRecords','REC_REPLACED',601,NULL,'["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795359392,1795359392,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]');
INSERT INTO ChangeLog VALUES(66,64,'LogbookRecords','REC_SUCCESSOR',601,NULL,'["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795359392,1795359392,null,null,1795359992,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(67,65,'LogbookRecords','REC_ORDER',601,NULL,'["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795362992,1795362992,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 35 кВ Ольховка</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ф. 7</a>.",0,null]');
INSERT INTO ChangeLog VALUES(68,66,'LogbookRecords','REC_TRIP',601,NULL,'["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795366592,1795366592,1795366532,null,null,"<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(69,67,'LogbookRecords','REC_DRAFT_IVANOV',601,NULL,'["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795370192,1795370192,null,null,null,"Черновик: осмотр оборудования.",1,null]');
INSERT INTO ChangeLog VALUES(70,68,'LogbookRecords','REC_DRAFT_PETROV',601,NULL,'["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795371992,1795371992,null,null,null,"Черновик: доклад бригады.",1,null]');
INSERT INTO ChangeLog VALUES(71,69,'LogbookRecords','REC_ZAR',601,NULL,'["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795367792,1795367792,null,null,null,"Схема сверена по щиту.",0,null]');
INSERT INTO ChangeLog VALUES(72,70,'LogbookComments','COM_UNREAD',601,NULL,'["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795352792,"Уточните период смены.",0]');
INSERT INTO ChangeLog VALUES(73,71,'LogbookComments','COM_READ',601,NULL,'["COM_READ","WORKER_IVANOV","REC_ORDER",1795363592,"Исполнение доложить до конца смены.",1795364192]');
INSERT INTO ChangeLog VALUES(74,72,'LogbookComments','COM_PAST',601,NULL,'["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795325792,"Приложите сводку к записи.",0]');
INSERT INTO ChangeLog VALUES(75,73,'LogbookFiles','FILE_TEXT',601,NULL,'["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]');
INSERT INTO ChangeLog VALUES(76,74,'LogbookFiles','FILE_IMAGE',601,NULL,'["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]');
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
INSERT INTO RecordSearch VALUES(117654932160512,'REC_PAST_1','принят сводк погод','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117658077888512,'REC_PAST_2','провер связ с подстанц','','record d4445505F434453 a574F524B45525F4B555A4E4554534F56 s0');
INSERT INTO RecordSearch VALUES(117660201254912,'REC_OPENING','смен приня иван и гр v с 20 00 по 08','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117660437184512,'REC_MESSAGE','запрош состоян нагрузк','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117660673114112,'REC_REPLACED','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s2');
INSERT INTO RecordSearch VALUES(117660673114113,'REC_SUCCESSOR','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117660909043712,'REC_ORDER','отда команд на пс 35 кв ольховк отключ ф 7','пс 35 кв ольховк','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117661144973312,'REC_TRIP','отключ вл 110 кв полев заречн на пс','вл 110 кв полев заречн пс','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117661223616512,'REC_ZAR','схем свер по щит','','record d4445505F5A4152 a574F524B45525F534D49524E4F565F5A4152 s0');
INSERT INTO RecordSearch VALUES(117661380902912,'REC_DRAFT_IVANOV','черновик осмотр оборудован','','record d4445505F434453 a574F524B45525F4956414E4F56 s1');
INSERT INTO RecordSearch VALUES(117661498867712,'REC_DRAFT_PETROV','черновик доклад бригад','','record d4445505F434453 a574F524B45525F504554524F56 s1');
PRAGMA writable_schema=ON;
INSERT INTO sqlite_schema(type,name,tbl_name,rootpage,sql)VALUES('table','RecordWords','RecordWords',0,'CREATE VIRTUAL TABLE RecordWords USING fts5 (
    words, equipment, marks,
    content = ''RecordSearch'', content_rowid = ''number'', detail = ''column'', columnsize = 0,
    tokenize = ''unicode61 remove_diacritics 0''
)');
CREATE TABLE IF NOT EXISTS 'RecordWords_data'(id INTEGER PRIMARY KEY, block BLOB);
INSERT INTO RecordWords_data VALUES(1,X'0b47122c');
INSERT INTO RecordWords_data VALUES(10,X'00000000010b0b000b0101010201010301010401010501010601010701010801010901010a01010b0101');
INSERT INTO RecordWords_data VALUES(137438953473,X'000000a11c306135373466353234623435353235663439353634313465346635369ae09ae3c080000204010f6434343435353035663433343435339ae09ae3c08000020401067265636f72649ae09ae3c080000204010273309ae09ae3c080000204010ad0bfd0bed0b3d0bed0b49ae09ae3c080000202030ad180d0b8d0bdd18fd1829ae09ae3c080000202010ad181d0b2d0bed0b4d0ba9ae09ae3c08000020204261a110d1515');
INSERT INTO RecordWords_data VALUES(274877906945,X'000000b622306135373466353234623435353235663462353535613465343535343533346635369ae0a6bfc080000204010f6434343435353035663433343435339ae0a6bfc08000020401067265636f72649ae0a6bfc080000204010273309ae0a6bfc0800002040110d0bfd0bed0b4d181d182d0b0d0bdd1869ae0a6bfc080000202030ad180d0bed0b2d0b5d1809ae0a6bfc0800002020102d1819ae0a6bfc0800002020306d0b2d18fd0b79ae0a6bfc080000202042c1a110d1b150d');
INSERT INTO RecordWords_data VALUES(412316860417,X'000000ff033030309ae0aeb480800002020201389ae0aeb48080000202010232309ae0aeb48080000202011b6135373466353234623435353235663439353634313465346635369ae0aeb48080000204010f6434343435353035663433343435339ae0aeb4808000020401067265636f72649ae0aeb48080000204010273309ae0aeb480800002040101769ae0aeb480800002020104d0b3d1809ae0aeb480800002020201b89ae0aeb480800002020306d0b2d0b0d0bd9ae0aeb480800002020203bfd0be9ae0aeb480800002020308d180d0b8d0bdd18f9ae0aeb480800002020102d1819ae0aeb480800002020306d0bcd0b5d0bd9ae0aeb48080000202040d0c0d261a110d0c0f0c110e130d');
INSERT INTO RecordWords_data VALUES(549755813889,X'000000aa1c306135373466353234623435353235663439353634313465346635369ae0afa4c080000204010f6434343435353035663433343435339ae0afa4c08000020401067265636f72649ae0afa4c080000204010273309ae0afa4c080000204010cd0b7d0b0d0bfd180d0bed1889ae0afa4c080000202020dbdd0b0d0b3d180d183d0b7d0ba9ae0afa4c080000202010ed181d0bed181d182d0bed18fd0bd9ae0afa4c08000020204261a110d1718');
INSERT INTO RecordWords_data VALUES(687194767361,X'0000012204303131309ae0b095808000040203011b6135373466353234623435353235663439353634313465346635369ae0b0958080000204010f6434343435353035663433343435339ae0b095808000020401067265636f72649ae0b0958080000204010273329ae0b09580800002040104d0b2d0bb9ae0b0958080000202020bb7d0b0d180d0b5d187d0bd9ae0b09580800002020203bad0b29ae0b0958080000402030409bed0bcd0b0d0bdd0b49ae0b09580800002020209bbd183d0b3d0bed0b29ae0b0958080000402030203bdd0b09ae0b09580800002020207bed182d0b4d0b09ae0b09580800002020607bad0bbd18ed1879ae0b09580800002020209bfd0bed0bbd0b5d0b29ae0b09580800002020302d1819ae0b095808000040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(824633720833,X'0000012204303131309ae0b095808001040203011b6135373466353234623435353235663439353634313465346635369ae0b0958080010204010f6434343435353035663433343435339ae0b095808001020401067265636f72649ae0b0958080010204010273309ae0b09580800102040104d0b2d0bb9ae0b0958080010202020bb7d0b0d180d0b5d187d0bd9ae0b09580800102020203bad0b29ae0b0958080010402030409bed0bcd0b0d0bdd0b49ae0b09580800102020209bbd183d0b3d0bed0b29ae0b0958080010402030203bdd0b09ae0b09580800102020207bed182d0b4d0b09ae0b09580800102020607bad0bbd18ed1879ae0b09580800102020209bfd0bed0bbd0b5d0b29ae0b09580800102020302d1819ae0b095808001040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(962072674305,X'00000106033033359ae0b185c080000402030101379ae0b185c080000202011b6135373466353234623435353235663530343535343532346635369ae0b185c080000204010f6434343435353035663433343435339ae0b185c08000020401067265636f72649ae0b185c080000204010273309ae0b185c0800002040104d0bad0b29ae0b185c080000402030409bed0bcd0b0d0bdd0b49ae0b185c0800002020203bdd0b09ae0b185c080000202020dbed0bbd18cd185d0bed0b2d0ba9ae0b185c080000402030306d182d0b4d0b09ae0b185c0800002020607bad0bbd18ed1879ae0b185c0800002020203bfd1819ae0b185c080000402030102d1849ae0b185c080000202040e0c261a110d10140e1911120f');
INSERT INTO RecordWords_data VALUES(1099511627777,X'000000ee04303131309ae0b1f6808000040203011b6135373466353234623435353235663530343535343532346635369ae0b1f68080000204010f6434343435353035663433343435339ae0b1f6808000020401067265636f72649ae0b1f68080000204010273309ae0b1f680800002040104d0b2d0bb9ae0b1f6808000040203020bb7d0b0d180d0b5d187d0bd9ae0b1f68080000402030203bad0b29ae0b1f68080000402030203bdd0b09ae0b1f68080000202020bbed182d0bad0bbd18ed1879ae0b1f680800002020209bfd0bed0bbd0b5d0b29ae0b1f68080000402030302d1819ae0b1f6808000040203040f261a110d10170f0e1615');
INSERT INTO RecordWords_data VALUES(1236950581249,X'000000b11c306135373466353234623435353235663439353634313465346635369ae0b2e6c080000204010f6434343435353035663433343435339ae0b2e6c08000020401067265636f72649ae0b2e6c080000204010273319ae0b2e6c0800002040114d0bed0b1d0bed180d183d0b4d0bed0b2d0b0d0bd9ae0b2e6c080000202030ad181d0bcd0bed182d1809ae0b2e6c0800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0b2e6c08000020204261a110d1f15');
INSERT INTO RecordWords_data VALUES(1374389534721,X'000000aa1c306135373466353234623435353235663530343535343532346635369ae0b39ee080000204010f6434343435353035663433343435339ae0b39ee08000020401067265636f72649ae0b39ee080000204010273319ae0b39ee080000204010cd0b1d180d0b8d0b3d0b0d0b49ae0b39ee080000202020bb4d0bed0bad0bbd0b0d0b49ae0b39ee0800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0b39ee08000020204261a110d1716');
INSERT INTO RecordWords_data VALUES(1511828488193,X'000000af2630613537346635323462343535323566353334643439353234653466353635663561343135329ae0b29bc080000204010f6434343435353035663561343135329ae0b29bc08000020401067265636f72649ae0b29bc080000204010273309ae0b29bc0800002040104d0bfd0be9ae0b29bc0800002020108d181d0b2d0b5d1809ae0b29bc0800002020306d185d0b5d0bc9ae0b29bc080000202020589d0b8d1829ae0b29bc08000020204301a110d0f1311');
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
INSERT INTO LogMark VALUES(1,X'fb3a53faf3f58b363c3aa58078b15b25ef74a77783637e897767ad60ab48065e',X'f9412e2038687faa591a48fac586a0262730a24c2a269787a7e5145834b25ab5');
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
CREATE TRIGGER Log_noUpdate BEFORE UPDATE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Log_noDelete BEFORE DELETE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noUpdate BEFORE UPDATE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noDelete BEFORE DELETE ON ChangeTransactions
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
PRAGMA writable_schema=OFF;
COMMIT;
PRAGMA application_id = 1448233802;
PRAGMA user_version = 4;
