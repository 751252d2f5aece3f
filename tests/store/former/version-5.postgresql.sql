
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

CREATE TABLE public.logheads (
    size bigint NOT NULL,
    note text NOT NULL COLLATE pg_catalog."C"
);

ALTER TABLE public.logheads OWNER TO vrk_owner;

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
74	\\xd004fb62682be992dd88d22dbef8a2880bde470d3251938f34fc0f57f5521420	2026-11-23 01:48:48.794005+03
\.

COPY public.changelog (entry, number, tablename, rowkey, event, oldrow, newrow) FROM stdin;
1	1	StoreProperties	schema	601	\N	["schema","5"]
2	1	StoreProperties	codec	601	\N	["codec","Windows-1251"]
3	1	StoreProperties	timeZone	601	\N	["timeZone","Europe/Moscow"]
4	1	StoreProperties	epoch	601	\N	["epoch","6FEC4113AB6CD5239B612CBB89248EDB"]
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
52	49	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795279726,1795279726,1795366126]
53	50	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795366126,1795366126,1795452526]
54	51	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795380526,1795380526,1795423726]
55	52	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795279726,1795279726,1795366126]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795279726,1795279726,1795366126]
56	53	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
57	54	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
58	55	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
59	56	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
60	57	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
61	58	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
62	59	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795285726,1795285726,null,null,null,"Принята сводка погоды.",0,null]
63	60	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795333726,1795333726,null,null,null,"Проверена связь с подстанциями.",0,null]
64	61	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795366126,1795366126,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
65	62	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795369726,1795369726,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
66	63	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795373326,1795373326,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
67	64	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795373326,1795373326,null,null,1795373926,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
68	65	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795376926,1795376926,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
69	66	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795380526,1795380526,1795380466,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
70	67	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795384126,1795384126,null,null,null,"Черновик: осмотр оборудования.",1,null]
71	68	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795385926,1795385926,null,null,null,"Черновик: доклад бригады.",1,null]
72	69	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795381726,1795381726,null,null,null,"Схема сверена по щиту.",0,null]
73	70	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795366726,"Уточните период смены.",0]
74	71	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795377526,"Исполнение доложить до конца смены.",1795378126]
75	72	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795339726,"Приложите сводку к записи.",0]
76	73	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
77	74	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.

COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.

COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	BFAF2FF68E0B67D342D7F2A2B093B3FF	postgres	1	1795387728	\\xc544fd4a60bc213ccd21d0b68dcae30bf558c0bfab49a077b6f0c03dd75a83f7
2	0469DBFB3BECECADC04FE6F70315589C	postgres	1	1795387728	\\xf3eb01292caa94000d30f5c9961dc715228eaa625a40f7cd6814f9c76d693cad
3	0D544710EED82D32491540B820A0F01E	postgres	1	1795387728	\\x654f971b005348e1f070573390b03dc5670832acdb5f1060e318fd64e1cba466
4	0BB0B4AE5808C7057D12470A287214B0	postgres	1	1795387728	\\xe16c2b5020a8b667508dc901b2c340ece41fd0014f9b79eae09ee7c710fd9334
5	6EB96BFFE799C91F1C1BA9697F714530	postgres	1	1795387728	\\x13044d77e5eb44d5c59a1132198735494e0ba40f6995e791c92084dfd7a5f98b
6	BC78895F336A8903B6836452800AF179	postgres	1	1795387728	\\x284b4d0fb2b17694ee65637e8efbf387c47e6ea17a7386d23e346a26a97d2e3e
7	2BC40625130562682F5242595D01C016	postgres	1	1795387728	\\x0ab38c8c67e2a977c21ba0ed574d62c859aa9d89e153b9ced1b5373ac265060b
8	B5E467AB26143CA8CDDEC89F3C184BE5	postgres	1	1795387728	\\x40bf336c6f1a99747bad676ff16d7f3d0c54b0666d4b3cf33d4327ed095c9b6d
9	881BACD28B53895259E97A4ED0716E6E	postgres	1	1795387728	\\xe835da3f283877289a934b394b19889bee20359566e2ee671ec53944ea56058f
10	177C5490A74B5DFDBEE78E7FB1355914	postgres	1	1795387728	\\xaf51b17addd8f7040361d360b08da719e65159c0c960629b0190179f500caec9
11	181E52ACE7E90BD4AD916A1A63B6946F	postgres	1	1795387728	\\xbb489402d677db56df2cd41ab835d081a3caefc922cd28be93af5ce84cd5e114
12	E88E86DAB4E9E6F913D93C9EED8E3650	postgres	1	1795387728	\\x3e859f69161886c2bdd934d348ac619eccd48038d1309fb3c1e88c8f5b651046
13	2BD344ED6EEAD8EE366F472D44E120C1	postgres	1	1795387728	\\xf1ff376b7187dd5c80a41dc60ee17b2ed25e09215e9f07e4ef59936e85994712
14	60993F1FCDE69E1963B4FC52BF821F6E	postgres	1	1795387728	\\x9a477b4ca37636679692949d2f319e287a762fccd7e5107068a3868d7bcfdd45
15	994A821A8FE9BFABCFB215B11387F129	postgres	1	1795387728	\\xd2d782afad2d802d00edcdc51dc9c84ef3307fac4ec32513db9bdba313a93cb5
16	F1C8EAD757E90FFFB5F2C0523BEC330A	postgres	1	1795387728	\\x1217aedf7f3b758ae6f2fdce88651be19a6e49b7b6297929c22ebe5d68d54d1a
17	26DEC20979F0AADF9709753844C7F489	postgres	1	1795387728	\\x8cbde7b3147c6b68650bdaf3164f92d0f123b5d96393e9716cd93fe7dd55e1fe
18	40AAB8FA5885EF111F68AF5D4CDFBE2E	postgres	1	1795387728	\\x9ebda275d16a2b6e6f9088539a7b7274ee0f198b70822496db0c02f0407271e8
19	D66C451F9889B93BA9F18F08BA6D7ADF	postgres	1	1795387728	\\x6e7c65911104bfba1edb6715049388eb29d323c4f81681b9d11a194fe2806f61
20	928E5B85227D24C8555549FD6D2EE1BF	postgres	1	1795387728	\\xae4c5ce9e8062d2d2cb01879e39d20d0736cd3edb7f73ef09f5892171c8ad739
21	3FD1E9553B5B08F80DFFE317FC7F7284	postgres	1	1795387728	\\xed39c82787e3c627e22b45c6144af818d9889b935ff79dcc0a744e68c4486428
22	EB425C85BCD7AAEF2146BF802B548C8A	postgres	1	1795387728	\\x9e72ef90c717639ae7e874a5a74c1bdee2d92acbbcba01db6111cf9129fbccb4
23	983E5F072DCB8B1C7E007238CAD7EC42	postgres	1	1795387728	\\x70917f9b3cb676e4884838955e40a9f5a524bdb89f55b68a93e48134d1b15994
24	DAAD3954C8EE30D99E43C1EAC6FA3409	postgres	1	1795387728	\\x7db873fe053ce4498cf13d0d88aaecfd49ee30fb8237aa89ec60c071268ce8c6
25	E2D6094CD7B281C4F0A7A807A8E77C3F	postgres	1	1795387728	\\x7c0b08fb9743bc383cd4acc6c905a78ffb87dfce4c145d5f54ffbdf1e6e3c34a
26	5F4D9D1CDEC0C091EAD34A2C20036714	postgres	1	1795387728	\\xb085abf6423c43b770250339557a35fbe3b3f3b185ccbb4d3857e516d6288022
27	2EC87E3A0D2C1F20BCC827CBDB54131E	postgres	1	1795387728	\\x2695ecd6601b6f968e5fbee068412b69e832be0a979ebb93b8236cfef6d315f0
28	23AC8646CCBCFAADD3B41046E5A69099	postgres	1	1795387728	\\x76c2bec283555cf445a41d347d196fa2ab42318351151a373dc891454295ef35
29	10C834C403820D2954FA3BF67D9FBA39	postgres	1	1795387728	\\x3ee3cd4e9aa69fd87541a72f0526db770ba2ab64be5cf8c9d268716fd6bc984c
30	6844ADA46082D080D14CA798C0306167	postgres	1	1795387728	\\x354e85c4b70956db7dc7b004199302c28805d7724c6a7563e6f1127383e7abd3
31	0CC6EA3ADECCC90DC3CD6DB88EB4AD41	postgres	1	1795387728	\\xf758151402adffc547594077cca39cdc87f8f912cc730f42a20acad136558a64
32	1BB901F6C0CB96B61B98B7428375A489	postgres	1	1795387728	\\x18384e049091a10d48c5649d8969aa7cd72f427b7a8cfeca5a64e89d62be7d1f
33	2DAEAE178ECD88648E81E0224FF61A4C	postgres	1	1795387728	\\x64ccacf18ceb5266d06220f13451032a38db6f95a81fd3efa2d9182ab886284c
34	19187B7DFE8A47567A7BDA68913D5967	postgres	1	1795387728	\\x5e7f71e0cb21671cfeedf7049c898576eca686f988a72dd5191079654bcc70b1
35	9C1B7A9D500D4EA929D9A2E2FB2FDBED	postgres	1	1795387728	\\x242f7c4d5617177d0e99caf6ef73f44fbccbac9a9af4de5bdc66fb7f9a4b3388
36	8F6AC732F20E65F028CBDE14854AEE9F	postgres	1	1795387728	\\xe0a9ea84ce4a306cc4357471cb3fd2738e78a4073357702c753e4c130aa9bcdf
37	A1B749AFB8898BBB78840DD42FFA1C7E	postgres	1	1795387728	\\x55b1c7128917db7df8a3c138e897140dac0492a336fc1b7144e3d0b16a2bc6fa
38	B53F0AD729EDF8AA27319CFFA0750CA3	postgres	1	1795387728	\\xd5724e752554cbe5bbc8d208a7dca0bc6e9ad330135349ae3ac4671fdbf809c8
39	47CD4843122CBAF9AD3B9E3A98DE28BD	postgres	1	1795387728	\\x08ffd249051c43c3c9f50b129d88a36faa5013f8961a2198517ebf82d801fa09
40	67BEA49F072B6DBF8E559649B3A28164	postgres	1	1795387728	\\xffbd787d137791a9994ce9ea05555cc0f61daf132898aacf5fd31606b394cf33
41	9FB53EBB6D0CDD10BC1466A33D5912ED	postgres	1	1795387728	\\x3235c44b8de2e59e63b1f2cdf7a43630c98ffcb9cabfb5a7b46eb25d34823b83
42	35BD5ACDD345F476D83FF806DCB75727	postgres	1	1795387728	\\x262057dce99e428f87f29f1650f8675f747ccd05f8b3d614f01fffd8834e8546
43	C8061A7BF3F28AA47426BD208DC50D98	postgres	1	1795387728	\\xa7d99039d461a03598329e4b96d750df6781e235f32ac44415c40d67d5c75a4a
44	34893CD94C6141C8671958ADBDC65F82	postgres	1	1795387728	\\x59926b3baa54df5a1c0a8d9e3eb84fc437ab7ca6d53237971dfc38a7946c11a4
45	0B2BB0B79553CC6AD570CA7A7401E32A	postgres	1	1795387728	\\x77b9800af0d443653cc99d2e7d3ab5cea3ee581c45979d643b95ba2d137b51ce
46	96DC5B726582CE306CEFDFC117DB6034	postgres	1	1795387728	\\x422f7ff11e41ad1599ce522ad3157309b5c154357bcc2c5381e66f67f7a61029
47	673F8012B0CD43CE2F6975E30B862BDD	postgres	1	1795387728	\\x9053950c35e3d39bbb2d61c8e081275cbc43a3fb69bc9e3096174421d67f34d6
48	642DF09EB15B66C0045D66BD95C3ADFE	postgres	1	1795387728	\\x8f69823c0db512944e9bb7d3811810821f8b9b6f9397e65d33a9c902726467ef
49	2EF59E1D2523A424E92B10A70D66DA69	postgres	1	1795387728	\\x4ca845c6bf79777b39c14d43f66fdcb3bb08d5506ef95861db09b2d11f682725
50	191636337E00A74D21236947D4C5587B	postgres	1	1795387728	\\x66a591fdac3fdc4b11d983fb88c162c27ca464bd6df27fabc368e14d1e622629
51	1931BBB0559E1AF18024861DE31FED18	postgres	1	1795387728	\\xf916f1aaf94aae93540b13e955728b86e271648fa7271513220affdc2714a40c
52	691B8F8600BC61E2F69ACF7943883111	postgres	1	1795387728	\\xd6a182d4a67f0bbedb52f0dd00704f0b27e468cb5591a449344c51ee047b5cc1
53	96397DD3D606847445A8EE238072F02E	postgres	1	1795387728	\\x37c01142fd83b2faf517d1ef65637c7aba4fa52789800fdfa317362d4cfb9060
54	5AE4DEDDBCB7815F7766CBE47B5FF376	postgres	1	1795387728	\\x1d8eaf48f6b8562c947b141b40be308569dca5fe7e36f8bf71d491fea3091925
55	24B5020700B37E12D3E9C56ABB2406DD	postgres	1	1795387728	\\x8f9436dba3260bf593cb033c2f8fb465da0cbdd9a21c9622c35a4858fe56c378
56	7F6EF12BFBA862C1AB358E71A41E6256	postgres	1	1795387728	\\x99e4e3c7e565c620135507297ddd4c1b89179924ff0c74df52a6c848a2a7c22e
57	BB84195A15036D52DC56162B7CE41421	postgres	1	1795387728	\\x5cd3a73867e8eac55a6515f328e4ddb0caae7a9c4c5de3dc94b5d5b329472824
58	3FBF6F76DA9A4FA188ADCD0F588E8F68	postgres	1	1795387728	\\xd85b323afcbb390fc13ff1bdeb012e56ab7ff8d63b5c9a0f856aae0379299cab
59	BC546608D73FC88E9D6FE4E1E5770148	postgres	1	1795387728	\\x636d27ed72db0a2c878e9bc230e169c4c9313e6efa92a55aea97e2c13204aee4
60	552BB69D61C023C66618C90A967D4A95	postgres	1	1795387728	\\xbcc74ffa3ed25dcff30a2461498464cfce7660ebe44e117d960c38fb5a4f6164
61	4858242B0FB21E3B8EA02421B49933B6	postgres	1	1795387728	\\xc2fbe04ecea0781b72c4d16c16976c9e08a342ee03a2ab95a3778b5021e357fc
62	5B2B827067A746EBE5A7222EE66E2EF5	postgres	1	1795387728	\\x63c048023b8d14deb65ceb096cfe5a576e80329884c6c881a221e58d7a44846f
63	E2FCA6E223FA062A815AB9ABBAB766D0	postgres	1	1795387728	\\xd2c56808a786e3c0f710485562540ec065b51a2724853c4a255105ee6047339e
64	1FC2F7AE44B455CA1BA5495C2B67C2EA	postgres	1	1795387728	\\x4e5a4092f051ee90edb0f7efce12b8e065a2d10ee6396039ee284b248ebd19f3
65	3DB716B2740EA0AA23370BC2C94E0895	postgres	1	1795387728	\\x3818ba360ce9027fce3a0da10334504d7bdc2664b9aa046797aa910e7f8a22d1
66	F77EE859294292D93B7F0D974E86F4F5	postgres	1	1795387728	\\x9e67fa09ea7cae1ce4c4e598b5b52ce444935384693dc051bb01d61515062413
67	1DE15E2C9B1DA0485D6B7E302A1E4806	postgres	1	1795387728	\\x5ab4d98d846a9f75d94b4a7cbb64f2a5976338fc9502868965634fc657cb10b0
68	DF8C3B63653F736EFD73716EF28D307B	postgres	1	1795387728	\\xdc99283f8b912616955dd6a25d6d0ee9b5b2c06c5b4c8a5d13e0d487bfe8e27f
69	0B23D1619AC9D527C82E459A9022BC16	postgres	1	1795387728	\\xd09ef816f17564aa467c44beeee46ba1e5e60181ae2990322a6fa2eefa600fe1
70	D67333734F1010B5A458E76470D79BA3	postgres	1	1795387728	\\x868ccbad61ec40d66595aa4dc1c43445aad33d4e252386fef5ea303cceb21489
71	09AF0E695346F263A6C0BB8F5AEF93B8	postgres	1	1795387728	\\x7c884d6c167310ac3d7d30d2a9d5921ae22a9bf8c8e35e8ee586641256b2e5bf
72	7E677E8E54B2E7E5B516A2F21637FE52	postgres	1	1795387728	\\x75172d1162e6861cef023d00d133f9b3c3ff0667faf679ee9909f05769b8782c
73	83961BA559461E9537BB4CCF07DCDCFD	postgres	1	1795387728	\\xeed20825728b110aaf0723b8c524e359fe36f47a0c69ac862f363c4bdf0e169a
74	9B7988BD4D03473A37AD23C2A96A0F2E	postgres	1	1795387728	\\xd004fb62682be992dd88d22dbef8a2880bde470d3251938f34fc0f57f5521420
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
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795366726	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795377526	Исполнение доложить до конца смены.	1795378126
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795339726	Приложите сводку к записи.	0
\.

COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.

COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795285726	1795285726	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795333726	1795333726	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795366126	1795366126	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795369726	1795369726	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795373326	1795373326	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795373326	1795373326	\N	\N	1795373926	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795376926	1795376926	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795380526	1795380526	1795380466	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795384126	1795384126	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795385926	1795385926	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795381726	1795381726	\N	\N	\N	Схема сверена по щиту.	0	\N
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
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795366126	1795366126	1795452526
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795380526	1795380526	1795423726
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795279726	1795279726	1795366126
\.

COPY public.logheads (size, note) FROM stdin;
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
REC_PAST_1	1795285726	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'погод' 'принят' 'сводк'
REC_PAST_2	1795333726	'a:WORKER_KUZNETSOV' 'd:DEP_CDS' 'record:' 's:0' 'подстанц' 'провер' 'с' 'связ'
REC_OPENING	1795366126	'00' '08' '20' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'v' 'гр' 'и' 'иван' 'по' 'приня' 'с' 'смен'
REC_MESSAGE	1795369726	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'запрош' 'нагрузк' 'состоян'
REC_REPLACED	1795373326	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:2' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_SUCCESSOR	1795373326	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_ORDER	1795376926	'35' '7' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:35' 'e:кв' 'e:ольховк' 'e:пс' 'record:' 's:0' 'кв' 'команд' 'на' 'ольховк' 'отда' 'отключ' 'пс' 'ф'
REC_TRIP	1795380526	'110' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:110' 'e:вл' 'e:заречн' 'e:кв' 'e:полев' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'на' 'отключ' 'полев' 'пс'
REC_DRAFT_IVANOV	1795384126	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:1' 'оборудован' 'осмотр' 'черновик'
REC_DRAFT_PETROV	1795385926	'a:WORKER_PETROV' 'd:DEP_CDS' 'record:' 's:1' 'бригад' 'доклад' 'черновик'
REC_ZAR	1795381726	'a:WORKER_SMIRNOV_ZAR' 'd:DEP_ZAR' 'record:' 's:0' 'по' 'свер' 'схем' 'щит'
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
schema	5
codec	Windows-1251
timeZone	Europe/Moscow
epoch	6FEC4113AB6CD5239B612CBB89248EDB
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

ALTER TABLE ONLY public.logheads
    ADD CONSTRAINT logheads_pkey PRIMARY KEY (size);

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

GRANT SELECT ON TABLE public.logheads TO vrk_client;

GRANT SELECT ON TABLE public.logtiles TO vrk_client;

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

