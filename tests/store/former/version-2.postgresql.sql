
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
    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN
        PERFORM pg_advisory_xact_lock('LogbookCatsTemplate'::regclass::oid::bigint);
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
    PERFORM vrk_log('Shifts', CASE TG_OP WHEN 'DELETE' THEN OLD.KeyLink ELSE NEW.KeyLink END,
        CASE TG_OP WHEN 'INSERT' THEN 601 WHEN 'UPDATE' THEN 602 ELSE 603 END,
        CASE WHEN TG_OP <> 'INSERT' THEN '[' || concat_ws(',', coalesce(to_json(OLD.KeyLink)::text, 'null'), coalesce(to_json(OLD.DepartmentKey)::text, 'null'), coalesce(to_json(OLD.name_)::text, 'null'), coalesce(to_json(OLD.startTime)::text, 'null'), coalesce(to_json(OLD.endTime)::text, 'null')) || ']' END,
        CASE WHEN TG_OP <> 'DELETE' THEN '[' || concat_ws(',', coalesce(to_json(NEW.KeyLink)::text, 'null'), coalesce(to_json(NEW.DepartmentKey)::text, 'null'), coalesce(to_json(NEW.name_)::text, 'null'), coalesce(to_json(NEW.startTime)::text, 'null'), coalesce(to_json(NEW.endTime)::text, 'null')) || ']' END);
    RETURN NULL;
END $$;

ALTER FUNCTION public.log_shifts() OWNER TO vrk_owner;

CREATE FUNCTION public.log_tables() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF TG_OP = 'UPDATE' AND NEW.KeyLink <> OLD.KeyLink THEN
        PERFORM vrk_refuse('Ключ строки не изменяется.');
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
    IF TG_OP <> 'DELETE' AND NEW.ParentKey IS NOT NULL THEN
        PERFORM pg_advisory_xact_lock('TemplateParamCategories'::regclass::oid::bigint);
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
    PERFORM vrk_refuse('Автором записи может быть только тот, кто её вносит.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND NOT EXISTS (SELECT 1 FROM LogbookRecords
                      WHERE KeyLink = NEW.OriginRecordKey AND WorkerKey = NEW.WorkerKey);
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
      AND coalesce(NEW.SecondMarkWorkerKey, '') <> ''
      AND NEW.SecondMarkWorkerKey NOT IN (SELECT KeyLink FROM CurrentWorkers);
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
    PERFORM vrk_refuse('Автор и смена записи не изменяются.')
    WHERE (NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.ShiftKey IS DISTINCT FROM OLD.ShiftKey);
    PERFORM vrk_refuse('Утверждённая запись не изменяется.')
    WHERE OLD.status IS DISTINCT FROM 1
      AND ((NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
           OR (NEW.executionTime IS DISTINCT FROM OLD.executionTime)
              AND (OLD.status IS DISTINCT FROM 0 OR NEW.executionTime IS NOT NULL));
    PERFORM vrk_refuse('Записи изменяют работники открытой смены.')
    WHERE (NEW.status IS DISTINCT FROM OLD.status OR NEW.executionTime IS DISTINCT FROM OLD.executionTime OR NEW.ReceiverWorkerKey IS DISTINCT FROM OLD.ReceiverWorkerKey OR NEW.OriginRecordKey IS DISTINCT FROM OLD.OriginRecordKey OR NEW.recordTime IS DISTINCT FROM OLD.recordTime OR NEW.eventTime IS DISTINCT FROM OLD.eventTime OR NEW.firstMarkTime IS DISTINCT FROM OLD.firstMarkTime OR NEW.html IS DISTINCT FROM OLD.html OR NEW.direction IS DISTINCT FROM OLD.direction)
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
    WHERE coalesce(OLD.WorkerKey, '') IN ('', NEW.VisaWorkerKey);
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
           OR coalesce(NEW.CloseWorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
           OR NOT (NEW.CloseWorkerKey IS NOT DISTINCT FROM OLD.OpenWorkerKey
                   OR EXISTS (SELECT 1 FROM LogbookWorkersWorkshift
                              WHERE WorkshiftKey = OLD.KeyLink AND opening = 1
                                AND WorkerKey = NEW.CloseWorkerKey)));
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
    SELECT sha256(vrk_part(before) || vrk_part(head.number::text) || vrk_part(head.batchKey) || vrk_part(head.login)
                  || vrk_part(CASE WHEN head.loader <> 0 THEN 'loader' ELSE 'person' END)
                  || vrk_part(head.time::bigint::text)
                  || coalesce((SELECT string_agg(vrk_part(tableName) || vrk_part(rowKey) || vrk_part(event::text)
                                                 || vrk_part(oldRow) || vrk_part(newRow), '' ORDER BY entry)
                               FROM ChangeLog WHERE ChangeLog.number = head.number), ''));
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
    IF event = 601 AND (rowKey = '' OR rowKey ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
    END IF;
    INSERT INTO ChangePending (xid, isFirst, tableName, rowKey, event, oldRow, newRow)
    VALUES (pg_current_xact_id(), NOT EXISTS (SELECT 1 FROM ChangePending WHERE xid = pg_current_xact_id()),
            vrk_log.tableName, vrk_log.rowKey, vrk_log.event, vrk_log.oldRow, vrk_log.newRow);
END $$;

ALTER FUNCTION public.vrk_log(tablename text, rowkey text, event integer, oldrow text, newrow text) OWNER TO vrk_owner;

CREATE FUNCTION public.vrk_part(part bytea) RETURNS bytea
    LANGUAGE sql IMMUTABLE
    AS $$
    SELECT convert_to(coalesce(length(part), 0)::text || ':', 'UTF8') || coalesce(part, '');
$$;

ALTER FUNCTION public.vrk_part(part bytea) OWNER TO vrk_owner;

CREATE FUNCTION public.vrk_part(part text) RETURNS bytea
    LANGUAGE sql IMMUTABLE
    AS $$
    SELECT vrk_part(convert_to(part, 'UTF8'));
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

CREATE VIEW public.currentworkers AS
 SELECT workers.keylink,
    workers.departmentkey
   FROM (public.currenttransaction
     JOIN public.workers ON ((workers.userkey = currenttransaction.userkey)))
  WHERE (COALESCE((workers.deleted_)::integer, 0) = 0);

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

CREATE TABLE public.logbooktemplates (
    keylink text NOT NULL COLLATE pg_catalog."C",
    categorykey text COLLATE pg_catalog."C",
    nameloc text COLLATE pg_catalog."C",
    html text COLLATE pg_catalog."C"
);

ALTER TABLE public.logbooktemplates OWNER TO vrk_owner;

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
73	\\x23e0d7af230475a6ba6ff4aaa136ca905c012ed075a32907bb2127dec503eb55	2026-11-21 23:15:10.958465+00
\.

COPY public.changelog (entry, number, tablename, rowkey, event, oldrow, newrow) FROM stdin;
1	1	OrgTypes	TYPE_CENTER	601	\N	["TYPE_CENTER","Диспетчерский центр"]
2	2	OrgTypes	TYPE_NETS	601	\N	["TYPE_NETS","Электросетевая организация"]
3	3	Organizations	ORG_CENTER	601	\N	["ORG_CENTER","TYPE_CENTER",null,"ДЦ «Северная дуга»"]
4	4	Organizations	ORG_NETS	601	\N	["ORG_NETS","TYPE_NETS",null,"Электросети «Ключевой край»"]
5	5	Departments	DEP_ODS	601	\N	["DEP_ODS","ORG_CENTER",null,"ОДС"]
6	6	Departments	DEP_CDS	601	\N	["DEP_CDS","ORG_NETS",null,"ЦДС"]
7	7	Departments	DEP_ZAR	601	\N	["DEP_ZAR","ORG_NETS","DEP_CDS","Заречная диспетчерская группа"]
8	8	Users	USER_IVANOV	601	\N	["USER_IVANOV","ivanov","Иванов Иван Иванович",0]
9	9	Users	USER_PETROV	601	\N	["USER_PETROV","petrov","Петров Пётр Петрович",0]
10	10	Users	USER_SIDOROVA	601	\N	["USER_SIDOROVA","sidorova","Сидорова Анна Сергеевна",0]
11	11	Users	USER_SMIRNOV	601	\N	["USER_SMIRNOV","smirnov","Смирнов Олег Павлович",0]
12	12	Users	USER_KUZNETSOV	601	\N	["USER_KUZNETSOV","kuznetsov","Кузнецов Лев Андреевич",0]
13	13	Users	USER_VIEWER	601	\N	["USER_VIEWER","viewer","Наблюдатель",0]
14	14	UserRights	RIGHT_SIDOROVA	601	\N	["RIGHT_SIDOROVA","USER_SIDOROVA","ADMINISTRATOR"]
15	15	UserRights	RIGHT_SMIRNOV	601	\N	["RIGHT_SMIRNOV","USER_SMIRNOV","ADMINISTRATOR_OPERLOG_LOCAL"]
16	16	Workers	WORKER_IVANOV	601	\N	["WORKER_IVANOV","USER_IVANOV","DEP_CDS","Иван","Иванов","Иванович",5,0]
17	17	Workers	WORKER_PETROV	601	\N	["WORKER_PETROV","USER_PETROV","DEP_CDS","Пётр","Петров","Петрович",4,0]
18	18	Workers	WORKER_SIDOROVA	601	\N	["WORKER_SIDOROVA","USER_SIDOROVA","DEP_CDS","Анна","Сидорова","Сергеевна",5,0]
19	19	Workers	WORKER_SMIRNOV_ZAR	601	\N	["WORKER_SMIRNOV_ZAR","USER_SMIRNOV","DEP_ZAR","Олег","Смирнов","Павлович",0,0]
20	20	Workers	WORKER_SMIRNOV_ODS	601	\N	["WORKER_SMIRNOV_ODS","USER_SMIRNOV","DEP_ODS","Олег","Смирнов","Павлович",0,0]
21	21	Workers	WORKER_KUZNETSOV	601	\N	["WORKER_KUZNETSOV","USER_KUZNETSOV","DEP_CDS","Лев","Кузнецов","Андреевич",3,1]
22	22	Roles	ROLE_CDS_SENIOR	601	\N	["ROLE_CDS_SENIOR","DEP_CDS","Старший диспетчер"]
23	23	Roles	ROLE_CDS_DISPATCHER	601	\N	["ROLE_CDS_DISPATCHER","DEP_CDS","Диспетчер"]
24	24	Roles	ROLE_ZAR	601	\N	["ROLE_ZAR","DEP_ZAR","Диспетчер группы"]
25	25	WorkerRoles	WROLE_IVANOV_1	601	\N	["WROLE_IVANOV_1","ROLE_CDS_SENIOR","WORKER_IVANOV"]
26	26	WorkerRoles	WROLE_IVANOV_2	601	\N	["WROLE_IVANOV_2","ROLE_CDS_DISPATCHER","WORKER_IVANOV"]
27	27	WorkerRoles	WROLE_PETROV	601	\N	["WROLE_PETROV","ROLE_CDS_DISPATCHER","WORKER_PETROV"]
28	28	WorkerRoles	WROLE_SMIRNOV	601	\N	["WROLE_SMIRNOV","ROLE_ZAR","WORKER_SMIRNOV_ZAR"]
29	29	Shifts	TIMETABLE_CDS_DAY	601	\N	["TIMETABLE_CDS_DAY","DEP_CDS","Дневная",28800,72000]
30	30	Shifts	TIMETABLE_CDS_NIGHT	601	\N	["TIMETABLE_CDS_NIGHT","DEP_CDS","Ночная",72000,28800]
31	31	Shifts	TIMETABLE_ZAR_DAY	601	\N	["TIMETABLE_ZAR_DAY","DEP_ZAR","Дневная",28800,72000]
32	32	LogbookCatsTemplate	CAT_COMMON	601	\N	["CAT_COMMON",null,null,null,"Оперативная смена"]
33	33	LogbookCatsTemplate	CAT_COMMON_SUB	601	\N	["CAT_COMMON_SUB","CAT_COMMON",null,null,"Команды и переключения"]
34	34	LogbookCatsTemplate	CAT_NETS	601	\N	["CAT_NETS",null,"TYPE_NETS",null,"Технологические нарушения"]
35	35	LogbookCatsTemplate	CAT_CDS	601	\N	["CAT_CDS",null,null,"DEP_CDS","Погода"]
36	36	LogbookCatsTemplate	CAT_ZAR	601	\N	["CAT_ZAR",null,null,"DEP_ZAR","Сообщения"]
37	37	LogbookTemplates	TPL_OPEN	601	\N	["TPL_OPEN","CAT_COMMON","Приём смены","<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Диспетчер</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">Период смены</a>."]
38	38	LogbookTemplates	TPL_CLOSE	601	\N	["TPL_CLOSE","CAT_COMMON","Сдача смены","<meta name=\\"template\\" content=\\"close_wshift\\">Смену сдал <a href=\\"parameter:name=employee_fio;locname=Сдал\\">Сдал</a>."]
39	39	LogbookTemplates	TPL_ORDER	601	\N	["TPL_ORDER","CAT_COMMON_SUB","Команда на производство переключений","<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">Оборудование</a>."]
40	40	LogbookTemplates	TPL_TRIP	601	\N	["TPL_TRIP","CAT_NETS","Автоматическое отключение линии","<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">Линия</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">Подстанция</a>."]
41	41	LogbookTemplates	TPL_TEXT	601	\N	["TPL_TEXT","CAT_CDS","Штормовое предупреждение","Получено штормовое предупреждение: усиление ветра."]
42	42	TemplateParamCategories	PARCAT_MAIN	601	\N	["PARCAT_MAIN",null,"Общие параметры"]
43	43	TemplateParams	PAR_TEXT	601	\N	["PAR_TEXT","PARCAT_MAIN","Текст","<a href=\\"parameter:name=text;locname=Текст\\">Текст</a>"]
44	44	TemplateParams	PAR_LIST	601	\N	["PAR_LIST","PARCAT_MAIN","Состояние связи","<a href=\\"parameter:name=list;locname=Состояние%20связи;list=исправна|имеет%2520неисправности|\\">Состояние связи</a>"]
45	45	Equipment	EQ_SUBSTATION	601	\N	["EQ_SUBSTATION",null,"DEP_ZAR","substation","ПС 110 кВ Заречная","110"]
46	46	Equipment	EQ_BAY	601	\N	["EQ_BAY","EQ_SUBSTATION","DEP_ZAR","bay","В 110 Полевая I цепь","110"]
47	47	Equipment	EQ_LINE	601	\N	["EQ_LINE",null,"DEP_CDS","line","ВЛ 110 кВ Полевая – Заречная","110"]
48	48	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795194909,1795194909,1795281309]
49	49	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795281309,1795281309,1795367709]
50	50	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795295709,1795295709,1795338909]
51	51	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795194909,1795194909,1795281309]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795194909,1795194909,1795281309]
52	52	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
53	53	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
54	54	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
55	55	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
56	56	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
57	57	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
58	58	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795200909,1795200909,null,null,null,"Принята сводка погоды.",0,null]
59	59	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795248909,1795248909,null,null,null,"Проверена связь с подстанциями.",0,null]
60	60	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795281309,1795281309,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
61	61	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795284909,1795284909,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
62	62	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795288509,1795288509,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
63	63	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795288509,1795288509,null,null,1795289109,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
64	64	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795292109,1795292109,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
65	65	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795295709,1795295709,1795295649,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
66	66	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795299309,1795299309,null,null,null,"Черновик: осмотр оборудования.",1,null]
67	67	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795301109,1795301109,null,null,null,"Черновик: доклад бригады.",1,null]
68	68	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795296909,1795296909,null,null,null,"Схема сверена по щиту.",0,null]
69	69	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795281909,"Уточните период смены.",0]
70	70	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795292709,"Исполнение доложить до конца смены.",1795293309]
71	71	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795254909,"Приложите сводку к записи.",0]
72	72	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
73	73	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.

COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.

COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	C4DC385945CCBBC2992D44DA51711481	loader	1	1795302910	\\x9f0a5cf4e03e9d1440ba36eefdc1344706821dac41b5719e77dcdbd85688ea63
2	2F03711AE21D122E51BD7E5CF9C8C493	loader	1	1795302910	\\x89cd50f536de2fa9d00536aaae523674b4160928843c7ebdfc0d6ab571e0d50d
3	90AF01AF3B028BD42F87FBBD3368436D	loader	1	1795302910	\\x44fdcd866f77e0d58785e4cf011db89ff07dc8c3bebd1d12d29680e1f69a2690
4	79E444F019C8FC962BC48D2E81F36B2C	loader	1	1795302910	\\x7c79825d66064918aefb62e0fa8bd153214343b4e49da311daf6b5f4f4ee28fd
5	CEDA7054C9950666026C2BA607A66B75	loader	1	1795302910	\\x90b8e6d3541794e0fdf089503fb145ca35abddc26993ec1b6e0e16a833381792
6	828DE3359184FBA9394E872BFB294AAC	loader	1	1795302910	\\xa31d95b028d02f12b519c421fc8a2a14a8e388c0759d3e675bdbd08e4a534917
7	EFF2845D88B323B540FB1D8CC4880FFC	loader	1	1795302910	\\x0eb4ce3586bb7758e7fa42f720fca4811db2dcd4d41c029909e53d1fe8dc35b4
8	CC38D69982FA5FB7A0A41A31B2EA00DA	loader	1	1795302910	\\x893466754a3a1ce6513af3914b3865791098bd383324e87d813e36382f4ec2da
9	56480BD03F01DFC3D0C4453806118179	loader	1	1795302910	\\x8c4b0892723c7e62e62ba655cbcc8bfd304ba2efdf90897fa25ae91513830418
10	A81243B5656EF362EE195D83478923B3	loader	1	1795302910	\\x0b52365c95ae874faf7ca9dcfa99f95af62285e56e24bda663192a8c84fb20e8
11	29170058C12DD5D28C21243FA386685A	loader	1	1795302910	\\xbc03003222f3a7588d38311a3f3800e25d577b4aa459cee56f2a1a9d48a1e3d8
12	D87D90B947F0CBBE08186F4489369A28	loader	1	1795302910	\\xd27fff64588daba5c161ab3569b214e4121db94811703acb297278b4705de864
13	77E0FFF761FDC24B017F7E23490AD1CE	loader	1	1795302910	\\x4f81619a279cdd518eca6b1aee3919a197a4fabd25e3367cdf829dc52817214b
14	82CBE3CFBB097AF823A1C30664C597AD	loader	1	1795302910	\\x5d0262ce35f384740194b560d6708966af1ecd5fbcf4cc63a4827ea9c1686409
15	98365609750B1F88D8E85F03D962BDF8	loader	1	1795302910	\\xf073d35b8cea2fef0d1fe4c3e250102afa1b3b82266c76841727b462afa4c3e4
16	F07DAC7069DBAE98ED2A0E91EC5CC2D2	loader	1	1795302910	\\xf437d9f552c0e28991ea541e5a8f483ce995eb1f8b0416d50ef958cda534b3fc
17	683FAD5043144F9FED1EBCA243B5F888	loader	1	1795302910	\\xd873276a729c15330fee3e9688386b4283c108f7560b756d4bb07cc1260e5c4d
18	6C2AB69655AE85A7E0B33C34B51D4394	loader	1	1795302910	\\x0980e1b9520ac514fd1018d720f888ad950c4bfdc9ad368053c29ce15a648a5a
19	53BA930559F0F99214A748C79E333C4C	loader	1	1795302910	\\x70e1d4489b040a63db2d4034220dec6b8b045904049b91c550254e8a50601ea7
20	F1BC018504F1167F82FA06409CA8954D	loader	1	1795302910	\\x3389ea6676a787c94c7b22d220ad7388be86bd2f6cc370e75b36e4adccd71a49
21	B8BA0DAA2BF1E1CACD729419E834DB20	loader	1	1795302910	\\x4a2deaa4fbc35a7be483a519b43163fa8fa23827b1f925836d2969a90ce8a9a8
22	89F1EF1D050FFF871E38B3F10DA51CA4	loader	1	1795302910	\\x110352bb514a45b26e2d2e7450e029d6253932c0ac9a7f6bb1dcf55689aab12a
23	9C9FBC9E3591077FB38CC81855CA9ED8	loader	1	1795302910	\\x322fb4d9cba1231cde3af30716900cbf3d5341dcb8c49dd5e1596d76683eb282
24	71E50EE5E2E708BDA88D130F123C3B41	loader	1	1795302910	\\xdea276f26ae09c9b15d75554c8ec6efedf699be6251c0f7ccee3b48c23a0c460
25	CD1CAC58F6C4FA0C207B921EA9A846C0	loader	1	1795302910	\\x22b59360969b48fea35cc3dafcfbca728239a269c6164506391fa92c6eedb936
26	B1A5111EB53CEDFB8C7E4F83927622C5	loader	1	1795302910	\\x3b0368ac052acfacb3c6882c8424f3c8ae4d13e63bb0fa30d6ae9e7ed98b38c5
27	E2128BE7011A9A5FBD0D4F321D5B1FA5	loader	1	1795302910	\\x9e6b133af3d51ad323ba58e4249e57fbd942aed54b55ed327d3ad49f329776c6
28	35A26850DAB30968B5829E8ECE73F819	loader	1	1795302910	\\xa5b8fc286f02f75f44358cbd2c2434182c36aa97f1fe227158d842ec51d9bb00
29	EE5B1CCA29B2C1A40C90AAF12392D7C1	loader	1	1795302910	\\x6dfaa183ac8424b78ec5243d21f52bd8b68b8100a0f3a800fd954b5f71759d3b
30	47FC2A63AE4BD1B2E227B074E5C1F5CB	loader	1	1795302910	\\x0cfccffedc871bfd9ffa63113175fd72fdccecaaad97cae5dbca4ca4950d7288
31	937B04135E7444F5BEA17552365FB808	loader	1	1795302910	\\x9d51b4ddea8589133b7d98af8f6a1fbbb31feec18fe6bf7fee6de63943cf900e
32	EAEC679B3DBE3FD38FDD076CEB2408D6	loader	1	1795302910	\\x661242899c48bbfe77dc5603b2a4faef505f4ac45961921c2349646a1a157f29
33	CD291096D3027F3781165B921739FC4F	loader	1	1795302910	\\x1f7025a86a90304c7cbed62be5b997d07c0fdf3a0c256d56e41e5cd88c40614d
34	4CA1B6B2FC19E5C53520C82649ADDB6E	loader	1	1795302910	\\x7505df7a8dd36d8d500a86bdb764183dec2dc1867892dd4d6db447d16dda8968
35	C6D8145CB14C6F7BE4AEC27B4D5B06B2	loader	1	1795302910	\\xe3d6f6d8015ef7ef740160a998cfe588201241c2475ac114d79773c672ec15e9
36	E160F149FF4B552618BFEFFA7E30DA51	loader	1	1795302910	\\xaf2c2b478ba98dad078755b09f40be3ae04a8cec5f2e729d06a7c4454a49f34a
37	209C7F9CB8922C11F07A7719382F7751	loader	1	1795302910	\\x832e50843f15170cef73dff18eba75275e722fb69f7a3c486822eb20eafa5baf
38	AD771F1E0BA472B39006FB510D288E3B	loader	1	1795302910	\\x83979efc267c593070059406a92178ffb1b671cc121a414ba538fdfdfe8b219d
39	A99C1F58BBF16EC5688548B9D742F890	loader	1	1795302910	\\xd11915c5aa019649e09c182aa3fb2e2d37c9d08821a849b210d81bc3d969ad1c
40	47A69F3233F23A4D4F92AC51146AA476	loader	1	1795302910	\\x077417dd5194a79f17f6a40cbb29cf076ca05b9fd238d7ea3dbe6521882b5de4
41	150510899D795A5F3FAFF32A580B2EA4	loader	1	1795302910	\\x9b724d202d992a6893787a8ecb2898992cbc6fd34a620006c54b506d775c4044
42	2704AFC96FCB988EFFB48A4B1D05DBC7	loader	1	1795302910	\\x78524133f7ce1fb40903f0b6b9548dedb7b1beee55c17068193112ea0c9d526b
43	368449AFF79A5A66674D1E9F182FB192	loader	1	1795302910	\\x2bebeddf31bc3b6e237b7eda9bdeea3ffc82af81e8ef110f79d0dc161faf106c
44	7FE7ACA18E3E935E72D464AD6F255AF8	loader	1	1795302910	\\x280da03614862f437c8e968c1edd540c4981934619d0ed09a9750356d2a0db08
45	718FF8E4E90E703C4B00B866404DA8F8	loader	1	1795302910	\\xa9d04a35516bd482306c92d76f9d8f4f5508f6052cdf7951b4a7f16989f6e4fb
46	077FF6B0293020B5BFC690672A3ACEED	loader	1	1795302910	\\xdd39e10ab7d7ddb20aeff239532dfa430937e53a03a36a312ceb7b4956f5e2a1
47	372B2B8153CD79FD4474668CA9C745C0	loader	1	1795302910	\\x9c97211b9fa31b755cb2758e950e1091ec70dabb446bd454e6a114443e86e266
48	0040E846BAE54821FF5BB4FED441FB29	loader	1	1795302910	\\xa9a00a15def7afcfd14b2e6268b5817274eb3498a3db247f08f7aff55d7011bd
49	FE720D1ECB1282EA5D7B8C88CCA37F46	loader	1	1795302910	\\x1751fa78386c124c5fe8d7daa0145b0b16d2c4ab43516ac45ca4b1dfe4b7c7fd
50	DDE1E77791A51FD44F11F24974CE2E3D	loader	1	1795302910	\\xaac4171a1c938b8cab52e2affc1a0c46aaba8880e259c24484e0d53c007e17c3
51	A9D1FD073CE10AD3E40079E65AC6969B	loader	1	1795302910	\\x143bd05a8f9e4b11e8faf08b175b59bef6bd63efc4d1096f64dfa2d48a64fffe
52	2C74FB68C4B0DCA9E0588AD254AB0265	loader	1	1795302910	\\x5a7079fa064bfa522cbfea71e24e447179114a735d6b5c0088cb08cee8a0774c
53	88449F4C0E4D53DB405C425D50D9FDB8	loader	1	1795302910	\\x5ccab6874b3597f98f283c38d76464c7a45ae10fadda1db10b237a82c7ad6977
54	7E6B258FF2278D4D3ED225A238E70338	loader	1	1795302910	\\xdd5daf73754fb43c92e0ce03f8ed2d11608fa9cd24ffc96009b60379ea84b21f
55	731E2322B53C91B5B28D9FA81CD3E05C	loader	1	1795302910	\\x3aee5f0d696be54f49fa4a48fda3711c7e0ec580fc7e361f42b2df8fb4cb8d1c
56	FE9A9E50C3A3E95E2675F8884A1958B7	loader	1	1795302910	\\xe851c6d644e76ebef328e96de62e1e89a31a498e38a36a30ef6d779e6ed48714
57	1F52740342530D787C350ABFA54AF7ED	loader	1	1795302910	\\x1f91a8404b1ef53c53a262de5537e9d8f4fd5f84a288c36c2aedc1d5c39e6a01
58	7DEA540746E992B5569AD7E225E82C20	loader	1	1795302910	\\xa1484ca5215b7b870e62db3338d50250c311327ab6369b36cabebf675ec18b6a
59	26878F71B4C033CC816E2E43460072B5	loader	1	1795302910	\\xc368c16d2db7afcc756fc20b635c5c9f7a117de1bbcaa0c148c4766ab4d698c3
60	D41FD21F7055E035BB136044152725C4	loader	1	1795302910	\\xa8aafe15075eb2ca15c611a37aad5b7c667b4def88dfc66ef077e5fa0835983c
61	765D68239E7D00D266FA40A64E58AA65	loader	1	1795302910	\\x104e20a30e5ca81402749b52fbbc31278db41fe32ac1af1dfcabbcc622f764f2
62	8A736DCB90971BD4AAF10496A2DBAF81	loader	1	1795302910	\\xb347db99c3ce1986851fe8b62256b2d146575c02b88b64dffc77b6ba631f0193
63	81ABC7588288228E14BBCF40B953E5C0	loader	1	1795302910	\\xc487d28895d170328316e5b9d816fa47b9f1829e2c5103d497eb17be17bc5899
64	2E3D2F8B67096F29035379C9EC3C2042	loader	1	1795302910	\\xfc5dcbebf92ea0dc3f64637952c98242e22ea1b1853de9acf93022d9f26d4a7a
65	6D2EAD253F5529FDED43BA9B70D41815	loader	1	1795302910	\\x3967172e8bd9b22d6b5daadbfae389ea1906ecf4969a6fbe9ef77376f33f8048
66	3EC90E0680B1EAA7B7A224E6D04A1273	loader	1	1795302910	\\x96e5e2e3eec3ed4c3942f86b0d6f7b0e9b75c642459841d30a235b3eeabbf51a
67	B10B6ACF5DB874D001A8D14BFA47619B	loader	1	1795302910	\\xe704a1bdd8c4474d84699faddc602233a252a3ae0bf159d57d43232b5bac141c
68	7619970775ECCDFD2BB10B6100254D6E	loader	1	1795302910	\\x2872c63b1125c25c5cb23f82e47f5743131b3510d732be125e7d7e127f0fd744
69	20273814586C7DCB930B199167CE4B07	loader	1	1795302910	\\x3bd25f66aa82d5d192ac47526d0abd40025ca7bf7f7e529b71f19b605431f796
70	F4ACB3C747CA506806FFBB45201D8A5B	loader	1	1795302910	\\xb30726ebc0f0d655e28c92416171ad7a05ae005e4355adaea3af14f8ec975fe6
71	18292C843CD88A00F9BF3CC4FCFBA093	loader	1	1795302910	\\xcf8a44c742081f4613b7d3378fb8def47d60bb8ade8c16121e1277c09cddb7a5
72	490C8F8DEDB6C105CE5A387713475EE9	loader	1	1795302910	\\x17d087871ce843a461d24a587c5a5995d1aa255597e0a004d5f08f075f367ae2
73	D1339BDD3AACAA520A149EA9C2C15E45	loader	1	1795302910	\\x23e0d7af230475a6ba6ff4aaa136ca905c012ed075a32907bb2127dec503eb55
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
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795281909	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795292709	Исполнение доложить до конца смены.	1795293309
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795254909	Приложите сводку к записи.	0
\.

COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.

COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795200909	1795200909	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795248909	1795248909	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795281309	1795281309	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795284909	1795284909	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795288509	1795288509	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795288509	1795288509	\N	\N	1795289109	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795292109	1795292109	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795295709	1795295709	1795295649	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795299309	1795299309	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795301109	1795301109	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795296909	1795296909	\N	\N	\N	Схема сверена по щиту.	0	\N
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
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795281309	1795281309	1795367709
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795295709	1795295709	1795338909
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795194909	1795194909	1795281309
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
REC_PAST_1	1795200909	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'погод' 'принят' 'сводк'
REC_PAST_2	1795248909	'a:WORKER_KUZNETSOV' 'd:DEP_CDS' 'record:' 's:0' 'подстанц' 'провер' 'с' 'связ'
REC_OPENING	1795281309	'00' '08' '20' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'v' 'гр' 'и' 'иван' 'по' 'приня' 'с' 'смен'
REC_MESSAGE	1795284909	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'запрош' 'нагрузк' 'состоян'
REC_REPLACED	1795288509	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:2' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_SUCCESSOR	1795288509	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_ORDER	1795292109	'35' '7' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:35' 'e:кв' 'e:ольховк' 'e:пс' 'record:' 's:0' 'кв' 'команд' 'на' 'ольховк' 'отда' 'отключ' 'пс' 'ф'
REC_TRIP	1795295709	'110' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:110' 'e:вл' 'e:заречн' 'e:кв' 'e:полев' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'на' 'отключ' 'полев' 'пс'
REC_DRAFT_IVANOV	1795299309	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:1' 'оборудован' 'осмотр' 'черновик'
REC_DRAFT_PETROV	1795301109	'a:WORKER_PETROV' 'd:DEP_CDS' 'record:' 's:1' 'бригад' 'доклад' 'черновик'
REC_ZAR	1795296909	'a:WORKER_SMIRNOV_ZAR' 'd:DEP_ZAR' 'record:' 's:0' 'по' 'свер' 'схем' 'щит'
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
schema	2
codec	Windows-1251
timeZone	Europe/Moscow
epoch	E1B95F2E43DCF90E314239550BB9648A
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

SELECT pg_catalog.setval('public.changelog_entry_seq', 73, true);

SELECT pg_catalog.setval('public.changepending_entry_seq', 73, true);

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

GRANT SELECT ON TABLE public.changetransactions TO vrk_client;

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

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookcatstemplate TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookcomments TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookfiles TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbookrecords TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.logbooktemplates TO vrk_client;

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

