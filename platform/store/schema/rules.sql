-- What a person may write, in one notation for all engines:
--
--     RULE name BEFORE operation ON table
--     WHEN condition              (optional)
--         REFUSE 'text' WHERE condition;
--     END;
--
-- A rule becomes a trigger that applies to everybody except the loader. It uses CurrentTransaction, which each engine
-- implements itself and which identifies the writer. CHANGED(a, b) is true if one of the fields is changed;
-- EACH(NEW, a, b) is the row of these values; LOGGED(oldRow, LogbookRecords.status) is the number in this field of a row of
-- the change log. The texts are shown to the user unchanged.
--
-- Rules compare persons, not rows of Workers: a person may have several.

-- Lists of fields, which rules use as {name}: all fields of a table except KeyLink and those named here. So a new field is
-- protected unless it is added to a list.

FIELDS Workshift OF LogbookWorkshifts BUT CloseWorkerKey;
FIELDS Crew OF LogbookWorkersWorkshift BUT;
-- What a record says: approved with it, and written only in an open shift.
FIELDS RecordContent OF LogbookRecords BUT ShiftKey, WorkerKey, VisaWorkerKey, OriginRecordKey, SecondMarkWorkerKey,
    secondMarkTime, executionTime, status;
-- What a record that replaces another takes over from it.
FIELDS RecordCopy OF LogbookRecords BUT VisaWorkerKey, OriginRecordKey, executionTime, status;
FIELDS CommentPlace OF LogbookComments BUT commentTime, text_, readedTime;
FIELDS File OF LogbookFiles BUT;

-- The workers of the writer, including those that were removed since; nobody for the loader.
CREATE VIEW CurrentPerson AS
    SELECT Workers.KeyLink, Workers.DepartmentKey, coalesce(Workers.deleted_, 0) AS removed
    FROM CurrentTransaction JOIN Workers ON Workers.UserKey = CurrentTransaction.userKey
    WHERE CurrentTransaction.userKey <> '';

-- The current ones, in whose names the writer may write.
CREATE VIEW CurrentWorkers AS SELECT KeyLink, DepartmentKey FROM CurrentPerson WHERE removed = 0;

CREATE VIEW CurrentRights AS
    SELECT UserRights.rightName
    FROM CurrentTransaction JOIN UserRights ON UserRights.UserKey = CurrentTransaction.userKey;

-- The open workshifts of the writer: as their opener or by a crew row with opening.
CREATE VIEW CurrentOpenWorkshifts AS
    SELECT W.KeyLink
    FROM LogbookWorkshifts AS W
    WHERE coalesce(W.CloseWorkerKey, '') = ''
      AND (W.OpenWorkerKey IN (SELECT KeyLink FROM CurrentWorkers)
           OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift AS C
                      WHERE C.WorkshiftKey = W.KeyLink AND C.opening = 1
                        AND C.WorkerKey IN (SELECT KeyLink FROM CurrentWorkers)));

-- Workshifts

-- Maximum length of a workshift in seconds: a property of the store; two days if it is not set.
CREATE VIEW LongestShift AS
    SELECT coalesce((SELECT CAST(value AS integer) FROM StoreProperties WHERE name = 'longestShift'), 172800) AS seconds;

RULE Rule_Workshifts_insert BEFORE INSERT ON LogbookWorkshifts
    REFUSE 'Смену открывают от своего имени и в своём подразделении.'
    WHERE NOT EXISTS (SELECT 1 FROM CurrentWorkers
                      WHERE KeyLink = NEW.OpenWorkerKey AND DepartmentKey = NEW.DepartmentKey);
    REFUSE 'Новая смена должна быть открытой.' WHERE coalesce(NEW.CloseWorkerKey, '') <> '';
    REFUSE 'Смена не может начаться раньше окончания предыдущей смены подразделения.'
    WHERE coalesce(NEW.startTime, 0) < coalesce((SELECT endTime FROM LogbookWorkshifts
                                                 WHERE DepartmentKey = NEW.DepartmentKey
                                                 ORDER BY startTime DESC NULLS LAST LIMIT 1), 0);
    -- Another shift could not begin before the end of this one, which may be years away by a slip of the hand.
    REFUSE 'Смена длиннее, чем разрешено в этом журнале. Проверьте её начало и конец.'
    WHERE coalesce(NEW.endTime, 0) - coalesce(NEW.startTime, 0) > (SELECT seconds FROM LongestShift);
END;

RULE Rule_Workshifts_update BEFORE UPDATE ON LogbookWorkshifts
    REFUSE 'У смены меняется только отметка о её закрытии.'
    WHERE CHANGED({Workshift});
    REFUSE 'Смена уже закрыта.'
    WHERE CHANGED(CloseWorkerKey) AND coalesce(OLD.CloseWorkerKey, '') <> '';
    REFUSE 'Смену закрывает от своего имени работник этой смены.'
    WHERE CHANGED(CloseWorkerKey)
      AND (OLD.KeyLink NOT IN (SELECT KeyLink FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.KeyLink)
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
END;

RULE Rule_Workshifts_delete BEFORE DELETE ON LogbookWorkshifts
    REFUSE 'Удалить можно только свою открытую смену без записей.'
    WHERE coalesce(OLD.CloseWorkerKey, '') <> ''
       OR coalesce(OLD.OpenWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
       OR EXISTS (SELECT 1 FROM LogbookRecords WHERE ShiftKey = OLD.KeyLink);
END;

-- Crew. Rows that are deleted with their workshift are not checked: the workshift no longer exists then.

RULE Rule_Crew_insert BEFORE INSERT ON LogbookWorkersWorkshift
    REFUSE 'Состав открытой смены меняет только работник этой смены.'
    WHERE NEW.opening = 1
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.WorkshiftKey);
    REFUSE 'Принимающих смену указывает тот, кто её закрыл.'
    WHERE coalesce(NEW.opening, 0) <> 1
      AND NOT EXISTS (SELECT 1 FROM LogbookWorkshifts
                      WHERE KeyLink = NEW.WorkshiftKey
                        AND CloseWorkerKey IN (SELECT KeyLink FROM CurrentWorkers));
END;

RULE Rule_Crew_update BEFORE UPDATE ON LogbookWorkersWorkshift
    REFUSE 'Строки состава смены не изменяются.'
    WHERE CHANGED({Crew});
END;

RULE Rule_Crew_delete BEFORE DELETE ON LogbookWorkersWorkshift
    REFUSE 'Состав открытой смены меняет только работник этой смены.'
    WHERE OLD.opening = 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts WHERE KeyLink = OLD.WorkshiftKey)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.WorkshiftKey);
    REFUSE 'Принимающих смену указывает тот, кто её закрыл.'
    WHERE coalesce(OLD.opening, 0) <> 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts
                  WHERE KeyLink = OLD.WorkshiftKey
                    AND coalesce(CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
END;

-- Records

RULE Rule_Records_insert BEFORE INSERT ON LogbookRecords
    REFUSE 'Новая запись может быть только черновиком или утверждённой.'
    WHERE coalesce(NEW.status, -1) NOT IN (0, 1);
    REFUSE 'Записи вносят работники открытой смены.'
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.ShiftKey);
    -- Or, in a record that replaces another, the author of that one. Rule_Transactions_insert sees to the replacement.
    REFUSE 'Автором записи может быть только тот, кто её вносит.'
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND (NEW.status <> 0
           OR NOT EXISTS (SELECT 1 FROM LogbookRecords AS R
                          WHERE R.KeyLink = NEW.OriginRecordKey AND R.status <> 1
                            AND EACH(R, {RecordCopy})
                                IS NOT DISTINCT FROM
                                EACH(NEW, {RecordCopy})));
    REFUSE 'Новая запись не может нести визу.' WHERE coalesce(NEW.VisaWorkerKey, '') <> '';
END;

-- The records that each transaction has written in the name of a person other than the writer.
CREATE VIEW ForeignRecords AS
    SELECT L.number, R.KeyLink, R.OriginRecordKey
    FROM ChangeLog AS L JOIN LogbookRecords AS R ON R.KeyLink = L.rowKey
    WHERE L.tableName = 'LogbookRecords' AND L.event = 601
      AND coalesce(R.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);

-- The log writes the row of a transaction after all others, so this rule sees the whole transaction: a
-- writer who adds a record in the name of another must mark the record that it replaces as deleted, before
-- or after it.
RULE Rule_Transactions_insert BEFORE INSERT ON ChangeTransactions
    REFUSE 'Автором записи может быть только тот, кто её вносит.'
    WHERE EXISTS (SELECT 1 FROM ForeignRecords AS F
                  WHERE F.number = NEW.number
                    AND NOT EXISTS (SELECT 1 FROM ChangeLog AS L
                                    WHERE L.number = NEW.number AND L.tableName = 'LogbookRecords' AND L.event = 602
                                      AND L.rowKey = F.OriginRecordKey
                                      AND LOGGED(L.oldRow, LogbookRecords.status) = 0
                                      AND LOGGED(L.newRow, LogbookRecords.status) = 2));
    REFUSE 'Запись заменяется одной новой.'
    WHERE EXISTS (SELECT 1 FROM ForeignRecords WHERE number = NEW.number
                  GROUP BY OriginRecordKey HAVING count(*) > 1);
END;

-- The second marker may be set and removed in any status and any shift.
RULE Rule_Records_secondMark BEFORE UPDATE OF SecondMarkWorkerKey, secondMarkTime ON LogbookRecords
    REFUSE 'Второй маркер ставят от своего имени.'
    WHERE CHANGED(SecondMarkWorkerKey, secondMarkTime)
      AND (coalesce(NEW.SecondMarkWorkerKey, '') <> '' OR coalesce(NEW.secondMarkTime, 0) <> 0)
      AND coalesce(NEW.SecondMarkWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;

RULE Rule_Records_visa BEFORE UPDATE OF VisaWorkerKey ON LogbookRecords
WHEN CHANGED(VisaWorkerKey)
    REFUSE 'Виза ставится только на утверждённую запись.'
    WHERE OLD.status IS DISTINCT FROM 0 OR NEW.status IS DISTINCT FROM 0;
    REFUSE 'Визу ставят от своего имени.'
    WHERE coalesce(NEW.VisaWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    REFUSE 'Автор не визирует свою запись.'
    WHERE coalesce(OLD.WorkerKey, '') = '' OR OLD.WorkerKey IN (SELECT KeyLink FROM CurrentPerson);
END;

RULE Rule_Records_update BEFORE UPDATE ON LogbookRecords
    REFUSE 'Такая смена состояния записи недопустима.'
    WHERE CHANGED(status)
      AND NOT (coalesce(OLD.status, -1) = 1 AND coalesce(NEW.status, -1) = 0
               OR coalesce(OLD.status, -1) = 0 AND coalesce(NEW.status, -1) = 2);
    REFUSE 'Автор, смена и первичная запись не изменяются.'
    WHERE CHANGED(WorkerKey, ShiftKey, OriginRecordKey);
    REFUSE 'Утверждённая запись не изменяется.'
    WHERE OLD.status IS DISTINCT FROM 1
      AND (CHANGED({RecordContent})
           OR CHANGED(executionTime)
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    REFUSE 'Записи изменяют работники открытой смены.'
    WHERE CHANGED(status, executionTime, {RecordContent})
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
END;

RULE Rule_Records_delete BEFORE DELETE ON LogbookRecords
    REFUSE 'Удалить можно только черновик.' WHERE OLD.status IS DISTINCT FROM 1;
    REFUSE 'Черновики удаляют работники открытой смены.'
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
END;

-- Comments and files. Those that are deleted with their draft are not checked: the record no longer exists
-- then.

RULE Rule_Comments_insert BEFORE INSERT ON LogbookComments
    REFUSE 'Комментарий пишут от своего имени.'
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;

RULE Rule_Comments_update BEFORE UPDATE ON LogbookComments
    REFUSE 'Автор комментария и его запись не изменяются.'
    WHERE CHANGED({CommentPlace});
    REFUSE 'Комментарий изменяет только его автор.'
    WHERE CHANGED(text_, commentTime)
      AND coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;

RULE Rule_Comments_delete BEFORE DELETE ON LogbookComments
    REFUSE 'Комментарий удаляет только его автор.'
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
END;

RULE Rule_Files_insert BEFORE INSERT ON LogbookFiles
    REFUSE 'Файл прикрепляют от своего имени.'
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
END;

RULE Rule_Files_update BEFORE UPDATE ON LogbookFiles
    REFUSE 'Прикреплённый файл не изменяется.'
    WHERE CHANGED({File});
END;

RULE Rule_Files_delete BEFORE DELETE ON LogbookFiles
    REFUSE 'Файл удаляет только тот, кто его прикрепил.'
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
END;

-- Templates: the administrator writes all levels, the local administrator those of the departments he works
-- in. The level of a category is that of the category at the top of its chain.

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

RULE Rule_Categories_insert BEFORE INSERT ON LogbookCatsTemplate
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;

RULE Rule_Categories_update BEFORE UPDATE ON LogbookCatsTemplate
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;

RULE Rule_Categories_delete BEFORE DELETE ON LogbookCatsTemplate
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;

RULE Rule_Templates_insert BEFORE INSERT ON LogbookTemplates
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;

RULE Rule_Templates_update BEFORE UPDATE ON LogbookTemplates
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;

RULE Rule_Templates_delete BEFORE DELETE ON LogbookTemplates
WHEN NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
    REFUSE 'Нет права изменять шаблоны этого уровня.'
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
END;
