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
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_PAST','DEP_CDS','WORKER_IVANOV','WORKER_IVANOV',1795175582.0,1795175582.0,1795261982.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_OPEN','DEP_CDS','WORKER_IVANOV',NULL,1795261982.0,1795261982.0,1795348382.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_ZAR_OPEN','DEP_ZAR','WORKER_SMIRNOV_ZAR',NULL,1795276382.0,1795276382.0,1795319582.0);
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
INSERT INTO LogbookRecords VALUES('REC_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795181582.0,1795181582.0,NULL,NULL,NULL,'Принята сводка погоды.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',NULL,NULL,NULL,NULL,1795229582.0,1795229582.0,NULL,NULL,NULL,'Проверена связь с подстанциями.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_OPENING','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795261982.0,1795261982.0,NULL,NULL,NULL,'<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_MESSAGE','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,'WORKER_SMIRNOV_ZAR',NULL,NULL,1795265582.0,1795265582.0,NULL,NULL,NULL,'Запрошено состояние <b>нагрузки</b>.',0,1);
INSERT INTO LogbookRecords VALUES('REC_REPLACED','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795269182.0,1795269182.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',2,NULL);
INSERT INTO LogbookRecords VALUES('REC_SUCCESSOR','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,'REC_REPLACED',NULL,1795269182.0,1795269182.0,NULL,NULL,1795269782.0,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_ORDER','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795272782.0,1795272782.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_TRIP','SHIFT_CDS_OPEN','WORKER_PETROV','WORKER_SIDOROVA',NULL,NULL,NULL,1795276382.0,1795276382.0,1795276322.0,NULL,NULL,'<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_IVANOV','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795279982.0,1795279982.0,NULL,NULL,NULL,'Черновик: осмотр оборудования.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_PETROV','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795281782.0,1795281782.0,NULL,NULL,NULL,'Черновик: доклад бригады.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_ZAR','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',NULL,NULL,NULL,NULL,1795277582.0,1795277582.0,NULL,NULL,NULL,'Схема сверена по щиту.',0,NULL);
CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
INSERT INTO LogbookComments VALUES('COM_UNREAD','WORKER_PETROV','REC_OPENING',1795262582.0,'Уточните период смены.',0.0);
INSERT INTO LogbookComments VALUES('COM_READ','WORKER_IVANOV','REC_ORDER',1795273382.0,'Исполнение доложить до конца смены.',1795273982.0);
INSERT INTO LogbookComments VALUES('COM_PAST','WORKER_SIDOROVA','REC_PAST_1',1795235582.0,'Приложите сводку к записи.',0.0);
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
INSERT INTO StoreProperties VALUES('epoch','5E1A00D49853DAA838B45FC0C46D362D');
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
INSERT INTO ChangeTransactions VALUES(1,'640E1E05AF1EF485586D457E894E82FC','loader',1,1795283582.0,X'3f40a60e6773b650716fad3b46b639172349152ded332f3fe64567e4d38aa98f');
INSERT INTO ChangeTransactions VALUES(2,'618639E6F12A73472D17121A0D12FB23','loader',1,1795283582.0,X'9d9f4861a49286c26e3c9088f381b5f2bc1d1400318b4ed909f4d88f44909426');
INSERT INTO ChangeTransactions VALUES(3,'202F34CB2FE9452EC61BC3AF73B440A7','loader',1,1795283582.0,X'fc9ddcbf0087537055c60840acb53881050ece87c47694d3fb317391e47e6fe0');
INSERT INTO ChangeTransactions VALUES(4,'475C7D9E26016B89FCBA52B81279D532','loader',1,1795283582.0,X'b77401379b54c5f03fbacdbd3d9584ae0b0f183ec8f764231b319eeea6d06606');
INSERT INTO ChangeTransactions VALUES(5,'E9C64F193E29DA7856612072F0480100','loader',1,1795283582.0,X'48844901f2c8a52d95dd168cf7e08de5e56a7a701579728543536367bae9a0f3');
INSERT INTO ChangeTransactions VALUES(6,'38DA90D98AF397348ED91B1537D58812','loader',1,1795283582.0,X'a6f509c4acd09dd0bc9fb2d822aaa33ced2c6df1b35d94f7fd0d8ea8a1ffe020');
INSERT INTO ChangeTransactions VALUES(7,'C050ABE1B81DB5C78710E40D7B4DDAAA','loader',1,1795283582.0,X'121f64d7064dce703bedbc6961c89ffbc9b59fc852d800fd0b320f2faba8b848');
INSERT INTO ChangeTransactions VALUES(8,'A12E5B69F1AFFBD0A5C8B2CBFFE5A4C9','loader',1,1795283582.0,X'25ada339214a94cd1c90e13a41742fadb631857b93032734733357764f1c03f6');
INSERT INTO ChangeTransactions VALUES(9,'C24BE8522A5562B9DFA8C9EED0FA23D0','loader',1,1795283582.0,X'c0782cbdc2db9193e6868c74a913f1aa514e9e8929e26aafab3bbf0a5da8e66c');
INSERT INTO ChangeTransactions VALUES(10,'E61633EFEAE81CDCECFBDA273781D9B6','loader',1,1795283582.0,X'05b8e9ef2625c178995426958d5c63f754d26d71a001ea9b283d66a9b487831f');
INSERT INTO ChangeTransactions VALUES(11,'1D19B95C21EE21B7BF925DBA9FF4EFF8','loader',1,1795283582.0,X'884430988542df021df4d08a6459277a7f971551462b156b6524cded38ba2c61');
INSERT INTO ChangeTransactions VALUES(12,'88FC407B18FDC6D1AE8F1BCD3CD51D70','loader',1,1795283582.0,X'7eac7ee99836cd545c2b3280f6cbdd7f052c0664d4a2807d1a51a5a3a2d75cc3');
INSERT INTO ChangeTransactions VALUES(13,'171ED808A5F538D0DA1B8BF947A67E9C','loader',1,1795283582.0,X'f8cb901da5ff8f5cb8cdaba47707858fe7a0e2400401840ed23b382ddc2d1a27');
INSERT INTO ChangeTransactions VALUES(14,'D706A9DAE1EB6F577C91F5352FB388B3','loader',1,1795283582.0,X'be6c34bd8ce73453437547703c9060a48898865aeaf9984ac6c67f7d98e932bc');
INSERT INTO ChangeTransactions VALUES(15,'32E8C1051ABA72BECD5F5AB2B3EC3005','loader',1,1795283582.0,X'190c68a4be859bfb650208c601789e92aece44b2d8ecf0a64cb4a0541d8d6344');
INSERT INTO ChangeTransactions VALUES(16,'1E259CC95AE58D4D88831D906E53869F','loader',1,1795283582.0,X'a1851884a367b16b0c508908d2903509ba857b929d6eda756706fd317ab8ea2c');
INSERT INTO ChangeTransactions VALUES(17,'3DA43A564B36E1D2E6F74626535BDE49','loader',1,1795283582.0,X'1464785adeed3b52889cbbcaf21ad28427a67db580cf6854fc795dade22981fe');
INSERT INTO ChangeTransactions VALUES(18,'9649491A4CD9FD06F671EFB2D6807471','loader',1,1795283582.0,X'e9319e55161f84f8e18c7a251d3ab1c10dfa5f695a73d51bf30dd633ecb188f9');
INSERT INTO ChangeTransactions VALUES(19,'55FE0CAD7968A8809E1A5F5AF51A9C75','loader',1,1795283582.0,X'c5432ae722160121801ea9aab8e780c09306fd277ab28d156119d8261e45d122');
INSERT INTO ChangeTransactions VALUES(20,'AC46E91DD975B754B9AD79046B4DD74E','loader',1,1795283582.0,X'84dcbbcd34a654b7f853ae13404452101aac3f392640cb18f4c312bf23d15e04');
INSERT INTO ChangeTransactions VALUES(21,'9AC50F01F0A7FF62BA1A81BC87C26C63','loader',1,1795283582.0,X'2abbdcac1a1cbc222db7292e961ecc1733c3431b4531edcd76afb75444e35607');
INSERT INTO ChangeTransactions VALUES(22,'3E4D20A75FDB9FAB4ED161B3147F9DC2','loader',1,1795283582.0,X'6b8b650879680a78c71e503da1fdc2974ce39800f52a72d7b1a4e80c0f5d3236');
INSERT INTO ChangeTransactions VALUES(23,'C115412DA70874006B6CC1B0286790A4','loader',1,1795283582.0,X'0d004b140d155d560d2fdcfaa83b5cf5d817d185b523bba5023d2d0a49aef422');
INSERT INTO ChangeTransactions VALUES(24,'703E40A08160DFC191267535189981F0','loader',1,1795283582.0,X'ae39d85a50435f9ff7a06c514501f00557649ae1c0f7e4862a64ee6a3da6ccb7');
INSERT INTO ChangeTransactions VALUES(25,'13ADFA28C344E4D39590EF5E8770C22A','loader',1,1795283582.0,X'33ccc8866e476c5bdce0d46fc75cfc48e92052481a3c24b017accd9b4601d51e');
INSERT INTO ChangeTransactions VALUES(26,'9B95E7C50FD789531CF99F4F9A4BC435','loader',1,1795283582.0,X'0bfd05a92aa18dfc456a46714b119b59cba39646eea7ccd78a66927522e24906');
INSERT INTO ChangeTransactions VALUES(27,'0B515EF84AA77787E5E6708E034C6F61','loader',1,1795283582.0,X'd69b421b9e99522ddb62c8c0eaf73827f1f139150b316110d80d9e070285f91b');
INSERT INTO ChangeTransactions VALUES(28,'A2CDA6904080109008499BF86B2DDDE5','loader',1,1795283582.0,X'2db35a3cb9a0c1ba075e5a356a56544d31eebfa2e990dd930ce37e8dee4c02e9');
INSERT INTO ChangeTransactions VALUES(29,'0C82B6C4E99C355D07B00986CD462F97','loader',1,1795283582.0,X'60a190045a9799f59f41cfa6fc35b101ab33b42a68aabbd0b2b0141bf87a70eb');
INSERT INTO ChangeTransactions VALUES(30,'DD20C4FE0B1BE129D3DF22BB46059D0E','loader',1,1795283582.0,X'f04275ce4b60801f916d89ce193e046644886c7d69c304016c4749bd7ac7d21d');
INSERT INTO ChangeTransactions VALUES(31,'8DE412B543A4AE974F0F6D589A07B86B','loader',1,1795283582.0,X'caf4510cdf6aa6e1fe59c5c95c9363674c59303cfa96a1837926e91189ba28f1');
INSERT INTO ChangeTransactions VALUES(32,'5375C8C24877EA886FDCB2C91F7A26D4','loader',1,1795283582.0,X'7c4d5e999f146a5220a74f86ed35eef6f71355050b5b61e96fdf1bcac37cbee9');
INSERT INTO ChangeTransactions VALUES(33,'A81474BCD35CBC65B9725615F123056C','loader',1,1795283582.0,X'3d11ee374b00e85a6a6c7e7751a9cfaab8ad2a8af004f0659782b978addde80e');
INSERT INTO ChangeTransactions VALUES(34,'9FBBC48E171DF920427B3266F7758348','loader',1,1795283582.0,X'66d365719835005f84a5c05d6c15b0841b99fce55843a24009525689705aa242');
INSERT INTO ChangeTransactions VALUES(35,'E60517CD20F351DE72F09A2241E0441E','loader',1,1795283582.0,X'3f76ef1820d3b2102329e9c427b5241d903b77aa1eaf24a6638c08e3136a5d19');
INSERT INTO ChangeTransactions VALUES(36,'C569C17404D0B8CD0D01BC02BB2D815C','loader',1,1795283582.0,X'e96c7704c7dc88b6c5c99f923e892ab0afb565256d960463b67237c142105d45');
INSERT INTO ChangeTransactions VALUES(37,'0BDE83C4FDC1C5EDCA944CD5BD9C5F21','loader',1,1795283582.0,X'bb1203f8e8ddcb7fe73d4adb317027c9928aafe65abe73ac6bde15241b8a92ad');
INSERT INTO ChangeTransactions VALUES(38,'F0966AE75291953C9EF71C6C6EFD1706','loader',1,1795283582.0,X'bf7bb06857be9d79a7396a1b5f590f399579ccee99502f15abc90879abfd389d');
INSERT INTO ChangeTransactions VALUES(39,'8AAF0133CD3ACBD4892E847E01BC18B7','loader',1,1795283582.0,X'bc8700f46030c5a82b90d804cad2d1a78af585c6a561e5bc38285a996872291e');
INSERT INTO ChangeTransactions VALUES(40,'D9B9E88ABDA062D7577E244E161FAFFB','loader',1,1795283582.0,X'6d450bf8b5344db366a0570b0779b85c7738fe7b75119ad4d1bd737bc6332d7f');
INSERT INTO ChangeTransactions VALUES(41,'1048F0D0E003E65C27639D4CF0282106','loader',1,1795283582.0,X'73767d1e184ce07f82df012e29fcef4867144aead73fbdc5ab661e45955dc63c');
INSERT INTO ChangeTransactions VALUES(42,'DB83D4CEF34E7BCEB9F8125D4EE6DE82','loader',1,1795283582.0,X'fea378d6c91b8f33e39fe8891fd67d828e936abc6ffbc5d83e94af0c3ee6d9f0');
INSERT INTO ChangeTransactions VALUES(43,'5BF5C0C2E8B4370E28EED685E550BF54','loader',1,1795283582.0,X'4ecabcf7483947a71bfffb706fccde6cdd79427eea409c81ab121cd3d4ce4bc1');
INSERT INTO ChangeTransactions VALUES(44,'DCC603D0EDB24CCB2A1FD30F978AFDBF','loader',1,1795283582.0,X'440631e20c6d8d6f85f4f07b642ef13dc3cfb3906d3cb0a9c7fbdf5c100d808b');
INSERT INTO ChangeTransactions VALUES(45,'FCD6B5FDD1974347B7B91CBC02DC6323','loader',1,1795283582.0,X'b7f85cc20918acc03792322a3c5e5cdfb9fb9049aee2694c6a5ba95b4aaf197d');
INSERT INTO ChangeTransactions VALUES(46,'DEAB87BB5CC1E34C0D1F70A5B7F7C316','loader',1,1795283582.0,X'947831a1d54d3d9afe8f1b7f8610ee4a519e6226f94ba920221b98c3a2f0319d');
INSERT INTO ChangeTransactions VALUES(47,'2988F05A71FF29F90CE2CBD644B4786A','loader',1,1795283582.0,X'05fedb319277e3ba26694b6cc81fb4ced25e2e791dc86c9016adb5adb20d4f33');
INSERT INTO ChangeTransactions VALUES(48,'8D6639E866A5266C3A947B2F61772CFB','loader',1,1795283582.0,X'8b1dc6ae93d3538062fa7bd5e92892053cc8418bafeb47cbc488e516b012d2be');
INSERT INTO ChangeTransactions VALUES(49,'751A30D78426711379639F5B94814CDB','loader',1,1795283582.0,X'5651d0e64fb5462c4251b202faeea0fc1966c46e244b034bb4220e6d7899cd34');
INSERT INTO ChangeTransactions VALUES(50,'705874DD07288EEFFFDC66E30049D8EB','loader',1,1795283582.0,X'e1f1a4c9a78a057375036dd6e4e6583de1d92e9fa55deb47259a9a4d1f149e7e');
INSERT INTO ChangeTransactions VALUES(51,'DCC68D43E439E51E09B11E80F0A0A5F0','loader',1,1795283582.0,X'f0aa0c4ffad90950b60c3b10e48e79e9f33b6fdfad29c253dd9f4ceb003a8fd6');
INSERT INTO ChangeTransactions VALUES(52,'033B41BA336FA5F99C37CF3BB1A2041E','loader',1,1795283582.0,X'909b0d0853e8c4c8dfaeaae4dc21a7bac78b4aa660091cb368125eff65b0d864');
INSERT INTO ChangeTransactions VALUES(53,'AC78B0D4B45B2F59F340CC552F8175A3','loader',1,1795283582.0,X'15ea51e7c512817937621361f65ae504d92e9e74dc86cd9c0d6c414380eda6ec');
INSERT INTO ChangeTransactions VALUES(54,'45D96A9F81ADC69AE8603944AEEF2748','loader',1,1795283582.0,X'53baf91c71efd0087f72b36c538779b49c015b4b16c900249ba18227c9dc0788');
INSERT INTO ChangeTransactions VALUES(55,'E93A7BADD720A3D107197357F7DBF933','loader',1,1795283582.0,X'57ba1409b5a1b543dcccf900aefba713bcad645501922903b678adff86bab918');
INSERT INTO ChangeTransactions VALUES(56,'0DD824D82A9822DCD681CE1E5CA8412C','loader',1,1795283582.0,X'b9d7a0262499ce7edf11afac0955172d2bb6e1d5297db96984c296a7b36cdafd');
INSERT INTO ChangeTransactions VALUES(57,'7D8B26E0D61A8466F5D28994326FD885','loader',1,1795283582.0,X'5c0161e9bdf2945c4fd53e0fa3c09c83878e618dcbc024c5282b571f6cf4fe0c');
INSERT INTO ChangeTransactions VALUES(58,'075B922EDEFD4A501312B6E432700095','loader',1,1795283582.0,X'7e665ebbd72538a2c8290da77b84dbd2ec97be115851c060943794619a443c79');
INSERT INTO ChangeTransactions VALUES(59,'43BD3A580A4B258D9309BD5A9DAC1686','loader',1,1795283582.0,X'27e3da394bbf54cdd4e21c33d9ee99149af94806e85fd2a6aa7c3613d1624439');
INSERT INTO ChangeTransactions VALUES(60,'D6964778B7CFD34AB18C73662DC3EE6E','loader',1,1795283582.0,X'e8a8230b436f516d0e0cc477bc5ca33ac68ac711eb882b20693a1ff381c65daf');
INSERT INTO ChangeTransactions VALUES(61,'8540408DE2A34A3035A3160E05869B72','loader',1,1795283582.0,X'4a0ce71ee138dc828d94de907ec06841e199467a128fbf79372227439c6474d4');
INSERT INTO ChangeTransactions VALUES(62,'C2B5848142F4BCF1851EECEF096A8317','loader',1,1795283582.0,X'725494fe23aaab9c65ddf084545edd2274248d5f1314d7125d7ce4e5c55f28d3');
INSERT INTO ChangeTransactions VALUES(63,'D4DBAAE10D3162CC2569367444554B3A','loader',1,1795283582.0,X'5870b005d246b77a2034df9bb85e3d0366305a6b580d7e798deef1d58a3e54a5');
INSERT INTO ChangeTransactions VALUES(64,'7B77D213576622FCE129A89BEAA6B7F5','loader',1,1795283582.0,X'eda1b46382ab12d6798f34bcbf6a414024c65da706de34bd2edd480474b272e2');
INSERT INTO ChangeTransactions VALUES(65,'3C812D163448704673A779D5DB2E21A0','loader',1,1795283582.0,X'014bdbe2d0946a9a84a384c11cb19fda71a94f81a81167864db586f236e790a8');
INSERT INTO ChangeTransactions VALUES(66,'6D7083A1971D226A26218886515B1A89','loader',1,1795283582.0,X'78b9226a473146871a77810bf698a1c6367066916aef5cc088ec267d1ba6e4db');
INSERT INTO ChangeTransactions VALUES(67,'E70BE89D8F1808A2238B1246623C08E4','loader',1,1795283582.0,X'a5e8b1698613e2a08974d61d1d8c7bdf96087198cc5d38bf1865d8e7c1733991');
INSERT INTO ChangeTransactions VALUES(68,'7E5920E788771717827DA4C79B01E838','loader',1,1795283582.0,X'16630c4df94a8e9b674e82df887af7c736ecc2e738e9d357fe415329f7bcf208');
INSERT INTO ChangeTransactions VALUES(69,'B06685236E9C42BAC2D01D15EE08BD3A','loader',1,1795283582.0,X'30f2272ceed44ed973b08a9c2f068115716e242ffde8759d0f46e3bc28886ac6');
INSERT INTO ChangeTransactions VALUES(70,'D0D5375DF3AEE164445C568628827912','loader',1,1795283582.0,X'd462d8018229004cebff23aca5ceb8bbcf2f26d1ffaca4798458ff3d9e1eceb8');
INSERT INTO ChangeTransactions VALUES(71,'3F5EA60E771E930EA6F2A73FC303602E','loader',1,1795283582.0,X'39350e22e00ad33882166f61448617091c38d6bc1fa7695207096dfd0aca00a5');
INSERT INTO ChangeTransactions VALUES(72,'B6B2850F6D5762C9E444BD204F28BC75','loader',1,1795283582.0,X'20ecb8b22bc7e80285ad2922e1d56389ab8874c2921b30de48bb43e716484f9e');
INSERT INTO ChangeTransactions VALUES(73,'B62AF0CCCA2A16CCD040B9DA890513F2','loader',1,1795283582.0,X'd6f5a018ab652b9a2f9755a01f02a52eda2255583783f69cdd6b99e90a986630');
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
INSERT INTO ChangeLog VALUES(48,48,'LogbookWorkshifts','SHIFT_CDS_PAST',601,NULL,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795175582,1795175582,1795261982]');
INSERT INTO ChangeLog VALUES(49,49,'LogbookWorkshifts','SHIFT_CDS_OPEN',601,NULL,'["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795261982,1795261982,1795348382]');
INSERT INTO ChangeLog VALUES(50,50,'LogbookWorkshifts','SHIFT_ZAR_OPEN',601,NULL,'["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795276382,1795276382,1795319582]');
INSERT INTO ChangeLog VALUES(51,51,'LogbookWorkshifts','SHIFT_CDS_PAST',602,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795175582,1795175582,1795261982]','["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795175582,1795175582,1795261982]');
INSERT INTO ChangeLog VALUES(52,52,'LogbookWorkersWorkshift','CREW_CDS_1',601,NULL,'["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(53,53,'LogbookWorkersWorkshift','CREW_CDS_2',601,NULL,'["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]');
INSERT INTO ChangeLog VALUES(54,54,'LogbookWorkersWorkshift','CREW_ZAR_1',601,NULL,'["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]');
INSERT INTO ChangeLog VALUES(55,55,'LogbookWorkersWorkshift','CREW_PAST_1',601,NULL,'["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(56,56,'LogbookWorkersWorkshift','CREW_PAST_2',601,NULL,'["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]');
INSERT INTO ChangeLog VALUES(57,57,'LogbookWorkersWorkshift','CREW_PAST_3',601,NULL,'["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]');
INSERT INTO ChangeLog VALUES(58,58,'LogbookRecords','REC_PAST_1',601,NULL,'["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795181582,1795181582,null,null,null,"Принята сводка погоды.",0,null]');
INSERT INTO ChangeLog VALUES(59,59,'LogbookRecords','REC_PAST_2',601,NULL,'["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795229582,1795229582,null,null,null,"Проверена связь с подстанциями.",0,null]');
INSERT INTO ChangeLog VALUES(60,60,'LogbookRecords','REC_OPENING',601,NULL,'["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795261982,1795261982,null,null,null,"<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Иванов И.И. гр.V</a> <a href=\"parameter:name=interval;locname=Период%20смены\">с 20:00 по 08:00</a>.",0,null]');
INSERT INTO ChangeLog VALUES(61,61,'LogbookRecords','REC_MESSAGE',601,NULL,'["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795265582,1795265582,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]');
INSERT INTO ChangeLog VALUES(62,62,'LogbookRecords','REC_REPLACED',601,NULL,'["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795269182,1795269182,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]');
INSERT INTO ChangeLog VALUES(63,63,'LogbookRecords','REC_SUCCESSOR',601,NULL,'["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795269182,1795269182,null,null,1795269782,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(64,64,'LogbookRecords','REC_ORDER',601,NULL,'["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795272782,1795272782,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 35 кВ Ольховка</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ф. 7</a>.",0,null]');
INSERT INTO ChangeLog VALUES(65,65,'LogbookRecords','REC_TRIP',601,NULL,'["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795276382,1795276382,1795276322,null,null,"<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(66,66,'LogbookRecords','REC_DRAFT_IVANOV',601,NULL,'["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795279982,1795279982,null,null,null,"Черновик: осмотр оборудования.",1,null]');
INSERT INTO ChangeLog VALUES(67,67,'LogbookRecords','REC_DRAFT_PETROV',601,NULL,'["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795281782,1795281782,null,null,null,"Черновик: доклад бригады.",1,null]');
INSERT INTO ChangeLog VALUES(68,68,'LogbookRecords','REC_ZAR',601,NULL,'["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795277582,1795277582,null,null,null,"Схема сверена по щиту.",0,null]');
INSERT INTO ChangeLog VALUES(69,69,'LogbookComments','COM_UNREAD',601,NULL,'["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795262582,"Уточните период смены.",0]');
INSERT INTO ChangeLog VALUES(70,70,'LogbookComments','COM_READ',601,NULL,'["COM_READ","WORKER_IVANOV","REC_ORDER",1795273382,"Исполнение доложить до конца смены.",1795273982]');
INSERT INTO ChangeLog VALUES(71,71,'LogbookComments','COM_PAST',601,NULL,'["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795235582,"Приложите сводку к записи.",0]');
INSERT INTO ChangeLog VALUES(72,72,'LogbookFiles','FILE_TEXT',601,NULL,'["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]');
INSERT INTO ChangeLog VALUES(73,73,'LogbookFiles','FILE_IMAGE',601,NULL,'["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]');
CREATE TABLE CurrentTransaction (
    number INTEGER PRIMARY KEY,
    login TEXT NOT NULL,
    userKey TEXT NOT NULL,
    loader INTEGER NOT NULL
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
                                                 ORDER BY startTime DESC LIMIT 1), 0);
END;
CREATE TRIGGER Rule_Workshifts_update BEFORE UPDATE ON LogbookWorkshifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'У смены меняется только отметка о её закрытии.')
    WHERE NEW.DepartmentKey IS NOT OLD.DepartmentKey OR NEW.OpenWorkerKey IS NOT OLD.OpenWorkerKey
       OR NEW.createdAt IS NOT OLD.createdAt OR NEW.startTime IS NOT OLD.startTime
       OR NEW.endTime IS NOT OLD.endTime;
    SELECT RAISE(ABORT, 'Смена уже закрыта.')
    WHERE NEW.CloseWorkerKey IS NOT OLD.CloseWorkerKey AND coalesce(OLD.CloseWorkerKey, '') <> '';
    SELECT RAISE(ABORT, 'Смену закрывает от своего имени работник этой смены.')
    WHERE NEW.CloseWorkerKey IS NOT OLD.CloseWorkerKey
      AND (OLD.KeyLink NOT IN (SELECT KeyLink FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.KeyLink)
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
           OR NOT (NEW.CloseWorkerKey IS OLD.OpenWorkerKey
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
    WHERE NEW.WorkshiftKey IS NOT OLD.WorkshiftKey OR NEW.WorkerKey IS NOT OLD.WorkerKey
       OR NEW.opening IS NOT OLD.opening;
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
    WHERE (NEW.SecondMarkWorkerKey IS NOT OLD.SecondMarkWorkerKey OR NEW.secondMarkTime IS NOT OLD.secondMarkTime)
      AND coalesce(NEW.SecondMarkWorkerKey, '') <> ''
      AND NEW.SecondMarkWorkerKey NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;
CREATE TRIGGER Rule_Records_visa BEFORE UPDATE OF VisaWorkerKey ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NEW.VisaWorkerKey IS NOT OLD.VisaWorkerKey
BEGIN
    SELECT RAISE(ABORT, 'Виза ставится только на утверждённую запись.')
    WHERE OLD.status IS NOT 0 OR NEW.status IS NOT 0;
    SELECT RAISE(ABORT, 'Визу ставят от своего имени.')
    WHERE coalesce(NEW.VisaWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    SELECT RAISE(ABORT, 'Автор не визирует свою запись.')
    WHERE coalesce(OLD.WorkerKey, '') IN ('', NEW.VisaWorkerKey);
END;
CREATE TRIGGER Rule_Records_update BEFORE UPDATE ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Такая смена состояния записи недопустима.')
    WHERE NEW.status IS NOT OLD.status
      AND NOT (OLD.status IS 1 AND NEW.status IS 0 OR OLD.status IS 0 AND NEW.status IS 2);
    SELECT RAISE(ABORT, 'Автор и смена записи не изменяются.')
    WHERE NEW.WorkerKey IS NOT OLD.WorkerKey OR NEW.ShiftKey IS NOT OLD.ShiftKey;
    SELECT RAISE(ABORT, 'Утверждённая запись не изменяется.')
    WHERE OLD.status IS NOT 1
      AND (NEW.ReceiverWorkerKey IS NOT OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS NOT OLD.OriginRecordKey
           OR NEW.recordTime IS NOT OLD.recordTime OR NEW.eventTime IS NOT OLD.eventTime
           OR NEW.firstMarkTime IS NOT OLD.firstMarkTime OR NEW.html IS NOT OLD.html
           OR NEW.direction IS NOT OLD.direction
           OR NEW.executionTime IS NOT OLD.executionTime
              AND (OLD.status IS NOT 0 OR NEW.executionTime IS NOT NULL));
    SELECT RAISE(ABORT, 'Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS NOT OLD.status OR NEW.executionTime IS NOT OLD.executionTime
           OR NEW.ReceiverWorkerKey IS NOT OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS NOT OLD.OriginRecordKey
           OR NEW.recordTime IS NOT OLD.recordTime OR NEW.eventTime IS NOT OLD.eventTime
           OR NEW.firstMarkTime IS NOT OLD.firstMarkTime OR NEW.html IS NOT OLD.html
           OR NEW.direction IS NOT OLD.direction)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
END;
CREATE TRIGGER Rule_Records_delete BEFORE DELETE ON LogbookRecords
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN
    SELECT RAISE(ABORT, 'Удалить можно только черновик.') WHERE OLD.status IS NOT 1;
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
    WHERE NEW.WorkerKey IS NOT OLD.WorkerKey OR NEW.RecordKey IS NOT OLD.RecordKey;
    SELECT RAISE(ABORT, 'Комментарий изменяет только его автор.')
    WHERE (NEW.text_ IS NOT OLD.text_ OR NEW.commentTime IS NOT OLD.commentTime)
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
    WHERE NEW.WorkerKey IS NOT OLD.WorkerKey OR NEW.RecordKey IS NOT OLD.RecordKey
       OR NEW.fileName IS NOT OLD.fileName OR NEW.fileData IS NOT OLD.fileData;
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
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Categories_update BEFORE UPDATE ON LogbookCatsTemplate
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Categories_delete BEFORE DELETE ON LogbookCatsTemplate
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_insert BEFORE INSERT ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_update BEFORE UPDATE ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Rule_Templates_delete BEFORE DELETE ON LogbookTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN
    SELECT RAISE(ABORT, 'Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
CREATE TRIGGER Log_noUpdate BEFORE UPDATE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Log_noDelete BEFORE DELETE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noUpdate BEFORE UPDATE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noDelete BEFORE DELETE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
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
CREATE TRIGGER Rule_Users_insert BEFORE insert ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Users_update BEFORE update ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Users_delete BEFORE delete ON Users
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_UserRights_insert BEFORE insert ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_UserRights_update BEFORE update ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_UserRights_delete BEFORE delete ON UserRights
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Workers_insert BEFORE insert ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Workers_update BEFORE update ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Workers_delete BEFORE delete ON Workers
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Departments_insert BEFORE insert ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Departments_update BEFORE update ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Departments_delete BEFORE delete ON Departments
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Organizations_insert BEFORE insert ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Organizations_update BEFORE update ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Organizations_delete BEFORE delete ON Organizations
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_OrgTypes_insert BEFORE insert ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OrgTypes_update BEFORE update ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OrgTypes_delete BEFORE delete ON OrgTypes
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Shifts_insert BEFORE insert ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Shifts_update BEFORE update ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Shifts_delete BEFORE delete ON Shifts
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Roles_insert BEFORE insert ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Roles_update BEFORE update ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Roles_delete BEFORE delete ON Roles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_WorkerRoles_insert BEFORE insert ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_WorkerRoles_update BEFORE update ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_WorkerRoles_delete BEFORE delete ON WorkerRoles
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Tables_insert BEFORE insert ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Tables_update BEFORE update ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Tables_delete BEFORE delete ON Tables
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_Fields_insert BEFORE insert ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Fields_update BEFORE update ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Fields_delete BEFORE delete ON Fields
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_TemplateParamCategories_insert BEFORE insert ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
CREATE TRIGGER Rule_TemplateParamCategories_update BEFORE update ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
CREATE TRIGGER Rule_TemplateParamCategories_delete BEFORE delete ON TemplateParamCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
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
CREATE TRIGGER Rule_TemplateParams_insert BEFORE insert ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
CREATE TRIGGER Rule_TemplateParams_update BEFORE update ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
CREATE TRIGGER Rule_TemplateParams_delete BEFORE delete ON TemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0 AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
BEGIN SELECT RAISE(ABORT, 'Нет права изменять параметры шаблонов.'); END;
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
CREATE TRIGGER Rule_Equipment_insert BEFORE insert ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Equipment_update BEFORE update ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_Equipment_delete BEFORE delete ON Equipment
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_OperLogCategories_insert BEFORE insert ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogCategories_update BEFORE update ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogCategories_delete BEFORE delete ON OperLogCategories
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_OperLogTemplates_insert BEFORE insert ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogTemplates_update BEFORE update ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogTemplates_delete BEFORE delete ON OperLogTemplates
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
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
CREATE TRIGGER Rule_OperLogTemplateParams_insert BEFORE insert ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogTemplateParams_update BEFORE update ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
CREATE TRIGGER Rule_OperLogTemplateParams_delete BEFORE delete ON OperLogTemplateParams
WHEN (SELECT loader FROM CurrentTransaction) = 0
BEGIN SELECT RAISE(ABORT, 'Справочники изменяются только средствами администратора.'); END;
COMMIT;
PRAGMA application_id = 1448233802;
PRAGMA user_version = 1;
