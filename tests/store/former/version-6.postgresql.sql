SET statement_timeout = 0;
SET lock_timeout = 0;
SET idle_in_transaction_session_timeout = 0;
SET client_encoding = 'UTF8';
SET standard_conforming_strings = on;
SELECT pg_catalog.set_config('search_path', '', false);
SET check_function_bodies = false;
SET xmloption = content;
SET client_min_messages = warning;
SET row_security = off;
CREATE FUNCTION public.log_departments() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Departments', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.OrganizationKey)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.OrganizationKey)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_departments() OWNER TO vrk_owner;
CREATE FUNCTION public.log_equipment() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Equipment', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.kind)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null'), coalesce(to_json(OLD.voltage)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.kind)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null'), coalesce(to_json(NEW.voltage)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_equipment() OWNER TO vrk_owner;
CREATE FUNCTION public.log_fields() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Fields', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.TablesKey)::text, 'null'), coalesce(to_json(OLD.nameLat)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.TablesKey)::text, 'null'), coalesce(to_json(NEW.nameLat)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_fields() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookcatstemplate() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN
        PERFORM vrk_hold_trees();
        PERFORM vrk_refuse('Категория не может лежать внутри самой себя.')
        WHERE NEW.KeyLink IN (
            WITH RECURSIVE up (k) AS (
                SELECT NEW.ParentKey UNION
                SELECT T.ParentKey FROM up JOIN LogbookCatsTemplate AS T ON T.KeyLink = up.k)
            SELECT k FROM up);
    END IF;
    PERFORM vrk_log('LogbookCatsTemplate', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.OrgTypeKey)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.OrgTypeKey)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookcatstemplate() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookcomments() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF NEW.commentTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.commentTime IS DISTINCT FROM OLD.commentTime OR NEW.readedTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.readedTime IS DISTINCT FROM OLD.readedTime THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
    PERFORM vrk_log('LogbookComments', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null'), coalesce(to_json(OLD.RecordKey)::text, 'null'), coalesce(to_json(OLD.commentTime)::text, 'null'), coalesce(to_json(OLD.text_)::text, 'null'), coalesce(to_json(OLD.readedTime)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null'), coalesce(to_json(NEW.RecordKey)::text, 'null'), coalesce(to_json(NEW.commentTime)::text, 'null'), coalesce(to_json(NEW.text_)::text, 'null'), coalesce(to_json(NEW.readedTime)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookcomments() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookfiles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('LogbookFiles', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null'), coalesce(to_json(OLD.RecordKey)::text, 'null'), coalesce(to_json(OLD.fileName)::text, 'null'), coalesce('{"sha256":"' || encode(sha256(OLD.fileData), 'hex') || '","length":' || length(OLD.fileData) || '}', 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null'), coalesce(to_json(NEW.RecordKey)::text, 'null'), coalesce(to_json(NEW.fileName)::text, 'null'), coalesce('{"sha256":"' || encode(sha256(NEW.fileData), 'hex') || '","length":' || length(NEW.fileData) || '}', 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookfiles() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookrecords() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF NEW.recordTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.secondMarkTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.secondMarkTime IS DISTINCT FROM OLD.secondMarkTime OR NEW.executionTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.executionTime IS DISTINCT FROM OLD.executionTime THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
    PERFORM vrk_log('LogbookRecords', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ShiftKey)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null'), coalesce(to_json(OLD.VisaWorkerKey)::text, 'null'), coalesce(to_json(OLD.ReceiverWorkerKey)::text, 'null'), coalesce(to_json(OLD.OriginRecordKey)::text, 'null'), coalesce(to_json(OLD.SecondMarkWorkerKey)::text, 'null'), coalesce(to_json(OLD.recordTime)::text, 'null'), coalesce(to_json(OLD.eventTime)::text, 'null'), coalesce(to_json(OLD.firstMarkTime)::text, 'null'), coalesce(to_json(OLD.secondMarkTime)::text, 'null'), coalesce(to_json(OLD.executionTime)::text, 'null'), coalesce(to_json(OLD.html)::text, 'null'), coalesce(to_json(OLD.status)::text, 'null'), coalesce(to_json(OLD.direction)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ShiftKey)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null'), coalesce(to_json(NEW.VisaWorkerKey)::text, 'null'), coalesce(to_json(NEW.ReceiverWorkerKey)::text, 'null'), coalesce(to_json(NEW.OriginRecordKey)::text, 'null'), coalesce(to_json(NEW.SecondMarkWorkerKey)::text, 'null'), coalesce(to_json(NEW.recordTime)::text, 'null'), coalesce(to_json(NEW.eventTime)::text, 'null'), coalesce(to_json(NEW.firstMarkTime)::text, 'null'), coalesce(to_json(NEW.secondMarkTime)::text, 'null'), coalesce(to_json(NEW.executionTime)::text, 'null'), coalesce(to_json(NEW.html)::text, 'null'), coalesce(to_json(NEW.status)::text, 'null'), coalesce(to_json(NEW.direction)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookrecords() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbooktemplates() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('LogbookTemplates', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.CategoryKey)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null'), coalesce(to_json(OLD.html)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.CategoryKey)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null'), coalesce(to_json(NEW.html)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbooktemplates() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookworkersworkshift() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('LogbookWorkersWorkshift', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.WorkshiftKey)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null'), coalesce(to_json(OLD.opening)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.WorkshiftKey)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null'), coalesce(to_json(NEW.opening)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookworkersworkshift() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logbookworkshifts() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF NEW.createdAt IN ('NaN', 'Infinity', '-Infinity') AND NEW.createdAt IS DISTINCT FROM OLD.createdAt OR NEW.startTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.startTime IS DISTINCT FROM OLD.startTime OR NEW.endTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.endTime IS DISTINCT FROM OLD.endTime THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
    PERFORM vrk_log('LogbookWorkshifts', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.OpenWorkerKey)::text, 'null'), coalesce(to_json(OLD.CloseWorkerKey)::text, 'null'), coalesce(to_json(OLD.createdAt)::text, 'null'), coalesce(to_json(OLD.startTime)::text, 'null'), coalesce(to_json(OLD.endTime)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.OpenWorkerKey)::text, 'null'), coalesce(to_json(NEW.CloseWorkerKey)::text, 'null'), coalesce(to_json(NEW.createdAt)::text, 'null'), coalesce(to_json(NEW.startTime)::text, 'null'), coalesce(to_json(NEW.endTime)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logbookworkshifts() OWNER TO vrk_owner;
CREATE FUNCTION public.log_logsignatures() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF NEW.time IN ('NaN', 'Infinity', '-Infinity') AND NEW.time IS DISTINCT FROM OLD.time THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
    PERFORM vrk_log('LogSignatures', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.meaning)::text, 'null'), coalesce(to_json(OLD.login)::text, 'null'), coalesce(to_json(OLD.person)::text, 'null'), coalesce(to_json(OLD.time)::text, 'null'), coalesce(to_json(OLD.signedTable)::text, 'null'), coalesce(to_json(OLD.signedKey)::text, 'null'), coalesce(to_json(OLD.rowHash)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.meaning)::text, 'null'), coalesce(to_json(NEW.login)::text, 'null'), coalesce(to_json(NEW.person)::text, 'null'), coalesce(to_json(NEW.time)::text, 'null'), coalesce(to_json(NEW.signedTable)::text, 'null'), coalesce(to_json(NEW.signedKey)::text, 'null'), coalesce(to_json(NEW.rowHash)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_logsignatures() OWNER TO vrk_owner;
CREATE FUNCTION public.log_operlogcategories() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('OperLogCategories', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.OrgTypeKey)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.OrgTypeKey)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_operlogcategories() OWNER TO vrk_owner;
CREATE FUNCTION public.log_operlogtemplateparams() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('OperLogTemplateParams', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null'), coalesce(to_json(OLD.nameLat)::text, 'null'), coalesce(to_json(OLD.param)::text, 'null'), coalesce(to_json(OLD.TableKey)::text, 'null'), coalesce(to_json(OLD.FieldTypeKey)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null'), coalesce(to_json(NEW.nameLat)::text, 'null'), coalesce(to_json(NEW.param)::text, 'null'), coalesce(to_json(NEW.TableKey)::text, 'null'), coalesce(to_json(NEW.FieldTypeKey)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_operlogtemplateparams() OWNER TO vrk_owner;
CREATE FUNCTION public.log_operlogtemplates() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('OperLogTemplates', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.CategoryKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null'), coalesce(to_json(OLD.text_)::text, 'null'), coalesce(to_json(OLD.canStartShift)::text, 'null'), coalesce(to_json(OLD.canEndShift)::text, 'null'), coalesce(to_json(OLD.isNecessaryFinishTime)::text, 'null'), coalesce(to_json(OLD.icon)::text, 'null'), coalesce(to_json(OLD.completingIcon)::text, 'null'), coalesce(to_json(OLD.completingCommand)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.CategoryKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null'), coalesce(to_json(NEW.text_)::text, 'null'), coalesce(to_json(NEW.canStartShift)::text, 'null'), coalesce(to_json(NEW.canEndShift)::text, 'null'), coalesce(to_json(NEW.isNecessaryFinishTime)::text, 'null'), coalesce(to_json(NEW.icon)::text, 'null'), coalesce(to_json(NEW.completingIcon)::text, 'null'), coalesce(to_json(NEW.completingCommand)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_operlogtemplates() OWNER TO vrk_owner;
CREATE FUNCTION public.log_organizations() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Organizations', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.OrgTypeKey)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.OrgTypeKey)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_organizations() OWNER TO vrk_owner;
CREATE FUNCTION public.log_orgtypes() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('OrgTypes', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_orgtypes() OWNER TO vrk_owner;
CREATE FUNCTION public.log_roles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Roles', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_roles() OWNER TO vrk_owner;
CREATE FUNCTION public.log_shifts() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF NEW.startTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.startTime IS DISTINCT FROM OLD.startTime OR NEW.endTime IN ('NaN', 'Infinity', '-Infinity') AND NEW.endTime IS DISTINCT FROM OLD.endTime THEN
        PERFORM vrk_refuse('Недопустимое время или число.');
    END IF;
    PERFORM vrk_log('Shifts', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null'), coalesce(to_json(OLD.startTime)::text, 'null'), coalesce(to_json(OLD.endTime)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null'), coalesce(to_json(NEW.startTime)::text, 'null'), coalesce(to_json(NEW.endTime)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_shifts() OWNER TO vrk_owner;
CREATE FUNCTION public.log_storefiles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.folder || '/' || NEW.name <> OLD.folder || '/' || OLD.name THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    PERFORM vrk_log('StoreFiles', CASE TG_OP WHEN 'DELETE' THEN OLD.folder || '/' || OLD.name ELSE NEW.folder || '/' || NEW.name END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.folder)::text, 'null'), coalesce(to_json(OLD.name)::text, 'null'), coalesce('{"sha256":"' || encode(sha256(OLD.content), 'hex') || '","length":' || length(OLD.content) || '}', 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.folder)::text, 'null'), coalesce(to_json(NEW.name)::text, 'null'), coalesce('{"sha256":"' || encode(sha256(NEW.content), 'hex') || '","length":' || length(NEW.content) || '}', 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_storefiles() OWNER TO vrk_owner;
CREATE FUNCTION public.log_storeproperties() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.name <> OLD.name THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    PERFORM vrk_log('StoreProperties', CASE TG_OP WHEN 'DELETE' THEN OLD.name ELSE NEW.name END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.name)::text, 'null'), coalesce(to_json(OLD.value)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.name)::text, 'null'), coalesce(to_json(NEW.value)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_storeproperties() OWNER TO vrk_owner;
CREATE FUNCTION public.log_tables() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Tables', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.nameLat)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.nameLat)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_tables() OWNER TO vrk_owner;
CREATE FUNCTION public.log_templateparamcategories() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN
        PERFORM vrk_hold_trees();
        PERFORM vrk_refuse('Категория не может лежать внутри самой себя.')
        WHERE NEW.KeyLink IN (
            WITH RECURSIVE up (k) AS (
                SELECT NEW.ParentKey UNION
                SELECT T.ParentKey FROM up JOIN TemplateParamCategories AS T ON T.KeyLink = up.k)
            SELECT k FROM up);
    END IF;
    PERFORM vrk_log('TemplateParamCategories', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ParentKey)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ParentKey)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_templateparamcategories() OWNER TO vrk_owner;
CREATE FUNCTION public.log_templateparams() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('TemplateParams', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.CategoryKey)::text, 'null'), coalesce(to_json(OLD.nameLoc)::text, 'null'), coalesce(to_json(OLD.html)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.CategoryKey)::text, 'null'), coalesce(to_json(NEW.nameLoc)::text, 'null'), coalesce(to_json(NEW.html)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_templateparams() OWNER TO vrk_owner;
CREATE FUNCTION public.log_userrights() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('UserRights', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.UserKey)::text, 'null'), coalesce(to_json(OLD.rightName)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.UserKey)::text, 'null'), coalesce(to_json(NEW.rightName)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_userrights() OWNER TO vrk_owner;
CREATE FUNCTION public.log_users() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Users', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.login)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null'), coalesce(to_json(OLD.deleted_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.login)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null'), coalesce(to_json(NEW.deleted_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_users() OWNER TO vrk_owner;
CREATE FUNCTION public.log_workerroles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('WorkerRoles', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.RoleKey)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.RoleKey)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_workerroles() OWNER TO vrk_owner;
CREATE FUNCTION public.log_workers() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
    END IF;
    IF TG_OP = 'INSERT' AND (NEW.KeyLink = '' OR NEW.KeyLink ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    PERFORM vrk_log('Workers', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.UserKey)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.firstName)::text, 'null'), coalesce(to_json(OLD.lastName)::text, 'null'), coalesce(to_json(OLD.patronymicName)::text, 'null'), coalesce(to_json(OLD.safetyGroup)::text, 'null'), coalesce(to_json(OLD.deleted_)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.UserKey)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.firstName)::text, 'null'), coalesce(to_json(NEW.lastName)::text, 'null'), coalesce(to_json(NEW.patronymicName)::text, 'null'), coalesce(to_json(NEW.safetyGroup)::text, 'null'), coalesce(to_json(NEW.deleted_)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;
ALTER FUNCTION public.log_workers() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_categories_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_categories_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_categories_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_categories_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_categories_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce(CASE WHEN coalesce(NEW.ParentKey, '') = '' THEN NEW.DepartmentKey
                   ELSE (SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.ParentKey) END, '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_categories_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_comments_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Комментарий удаляет только его автор.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_comments_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_comments_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Комментарий пишут от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_comments_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_comments_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Автор комментария и его запись не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey);
    PERFORM vrk_refuse('Комментарий изменяет только его автор.')
    WHERE (NEW.text_ IS DISTINCT FROM OLD.text_ OR NEW.commentTime IS DISTINCT FROM OLD.commentTime)
      AND coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_comments_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_crew_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Состав открытой смены меняет только работник этой смены.')
    WHERE OLD.opening = 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts WHERE KeyLink = OLD.WorkshiftKey)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.WorkshiftKey);
    PERFORM vrk_refuse('Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(OLD.opening, 0) <> 1
      AND EXISTS (SELECT 1 FROM LogbookWorkshifts
                  WHERE KeyLink = OLD.WorkshiftKey
                    AND coalesce(CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_crew_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_crew_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Состав открытой смены меняет только работник этой смены.')
    WHERE NEW.opening = 1
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.WorkshiftKey);
    PERFORM vrk_refuse('Принимающих смену указывает тот, кто её закрыл.')
    WHERE coalesce(NEW.opening, 0) <> 1
      AND NOT EXISTS (SELECT 1 FROM LogbookWorkshifts
                      WHERE KeyLink = NEW.WorkshiftKey
                        AND CloseWorkerKey IN (SELECT KeyLink FROM CurrentWorkers));
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_crew_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_crew_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Строки состава смены не изменяются.')
    WHERE (NEW.WorkshiftKey IS DISTINCT FROM OLD.WorkshiftKey OR NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.opening IS DISTINCT FROM OLD.opening);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_crew_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_departments_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_departments_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_departments_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_departments_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_departments_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_departments_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_equipment_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_equipment_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_equipment_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_equipment_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_equipment_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_equipment_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_fields_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_fields_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_fields_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_fields_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_fields_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_fields_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_files_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Файл удаляет только тот, кто его прикрепил.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_files_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_files_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Файл прикрепляют от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_files_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_files_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Прикреплённый файл не изменяется.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey OR NEW.fileName IS DISTINCT FROM OLD.fileName OR NEW.fileData IS DISTINCT FROM OLD.fileData);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_files_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogcategories_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_operlogcategories_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogcategories_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogcategories_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogcategories_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogcategories_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplateparams_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_operlogtemplateparams_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplateparams_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogtemplateparams_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplateparams_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogtemplateparams_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplates_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_operlogtemplates_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplates_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogtemplates_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_operlogtemplates_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_operlogtemplates_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_organizations_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_organizations_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_organizations_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_organizations_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_organizations_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_organizations_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_orgtypes_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_orgtypes_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_orgtypes_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_orgtypes_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_orgtypes_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_orgtypes_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_records_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Удалить можно только черновик.') WHERE OLD.status IS DISTINCT FROM 1;
    PERFORM vrk_refuse('Черновики удаляют работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_records_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_records_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Новая запись может быть только черновиком или утверждённой.')
    WHERE coalesce(NEW.status, -1) NOT IN (0, 1);
    PERFORM vrk_refuse('Записи вносят работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = NEW.ShiftKey);
    -- Or, in a record that replaces another, the author of that one. Rule_Transactions_insert sees to the replacement.
    PERFORM vrk_refuse('Автором записи может быть только тот, кто её вносит.')
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
    PERFORM vrk_refuse('Новая запись не может нести визу.') WHERE coalesce(NEW.VisaWorkerKey, '') <> '';
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_records_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_records_secondmark() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Второй маркер ставят от своего имени.')
    WHERE (NEW.SecondMarkWorkerKey IS DISTINCT FROM OLD.SecondMarkWorkerKey OR NEW.secondMarkTime IS DISTINCT FROM OLD.secondMarkTime)
      AND (coalesce(NEW.SecondMarkWorkerKey, '') <> '' OR coalesce(NEW.secondMarkTime, 0) <> 0)
      AND coalesce(NEW.SecondMarkWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_records_secondmark() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_records_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Такая смена состояния записи недопустима.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status)
      AND NOT (coalesce(OLD.status, -1) = 1 AND coalesce(NEW.status, -1) = 0
               OR coalesce(OLD.status, -1) = 0 AND coalesce(NEW.status, -1) = 2);
    PERFORM vrk_refuse('Автор, смена и первичная запись не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.ShiftKey IS DISTINCT FROM OLD.ShiftKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey);
    PERFORM vrk_refuse('Утверждённая запись не изменяется.')
    WHERE OLD.status IS DISTINCT FROM 1
      AND ((NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
           OR (NEW.executionTime IS DISTINCT FROM OLD.executionTime)
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    PERFORM vrk_refuse('Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status OR NEW.executionTime IS DISTINCT FROM OLD.executionTime OR NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
      AND NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_records_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_records_visa() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND ((NEW.VisaWorkerKey IS DISTINCT FROM OLD.VisaWorkerKey)) THEN
    PERFORM vrk_refuse('Виза ставится только на утверждённую запись.')
    WHERE OLD.status IS DISTINCT FROM 0 OR NEW.status IS DISTINCT FROM 0;
    PERFORM vrk_refuse('Визу ставят от своего имени.')
    WHERE coalesce(NEW.VisaWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    PERFORM vrk_refuse('Автор не визирует свою запись.')
    WHERE coalesce(OLD.WorkerKey, '') = '' OR OLD.WorkerKey IN (SELECT KeyLink FROM CurrentPerson);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_records_visa() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_roles_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_roles_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_roles_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_roles_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_roles_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_roles_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_shifts_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_shifts_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_shifts_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_shifts_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_shifts_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_shifts_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_tables_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_tables_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_tables_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_tables_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_tables_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_tables_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparamcategories_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_templateparamcategories_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparamcategories_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templateparamcategories_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparamcategories_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templateparamcategories_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparams_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_templateparams_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparams_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templateparams_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templateparams_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templateparams_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templates_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_templates_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templates_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templates_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_templates_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND (NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments)
       OR coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_templates_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_transactions_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Автором записи может быть только тот, кто её вносит.')
    WHERE EXISTS (SELECT 1 FROM ForeignRecords AS F
                  WHERE F.number = NEW.number
                    AND NOT EXISTS (SELECT 1 FROM ChangeLog AS L
                                    WHERE L.number = NEW.number AND L.tableName = 'LogbookRecords' AND L.event = 602
                                      AND L.rowKey = F.OriginRecordKey
                                      AND (L.oldRow::json ->> 13)::integer = 0
                                      AND (L.newRow::json ->> 13)::integer = 2));
    PERFORM vrk_refuse('Запись заменяется одной новой.')
    WHERE EXISTS (SELECT 1 FROM ForeignRecords WHERE number = NEW.number
                  GROUP BY OriginRecordKey HAVING count(*) > 1);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_transactions_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_userrights_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_userrights_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_userrights_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_userrights_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_userrights_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_userrights_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_users_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_users_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_users_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_users_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_users_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_users_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workerroles_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_workerroles_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workerroles_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workerroles_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workerroles_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workerroles_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workers_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_workers_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workers_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workers_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workers_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workers_update() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workshifts_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Удалить можно только свою открытую смену без записей.')
    WHERE coalesce(OLD.CloseWorkerKey, '') <> ''
       OR coalesce(OLD.OpenWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
       OR EXISTS (SELECT 1 FROM LogbookRecords WHERE ShiftKey = OLD.KeyLink);
    END IF;
    RETURN OLD;
END $$;
ALTER FUNCTION public.rule_workshifts_delete() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workshifts_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('Смену открывают от своего имени и в своём подразделении.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentWorkers
                      WHERE KeyLink = NEW.OpenWorkerKey AND DepartmentKey = NEW.DepartmentKey);
    PERFORM vrk_refuse('Новая смена должна быть открытой.') WHERE coalesce(NEW.CloseWorkerKey, '') <> '';
    PERFORM vrk_refuse('Смена не может начаться раньше окончания предыдущей смены подразделения.')
    WHERE coalesce(NEW.startTime, 0) < coalesce((SELECT endTime FROM LogbookWorkshifts
                                                 WHERE DepartmentKey = NEW.DepartmentKey
                                                 ORDER BY startTime DESC NULLS LAST LIMIT 1), 0);
    -- Another shift could not begin before the end of this one, which may be years away by a slip of the hand.
    PERFORM vrk_refuse('Смена длиннее, чем разрешено в этом журнале. Проверьте её начало и конец.')
    WHERE coalesce(NEW.endTime, 0) - coalesce(NEW.startTime, 0) > (SELECT seconds FROM LongestShift);
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workshifts_insert() OWNER TO vrk_owner;
CREATE FUNCTION public.rule_workshifts_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT vrk_is_loader() THEN
    PERFORM vrk_refuse('У смены меняется только отметка о её закрытии.')
    WHERE (NEW.DepartmentKey IS DISTINCT FROM OLD.DepartmentKey OR NEW.OpenWorkerKey IS DISTINCT FROM OLD.OpenWorkerKey OR NEW.createdAt IS DISTINCT FROM OLD.createdAt OR NEW.startTime IS DISTINCT FROM OLD.startTime OR NEW.endTime IS DISTINCT FROM OLD.endTime);
    PERFORM vrk_refuse('Смена уже закрыта.')
    WHERE (NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey) AND coalesce(OLD.CloseWorkerKey, '') <> '';
    PERFORM vrk_refuse('Смену закрывает от своего имени работник этой смены.')
    WHERE (NEW.CloseWorkerKey IS DISTINCT FROM OLD.CloseWorkerKey)
      AND (OLD.KeyLink NOT IN (SELECT KeyLink FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.KeyLink)
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers));
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.rule_workshifts_update() OWNER TO vrk_owner;
CREATE FUNCTION public.sign_logbookrecords() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
DECLARE
    act text := (CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(OLD.VisaWorkerKey, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND OLD.status IS DISTINCT FROM 0 THEN 'approval'
         WHEN OLD.status = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END);
BEGIN
    IF NOT vrk_is_loader() THEN
        INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
        SELECT upper(translate(gen_random_uuid()::text, '-', '')), act, login,
            coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
            floor(extract(epoch FROM clock_timestamp())), 'LogbookRecords', NEW.KeyLink,
            vrk_leaf('LogbookRecords', NEW.KeyLink, CASE TG_OP WHEN 'INSERT' THEN 601 ELSE 602 END,
                CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.ShiftKey)::text, 'null'), coalesce(to_json(OLD.WorkerKey)::text, 'null'), coalesce(to_json(OLD.VisaWorkerKey)::text, 'null'), coalesce(to_json(OLD.ReceiverWorkerKey)::text, 'null'), coalesce(to_json(OLD.OriginRecordKey)::text, 'null'), coalesce(to_json(OLD.SecondMarkWorkerKey)::text, 'null'), coalesce(to_json(OLD.recordTime)::text, 'null'), coalesce(to_json(OLD.eventTime)::text, 'null'), coalesce(to_json(OLD.firstMarkTime)::text, 'null'), coalesce(to_json(OLD.secondMarkTime)::text, 'null'), coalesce(to_json(OLD.executionTime)::text, 'null'), coalesce(to_json(OLD.html)::text, 'null'), coalesce(to_json(OLD.status)::text, 'null'), coalesce(to_json(OLD.direction)::text, 'null')) || ']' END, '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.ShiftKey)::text, 'null'), coalesce(to_json(NEW.WorkerKey)::text, 'null'), coalesce(to_json(NEW.VisaWorkerKey)::text, 'null'), coalesce(to_json(NEW.ReceiverWorkerKey)::text, 'null'), coalesce(to_json(NEW.OriginRecordKey)::text, 'null'), coalesce(to_json(NEW.SecondMarkWorkerKey)::text, 'null'), coalesce(to_json(NEW.recordTime)::text, 'null'), coalesce(to_json(NEW.eventTime)::text, 'null'), coalesce(to_json(NEW.firstMarkTime)::text, 'null'), coalesce(to_json(NEW.secondMarkTime)::text, 'null'), coalesce(to_json(NEW.executionTime)::text, 'null'), coalesce(to_json(NEW.html)::text, 'null'), coalesce(to_json(NEW.status)::text, 'null'), coalesce(to_json(NEW.direction)::text, 'null')) || ']')
        FROM CurrentTransaction;
    END IF;
    RETURN NULL;
END $$;
ALTER FUNCTION public.sign_logbookrecords() OWNER TO vrk_owner;
CREATE FUNCTION public.sign_logbookworkshifts() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
DECLARE
    act text := (CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(OLD.CloseWorkerKey, '') = '' THEN 'closing' END);
BEGIN
    IF NOT vrk_is_loader() THEN
        INSERT INTO LogSignatures (KeyLink, meaning, login, person, time, signedTable, signedKey, rowHash)
        SELECT upper(translate(gen_random_uuid()::text, '-', '')), act, login,
            coalesce((SELECT name_ FROM Users WHERE KeyLink = userKey), ''),
            floor(extract(epoch FROM clock_timestamp())), 'LogbookWorkshifts', NEW.KeyLink,
            vrk_leaf('LogbookWorkshifts', NEW.KeyLink, CASE TG_OP WHEN 'INSERT' THEN 601 ELSE 602 END,
                CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.OpenWorkerKey)::text, 'null'), coalesce(to_json(OLD.CloseWorkerKey)::text, 'null'), coalesce(to_json(OLD.createdAt)::text, 'null'), coalesce(to_json(OLD.startTime)::text, 'null'), coalesce(to_json(OLD.endTime)::text, 'null')) || ']' END, '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.OpenWorkerKey)::text, 'null'), coalesce(to_json(NEW.CloseWorkerKey)::text, 'null'), coalesce(to_json(NEW.createdAt)::text, 'null'), coalesce(to_json(NEW.startTime)::text, 'null'), coalesce(to_json(NEW.endTime)::text, 'null')) || ']')
        FROM CurrentTransaction;
    END IF;
    RETURN NULL;
END $$;
ALTER FUNCTION public.sign_logbookworkshifts() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_adds_key(infolder text, called text, bytes bytea) RETURNS boolean
    LANGUAGE sql STABLE
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
    SELECT coalesce(pg_has_role(session_user, 'vrk_seal', 'MEMBER') AND inFolder = 'evidence' AND called = 'keys'
        AND starts_with(encode(bytes, 'hex'), coalesce((SELECT encode(content, 'hex') FROM StoreFiles
                                                        WHERE folder = inFolder AND name = called), '')), false);
$$;
ALTER FUNCTION public.vrk_adds_key(infolder text, called text, bytes bytea) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_bytes(part text) RETURNS bytea
    LANGUAGE sql IMMUTABLE
    AS $$
    SELECT int8send(octet_length(part)) || convert_to(part, 'UTF8');
$$;
ALTER FUNCTION public.vrk_bytes(part text) OWNER TO vrk_owner;
SET default_tablespace = '';
SET default_table_access_method = heap;
CREATE TABLE public.changetransactions (
    number bigint NOT NULL,
    batchkey text NOT NULL COLLATE pg_catalog."C",
    login text NOT NULL COLLATE pg_catalog."C",
    loader integer NOT NULL,
    "time" double precision NOT NULL,
    chain bytea NOT NULL
);
ALTER TABLE public.changetransactions OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_chain(before bytea, head public.changetransactions) RETURNS bytea
    LANGUAGE sql STABLE
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
    SELECT sha256(convert_to(length(before)::text || ':', 'UTF8') || before
                  || convert_to(vrk_part(head.number::text) || vrk_part(head.batchKey) || vrk_part(head.login)
                                || vrk_part(CASE WHEN head.loader <> 0 THEN 'loader' ELSE 'person' END)
                                || vrk_part(head.time::bigint::text)
                                || coalesce((SELECT string_agg(vrk_part(tableName) || vrk_part(rowKey)
                                                               || vrk_part(event::text) || vrk_part(oldRow)
                                                               || vrk_part(newRow), '' ORDER BY entry)
                                             FROM ChangeLog WHERE ChangeLog.number = head.number), ''), 'UTF8'));
$$;
ALTER FUNCTION public.vrk_chain(before bytea, head public.changetransactions) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_close() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
DECLARE
    last ChangeHead;
    this ChangeTransactions;
    isDue boolean;
BEGIN
    -- What is acknowledged must be on the disk, whatever the client has asked for.
    IF current_setting('synchronous_commit') NOT IN ('on', 'remote_apply') THEN
        PERFORM set_config('synchronous_commit', 'on', true);
    END IF;
    SELECT * INTO STRICT last FROM ChangeHead FOR UPDATE;
    isDue := clock_timestamp() NOT BETWEEN last.notified AND last.notified + interval '25 milliseconds';
    this.number := last.number + 1;
    this.batchKey := current_setting('vrk.batch_key');
    this.loader := vrk_is_loader()::integer;
    this.login := session_user;
    this.time := floor(extract(epoch FROM clock_timestamp()));
    WITH mine AS (DELETE FROM ChangePending WHERE xid = pg_current_xact_id() RETURNING *)
    INSERT INTO ChangeLog (number, tableName, rowKey, event, oldRow, newRow)
    SELECT this.number, mine.tableName, mine.rowKey, mine.event, mine.oldRow, mine.newRow FROM mine ORDER BY entry;
    this.chain := vrk_chain(last.chain, this);
    INSERT INTO ChangeTransactions SELECT this.*;
    UPDATE ChangeHead
    SET number = this.number, chain = this.chain,
        notified = CASE WHEN isDue THEN clock_timestamp() ELSE notified END;
    IF isDue THEN
        PERFORM pg_notify('vrk_changes', '');
    END IF;
    RETURN NULL;
END $$;
ALTER FUNCTION public.vrk_close() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_equipment(html text) RETURNS text[]
    LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $_$
    SELECT vrk_stems(coalesce(string_agg(vrk_visible(shown[1]), ' ' ORDER BY place), ''), 500)
    FROM regexp_matches(coalesce(html, ''),
                        '<a\s[^<>]*?href\s*?=\s*?"parameter:name=(?:substation|line|bay|equipmentname|equipmentpath)'
                        '(?:;[^<>"]*?)?"[^<>]*?>(.*?)(?:</a\s*?>|(?=<a[\s>])|$)', 'gi')
         WITH ORDINALITY AS parameters (shown, place);
$_$;
ALTER FUNCTION public.vrk_equipment(html text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_folded(plain text) RETURNS text
    LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $$
    SELECT translate(CASE WHEN lower('ЖÀ' COLLATE "default") = 'жà' THEN lower(plain COLLATE "default") ELSE translate(plain,
        'ABCDEFGHIJKLMNOPQRSTUVWXYZ'
        'АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁЀЂЃЄЅІЇЈЉЊЋЌЍЎЏҐ'
        'ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ',
        'abcdefghijklmnopqrstuvwxyz'
        'абвгдежзийклмнопрстуфхцчшщъыьэюяёѐђѓєѕіїјљњћќѝўџґ'
        'àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ') END, 'ё', 'е');
$$;
ALTER FUNCTION public.vrk_folded(plain text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_hold_trees() RETURNS void
    LANGUAGE sql
    AS $$
    SELECT FROM StoreProperties WHERE name = 'epoch' FOR UPDATE;
$$;
ALTER FUNCTION public.vrk_hold_trees() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_hold_workshift() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF TG_TABLE_NAME = 'logbookrecords' THEN
        PERFORM FROM LogbookWorkshifts
        WHERE KeyLink = CASE TG_OP WHEN 'INSERT' THEN NEW.ShiftKey ELSE OLD.ShiftKey END FOR SHARE;
    ELSIF TG_TABLE_NAME = 'logbookworkersworkshift' THEN
        PERFORM FROM LogbookWorkshifts
        WHERE KeyLink = CASE TG_OP WHEN 'INSERT' THEN NEW.WorkshiftKey ELSE OLD.WorkshiftKey END FOR SHARE;
    ELSE
        PERFORM FROM Departments WHERE KeyLink = NEW.DepartmentKey FOR NO KEY UPDATE;
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;
ALTER FUNCTION public.vrk_hold_workshift() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_is_loader() RETURNS boolean
    LANGUAGE sql STABLE
    AS $$
    SELECT coalesce(current_setting('vrk.loader', true), '') = 'on'
           AND pg_has_role(session_user, 'vrk_loader', 'MEMBER');
$$;
ALTER FUNCTION public.vrk_is_loader() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_keep_log() RETURNS trigger
    LANGUAGE plpgsql
    AS $$
BEGIN
    PERFORM vrk_refuse('Журнал изменений не изменяется.');
    RETURN NULL;
END $$;
ALTER FUNCTION public.vrk_keep_log() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_keep_rows() RETURNS trigger
    LANGUAGE plpgsql
    AS $$
BEGIN
    PERFORM vrk_refuse('Таблицы журнала не очищаются целиком.');
    RETURN NULL;
END $$;
ALTER FUNCTION public.vrk_keep_rows() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_leaf(tablename text, rowkey text, event bigint, oldrow text, newrow text) RETURNS text
    LANGUAGE sql STABLE
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
    SELECT encode(sha256('\x00'::bytea || vrk_bytes(tableName) || vrk_bytes(rowKey) || int8send(event)
                         || coalesce('\x01'::bytea || vrk_bytes(oldRow), '\x00'::bytea)
                         || coalesce('\x01'::bytea || vrk_bytes(newRow), '\x00'::bytea)), 'hex');
$$;
ALTER FUNCTION public.vrk_leaf(tablename text, rowkey text, event bigint, oldrow text, newrow text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_log(tablename text, rowkey text, event integer, oldrow text, newrow text) RETURNS void
    LANGUAGE plpgsql
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF coalesce(current_setting('vrk.batch_key', true), '') = '' THEN
        PERFORM vrk_refuse('Данные изменяются только через хранилище журнала.');
    END IF;
    INSERT INTO ChangePending (xid, isFirst, tableName, rowKey, event, oldRow, newRow)
    VALUES (pg_current_xact_id(), NOT EXISTS (SELECT 1 FROM ChangePending WHERE xid = pg_current_xact_id()),
            vrk_log.tableName, vrk_log.rowKey, vrk_log.event, vrk_log.oldRow, vrk_log.newRow);
END $$;
ALTER FUNCTION public.vrk_log(tablename text, rowkey text, event integer, oldrow text, newrow text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_part(part text) RETURNS text
    LANGUAGE sql IMMUTABLE
    AS $$
    SELECT coalesce(octet_length(part), 0)::text || ':' || coalesce(part, '');
$$;
ALTER FUNCTION public.vrk_part(part text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_refuse(reason text) RETURNS void
    LANGUAGE plpgsql
    AS $$
BEGIN
    RAISE EXCEPTION USING ERRCODE = 'VR001', MESSAGE = reason;
END $$;
ALTER FUNCTION public.vrk_refuse(reason text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_search_record() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF TG_OP = 'DELETE' THEN
        DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
        RETURN NULL;
    END IF;
    IF TG_OP = 'UPDATE' AND NEW.html IS NOT DISTINCT FROM OLD.html AND NEW.status IS NOT DISTINCT FROM OLD.status
       AND NEW.recordTime IS NOT DISTINCT FROM OLD.recordTime AND NEW.ShiftKey IS NOT DISTINCT FROM OLD.ShiftKey
       AND NEW.WorkerKey IS NOT DISTINCT FROM OLD.WorkerKey THEN
        RETURN NULL;
    END IF;
    INSERT INTO RecordSearch (recordKey, recordTime, words)
    SELECT recordKey, recordTime, words FROM SearchSource WHERE recordKey = NEW.KeyLink
    ON CONFLICT (recordKey) DO UPDATE SET recordTime = excluded.recordTime, words = excluded.words;
    RETURN NULL;
END $$;
ALTER FUNCTION public.vrk_search_record() OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_search_words(html text, departmentkey text, workerkey text, status integer) RETURNS tsvector
    LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $$
    SELECT array_to_tsvector(vrk_words(html)
        || ARRAY(SELECT 'e:' || stem FROM unnest(vrk_equipment(html)) AS stem)
        || ARRAY['record:', 'd:' || coalesce(departmentKey, ''), 'a:' || coalesce(workerKey, ''),
                 's:' || coalesce(status, 0)]);
$$;
ALTER FUNCTION public.vrk_search_words(html text, departmentkey text, workerkey text, status integer) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_stems(plain text, most integer) RETURNS text[]
    LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $$
    SELECT coalesce(array_agg(DISTINCT coalesce((ts_lexize('public.vrk_russian', cut))[1], cut)), '{}')
    FROM (SELECT left(word, 64) AS cut
          FROM regexp_split_to_table(vrk_folded(plain),
                                     '[^0-9a-z\u00df-\u00f6\u00f8-\u00ff\u0430-\u0481\u048a-\u04ff]+')
               WITH ORDINALITY AS words (word, place)
          WHERE word <> '' ORDER BY place LIMIT most) AS first;
$$;
ALTER FUNCTION public.vrk_stems(plain text, most integer) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_visible(html text) RETURNS text
    LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE
    AS $$
BEGIN
    IF strpos(html, '<') > 0 THEN
        html := regexp_replace(html, '<!--.*?-->', ' ', 'g');
        html := regexp_replace(html, '<(head|style|script|title)(?:\s[^<>]*?)?>.*?</\1\s*?>', ' ', 'gi');
        html := regexp_replace(html, '</?(?:a|b|strong|i|em|u|ins|s|strike|del|sup|sub|span|font)(?:[^<>a-z0-9][^<>]*)?>',
                               '', 'gi');
        html := regexp_replace(html, '</?[a-z][^<>]*>|<[!?][^<>]*>', ' ', 'gi');
    END IF;
    IF strpos(html, '&') > 0 THEN
        html := regexp_replace(html, '&shy;', '', 'gi');
        html := regexp_replace(html, '&[#a-z0-9]+;', ' ', 'gi');
    END IF;
    RETURN replace(html, U&'\00AD', '');
END $$;
ALTER FUNCTION public.vrk_visible(html text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_words(html text) RETURNS text[]
    LANGUAGE sql IMMUTABLE PARALLEL SAFE
    AS $$
    SELECT vrk_stems(vrk_visible(coalesce(html, '')), 5000);
$$;
ALTER FUNCTION public.vrk_words(html text) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_write_file(infolder text, called text, bytes bytea) RETURNS boolean
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF NOT vrk_is_loader() AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')
        AND NOT vrk_adds_key(inFolder, called, bytes) THEN
        PERFORM vrk_refuse('Файлы хранилища записывает только администратор.');
    END IF;
    IF bytes IS NULL THEN
        DELETE FROM StoreFiles WHERE folder = inFolder AND name = called;
    ELSE
        INSERT INTO StoreFiles (folder, name, content) VALUES (inFolder, called, bytes)
        ON CONFLICT (folder, name) DO UPDATE SET content = excluded.content;
    END IF;
    RETURN FOUND;
END $$;
ALTER FUNCTION public.vrk_write_file(infolder text, called text, bytes bytea) OWNER TO vrk_owner;
CREATE FUNCTION public.vrk_zero_readed_time() RETURNS trigger
    LANGUAGE plpgsql
    AS $$
BEGIN
    NEW.readedTime := coalesce(NEW.readedTime, 0);
    RETURN NEW;
END $$;
ALTER FUNCTION public.vrk_zero_readed_time() OWNER TO vrk_owner;
CREATE TEXT SEARCH DICTIONARY public.vrk_russian (
    TEMPLATE = pg_catalog.snowball,
    language = 'russian' );
ALTER TEXT SEARCH DICTIONARY public.vrk_russian OWNER TO vrk_owner;
CREATE TABLE public.changehead (
    number bigint NOT NULL,
    chain bytea NOT NULL,
    notified timestamp with time zone NOT NULL
)
WITH (fillfactor='10');
ALTER TABLE public.changehead OWNER TO vrk_owner;
CREATE TABLE public.storeproperties (
    name text NOT NULL COLLATE pg_catalog."C",
    value text NOT NULL COLLATE pg_catalog."C"
);
ALTER TABLE public.storeproperties OWNER TO vrk_owner;
CREATE VIEW public.changeend AS
 SELECT ((((( SELECT storeproperties.value
           FROM public.storeproperties
          WHERE (storeproperties.name = 'epoch'::text)) || '.'::text) || ( SELECT pg_database.oid
           FROM pg_database
          WHERE (pg_database.datname = current_database()))) || '.'::text) || "left"(pg_walfile_name(pg_current_wal_lsn()), 8)) AS epoch,
    changehead.number
   FROM public.changehead;
ALTER TABLE public.changeend OWNER TO vrk_owner;
CREATE TABLE public.changelog (
    entry bigint NOT NULL,
    number bigint NOT NULL,
    tablename text NOT NULL COLLATE pg_catalog."C",
    rowkey text NOT NULL COLLATE pg_catalog."C",
    event integer NOT NULL,
    oldrow text COLLATE pg_catalog."C",
    newrow text COLLATE pg_catalog."C"
);
ALTER TABLE public.changelog OWNER TO vrk_owner;
ALTER TABLE public.changelog ALTER COLUMN entry ADD GENERATED BY DEFAULT AS IDENTITY (
    SEQUENCE NAME public.changelog_entry_seq
    START WITH 1
    INCREMENT BY 1
    NO MINVALUE
    NO MAXVALUE
    CACHE 1
);
CREATE UNLOGGED TABLE public.changepending (
    xid xid8 NOT NULL,
    entry bigint NOT NULL,
    isfirst boolean NOT NULL,
    tablename text NOT NULL COLLATE pg_catalog."C",
    rowkey text NOT NULL COLLATE pg_catalog."C",
    event integer NOT NULL,
    oldrow text COLLATE pg_catalog."C",
    newrow text COLLATE pg_catalog."C"
);
ALTER TABLE public.changepending OWNER TO vrk_owner;
ALTER TABLE public.changepending ALTER COLUMN entry ADD GENERATED ALWAYS AS IDENTITY (
    SEQUENCE NAME public.changepending_entry_seq
    START WITH 1
    INCREMENT BY 1
    NO MINVALUE
    NO MAXVALUE
    CACHE 1
);
CREATE TABLE public.users (
    keylink text NOT NULL COLLATE pg_catalog."C",
    login text NOT NULL COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C",
    deleted_ smallint
);
ALTER TABLE public.users OWNER TO vrk_owner;
CREATE VIEW public.currenttransaction AS
 SELECT ((SESSION_USER)::text COLLATE "C") AS login,
    COALESCE(( SELECT users.keylink
           FROM public.users
          WHERE ((users.login = ((SESSION_USER)::text COLLATE "C")) AND (COALESCE((users.deleted_)::integer, 0) = 0))), ''::text) AS userkey;
ALTER TABLE public.currenttransaction OWNER TO vrk_owner;
CREATE TABLE public.workers (
    keylink text NOT NULL COLLATE pg_catalog."C",
    userkey text COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    firstname text COLLATE pg_catalog."C",
    lastname text COLLATE pg_catalog."C",
    patronymicname text COLLATE pg_catalog."C",
    safetygroup integer,
    deleted_ smallint
);
ALTER TABLE public.workers OWNER TO vrk_owner;
CREATE VIEW public.currentperson AS
 SELECT workers.keylink,
    workers.departmentkey,
    COALESCE((workers.deleted_)::integer, 0) AS removed
   FROM (public.currenttransaction
     JOIN public.workers ON ((workers.userkey = currenttransaction.userkey)))
  WHERE (currenttransaction.userkey <> ''::text);
ALTER TABLE public.currentperson OWNER TO vrk_owner;
CREATE VIEW public.currentworkers AS
 SELECT currentperson.keylink,
    currentperson.departmentkey
   FROM public.currentperson
  WHERE (currentperson.removed = 0);
ALTER TABLE public.currentworkers OWNER TO vrk_owner;
CREATE TABLE public.logbookworkersworkshift (
    keylink text NOT NULL COLLATE pg_catalog."C",
    workshiftkey text COLLATE pg_catalog."C",
    workerkey text COLLATE pg_catalog."C",
    opening smallint
);
ALTER TABLE public.logbookworkersworkshift OWNER TO vrk_owner;
CREATE TABLE public.logbookworkshifts (
    keylink text NOT NULL COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    openworkerkey text COLLATE pg_catalog."C",
    closeworkerkey text COLLATE pg_catalog."C",
    createdat double precision,
    starttime double precision,
    endtime double precision
);
ALTER TABLE public.logbookworkshifts OWNER TO vrk_owner;
CREATE VIEW public.currentopenworkshifts AS
 SELECT w.keylink
   FROM public.logbookworkshifts w
  WHERE ((COALESCE(w.closeworkerkey, ''::text) = ''::text) AND ((w.openworkerkey IN ( SELECT currentworkers.keylink
           FROM public.currentworkers)) OR (EXISTS ( SELECT 1
           FROM public.logbookworkersworkshift c
          WHERE ((c.workshiftkey = w.keylink) AND (c.opening = 1) AND (c.workerkey IN ( SELECT currentworkers.keylink
                   FROM public.currentworkers)))))));
ALTER TABLE public.currentopenworkshifts OWNER TO vrk_owner;
CREATE TABLE public.userrights (
    keylink text NOT NULL COLLATE pg_catalog."C",
    userkey text COLLATE pg_catalog."C",
    rightname text COLLATE pg_catalog."C"
);
ALTER TABLE public.userrights OWNER TO vrk_owner;
CREATE VIEW public.currentrights AS
 SELECT userrights.rightname
   FROM (public.currenttransaction
     JOIN public.userrights ON ((userrights.userkey = currenttransaction.userkey)));
ALTER TABLE public.currentrights OWNER TO vrk_owner;
CREATE VIEW public.currenttemplatedepartments AS
 SELECT currentworkers.departmentkey
   FROM public.currentworkers
  WHERE (EXISTS ( SELECT 1
           FROM public.currentrights
          WHERE (currentrights.rightname = 'ADMINISTRATOR_OPERLOG_LOCAL'::text)));
ALTER TABLE public.currenttemplatedepartments OWNER TO vrk_owner;
CREATE TABLE public.departments (
    keylink text NOT NULL COLLATE pg_catalog."C",
    organizationkey text COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);
ALTER TABLE public.departments OWNER TO vrk_owner;
CREATE TABLE public.equipment (
    keylink text NOT NULL COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    kind text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C",
    voltage text COLLATE pg_catalog."C"
);
ALTER TABLE public.equipment OWNER TO vrk_owner;
CREATE TABLE public.fields (
    keylink text NOT NULL COLLATE pg_catalog."C",
    tableskey text COLLATE pg_catalog."C",
    namelat text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C"
);
ALTER TABLE public.fields OWNER TO vrk_owner;
CREATE TABLE public.logbookrecords (
    keylink text NOT NULL COLLATE pg_catalog."C",
    shiftkey text COLLATE pg_catalog."C",
    workerkey text COLLATE pg_catalog."C",
    visaworkerkey text COLLATE pg_catalog."C",
    receiverworkerkey text COLLATE pg_catalog."C",
    originrecordkey text COLLATE pg_catalog."C",
    secondmarkworkerkey text COLLATE pg_catalog."C",
    recordtime double precision,
    eventtime double precision,
    firstmarktime double precision,
    secondmarktime double precision,
    executiontime double precision,
    html text COLLATE pg_catalog."C",
    status integer,
    direction integer
);
ALTER TABLE public.logbookrecords OWNER TO vrk_owner;
CREATE VIEW public.foreignrecords AS
 SELECT l.number,
    r.keylink,
    r.originrecordkey
   FROM (public.changelog l
     JOIN public.logbookrecords r ON ((r.keylink = l.rowkey)))
  WHERE ((l.tablename = 'LogbookRecords'::text) AND (l.event = 601) AND (NOT (COALESCE(r.workerkey, ''::text) IN ( SELECT currentworkers.keylink
           FROM public.currentworkers))));
ALTER TABLE public.foreignrecords OWNER TO vrk_owner;
CREATE TABLE public.logbookcatstemplate (
    keylink text NOT NULL COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    orgtypekey text COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C"
);
ALTER TABLE public.logbookcatstemplate OWNER TO vrk_owner;
CREATE TABLE public.logbookcomments (
    keylink text NOT NULL COLLATE pg_catalog."C",
    workerkey text COLLATE pg_catalog."C",
    recordkey text COLLATE pg_catalog."C",
    commenttime double precision,
    text_ text COLLATE pg_catalog."C",
    readedtime double precision DEFAULT 0 NOT NULL
);
ALTER TABLE public.logbookcomments OWNER TO vrk_owner;
CREATE TABLE public.logbookfiles (
    keylink text NOT NULL COLLATE pg_catalog."C",
    workerkey text COLLATE pg_catalog."C",
    recordkey text COLLATE pg_catalog."C",
    filename text COLLATE pg_catalog."C",
    filedata bytea
);
ALTER TABLE public.logbookfiles OWNER TO vrk_owner;
CREATE TABLE public.logbooktemplates (
    keylink text NOT NULL COLLATE pg_catalog."C",
    categorykey text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C",
    html text COLLATE pg_catalog."C"
);
ALTER TABLE public.logbooktemplates OWNER TO vrk_owner;
CREATE TABLE public.logheads (
    size bigint NOT NULL,
    note text NOT NULL COLLATE pg_catalog."C"
);
ALTER TABLE public.logheads OWNER TO vrk_owner;
CREATE TABLE public.logsignatures (
    keylink text NOT NULL COLLATE pg_catalog."C",
    meaning text NOT NULL COLLATE pg_catalog."C",
    login text NOT NULL COLLATE pg_catalog."C",
    person text NOT NULL COLLATE pg_catalog."C",
    "time" double precision NOT NULL,
    signedtable text NOT NULL COLLATE pg_catalog."C",
    signedkey text NOT NULL COLLATE pg_catalog."C",
    rowhash text NOT NULL COLLATE pg_catalog."C"
);
ALTER TABLE public.logsignatures OWNER TO vrk_owner;
CREATE TABLE public.logstamps (
    size bigint NOT NULL,
    response bytea NOT NULL
);
ALTER TABLE public.logstamps OWNER TO vrk_owner;
CREATE TABLE public.logtiles (
    level integer NOT NULL,
    place bigint NOT NULL,
    hashes bytea NOT NULL
);
ALTER TABLE public.logtiles OWNER TO vrk_owner;
CREATE VIEW public.longestshift AS
 SELECT COALESCE(( SELECT (storeproperties.value)::integer AS value
           FROM public.storeproperties
          WHERE (storeproperties.name = 'longestShift'::text)), 172800) AS seconds;
ALTER TABLE public.longestshift OWNER TO vrk_owner;
CREATE TABLE public.operlogcategories (
    keylink text NOT NULL COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    orgtypekey text COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);
ALTER TABLE public.operlogcategories OWNER TO vrk_owner;
CREATE TABLE public.operlogtemplateparams (
    keylink text NOT NULL COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C",
    namelat text COLLATE pg_catalog."C",
    param text COLLATE pg_catalog."C",
    tablekey text COLLATE pg_catalog."C",
    fieldtypekey text COLLATE pg_catalog."C"
);
ALTER TABLE public.operlogtemplateparams OWNER TO vrk_owner;
CREATE TABLE public.operlogtemplates (
    keylink text NOT NULL COLLATE pg_catalog."C",
    categorykey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C",
    text_ text COLLATE pg_catalog."C",
    canstartshift smallint,
    canendshift smallint,
    isnecessaryfinishtime smallint,
    icon text COLLATE pg_catalog."C",
    completingicon text COLLATE pg_catalog."C",
    completingcommand text COLLATE pg_catalog."C"
);
ALTER TABLE public.operlogtemplates OWNER TO vrk_owner;
CREATE TABLE public.organizations (
    keylink text NOT NULL COLLATE pg_catalog."C",
    orgtypekey text COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);
ALTER TABLE public.organizations OWNER TO vrk_owner;
CREATE TABLE public.orgtypes (
    keylink text NOT NULL COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);
ALTER TABLE public.orgtypes OWNER TO vrk_owner;
CREATE TABLE public.recordsearch (
    recordkey text NOT NULL COLLATE pg_catalog."C",
    recordtime double precision NOT NULL,
    words tsvector NOT NULL
);
ALTER TABLE public.recordsearch OWNER TO vrk_owner;
CREATE TABLE public.roles (
    keylink text NOT NULL COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);
ALTER TABLE public.roles OWNER TO vrk_owner;
CREATE VIEW public.searchsource AS
 SELECT r.keylink AS recordkey,
    COALESCE(r.recordtime, (0)::double precision) AS recordtime,
    public.vrk_search_words(r.html, w.departmentkey, r.workerkey, r.status) AS words
   FROM (public.logbookrecords r
     LEFT JOIN public.logbookworkshifts w ON ((w.keylink = r.shiftkey)));
ALTER TABLE public.searchsource OWNER TO vrk_owner;
CREATE TABLE public.shifts (
    keylink text NOT NULL COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C",
    starttime double precision,
    endtime double precision
);
ALTER TABLE public.shifts OWNER TO vrk_owner;
CREATE TABLE public.storefiles (
    folder text NOT NULL COLLATE pg_catalog."C",
    name text NOT NULL COLLATE pg_catalog."C",
    content bytea NOT NULL
);
ALTER TABLE public.storefiles OWNER TO vrk_owner;
CREATE TABLE public.tables (
    keylink text NOT NULL COLLATE pg_catalog."C",
    namelat text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C"
);
ALTER TABLE public.tables OWNER TO vrk_owner;
CREATE VIEW public.templatelevels AS
 WITH RECURSIVE levels(keylink, departmentkey) AS (
         SELECT logbookcatstemplate.keylink,
            logbookcatstemplate.departmentkey
           FROM public.logbookcatstemplate
          WHERE (COALESCE(logbookcatstemplate.parentkey, ''::text) = ''::text)
        UNION
         SELECT c.keylink,
            levels_1.departmentkey
           FROM (levels levels_1
             JOIN public.logbookcatstemplate c ON ((c.parentkey = levels_1.keylink)))
        )
 SELECT levels.keylink,
    levels.departmentkey
   FROM levels;
ALTER TABLE public.templatelevels OWNER TO vrk_owner;
CREATE TABLE public.templateparamcategories (
    keylink text NOT NULL COLLATE pg_catalog."C",
    parentkey text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C"
);
ALTER TABLE public.templateparamcategories OWNER TO vrk_owner;
CREATE TABLE public.templateparams (
    keylink text NOT NULL COLLATE pg_catalog."C",
    categorykey text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C",
    html text COLLATE pg_catalog."C"
);
ALTER TABLE public.templateparams OWNER TO vrk_owner;
CREATE TABLE public.workerroles (
    keylink text NOT NULL COLLATE pg_catalog."C",
    rolekey text COLLATE pg_catalog."C",
    workerkey text COLLATE pg_catalog."C"
);
ALTER TABLE public.workerroles OWNER TO vrk_owner;
COPY public.changehead (number, chain, notified) FROM stdin;
74	\\xcfef9aa337cefcf6cf98a012291f641ff62f1447d45579aff06f5413ad7d12f5	2026-11-23 19:07:20.046753+03
\.
COPY public.changelog (entry, number, tablename, rowkey, event, oldrow, newrow) FROM stdin;
1	1	StoreProperties	schema	601	\N	["schema","6"]
2	1	StoreProperties	signatures	601	\N	["signatures","1"]
3	1	StoreProperties	codec	601	\N	["codec","Windows-1251"]
4	1	StoreProperties	timeZone	601	\N	["timeZone","Europe/Moscow"]
5	1	StoreProperties	epoch	601	\N	["epoch","B90D16F55A61F88CADB75A51EF8115C7"]
6	2	OrgTypes	TYPE_CENTER	601	\N	["TYPE_CENTER","Диспетчерский центр"]
7	3	OrgTypes	TYPE_NETS	601	\N	["TYPE_NETS","Электросетевая организация"]
8	4	Organizations	ORG_CENTER	601	\N	["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]
9	5	Organizations	ORG_NETS	601	\N	["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]
10	6	Departments	DEP_ODS	601	\N	["DEP_ODS","ORG_CENTER",null,"ОДС"]
11	7	Departments	DEP_CDS	601	\N	["DEP_CDS","ORG_NETS",null,"ЦДС"]
12	8	Departments	DEP_ZAR	601	\N	["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]
13	9	Users	USER_IVANOV	601	\N	["USER_IVANOV","ivanov","Иванов Иван Иванович",0]
14	10	Users	USER_PETROV	601	\N	["USER_PETROV","petrov","Петров Пётр Петрович",0]
15	11	Users	USER_SIDOROVA	601	\N	["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]
16	12	Users	USER_SMIRNOV	601	\N	["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]
17	13	Users	USER_KUZNETSOV	601	\N	["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]
18	14	Users	USER_VIEWER	601	\N	["USER_VIEWER","viewer","Наблюдатель",0]
19	15	UserRights	RIGHT_SIDOROVA	601	\N	["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]
20	16	UserRights	RIGHT_SMIRNOV	601	\N	["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]
21	17	Workers	WORKER_IVANOV	601	\N	["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]
22	18	Workers	WORKER_PETROV	601	\N	["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]
23	19	Workers	WORKER_SIDOROVA	601	\N	["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]
24	20	Workers	WORKER_SMIRNOV_ZAR	601	\N	["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]
25	21	Workers	WORKER_SMIRNOV_ODS	601	\N	["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]
26	22	Workers	WORKER_KUZNETSOV	601	\N	["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]
27	23	Roles	ROLE_CDS_SENIOR	601	\N	["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]
28	24	Roles	ROLE_CDS_DISPATCHER	601	\N	["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]
29	25	Roles	ROLE_ZAR	601	\N	["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]
30	26	WorkerRoles	WROLE_IVANOV_1	601	\N	["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]
31	27	WorkerRoles	WROLE_IVANOV_2	601	\N	["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]
32	28	WorkerRoles	WROLE_PETROV	601	\N	["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]
33	29	WorkerRoles	WROLE_SMIRNOV	601	\N	["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]
34	30	Shifts	TIMETABLE_CDS_DAY	601	\N	["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]
35	31	Shifts	TIMETABLE_CDS_NIGHT	601	\N	["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]
36	32	Shifts	TIMETABLE_ZAR_DAY	601	\N	["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]
37	33	LogbookCatsTemplate	CAT_COMMON	601	\N	["CAT_COMMON",null,null,null,"Оперативная смена"]
38	34	LogbookCatsTemplate	CAT_COMMON_SUB	601	\N	["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]
39	35	LogbookCatsTemplate	CAT_NETS	601	\N	["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]
40	36	LogbookCatsTemplate	CAT_CDS	601	\N	["CAT_CDS",null,null,"DEP_CDS","Погода"]
41	37	LogbookCatsTemplate	CAT_ZAR	601	\N	["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]
42	38	LogbookTemplates	TPL_OPEN	601	\N	["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Диспетчер</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">Период смены</a>."]
43	39	LogbookTemplates	TPL_CLOSE	601	\N	["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\\"template\\" content=\\"close_wshift\\">Смену сдал <a href=\\"parameter:name=employee_fio;locname=Сдал\\">Сдал</a>."]
44	40	LogbookTemplates	TPL_ORDER	601	\N	["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">Оборудование</a>."]
45	41	LogbookTemplates	TPL_TRIP	601	\N	["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">Линия</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a>."]
46	42	LogbookTemplates	TPL_TEXT	601	\N	["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]
47	43	TemplateParamCategories	PARCAT_MAIN	601	\N	["PARCAT_MAIN",null,"Общие параметры"]
48	44	TemplateParams	PAR_TEXT	601	\N	["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\\"parameter:name=text;locname=Текст\\">Текст</a>"]
49	45	TemplateParams	PAR_LIST	601	\N	["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\\">Состояние связи</a>"]
50	46	Equipment	EQ_SUBSTATION	601	\N	["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]
51	47	Equipment	EQ_BAY	601	\N	["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]
52	48	Equipment	EQ_LINE	601	\N	["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]
53	49	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795342038,1795342038,1795428438]
54	50	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795428438,1795428438,1795514838]
55	51	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795442838,1795442838,1795486038]
56	52	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795342038,1795342038,1795428438]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795342038,1795342038,1795428438]
57	53	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
58	54	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
59	55	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
60	56	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
61	57	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
62	58	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
63	59	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795348038,1795348038,null,null,null,"Принята сводка погоды.",0,null]
64	60	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795396038,1795396038,null,null,null,"Проверена связь с подстанциями.",0,null]
65	61	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795428438,1795428438,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
66	62	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795432038,1795432038,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
67	63	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795435638,1795435638,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
68	64	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795435638,1795435638,null,null,1795436238,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
69	65	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795439238,1795439238,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
70	66	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795442838,1795442838,1795442778,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
71	67	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795446438,1795446438,null,null,null,"Черновик: осмотр оборудования.",1,null]
72	68	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795448238,1795448238,null,null,null,"Черновик: доклад бригады.",1,null]
73	69	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795444038,1795444038,null,null,null,"Схема сверена по щиту.",0,null]
74	70	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795429038,"Уточните период смены.",0]
75	71	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795439838,"Исполнение доложить до конца смены.",1795440438]
76	72	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795402038,"Приложите сводку к записи.",0]
77	73	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
78	74	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.
COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.
COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	E762054EA50A395AB5B447D16881DB89	postgres	1	1795450039	\\x6426b4df9697aa2a33b3c56e0bf1b2f7ff113d6c6383947aa40148353f7ba616
2	B2E39DDF85175B78F086B3F454FA7FE2	postgres	1	1795450039	\\xdf4ed4ee8bc969fd625d7e25bb6c995d03962dba3097781ddffaff8d238958da
3	07F70E293F9833170C90568725B24281	postgres	1	1795450039	\\x0d47983aec9c3c14938fd3cab7aa6975d3464e5a2822ea350a817e636064bb16
4	BF831A2456BEFBC129BC96057E9D7CD2	postgres	1	1795450039	\\xed09c9c8ad14774487c5f8af0582aa908bf06b7e62c39d111e42d70eb2282c9e
5	4808AB76B0CFFC2DCE783580B4A0A38C	postgres	1	1795450039	\\x3bc401c270db980a883474aa809036a97fcd899e34cfbc8f70d7d86ee9a038c9
6	161569C6AEE5F21BD7FC7AC9CC0C6FB6	postgres	1	1795450039	\\xed9d57b7acd00a2d78451051586d0961a7b02cc62b34ba19de9438d32292b3b2
7	F714A84446F50BEB2E6FF3A9ABA38E6B	postgres	1	1795450039	\\xe159324681af20458b75ee7219d1aeb69e322228f9a0ea9f1c9efe5f2ae27eda
8	FC20426B4577E9F15C3C48CD36DC144A	postgres	1	1795450039	\\x466df4a9bd1ca305ef1dcd574a1a4fe8e6c53dd1753fe974e4657e6295b05fdd
9	A58A93ADDF063BB27E7F947A226BCF16	postgres	1	1795450039	\\x7abe130c8f095915620c5c64d4f765486b680b7f8f21d63d59982d21c2026e6e
10	BCC60CC1D61A8FDBE80FF394270ABCA3	postgres	1	1795450039	\\x968bea30c8eed8be0c6b347b9a8e77883b328ead7b1d3400d0abd5d25c2e999d
11	83E44F8FEA17D15359EEFC739EF3B6E3	postgres	1	1795450039	\\x9fabd09f070683574146868936f08c5e775133f60bb4fc55759c09cc9c8a3f49
12	FC11DB58ED2FEA549F797BC1AB70353F	postgres	1	1795450039	\\xbd6c310d5bcff02b17afe0bd3bd79a031009e7e1f5d0f7a493847f0e192b2cb8
13	77F53E5DDDB9E480DDD0A4526778903A	postgres	1	1795450039	\\xbe597474a23944b343c2aa8064a4bfd9fba5d85e3af1dc0734683cf7d2978f4a
14	5DC40BFF681B76432507400FA508CA5A	postgres	1	1795450039	\\x37ed4c17df2e8a9b61271387156b6f40d54640f58acbd71cc818d82ff17eb624
15	0506429BBCEA8592B3E2C2C16C50F508	postgres	1	1795450039	\\xd21de36f9b0cc3e3230d28083c9d780afed340a4a0c148717485777e4e15a9f7
16	69322498977B6EA6A8AE4E0A0883E3EB	postgres	1	1795450039	\\xb5031b4034371e927f94292a1d332038110204a02172ce1693c1403650517a26
17	0FFD797B328C9E869A6331E02D2068FB	postgres	1	1795450039	\\x5a704643b68738ae23bd885f648b8debd1f9d885784d8a354af3eb8b90497273
18	B699A7EE18EBE950586EF228014E5C15	postgres	1	1795450039	\\x9c3446542f2a54153f98ac9d8845b4ea270ddb80cc6214e8bb78872ec7636b65
19	E0BE9F7F568ECBBD4CAA08ABE213F489	postgres	1	1795450039	\\x737ce194944ea457a962e904f259fb5c0e01fddc86f51d88553e7b0a98801f0f
20	A3558B315B9292AECD84386625A20CB3	postgres	1	1795450039	\\xef2ca0e234104283b2714a087885d2c2b991e3daf72fb2d5cfb47e3c9ea31e02
21	DE9BDE301D2B4EC3F847930DB368142F	postgres	1	1795450039	\\xd3ff70eca76d281ac71047814934cb67bb13b9813158f96613b60f001b8a69e5
22	0B73255898B46994912A994420E0B53E	postgres	1	1795450039	\\x34fde57cb99f74f9dea21227728664e8790f76e20db48ca29a7ba62839908e24
23	0B39C6FC6CA4D0B4CC1D31DC51EFCA74	postgres	1	1795450039	\\x6457afbc449094b00a25ae6647ebb586adcb80ce732d6ba441789e2ee03280d5
24	308646205CBE226E750D05A81E48ED5C	postgres	1	1795450039	\\xe5aee5e1b25c9832419958b9b1c165cf347064319f04dfa7149729a38f27d8db
25	FB68D1F6792D20BD55CE0E168ED7FF5E	postgres	1	1795450039	\\xef2598f7e1d27f6199d1cdfba07919a86d376413867e5c612c2332c57d683195
26	154097184D34759EC7303BC67E378801	postgres	1	1795450039	\\xcbe52eb413df5d0af7f796950122a228641c66e62b87e0fd159fd08845814eff
27	EA128B752516845C8402EB7AD7278B64	postgres	1	1795450039	\\xe947b04b7da276fd945c260e4a3a5b8b2eb75dcc88c8d47a59f51fbf484e0f25
28	93BB00820EFB4C92C4B91D175DEEC3B3	postgres	1	1795450039	\\xf7f1ffd4a2bffea00d93a955633080c89bc41c4996f908996cff40aff50b4b4e
29	A95689670FB44F9778245C4015F786F8	postgres	1	1795450039	\\x11aba256345e4abef5387841193d07200c9527c537e5480dc2f29262a6b93531
30	6F713F789F7409832E4A7DAE7ED1D9FD	postgres	1	1795450039	\\x847e687ebddb3f076bcdf469bc482d6490e3f9d8e0921b1e3c12b12ea896689b
31	B99D8915848F9592E379E291C418A6D1	postgres	1	1795450039	\\x5e7dc78cca1205ffc27e86dfeb9bc31ceb1330d204f22fb57b9a90a0b2c9f6de
32	A1DF04FB70C58A6555C93748E5DE22FE	postgres	1	1795450039	\\x022cffeed6a767eead204d8f36037559b691ec0ccdcc4dcbeaceba02c79172cd
33	0606350C08B18FDD3A682C3933D936BC	postgres	1	1795450039	\\xc0ebe9fcaafa7cb5136efbcfd866dd998eb243008952c6ddbf88da2d5f65db48
34	58FB1A7CA5EA8D1075CDBBEA970A0CBA	postgres	1	1795450039	\\x083c9a95ea39a7c0c55ce578865f2ea43c9556f7995cdb8f1c8aa34929515821
35	14141AE7CE97B38A0398F5377AD207AD	postgres	1	1795450039	\\xa0596837fe6b6daa6f75b71f0e644d648b0d258b8d1df1d3c27c197471c18cfa
36	556FDC34253776A43DD8A61BC99A4A0A	postgres	1	1795450039	\\x7e6af8f4c2eb048a925c2106e7f1397aa78c5ae4d236ecb93031b0664d8314d2
37	E87C4E5B91405760951CCB6E2C7223AB	postgres	1	1795450039	\\x2e2dc9217d389dc440f22b4550161a87eb97b9430d48e11472b224326d606559
38	D2C8154E4407103C6BBCBA6BEA677087	postgres	1	1795450039	\\x194a86457d8d9f9420790c2807d3a482cde3ebda64dc1c8fb712ede7777bdefe
39	A6C4463FF7FE46B0650924C761C02E16	postgres	1	1795450039	\\x03fe1a4e4360eaf74e24b8849c8af7eaec87bb1a68f5c17a5c88b4345ab2a4a6
40	37B9ECDA0873CE980C8AC85FAA03A1AD	postgres	1	1795450039	\\x9184d1ecdddc1af13d0dfa6be8af4507f44014fce36bd5f8857753ca4df22b25
41	046F476A8003360541E3383E380A254C	postgres	1	1795450039	\\x74c2a85ec94110ae9e78aa4ff7b09fc2bf711148c2b75fa1c0bbf46fe4664a41
42	599F15000B88D48E4B8E2FFF111C00B4	postgres	1	1795450039	\\x4d105576f8cc60a2a1310fe6df2bd365fb9358ccf07afe9c72a8cc02b44c7fba
43	0D60231D9C1F6E447CC28FE42A3B9233	postgres	1	1795450039	\\x55b899abf4ea0d74b604b73512ef407d9999b34d021f5bbb12cad4b1cd251551
44	E25CBD366E90AA3EF10869631D60CB27	postgres	1	1795450039	\\x0fe29924c0281aec3c1e9ffa8ee595a62ed9f1917c617c8b63dcb9636b3a4cbc
45	00B7D06C7CFAEFF5922539EDC7845635	postgres	1	1795450039	\\x795c37475164c3f8be11e9bba3d60463717841f66b7976b192c17d88ef4b2918
46	A3A56CEFE0D7D94BAC78DCF73561CDDF	postgres	1	1795450039	\\x84bcdd1797ded0297aedd823c6b6a0c5ceeb429423f13262bed385fb45af74c3
47	FF8D90F0529B6D5BF2B62CCCFB881D54	postgres	1	1795450039	\\x94c98452544ac0c4b5a910aead520324c96b0ed4a339302f57db33c7503a537d
48	89D8667688CFE0F31C04036821F8D7B8	postgres	1	1795450039	\\xc460bbfc94f6f456ee9d93d8d5cdfa1c3b20272ec0192fd765fdcc6d1758542e
49	77C77BCC2F79E1AAF035A277B321EB23	postgres	1	1795450039	\\xbe66f8439ac943190a3bcc05434a62ca2c9df1b9092bf3834a14b4708c0c6015
50	D32109ABF2EBAB1FC3767183233BBFE4	postgres	1	1795450039	\\xbd9d61d5403c9c56ff15ce074cd790557d622a0b24c4de4280fecf423b41d827
51	DD4AC3F78480E13A22F0C5D48AE823BA	postgres	1	1795450039	\\x22c658e24d5ff76cb0c10ccd4b215d4972e365880d2d263c55c1858025ac011c
52	43B21490BF7AF00EA5E991898776D36E	postgres	1	1795450039	\\x04c9d87720b660e8a345081126a70144e165b3dab988f40b5ca2ce1321f093ef
53	0853B68F5118A66E31539F2F15EA997F	postgres	1	1795450040	\\xe08f5ff98141078c05c19b24f1e6689caa215c601aa052e31ef75f616bf59136
54	AFBBD520465A11BE717791DBB5F91CE9	postgres	1	1795450040	\\x3895dc7099a41df102119c5be7c2b447f48761af4091cccb0f90577c3afe97d1
55	6912D8C1741F82FEF3EB0C77FF0D5F3B	postgres	1	1795450040	\\xcccdb61f7707992d1370f7f82f76c52a634df2bfcf742ef442896f9cc561b83e
56	24A054E64F1FFF2E10A97B22A8F934BC	postgres	1	1795450040	\\x6a7ef4049fd96646ed90adf3fdc2dfb2d058052b4ca08bb233ddeaa95d83ca64
57	C7727DDFB0822E2E820DFBA0D82C402F	postgres	1	1795450040	\\xd7976d6f958791f8dc24f52b8abbfa812a8d0f6f7aaac2729652dadf29a9d011
58	3903D431E0FB67A64236F6CE27C6A0BF	postgres	1	1795450040	\\x684b47c53c19b980f879d34810f69a1dfa0b64450df4629b5bf169fa5e7d0b63
59	C0F9C126B564B2B60EECBC0E570D33A8	postgres	1	1795450040	\\x9ea0e96f45449147e510dffa7d7c09ff7f93b6af8894e4f4de6e3fd95db12392
60	5840F2585FDC76A11F23ABB656865869	postgres	1	1795450040	\\x0baed66d7f34f465e093f727e45ecfbeea4b7238234d9610b172440911ae21de
61	8EEB76E36431202988CE9E40F6A0ABE5	postgres	1	1795450040	\\xdf7426846d706a21e0e57675ad03b60427fc11de5fe12c73aead571e9be569d6
62	1612871A6D262A5B06B1DD9AF7D3E89E	postgres	1	1795450040	\\x228759f75fc3c8ea6b7692ae848d9270cab7c75fffb63624d253eb1becf1d0d9
63	21915DAD126B48DA252D8589C890D62E	postgres	1	1795450040	\\x5a2e71d67ae46f02b4ab34254a384aeaf4d7f66f3dde71dcdc98a747071dce4f
64	807EDCD3FAE43004E895F483FD7A97DC	postgres	1	1795450040	\\x7c8e8ce81853fcfd8e099c2aea0c9dea43239f567abde5ede503bbb8feb84544
65	A0FB3CA4CE1B33D24BBE6B7BC8F507D7	postgres	1	1795450040	\\x9cd6b882f6f43d63a8b8c899524fd0f14fabb45eb98d04cb3211a58c4edb2588
66	0C3CDF6C0F0C7084B80497E5253B4C4E	postgres	1	1795450040	\\x0735d9d283e36bde6e10792b492b0869f83ca762377173643ab621f062c0118d
67	1171A9733E82BD1FFB02711739B18DBE	postgres	1	1795450040	\\x521965a5af8d37da2b3bc6f13fd9ccfccb645a58feea3708d505a40050ae1e88
68	93BABED12F3C648CB57DF76C4E0F1690	postgres	1	1795450040	\\x9967f6efcb19a52c0c9fa35a583441b4a3962179dbe229fa3285379839ed319f
69	3818EB1C089856E91AFBC179A8697DBF	postgres	1	1795450040	\\x6fdeba917416243dabd3cf24b7d1a00f60c4bbdacbf39d0972c09c4a33f720bf
70	E83992D1C217208CB3CA3C73DA0E4A45	postgres	1	1795450040	\\xcf0884c5ea88a7a98927852be5712a91deb0121f6c6653772af0e4559f4594d8
71	2DCD6C197586D15B673003ACC9F29C71	postgres	1	1795450040	\\xe6b9ab250e7aa50a0c321831424c91e10f7542069acfcbee6f4063599dbcafda
72	0BA066BB5AAB6BE421BDFF49705B6993	postgres	1	1795450040	\\x47fcc72d7a374bfee8f1df9559db66e482d9973b70032753c8d62ba66eb86e53
73	8B824023781D1391E3C111707828DF10	postgres	1	1795450040	\\x8e2182a731bf32d6e6e8bd4244ba8e1bde48a21eba10f478c581ea519136b0c7
74	EBD3AEB7403CA6AD0A425DB885967971	postgres	1	1795450040	\\xcfef9aa337cefcf6cf98a012291f641ff62f1447d45579aff06f5413ad7d12f5
\.
COPY public.departments (keylink, organizationkey, parentkey, name_) FROM stdin;
DEP_ODS	ORG_CENTER	\N	ОДС
DEP_CDS	ORG_NETS	\N	ЦДС
DEP_ZAR	ORG_NETS	DEP_CDS	Заречная диспетчерская группа
\.
COPY public.equipment (keylink, parentkey, departmentkey, kind, name_, voltage) FROM stdin;
EQ_SUBSTATION	\N	DEP_ZAR	substation	ПС 110 кВ Заречная	110
EQ_BAY	EQ_SUBSTATION	DEP_ZAR	bay	В 110 Полевая I цепь	110
EQ_LINE	\N	DEP_CDS	line	ВЛ 110 кВ Полевая – Заречная	110
\.
COPY public.fields (keylink, tableskey, namelat, nameloc) FROM stdin;
\.
COPY public.logbookcatstemplate (keylink, parentkey, orgtypekey, departmentkey, nameloc) FROM stdin;
CAT_COMMON	\N	\N	\N	Оперативная смена
CAT_COMMON_SUB	CAT_COMMON	\N	\N	Команды и переключения
CAT_NETS	\N	TYPE_NETS	\N	Технологические нарушения
CAT_CDS	\N	\N	DEP_CDS	Погода
CAT_ZAR	\N	\N	DEP_ZAR	Сообщения
\.
COPY public.logbookcomments (keylink, workerkey, recordkey, commenttime, text_, readedtime) FROM stdin;
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795429038	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795439838	Исполнение доложить до конца смены.	1795440438
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795402038	Приложите сводку к записи.	0
\.
COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.
COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795348038	1795348038	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795396038	1795396038	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795428438	1795428438	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795432038	1795432038	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795435638	1795435638	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795435638	1795435638	\N	\N	1795436238	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795439238	1795439238	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795442838	1795442838	1795442778	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795446438	1795446438	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795448238	1795448238	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795444038	1795444038	\N	\N	\N	Схема сверена по щиту.	0	\N
\.
COPY public.logbooktemplates (keylink, categorykey, nameloc, html) FROM stdin;
TPL_OPEN	CAT_COMMON	Приём смены	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Диспетчер</a> <a href="parameter:name=interval;locname=Период%20смены">Период смены</a>.
TPL_CLOSE	CAT_COMMON	Сдача смены	<meta name="template" content="close_wshift">Смену сдал <a href="parameter:name=employee_fio;locname=Сдал">Сдал</a>.
TPL_ORDER	CAT_COMMON_SUB	Команда на производство переключений	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">Подстанция</a> отключить <a href="parameter:name=text;locname=Оборудование">Оборудование</a>.
TPL_TRIP	CAT_NETS	Автоматическое отключение линии	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">Линия</a> на <a href="parameter:name=substation;locname=Подстанция">Подстанция</a>.
TPL_TEXT	CAT_CDS	Штормовое предупреждение	Получено штормовое предупреждение: усиление ветра.
\.
COPY public.logbookworkersworkshift (keylink, workshiftkey, workerkey, opening) FROM stdin;
CREW_CDS_1	SHIFT_CDS_OPEN	WORKER_IVANOV	1
CREW_CDS_2	SHIFT_CDS_OPEN	WORKER_PETROV	1
CREW_ZAR_1	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	1
CREW_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	1
CREW_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	1
CREW_PAST_3	SHIFT_CDS_PAST	WORKER_PETROV	0
\.
COPY public.logbookworkshifts (keylink, departmentkey, openworkerkey, closeworkerkey, createdat, starttime, endtime) FROM stdin;
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795428438	1795428438	1795514838
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795442838	1795442838	1795486038
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795342038	1795342038	1795428438
\.
COPY public.logheads (size, note) FROM stdin;
\.
COPY public.logsignatures (keylink, meaning, login, person, "time", signedtable, signedkey, rowhash) FROM stdin;
\.
COPY public.logstamps (size, response) FROM stdin;
\.
COPY public.logtiles (level, place, hashes) FROM stdin;
\.
COPY public.operlogcategories (keylink, parentkey, orgtypekey, departmentkey, name_) FROM stdin;
\.
COPY public.operlogtemplateparams (keylink, nameloc, namelat, param, tablekey, fieldtypekey) FROM stdin;
\.
COPY public.operlogtemplates (keylink, categorykey, name_, text_, canstartshift, canendshift, isnecessaryfinishtime, icon, completingicon, completingcommand) FROM stdin;
\.
COPY public.organizations (keylink, orgtypekey, parentkey, name_) FROM stdin;
ORG_CENTER	TYPE_CENTER	\N	ДЦ «Северная дуга»
ORG_NETS	TYPE_NETS	\N	Электросети «Ключевой край»
\.
COPY public.orgtypes (keylink, name_) FROM stdin;
TYPE_CENTER	Диспетчерский центр
TYPE_NETS	Электросетевая организация
\.
COPY public.recordsearch (recordkey, recordtime, words) FROM stdin;
REC_PAST_1	1795348038	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'погод' 'принят' 'сводк'
REC_PAST_2	1795396038	'a:WORKER_KUZNETSOV' 'd:DEP_CDS' 'record:' 's:0' 'подстанц' 'провер' 'с' 'связ'
REC_OPENING	1795428438	'00' '08' '20' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'v' 'гр' 'и' 'иван' 'по' 'приня' 'с' 'смен'
REC_MESSAGE	1795432038	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'запрош' 'нагрузк' 'состоян'
REC_REPLACED	1795435638	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:2' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_SUCCESSOR	1795435638	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_ORDER	1795439238	'35' '7' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:35' 'e:кв' 'e:ольховк' 'e:пс' 'record:' 's:0' 'кв' 'команд' 'на' 'ольховк' 'отда' 'отключ' 'пс' 'ф'
REC_TRIP	1795442838	'110' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:110' 'e:вл' 'e:заречн' 'e:кв' 'e:полев' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'на' 'отключ' 'полев' 'пс'
REC_DRAFT_IVANOV	1795446438	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:1' 'оборудован' 'осмотр' 'черновик'
REC_DRAFT_PETROV	1795448238	'a:WORKER_PETROV' 'd:DEP_CDS' 'record:' 's:1' 'бригад' 'доклад' 'черновик'
REC_ZAR	1795444038	'a:WORKER_SMIRNOV_ZAR' 'd:DEP_ZAR' 'record:' 's:0' 'по' 'свер' 'схем' 'щит'
\.
COPY public.roles (keylink, departmentkey, name_) FROM stdin;
ROLE_CDS_SENIOR	DEP_CDS	Старший диспетчер
ROLE_CDS_DISPATCHER	DEP_CDS	Диспетчер
ROLE_ZAR	DEP_ZAR	Диспетчер группы
\.
COPY public.shifts (keylink, departmentkey, name_, starttime, endtime) FROM stdin;
TIMETABLE_CDS_DAY	DEP_CDS	Дневная	28800	72000
TIMETABLE_CDS_NIGHT	DEP_CDS	Ночная	72000	28800
TIMETABLE_ZAR_DAY	DEP_ZAR	Дневная	28800	72000
\.
COPY public.storefiles (folder, name, content) FROM stdin;
\.
COPY public.storeproperties (name, value) FROM stdin;
schema	6
signatures	1
codec	Windows-1251
timeZone	Europe/Moscow
epoch	B90D16F55A61F88CADB75A51EF8115C7
\.
COPY public.tables (keylink, namelat, nameloc) FROM stdin;
\.
COPY public.templateparamcategories (keylink, parentkey, nameloc) FROM stdin;
PARCAT_MAIN	\N	Общие параметры
\.
COPY public.templateparams (keylink, categorykey, nameloc, html) FROM stdin;
PAR_TEXT	PARCAT_MAIN	Текст	<a href="parameter:name=text;locname=Текст">Текст</a>
PAR_LIST	PARCAT_MAIN	Состояние связи	<a href="parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|">Состояние связи</a>
\.
COPY public.userrights (keylink, userkey, rightname) FROM stdin;
RIGHT_SIDOROVA	USER_SIDOROVA	ADMINISTRATOR
RIGHT_SMIRNOV	USER_SMIRNOV	ADMINISTRATOR_OPERLOG_LOCAL
\.
COPY public.users (keylink, login, name_, deleted_) FROM stdin;
USER_IVANOV	ivanov	Иванов Иван Иванович	0
USER_PETROV	petrov	Петров Пётр Петрович	0
USER_SIDOROVA	sidorova	Сидорова Анна Сергеевна	0
USER_SMIRNOV	smirnov	Смирнов Олег Павлович	0
USER_KUZNETSOV	kuznetsov	Кузнецов Лев Андреевич	0
USER_VIEWER	viewer	Наблюдатель	0
\.
COPY public.workerroles (keylink, rolekey, workerkey) FROM stdin;
WROLE_IVANOV_1	ROLE_CDS_SENIOR	WORKER_IVANOV
WROLE_IVANOV_2	ROLE_CDS_DISPATCHER	WORKER_IVANOV
WROLE_PETROV	ROLE_CDS_DISPATCHER	WORKER_PETROV
WROLE_SMIRNOV	ROLE_ZAR	WORKER_SMIRNOV_ZAR
\.
COPY public.workers (keylink, userkey, departmentkey, firstname, lastname, patronymicname, safetygroup, deleted_) FROM stdin;
WORKER_IVANOV	USER_IVANOV	DEP_CDS	Иван	Иванов	Иванович	5	0
WORKER_PETROV	USER_PETROV	DEP_CDS	Пётр	Петров	Петрович	4	0
WORKER_SIDOROVA	USER_SIDOROVA	DEP_CDS	Анна	Сидорова	Сергеевна	5	0
WORKER_SMIRNOV_ZAR	USER_SMIRNOV	DEP_ZAR	Олег	Смирнов	Павлович	0	0
WORKER_SMIRNOV_ODS	USER_SMIRNOV	DEP_ODS	Олег	Смирнов	Павлович	0	0
WORKER_KUZNETSOV	USER_KUZNETSOV	DEP_CDS	Лев	Кузнецов	Андреевич	3	1
\.
SELECT pg_catalog.setval('public.changelog_entry_seq', 78, true);
SELECT pg_catalog.setval('public.changepending_entry_seq', 78, true);
ALTER TABLE ONLY public.changelog
    ADD CONSTRAINT changelog_pkey PRIMARY KEY (entry);
ALTER TABLE ONLY public.changepending
    ADD CONSTRAINT changepending_pkey PRIMARY KEY (xid, entry);
ALTER TABLE ONLY public.changetransactions
    ADD CONSTRAINT changetransactions_batchkey_key UNIQUE (batchkey);
ALTER TABLE ONLY public.changetransactions
    ADD CONSTRAINT changetransactions_pkey PRIMARY KEY (number);
ALTER TABLE ONLY public.departments
    ADD CONSTRAINT departments_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.equipment
    ADD CONSTRAINT equipment_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.fields
    ADD CONSTRAINT fields_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookcatstemplate
    ADD CONSTRAINT logbookcatstemplate_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookcomments
    ADD CONSTRAINT logbookcomments_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookfiles
    ADD CONSTRAINT logbookfiles_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookrecords
    ADD CONSTRAINT logbookrecords_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbooktemplates
    ADD CONSTRAINT logbooktemplates_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookworkersworkshift
    ADD CONSTRAINT logbookworkersworkshift_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logbookworkshifts
    ADD CONSTRAINT logbookworkshifts_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logheads
    ADD CONSTRAINT logheads_pkey PRIMARY KEY (size);
ALTER TABLE ONLY public.logsignatures
    ADD CONSTRAINT logsignatures_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.logstamps
    ADD CONSTRAINT logstamps_pkey PRIMARY KEY (size);
ALTER TABLE ONLY public.logtiles
    ADD CONSTRAINT logtiles_pkey PRIMARY KEY (level, place);
ALTER TABLE ONLY public.operlogcategories
    ADD CONSTRAINT operlogcategories_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.operlogtemplateparams
    ADD CONSTRAINT operlogtemplateparams_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.operlogtemplates
    ADD CONSTRAINT operlogtemplates_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.organizations
    ADD CONSTRAINT organizations_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.orgtypes
    ADD CONSTRAINT orgtypes_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.recordsearch
    ADD CONSTRAINT recordsearch_pkey PRIMARY KEY (recordkey);
ALTER TABLE ONLY public.roles
    ADD CONSTRAINT roles_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.shifts
    ADD CONSTRAINT shifts_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.storefiles
    ADD CONSTRAINT storefiles_pkey PRIMARY KEY (folder, name);
ALTER TABLE ONLY public.storeproperties
    ADD CONSTRAINT storeproperties_pkey PRIMARY KEY (name);
ALTER TABLE ONLY public.tables
    ADD CONSTRAINT tables_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.templateparamcategories
    ADD CONSTRAINT templateparamcategories_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.templateparams
    ADD CONSTRAINT templateparams_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.userrights
    ADD CONSTRAINT userrights_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.users
    ADD CONSTRAINT users_login_key UNIQUE (login);
ALTER TABLE ONLY public.users
    ADD CONSTRAINT users_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.workerroles
    ADD CONSTRAINT workerroles_pkey PRIMARY KEY (keylink);
ALTER TABLE ONLY public.workers
    ADD CONSTRAINT workers_pkey PRIMARY KEY (keylink);
CREATE INDEX changelog_number ON public.changelog USING btree (number, entry);
CREATE INDEX changelog_row ON public.changelog USING btree (rowkey);
CREATE INDEX equipment_parent ON public.equipment USING btree (parentkey);
CREATE INDEX logbookcatstemplate_parent ON public.logbookcatstemplate USING btree (parentkey);
CREATE INDEX logbookcomments_record ON public.logbookcomments USING btree (recordkey);
CREATE INDEX logbookcomments_unread ON public.logbookcomments USING btree (readedtime) WHERE (readedtime = (0)::double precision);
CREATE INDEX logbookfiles_record ON public.logbookfiles USING btree (recordkey);
CREATE INDEX logbookrecords_origin ON public.logbookrecords USING btree (originrecordkey) WHERE (originrecordkey IS NOT NULL);
CREATE INDEX logbookrecords_shift ON public.logbookrecords USING btree (shiftkey, recordtime);
CREATE INDEX logbookrecords_time ON public.logbookrecords USING btree (recordtime);
CREATE INDEX logbookrecords_worker ON public.logbookrecords USING btree (workerkey);
CREATE INDEX logbooktemplates_category ON public.logbooktemplates USING btree (categorykey);
CREATE INDEX logbookworkersworkshift_worker ON public.logbookworkersworkshift USING btree (workerkey);
CREATE INDEX logbookworkersworkshift_workshift ON public.logbookworkersworkshift USING btree (workshiftkey);
CREATE INDEX logbookworkshifts_department ON public.logbookworkshifts USING btree (departmentkey, starttime DESC NULLS LAST);
CREATE INDEX logbookworkshifts_open ON public.logbookworkshifts USING btree (departmentkey, closeworkerkey);
CREATE INDEX logbookworkshifts_opener ON public.logbookworkshifts USING btree (openworkerkey);
CREATE INDEX recordsearch_time ON public.recordsearch USING btree (recordtime, recordkey);
CREATE INDEX recordsearch_words ON public.recordsearch USING gin (words) WITH (fastupdate=off);
CREATE INDEX roles_department ON public.roles USING btree (departmentkey);
CREATE INDEX shifts_department ON public.shifts USING btree (departmentkey);
CREATE INDEX templateparamcategories_parent ON public.templateparamcategories USING btree (parentkey);
CREATE INDEX templateparams_category ON public.templateparams USING btree (categorykey);
CREATE UNIQUE INDEX userrights_user ON public.userrights USING btree (userkey, rightname);
CREATE INDEX workerroles_role ON public.workerroles USING btree (rolekey);
CREATE INDEX workers_department ON public.workers USING btree (departmentkey);
CREATE INDEX workers_user ON public.workers USING btree (userkey);
CREATE TRIGGER a_readedtime BEFORE INSERT OR UPDATE ON public.logbookcomments FOR EACH ROW EXECUTE FUNCTION public.vrk_zero_readed_time();
CREATE TRIGGER b_hold BEFORE INSERT OR DELETE OR UPDATE OF status, executiontime, receiverworkerkey, recordtime, eventtime, firstmarktime, html, direction ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.vrk_hold_workshift();
CREATE TRIGGER b_hold BEFORE INSERT OR DELETE ON public.logbookworkersworkshift FOR EACH ROW EXECUTE FUNCTION public.vrk_hold_workshift();
CREATE TRIGGER b_hold BEFORE INSERT ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.vrk_hold_workshift();
CREATE CONSTRAINT TRIGGER closestransaction AFTER INSERT ON public.changepending DEFERRABLE INITIALLY DEFERRED FOR EACH ROW WHEN (new.isfirst) EXECUTE FUNCTION public.vrk_close();
CREATE TRIGGER keeplog BEFORE DELETE OR UPDATE OR TRUNCATE ON public.changelog FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_log();
CREATE TRIGGER keeplog BEFORE DELETE OR UPDATE OR TRUNCATE ON public.changetransactions FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_log();
CREATE TRIGGER keeplog BEFORE DELETE OR UPDATE ON public.logsignatures FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_log();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.departments FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.equipment FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.fields FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookcatstemplate FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookcomments FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookfiles FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookrecords FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbooktemplates FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookworkersworkshift FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logbookworkshifts FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.logsignatures FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.operlogcategories FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.operlogtemplateparams FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.operlogtemplates FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.organizations FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.orgtypes FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.roles FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.shifts FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.storefiles FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.storeproperties FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.tables FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.templateparamcategories FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.templateparams FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.userrights FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.users FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.workerroles FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER keeprows BEFORE TRUNCATE ON public.workers FOR EACH STATEMENT EXECUTE FUNCTION public.vrk_keep_rows();
CREATE TRIGGER rule_categories_delete BEFORE DELETE ON public.logbookcatstemplate FOR EACH ROW EXECUTE FUNCTION public.rule_categories_delete();
CREATE TRIGGER rule_categories_insert BEFORE INSERT ON public.logbookcatstemplate FOR EACH ROW EXECUTE FUNCTION public.rule_categories_insert();
CREATE TRIGGER rule_categories_update BEFORE UPDATE ON public.logbookcatstemplate FOR EACH ROW EXECUTE FUNCTION public.rule_categories_update();
CREATE TRIGGER rule_comments_delete BEFORE DELETE ON public.logbookcomments FOR EACH ROW EXECUTE FUNCTION public.rule_comments_delete();
CREATE TRIGGER rule_comments_insert BEFORE INSERT ON public.logbookcomments FOR EACH ROW EXECUTE FUNCTION public.rule_comments_insert();
CREATE TRIGGER rule_comments_update BEFORE UPDATE ON public.logbookcomments FOR EACH ROW EXECUTE FUNCTION public.rule_comments_update();
CREATE TRIGGER rule_crew_delete BEFORE DELETE ON public.logbookworkersworkshift FOR EACH ROW EXECUTE FUNCTION public.rule_crew_delete();
CREATE TRIGGER rule_crew_insert BEFORE INSERT ON public.logbookworkersworkshift FOR EACH ROW EXECUTE FUNCTION public.rule_crew_insert();
CREATE TRIGGER rule_crew_update BEFORE UPDATE ON public.logbookworkersworkshift FOR EACH ROW EXECUTE FUNCTION public.rule_crew_update();
CREATE TRIGGER rule_departments_delete BEFORE DELETE ON public.departments FOR EACH ROW EXECUTE FUNCTION public.rule_departments_delete();
CREATE TRIGGER rule_departments_insert BEFORE INSERT ON public.departments FOR EACH ROW EXECUTE FUNCTION public.rule_departments_insert();
CREATE TRIGGER rule_departments_update BEFORE UPDATE ON public.departments FOR EACH ROW EXECUTE FUNCTION public.rule_departments_update();
CREATE TRIGGER rule_equipment_delete BEFORE DELETE ON public.equipment FOR EACH ROW EXECUTE FUNCTION public.rule_equipment_delete();
CREATE TRIGGER rule_equipment_insert BEFORE INSERT ON public.equipment FOR EACH ROW EXECUTE FUNCTION public.rule_equipment_insert();
CREATE TRIGGER rule_equipment_update BEFORE UPDATE ON public.equipment FOR EACH ROW EXECUTE FUNCTION public.rule_equipment_update();
CREATE TRIGGER rule_fields_delete BEFORE DELETE ON public.fields FOR EACH ROW EXECUTE FUNCTION public.rule_fields_delete();
CREATE TRIGGER rule_fields_insert BEFORE INSERT ON public.fields FOR EACH ROW EXECUTE FUNCTION public.rule_fields_insert();
CREATE TRIGGER rule_fields_update BEFORE UPDATE ON public.fields FOR EACH ROW EXECUTE FUNCTION public.rule_fields_update();
CREATE TRIGGER rule_files_delete BEFORE DELETE ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_delete();
CREATE TRIGGER rule_files_insert BEFORE INSERT ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_insert();
CREATE TRIGGER rule_files_update BEFORE UPDATE ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_update();
CREATE TRIGGER rule_operlogcategories_delete BEFORE DELETE ON public.operlogcategories FOR EACH ROW EXECUTE FUNCTION public.rule_operlogcategories_delete();
CREATE TRIGGER rule_operlogcategories_insert BEFORE INSERT ON public.operlogcategories FOR EACH ROW EXECUTE FUNCTION public.rule_operlogcategories_insert();
CREATE TRIGGER rule_operlogcategories_update BEFORE UPDATE ON public.operlogcategories FOR EACH ROW EXECUTE FUNCTION public.rule_operlogcategories_update();
CREATE TRIGGER rule_operlogtemplateparams_delete BEFORE DELETE ON public.operlogtemplateparams FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplateparams_delete();
CREATE TRIGGER rule_operlogtemplateparams_insert BEFORE INSERT ON public.operlogtemplateparams FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplateparams_insert();
CREATE TRIGGER rule_operlogtemplateparams_update BEFORE UPDATE ON public.operlogtemplateparams FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplateparams_update();
CREATE TRIGGER rule_operlogtemplates_delete BEFORE DELETE ON public.operlogtemplates FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplates_delete();
CREATE TRIGGER rule_operlogtemplates_insert BEFORE INSERT ON public.operlogtemplates FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplates_insert();
CREATE TRIGGER rule_operlogtemplates_update BEFORE UPDATE ON public.operlogtemplates FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplates_update();
CREATE TRIGGER rule_organizations_delete BEFORE DELETE ON public.organizations FOR EACH ROW EXECUTE FUNCTION public.rule_organizations_delete();
CREATE TRIGGER rule_organizations_insert BEFORE INSERT ON public.organizations FOR EACH ROW EXECUTE FUNCTION public.rule_organizations_insert();
CREATE TRIGGER rule_organizations_update BEFORE UPDATE ON public.organizations FOR EACH ROW EXECUTE FUNCTION public.rule_organizations_update();
CREATE TRIGGER rule_orgtypes_delete BEFORE DELETE ON public.orgtypes FOR EACH ROW EXECUTE FUNCTION public.rule_orgtypes_delete();
CREATE TRIGGER rule_orgtypes_insert BEFORE INSERT ON public.orgtypes FOR EACH ROW EXECUTE FUNCTION public.rule_orgtypes_insert();
CREATE TRIGGER rule_orgtypes_update BEFORE UPDATE ON public.orgtypes FOR EACH ROW EXECUTE FUNCTION public.rule_orgtypes_update();
CREATE TRIGGER rule_records_delete BEFORE DELETE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_delete();
CREATE TRIGGER rule_records_insert BEFORE INSERT ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_insert();
CREATE TRIGGER rule_records_secondmark BEFORE UPDATE OF secondmarkworkerkey, secondmarktime ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_secondmark();
CREATE TRIGGER rule_records_update BEFORE UPDATE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_update();
CREATE TRIGGER rule_records_visa BEFORE UPDATE OF visaworkerkey ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_visa();
CREATE TRIGGER rule_roles_delete BEFORE DELETE ON public.roles FOR EACH ROW EXECUTE FUNCTION public.rule_roles_delete();
CREATE TRIGGER rule_roles_insert BEFORE INSERT ON public.roles FOR EACH ROW EXECUTE FUNCTION public.rule_roles_insert();
CREATE TRIGGER rule_roles_update BEFORE UPDATE ON public.roles FOR EACH ROW EXECUTE FUNCTION public.rule_roles_update();
CREATE TRIGGER rule_shifts_delete BEFORE DELETE ON public.shifts FOR EACH ROW EXECUTE FUNCTION public.rule_shifts_delete();
CREATE TRIGGER rule_shifts_insert BEFORE INSERT ON public.shifts FOR EACH ROW EXECUTE FUNCTION public.rule_shifts_insert();
CREATE TRIGGER rule_shifts_update BEFORE UPDATE ON public.shifts FOR EACH ROW EXECUTE FUNCTION public.rule_shifts_update();
CREATE TRIGGER rule_tables_delete BEFORE DELETE ON public.tables FOR EACH ROW EXECUTE FUNCTION public.rule_tables_delete();
CREATE TRIGGER rule_tables_insert BEFORE INSERT ON public.tables FOR EACH ROW EXECUTE FUNCTION public.rule_tables_insert();
CREATE TRIGGER rule_tables_update BEFORE UPDATE ON public.tables FOR EACH ROW EXECUTE FUNCTION public.rule_tables_update();
CREATE TRIGGER rule_templateparamcategories_delete BEFORE DELETE ON public.templateparamcategories FOR EACH ROW EXECUTE FUNCTION public.rule_templateparamcategories_delete();
CREATE TRIGGER rule_templateparamcategories_insert BEFORE INSERT ON public.templateparamcategories FOR EACH ROW EXECUTE FUNCTION public.rule_templateparamcategories_insert();
CREATE TRIGGER rule_templateparamcategories_update BEFORE UPDATE ON public.templateparamcategories FOR EACH ROW EXECUTE FUNCTION public.rule_templateparamcategories_update();
CREATE TRIGGER rule_templateparams_delete BEFORE DELETE ON public.templateparams FOR EACH ROW EXECUTE FUNCTION public.rule_templateparams_delete();
CREATE TRIGGER rule_templateparams_insert BEFORE INSERT ON public.templateparams FOR EACH ROW EXECUTE FUNCTION public.rule_templateparams_insert();
CREATE TRIGGER rule_templateparams_update BEFORE UPDATE ON public.templateparams FOR EACH ROW EXECUTE FUNCTION public.rule_templateparams_update();
CREATE TRIGGER rule_templates_delete BEFORE DELETE ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_delete();
CREATE TRIGGER rule_templates_insert BEFORE INSERT ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_insert();
CREATE TRIGGER rule_templates_update BEFORE UPDATE ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_update();
CREATE TRIGGER rule_transactions_insert BEFORE INSERT ON public.changetransactions FOR EACH ROW EXECUTE FUNCTION public.rule_transactions_insert();
CREATE TRIGGER rule_userrights_delete BEFORE DELETE ON public.userrights FOR EACH ROW EXECUTE FUNCTION public.rule_userrights_delete();
CREATE TRIGGER rule_userrights_insert BEFORE INSERT ON public.userrights FOR EACH ROW EXECUTE FUNCTION public.rule_userrights_insert();
CREATE TRIGGER rule_userrights_update BEFORE UPDATE ON public.userrights FOR EACH ROW EXECUTE FUNCTION public.rule_userrights_update();
CREATE TRIGGER rule_users_delete BEFORE DELETE ON public.users FOR EACH ROW EXECUTE FUNCTION public.rule_users_delete();
CREATE TRIGGER rule_users_insert BEFORE INSERT ON public.users FOR EACH ROW EXECUTE FUNCTION public.rule_users_insert();
CREATE TRIGGER rule_users_update BEFORE UPDATE ON public.users FOR EACH ROW EXECUTE FUNCTION public.rule_users_update();
CREATE TRIGGER rule_workerroles_delete BEFORE DELETE ON public.workerroles FOR EACH ROW EXECUTE FUNCTION public.rule_workerroles_delete();
CREATE TRIGGER rule_workerroles_insert BEFORE INSERT ON public.workerroles FOR EACH ROW EXECUTE FUNCTION public.rule_workerroles_insert();
CREATE TRIGGER rule_workerroles_update BEFORE UPDATE ON public.workerroles FOR EACH ROW EXECUTE FUNCTION public.rule_workerroles_update();
CREATE TRIGGER rule_workers_delete BEFORE DELETE ON public.workers FOR EACH ROW EXECUTE FUNCTION public.rule_workers_delete();
CREATE TRIGGER rule_workers_insert BEFORE INSERT ON public.workers FOR EACH ROW EXECUTE FUNCTION public.rule_workers_insert();
CREATE TRIGGER rule_workers_update BEFORE UPDATE ON public.workers FOR EACH ROW EXECUTE FUNCTION public.rule_workers_update();
CREATE TRIGGER rule_workshifts_delete BEFORE DELETE ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_delete();
CREATE TRIGGER rule_workshifts_insert BEFORE INSERT ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_insert();
CREATE TRIGGER rule_workshifts_update BEFORE UPDATE ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_update();
CREATE TRIGGER y_search AFTER INSERT OR DELETE OR UPDATE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.vrk_search_record();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.departments FOR EACH ROW EXECUTE FUNCTION public.log_departments();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.equipment FOR EACH ROW EXECUTE FUNCTION public.log_equipment();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.fields FOR EACH ROW EXECUTE FUNCTION public.log_fields();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookcatstemplate FOR EACH ROW EXECUTE FUNCTION public.log_logbookcatstemplate();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookcomments FOR EACH ROW EXECUTE FUNCTION public.log_logbookcomments();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.log_logbookfiles();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.log_logbookrecords();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.log_logbooktemplates();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookworkersworkshift FOR EACH ROW EXECUTE FUNCTION public.log_logbookworkersworkshift();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.log_logbookworkshifts();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.logsignatures FOR EACH ROW EXECUTE FUNCTION public.log_logsignatures();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.operlogcategories FOR EACH ROW EXECUTE FUNCTION public.log_operlogcategories();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.operlogtemplateparams FOR EACH ROW EXECUTE FUNCTION public.log_operlogtemplateparams();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.operlogtemplates FOR EACH ROW EXECUTE FUNCTION public.log_operlogtemplates();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.organizations FOR EACH ROW EXECUTE FUNCTION public.log_organizations();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.orgtypes FOR EACH ROW EXECUTE FUNCTION public.log_orgtypes();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.roles FOR EACH ROW EXECUTE FUNCTION public.log_roles();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.shifts FOR EACH ROW EXECUTE FUNCTION public.log_shifts();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.storefiles FOR EACH ROW EXECUTE FUNCTION public.log_storefiles();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.storeproperties FOR EACH ROW EXECUTE FUNCTION public.log_storeproperties();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.tables FOR EACH ROW EXECUTE FUNCTION public.log_tables();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.templateparamcategories FOR EACH ROW EXECUTE FUNCTION public.log_templateparamcategories();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.templateparams FOR EACH ROW EXECUTE FUNCTION public.log_templateparams();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.userrights FOR EACH ROW EXECUTE FUNCTION public.log_userrights();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.users FOR EACH ROW EXECUTE FUNCTION public.log_users();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.workerroles FOR EACH ROW EXECUTE FUNCTION public.log_workerroles();
CREATE TRIGGER z_log AFTER INSERT OR DELETE OR UPDATE ON public.workers FOR EACH ROW EXECUTE FUNCTION public.log_workers();
CREATE TRIGGER z_signinsert AFTER INSERT ON public.logbookrecords FOR EACH ROW WHEN ((
        CASE
            WHEN (COALESCE(new.visaworkerkey, ''::text) <> COALESCE(NULL::text, ''::text)) THEN
            CASE
                WHEN (COALESCE(new.visaworkerkey, ''::text) = ''::text) THEN 'visaRemoved'::text
                ELSE 'visa'::text
            END
            WHEN ((new.status = 0) AND (0 IS NOT NULL)) THEN 'approval'::text
            WHEN ((NULL::integer = 0) AND (new.status IS DISTINCT FROM 0)) THEN 'cancellation'::text
            ELSE NULL::text
        END IS NOT NULL)) EXECUTE FUNCTION public.sign_logbookrecords();
CREATE TRIGGER z_signinsert AFTER INSERT ON public.logbookworkshifts FOR EACH ROW WHEN ((
        CASE
            WHEN ((COALESCE(new.closeworkerkey, ''::text) <> ''::text) AND (COALESCE(NULL::text, ''::text) = ''::text)) THEN 'closing'::text
            ELSE NULL::text
        END IS NOT NULL)) EXECUTE FUNCTION public.sign_logbookworkshifts();
CREATE TRIGGER z_signupdate AFTER UPDATE ON public.logbookrecords FOR EACH ROW WHEN ((
        CASE
            WHEN (COALESCE(new.visaworkerkey, ''::text) <> COALESCE(old.visaworkerkey, ''::text)) THEN
            CASE
                WHEN (COALESCE(new.visaworkerkey, ''::text) = ''::text) THEN 'visaRemoved'::text
                ELSE 'visa'::text
            END
            WHEN ((new.status = 0) AND (old.status IS DISTINCT FROM 0)) THEN 'approval'::text
            WHEN ((old.status = 0) AND (new.status IS DISTINCT FROM 0)) THEN 'cancellation'::text
            ELSE NULL::text
        END IS NOT NULL)) EXECUTE FUNCTION public.sign_logbookrecords();
CREATE TRIGGER z_signupdate AFTER UPDATE ON public.logbookworkshifts FOR EACH ROW WHEN ((
        CASE
            WHEN ((COALESCE(new.closeworkerkey, ''::text) <> ''::text) AND (COALESCE(old.closeworkerkey, ''::text) = ''::text)) THEN 'closing'::text
            ELSE NULL::text
        END IS NOT NULL)) EXECUTE FUNCTION public.sign_logbookworkshifts();
ALTER TABLE ONLY public.logbookcatstemplate
    ADD CONSTRAINT logbookcatstemplate_parentkey_fkey FOREIGN KEY (parentkey) REFERENCES public.logbookcatstemplate(keylink) DEFERRABLE INITIALLY DEFERRED;
ALTER TABLE ONLY public.logbookcomments
    ADD CONSTRAINT logbookcomments_recordkey_fkey FOREIGN KEY (recordkey) REFERENCES public.logbookrecords(keylink) ON DELETE CASCADE;
ALTER TABLE ONLY public.logbookfiles
    ADD CONSTRAINT logbookfiles_recordkey_fkey FOREIGN KEY (recordkey) REFERENCES public.logbookrecords(keylink) ON DELETE CASCADE;
ALTER TABLE ONLY public.logbookrecords
    ADD CONSTRAINT logbookrecords_shiftkey_fkey FOREIGN KEY (shiftkey) REFERENCES public.logbookworkshifts(keylink);
ALTER TABLE ONLY public.logbooktemplates
    ADD CONSTRAINT logbooktemplates_categorykey_fkey FOREIGN KEY (categorykey) REFERENCES public.logbookcatstemplate(keylink) DEFERRABLE INITIALLY DEFERRED;
ALTER TABLE ONLY public.logbookworkersworkshift
    ADD CONSTRAINT logbookworkersworkshift_workshiftkey_fkey FOREIGN KEY (workshiftkey) REFERENCES public.logbookworkshifts(keylink) ON DELETE CASCADE;
ALTER TABLE ONLY public.templateparamcategories
    ADD CONSTRAINT templateparamcategories_parentkey_fkey FOREIGN KEY (parentkey) REFERENCES public.templateparamcategories(keylink) DEFERRABLE INITIALLY DEFERRED;
ALTER TABLE ONLY public.templateparams
    ADD CONSTRAINT templateparams_categorykey_fkey FOREIGN KEY (categorykey) REFERENCES public.templateparamcategories(keylink) DEFERRABLE INITIALLY DEFERRED;
GRANT ALL ON SCHEMA public TO vrk_owner;
REVOKE ALL ON LANGUAGE plpgsql FROM PUBLIC;
GRANT ALL ON LANGUAGE plpgsql TO vrk_owner;
REVOKE ALL ON FUNCTION pg_catalog.lo_close(integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_creat(integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_create(oid) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_from_bytea(oid, bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_get(oid) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_get(oid, bigint, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_lseek(integer, integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_lseek64(integer, bigint, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_open(oid, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_put(oid, bigint, bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_tell(integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_tell64(integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_truncate(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_truncate64(integer, bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lo_unlink(oid) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.loread(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.lowrite(integer, bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_lock(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_lock(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_lock_shared(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_lock_shared(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_unlock(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_unlock(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_unlock_all() FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_unlock_shared(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_unlock_shared(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_xact_lock(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_xact_lock(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_xact_lock_shared(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_advisory_xact_lock_shared(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_copy_logical_replication_slot(src_slot_name name, dst_slot_name name, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_copy_logical_replication_slot(src_slot_name name, dst_slot_name name, temporary boolean, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_copy_logical_replication_slot(src_slot_name name, dst_slot_name name, temporary boolean, plugin name, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_copy_physical_replication_slot(src_slot_name name, dst_slot_name name, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_copy_physical_replication_slot(src_slot_name name, dst_slot_name name, temporary boolean, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_create_logical_replication_slot(slot_name name, plugin name, temporary boolean, twophase boolean, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_create_physical_replication_slot(slot_name name, immediately_reserve boolean, temporary boolean, OUT slot_name name, OUT lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_drop_replication_slot(name) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_export_snapshot() FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_emit_message(boolean, text, bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_emit_message(boolean, text, text) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_slot_get_binary_changes(slot_name name, upto_lsn pg_lsn, upto_nchanges integer, VARIADIC options text[], OUT lsn pg_lsn, OUT xid xid, OUT data bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_slot_get_changes(slot_name name, upto_lsn pg_lsn, upto_nchanges integer, VARIADIC options text[], OUT lsn pg_lsn, OUT xid xid, OUT data text) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_slot_peek_binary_changes(slot_name name, upto_lsn pg_lsn, upto_nchanges integer, VARIADIC options text[], OUT lsn pg_lsn, OUT xid xid, OUT data bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_logical_slot_peek_changes(slot_name name, upto_lsn pg_lsn, upto_nchanges integer, VARIADIC options text[], OUT lsn pg_lsn, OUT xid xid, OUT data text) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_notify(text, text) FROM PUBLIC;
GRANT ALL ON FUNCTION pg_catalog.pg_notify(text, text) TO vrk_owner;
REVOKE ALL ON FUNCTION pg_catalog.pg_replication_slot_advance(slot_name name, upto_lsn pg_lsn, OUT slot_name name, OUT end_lsn pg_lsn) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_lock(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_lock(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_lock_shared(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_lock_shared(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_xact_lock(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_xact_lock(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_xact_lock_shared(bigint) FROM PUBLIC;
REVOKE ALL ON FUNCTION pg_catalog.pg_try_advisory_xact_lock_shared(integer, integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_departments() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_equipment() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_fields() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookcatstemplate() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookcomments() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookfiles() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookrecords() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbooktemplates() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookworkersworkshift() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logbookworkshifts() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_logsignatures() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_operlogcategories() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_operlogtemplateparams() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_operlogtemplates() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_organizations() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_orgtypes() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_roles() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_shifts() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_storefiles() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_storeproperties() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_tables() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_templateparamcategories() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_templateparams() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_userrights() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_users() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_workerroles() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.log_workers() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_categories_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_categories_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_categories_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_comments_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_comments_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_comments_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_crew_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_crew_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_crew_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_departments_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_departments_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_departments_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_equipment_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_equipment_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_equipment_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_fields_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_fields_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_fields_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_files_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_files_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_files_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogcategories_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogcategories_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogcategories_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplateparams_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplateparams_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplateparams_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplates_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplates_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_operlogtemplates_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_organizations_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_organizations_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_organizations_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_orgtypes_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_orgtypes_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_orgtypes_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_records_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_records_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_records_secondmark() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_records_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_records_visa() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_roles_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_roles_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_roles_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_shifts_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_shifts_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_shifts_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_tables_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_tables_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_tables_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparamcategories_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparamcategories_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparamcategories_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparams_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparams_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templateparams_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templates_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templates_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_templates_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_transactions_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_userrights_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_userrights_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_userrights_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_users_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_users_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_users_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workerroles_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workerroles_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workerroles_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workers_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workers_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workers_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workshifts_delete() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workshifts_insert() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.rule_workshifts_update() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.sign_logbookrecords() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.sign_logbookworkshifts() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_adds_key(infolder text, called text, bytes bytea) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_bytes(part text) FROM PUBLIC;
GRANT SELECT ON TABLE public.changetransactions TO vrk_client;
GRANT SELECT ON TABLE public.changetransactions TO vrk_seal;
REVOKE ALL ON FUNCTION public.vrk_chain(before bytea, head public.changetransactions) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_close() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_equipment(html text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_folded(plain text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_hold_trees() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_hold_workshift() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_is_loader() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_keep_log() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_keep_rows() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_leaf(tablename text, rowkey text, event bigint, oldrow text, newrow text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_log(tablename text, rowkey text, event integer, oldrow text, newrow text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_part(part text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_refuse(reason text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_search_record() FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_search_words(html text, departmentkey text, workerkey text, status integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_stems(plain text, most integer) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_visible(html text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_words(html text) FROM PUBLIC;
REVOKE ALL ON FUNCTION public.vrk_write_file(infolder text, called text, bytes bytea) FROM PUBLIC;
GRANT ALL ON FUNCTION public.vrk_write_file(infolder text, called text, bytes bytea) TO vrk_client;
GRANT ALL ON FUNCTION public.vrk_write_file(infolder text, called text, bytes bytea) TO vrk_seal;
REVOKE ALL ON FUNCTION public.vrk_zero_readed_time() FROM PUBLIC;
GRANT SELECT ON TABLE public.changehead TO vrk_client;
GRANT SELECT ON TABLE public.changehead TO vrk_seal;
GRANT SELECT ON TABLE public.storeproperties TO vrk_client;
GRANT SELECT ON TABLE public.storeproperties TO vrk_seal;
GRANT SELECT ON TABLE public.changeend TO vrk_client;
GRANT SELECT ON TABLE public.changeend TO vrk_seal;
GRANT SELECT ON TABLE public.changelog TO vrk_client;
GRANT SELECT ON TABLE public.changelog TO vrk_seal;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.users TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.workers TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookworkersworkshift TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookworkshifts TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.userrights TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.departments TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.equipment TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.fields TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookrecords TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookcatstemplate TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookcomments TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookfiles TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbooktemplates TO vrk_client;
GRANT SELECT ON TABLE public.logheads TO vrk_client;
GRANT SELECT,INSERT,UPDATE ON TABLE public.logheads TO vrk_seal;
GRANT SELECT ON TABLE public.logsignatures TO vrk_client;
GRANT SELECT ON TABLE public.logstamps TO vrk_client;
GRANT SELECT,INSERT,UPDATE ON TABLE public.logstamps TO vrk_seal;
GRANT SELECT ON TABLE public.logtiles TO vrk_client;
GRANT SELECT,INSERT,UPDATE ON TABLE public.logtiles TO vrk_seal;
GRANT SELECT ON TABLE public.longestshift TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.operlogcategories TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.operlogtemplateparams TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.operlogtemplates TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.organizations TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.orgtypes TO vrk_client;
GRANT SELECT ON TABLE public.recordsearch TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.roles TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.shifts TO vrk_client;
GRANT SELECT ON TABLE public.storefiles TO vrk_client;
GRANT SELECT ON TABLE public.storefiles TO vrk_seal;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.tables TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparamcategories TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparams TO vrk_client;
GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.workerroles TO vrk_client;
