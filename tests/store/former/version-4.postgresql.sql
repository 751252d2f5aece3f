
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
    this.login := CASE WHEN this.loader = 1 THEN 'loader' ELSE session_user END;
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
    IF NOT vrk_is_loader() AND NOT EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
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
74	\\x060ab3560fe0f7d7f10e347caf00ee7df3375719240703aa2300a532402f03de	2026-11-22 21:56:26.946139+03
\.

COPY public.changelog (entry, number, tablename, rowkey, event, oldrow, newrow) FROM stdin;
1	1	StoreProperties	schema	601	\N	["schema","4"]
2	1	StoreProperties	codec	601	\N	["codec","Windows-1251"]
3	1	StoreProperties	timeZone	601	\N	["timeZone","Europe/Moscow"]
4	1	StoreProperties	epoch	601	\N	["epoch","9D99BF15047623ED5BEBB92524141780"]
5	2	OrgTypes	TYPE_CENTER	601	\N	["TYPE_CENTER","Диспетчерский центр"]
6	3	OrgTypes	TYPE_NETS	601	\N	["TYPE_NETS","Электросетевая организация"]
7	4	Organizations	ORG_CENTER	601	\N	["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]
8	5	Organizations	ORG_NETS	601	\N	["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]
9	6	Departments	DEP_ODS	601	\N	["DEP_ODS","ORG_CENTER",null,"ОДС"]
10	7	Departments	DEP_CDS	601	\N	["DEP_CDS","ORG_NETS",null,"ЦДС"]
11	8	Departments	DEP_ZAR	601	\N	["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]
12	9	Users	USER_IVANOV	601	\N	["USER_IVANOV","ivanov","Иванов Иван Иванович",0]
13	10	Users	USER_PETROV	601	\N	["USER_PETROV","petrov","Петров Пётр Петрович",0]
14	11	Users	USER_SIDOROVA	601	\N	["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]
15	12	Users	USER_SMIRNOV	601	\N	["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]
16	13	Users	USER_KUZNETSOV	601	\N	["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]
17	14	Users	USER_VIEWER	601	\N	["USER_VIEWER","viewer","Наблюдатель",0]
18	15	UserRights	RIGHT_SIDOROVA	601	\N	["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]
19	16	UserRights	RIGHT_SMIRNOV	601	\N	["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]
20	17	Workers	WORKER_IVANOV	601	\N	["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]
21	18	Workers	WORKER_PETROV	601	\N	["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]
22	19	Workers	WORKER_SIDOROVA	601	\N	["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]
23	20	Workers	WORKER_SMIRNOV_ZAR	601	\N	["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]
24	21	Workers	WORKER_SMIRNOV_ODS	601	\N	["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]
25	22	Workers	WORKER_KUZNETSOV	601	\N	["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]
26	23	Roles	ROLE_CDS_SENIOR	601	\N	["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]
27	24	Roles	ROLE_CDS_DISPATCHER	601	\N	["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]
28	25	Roles	ROLE_ZAR	601	\N	["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]
29	26	WorkerRoles	WROLE_IVANOV_1	601	\N	["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]
30	27	WorkerRoles	WROLE_IVANOV_2	601	\N	["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]
31	28	WorkerRoles	WROLE_PETROV	601	\N	["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]
32	29	WorkerRoles	WROLE_SMIRNOV	601	\N	["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]
33	30	Shifts	TIMETABLE_CDS_DAY	601	\N	["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]
34	31	Shifts	TIMETABLE_CDS_NIGHT	601	\N	["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]
35	32	Shifts	TIMETABLE_ZAR_DAY	601	\N	["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]
36	33	LogbookCatsTemplate	CAT_COMMON	601	\N	["CAT_COMMON",null,null,null,"Оперативная смена"]
37	34	LogbookCatsTemplate	CAT_COMMON_SUB	601	\N	["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]
38	35	LogbookCatsTemplate	CAT_NETS	601	\N	["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]
39	36	LogbookCatsTemplate	CAT_CDS	601	\N	["CAT_CDS",null,null,"DEP_CDS","Погода"]
40	37	LogbookCatsTemplate	CAT_ZAR	601	\N	["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]
41	38	LogbookTemplates	TPL_OPEN	601	\N	["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Диспетчер</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">Период смены</a>."]
42	39	LogbookTemplates	TPL_CLOSE	601	\N	["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\\"template\\" content=\\"close_wshift\\">Смену сдал <a href=\\"parameter:name=employee_fio;locname=Сдал\\">Сдал</a>."]
43	40	LogbookTemplates	TPL_ORDER	601	\N	["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">Оборудование</a>."]
44	41	LogbookTemplates	TPL_TRIP	601	\N	["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">Линия</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a>."]
45	42	LogbookTemplates	TPL_TEXT	601	\N	["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]
46	43	TemplateParamCategories	PARCAT_MAIN	601	\N	["PARCAT_MAIN",null,"Общие параметры"]
47	44	TemplateParams	PAR_TEXT	601	\N	["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\\"parameter:name=text;locname=Текст\\">Текст</a>"]
48	45	TemplateParams	PAR_LIST	601	\N	["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\\">Состояние связи</a>"]
49	46	Equipment	EQ_SUBSTATION	601	\N	["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]
50	47	Equipment	EQ_BAY	601	\N	["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]
51	48	Equipment	EQ_LINE	601	\N	["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]
52	49	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795265782,1795265782,1795352182]
53	50	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795352182,1795352182,1795438582]
54	51	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795366582,1795366582,1795409782]
55	52	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795265782,1795265782,1795352182]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795265782,1795265782,1795352182]
56	53	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
57	54	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
58	55	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
59	56	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
60	57	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
61	58	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
62	59	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795271782,1795271782,null,null,null,"Принята сводка погоды.",0,null]
63	60	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795319782,1795319782,null,null,null,"Проверена связь с подстанциями.",0,null]
64	61	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795352182,1795352182,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
65	62	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795355782,1795355782,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
66	63	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795359382,1795359382,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
67	64	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795359382,1795359382,null,null,1795359982,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
68	65	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795362982,1795362982,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
69	66	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795366582,1795366582,1795366522,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
70	67	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795370182,1795370182,null,null,null,"Черновик: осмотр оборудования.",1,null]
71	68	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795371982,1795371982,null,null,null,"Черновик: доклад бригады.",1,null]
72	69	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795367782,1795367782,null,null,null,"Схема сверена по щиту.",0,null]
73	70	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795352782,"Уточните период смены.",0]
74	71	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795363582,"Исполнение доложить до конца смены.",1795364182]
75	72	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795325782,"Приложите сводку к записи.",0]
76	73	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
77	74	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.

COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.

COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	0C897CFCF10938E7C94F20A3661A2384	loader	1	1795373785	\\xbd7bbbc724d4d51055fba8b607885f361926ff206879d7fe5f5413ab2c2d8cc5
2	E8335D6CE5963DE3AFB87E5E67780345	loader	1	1795373786	\\x98d8c3d2f7963b5549ae96b67e29d7c88f8ad263bf4039611b083957a1afd6af
3	2614F2DDC11F4F742F952E2D2CB0C3E2	loader	1	1795373786	\\x73df35eb89d4d2dd8b41bb89615ec0b05651abb987208fb4c65ab04d37802f73
4	4D3936276B5DE774B4DAFF640D7594ED	loader	1	1795373786	\\x865fa59dfa8f13b7d27c49e1064bdadd48aace7b03e11251f8fd955a50894bcd
5	0B96BBD7A3BE98B57EB645F19D4294B8	loader	1	1795373786	\\x9a71ee58da67b6d16f317bc4c5e6f791fb308cf99cbd94099c9019a6e1d9d216
6	7A62530AF53426CF703B3FA875DE1FD5	loader	1	1795373786	\\x872c121ca076b2b1915f0d155c85a2bd76f1dfedcdaf38213060e936aeb57009
7	3E1969AD9904CAE5C2E34ECDCE004E99	loader	1	1795373786	\\xd64761c6d2b31bf017c05f55ffff6ec63536d2069a8f7c0c78e55a973125f0fc
8	AE7603BCE6AE283A3EF3228C4B35D41F	loader	1	1795373786	\\x9be0d210ebc20279abd65c21635587393ac1663367184f12887094ac6afba8d8
9	E4BDC20C4DF53483A70DBA083C45267B	loader	1	1795373786	\\x93303814c9a07b784e5d87d5130689e2e123d7dc96664face13f40c3cdb25e33
10	BEF3AEC39C490B68BC0C2A8410657B73	loader	1	1795373786	\\xb5b1aef86fec4fc11f2ae1486d3eaf5c0f6c90928571d3c40c517e52d64d7427
11	4CE8901F66DFEB997C1FFE8754090196	loader	1	1795373786	\\x60c484e05074ff5bc3a89bc7cc64517419e26ec7f01975c53b1f23c563401856
12	FE8564C86366E97B4C4F65CA4168D3AB	loader	1	1795373786	\\xc56d2deed3cab14772db1da187b70e896365eed9033bc0e3586514cda49643a5
13	A9CD9F5FD3E87F6EF1E03C8C70B06274	loader	1	1795373786	\\x3e3f8a4687c73855af52c7cc8d0dcdbbae63d1aaee15b66c0011607cd5cf5846
14	2A721B9A60D4FE021195E3D28DA23BA9	loader	1	1795373786	\\xb6f3630cc67a80d92d92faa5f9eb71f3a94c130bc75e68c9e64663a24593abe7
15	B71AD7E234BA61646E01C13769DD8533	loader	1	1795373786	\\x44fd7ea4f2117274e01d31daf2154698cccb427c043787852175a45c6b59936e
16	0D3819F7B174B83DD079D6F29A6B0FB9	loader	1	1795373786	\\xf29916d2f0b1c88a5d6422bc49d3c3bd86e2d4ca9e6a054ec7e90b6c8fe76867
17	4DEBE2E93BC5877D346E561EF2901C40	loader	1	1795373786	\\x755ac654e3d598128ad3f8c5c19fef3071bd4b12365b6cc87ccc939f7c44cb14
18	C5169A6FBBF9DC5ED7DD96BEB9956CEE	loader	1	1795373786	\\x1a9114a9f20a289d799b367b6dc450c04b51dc0c4b81b5414086b7f3bcb167cd
19	EC8B0225D49AD549E4A0AFF490B5F867	loader	1	1795373786	\\x846e84db191f1a7c4d79339537958c38e04d96b54cd9ed68792343438ab883d6
20	4D5A275DB26A1AF3D7121C9E7C0FA968	loader	1	1795373786	\\xf71e6da4808fa7f1fc93897c731483085745309acceeb29ab798b6f02ac540a7
21	D3D73521C80667CAC687025B0838B64D	loader	1	1795373786	\\xdf138eb43a3edecd4a3f539fd6cc1a99f48e4a3308c4219225d6a8d431b7f4e3
22	B01DC6520C6D740A8D9E4912636B388D	loader	1	1795373786	\\x30ec0f0daaa4c65864f5959e5dc97a8f12a7294837808c3a9482a1ee604d95a8
23	0B63CA29E2880315BD49774DDCEA20E5	loader	1	1795373786	\\xd6b24b28da4efea2d5beb72030b25df8fd2b8abbbdc84588da0fc23d0dc61db4
24	F131367702DC228E3043A40194A59C88	loader	1	1795373786	\\x7afd16f116c26cd67326c26b5b90ddc0251d44ce3b7b5f09281b96763737e878
25	24FC1CC014A10ABCDDA087D7303AC07B	loader	1	1795373786	\\x1dfc18cd993f80d681d0c08464b9dc38bcb0015c7a4c3a377a81be5aa2b0c20c
26	8B1252579D454055D5D4BBD660A5E008	loader	1	1795373786	\\x1ec2207cec2b4bc40b87154502c0cb7c1dd829a4482bad2064edb1dbc9984b06
27	AC0B5BC0BD619E58EFEBE5FD4D34A84B	loader	1	1795373786	\\x998f63c94fd1ffefc857280af2a653bcd7d73e5e0b6ad1965188a0bf339aea8f
28	16217C10C244C64A0430525AAA1EFF5A	loader	1	1795373786	\\xc7aebce77854820a87b287cee96e3eb44ce60d7eb529db98449fde3135781c39
29	CA922AFAC5AE1B289D79622993369B88	loader	1	1795373786	\\x48ee4f952ede5967a932d825ef15174520568cf87694fe30b9d322a6e24aed38
30	911F004D425BC07A80E60EAB13364EE5	loader	1	1795373786	\\xb9bbfdc70ce355fb18cc6dbc6ed9f7f597ad31f8d36b535077668daabee859df
31	94A2A9D01C1A82A37879E8815885D4E7	loader	1	1795373786	\\x7902f9952f8ba9ecc2e2c096aa500b1c2a5e4be505bbc0e6a79b937b8d777593
32	E365229B964CA3214C0469E199E1333E	loader	1	1795373786	\\x8706772a73926d4291ff06facf489b6107299d7f8555a5dba4adcba1d5c56c1a
33	2B00A844A646E67C5B6A63267D63BC9F	loader	1	1795373786	\\x7b93a46f54ebd9b88f1a80ff9d82f10a62b96d82fc41bc01d55eaba9a5679dd4
34	969DE6FEFE4A92913B412E66716FC855	loader	1	1795373786	\\xc90a00ceba8fcfff7c42f2c7fb538580aaa549bfa32933feac8f3f13beea23a6
35	59B58BB99212AF5D2DD4D853FF79FC8B	loader	1	1795373786	\\x79cb4fd52d64bf68deee8c01cf33901fe8c3d05f477fd55ab46b7a977d7ad6db
36	B860836FB7B381E0FF2A3B5B3A00345B	loader	1	1795373786	\\xbaf42f30ce67c4305f014567c3a7897c0e5b3165d0e38ba01a2e78fe88621e4f
37	BB2F9F3DC51E76F100F2839E8E41C18B	loader	1	1795373786	\\x735870bd05c01bc76d7d0659bf902d52123385cb23d5c121273b7d6b9a9868fa
38	2DF70DDA82BB740656213E1872CCE094	loader	1	1795373786	\\x2a40971bb81067d85da65dd9d2522854d14aac722ec9feed867c916649573145
39	1106F57058DCF1847B9BCB0FAD9E01D8	loader	1	1795373786	\\x98b5d5cf4fc706d6e234186b0fed661a6c0364055404d3681cc76cd43577aa43
40	F7AA9529FC73AB464F4AC093B534C04B	loader	1	1795373786	\\xa3e03ab842ef8a42b0381489e2bd836751919ff2473ce49b04984494d112ba96
41	F06A074FF7CC6683172BEBBDBC571736	loader	1	1795373786	\\xf2862de9bced7ad2f0f687ef78d85075d19900d6ff83e92cc58ce1172a447365
42	AAB12F64B094EEF3FB3688763F2DF673	loader	1	1795373786	\\x43f48ae0eb3023f403a4cc4d8768091266108c712db93d3ae43c7418af49fbee
43	DD6F54F1D2EF49C8B615D300EF04E923	loader	1	1795373786	\\xfd90fcfe300af0491a5816f45bb3cdae7d8b793a0c2556818a6d1a30502b79c4
44	CA4AC7AC60B2200E15FA3D4A5C793F66	loader	1	1795373786	\\xa0e9d030b3d59b015c4d62086b46adc5e7474fc787a22ade7549d556bda0ba78
45	795BEDB304B1DEB6175AD008E9787D24	loader	1	1795373786	\\x738bc44de23cfe4bb7e312381a4d508bba04818d5f16b3e4f222c5f4dc3a1e33
46	B31BB77A995DB3C41AE40AD1E837285A	loader	1	1795373786	\\xf2c851a27e56a23e6c8e2e7039b58cdfdac8d9fdcac0d305857dab46c0b51a59
47	2634A16BB6DED6432D7A6D03FF242B8D	loader	1	1795373786	\\xb4c07a83f6d031a0e4286266d37f60659942226a8012008cb2de1e09b31d2db5
48	DA7746A898591F3A3B2C272D3A46354D	loader	1	1795373786	\\xb9341bf0a1ad4c0e630038da7acbe02363003000a9bb28d786b21c1d938f2664
49	04D4EA64AEA26FF3937F46A1AD711619	loader	1	1795373786	\\xf7e14b26560e511afc56cf787715c1adcc13b1ba0183846db193cc3cc860e771
50	E4F6E48423429AAE8A931AE1A10229E1	loader	1	1795373786	\\x43b79c7645ac7d4655b33c868da1e006a33a3703a078e9ea253f33086d176086
51	3AB067E56ACD9F9C21E666A07FE7E786	loader	1	1795373786	\\x1d3a40c9e64a2725dd1c6757d188a6c651874df49d4d3abd9a6c1e09d1ad60fc
52	88B4EC3FA47E58EBBF2A8944FEAE4302	loader	1	1795373786	\\x8a700c66bcdde5752d1b679016eb378f3e95148acf9ed15ae9c3aaa93e23c916
53	1DBEFD1F997DEFAE903C567DDC126639	loader	1	1795373786	\\x419ad080aaeea4829e85b7f1c074b069aed3cb01281192cc05a3aa376f2d4e6e
54	4BBA5472F8A49533730788CE600DF97B	loader	1	1795373786	\\xb84bf52e20b1c90595992ed67cefab9b666b43530ce4df3bd3ddf723867779ab
55	A68CCCC6C13A56DE679D8D0B87298B59	loader	1	1795373786	\\xff3f644b1bbda32cac627bd6207b0a4c9634666272b8c46f924164b66c8faa48
56	E92C3535018043D4EFB67FB74969E0FD	loader	1	1795373786	\\xe45dd37c6328b2b0215638c1c46032a40d54733bdcb696090fa6753f5166ec6c
57	97492DA9D142A68F1C99BCA07431A3C6	loader	1	1795373786	\\xb0b9d555db0a2275c9c665ce47f4a1226ffadae53fa7e61e3bc1db103700b3a0
58	D2011B20896E7C9728DBD7C96108429F	loader	1	1795373786	\\x7ec96306c5ca4a4b71a2e128fca4846269ecc166b5170ba96dfd516890213bef
59	662460F08FE92F91CE4A952BE2CEC72A	loader	1	1795373786	\\xab1b33216bc6cecf672ac12c3100382651e9a6994ab669260a449bf8c84b314a
60	0953603417E0F47040BD2C00EE878B1C	loader	1	1795373786	\\xfcae22625de6ac876cb57bbf900a39afd77fad5281a7c99e193f9bb060689d63
61	CFBFB97599E90B7EA1F6DB56B497A5DC	loader	1	1795373786	\\xac63906f69318658e72daa34494339d745bc19054f10fc7f32fd78fe5c92d93f
62	239A6CA738AF9E51C31F51A62FD7257D	loader	1	1795373786	\\x9f4674799fab6234f5d2374cc331e36b021e911e27a4b4c3ee0491b193af49d3
63	4EEBAC0380CC02F2C228B376AE21B64B	loader	1	1795373786	\\x4e63db517f7dcf4d61a3f6519ecb2c5e21f9e37f28b0a94054f0512f5b010450
64	EAB4FD5A23399E3268AC41BCA9752218	loader	1	1795373786	\\x4e07cf358ca5fd05fb936e39c7e8335450a5f80d959cbb929fa61ecb495ae3f6
65	49F5E15FE064E8CAF3B8F78E192EDB9C	loader	1	1795373786	\\xa228b50b0cb136bd4a19b64ef93d138011dc03b7796583c0fafb0294c30eaa0f
66	E7D66A38EC35B1D630EB67DA455A3383	loader	1	1795373786	\\xa0cf341e6facceddaaddde6335932947d3e5f29f1e804806cbcee7f66a73d418
67	25206C7AAB93D375D4BF108F2E173E71	loader	1	1795373786	\\xf667c20433d969fec70181ecb5f3cb14698ab0422e67ea2c8a36072589fea5f6
68	E622F166391F09B97ED55F55D3E54267	loader	1	1795373786	\\x40206b00c0e34e52566273299c4a0519788278644b804eed4b88007120f3b1af
69	9285CC8BCB309DC413ABDC0D2C519D21	loader	1	1795373786	\\x8ffc3ccee603f04ba247c300e450172c011f9dd33233e28951a8b75bfb269ecb
70	928B075D909DBCE32A6809559380CB64	loader	1	1795373786	\\x41160131168516fc0b2deb597131b9634e26cfd23a2c0097f0bfe22c423ccb0d
71	49EB3CBD5971F34ADD6B188FF74F9DE1	loader	1	1795373786	\\xc6c0ab9804fabcf7025b02dd942352b7fe0f70707c4b20b0e60837e5365aea3c
72	FDE85315837554AFC105222F68D036F2	loader	1	1795373786	\\x287310cb58293ddae527114cb1757ac9671ffede6ad4453264295a7ecf4095c1
73	9D73B21BF6FFD67E657C09BC605171B4	loader	1	1795373786	\\x95614df2deb729c32ce47f187570d04cfb88277a2c3d26067f68fec6c2a8c381
74	71E11D695EB5F434B7296A0296565CD0	loader	1	1795373786	\\x060ab3560fe0f7d7f10e347caf00ee7df3375719240703aa2300a532402f03de
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
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795352782	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795363582	Исполнение доложить до конца смены.	1795364182
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795325782	Приложите сводку к записи.	0
\.

COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.

COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795271782	1795271782	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795319782	1795319782	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795352182	1795352182	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795355782	1795355782	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795359382	1795359382	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795359382	1795359382	\N	\N	1795359982	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795362982	1795362982	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795366582	1795366582	1795366522	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795370182	1795370182	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795371982	1795371982	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795367782	1795367782	\N	\N	\N	Схема сверена по щиту.	0	\N
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
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795352182	1795352182	1795438582
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795366582	1795366582	1795409782
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795265782	1795265782	1795352182
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
REC_PAST_1	1795271782	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'погод' 'принят' 'сводк'
REC_PAST_2	1795319782	'a:WORKER_KUZNETSOV' 'd:DEP_CDS' 'record:' 's:0' 'подстанц' 'провер' 'с' 'связ'
REC_OPENING	1795352182	'00' '08' '20' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'v' 'гр' 'и' 'иван' 'по' 'приня' 'с' 'смен'
REC_MESSAGE	1795355782	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'запрош' 'нагрузк' 'состоян'
REC_REPLACED	1795359382	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:2' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_SUCCESSOR	1795359382	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_ORDER	1795362982	'35' '7' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:35' 'e:кв' 'e:ольховк' 'e:пс' 'record:' 's:0' 'кв' 'команд' 'на' 'ольховк' 'отда' 'отключ' 'пс' 'ф'
REC_TRIP	1795366582	'110' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:110' 'e:вл' 'e:заречн' 'e:кв' 'e:полев' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'на' 'отключ' 'полев' 'пс'
REC_DRAFT_IVANOV	1795370182	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:1' 'оборудован' 'осмотр' 'черновик'
REC_DRAFT_PETROV	1795371982	'a:WORKER_PETROV' 'd:DEP_CDS' 'record:' 's:1' 'бригад' 'доклад' 'черновик'
REC_ZAR	1795367782	'a:WORKER_SMIRNOV_ZAR' 'd:DEP_ZAR' 'record:' 's:0' 'по' 'свер' 'схем' 'щит'
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
schema	4
codec	Windows-1251
timeZone	Europe/Moscow
epoch	9D99BF15047623ED5BEBB92524141780
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

SELECT pg_catalog.setval('public.changelog_entry_seq', 77, true);

SELECT pg_catalog.setval('public.changepending_entry_seq', 77, true);

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

GRANT SELECT ON TABLE public.changetransactions TO vrk_client;

REVOKE ALL ON FUNCTION public.vrk_chain(before bytea, head public.changetransactions) FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_close() FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_equipment(html text) FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_folded(plain text) FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_hold_trees() FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_hold_workshift() FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_is_loader() FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_keep_log() FROM PUBLIC;

REVOKE ALL ON FUNCTION public.vrk_keep_rows() FROM PUBLIC;

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

REVOKE ALL ON FUNCTION public.vrk_zero_readed_time() FROM PUBLIC;

GRANT SELECT ON TABLE public.changehead TO vrk_client;

GRANT SELECT ON TABLE public.storeproperties TO vrk_client;

GRANT SELECT ON TABLE public.changeend TO vrk_client;

GRANT SELECT ON TABLE public.changelog TO vrk_client;

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

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.tables TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparamcategories TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparams TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.workerroles TO vrk_client;

