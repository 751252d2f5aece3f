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
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_PAST','DEP_CDS','WORKER_IVANOV','WORKER_IVANOV',1795211181.0,1795211181.0,1795297581.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_OPEN','DEP_CDS','WORKER_IVANOV',NULL,1795297581.0,1795297581.0,1795383981.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_ZAR_OPEN','DEP_ZAR','WORKER_SMIRNOV_ZAR',NULL,1795311981.0,1795311981.0,1795355181.0);
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
INSERT INTO LogbookRecords VALUES('REC_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795217181.0,1795217181.0,NULL,NULL,NULL,'Принята сводка погоды.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',NULL,NULL,NULL,NULL,1795265181.0,1795265181.0,NULL,NULL,NULL,'Проверена связь с подстанциями.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_OPENING','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795297581.0,1795297581.0,NULL,NULL,NULL,'<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_MESSAGE','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,'WORKER_SMIRNOV_ZAR',NULL,NULL,1795301181.0,1795301181.0,NULL,NULL,NULL,'Запрошено состояние <b>нагрузки</b>.',0,1);
INSERT INTO LogbookRecords VALUES('REC_REPLACED','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795304781.0,1795304781.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',2,NULL);
INSERT INTO LogbookRecords VALUES('REC_SUCCESSOR','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,'REC_REPLACED',NULL,1795304781.0,1795304781.0,NULL,NULL,1795305381.0,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_ORDER','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795308381.0,1795308381.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_TRIP','SHIFT_CDS_OPEN','WORKER_PETROV','WORKER_SIDOROVA',NULL,NULL,NULL,1795311981.0,1795311981.0,1795311921.0,NULL,NULL,'<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_IVANOV','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795315581.0,1795315581.0,NULL,NULL,NULL,'Черновик: осмотр оборудования.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_PETROV','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795317381.0,1795317381.0,NULL,NULL,NULL,'Черновик: доклад бригады.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_ZAR','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',NULL,NULL,NULL,NULL,1795313181.0,1795313181.0,NULL,NULL,NULL,'Схема сверена по щиту.',0,NULL);
CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
INSERT INTO LogbookComments VALUES('COM_UNREAD','WORKER_PETROV','REC_OPENING',1795298181.0,'Уточните период смены.',0.0);
INSERT INTO LogbookComments VALUES('COM_READ','WORKER_IVANOV','REC_ORDER',1795308981.0,'Исполнение доложить до конца смены.',1795309581.0);
INSERT INTO LogbookComments VALUES('COM_PAST','WORKER_SIDOROVA','REC_PAST_1',1795271181.0,'Приложите сводку к записи.',0.0);
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
INSERT INTO StoreProperties VALUES('epoch','2374985C67B28F3DF036F85713330D9F');
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
INSERT INTO ChangeTransactions VALUES(1,'120F1D9BEBADF907CEB483485599FCD1','loader',1,1795319182.0,X'f83bc5ba4586ce7648a4dc334916ac38f85918ccb851ed966156fd0fc59543ff');
INSERT INTO ChangeTransactions VALUES(2,'BD36BAA2618C286B29AE0361E8CED814','loader',1,1795319182.0,X'783948a038963bd9c5891134d95a2d05a1cac69ccc576eeded32ced929b26346');
INSERT INTO ChangeTransactions VALUES(3,'80A0CBE2F5F0208FBF52C6CDAAA383FE','loader',1,1795319182.0,X'8a3f22b35aaf5320ec4fcd1fe71869803bae880fe4f144888f95ebc895f2b28f');
INSERT INTO ChangeTransactions VALUES(4,'565E0D5BC227F1F20F1F4A5334FD48FF','loader',1,1795319182.0,X'9ce1771c4c48b1bc75a138a11c1f82727d9b90e3c55e47fb7a22da6668e5cadd');
INSERT INTO ChangeTransactions VALUES(5,'7FAC0F8C8BC3407BD90C64D1E9749F0C','loader',1,1795319182.0,X'08e32db7c4bc8547ed833d05634a48b673233bf9cb62fc2b5f77cb6a893c3aea');
INSERT INTO ChangeTransactions VALUES(6,'A6CF055AECF6DDD249A5764D0C5DE057','loader',1,1795319182.0,X'b1b2b6da39f8f7182d1b4f239a644667319a8fb3d3bb59f415163b40269930cb');
INSERT INTO ChangeTransactions VALUES(7,'AF6B3A20DDF6AE6C50A457909C5863DC','loader',1,1795319182.0,X'09e469c2856bfaa7948e3f1d0852ae32b58af3570846a621ff773b6aa0e0885c');
INSERT INTO ChangeTransactions VALUES(8,'E2B9E96403199CCB342B3FBB6B4E23EC','loader',1,1795319182.0,X'feb438f5b87258ac050a3cb6ac9fbf85b2e493f5f31c6b59c70a3d8f24711389');
INSERT INTO ChangeTransactions VALUES(9,'F4AEF3CCFE5578D704BA7904BB911EE1','loader',1,1795319182.0,X'9de7c23c5467d5e9496d57372574039698d8c19a28daa16695f0c512e396d845');
INSERT INTO ChangeTransactions VALUES(10,'1978199AC27CBA3AFEFB27EB3A2FEB73','loader',1,1795319182.0,X'28b33b8a49e82ebb352e7addcb42b7d2f85ef64327209cbe9f6d1c0907aa1008');
INSERT INTO ChangeTransactions VALUES(11,'83C8FB10D22FE4A4EC5B409D1DD8697C','loader',1,1795319182.0,X'5ea97c4578c72d0b374c7a225d04cad2ce6d7c532575351109a15b338f4cd129');
INSERT INTO ChangeTransactions VALUES(12,'260F4F8D57BF51C6875DB7FB3B6C7937','loader',1,1795319182.0,X'42dffc1e0c9f19e41660ce07308801d62e4a7d48a8f9b2b733d4cc7ddb1c012d');
INSERT INTO ChangeTransactions VALUES(13,'A69031E506900891829081BE22AF1AC5','loader',1,1795319182.0,X'3175ca8868cd56d37f5ffee93a1db26d9b66002b1b298063fa7f5b2092801bed');
INSERT INTO ChangeTransactions VALUES(14,'9C396AA3A27F887E77640EEAF9FC621D','loader',1,1795319182.0,X'51254a19362173615d4f695b3cc30a1d966966058db91b3a7d631daf58413df9');
INSERT INTO ChangeTransactions VALUES(15,'5728907AB50FD74F95303E6B6FB25DE5','loader',1,1795319182.0,X'24fbc927db06c205895d3e1c1df6e2060cf0112f68073fe72153668078775813');
INSERT INTO ChangeTransactions VALUES(16,'07A5B68049DB5B3D4E30B05212EB048A','loader',1,1795319182.0,X'f042e293ffdd045747523aa5e00c69a9511d105004193263b6c570113812ba1e');
INSERT INTO ChangeTransactions VALUES(17,'CE041EC627E33CEC29F5DED90F205F70','loader',1,1795319182.0,X'57af86b1ec09a5beebf7269c151a6b760bb37ddf6ba2e4d8ebe98bc62ffa1d6a');
INSERT INTO ChangeTransactions VALUES(18,'A6AE572F6C84E5725088768ED8596502','loader',1,1795319182.0,X'78e7dd1664b8199a65408bafefb51c0b67ed0f89da779ae682537e6bb73c6ddc');
INSERT INTO ChangeTransactions VALUES(19,'C6F6912B22F6F9E6E1947EF29447085E','loader',1,1795319182.0,X'f2def19462d49df2c77b411d3cba6d2cd68faf371ed9a747415580980355f4e5');
INSERT INTO ChangeTransactions VALUES(20,'F15820429D5060FAA37308CB4E381DB4','loader',1,1795319182.0,X'd1e8fc56ed3c79283bbd58196b75bbcf033ae46bbad3d1a42123d545502ef2bc');
INSERT INTO ChangeTransactions VALUES(21,'C4F2F558BBD358A20D46166A24FB4EEE','loader',1,1795319182.0,X'1fb69f43750c83fa403db19cf5d0dbb1ab49d0301d70a270648ec2f2882ae9e3');
INSERT INTO ChangeTransactions VALUES(22,'97FD771D09BFEAA92C534E1116F6E095','loader',1,1795319182.0,X'39498c363804fa9f8da3bd108c5584b77bc5e81f11bb2ed5f22bd32bef14d67c');
INSERT INTO ChangeTransactions VALUES(23,'F719084691394C83872B37F6097110A3','loader',1,1795319182.0,X'c6b599586c26f67705196fa53faf1f307b0b94abb9c54413fcd3a4eb5dee211e');
INSERT INTO ChangeTransactions VALUES(24,'CD039BB4CBD10A478A575D73C1506677','loader',1,1795319182.0,X'4c4ab33aeb7f56d6ccf5cf72590c32cfe7c7c8d378fc422cf9040c013658afa1');
INSERT INTO ChangeTransactions VALUES(25,'41349EFCF254CFCE2C86558F75A5596A','loader',1,1795319182.0,X'0aeabc92ff7e0dae25eae7fa712a2c4c926179e4e6b73c708522bce542c41d20');
INSERT INTO ChangeTransactions VALUES(26,'AB6C3EFAE3F698C79B47527D02D358E9','loader',1,1795319182.0,X'6e6d4b72352524d0bbac2032d0cba80f378f9d8c3b9504fc48cc8737398eacd4');
INSERT INTO ChangeTransactions VALUES(27,'B11260B992CAD6F1C8EB81AF0591045C','loader',1,1795319182.0,X'db3e1747a83714eb0c486f0d7f1d8ff5247eb23240f4ca5d653a33c9fb5cb737');
INSERT INTO ChangeTransactions VALUES(28,'56B45A81C2CFD9F14960EB26AA298B3A','loader',1,1795319182.0,X'0dc3e899587d412347abdb2f660bde5e072860ae1286435f40b56b5dbaa6cb21');
INSERT INTO ChangeTransactions VALUES(29,'E80CBD7CED1717119C4C0A3341134B75','loader',1,1795319182.0,X'e9d3a3051b14e5857a28fc5eb673dabfa1f7a6ac24ed0dd08ccbd68a627047de');
INSERT INTO ChangeTransactions VALUES(30,'292A8108ED3EC1982E73B18033A5DEBF','loader',1,1795319182.0,X'a7a677c3f84331354dd82c4dc4f0b3278fa1a24417024dc5ca3950ff4eb67d26');
INSERT INTO ChangeTransactions VALUES(31,'4E3A06EDB9B5DF78741525D85A967F7D','loader',1,1795319182.0,X'68154682ca50db2bb6566559741487000d5e8b9e5a1261d79c48af5fc155c25d');
INSERT INTO ChangeTransactions VALUES(32,'65865AFC5944ABE4366C1A1487320848','loader',1,1795319182.0,X'7d78388e554fc967cb3fd78b41d41857dc0485aea761622b1808d75154ca7c36');
INSERT INTO ChangeTransactions VALUES(33,'27BBF812874244D57B16BEBCED4AFDB6','loader',1,1795319182.0,X'a12a86e99cf6e8f6b4fde545c192a1837e55def8158beb04fbbc1636604f7bae');
INSERT INTO ChangeTransactions VALUES(34,'C8CD647DD68B1FB4F8D3AF56B6560F87','loader',1,1795319182.0,X'3f4860a13d7c81fee3aa3aa8b33e0be2d075aefaca34fe3a2fecf74f570faf32');
INSERT INTO ChangeTransactions VALUES(35,'F9BB5FAC95CC039EF64F8A8DD20BF34C','loader',1,1795319182.0,X'791bdc401d188c479dc0135a3559c85cf15e43391b872b3679bef420998f7cd2');
INSERT INTO ChangeTransactions VALUES(36,'EB1ACBCC7C9A907C2C7445EDF09AD5BF','loader',1,1795319182.0,X'c2694232c581307a9474b4deb7e377d8050ce69cf604c0edbcdc86fcfb6222f8');
INSERT INTO ChangeTransactions VALUES(37,'5C4507284C6B502116BFD3CC59FFF52D','loader',1,1795319182.0,X'64b25e6a547082e2ad8b952a02fbff7ae2f6cf712f58af2f0eaf1bb4afb01399');
INSERT INTO ChangeTransactions VALUES(38,'FD7CF29E9B6AB516889F80A7179DAD76','loader',1,1795319182.0,X'194caf7dc71dec75bbba597a461c3ee63264b5131da8743c571ff4cd2ff22e63');
INSERT INTO ChangeTransactions VALUES(39,'842C6CE60DA01C77FD31C209BD420D0A','loader',1,1795319182.0,X'2429b96f7723323b59fb515b05d8070db3a72a856ff1b1ede98678d71380b11d');
INSERT INTO ChangeTransactions VALUES(40,'54A858D1C2A9F3F0C313FA151D73B11C','loader',1,1795319182.0,X'f08e55aa5aef5c29602cf4e4a432c3833601a1a62e334cc833c58bb25bfceed0');
INSERT INTO ChangeTransactions VALUES(41,'08EB6F05D349E18AAFF0ECE1776FA3A0','loader',1,1795319182.0,X'edd5ec039465c981289196531259a4c70f8b4cde8fd3a3fa43e12c70e9b811fc');
INSERT INTO ChangeTransactions VALUES(42,'9E01706E47F55C0D9C93D76B3522428D','loader',1,1795319182.0,X'fc6305a9e61ac9f50a6cc8d09a8595e6b2d18e49a0d1ab65d3efc0a7259dbde5');
INSERT INTO ChangeTransactions VALUES(43,'FE26BF4DDFE1D6C8961E54AC76CD203C','loader',1,1795319182.0,X'e93155e3bef105af8989cf4b993211f5593f8d78da5f66c8a58dc00f634ca403');
INSERT INTO ChangeTransactions VALUES(44,'F3912BC1FA5A8EA4D7A640F0E545C971','loader',1,1795319182.0,X'1ec587c70d5eeff98b7d1ed5f837f2cc1be31ee2c2fc20268655d80d9ae9e42b');
INSERT INTO ChangeTransactions VALUES(45,'CF206D2B0075812835CEB2F337A7E535','loader',1,1795319182.0,X'00498dba2e225deb71ff182c998ad8f6eb747a40a3522fdded575b9b10f2b7ab');
INSERT INTO ChangeTransactions VALUES(46,'F11AF3E6D3783C6AA722C14DDD0084EA','loader',1,1795319182.0,X'5831a861052f2b916e181ad082d74e579cf38e286f7bca2fd1c1f2d7093f2689');
INSERT INTO ChangeTransactions VALUES(47,'A289015BC97991E0CB826F2D6B41A77A','loader',1,1795319182.0,X'74d7c829ca220b9be53748ee4ade9842cf0662068909b1e0832a2a50221d8cb8');
INSERT INTO ChangeTransactions VALUES(48,'DE7FE319ABAABD465E9FD30E27C262AC','loader',1,1795319182.0,X'9c30bc53430584c371380fa25b9f1d27fa8e5ad65ed293c78099fd18e3b78036');
INSERT INTO ChangeTransactions VALUES(49,'B0403BCE7E7C0CCD2063681F755E57A2','loader',1,1795319182.0,X'81549aa9eaa3361cbfda5c0e7c25255cf1ae45fca939f650f6e4217d2515d340');
INSERT INTO ChangeTransactions VALUES(50,'96E82BDE6A7DE94F6366F3AF4B338272','loader',1,1795319182.0,X'653b6f977d12b82f06dd2791c55a10c91237599bedc0a14df96b63fec9368ad4');
INSERT INTO ChangeTransactions VALUES(51,'5D03DA875AC25DCBE2F2B9BDE45609B3','loader',1,1795319182.0,X'772a97f0ec1013e8cefc30850058d712d3e5166ce2ae186d71167d693fb1bc82');
INSERT INTO ChangeTransactions VALUES(52,'7127D17F59E1695A1F4F603C1F87485D','loader',1,1795319182.0,X'2f19a34ec4ecec1f314b48adeb7c4e2ad6503326432437420934f9399d3a0ff9');
INSERT INTO ChangeTransactions VALUES(53,'E0DF6ED7C2C055DD6E046A29FDFB03BB','loader',1,1795319182.0,X'ee0868f5b0db4a13503f3d756d9d4ba6b3a3e11519b434b7c7d197bd2766c2b5');
INSERT INTO ChangeTransactions VALUES(54,'3C62AB5C697FA6C7138508570CFE9A54','loader',1,1795319182.0,X'5c45fb57dc6c8712b24092da26aeb9f87011806fe80b78e6c1fd6686fb646c91');
INSERT INTO ChangeTransactions VALUES(55,'9484F01C18795C2CB16445BF146A6B53','loader',1,1795319182.0,X'2b4557fbf3759f467a8036da4cedde98166952946b4e6cc41323a6d28eafaba9');
INSERT INTO ChangeTransactions VALUES(56,'B3C54D14913E18D90DFB0EC815E26DD4','loader',1,1795319182.0,X'067a5aec151d0d57fd72f57b50720819c3f322485079477e39852c826a133740');
INSERT INTO ChangeTransactions VALUES(57,'9A24898FA8052245B42817FF3864F22B','loader',1,1795319182.0,X'9fc79db110167ff75c54d953479764abbb1de1c9aedf5e7782040a9cbd9bab8c');
INSERT INTO ChangeTransactions VALUES(58,'5832EA3D769396EAE9B34755766F5DC1','loader',1,1795319182.0,X'b430117fab7875f20ea91ee4a77c7e509aeb73b8ff922a72f6d71a9af88a0720');
INSERT INTO ChangeTransactions VALUES(59,'A3532ED22F9DB5970FF2B20972B1D27B','loader',1,1795319182.0,X'f1bc7295d67760627bb1da7b7ed8499f00eed3210bf0feed8e3694bc10b0ced5');
INSERT INTO ChangeTransactions VALUES(60,'567AA0B1188736A49713CD4106F734B4','loader',1,1795319182.0,X'a71845493f02c261236378494dace1bce7bc5269f244da829e2a2b4bf73bcd3f');
INSERT INTO ChangeTransactions VALUES(61,'A43AD339DFF8AB5BF1B884566E0D2CF1','loader',1,1795319182.0,X'e4bca98f05f32665d8a6764184572fc6aa04a20930dbab127d041f7a962b816a');
INSERT INTO ChangeTransactions VALUES(62,'99CE58A2485161E43481A1E498E5C2C9','loader',1,1795319182.0,X'4b5e3c4adaed336adb76beeb8c90c40ab8b36bea655b7d151bb552fb7d360790');
INSERT INTO ChangeTransactions VALUES(63,'22FF0B3A949489746FB3CF1ADC007298','loader',1,1795319182.0,X'c4965714e7d4b58dc6dcbd6c1c32da9a6afd96f6b11e372d4326dffcbd530cb6');
INSERT INTO ChangeTransactions VALUES(64,'0A66A6F0BADD052153E94ACCD8EC96C5','loader',1,1795319182.0,X'4b39a376f4774e5d72359c18b0b429557f64059e2cf152457400b4d88ee43ff4');
INSERT INTO ChangeTransactions VALUES(65,'798E09F9AEFB73E4A78790C8EF15E09C','loader',1,1795319182.0,X'105b5beef15e0922c7e3c5fb4d598d84bd09dfe4b35ac9f10222fbe25ad600b1');
INSERT INTO ChangeTransactions VALUES(66,'E8C79264ECE3AC449904357CFD5A7937','loader',1,1795319182.0,X'b1413d7887749e951f591c9f1de5cf785cc0405d10a42a6b8ae983fb470e0cc2');
INSERT INTO ChangeTransactions VALUES(67,'ACBC7F49611BAB80E60D10C32B96BE39','loader',1,1795319182.0,X'20cf6797308ee92afc26770bc7ef6fec5eb69301471cef02d20f2b6cd9c81555');
INSERT INTO ChangeTransactions VALUES(68,'D6130CCA3C67B0981D153FCF52ADD37F','loader',1,1795319182.0,X'd9dcb650444163094adf366f0c71577072cb76dff3f12ba62d2a55290b7cd82a');
INSERT INTO ChangeTransactions VALUES(69,'0E7C6432AD5564A21D4E446FA4E1D487','loader',1,1795319182.0,X'218ca3b1c4cb93ea31a84096d7009f8cc1f220b182642404629257a9c79d2484');
INSERT INTO ChangeTransactions VALUES(70,'C807913881BA435B7E44B4C7E0DDB630','loader',1,1795319182.0,X'780ff9e22f46dbbbe9e4522725a93319f0d1bfab45403e1502d3991703843df0');
INSERT INTO ChangeTransactions VALUES(71,'612B515D8A27742D0ECA39C7F974FF5D','loader',1,1795319182.0,X'8c316bd2d2b8260c29afe864ef8ae760e3c8a190e7c531f99e0297ffd65d65d5');
INSERT INTO ChangeTransactions VALUES(72,'9453CCF1E41F4215A4D77FCE67151FE4','loader',1,1795319182.0,X'5d005b5e71af89cf057a43a30c7f372d0147577ca217f3011685c84bcfb80ab3');
INSERT INTO ChangeTransactions VALUES(73,'FD0412F2152D870ED2530BD155658781','loader',1,1795319182.0,X'2ce0fcf7c58c224c5349d4f5113fb54e27547cf0ec152348a43feec15604e795');
CREATE TABLE ChangeLog (
    entry INTEGER PRIMARY KEY,
    number INTEGER NOT NULL,
    tableName TEXT NOT NULL,
    rowKey TEXT NOT NULL,
    event INTEGER NOT NULL,
    oldRow TEXT,
    newRow TEXT
) STRICT;
INSERT INTO ChangeLog VALUES(1,1,'OrgTypes','TYPE_CENTER',601,NULL,'["TYPE_CENTER","Диспетчерский центр"]');
INSERT INTO ChangeLog VALUES(2,2,'OrgTypes','TYPE_NETS',601,NULL,'["TYPE_NETS","Электросетевая организация"]');
INSERT INTO ChangeLog VALUES(3,3,'Organizations','ORG_CENTER',601,NULL,'["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]');
INSERT INTO ChangeLog VALUES(4,4,'Organizations','ORG_NETS',601,NULL,'["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]');
INSERT INTO ChangeLog VALUES(5,5,'Departments','DEP_ODS',601,NULL,'["DEP_ODS","ORG_CENTER",null,"ОДС"]');
INSERT INTO ChangeLog VALUES(6,6,'Departments','DEP_CDS',601,NULL,'["DEP_CDS","ORG_NETS",null,"ЦДС"]');
INSERT INTO ChangeLog VALUES(7,7,'Departments','DEP_ZAR',601,NULL,'["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]');
INSERT INTO ChangeLog VALUES(8,8,'Users','USER_IVANOV',601,NULL,'["USER_IVANOV","ivanov","Иванов Иван Иванович",0]');
INSERT INTO ChangeLog VALUES(9,9,'Users','USER_PETROV',601,NULL,'["USER_PETROV","petrov","Петров Пётр Петрович",0]');
INSERT INTO ChangeLog VALUES(10,10,'Users','USER_SIDOROVA',601,NULL,'["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]');
INSERT INTO ChangeLog VALUES(11,11,'Users','USER_SMIRNOV',601,NULL,'["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]');
INSERT INTO ChangeLog VALUES(12,12,'Users','USER_KUZNETSOV',601,NULL,'["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]');
INSERT INTO ChangeLog VALUES(13,13,'Users','USER_VIEWER',601,NULL,'["USER_VIEWER","viewer","Наблюдатель",0]');
INSERT INTO ChangeLog VALUES(14,14,'UserRights','RIGHT_SIDOROVA',601,NULL,'["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]');
INSERT INTO ChangeLog VALUES(15,15,'UserRights','RIGHT_SMIRNOV',601,NULL,'["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]');
INSERT INTO ChangeLog VALUES(16,16,'Workers','WORKER_IVANOV',601,NULL,'["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]');
INSERT INTO ChangeLog VALUES(17,17,'Workers','WORKER_PETROV',601,NULL,'["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]');
INSERT INTO ChangeLog VALUES(18,18,'Workers','WORKER_SIDOROVA',601,NULL,'["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]');
INSERT INTO ChangeLog VALUES(19,19,'Workers','WORKER_SMIRNOV_ZAR',601,NULL,'["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(20,20,'Workers','WORKER_SMIRNOV_ODS',601,NULL,'["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]');
INSERT INTO ChangeLog VALUES(21,21,'Workers','WORKER_KUZNETSOV',601,NULL,'["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]');
INSERT INTO ChangeLog VALUES(22,22,'Roles','ROLE_CDS_SENIOR',601,NULL,'["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]');
INSERT INTO ChangeLog VALUES(23,23,'Roles','ROLE_CDS_DISPATCHER',601,NULL,'["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]');
INSERT INTO ChangeLog VALUES(24,24,'Roles','ROLE_ZAR',601,NULL,'["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]');
INSERT INTO ChangeLog VALUES(25,25,'WorkerRoles','WROLE_IVANOV_1',601,NULL,'["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(26,26,'WorkerRoles','WROLE_IVANOV_2',601,NULL,'["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]');
INSERT INTO ChangeLog VALUES(27,27,'WorkerRoles','WROLE_PETROV',601,NULL,'["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]');
INSERT INTO ChangeLog VALUES(28,28,'WorkerRoles','WROLE_SMIRNOV',601,NULL,'["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]');
INSERT INTO ChangeLog VALUES(29,29,'Shifts','TIMETABLE_CDS_DAY',601,NULL,'["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(30,30,'Shifts','TIMETABLE_CDS_NIGHT',601,NULL,'["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]');
INSERT INTO ChangeLog VALUES(31,31,'Shifts','TIMETABLE_ZAR_DAY',601,NULL,'["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]');
INSERT INTO ChangeLog VALUES(32,32,'LogbookCatsTemplate','CAT_COMMON',601,NULL,'["CAT_COMMON",null,null,null,"Оперативная смена"]');
INSERT INTO ChangeLog VALUES(33,33,'LogbookCatsTemplate','CAT_COMMON_SUB',601,NULL,'["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]');
INSERT INTO ChangeLog VALUES(34,34,'LogbookCatsTemplate','CAT_NETS',601,NULL,'["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]');
INSERT INTO ChangeLog VALUES(35,35,'LogbookCatsTemplate','CAT_CDS',601,NULL,'["CAT_CDS",null,null,"DEP_CDS","Погода"]');
INSERT INTO ChangeLog VALUES(36,36,'LogbookCatsTemplate','CAT_ZAR',601,NULL,'["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]');
INSERT INTO ChangeLog VALUES(37,37,'LogbookTemplates','TPL_OPEN',601,NULL,'["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Диспетчер</a> <a href=\"parameter:name=interval;locname=Период%20смены\">Период смены</a>."]');
INSERT INTO ChangeLog VALUES(38,38,'LogbookTemplates','TPL_CLOSE',601,NULL,'["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\"template\" content=\"close_wshift\">Смену сдал <a href=\"parameter:name=employee_fio;locname=Сдал\">Сдал</a>."]');
INSERT INTO ChangeLog VALUES(39,39,'LogbookTemplates','TPL_ORDER',601,NULL,'["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">Оборудование</a>."]');
INSERT INTO ChangeLog VALUES(40,40,'LogbookTemplates','TPL_TRIP',601,NULL,'["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">Линия</a> на <a href=\"parameter:name=substation;locname=Подстанция\">Подстанция</a>."]');
INSERT INTO ChangeLog VALUES(41,41,'LogbookTemplates','TPL_TEXT',601,NULL,'["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]');
INSERT INTO ChangeLog VALUES(42,42,'TemplateParamCategories','PARCAT_MAIN',601,NULL,'["PARCAT_MAIN",null,"Общие параметры"]');
INSERT INTO ChangeLog VALUES(43,43,'TemplateParams','PAR_TEXT',601,NULL,'["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\"parameter:name=text;locname=Текст\">Текст</a>"]');
INSERT INTO ChangeLog VALUES(44,44,'TemplateParams','PAR_LIST',601,NULL,'["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\">Состояние связи</a>"]');
INSERT INTO ChangeLog VALUES(45,45,'Equipment','EQ_SUBSTATION',601,NULL,'["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]');
INSERT INTO ChangeLog VALUES(46,46,'Equipment','EQ_BAY',601,NULL,'["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]');
INSERT INTO ChangeLog VALUES(47,47,'Equipment','EQ_LINE',601,NULL,'["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]');
INSERT INTO ChangeLog VALUES(48,48,'LogbookWorkshifts','SHIFT_CDS_PAST',601,NULL,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795211181,1795211181,1795297581]');
INSERT INTO ChangeLog VALUES(49,49,'LogbookWorkshifts','SHIFT_CDS_OPEN',601,NULL,'["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795297581,1795297581,1795383981]');
INSERT INTO ChangeLog VALUES(50,50,'LogbookWorkshifts','SHIFT_ZAR_OPEN',601,NULL,'["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795311981,1795311981,1795355181]');
INSERT INTO ChangeLog VALUES(51,51,'LogbookWorkshifts','SHIFT_CDS_PAST',602,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795211181,1795211181,1795297581]','["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795211181,1795211181,1795297581]');
INSERT INTO ChangeLog VALUES(52,52,'LogbookWorkersWorkshift','CREW_CDS_1',601,NULL,'["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(53,53,'LogbookWorkersWorkshift','CREW_CDS_2',601,NULL,'["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]');
INSERT INTO ChangeLog VALUES(54,54,'LogbookWorkersWorkshift','CREW_ZAR_1',601,NULL,'["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]');
INSERT INTO ChangeLog VALUES(55,55,'LogbookWorkersWorkshift','CREW_PAST_1',601,NULL,'["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(56,56,'LogbookWorkersWorkshift','CREW_PAST_2',601,NULL,'["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]');
INSERT INTO ChangeLog VALUES(57,57,'LogbookWorkersWorkshift','CREW_PAST_3',601,NULL,'["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]');
INSERT INTO ChangeLog VALUES(58,58,'LogbookRecords','REC_PAST_1',601,NULL,'["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795217181,1795217181,null,null,null,"Принята сводка погоды.",0,null]');
INSERT INTO ChangeLog VALUES(59,59,'LogbookRecords','REC_PAST_2',601,NULL,'["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795265181,1795265181,null,null,null,"Проверена связь с подстанциями.",0,null]');
INSERT INTO ChangeLog VALUES(60,60,'LogbookRecords','REC_OPENING',601,NULL,'["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795297581,1795297581,null,null,null,"<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Иванов И.И. гр.V</a> <a href=\"parameter:name=interval;locname=Период%20смены\">с 20:00 по 08:00</a>.",0,null]');
INSERT INTO ChangeLog VALUES(61,61,'LogbookRecords','REC_MESSAGE',601,NULL,'["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795301181,1795301181,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]');
INSERT INTO ChangeLog VALUES(62,62,'LogbookRecords','REC_REPLACED',601,NULL,'["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795304781,1795304781,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]');
INSERT INTO ChangeLog VALUES(63,63,'LogbookRecords','REC_SUCCESSOR',601,NULL,'["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795304781,1795304781,null,null,1795305381,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(64,64,'LogbookRecords','REC_ORDER',601,NULL,'["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795308381,1795308381,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 35 кВ Ольховка</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ф. 7</a>.",0,null]');
INSERT INTO ChangeLog VALUES(65,65,'LogbookRecords','REC_TRIP',601,NULL,'["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795311981,1795311981,1795311921,null,null,"<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(66,66,'LogbookRecords','REC_DRAFT_IVANOV',601,NULL,'["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795315581,1795315581,null,null,null,"Черновик: осмотр оборудования.",1,null]');
INSERT INTO ChangeLog VALUES(67,67,'LogbookRecords','REC_DRAFT_PETROV',601,NULL,'["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795317381,1795317381,null,null,null,"Черновик: доклад бригады.",1,null]');
INSERT INTO ChangeLog VALUES(68,68,'LogbookRecords','REC_ZAR',601,NULL,'["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795313181,1795313181,null,null,null,"Схема сверена по щиту.",0,null]');
INSERT INTO ChangeLog VALUES(69,69,'LogbookComments','COM_UNREAD',601,NULL,'["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795298181,"Уточните период смены.",0]');
INSERT INTO ChangeLog VALUES(70,70,'LogbookComments','COM_READ',601,NULL,'["COM_READ","WORKER_IVANOV","REC_ORDER",1795308981,"Исполнение доложить до конца смены.",1795309581]');
INSERT INTO ChangeLog VALUES(71,71,'LogbookComments','COM_PAST',601,NULL,'["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795271181,"Приложите сводку к записи.",0]');
INSERT INTO ChangeLog VALUES(72,72,'LogbookFiles','FILE_TEXT',601,NULL,'["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]');
INSERT INTO ChangeLog VALUES(73,73,'LogbookFiles','FILE_IMAGE',601,NULL,'["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]');
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
INSERT INTO RecordSearch VALUES(117651353174016,'REC_PAST_1','принят сводк погод','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117654498902016,'REC_PAST_2','провер связ с подстанц','','record d4445505F434453 a574F524B45525F4B555A4E4554534F56 s0');
INSERT INTO RecordSearch VALUES(117656622268416,'REC_OPENING','смен приня иван и гр v с 20 00 по 08','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117656858198016,'REC_MESSAGE','запрош состоян нагрузк','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117657094127616,'REC_REPLACED','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s2');
INSERT INTO RecordSearch VALUES(117657094127617,'REC_SUCCESSOR','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117657330057216,'REC_ORDER','отда команд на пс 35 кв ольховк отключ ф 7','пс 35 кв ольховк','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117657565986816,'REC_TRIP','отключ вл 110 кв полев заречн на пс','вл 110 кв полев заречн пс','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117657644630016,'REC_ZAR','схем свер по щит','','record d4445505F5A4152 a574F524B45525F534D49524E4F565F5A4152 s0');
INSERT INTO RecordSearch VALUES(117657801916416,'REC_DRAFT_IVANOV','черновик осмотр оборудован','','record d4445505F434453 a574F524B45525F4956414E4F56 s1');
INSERT INTO RecordSearch VALUES(117657919881216,'REC_DRAFT_PETROV','черновик доклад бригад','','record d4445505F434453 a574F524B45525F504554524F56 s1');
PRAGMA writable_schema=ON;
INSERT INTO sqlite_schema(type,name,tbl_name,rootpage,sql)VALUES('table','RecordWords','RecordWords',0,'CREATE VIRTUAL TABLE RecordWords USING fts5 (
    words, equipment, marks,
    content = ''RecordSearch'', content_rowid = ''number'', detail = ''column'', columnsize = 0,
    tokenize = ''unicode61 remove_diacritics 0''
)');
CREATE TABLE IF NOT EXISTS 'RecordWords_data'(id INTEGER PRIMARY KEY, block BLOB);
INSERT INTO RecordWords_data VALUES(1,X'0b47122c');
INSERT INTO RecordWords_data VALUES(10,X'00000000010b0b000b0101010201010301010401010501010601010701010801010901010a01010b0101');
INSERT INTO RecordWords_data VALUES(137438953473,X'000000a11c306135373466353234623435353235663439353634313465346635369ae08db8f480000204010f6434343435353035663433343435339ae08db8f48000020401067265636f72649ae08db8f480000204010273309ae08db8f480000204010ad0bfd0bed0b3d0bed0b49ae08db8f480000202030ad180d0b8d0bdd18fd1829ae08db8f480000202010ad181d0b2d0bed0b4d0ba9ae08db8f48000020204261a110d1515');
INSERT INTO RecordWords_data VALUES(274877906945,X'000000b622306135373466353234623435353235663462353535613465343535343533346635369ae09994f480000204010f6434343435353035663433343435339ae09994f48000020401067265636f72649ae09994f480000204010273309ae09994f4800002040110d0bfd0bed0b4d181d182d0b0d0bdd1869ae09994f480000202030ad180d0bed0b2d0b5d1809ae09994f4800002020102d1819ae09994f4800002020306d0b2d18fd0b79ae09994f480000202042c1a110d1b150d');
INSERT INTO RecordWords_data VALUES(412316860417,X'000000ff033030309ae0a189b4800002020201389ae0a189b480000202010232309ae0a189b480000202011b6135373466353234623435353235663439353634313465346635369ae0a189b480000204010f6434343435353035663433343435339ae0a189b48000020401067265636f72649ae0a189b480000204010273309ae0a189b4800002040101769ae0a189b4800002020104d0b3d1809ae0a189b4800002020201b89ae0a189b4800002020306d0b2d0b0d0bd9ae0a189b4800002020203bfd0be9ae0a189b4800002020308d180d0b8d0bdd18f9ae0a189b4800002020102d1819ae0a189b4800002020306d0bcd0b5d0bd9ae0a189b480000202040d0c0d261a110d0c0f0c110e130d');
INSERT INTO RecordWords_data VALUES(549755813889,X'000000aa1c306135373466353234623435353235663439353634313465346635369ae0a1f9f480000204010f6434343435353035663433343435339ae0a1f9f48000020401067265636f72649ae0a1f9f480000204010273309ae0a1f9f480000204010cd0b7d0b0d0bfd180d0bed1889ae0a1f9f480000202020dbdd0b0d0b3d180d183d0b7d0ba9ae0a1f9f480000202010ed181d0bed181d182d0bed18fd0bd9ae0a1f9f48000020204261a110d1718');
INSERT INTO RecordWords_data VALUES(687194767361,X'0000012204303131309ae0a2eab48000040203011b6135373466353234623435353235663439353634313465346635369ae0a2eab480000204010f6434343435353035663433343435339ae0a2eab48000020401067265636f72649ae0a2eab480000204010273329ae0a2eab4800002040104d0b2d0bb9ae0a2eab480000202020bb7d0b0d180d0b5d187d0bd9ae0a2eab4800002020203bad0b29ae0a2eab480000402030409bed0bcd0b0d0bdd0b49ae0a2eab4800002020209bbd183d0b3d0bed0b29ae0a2eab480000402030203bdd0b09ae0a2eab4800002020207bed182d0b4d0b09ae0a2eab4800002020607bad0bbd18ed1879ae0a2eab4800002020209bfd0bed0bbd0b5d0b29ae0a2eab4800002020302d1819ae0a2eab48000040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(824633720833,X'0000012204303131309ae0a2eab48001040203011b6135373466353234623435353235663439353634313465346635369ae0a2eab480010204010f6434343435353035663433343435339ae0a2eab48001020401067265636f72649ae0a2eab480010204010273309ae0a2eab4800102040104d0b2d0bb9ae0a2eab480010202020bb7d0b0d180d0b5d187d0bd9ae0a2eab4800102020203bad0b29ae0a2eab480010402030409bed0bcd0b0d0bdd0b49ae0a2eab4800102020209bbd183d0b3d0bed0b29ae0a2eab480010402030203bdd0b09ae0a2eab4800102020207bed182d0b4d0b09ae0a2eab4800102020607bad0bbd18ed1879ae0a2eab4800102020209bfd0bed0bbd0b5d0b29ae0a2eab4800102020302d1819ae0a2eab48001040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(962072674305,X'00000106033033359ae0a3daf480000402030101379ae0a3daf480000202011b6135373466353234623435353235663530343535343532346635369ae0a3daf480000204010f6434343435353035663433343435339ae0a3daf48000020401067265636f72649ae0a3daf480000204010273309ae0a3daf4800002040104d0bad0b29ae0a3daf480000402030409bed0bcd0b0d0bdd0b49ae0a3daf4800002020203bdd0b09ae0a3daf480000202020dbed0bbd18cd185d0bed0b2d0ba9ae0a3daf480000402030306d182d0b4d0b09ae0a3daf4800002020607bad0bbd18ed1879ae0a3daf4800002020203bfd1819ae0a3daf480000402030102d1849ae0a3daf480000202040e0c261a110d10140e1911120f');
INSERT INTO RecordWords_data VALUES(1099511627777,X'000000ee04303131309ae0a4cbb48000040203011b6135373466353234623435353235663530343535343532346635369ae0a4cbb480000204010f6434343435353035663433343435339ae0a4cbb48000020401067265636f72649ae0a4cbb480000204010273309ae0a4cbb4800002040104d0b2d0bb9ae0a4cbb48000040203020bb7d0b0d180d0b5d187d0bd9ae0a4cbb480000402030203bad0b29ae0a4cbb480000402030203bdd0b09ae0a4cbb480000202020bbed182d0bad0bbd18ed1879ae0a4cbb4800002020209bfd0bed0bbd0b5d0b29ae0a4cbb480000402030302d1819ae0a4cbb48000040203040f261a110d10170f0e1615');
INSERT INTO RecordWords_data VALUES(1236950581249,X'000000b11c306135373466353234623435353235663439353634313465346635369ae0a5bbf480000204010f6434343435353035663433343435339ae0a5bbf48000020401067265636f72649ae0a5bbf480000204010273319ae0a5bbf4800002040114d0bed0b1d0bed180d183d0b4d0bed0b2d0b0d0bd9ae0a5bbf480000202030ad181d0bcd0bed182d1809ae0a5bbf4800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0a5bbf48000020204261a110d1f15');
INSERT INTO RecordWords_data VALUES(1374389534721,X'000000aa1c306135373466353234623435353235663530343535343532346635369ae0a5f49480000204010f6434343435353035663433343435339ae0a5f4948000020401067265636f72649ae0a5f49480000204010273319ae0a5f49480000204010cd0b1d180d0b8d0b3d0b0d0b49ae0a5f49480000202020bb4d0bed0bad0bbd0b0d0b49ae0a5f494800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0a5f4948000020204261a110d1716');
INSERT INTO RecordWords_data VALUES(1511828488193,X'000000af2630613537346635323462343535323566353334643439353234653466353635663561343135329ae0a4f0f480000204010f6434343435353035663561343135329ae0a4f0f48000020401067265636f72649ae0a4f0f480000204010273309ae0a4f0f4800002040104d0bfd0be9ae0a4f0f4800002020108d181d0b2d0b5d1809ae0a4f0f4800002020306d185d0b5d0bc9ae0a4f0f480000202020589d0b8d1829ae0a4f0f48000020204301a110d0f1311');
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
CREATE VIEW CurrentWorkers AS
    SELECT Workers.KeyLink, Workers.DepartmentKey
    FROM CurrentTransaction JOIN Workers ON Workers.UserKey = CurrentTransaction.userKey
    WHERE coalesce(Workers.deleted_, 0) = 0;
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
END;
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
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
           OR NOT (NEW.CloseWorkerKey IS NOT DISTINCT FROM OLD.OpenWorkerKey
                   OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift
                              WHERE WorkshiftKey = OLD.KeyLink AND opening = 1
                                AND WorkerKey = NEW.CloseWorkerKey)));
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
    SELECT RAISE(ABORT, 'Автором записи может быть только тот, кто её вносит.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND NOT EXISTS (SELECT 1 FROM LogbookRecords
                      WHERE KeyLink = NEW.OriginRecordKey AND WorkerKey = NEW.WorkerKey);
    SELECT RAISE(ABORT, 'Новая запись не может нести визу.') WHERE coalesce(NEW.VisaWorkerKey, '') <> '';
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
    WHERE coalesce(OLD.WorkerKey, '') IN ('', NEW.VisaWorkerKey);
END;
CREATE TRIGGER Rule_Records_update BEFORE UPDATE ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Такая смена состояния записи недопустима.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status)
      AND NOT (coalesce(OLD.status, -1) = 1 AND coalesce(NEW.status, -1) = 0
               OR coalesce(OLD.status, -1) = 0 AND coalesce(NEW.status, -1) = 2);
    SELECT RAISE(ABORT, 'Автор и смена записи не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.ShiftKey IS DISTINCT FROM OLD.ShiftKey);
    SELECT RAISE(ABORT, 'Утверждённая запись не изменяется.')
    WHERE OLD.status IS DISTINCT FROM 1
      AND ((NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
           OR (NEW.executionTime IS DISTINCT FROM OLD.executionTime)
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    SELECT RAISE(ABORT, 'Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status OR NEW.executionTime IS DISTINCT FROM OLD.executionTime OR NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
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
PRAGMA writable_schema=OFF;
COMMIT;
PRAGMA application_id = 1448233802;
PRAGMA user_version = 3;
