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
    AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.KeyLink), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN OLD;
END $$;

ALTER FUNCTION public.rule_categories_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_categories_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_categories_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_categories_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_categories_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_comments_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Комментарий удаляет только его автор.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    RETURN OLD;
END $$;

ALTER FUNCTION public.rule_comments_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_comments_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Комментарий пишут от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_comments_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_comments_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_comments_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_crew_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_crew_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_crew_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_crew_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_crew_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Строки состава смены не изменяются.')
    WHERE NEW.WorkshiftKey IS DISTINCT FROM OLD.WorkshiftKey OR NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey
       OR NEW.opening IS DISTINCT FROM OLD.opening;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_crew_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_departments() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_departments() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_equipment() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_equipment() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_fields() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_fields() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_files_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Файл удаляет только тот, кто его прикрепил.')
    WHERE coalesce(OLD.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers)
      AND EXISTS (SELECT 1 FROM LogbookRecords WHERE KeyLink = OLD.RecordKey);
    RETURN OLD;
END $$;

ALTER FUNCTION public.rule_files_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_files_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Файл прикрепляют от своего имени.')
    WHERE coalesce(NEW.WorkerKey, '') NOT IN (SELECT KeyLink FROM CurrentWorkers);
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_files_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_files_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Прикреплённый файл не изменяется.')
    WHERE NEW.WorkerKey IS DISTINCT FROM OLD.WorkerKey OR NEW.RecordKey IS DISTINCT FROM OLD.RecordKey
       OR NEW.fileName IS DISTINCT FROM OLD.fileName OR NEW.fileData IS DISTINCT FROM OLD.fileData;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_files_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_operlogcategories() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_operlogcategories() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_operlogtemplateparams() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_operlogtemplateparams() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_operlogtemplates() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_operlogtemplates() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_organizations() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_organizations() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_orgtypes() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_orgtypes() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_records_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Удалить можно только черновик.') WHERE OLD.status IS DISTINCT FROM 1;
    PERFORM vrk_refuse('Черновики удаляют работники открытой смены.')
    WHERE NOT EXISTS (SELECT 1 FROM CurrentOpenWorkshifts WHERE KeyLink = OLD.ShiftKey);
    RETURN OLD;
END $$;

ALTER FUNCTION public.rule_records_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_records_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_records_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_records_secondmark() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_records_secondmark() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_records_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_records_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_records_visa() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_records_visa() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_roles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_roles() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_shifts() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_shifts() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_tables() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_tables() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_templateparamcategories() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
        PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_templateparamcategories() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_templateparams() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR')) THEN
        PERFORM vrk_refuse('Нет права изменять параметры шаблонов.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_templateparams() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_templates_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN OLD;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = OLD.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN OLD;
END $$;

ALTER FUNCTION public.rule_templates_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_templates_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
BEGIN
    IF vrk_is_loader() OR EXISTS (SELECT 1 FROM CurrentRights WHERE rightName = 'ADMINISTRATOR') THEN
        RETURN NEW;
    END IF;
    PERFORM vrk_refuse('Нет права изменять шаблоны этого уровня.')
    WHERE coalesce((SELECT DepartmentKey FROM TemplateLevels WHERE KeyLink = NEW.CategoryKey), '')
          NOT IN (SELECT DepartmentKey FROM CurrentTemplateDepartments);
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_templates_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_templates_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_templates_update() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_userrights() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_userrights() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_users() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_users() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_workerroles() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_workerroles() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_workers() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    SET extra_float_digits TO '1'
    AS $$
BEGIN
    IF NOT (vrk_is_loader()) THEN
        PERFORM vrk_refuse('Справочники изменяются только средствами администратора.');
    END IF;
    IF TG_OP = 'DELETE' THEN
        RETURN OLD;
    END IF;
    RETURN NEW;
END $$;

ALTER FUNCTION public.rule_workers() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_workshifts_delete() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_workshifts_delete() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_workshifts_insert() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

ALTER FUNCTION public.rule_workshifts_insert() OWNER TO vrk_owner;

CREATE FUNCTION public.rule_workshifts_update() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
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

CREATE FUNCTION public.vrk_epoch() RETURNS text
    LANGUAGE sql STABLE
    SET search_path TO 'pg_catalog', 'public', 'pg_temp'
    AS $$
    SELECT (SELECT value FROM StoreProperties WHERE name = 'epoch')
           || '.' || (SELECT oid FROM pg_database WHERE datname = current_database())
           || '.' || left(pg_walfile_name(pg_current_wal_lsn()), 8);
$$;

ALTER FUNCTION public.vrk_epoch() OWNER TO vrk_owner;

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

CREATE FUNCTION public.vrk_zero_readed_time() RETURNS trigger
    LANGUAGE plpgsql
    AS $$
BEGIN
    NEW.readedTime := coalesce(NEW.readedTime, 0);
    RETURN NEW;
END $$;

ALTER FUNCTION public.vrk_zero_readed_time() OWNER TO vrk_owner;

CREATE TABLE public.changehead (
    number bigint NOT NULL,
    chain bytea NOT NULL,
    notified timestamp with time zone NOT NULL
)
WITH (fillfactor='10');

ALTER TABLE public.changehead OWNER TO vrk_owner;

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

CREATE TABLE public.roles (
    keylink text NOT NULL COLLATE pg_catalog."C",
    departmentkey text COLLATE pg_catalog."C",
    name_ text COLLATE pg_catalog."C"
);

ALTER TABLE public.roles OWNER TO vrk_owner;

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

CREATE TABLE public.storeproperties (
    name text NOT NULL COLLATE pg_catalog."C",
    value text NOT NULL COLLATE pg_catalog."C"
);

ALTER TABLE public.storeproperties OWNER TO vrk_owner;

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
73	\\xf68d05745f0a66bf524b7dd7e38184c6a028afc7f7bd25bf406ba242784b1dfd	2026-11-21 17:53:11.900863+00
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
48	48	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795175583,1795175583,1795261983]
49	49	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795261983,1795261983,1795348383]
50	50	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795276383,1795276383,1795319583]
51	51	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795175583,1795175583,1795261983]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795175583,1795175583,1795261983]
52	52	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
53	53	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
54	54	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
55	55	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
56	56	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
57	57	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
58	58	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795181583,1795181583,null,null,null,"Принята сводка погоды.",0,null]
59	59	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795229583,1795229583,null,null,null,"Проверена связь с подстанциями.",0,null]
60	60	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795261983,1795261983,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
61	61	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795265583,1795265583,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
62	62	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795269183,1795269183,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
63	63	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795269183,1795269183,null,null,1795269783,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
64	64	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795272783,1795272783,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
65	65	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795276383,1795276383,1795276323,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
66	66	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795279983,1795279983,null,null,null,"Черновик: осмотр оборудования.",1,null]
67	67	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795281783,1795281783,null,null,null,"Черновик: доклад бригады.",1,null]
68	68	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795277583,1795277583,null,null,null,"Схема сверена по щиту.",0,null]
69	69	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795262583,"Уточните период смены.",0]
70	70	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795273383,"Исполнение доложить до конца смены.",1795273983]
71	71	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795235583,"Приложите сводку к записи.",0]
72	72	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
73	73	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.

COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.

COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	B89FD61E3909612B5059243249700DC9	loader	1	1795283588	\\x29bb4d3d7e2bf7e2227f17617b438d82e36fea016e2959fa53cb2b540cefb34e
2	DC35924637896ECD8B53A50FEE6BCE5D	loader	1	1795283589	\\x143985aeaf5ada08ef443953642c9c08f6ea9f5914bbc3ec646a44a9dec608d4
3	E81F4E5B55F8E26C8E0A8B4C41A554B4	loader	1	1795283589	\\xd3faa6d17e3129ef85f90e0c8681e8acbeed00af747e69bab44c9707b4d8ef6d
4	D0C42DA187DD924F6C078BBBC43DC4E2	loader	1	1795283589	\\x9f56e7abaf54e46b1d85796b0eb8a60ce901602b768aa703759659952eea8de0
5	E271572B3A3236A05441C6C3961CA63E	loader	1	1795283589	\\x030ef3219fc48138921e82b9bfffb24b2e46a0a94faf0eb2edfa07778b80934b
6	9EEA9B93C2900827B51CDAF5FE2AEB5D	loader	1	1795283589	\\x264a9c5801895c9c2b69393dc4d4cd45e75a66920a70d074ac8754d418be5d18
7	3B36FCB6AD895745E91B443F9DFEBCD0	loader	1	1795283589	\\xfcd6143cb9548065ca52714a4cc58c2cc7f93519dee2d6ec80ebdf370316e958
8	9DC94D5987CC7C479EE0DB1BDA02ED85	loader	1	1795283589	\\xb1a9e9623f04c5e9153e280343cac0119be432ba833ba42405c14f193a989548
9	CF4D1ED7418E113582F4F643F86A6FE7	loader	1	1795283589	\\x73ebaf0716e5121001d08586bc08adf562de71df4accb7ad99405430379becb2
10	E80726E110DD73459AD1F01847E89B5B	loader	1	1795283589	\\x5cb3f8dafecbbb4dafb28b0b3bd59a9d048c23f57c92af45d225ec6260a31035
11	1A76E11FCF37D323063E52A12AA3A533	loader	1	1795283589	\\x2efef63c32589a51ddcee15b01e67081f940d94144ac3d1a0e756d59dbd8e445
12	A3D10B463140FA405977FDD971F4971B	loader	1	1795283589	\\x4f04d96a816c97564d7bf681fec9fbc266cc8d07db7c2ac04e06520d074fe3fb
13	B434C7648DE62FCDF6DDEEE3ABD579C5	loader	1	1795283589	\\xb8fa0a1de8eecd057b9537dc23a747f3b623c85fc772a225611d9e8f8191d46f
14	6ED750FCB7D4217967C5C572B4E1FC32	loader	1	1795283589	\\xff580b066d3f73c0ab5efe786acd92c3fb418ccd2c9562b6c8b8166bce8b756c
15	C2001533A7533DA94BDA3C2EC9D78186	loader	1	1795283589	\\xebd9e5c817ee0187bc65a15fb31cad26c4d5e7f8bed155ebabe109fdf5b890f0
16	FB891C29441A917806876754F53E6C5B	loader	1	1795283589	\\x00133e520e157755910e42812f18a38f9ce8264763fbaa022d9019ddff642cc7
17	CAA0A38820A0A7AD8A14B32D3B85C359	loader	1	1795283589	\\x1be5155939fc16bce94ea6aa708fa12b37755c7983a3c35172ef83cad2457023
18	2B16673E927B27348EA023794DBFD28B	loader	1	1795283589	\\x4bf0149c67fd63cc27588296deb533613b84f587ea7c6c93950a8ee107cc3275
19	5CE9F52BE7F9ECD6E368DB7B8FDCAE1F	loader	1	1795283589	\\xf59f62f06070c11e981f1f557a04610a36816bdc5fca3ea7816883fe5c9e918f
20	7D4C39F66FE6FE5CA714946B7B124AB8	loader	1	1795283589	\\x190c5f356d54647644bc570d44e005686406931af9fc6449be8f0f539d41e58e
21	B075767CE63AC1F52A7ECB75EC60A322	loader	1	1795283589	\\x7a3582d9ddeb899ec55ede3eefa262d468572b44bae2ef619363a24abcdb9467
22	6CB91454767375312CDA1DACBF6165FE	loader	1	1795283589	\\x38e2553031e883bdb94058815278f5bb108da9bdf33f9d06df2354634d7ab27c
23	890E17384D74A7EFCC2D641F0D537DA7	loader	1	1795283589	\\xb0842d3dea630954cd45ee0d51886784606228c1615ac4ad59e1b4af38b675f8
24	38C338F1259B64DB06793DEC37D29A25	loader	1	1795283589	\\x5cb106dd949190c79df625b1e81d9183e9277e6391ce059d8c1654324eaee8de
25	745DEEFC7E86CF28C1E05528E578EB58	loader	1	1795283589	\\x11d52bbec797e421fe5ef4b74e119f328b9f3865489d17338f1d24a90733fded
26	923D512C4A756B154A5F469AE848CDF3	loader	1	1795283589	\\x661a3e26c31244b101c8b738446def0ce17a7d0498d32934d6352bbb64d56074
27	25DB3A2E5AC399CF8D7FB79D7917943F	loader	1	1795283589	\\x28e3aa2b86ee9868b8bbc7052f60169c5288eaa9db11bda6ee37ce30a07d26b4
28	55659DD438F57557C1F7A3DB88F827FA	loader	1	1795283590	\\x91a75133ff13e2627b2d25481a89daabe198e4dd6bec89c8d2509b86b21b665c
29	7D4D6D9C637DA6748CD0FCFD8FD813B6	loader	1	1795283590	\\x2f43458d6a197b27ece9137b6a6ec8c0353bcc94a5f46d88e6a81441b4c89a6e
30	111669F1AB3DF7532D96DFC6059208AE	loader	1	1795283590	\\x1b7f2c9b76d25a8c94f862d4e476b330047c23346008a447dc2090e7f4f990b7
31	E94BA0058EA8CD9F138DD6F76471BBBE	loader	1	1795283590	\\x330cf1a49cf7dacec6e2e4371206c3e5e71a2431732d0edbc4dbed5e8aaef7a2
32	03F6D33FFAC2D6226226A1D17D2B8AFB	loader	1	1795283590	\\x5b049c6b0bd6484b0e09f783586dfb1e6595ada8a746d43f4bb95c603ff7c309
33	A37B824BF137045A7B5FCA088EB13A03	loader	1	1795283590	\\xad3e989d2558ae9c6d9a8ade1ba795b7fadd87ca00bae7128decc3aef43e8d8d
34	8C038374B5F04C96CA01BD5FBE316A35	loader	1	1795283590	\\x4c704de0306aaaab9b656cf054baf0430a3e74007eb519e0b3be4bf98eb15895
35	D27367A9D6F9A0516B3E644AE6AD4A54	loader	1	1795283590	\\xa330e38a7494ac8af1820ce1d7949a2d9b7884501f1d0c2befdad764441669d6
36	7A9B55F3F2415185A88AA516A3959C84	loader	1	1795283590	\\xfad71d247a34c78ccb6406a762ad6b64b2d40751e6e4aa5dde32122ec6ec16cf
37	5C4106FA34EF94DF4B409F1D732F667C	loader	1	1795283590	\\x703b128c61041894d23f00d098b2c92da83cb06d64398c0f782458f9803545f0
38	8B2C0B7C163E9A9042230D09E2C8CCA5	loader	1	1795283590	\\xe11faea9becdd8166ba93efc7ff12ff63c4201e282ea981cb8a436896a3bd28d
39	ED7B10FFBAD3855026ACE06F80590622	loader	1	1795283590	\\x3e94e52f3da4a473ee1c7bbe2a4d876b7539eb7211ebd73afab513905b30488e
40	1D0A1FE3794E8935F15207815B7E51BD	loader	1	1795283590	\\xf5e5c68503e88cc1ddf8ca75ff25b33e149649ece3b2d3a2f42a156a4871fd9c
41	02B9762F2D9999AC82BAD3E094C02A03	loader	1	1795283590	\\xdcc4c7138d393b221d4b264f47f0617cdd2eb66f1946bb40563453f0b0fa5674
42	839E6BD7874EB3113FA28DAD44CF7D41	loader	1	1795283590	\\xc5c02f6a6cd1c0e9d6ce6ff0fce57a7cc59c6fd4ad1f8b2e285a980c975de09b
43	A58D707BD22DC8C1A6B53F53422306CB	loader	1	1795283590	\\xa5dae02ba865d64dfb9131fed3b440c5103aa1b03ca273bc87d78f3db61aea54
44	143F9E67641090DD9C24B9332284C6CB	loader	1	1795283590	\\xfd69b5058bd5095bef3dbeb2919444351869b182dc1d83f0331dd5051ffc8a30
45	F2D5D8C3C313ED12090064ECAFD07EA6	loader	1	1795283590	\\x633add190abb403be95b06dd6c7ef358fb378b11f6a119c61c8bb0834893bfeb
46	929E2E2CBC24F7DCD071A98D7CB0A627	loader	1	1795283590	\\x4e1dd3a1b9f164528eafea5f962e0691d99a34ef57aef5e2c8c0ff0b103bfa51
47	E8D1E6FAE737DEBA9164F0F76B2F71E1	loader	1	1795283590	\\x6fbb3586ca8f15c2264e9d34e8c662d30a51d6d4f55f870eadba21662d3753c1
48	8A95F0C689F86C453BB7F061358252E1	loader	1	1795283590	\\xca6b10e6acaeeaf4387d1bd5586c13006d628cc43e6aaec63901507583cb94c2
49	D83D50E71028BEE5012405DE1EE5B578	loader	1	1795283590	\\x16ee361c5118b407f81bcaffcfe4d7081be2e34d78a0623ec5fc356e19e0c23b
50	09C53D6749D16E785792B5016C027D9E	loader	1	1795283591	\\xdf3092db88cd4151446137258b5f1570af2248db66ff39f864f311eb845d8a5e
51	51C1D9EC1B6801670463F4E35E3D8347	loader	1	1795283591	\\x24f4568963ea779ee2987741db8753a344e52eb5aec6e9a4c7a53cbe3baf6f47
52	078C28135F016C309096E55FFE75F156	loader	1	1795283591	\\x7d6fe9cedf89e89792c8ba40a7c869b08e47fb73e417511bdffa746ce399f259
53	AC7050B9E9A12214B14135DB0F4108A2	loader	1	1795283591	\\x364ace4f1663cd5bb41fd6f05c24831d4dea6346cd9c9b9a831e83729f06ccf3
54	817BA5AFA497C13C1A3BD69A002446E4	loader	1	1795283591	\\x4c8816f683bdbc384e44b5a19952ac0561590813567bdbb68da28e64f6e7ac1a
55	7A063343D83CC693C58F0EFE750B4FFC	loader	1	1795283591	\\x0b6cd28a96cf9b05ac30a14b3fc222f8902ae884d95b3093d692c6560fb73c43
56	AC4A5D5FD78C27A6BFE7E585CD181F6E	loader	1	1795283591	\\x44aae4501ed846fe215ef26c676a755670ddb7c98d7993fa75427a9425f2937e
57	DBBCAC08C333953ACCDE2DCF0A64C00D	loader	1	1795283591	\\xf13697e3e816d491987d95320f6529bf8dc664613851a24c40ba1918e8a9f25f
58	E3CBE247CBE97BA34528CFC2E32C76C1	loader	1	1795283591	\\x7c1c3dd56e61f4fb338b43d7fbbb5c85123a2f5a76f160782b4ce152f5421897
59	335110C9F9E534F7184E4458CFF36212	loader	1	1795283591	\\x6f582ea8b1f57c2c663f913b043cb3d1e03061218150a86a7cdfc5666624f6e0
60	B03C491D156C22E2ABC4D6D53821DADC	loader	1	1795283591	\\x444d662316dbf781fecd3654b0a1ca304872f5e3cad391df74cbec960c816473
61	A0EE72D1EBEE1389DEF736AF232D0ACE	loader	1	1795283591	\\x98ae459a58740925afb7fcecadcf43ff4e46443eda778df8e96dc0a5d979c8b8
62	A0626591398333C8F0345C576E90FC41	loader	1	1795283591	\\xb68c96fa58da4592dfc83b7ea3fe63cde527b72d8da4f526293f1ad4b94956db
63	EBBCED7DF34BC70B67F3F1E17B6E6C01	loader	1	1795283591	\\x170d6e80bcca2bdce76f66814baba451e2d74ab8e401a52bc9eabb2e388058dd
64	B80179A53404412DEF886FB0C5142CFD	loader	1	1795283591	\\x3e537481ce50f9d7bf32726b82119d44bffb0d6dad9d4d6460fc8031f61ad779
65	ACD74FC5FFFC8FC05F1E3DB4DF1618E0	loader	1	1795283591	\\xf4f15961254122cf9c4420d1d87c2c16ac4e8ebf732937c93a54db9390abb6ba
66	9FBFC831F4AE29D80AB8616D11D446E4	loader	1	1795283591	\\xf1df06440a8b889f351561aa4c8071bc9e22d75ede7a8ae8e8e593f2e8bdcd19
67	D7E98A7AE9DBA857DC3BB2B44C3EEA2A	loader	1	1795283591	\\x8c952b83a07de7ba6f8961c9d0fc8450d125c0664ae680a81403c2988e4bc851
68	27AB26E23116376FA42F45EA19DF34BB	loader	1	1795283591	\\x396bdf882fec1cfb86b1ade9cbbe487367d7c72149243af5673d5b3fa76647d8
69	7CCB39F2E3AA111FBEA466F68C18E790	loader	1	1795283591	\\xa37a3aad34136f362ec8a8c7c8a362266fc50fd46134e4b0dc998658e0c7cfd9
70	16DBB25F0B3420259CCD89FB702DB021	loader	1	1795283591	\\x42171188f99e3bcbbbaf222599db6b36771f8670805d0b9a94cc113795be9cb8
71	FD1794E7C5DC22692724FBE16B13B24E	loader	1	1795283591	\\xc1a594dd794fcb08b09ff9e4d2660129317ea03b72be3d8c8df8523e311c52b4
72	DF18A11B4A6CCCBEE68809EC783334E4	loader	1	1795283591	\\x747a0937900da0943fa9a981d8f44aae0a4bed390b3f0fa9316ba9df28b18269
73	39C46AED38A4C4AF81B740F159A880AE	loader	1	1795283591	\\xf68d05745f0a66bf524b7dd7e38184c6a028afc7f7bd25bf406ba242784b1dfd
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
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795262583	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795273383	Исполнение доложить до конца смены.	1795273983
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795235583	Приложите сводку к записи.	0
\.

COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.

COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795181583	1795181583	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795229583	1795229583	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795261983	1795261983	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795265583	1795265583	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795269183	1795269183	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795269183	1795269183	\N	\N	1795269783	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795272783	1795272783	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795276383	1795276383	1795276323	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795279983	1795279983	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795281783	1795281783	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795277583	1795277583	\N	\N	\N	Схема сверена по щиту.	0	\N
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
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795261983	1795261983	1795348383
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795276383	1795276383	1795319583
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795175583	1795175583	1795261983
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
schema	1
codec	Windows-1251
timeZone	Europe/Moscow
epoch	A468A3E804B55961026F26657E9951AE
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

CREATE TRIGGER rule_departments BEFORE INSERT OR DELETE OR UPDATE ON public.departments FOR EACH ROW EXECUTE FUNCTION public.rule_departments();

CREATE TRIGGER rule_equipment BEFORE INSERT OR DELETE OR UPDATE ON public.equipment FOR EACH ROW EXECUTE FUNCTION public.rule_equipment();

CREATE TRIGGER rule_fields BEFORE INSERT OR DELETE OR UPDATE ON public.fields FOR EACH ROW EXECUTE FUNCTION public.rule_fields();

CREATE TRIGGER rule_files_delete BEFORE DELETE ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_delete();

CREATE TRIGGER rule_files_insert BEFORE INSERT ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_insert();

CREATE TRIGGER rule_files_update BEFORE UPDATE ON public.logbookfiles FOR EACH ROW EXECUTE FUNCTION public.rule_files_update();

CREATE TRIGGER rule_operlogcategories BEFORE INSERT OR DELETE OR UPDATE ON public.operlogcategories FOR EACH ROW EXECUTE FUNCTION public.rule_operlogcategories();

CREATE TRIGGER rule_operlogtemplateparams BEFORE INSERT OR DELETE OR UPDATE ON public.operlogtemplateparams FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplateparams();

CREATE TRIGGER rule_operlogtemplates BEFORE INSERT OR DELETE OR UPDATE ON public.operlogtemplates FOR EACH ROW EXECUTE FUNCTION public.rule_operlogtemplates();

CREATE TRIGGER rule_organizations BEFORE INSERT OR DELETE OR UPDATE ON public.organizations FOR EACH ROW EXECUTE FUNCTION public.rule_organizations();

CREATE TRIGGER rule_orgtypes BEFORE INSERT OR DELETE OR UPDATE ON public.orgtypes FOR EACH ROW EXECUTE FUNCTION public.rule_orgtypes();

CREATE TRIGGER rule_records_delete BEFORE DELETE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_delete();

CREATE TRIGGER rule_records_insert BEFORE INSERT ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_insert();

CREATE TRIGGER rule_records_secondmark BEFORE UPDATE OF secondmarkworkerkey, secondmarktime ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_secondmark();

CREATE TRIGGER rule_records_update BEFORE UPDATE ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_update();

CREATE TRIGGER rule_records_visa BEFORE UPDATE OF visaworkerkey ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.rule_records_visa();

CREATE TRIGGER rule_roles BEFORE INSERT OR DELETE OR UPDATE ON public.roles FOR EACH ROW EXECUTE FUNCTION public.rule_roles();

CREATE TRIGGER rule_shifts BEFORE INSERT OR DELETE OR UPDATE ON public.shifts FOR EACH ROW EXECUTE FUNCTION public.rule_shifts();

CREATE TRIGGER rule_tables BEFORE INSERT OR DELETE OR UPDATE ON public.tables FOR EACH ROW EXECUTE FUNCTION public.rule_tables();

CREATE TRIGGER rule_templateparamcategories BEFORE INSERT OR DELETE OR UPDATE ON public.templateparamcategories FOR EACH ROW EXECUTE FUNCTION public.rule_templateparamcategories();

CREATE TRIGGER rule_templateparams BEFORE INSERT OR DELETE OR UPDATE ON public.templateparams FOR EACH ROW EXECUTE FUNCTION public.rule_templateparams();

CREATE TRIGGER rule_templates_delete BEFORE DELETE ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_delete();

CREATE TRIGGER rule_templates_insert BEFORE INSERT ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_insert();

CREATE TRIGGER rule_templates_update BEFORE UPDATE ON public.logbooktemplates FOR EACH ROW EXECUTE FUNCTION public.rule_templates_update();

CREATE TRIGGER rule_userrights BEFORE INSERT OR DELETE OR UPDATE ON public.userrights FOR EACH ROW EXECUTE FUNCTION public.rule_userrights();

CREATE TRIGGER rule_users BEFORE INSERT OR DELETE OR UPDATE ON public.users FOR EACH ROW EXECUTE FUNCTION public.rule_users();

CREATE TRIGGER rule_workerroles BEFORE INSERT OR DELETE OR UPDATE ON public.workerroles FOR EACH ROW EXECUTE FUNCTION public.rule_workerroles();

CREATE TRIGGER rule_workers BEFORE INSERT OR DELETE OR UPDATE ON public.workers FOR EACH ROW EXECUTE FUNCTION public.rule_workers();

CREATE TRIGGER rule_workshifts_delete BEFORE DELETE ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_delete();

CREATE TRIGGER rule_workshifts_insert BEFORE INSERT ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_insert();

CREATE TRIGGER rule_workshifts_update BEFORE UPDATE ON public.logbookworkshifts FOR EACH ROW EXECUTE FUNCTION public.rule_workshifts_update();

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

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.roles TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.shifts TO vrk_client;

GRANT SELECT ON TABLE public.storefiles TO vrk_client;

GRANT SELECT ON TABLE public.storeproperties TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.tables TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparamcategories TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.templateparams TO vrk_client;

GRANT SELECT,INSERT,DELETE,UPDATE ON TABLE public.workerroles TO vrk_client;
