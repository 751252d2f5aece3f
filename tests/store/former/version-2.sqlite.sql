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
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_PAST','DEP_CDS','WORKER_IVANOV','WORKER_IVANOV',1795194909.0,1795194909.0,1795281309.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_CDS_OPEN','DEP_CDS','WORKER_IVANOV',NULL,1795281309.0,1795281309.0,1795367709.0);
INSERT INTO LogbookWorkshifts VALUES('SHIFT_ZAR_OPEN','DEP_ZAR','WORKER_SMIRNOV_ZAR',NULL,1795295709.0,1795295709.0,1795338909.0);
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
INSERT INTO LogbookRecords VALUES('REC_PAST_1','SHIFT_CDS_PAST','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795200909.0,1795200909.0,NULL,NULL,NULL,'Принята сводка погоды.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_PAST_2','SHIFT_CDS_PAST','WORKER_KUZNETSOV',NULL,NULL,NULL,NULL,1795248909.0,1795248909.0,NULL,NULL,NULL,'Проверена связь с подстанциями.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_OPENING','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795281309.0,1795281309.0,NULL,NULL,NULL,'<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_MESSAGE','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,'WORKER_SMIRNOV_ZAR',NULL,NULL,1795284909.0,1795284909.0,NULL,NULL,NULL,'Запрошено состояние <b>нагрузки</b>.',0,1);
INSERT INTO LogbookRecords VALUES('REC_REPLACED','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795288509.0,1795288509.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',2,NULL);
INSERT INTO LogbookRecords VALUES('REC_SUCCESSOR','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,'REC_REPLACED',NULL,1795288509.0,1795288509.0,NULL,NULL,1795289109.0,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_ORDER','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795292109.0,1795292109.0,NULL,NULL,NULL,'<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_TRIP','SHIFT_CDS_OPEN','WORKER_PETROV','WORKER_SIDOROVA',NULL,NULL,NULL,1795295709.0,1795295709.0,1795295649.0,NULL,NULL,'<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.',0,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_IVANOV','SHIFT_CDS_OPEN','WORKER_IVANOV',NULL,NULL,NULL,NULL,1795299309.0,1795299309.0,NULL,NULL,NULL,'Черновик: осмотр оборудования.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_DRAFT_PETROV','SHIFT_CDS_OPEN','WORKER_PETROV',NULL,NULL,NULL,NULL,1795301109.0,1795301109.0,NULL,NULL,NULL,'Черновик: доклад бригады.',1,NULL);
INSERT INTO LogbookRecords VALUES('REC_ZAR','SHIFT_ZAR_OPEN','WORKER_SMIRNOV_ZAR',NULL,NULL,NULL,NULL,1795296909.0,1795296909.0,NULL,NULL,NULL,'Схема сверена по щиту.',0,NULL);
CREATE TABLE LogbookComments (
    KeyLink TEXT PRIMARY KEY NOT NULL,
    WorkerKey TEXT,
    RecordKey TEXT REFERENCES LogbookRecords (KeyLink) ON DELETE CASCADE,
    commentTime REAL,
    text_ TEXT,
    -- Unset is stored as 0, so that a comparison with 0 finds the unread ones.
    readedTime REAL NOT NULL ON CONFLICT REPLACE DEFAULT 0
) STRICT;
INSERT INTO LogbookComments VALUES('COM_UNREAD','WORKER_PETROV','REC_OPENING',1795281909.0,'Уточните период смены.',0.0);
INSERT INTO LogbookComments VALUES('COM_READ','WORKER_IVANOV','REC_ORDER',1795292709.0,'Исполнение доложить до конца смены.',1795293309.0);
INSERT INTO LogbookComments VALUES('COM_PAST','WORKER_SIDOROVA','REC_PAST_1',1795254909.0,'Приложите сводку к записи.',0.0);
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
INSERT INTO StoreProperties VALUES('epoch','873952554F2497627DA9DF463717AFD9');
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
INSERT INTO ChangeTransactions VALUES(1,'1175C3BA2EAA17E89F2CA8FA7407EE36','loader',1,1795302909.0,X'94bb1d2d68d5ed6d15f8efe9544e586361f50fbafb9e8bdab1bbddf3229bd544');
INSERT INTO ChangeTransactions VALUES(2,'848E0EBBA5FBEFF077F1DAFE9FA138B3','loader',1,1795302909.0,X'6a8842a96a6ca3f942556d06a20dc5910ec47f034d1a79b6b81143017d29f340');
INSERT INTO ChangeTransactions VALUES(3,'7178F8C7FA709AF777BD2D109AD47351','loader',1,1795302909.0,X'707a1606e9a6aba6f552515413cafa8b60fb19f14f3f9731129d5ec6a28ed1f9');
INSERT INTO ChangeTransactions VALUES(4,'FD7FFBD4275C8DE91F31D0C919A5B262','loader',1,1795302909.0,X'66a349167c0300810d1eda4e423b6215351edacc9eb7fd2f0c5972aafb639c2e');
INSERT INTO ChangeTransactions VALUES(5,'BE2F6415D34B01A372529DCFD1F4AE8D','loader',1,1795302909.0,X'05db17d7ffeb8a02c4354d7ec292c8ac56520e40a3b907107f8493131b373c33');
INSERT INTO ChangeTransactions VALUES(6,'F1EF5734E99B3E5B64102D9A61CDC899','loader',1,1795302909.0,X'8b7df5e5a522cc5450eb91407ece3eff2324afeda649342c4cd8851adf31ecb2');
INSERT INTO ChangeTransactions VALUES(7,'5B22EF5C7F4AD12A6AE86A90FAD29DE0','loader',1,1795302909.0,X'1173071c30649a13d9eefdd605c914022322b03a9f2ab8985868326b97769c4e');
INSERT INTO ChangeTransactions VALUES(8,'F230D9ED30F84E3214EA7C3C069B6405','loader',1,1795302909.0,X'25ac53cb63b066a6ba2f13a7ab438391fe9d2d9d6c4b85966ee8b37e2fad8014');
INSERT INTO ChangeTransactions VALUES(9,'6F0904F62916063834802F768E3F2DB2','loader',1,1795302909.0,X'2e3ecfb598115e1d1140436a56a0f4e74113c5a32f4ddb4521216c91743de37c');
INSERT INTO ChangeTransactions VALUES(10,'B21E4E6F1A642C4DE035CAA51F545121','loader',1,1795302909.0,X'46e091d96fc9546d2fa608fcc2aef1b401fa5f78531a9ddc7512c920e83e43a6');
INSERT INTO ChangeTransactions VALUES(11,'61FC401AC0A102BA1A4D995B4577C582','loader',1,1795302909.0,X'2795b72e46d848c911830426c39513f0b4ccad291f097b04cae35b06865cb831');
INSERT INTO ChangeTransactions VALUES(12,'064C7A0465D0B268DDFD13151FCF2C2E','loader',1,1795302909.0,X'87421156412cae1058c6411a3cf2bac031ce27ed0c0918f6fe9b0bf20a7a4852');
INSERT INTO ChangeTransactions VALUES(13,'344F642923058694B9FFF49AD98B03E8','loader',1,1795302909.0,X'b614f124db7ec32c4a61dce37a1e0db90146a1fc1a221ba091cd0f77195787d1');
INSERT INTO ChangeTransactions VALUES(14,'0F33469DEE092CD53CE4D65BCA5D7858','loader',1,1795302909.0,X'cb461deea1fde54ac7616ae4547eb0abd34e681a64027f5daf772db6eb9a797a');
INSERT INTO ChangeTransactions VALUES(15,'4A2DE5E6B80FABEEE9BB649A7875991D','loader',1,1795302909.0,X'ffac35f9c15ac75ea96825d95db5155aec65c999f8a3760ea823a787f25cbb7d');
INSERT INTO ChangeTransactions VALUES(16,'34408E76AE8D843DD1A12F0399356548','loader',1,1795302909.0,X'38c194a327e2a2faf79ab84fe78d2e10fc61ba0e86434cc5d97665599ad70e23');
INSERT INTO ChangeTransactions VALUES(17,'218F6ED45D1AFA5E8590D83F32829AE6','loader',1,1795302909.0,X'0537120ea5e2adab8892137df9f865c43d54687b30de50b1f04d4b9f3da02353');
INSERT INTO ChangeTransactions VALUES(18,'FC39A213F4FA2DE2B66E5441DBF5A878','loader',1,1795302909.0,X'ee604250bccb19cba4bb41fde0d556fa149c26a6b9e0306316005a9f20d4ccae');
INSERT INTO ChangeTransactions VALUES(19,'9F8523797B06D3D1B3AC5231A6CB6132','loader',1,1795302909.0,X'a28eca00457db892f7882eaec85b96555932187dd863fddfcdfbf08fb8523b1d');
INSERT INTO ChangeTransactions VALUES(20,'60749CE0F55C858F1041A7DDA9BB888B','loader',1,1795302909.0,X'0714bdf9a5615c04659e7628792f6b588d9f1f95c707885c79f3f56d582d01a6');
INSERT INTO ChangeTransactions VALUES(21,'27B3576B2AA7D8A0C52D7E8DB5F4582E','loader',1,1795302909.0,X'44bb3de843e33b78925d1ee21ccbe69eeec1780ac3eaf75bbfe2140565c7d3be');
INSERT INTO ChangeTransactions VALUES(22,'DDE71E850C4CF1EAAC426A284865942C','loader',1,1795302909.0,X'0633f1a10a8ac2ec8ed398908548812eb76b0f36ba651c420923362970fcf73f');
INSERT INTO ChangeTransactions VALUES(23,'26A7B3AD6CD1C311ECDBCEAA117521BF','loader',1,1795302909.0,X'0c6e147a7a195a140bac906f61849cb4dc9d6990a3862e088c8df003f3c1dd16');
INSERT INTO ChangeTransactions VALUES(24,'21A28B60E97DB4C817A19F3848A4381B','loader',1,1795302909.0,X'93eefa372f24363c2060f04941312765ddd68383f033d592323d2a8d65405c3a');
INSERT INTO ChangeTransactions VALUES(25,'C22BD0BF4B51DDBC0FB6E3A5A470F01A','loader',1,1795302909.0,X'360f02760f660ede725364968a6afee6c0efe605d869874a3d967cb983121a4a');
INSERT INTO ChangeTransactions VALUES(26,'D712778EC07A906012151EE610CD61AF','loader',1,1795302909.0,X'a8c366f79b7bf5a360529394effb5b003d6f540369cb53540865ced113cee879');
INSERT INTO ChangeTransactions VALUES(27,'75BC2AD01AA06DA293B9A2566B006CB0','loader',1,1795302909.0,X'9e9a3261587565dee742da84da50ddbdb66b61f6d069863358b61e669f807b03');
INSERT INTO ChangeTransactions VALUES(28,'F406471BB2D468D232299378DDD8D8A7','loader',1,1795302909.0,X'e957d64caf50dcba0175c770b0b885262cea63296fe5f8e883de97b5417de6c9');
INSERT INTO ChangeTransactions VALUES(29,'9374032ECD647196689E45A295A76E64','loader',1,1795302909.0,X'e5011136fbf069c41c818a5086e1302bf8c8483965f3fdf386a69f891b6396f5');
INSERT INTO ChangeTransactions VALUES(30,'779BF2181E16DA56B46E6C57A5846E29','loader',1,1795302909.0,X'ca26e87ac4850d96bbcd21648d0500f637a08ecae48215e956ad1968deb3e51d');
INSERT INTO ChangeTransactions VALUES(31,'885DEA3C74F7704F558342ADF4029D07','loader',1,1795302909.0,X'a147f471ad92bf2dbd3fdb67dfa082a4b8b0b467e0a349c84de79ab9a15deeb4');
INSERT INTO ChangeTransactions VALUES(32,'DB2C70368A00DA2B269F2AE16CE14800','loader',1,1795302909.0,X'93facc0df818d158c21b30ce7146069cd16c0ca5985ff1152fccc0e58e87381f');
INSERT INTO ChangeTransactions VALUES(33,'5D306DDB54138ABEFE89E76186342145','loader',1,1795302909.0,X'046be9bb8a1c55b66f24872cadd8300bb2437230e0f8acaedbc66bfe225f5589');
INSERT INTO ChangeTransactions VALUES(34,'FEB5025B2383C2962C9653C80581A36A','loader',1,1795302909.0,X'931ffa9406803555ebaac33505796e2a45cd146edbcbf9e318da1a7d171c5f7d');
INSERT INTO ChangeTransactions VALUES(35,'E4CE04565CA92E31D597F485241253CF','loader',1,1795302909.0,X'7f0665d1fb8486214ad963973d3eac8550618d4f9bda8b360c5e3ab1dcd8d48d');
INSERT INTO ChangeTransactions VALUES(36,'C40AFC4F256A1C3C73ACD81BC6AEF830','loader',1,1795302909.0,X'564db0f4377b14c4bacf62ef19727deca6fe30859c816773457c6b97a0993283');
INSERT INTO ChangeTransactions VALUES(37,'E14193E3D45EDE2F105C06F06033ED59','loader',1,1795302909.0,X'429edd1dc62e3bdb1556f4302ace061fd93f5a0b09f150977fe81c5a3f6609e0');
INSERT INTO ChangeTransactions VALUES(38,'7DF4D955BF10A61B4C7CBC9ACC376F1E','loader',1,1795302909.0,X'a80d74780cb898704acf100ef3a7a77d08797cc4c94b943de538008edcd8ae52');
INSERT INTO ChangeTransactions VALUES(39,'774EFBE232A5F1E6D42F640BFB65C488','loader',1,1795302909.0,X'7b555d782f8d2dae1a838ecfa93f00aa87d0faa2b95ddf4e82be06bb246db38a');
INSERT INTO ChangeTransactions VALUES(40,'043340830E35CBB3A5DCBCB8CAF7FBE1','loader',1,1795302909.0,X'31d39e7b5b421125080308d1247bf0b8265718a0a91de0d7bc41c37bffd09f75');
INSERT INTO ChangeTransactions VALUES(41,'7C86EDD5BE3368B1FB7A3A7BFF7002D0','loader',1,1795302909.0,X'54786047f8c7ff2d5d47c510bec3b0f5002414bc0f9992c207dc3ccabc2548ec');
INSERT INTO ChangeTransactions VALUES(42,'CEE0945854D24F9F9C1986C4ECD6F47F','loader',1,1795302909.0,X'5549deb7371b70914f604a5cbe9083e866a453d20d695cab52c2f1e0dcaaf6d7');
INSERT INTO ChangeTransactions VALUES(43,'F5572142CA2FEEBBD15889373A388E4D','loader',1,1795302909.0,X'ff107052bb9c0c6773e3ea887e2f3c67bb520f71a112950dc8885ca8744136a9');
INSERT INTO ChangeTransactions VALUES(44,'73A983CBBC62616E9857263D5398B689','loader',1,1795302909.0,X'ade9d13d947d10f09ef489475c74ebf74b1b56dd343448a95d4550ce322aa9cf');
INSERT INTO ChangeTransactions VALUES(45,'840CE25290C9B8CFFBAAFCB78092F296','loader',1,1795302909.0,X'2e03e1387efb00d471caafe3f6dc0025721ec2b7b729ccc5dcd6e5bffe66b8ca');
INSERT INTO ChangeTransactions VALUES(46,'398E28A8DCB0F51B8486E97C594A93C5','loader',1,1795302909.0,X'771f689a0218c9586b3d26dec3811bb9da395e23665c17000a4b8621250089d8');
INSERT INTO ChangeTransactions VALUES(47,'F52EF084DE09AF85E9411F55F8D274B5','loader',1,1795302909.0,X'33520691046a991920aaef6689d8af99a66a1111368f09067134031cb3506abe');
INSERT INTO ChangeTransactions VALUES(48,'D7685D0C70FC9C4ADB1E416CADD36D32','loader',1,1795302909.0,X'e1c94c8eefc490cbc5de31f1e1d43da9b5519b8894a6a1ccedef261844fd5f9e');
INSERT INTO ChangeTransactions VALUES(49,'18419A32E693B120227B3E2D83BDCC64','loader',1,1795302909.0,X'8bc006fe0552cfe9d8fabe14f27df08496a072d434dcb8c68ad5ef9ddd7c0a47');
INSERT INTO ChangeTransactions VALUES(50,'8716FD60ED380D1740329C6711F5073E','loader',1,1795302909.0,X'799024fc66f4b869cff6eec6ef5654b67247107ee162baa7ec9e54732812a04a');
INSERT INTO ChangeTransactions VALUES(51,'B66B8011F66A1C49BF09C936AA314464','loader',1,1795302909.0,X'c7c96f7e19b8e69763ab10c417769ea03de77aa188480771b1fa03d7ef92a09a');
INSERT INTO ChangeTransactions VALUES(52,'14E9BB56AEE213BC4B6ECA9F90EEAF06','loader',1,1795302909.0,X'5c43e30f7b2297c5d62451d7459b19c6bd8a6a8e7d6b12505aca9169790189ea');
INSERT INTO ChangeTransactions VALUES(53,'F62FA8662D6152CB4686F5E939926F92','loader',1,1795302909.0,X'7dfca89ccccdd4b3073cba2b6b0343c990bdcffaaa53807dc091d2f0ed8820ce');
INSERT INTO ChangeTransactions VALUES(54,'8F46024D20DCE85CE715B3E497F83BDF','loader',1,1795302909.0,X'b97b9c6d4e5af26e6518d30e9c7cf309d273c638a463839fc5ee87ea1be27e64');
INSERT INTO ChangeTransactions VALUES(55,'AD53C49466B1D87C3D9D14C4B972CEA7','loader',1,1795302909.0,X'cd409cde03812c612beed6e53b2b352cd8dee9f8b563ce2195c5a7833de60557');
INSERT INTO ChangeTransactions VALUES(56,'137AE614348052FF96A90E982CA8DD86','loader',1,1795302909.0,X'46d16327780ec4dddc4fefb4e2c94a3a066c4b7ede449638eea3a9ddbdb773c9');
INSERT INTO ChangeTransactions VALUES(57,'08CE73184817DB953D48F133511071B4','loader',1,1795302909.0,X'b5a4ddb4f33d714f4cd69f5d12727123833e0d5067901afe3c783c5cfeede206');
INSERT INTO ChangeTransactions VALUES(58,'49611D21CF160CBE390C22608BE362FA','loader',1,1795302909.0,X'66c7ef039c24dcba64412d324e7f0de5125865ba5431788fa8e4ffef67e18c3f');
INSERT INTO ChangeTransactions VALUES(59,'60B0CC8CE23E70E7E67BAFC1FE37C27C','loader',1,1795302909.0,X'bb459d84e6530ce2c3a591ea84fdc2abefbf1cf692e26dce9d24e0f50d18163d');
INSERT INTO ChangeTransactions VALUES(60,'7F4153DF9E15E294D1775E93F3CEBDF3','loader',1,1795302909.0,X'da09522b4f4cb1d4deb71b9c492ce7fde385ff9d5982c237f6d3d998c063999f');
INSERT INTO ChangeTransactions VALUES(61,'A2E010EBED24D8EEC3E14AC309B1B224','loader',1,1795302909.0,X'b13437fa2e3a06fa5890725b4b641b0c49d03f5c7910055d40d4681ef46a7e6e');
INSERT INTO ChangeTransactions VALUES(62,'0B9A3FF3C5CF86752126957530D5FDF1','loader',1,1795302909.0,X'9191f8a29bf82ad2514c668bef30ba615cf49e4a90ba32c49890f7a8bad21d29');
INSERT INTO ChangeTransactions VALUES(63,'487A3F3F16F535248E417BD07B531D77','loader',1,1795302909.0,X'327f8c4ecdab213f5e591ac77b9725a3d9c92192b941242434b69c33b4ba45ac');
INSERT INTO ChangeTransactions VALUES(64,'76CB06F96869C7A5DCEC7BEADFFDC6DC','loader',1,1795302909.0,X'100af2cadef27e1d68492506a1cb969e7da952c3225b6211d30e7ac745b736bd');
INSERT INTO ChangeTransactions VALUES(65,'756F19BD0F5FF033B7FBFB41F13F9DD7','loader',1,1795302909.0,X'0585b82640b3fff05dda7359940faca1039062fad1921de9073f9d1cd20fff4c');
INSERT INTO ChangeTransactions VALUES(66,'19537968CCC6ABE00285B96B7122289B','loader',1,1795302909.0,X'3eb0da726e568dae8f6fb7e8cc31805eb888912b289694d726bee0a189f83c85');
INSERT INTO ChangeTransactions VALUES(67,'47C983F417BC103008E9F0E571B6F849','loader',1,1795302909.0,X'0e07d0c005ef20309a42e6ebb9d235ac92793940dd62874bcbff359b7fc7b3c5');
INSERT INTO ChangeTransactions VALUES(68,'B17DDE919B6ACDA3002207018D2722C1','loader',1,1795302909.0,X'1b1a210e4a16965dc060048e5aa3c06a5a53eb3279d2368e3d5fa3bb05fabc7d');
INSERT INTO ChangeTransactions VALUES(69,'B32485E4FB2142B2F15830D49CC639E0','loader',1,1795302909.0,X'5e57e7e12d772d9c9bf862eb992c8ad14b77b18ca5bd84bf6c402b57cab9d217');
INSERT INTO ChangeTransactions VALUES(70,'CC395A6C30828B9D34E0BB90629F810E','loader',1,1795302909.0,X'27bc559ff0574f6dc85c4032741bf8d13e62bdadd92f53d0d03ed181fed5862e');
INSERT INTO ChangeTransactions VALUES(71,'800F97BE667FB2CF17FB7B4B0AC63749','loader',1,1795302909.0,X'976cbfaa0de49941b3bc27a166804970cb57d0b8961e1e10a793e05b3a8c589f');
INSERT INTO ChangeTransactions VALUES(72,'07D2E6BF71F856DE7D54A163E62250DB','loader',1,1795302909.0,X'61a4d89ceb96c21bca53d1d047f17c851e9cfe72034a39e5158b75f9a50ffff1');
INSERT INTO ChangeTransactions VALUES(73,'AEA2413115DB060411B0628F3429158E','loader',1,1795302909.0,X'46baef86e8ce14d17104d9b6b7bbfcc3f0443b2293468a8177284957a9142f5e');
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
INSERT INTO ChangeLog VALUES(48,48,'LogbookWorkshifts','SHIFT_CDS_PAST',601,NULL,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795194909,1795194909,1795281309]');
INSERT INTO ChangeLog VALUES(49,49,'LogbookWorkshifts','SHIFT_CDS_OPEN',601,NULL,'["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795281309,1795281309,1795367709]');
INSERT INTO ChangeLog VALUES(50,50,'LogbookWorkshifts','SHIFT_ZAR_OPEN',601,NULL,'["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795295709,1795295709,1795338909]');
INSERT INTO ChangeLog VALUES(51,51,'LogbookWorkshifts','SHIFT_CDS_PAST',602,'["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795194909,1795194909,1795281309]','["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795194909,1795194909,1795281309]');
INSERT INTO ChangeLog VALUES(52,52,'LogbookWorkersWorkshift','CREW_CDS_1',601,NULL,'["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(53,53,'LogbookWorkersWorkshift','CREW_CDS_2',601,NULL,'["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]');
INSERT INTO ChangeLog VALUES(54,54,'LogbookWorkersWorkshift','CREW_ZAR_1',601,NULL,'["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]');
INSERT INTO ChangeLog VALUES(55,55,'LogbookWorkersWorkshift','CREW_PAST_1',601,NULL,'["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]');
INSERT INTO ChangeLog VALUES(56,56,'LogbookWorkersWorkshift','CREW_PAST_2',601,NULL,'["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]');
INSERT INTO ChangeLog VALUES(57,57,'LogbookWorkersWorkshift','CREW_PAST_3',601,NULL,'["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]');
INSERT INTO ChangeLog VALUES(58,58,'LogbookRecords','REC_PAST_1',601,NULL,'["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795200909,1795200909,null,null,null,"Принята сводка погоды.",0,null]');
INSERT INTO ChangeLog VALUES(59,59,'LogbookRecords','REC_PAST_2',601,NULL,'["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795248909,1795248909,null,null,null,"Проверена связь с подстанциями.",0,null]');
INSERT INTO ChangeLog VALUES(60,60,'LogbookRecords','REC_OPENING',601,NULL,'["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795281309,1795281309,null,null,null,"<meta name=\"template\" content=\"open_wshift\">Смену принял <a href=\"parameter:name=shift_workers_groups;locname=Диспетчер\">Иванов И.И. гр.V</a> <a href=\"parameter:name=interval;locname=Период%20смены\">с 20:00 по 08:00</a>.",0,null]');
INSERT INTO ChangeLog VALUES(61,61,'LogbookRecords','REC_MESSAGE',601,NULL,'["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795284909,1795284909,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]');
INSERT INTO ChangeLog VALUES(62,62,'LogbookRecords','REC_REPLACED',601,NULL,'["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795288509,1795288509,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]');
INSERT INTO ChangeLog VALUES(63,63,'LogbookRecords','REC_SUCCESSOR',601,NULL,'["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795288509,1795288509,null,null,1795289109,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Луговая</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(64,64,'LogbookRecords','REC_ORDER',601,NULL,'["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795292109,1795292109,null,null,null,"<meta name=\"template\" content=\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\">Отдана команда: на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 35 кВ Ольховка</a> отключить <a href=\"parameter:name=text;locname=Оборудование\">ф. 7</a>.",0,null]');
INSERT INTO ChangeLog VALUES(65,65,'LogbookRecords','REC_TRIP',601,NULL,'["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795295709,1795295709,1795295649,null,null,"<meta name=\"template\" content=\"first_mark=:/markers/exclamation_mark.png\">Отключилась <a href=\"parameter:name=line;locname=Линия\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\"parameter:name=substation;locname=Подстанция\">ПС 110 кВ Заречная</a>.",0,null]');
INSERT INTO ChangeLog VALUES(66,66,'LogbookRecords','REC_DRAFT_IVANOV',601,NULL,'["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795299309,1795299309,null,null,null,"Черновик: осмотр оборудования.",1,null]');
INSERT INTO ChangeLog VALUES(67,67,'LogbookRecords','REC_DRAFT_PETROV',601,NULL,'["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795301109,1795301109,null,null,null,"Черновик: доклад бригады.",1,null]');
INSERT INTO ChangeLog VALUES(68,68,'LogbookRecords','REC_ZAR',601,NULL,'["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795296909,1795296909,null,null,null,"Схема сверена по щиту.",0,null]');
INSERT INTO ChangeLog VALUES(69,69,'LogbookComments','COM_UNREAD',601,NULL,'["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795281909,"Уточните период смены.",0]');
INSERT INTO ChangeLog VALUES(70,70,'LogbookComments','COM_READ',601,NULL,'["COM_READ","WORKER_IVANOV","REC_ORDER",1795292709,"Исполнение доложить до конца смены.",1795293309]');
INSERT INTO ChangeLog VALUES(71,71,'LogbookComments','COM_PAST',601,NULL,'["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795254909,"Приложите сводку к записи.",0]');
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
INSERT INTO RecordSearch VALUES(117650286772224,'REC_PAST_1','принят сводк погод','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117653432500224,'REC_PAST_2','провер связ с подстанц','','record d4445505F434453 a574F524B45525F4B555A4E4554534F56 s0');
INSERT INTO RecordSearch VALUES(117655555866624,'REC_OPENING','смен приня иван и гр v с 20 00 по 08','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117655791796224,'REC_MESSAGE','запрош состоян нагрузк','','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117656027725824,'REC_REPLACED','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s2');
INSERT INTO RecordSearch VALUES(117656027725825,'REC_SUCCESSOR','отда команд на пс 110 кв лугов отключ вл полев заречн','пс 110 кв лугов','record d4445505F434453 a574F524B45525F4956414E4F56 s0');
INSERT INTO RecordSearch VALUES(117656263655424,'REC_ORDER','отда команд на пс 35 кв ольховк отключ ф 7','пс 35 кв ольховк','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117656499585024,'REC_TRIP','отключ вл 110 кв полев заречн на пс','вл 110 кв полев заречн пс','record d4445505F434453 a574F524B45525F504554524F56 s0');
INSERT INTO RecordSearch VALUES(117656578228224,'REC_ZAR','схем свер по щит','','record d4445505F5A4152 a574F524B45525F534D49524E4F565F5A4152 s0');
INSERT INTO RecordSearch VALUES(117656735514624,'REC_DRAFT_IVANOV','черновик осмотр оборудован','','record d4445505F434453 a574F524B45525F4956414E4F56 s1');
INSERT INTO RecordSearch VALUES(117656853479424,'REC_DRAFT_PETROV','черновик доклад бригад','','record d4445505F434453 a574F524B45525F504554524F56 s1');
PRAGMA writable_schema=ON;
INSERT INTO sqlite_schema(type,name,tbl_name,rootpage,sql)VALUES('table','RecordWords','RecordWords',0,'CREATE VIRTUAL TABLE RecordWords USING fts5 (
    words, equipment, marks,
    content = ''RecordSearch'', content_rowid = ''number'', detail = ''column'', columnsize = 0,
    tokenize = ''unicode61 remove_diacritics 0''
)');
CREATE TABLE IF NOT EXISTS 'RecordWords_data'(id INTEGER PRIMARY KEY, block BLOB);
INSERT INTO RecordWords_data VALUES(1,X'0b47122c');
INSERT INTO RecordWords_data VALUES(10,X'00000000010b0b000b0101010201010301010401010501010601010701010801010901010a01010b0101');
INSERT INTO RecordWords_data VALUES(137438953473,X'000000a11c306135373466353234623435353235663439353634313465346635369ae089bcb480000204010f6434343435353035663433343435339ae089bcb48000020401067265636f72649ae089bcb480000204010273309ae089bcb480000204010ad0bfd0bed0b3d0bed0b49ae089bcb480000202030ad180d0b8d0bdd18fd1829ae089bcb480000202010ad181d0b2d0bed0b4d0ba9ae089bcb48000020204261a110d1515');
INSERT INTO RecordWords_data VALUES(274877906945,X'000000b622306135373466353234623435353235663462353535613465343535343533346635369ae09598b480000204010f6434343435353035663433343435339ae09598b48000020401067265636f72649ae09598b480000204010273309ae09598b4800002040110d0bfd0bed0b4d181d182d0b0d0bdd1869ae09598b480000202030ad180d0bed0b2d0b5d1809ae09598b4800002020102d1819ae09598b4800002020306d0b2d18fd0b79ae09598b480000202042c1a110d1b150d');
INSERT INTO RecordWords_data VALUES(412316860417,X'000000ff033030309ae09d8cf4800002020201389ae09d8cf480000202010232309ae09d8cf480000202011b6135373466353234623435353235663439353634313465346635369ae09d8cf480000204010f6434343435353035663433343435339ae09d8cf48000020401067265636f72649ae09d8cf480000204010273309ae09d8cf4800002040101769ae09d8cf4800002020104d0b3d1809ae09d8cf4800002020201b89ae09d8cf4800002020306d0b2d0b0d0bd9ae09d8cf4800002020203bfd0be9ae09d8cf4800002020308d180d0b8d0bdd18f9ae09d8cf4800002020102d1819ae09d8cf4800002020306d0bcd0b5d0bd9ae09d8cf480000202040d0c0d261a110d0c0f0c110e130d');
INSERT INTO RecordWords_data VALUES(549755813889,X'000000aa1c306135373466353234623435353235663439353634313465346635369ae09dfdb480000204010f6434343435353035663433343435339ae09dfdb48000020401067265636f72649ae09dfdb480000204010273309ae09dfdb480000204010cd0b7d0b0d0bfd180d0bed1889ae09dfdb480000202020dbdd0b0d0b3d180d183d0b7d0ba9ae09dfdb480000202010ed181d0bed181d182d0bed18fd0bd9ae09dfdb48000020204261a110d1718');
INSERT INTO RecordWords_data VALUES(687194767361,X'0000012204303131309ae09eedf48000040203011b6135373466353234623435353235663439353634313465346635369ae09eedf480000204010f6434343435353035663433343435339ae09eedf48000020401067265636f72649ae09eedf480000204010273329ae09eedf4800002040104d0b2d0bb9ae09eedf480000202020bb7d0b0d180d0b5d187d0bd9ae09eedf4800002020203bad0b29ae09eedf480000402030409bed0bcd0b0d0bdd0b49ae09eedf4800002020209bbd183d0b3d0bed0b29ae09eedf480000402030203bdd0b09ae09eedf4800002020207bed182d0b4d0b09ae09eedf4800002020607bad0bbd18ed1879ae09eedf4800002020209bfd0bed0bbd0b5d0b29ae09eedf4800002020302d1819ae09eedf48000040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(824633720833,X'0000012204303131309ae09eedf48001040203011b6135373466353234623435353235663439353634313465346635369ae09eedf480010204010f6434343435353035663433343435339ae09eedf48001020401067265636f72649ae09eedf480010204010273309ae09eedf4800102040104d0b2d0bb9ae09eedf480010202020bb7d0b0d180d0b5d187d0bd9ae09eedf4800102020203bad0b29ae09eedf480010402030409bed0bcd0b0d0bdd0b49ae09eedf4800102020209bbd183d0b3d0bed0b29ae09eedf480010402030203bdd0b09ae09eedf4800102020207bed182d0b4d0b09ae09eedf4800102020607bad0bbd18ed1879ae09eedf4800102020209bfd0bed0bbd0b5d0b29ae09eedf4800102020302d1819ae09eedf48001040203040f261a110d0f160f14150e121214');
INSERT INTO RecordWords_data VALUES(962072674305,X'00000106033033359ae09fdeb480000402030101379ae09fdeb480000202011b6135373466353234623435353235663530343535343532346635369ae09fdeb480000204010f6434343435353035663433343435339ae09fdeb48000020401067265636f72649ae09fdeb480000204010273309ae09fdeb4800002040104d0bad0b29ae09fdeb480000402030409bed0bcd0b0d0bdd0b49ae09fdeb4800002020203bdd0b09ae09fdeb480000202020dbed0bbd18cd185d0bed0b2d0ba9ae09fdeb480000402030306d182d0b4d0b09ae09fdeb4800002020607bad0bbd18ed1879ae09fdeb4800002020203bfd1819ae09fdeb480000402030102d1849ae09fdeb480000202040e0c261a110d10140e1911120f');
INSERT INTO RecordWords_data VALUES(1099511627777,X'000000ee04303131309ae0a0cef48000040203011b6135373466353234623435353235663530343535343532346635369ae0a0cef480000204010f6434343435353035663433343435339ae0a0cef48000020401067265636f72649ae0a0cef480000204010273309ae0a0cef4800002040104d0b2d0bb9ae0a0cef48000040203020bb7d0b0d180d0b5d187d0bd9ae0a0cef480000402030203bad0b29ae0a0cef480000402030203bdd0b09ae0a0cef480000202020bbed182d0bad0bbd18ed1879ae0a0cef4800002020209bfd0bed0bbd0b5d0b29ae0a0cef480000402030302d1819ae0a0cef48000040203040f261a110d10170f0e1615');
INSERT INTO RecordWords_data VALUES(1236950581249,X'000000b11c306135373466353234623435353235663439353634313465346635369ae0a1bfb480000204010f6434343435353035663433343435339ae0a1bfb48000020401067265636f72649ae0a1bfb480000204010273319ae0a1bfb4800002040114d0bed0b1d0bed180d183d0b4d0bed0b2d0b0d0bd9ae0a1bfb480000202030ad181d0bcd0bed182d1809ae0a1bfb4800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0a1bfb48000020204261a110d1f15');
INSERT INTO RecordWords_data VALUES(1374389534721,X'000000aa1c306135373466353234623435353235663530343535343532346635369ae0a1f7d480000204010f6434343435353035663433343435339ae0a1f7d48000020401067265636f72649ae0a1f7d480000204010273319ae0a1f7d480000204010cd0b1d180d0b8d0b3d0b0d0b49ae0a1f7d480000202020bb4d0bed0bad0bbd0b0d0b49ae0a1f7d4800002020110d187d0b5d180d0bdd0bed0b2d0b8d0ba9ae0a1f7d48000020204261a110d1716');
INSERT INTO RecordWords_data VALUES(1511828488193,X'000000af2630613537346635323462343535323566353334643439353234653466353635663561343135329ae0a0f4b480000204010f6434343435353035663561343135329ae0a0f4b48000020401067265636f72649ae0a0f4b480000204010273309ae0a0f4b4800002040104d0bfd0be9ae0a0f4b4800002020108d181d0b2d0b5d1809ae0a0f4b4800002020306d185d0b5d0bc9ae0a0f4b480000202020589d0b8d1829ae0a0f4b48000020204301a110d0f1311');
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
      AND coalesce(NEW.SecondMarkWorkerKey, '') <> ''
      AND NEW.SecondMarkWorkerKey NOT IN (SELECT KeyLink FROM CurrentWorkers);
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
PRAGMA user_version = 2;
