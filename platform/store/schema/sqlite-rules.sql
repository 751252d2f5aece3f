-- What a person may write. The triggers judge by the row of CurrentTransaction; the loader is bound by none of them.
-- Their texts go to the user as they stand. Made anew at every step of the schema.

-- The living workers of the person who writes; nobody for the loader.
CREATE VIEW CurrentWorkers AS
    SELECT Workers.KeyLink, Workers.DepartmentKey
    FROM CurrentTransaction JOIN Workers ON Workers.UserKey = CurrentTransaction.userKey
    WHERE coalesce(Workers.deleted_, 0) = 0;

CREATE VIEW CurrentRights AS
    SELECT UserRights.rightName
    FROM CurrentTransaction JOIN UserRights ON UserRights.UserKey = CurrentTransaction.userKey;

-- The open workshifts in which the writer is: as their opener or by a crew row with opening.
CREATE VIEW CurrentOpenWorkshifts AS
    SELECT W.KeyLink
    FROM LogbookWorkshifts AS W
    WHERE coalesce(W.CloseWorkerKey, '') = ''
      AND (W.OpenWorkerKey IN (SELECT KeyLink FROM CurrentWorkers)
           OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift AS C
                      WHERE C.WorkshiftKey = W.KeyLink AND C.opening = 1
                        AND C.WorkerKey IN (SELECT KeyLink FROM CurrentWorkers)));

-- Workshifts

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

-- Crew. Rows that go with their workshift are not judged: the workshift is gone by then.

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

-- Records

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

-- The second marker may be set and removed whatever the status, in any shift.
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

-- Comments and files. Those that go with their draft are not judged: the record is gone by then.

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

-- Templates: the administrator writes all levels, the local administrator those of the departments he works in. The
-- level of a category is that of the category at the top of its chain.

CREATE VIEW TemplateLevels AS
    WITH RECURSIVE levels (KeyLink, DepartmentKey) AS (
        SELECT KeyLink, DepartmentKey FROM LogbookCatsTemplate WHERE coalesce(ParentKey, '') = ''
        UNION
        SELECT C.KeyLink, levels.DepartmentKey
        FROM levels JOIN LogbookCatsTemplate AS C ON C.ParentKey = levels.KeyLink)
    SELECT KeyLink, DepartmentKey FROM levels;

-- The departments whose templates the writer may change by the local right.
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

-- The log is for good.

CREATE TRIGGER Log_noUpdate BEFORE UPDATE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Log_noDelete BEFORE DELETE ON ChangeLog
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noUpdate BEFORE UPDATE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
CREATE TRIGGER Transactions_noDelete BEFORE DELETE ON ChangeTransactions
BEGIN SELECT RAISE(ABORT, 'Журнал изменений не изменяется.'); END;
