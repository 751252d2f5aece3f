#include "LogbookFields.h"

namespace
{
#define RECORD_FIELDS                                                                                        \
    Field::KeyLink, Field::ShiftKey, Field::WorkerKey, Field::VisaWorkerKey, Field::ReceiverWorkerKey,       \
        Field::OriginRecordKey, Field::SecondMarkWorkerKey, Field::recordTime, Field::eventTime,             \
        Field::firstMarkTime, Field::secondMarkTime, Field::executionTime, Field::html, Field::status,       \
        Field::direction
} // namespace

const MDRFieldDescr LogbookWorkshiftFields[7] = {
    Field::KeyLink,   Field::DepartmentKey, Field::OpenWorkerKey, Field::CloseWorkerKey,
    Field::createdAt, Field::startTime,     Field::endTime,
};

const MDRFieldDescr LogbookWorkersWorkshiftFields[4] = {
    Field::KeyLink,
    Field::WorkshiftKey,
    Field::WorkerKey,
    Field::opening,
};

const MDRFieldDescr LogbookRecordFields[15] = {RECORD_FIELDS};

const MDRFieldDescr LogbookRecordExtFields[18] = {
    RECORD_FIELDS,
    Field::file,
    Field::comment,
    Field::object,
};

const MDRFieldDescr LogbookCommentFields[6] = {
    Field::KeyLink, Field::WorkerKey, Field::RecordKey, Field::commentTime, Field::text_, Field::readedTime,
};

const MDRFieldDescr LogbookFilesFields[5] = {
    Field::KeyLink, Field::WorkerKey, Field::RecordKey, Field::fileName, Field::fileData,
};

const MDRFieldDescr LogbookTemplatesFields[4] = {
    Field::KeyLink,
    Field::CategoryKey,
    Field::nameLoc,
    Field::html,
};

const MDRFieldDescr LogbookCatsTemplateFields[5] = {
    Field::KeyLink, Field::ParentKey, Field::OrgTypeKey, Field::DepartmentKey, Field::nameLoc,
};
