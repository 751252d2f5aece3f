
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
    IF event = 601 AND (rowKey = '' OR rowKey ~ '[\x01-\x1f''"\\]') THEN
        PERFORM vrk_refuse('Недопустимый ключ строки.');
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
73	\\x2239254adfa4ddd2dd323d09f568edc1d805dece88fce5929400f08a62d41305	2026-11-22 06:46:29.593671+03
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
48	48	LogbookWorkshifts	SHIFT_CDS_PAST	601	\N	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795211182,1795211182,1795297582]
49	49	LogbookWorkshifts	SHIFT_CDS_OPEN	601	\N	["SHIFT_CDS_OPEN","DEP_CDS","WORKER_IVANOV",null,1795297582,1795297582,1795383982]
50	50	LogbookWorkshifts	SHIFT_ZAR_OPEN	601	\N	["SHIFT_ZAR_OPEN","DEP_ZAR","WORKER_SMIRNOV_ZAR",null,1795311982,1795311982,1795355182]
51	51	LogbookWorkshifts	SHIFT_CDS_PAST	602	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV",null,1795211182,1795211182,1795297582]	["SHIFT_CDS_PAST","DEP_CDS","WORKER_IVANOV","WORKER_IVANOV",1795211182,1795211182,1795297582]
52	52	LogbookWorkersWorkshift	CREW_CDS_1	601	\N	["CREW_CDS_1","SHIFT_CDS_OPEN","WORKER_IVANOV",1]
53	53	LogbookWorkersWorkshift	CREW_CDS_2	601	\N	["CREW_CDS_2","SHIFT_CDS_OPEN","WORKER_PETROV",1]
54	54	LogbookWorkersWorkshift	CREW_ZAR_1	601	\N	["CREW_ZAR_1","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",1]
55	55	LogbookWorkersWorkshift	CREW_PAST_1	601	\N	["CREW_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",1]
56	56	LogbookWorkersWorkshift	CREW_PAST_2	601	\N	["CREW_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",1]
57	57	LogbookWorkersWorkshift	CREW_PAST_3	601	\N	["CREW_PAST_3","SHIFT_CDS_PAST","WORKER_PETROV",0]
58	58	LogbookRecords	REC_PAST_1	601	\N	["REC_PAST_1","SHIFT_CDS_PAST","WORKER_IVANOV",null,null,null,null,1795217182,1795217182,null,null,null,"Принята сводка погоды.",0,null]
59	59	LogbookRecords	REC_PAST_2	601	\N	["REC_PAST_2","SHIFT_CDS_PAST","WORKER_KUZNETSOV",null,null,null,null,1795265182,1795265182,null,null,null,"Проверена связь с подстанциями.",0,null]
60	60	LogbookRecords	REC_OPENING	601	\N	["REC_OPENING","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795297582,1795297582,null,null,null,"<meta name=\\"template\\" content=\\"open_wshift\\">Смену принял <a href=\\"parameter:name=shift_workers_groups;locname=Диспетчер\\">Иванов И.И. гр.V</a> <a href=\\"parameter:name=interval;locname=Период%20смены\\">с 20:00 по 08:00</a>.",0,null]
61	61	LogbookRecords	REC_MESSAGE	601	\N	["REC_MESSAGE","SHIFT_CDS_OPEN","WORKER_IVANOV",null,"WORKER_SMIRNOV_ZAR",null,null,1795301182,1795301182,null,null,null,"Запрошено состояние <b>нагрузки</b>.",0,1]
62	62	LogbookRecords	REC_REPLACED	601	\N	["REC_REPLACED","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795304782,1795304782,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",2,null]
63	63	LogbookRecords	REC_SUCCESSOR	601	\N	["REC_SUCCESSOR","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,"REC_REPLACED",null,1795304782,1795304782,null,null,1795305382,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Луговая</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ВЛ 110 кВ Полевая – Заречная</a>.",0,null]
64	64	LogbookRecords	REC_ORDER	601	\N	["REC_ORDER","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795308382,1795308382,null,null,null,"<meta name=\\"template\\" content=\\"time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении\\">Отдана команда: на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 35 кВ Ольховка</a> отключить <a href=\\"parameter:name=text;locname=Оборудование\\">ф. 7</a>.",0,null]
65	65	LogbookRecords	REC_TRIP	601	\N	["REC_TRIP","SHIFT_CDS_OPEN","WORKER_PETROV","WORKER_SIDOROVA",null,null,null,1795311982,1795311982,1795311922,null,null,"<meta name=\\"template\\" content=\\"first_mark=:/markers/exclamation_mark.png\\">Отключилась <a href=\\"parameter:name=line;locname=Линия\\">ВЛ 110 кВ Полевая – Заречная</a> на <a href=\\"parameter:name=substation;locname=Подстанция\\">ПС 110 кВ Заречная</a>.",0,null]
66	66	LogbookRecords	REC_DRAFT_IVANOV	601	\N	["REC_DRAFT_IVANOV","SHIFT_CDS_OPEN","WORKER_IVANOV",null,null,null,null,1795315582,1795315582,null,null,null,"Черновик: осмотр оборудования.",1,null]
67	67	LogbookRecords	REC_DRAFT_PETROV	601	\N	["REC_DRAFT_PETROV","SHIFT_CDS_OPEN","WORKER_PETROV",null,null,null,null,1795317382,1795317382,null,null,null,"Черновик: доклад бригады.",1,null]
68	68	LogbookRecords	REC_ZAR	601	\N	["REC_ZAR","SHIFT_ZAR_OPEN","WORKER_SMIRNOV_ZAR",null,null,null,null,1795313182,1795313182,null,null,null,"Схема сверена по щиту.",0,null]
69	69	LogbookComments	COM_UNREAD	601	\N	["COM_UNREAD","WORKER_PETROV","REC_OPENING",1795298182,"Уточните период смены.",0]
70	70	LogbookComments	COM_READ	601	\N	["COM_READ","WORKER_IVANOV","REC_ORDER",1795308982,"Исполнение доложить до конца смены.",1795309582]
71	71	LogbookComments	COM_PAST	601	\N	["COM_PAST","WORKER_SIDOROVA","REC_PAST_1",1795271182,"Приложите сводку к записи.",0]
72	72	LogbookFiles	FILE_TEXT	601	\N	["FILE_TEXT","WORKER_PETROV","REC_TRIP","осциллограмма.txt",{"sha256":"585b0513e231db8c5cdd35db15db45295fcce7ed4841bcb512cf9d6d42dae52a","length":40}]
73	73	LogbookFiles	FILE_IMAGE	601	\N	["FILE_IMAGE","WORKER_PETROV","REC_TRIP","фото опоры № 12.png",{"sha256":"6b7fa434f92a8b80aab02d9bf1a12e49ffcae424e4013a1c4f68b67e3d2bbcd0","length":70}]
\.

COPY public.changepending (xid, entry, isfirst, tablename, rowkey, event, oldrow, newrow) FROM stdin;
\.

COPY public.changetransactions (number, batchkey, login, loader, "time", chain) FROM stdin;
1	BC8D8B238C4F2CB2E5E8AE8232E6D09E	loader	1	1795319188	\\xd613e2468b61ebd3d591f6048e064fc0d0785aaf9a3f78c937b4a64806556c66
2	7D1ACC0F692CE5A28D1C04B1BB0F03C1	loader	1	1795319188	\\x07037080be226b5c9418135a9d6a083313aa451f6acaf919170a7af44ba752e4
3	B470772FE9B0C6E6F067CF71B699417B	loader	1	1795319188	\\xc7f113e283b08ea3484d1fde7c7da8476e933ffd250ea18843cb28b79d1f5842
4	BEF08232CF687D75216AC605C8F1B050	loader	1	1795319188	\\x4fdf31bcfeb950004415ce55efb4c7780e3480de95dff794943a587fafe7ec5b
5	5E9EB98C16A6A7CA0EECDE4ED09F90F1	loader	1	1795319188	\\x65be28615366c410d123381849f6cfe47a6d140339e89b198c4990c4c84081a5
6	7AE010F3E9048D7124C00094CEB3D712	loader	1	1795319188	\\x699c0e6b494cfdc4b496109c77f8d6f0fb00f5e70d7c3b61bf0ef7ad8ddd11d2
7	50D9E8EAE32E7481061A5D63541BAF5C	loader	1	1795319188	\\x3455c1c8a73d5f414fce23dabfe1a8a84ac1aae85d2d54b94b37b9d6c9d54fa5
8	5C177F792400B096FEA37674E03BD742	loader	1	1795319188	\\x6e2a9cd12965e9e2678f74984f795986b1e4f235926e3be865838c35cf1f5cfa
9	B0CE6EFFFA0447AB2120732A0489D655	loader	1	1795319188	\\x264cbd0a1f7cba3b5d65b478ebadf5705670a5fe93b8b47081ed06232b863edb
10	504B584334DF8D13E5991B2465CACD89	loader	1	1795319188	\\x21d017d115ac9bdd7f3b458a31981915c2686ab312d780a426f8eb79fc603e73
11	18B2F113C037C46C8F1201749C433E9F	loader	1	1795319188	\\xc590d8fb15751fde807e21fe5028bf445cc158b3f90719d4bafaddf13bc80cb8
12	208126F6FF970C8779D803CA8F37657C	loader	1	1795319188	\\x0aeb0d7e7d859ea4fe0c05622fde1b2a2cd937d43aa66f5b0aa764fdb9ff1f79
13	8AF562CA384DB419074B5E1AC1B9B329	loader	1	1795319188	\\x964dc6bb61e3ae161388a799f11f827017d3066f4a1bb47326b23f834119427e
14	D0FEC9524C960FCF4FA3B8AAA9FECCD6	loader	1	1795319188	\\xc648fa90fc99ca0e5eebf65297cff2c881c49c2b05d67d398210f51d9ddd8567
15	D16915BFEE91E197278B065F80792FB1	loader	1	1795319188	\\xa40e2373b1ba4404bd0974f74af779a4a66cff76d213c4f50bade43290538845
16	498AACC6FB66A8A4786AA8BB56361932	loader	1	1795319188	\\xfd9c76c3ba5c64ec32cb53385817ff0cc4b816db976127a1f84d582849803345
17	E073C68CC08AC332CA7DD580A5A4F23E	loader	1	1795319188	\\x6efb37871c8d3530285cd97e1f82e142643dd32eb7c1d6bd32e35d0eb387508f
18	64B42A7B45F63B98CC3D24CD30648520	loader	1	1795319188	\\xc30d576b885f4669a45ba0de66949b2bfc337bb2aa067ab1cb2011d7f05bf369
19	F78E460CE5EE5A746A0CA6F4D65B6BA4	loader	1	1795319188	\\xbc098d08908f5231ce75456006509f1fda18e6ef95ff18f1d2e5fa947d7dc020
20	80F98C35155D938961853D845194BE83	loader	1	1795319188	\\x38ec8eee01e4fd71c68f7fb20d5a5589256550fccb6351b5e9a044e1d531b837
21	F8A90CB62D19BE43FEAE67B8918C27AA	loader	1	1795319188	\\xf1b6f8dfe473c8be453b6bfb97dde19fb9010782ff93429b2fa283859ebfd0b8
22	D877289367EEC691498A659350B43896	loader	1	1795319188	\\x5973245ac2ac2f0a34e0a20deb897218df21ea917d7cb7ffc4aa1ae3ba3d2d26
23	C9A62AF462E3010E5A98DF051EB79ADE	loader	1	1795319188	\\x574c14c5a539090b90c835f6d8f9e166d87227b50d20ca0d9dc152872c35859e
24	63CA571D97456C4722757AAABD78D343	loader	1	1795319188	\\xec4f30859235c7331304b0ea91383f82fbd1a7e8c60d611eb09e84a7a7eda74e
25	B8C2ADDD48D3A59D79451462B404C17A	loader	1	1795319188	\\x2d864fbd41575a659768e9ab102cec5cbed11e77be61f44c9fa288dfd0f80b2c
26	82FFAAF30B72116F7A09F55F5E737577	loader	1	1795319188	\\xd5b94e2f266b5659f78250c50f4221bec3475f00a5c8b47be2f6f3e35660558f
27	1A7C0D31F78CCE2D04439535550226ED	loader	1	1795319188	\\xbcb6af65b75fa9d00468bccd3e6402a0e954fd9fc49ff170eeed45d92775656b
28	457E40C605CB7AE0F79EB00B2EB1BC26	loader	1	1795319188	\\x83c653902a5f30050db25dc2d3057e460c76aeba5d63a41f77addab4dd904542
29	15BF85EDCD34776ACC112071DB5D1B9F	loader	1	1795319188	\\x694cddaa32bf59a56a75a7e4ea844c4381ff1e2b3339119db480091bafd54e20
30	ACA06C39DAE42F77359175383B4DF56F	loader	1	1795319188	\\x6b4939385e7a79a44af869891847a2bd7db4f23dd9787095b2324669c715660f
31	BE2C9225FC1788DA95509E3F82A30F31	loader	1	1795319188	\\x65e571c149853041cc6ccab07e279e758e0dbbcf206a1da2619c6b1545fc2af1
32	5637F8B02F275FC11C43C46433BB53C2	loader	1	1795319188	\\xe1e46b9729081c137c0e078fa28a356350d3e4330587c7d5159720b607902d26
33	F3AEB46967372896702619C25F602125	loader	1	1795319188	\\x87dae2f9d5755f5a2bb0844ace4c90887a54aaaa7d0b9346fa1fd3f2b4df874f
34	0B28920482A65E2DBFC178F562D575F9	loader	1	1795319188	\\x6dbc65a112b1c6ce62ba1c29f84da43ceda9cf9c81e57623af689ef59b15d728
35	89BD9C34F6CB90529982C250E7F389E0	loader	1	1795319188	\\x3f5b21da49c20879be36332372785016cc882feb86b75e4def31c4d99618c2af
36	18F6F5F5BBF34AEA23E67A9EAE975A08	loader	1	1795319188	\\x5029d1248abdbc93067111a9565390f782abbc1d530221a9ccad8faeb44f1bc4
37	58D9D961FD0CC9AB105B3C7B337E0AE1	loader	1	1795319188	\\x1d98b2630ba8f2a0c09d4f5407df67651b42947f7ad201574862d9eaf4b4f479
38	8CA12DA5EF312E80FC9CCB19E4B66E37	loader	1	1795319188	\\x26ffc988e3ad6a75a90917b343db19e35030b5cb006097d530f31b1d60354c76
39	C3FF082EC01D3D996C50F478D6F246C7	loader	1	1795319188	\\xc4fa2eb3e3262a4b89dfd6ddfb86e3819cc30b4da8b6f108c81ddf3a7837d0b5
40	53D55E76C4DBB34AD66EE4E197E004C2	loader	1	1795319188	\\x6adaca0680100e67be5f91cf918b6b419f770d495e7caed162b2a0d07f4a2a98
41	27B7AE46795910DBD76EA932C150B712	loader	1	1795319188	\\xd3e2e2904d598a28511af9335bd51b85745596ec9ebc6711f2875abb8beec977
42	6CCF04B23F33034D3E438A7DFC4124B7	loader	1	1795319188	\\xf7139bd858fa81c6ae8e8b50c1acbb478b1709924e5efa86d0cbfdfeb927d234
43	79EB5A678C24C5D71FD9675E92E410D3	loader	1	1795319188	\\x3ba386156f2b1d1fd5029a8e37c02b6a6b40c99d754edea6dae42e51b453af86
44	C406A65170543333670EC2487D701DAE	loader	1	1795319188	\\xdb84605ecad851197a4a99e19b8e87b125cf9de415d9ec203a18907762c48744
45	51E9A88A8E1F74748E556057ACAE1D30	loader	1	1795319188	\\x49ff82a7f729099c60c1ef6054206ecfb81980a4febae1ed36c0c3e03e79abbb
46	F6D8089C23BA64428AF3E38EBF9CBEAA	loader	1	1795319189	\\x1e449b72eb261465485a31702e130fcdaf6d8d1d00e14786da614bb06aa269b4
47	4613C7E396404FC996785C27325A870C	loader	1	1795319189	\\x11c7241862dc2818d6833cb71ed820d1a997fefbc5937644a26c696da59f4c91
48	60006556EAF26084CC2F0DA248B3DF4A	loader	1	1795319189	\\xca8168a978ab3eec2f04e1acf6b19bff11d708f1fa52c54a5df06932bd04255c
49	F5731C1F3438E54A1E4D3B555DCD2EF6	loader	1	1795319189	\\x68e9bd712eefe1438276c469d83518d9f47b799c4b053583e88781d1004407ec
50	42685AD777B50AE3EC129C4F80F2EBEE	loader	1	1795319189	\\x206373454efd3644b95b4ad6155684f1dbb8f00e613e6b785d5b1230d26d5981
51	BD91F7C9EA0A0DCFE1B963B20040E108	loader	1	1795319189	\\x711f17d49f04ec44ae60d68f4a7d1238b9c7e507c86df78812dab59945bd45d7
52	818575CEBF3904459BED65E21D5BAFCB	loader	1	1795319189	\\x841ddc7680b9b1d07a3148e10ee870f6e1c6badaa9a91a1f3f00681d75286db2
53	3A00CE891C6584B0C7D4DA553140D4A1	loader	1	1795319189	\\x94faccb83a551d8c1807c58c4fdd0341145ecc2488a0c97c1890250209f862c0
54	DBCC023F4D0DE9B7E0FC9583525A9CE4	loader	1	1795319189	\\xf582ea778d7a89746a3fdf443429ac0654e35fa33afa0b45f1f9a187f8b9fc04
55	CD882014E35031D31330D8FA9D11FE66	loader	1	1795319189	\\xe0cee17aa18eeb09e8a722164f738320902eb2247427a60287ed3bfadd5dec74
56	F57C6BD23674CCC032535985E8A63B90	loader	1	1795319189	\\xd663951ac17ff28771235eb2bc426f4ed1643bdbe92c83eddd667512ce67b75e
57	070CA520ECE05B94048E3605BE788BE7	loader	1	1795319189	\\x58f6eb805ff7290eef58aaf35eaf2e3cc5c08d393ade442876308fcbcfd57cd6
58	602238EC97A5033D1ED5F01D0AB19B4A	loader	1	1795319189	\\x438b80e4df6c6bf1c727ae4a5c47dbcd53ac0aad8d419be2e76758b7efc69276
59	34DED35D2C605C1327CB2610176B94A7	loader	1	1795319189	\\xd112c764c4bf5c5dcb7fa6cca84d9ae5410aaebb971b8575c978841d307b625d
60	1C66ABFA7324F2406A478E0005D6D72A	loader	1	1795319189	\\x0c2516c6991b51eda730be597f01b3c31605ef7f36e037f1171bf75abc2561e9
61	39B3B75125AB7ABCE688E5BDCD8691DD	loader	1	1795319189	\\xa73cc46e9120f5c83aaa12143b8fed5ccbb61b964939dae1355b983bd47bd38c
62	46AD0F3721719AB8AC1D6A1E90E5D497	loader	1	1795319189	\\x18f073c150984a06389c5fdf049816b9f92b356f582b3a0ed830bc6aa471e2bd
63	8156EFF2A343562A6E91A51C5485CF19	loader	1	1795319189	\\x7cfc58bdc588aa6c24c21bf567db5fc19d0b8f37d16e906c75717037a5e5cb87
64	4FBB35900D850C6506739C297881577B	loader	1	1795319189	\\x6599c7d896a0a32d884e26e40b77b348d62c6c0f364b7594bb743ab1fc7117c7
65	D5BA41722E0CE3F2E8503ED78E2578A0	loader	1	1795319189	\\x1bfeb3627fefcfcf06e379ec2b844fc281e68b3b377c4bcb97137fe7fe91c0c3
66	2875478141C544DAC5D0F2047D17F2F2	loader	1	1795319189	\\xe3826834c240053f508f1fb11ea5b666a9b83fad5913b47f472f75c55dc0212f
67	D01CC5A43906E7C85C2C4AE2D052996C	loader	1	1795319189	\\xa72975635a39bb47b8a3d4a5cc68ffdb12ca31ffae65c1abb9f87f5cf68c0979
68	33C6FA26AF9313248A1DD11B06A4A5D8	loader	1	1795319189	\\x79f4b8b5bd53e7331650537e346f320418e38d2bb853079a77fba1c41b5b3df7
69	DD775D25583D21960D54C0C54C627134	loader	1	1795319189	\\xb69ae1e0d5a17d82020e2e2a226c34adc027e6f440470b07cb169ccdfbca5de8
70	97933C2039A2F18E61B57E1DBE03FCF1	loader	1	1795319189	\\x7b1167d5b4a3c839a8601b4c2ad6e8568ff294e1a3d210e719ffaa5b21abd56c
71	9215416D11075E0B895105D91216BA25	loader	1	1795319189	\\x1111c3f4761e299b6047a1e807dfb563f7482aa01cde5f27705f43c7a7f987fe
72	2D54889F3E3C5DC24501FB6D9F437C0D	loader	1	1795319189	\\x5d5a8244be09d81d286bb6f29c49a54c7ec2298a128d4784c8fbd57c6435ac01
73	E32C65AD2C757B2195CD4BB6B65ECEFB	loader	1	1795319189	\\x2239254adfa4ddd2dd323d09f568edc1d805dece88fce5929400f08a62d41305
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
COM_UNREAD	WORKER_PETROV	REC_OPENING	1795298182	Уточните период смены.	0
COM_READ	WORKER_IVANOV	REC_ORDER	1795308982	Исполнение доложить до конца смены.	1795309582
COM_PAST	WORKER_SIDOROVA	REC_PAST_1	1795271182	Приложите сводку к записи.	0
\.

COPY public.logbookfiles (keylink, workerkey, recordkey, filename, filedata) FROM stdin;
FILE_TEXT	WORKER_PETROV	REC_TRIP	осциллограмма.txt	\\x743b49613b49623b49630a303b312e323b312e313b312e320a32303b392e383b312e303b312e310a
FILE_IMAGE	WORKER_PETROV	REC_TRIP	фото опоры № 12.png	\\x89504e470d0a1a0a0000000d49484452000000010000000108060000001f15c4890000000d4944415478da6364f8cf500f00038601805a347d6b0000000049454e44ae426082
\.

COPY public.logbookrecords (keylink, shiftkey, workerkey, visaworkerkey, receiverworkerkey, originrecordkey, secondmarkworkerkey, recordtime, eventtime, firstmarktime, secondmarktime, executiontime, html, status, direction) FROM stdin;
REC_PAST_1	SHIFT_CDS_PAST	WORKER_IVANOV	\N	\N	\N	\N	1795217182	1795217182	\N	\N	\N	Принята сводка погоды.	0	\N
REC_PAST_2	SHIFT_CDS_PAST	WORKER_KUZNETSOV	\N	\N	\N	\N	1795265182	1795265182	\N	\N	\N	Проверена связь с подстанциями.	0	\N
REC_OPENING	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795297582	1795297582	\N	\N	\N	<meta name="template" content="open_wshift">Смену принял <a href="parameter:name=shift_workers_groups;locname=Диспетчер">Иванов И.И. гр.V</a> <a href="parameter:name=interval;locname=Период%20смены">с 20:00 по 08:00</a>.	0	\N
REC_MESSAGE	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	WORKER_SMIRNOV_ZAR	\N	\N	1795301182	1795301182	\N	\N	\N	Запрошено состояние <b>нагрузки</b>.	0	1
REC_REPLACED	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795304782	1795304782	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	2	\N
REC_SUCCESSOR	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	REC_REPLACED	\N	1795304782	1795304782	\N	\N	1795305382	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Луговая</a> отключить <a href="parameter:name=text;locname=Оборудование">ВЛ 110 кВ Полевая – Заречная</a>.	0	\N
REC_ORDER	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795308382	1795308382	\N	\N	\N	<meta name="template" content="time_exec;second_mark=:/markers/worker_blue.png;command=Доложено%20об%20исполнении">Отдана команда: на <a href="parameter:name=substation;locname=Подстанция">ПС 35 кВ Ольховка</a> отключить <a href="parameter:name=text;locname=Оборудование">ф. 7</a>.	0	\N
REC_TRIP	SHIFT_CDS_OPEN	WORKER_PETROV	WORKER_SIDOROVA	\N	\N	\N	1795311982	1795311982	1795311922	\N	\N	<meta name="template" content="first_mark=:/markers/exclamation_mark.png">Отключилась <a href="parameter:name=line;locname=Линия">ВЛ 110 кВ Полевая – Заречная</a> на <a href="parameter:name=substation;locname=Подстанция">ПС 110 кВ Заречная</a>.	0	\N
REC_DRAFT_IVANOV	SHIFT_CDS_OPEN	WORKER_IVANOV	\N	\N	\N	\N	1795315582	1795315582	\N	\N	\N	Черновик: осмотр оборудования.	1	\N
REC_DRAFT_PETROV	SHIFT_CDS_OPEN	WORKER_PETROV	\N	\N	\N	\N	1795317382	1795317382	\N	\N	\N	Черновик: доклад бригады.	1	\N
REC_ZAR	SHIFT_ZAR_OPEN	WORKER_SMIRNOV_ZAR	\N	\N	\N	\N	1795313182	1795313182	\N	\N	\N	Схема сверена по щиту.	0	\N
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
SHIFT_CDS_OPEN	DEP_CDS	WORKER_IVANOV	\N	1795297582	1795297582	1795383982
SHIFT_ZAR_OPEN	DEP_ZAR	WORKER_SMIRNOV_ZAR	\N	1795311982	1795311982	1795355182
SHIFT_CDS_PAST	DEP_CDS	WORKER_IVANOV	WORKER_IVANOV	1795211182	1795211182	1795297582
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
REC_PAST_1	1795217182	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'погод' 'принят' 'сводк'
REC_PAST_2	1795265182	'a:WORKER_KUZNETSOV' 'd:DEP_CDS' 'record:' 's:0' 'подстанц' 'провер' 'с' 'связ'
REC_OPENING	1795297582	'00' '08' '20' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'v' 'гр' 'и' 'иван' 'по' 'приня' 'с' 'смен'
REC_MESSAGE	1795301182	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:0' 'запрош' 'нагрузк' 'состоян'
REC_REPLACED	1795304782	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:2' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_SUCCESSOR	1795304782	'110' 'a:WORKER_IVANOV' 'd:DEP_CDS' 'e:110' 'e:кв' 'e:лугов' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'команд' 'лугов' 'на' 'отда' 'отключ' 'полев' 'пс'
REC_ORDER	1795308382	'35' '7' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:35' 'e:кв' 'e:ольховк' 'e:пс' 'record:' 's:0' 'кв' 'команд' 'на' 'ольховк' 'отда' 'отключ' 'пс' 'ф'
REC_TRIP	1795311982	'110' 'a:WORKER_PETROV' 'd:DEP_CDS' 'e:110' 'e:вл' 'e:заречн' 'e:кв' 'e:полев' 'e:пс' 'record:' 's:0' 'вл' 'заречн' 'кв' 'на' 'отключ' 'полев' 'пс'
REC_DRAFT_IVANOV	1795315582	'a:WORKER_IVANOV' 'd:DEP_CDS' 'record:' 's:1' 'оборудован' 'осмотр' 'черновик'
REC_DRAFT_PETROV	1795317382	'a:WORKER_PETROV' 'd:DEP_CDS' 'record:' 's:1' 'бригад' 'доклад' 'черновик'
REC_ZAR	1795313182	'a:WORKER_SMIRNOV_ZAR' 'd:DEP_ZAR' 'record:' 's:0' 'по' 'свер' 'схем' 'щит'
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
schema	3
codec	Windows-1251
timeZone	Europe/Moscow
epoch	F0413E552AE1EA74DC1BADD6146E74B1
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

CREATE TRIGGER b_hold BEFORE INSERT OR DELETE OR UPDATE OF status, executiontime, receiverworkerkey, originrecordkey, recordtime, eventtime, firstmarktime, html, direction ON public.logbookrecords FOR EACH ROW EXECUTE FUNCTION public.vrk_hold_workshift();

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

