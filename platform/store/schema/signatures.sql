-- Which changes are signatures of the person who makes them, and what they mean; null for all other changes. The triggers
-- of a table write them into LogSignatures, from where they get into the change log like every row. The administrator's
-- changes are none.

MEANING LogbookRecords
    CASE WHEN coalesce(NEW.VisaWorkerKey, '') <> coalesce(OLD.VisaWorkerKey, '')
              THEN CASE WHEN coalesce(NEW.VisaWorkerKey, '') = '' THEN 'visaRemoved' ELSE 'visa' END
         WHEN NEW.status = 0 AND OLD.status IS DISTINCT FROM 0 THEN 'approval'
         WHEN OLD.status = 0 AND NEW.status IS DISTINCT FROM 0 THEN 'cancellation' END;

MEANING LogbookWorkshifts
    CASE WHEN coalesce(NEW.CloseWorkerKey, '') <> '' AND coalesce(OLD.CloseWorkerKey, '') = '' THEN 'closing' END;
