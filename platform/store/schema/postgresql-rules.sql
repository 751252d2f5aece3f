-- What a person may write. The triggers judge by the role that the connection was authenticated as; the loader is
-- bound by none of them. Their texts go to the user as they stand. Made anew at every step of the schema.

-- Who writes: one row.
CREATE VIEW CurrentTransaction AS
    SELECT session_user::text COLLATE "C" AS login,
           coalesce((SELECT KeyLink FROM Users
                     WHERE Users.login = session_user::text COLLATE "C" AND coalesce(deleted_, 0) = 0), '') AS userKey;

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

CREATE FUNCTION Rule_Workshifts_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Смену открывают от своего имени и в своём подразделении.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentWorkers
                      WHERE KeyLink = NEW.OpenWorkerKey AND DepartmentKey = NEW.DepartmentKey);
    PERFORM vrk_refuse('Новая смена должна быть открытой.') WHERE coalesce(NEW.CloseWorkerKey, '') <> '';
    PERFORM vrk_refuse('Смена не может начаться раньше окончания предыдущей смены подразделения.')
    WHERE coalesce(NEW.startTime, 0) < coalesce((SELECT endTime FROM LogbookWorkshifts
                                                 WHERE DepartmentKey = NEW.DepartmentKey
                                                 ORDER BY startTime DESC NULLS LAST LIMIT 1), 0);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Workshifts_insert BEFORE INSERT ON LogbookWorkshifts
    FOR EACH ROW EXECUTE FUNCTION Rule_Workshifts_insert();

CREATE FUNCTION Rule_Workshifts_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('У смены меняется только отметка о её закрытии.')
    WHERE NEW.DepartmentKey IS DISTINCT FROM OLD.DepartmentKey OR NEW.OpenWorkerKey IS DISTINCT FROM OLD.OpenWorkerKey
       OR NEW.createdAt IS DISTINCT FROM OLD.createdAt OR NEW.startTime IS DISTINCT FROM OLD.startTime
       OR NEW.endTime IS DISTINCT FROM OLD.endTime;
    PERFORM vrk_refuse('Смена уже закрыта.')
    WHERE NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey AND coalesce(OLD.CloseWorkerKey, '') <> '';
    PERFORM vrk_refuse('Смену закрывает от своего имени работник этой смены.')
    WHERE NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey
      AND (OLD.KeyLink NOT IN (SELECT KeyLink FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.KeyLink)
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
           OR NOT (NEW.CloseWorkerKey IS NOT DISTINCT FROM OLD.OpenWorkerKey
                   OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift
                              WHERE WorkshiftKey = OLD.KeyLink AND opening = 1
                                AND WorkerKey = NEW.CloseWorkerKey)));
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Workshifts_update BEFORE UPDATE ON LogbookWorkshifts
    FOR EACH ROW EXECUTE FUNCTION Rule_Workshifts_update();

CREATE FUNCTION Rule_Workshifts_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Удалить можно только свою открытую смену без записей.')
    WHERE coalesce(OLD.CloseWorkerKey, '') <> ''
       OR coalesce(OLD.OpenWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
       OR EXISTS (SELECT 1 FROM LogbookRecords WHERE ShiftKey = OLD.KeyLink);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Workshifts_delete BEFORE DELETE ON LogbookWorkshifts
    FOR EACH ROW EXECUTE FUNCTION Rule_Workshifts_delete();

-- Crew. Rows that go with their workshift are not judged: the workshift is gone by then.

CREATE FUNCTION Rule_Crew_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Состав открытой смены меняет только работник этой смены.')
    WHERE NEW.opening = 1
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.WorkshiftKey);
    PERFORM vrk_refuse('Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(NEW.opening, 0) <> 1
      AND NOT EXISTS (SELECT 1 FROM LogbookWorkshifts
                      WHERE KeyLink = NEW.WorkshiftKey
                        AND CloseWorkerKey IN (SELECT KeyLink FROM CurrentWorkers));
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Crew_insert BEFORE INSERT ON LogbookWorkersWorkshift
    FOR EACH ROW EXECUTE FUNCTION Rule_Crew_insert();

CREATE FUNCTION Rule_Crew_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Строки состава смены не изменяются.')
    WHERE NEW.WorkshiftKey IS DISTINCT FROM OLD.WorkshiftKey OR NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey
       OR NEW.opening IS DISTINCT FROM OLD.opening;
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Crew_update BEFORE UPDATE ON LogbookWorkersWorkshift
    FOR EACH ROW EXECUTE FUNCTION Rule_Crew_update();

CREATE FUNCTION Rule_Crew_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Состав открытой смены меняет только работник этой смены.')
    WHERE OLD.opening = 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts WHERE KeyLink = OLD.WorkshiftKey)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.WorkshiftKey);
    PERFORM vrk_refuse('Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(OLD.opening, 0) <> 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts
                  WHERE KeyLink = OLD.WorkshiftKey
                    AND coalesce(CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Crew_delete BEFORE DELETE ON LogbookWorkersWorkshift
    FOR EACH ROW EXECUTE FUNCTION Rule_Crew_delete();

-- Records

CREATE FUNCTION Rule_Records_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Новая запись может быть только черновиком или утверждённой.')
    WHERE coalesce(NEW.status, -1) NOT IN (0, 1);
    PERFORM vrk_refuse('Записи вносят работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.ShiftKey);
    PERFORM vrk_refuse('Автором записи может быть только тот, кто её вносит.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND NOT EXISTS (SELECT 1 FROM LogbookRecords
                      WHERE KeyLink = NEW.OriginRecordKey AND WorkerKey = NEW.WorkerKey);
    PERFORM vrk_refuse('Новая запись не может нести визу.') WHERE coalesce(NEW.VisaWorkerKey, '') <> '';
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Records_insert BEFORE INSERT ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION Rule_Records_insert();

-- The second marker may be set and removed whatever the status, in any shift.
CREATE FUNCTION Rule_Records_secondMark() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Второй маркер ставят от своего имени.')
    WHERE (NEW.SecondMarkWorkerKey IS DISTINCT FROM OLD.SecondMarkWorkerKey OR NEW.secondMarkTime IS DISTINCT FROM OLD.secondMarkTime)
      AND coalesce(NEW.SecondMarkWorkerKey, '') <> ''
      AND NEW.SecondMarkWorkerKey NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Records_secondMark BEFORE UPDATE OF SecondMarkWorkerKey, secondMarkTime ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION Rule_Records_secondMark();

CREATE FUNCTION Rule_Records_visa() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR NOT (NEW.VisaWorkerKey IS DISTINCT FROM OLD.VisaWorkerKey) THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Виза ставится только на утверждённую запись.')
    WHERE OLD.status IS DISTINCT FROM 0 OR NEW.status IS DISTINCT FROM 0;
    PERFORM vrk_refuse('Визу ставят от своего имени.')
    WHERE coalesce(NEW.VisaWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    PERFORM vrk_refuse('Автор не визирует свою запись.')
    WHERE coalesce(OLD.WorkerKey, '') IN ('', NEW.VisaWorkerKey);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Records_visa BEFORE UPDATE OF VisaWorkerKey ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION Rule_Records_visa();

CREATE FUNCTION Rule_Records_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Такая смена состояния записи недопустима.')
    WHERE NEW.status IS DISTINCT FROM OLD.status
      AND NOT (OLD.status IS NOT DISTINCT FROM 1 AND NEW.status IS NOT DISTINCT FROM 0 OR OLD.status IS NOT DISTINCT FROM 0 AND NEW.status IS NOT DISTINCT FROM 2);
    PERFORM vrk_refuse('Автор и смена записи не изменяются.')
    WHERE NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.ShiftKey IS DISTINCT FROM OLD.ShiftKey;
    PERFORM vrk_refuse('Утверждённая запись не изменяется.')
    WHERE OLD.status IS DISTINCT FROM 1
      AND (NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey
           OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime
           OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html
           OR NEW.direction IS DISTINCT FROM OLD.direction
           OR NEW.executionTime IS DISTINCT FROM OLD.executionTime
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    PERFORM vrk_refuse('Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status OR NEW.executionTime IS DISTINCT FROM OLD.executionTime
           OR NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey
           OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime
           OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html
           OR NEW.direction IS DISTINCT FROM OLD.direction)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Records_update BEFORE UPDATE ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION Rule_Records_update();

CREATE FUNCTION Rule_Records_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Удалить можно только черновик.') WHERE OLD.status IS DISTINCT FROM 1;
    PERFORM vrk_refuse('Черновики удаляют работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Records_delete BEFORE DELETE ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION Rule_Records_delete();

-- Comments and files. Those that go with their draft are not judged: the record is gone by then.

CREATE FUNCTION Rule_Comments_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Комментарий пишут от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Comments_insert BEFORE INSERT ON LogbookComments
    FOR EACH ROW EXECUTE FUNCTION Rule_Comments_insert();

CREATE FUNCTION Rule_Comments_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Автор комментария и его запись не изменяются.')
    WHERE NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey;
    PERFORM vrk_refuse('Комментарий изменяет только его автор.')
    WHERE (NEW.text_ IS DISTINCT FROM OLD.text_ OR NEW.commentTime IS DISTINCT FROM OLD.commentTime)
      AND coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Comments_update BEFORE UPDATE ON LogbookComments
    FOR EACH ROW EXECUTE FUNCTION Rule_Comments_update();

CREATE FUNCTION Rule_Comments_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Комментарий удаляет только его автор.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Comments_delete BEFORE DELETE ON LogbookComments
    FOR EACH ROW EXECUTE FUNCTION Rule_Comments_delete();

CREATE FUNCTION Rule_Files_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Файл прикрепляют от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Files_insert BEFORE INSERT ON LogbookFiles
    FOR EACH ROW EXECUTE FUNCTION Rule_Files_insert();

CREATE FUNCTION Rule_Files_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Прикреплённый файл не изменяется.')
    WHERE NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey
       OR NEW.fileName IS DISTINCT FROM OLD.fileName OR NEW.fileData IS DISTINCT FROM OLD.fileData;
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Files_update BEFORE UPDATE ON LogbookFiles
    FOR EACH ROW EXECUTE FUNCTION Rule_Files_update();

CREATE FUNCTION Rule_Files_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Файл удаляет только тот, кто его прикрепил.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Files_delete BEFORE DELETE ON LogbookFiles
    FOR EACH ROW EXECUTE FUNCTION Rule_Files_delete();

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

CREATE FUNCTION Rule_Categories_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Categories_insert BEFORE INSERT ON LogbookCatsTemplate
    FOR EACH ROW EXECUTE FUNCTION Rule_Categories_insert();

CREATE FUNCTION Rule_Categories_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Categories_update BEFORE UPDATE ON LogbookCatsTemplate
    FOR EACH ROW EXECUTE FUNCTION Rule_Categories_update();

CREATE FUNCTION Rule_Categories_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Categories_delete BEFORE DELETE ON LogbookCatsTemplate
    FOR EACH ROW EXECUTE FUNCTION Rule_Categories_delete();

CREATE FUNCTION Rule_Templates_insert() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Templates_insert BEFORE INSERT ON LogbookTemplates
    FOR EACH ROW EXECUTE FUNCTION Rule_Templates_insert();

CREATE FUNCTION Rule_Templates_update() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN NEW;
END $$;
CREATE TRIGGER Rule_Templates_update BEFORE UPDATE ON LogbookTemplates
    FOR EACH ROW EXECUTE FUNCTION Rule_Templates_update();

CREATE FUNCTION Rule_Templates_delete() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN OLD;
END $$;
CREATE TRIGGER Rule_Templates_delete BEFORE DELETE ON LogbookTemplates
    FOR EACH ROW EXECUTE FUNCTION Rule_Templates_delete();
