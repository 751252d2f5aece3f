#include "LogbookFields.h"

namespace
{
constexpr std::uint8_t keyWidth = 32;
constexpr std::uint8_t nameWidth = 100;

#define RECORD_FIELDS                                                                                        \
    {"KeyLink", keyWidth, mdr_TChar}, {"ShiftKey", keyWidth, mdr_TChar}, {"WorkerKey", keyWidth, mdr_TChar}, \
        {"VisaWorkerKey", keyWidth, mdr_TChar}, {"ReceiverWorkerKey", keyWidth, mdr_TChar},                  \
        {"OriginRecordKey", keyWidth, mdr_TChar}, {"SecondMarkWorkerKey", keyWidth, mdr_TChar},              \
        {"recordTime", 0, mdr_TDouble}, {"eventTime", 0, mdr_TDouble}, {"firstMarkTime", 0, mdr_TDouble},    \
        {"secondMarkTime", 0, mdr_TDouble}, {"executionTime", 0, mdr_TDouble}, {"html", 0, mdr_TMemo},       \
        {"status", 0, mdr_TInt32},                                                                           \
    {                                                                                                        \
        "direction", 0, mdr_TInt32                                                                           \
    }
} // namespace

const MDRFieldDescr LogbookWorkshiftFields[7] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"DepartmentKey", keyWidth, mdr_TChar},
    {"OpenWorkerKey", keyWidth, mdr_TChar},
    {"CloseWorkerKey", keyWidth, mdr_TChar},
    {"createdAt", 0, mdr_TDouble},
    {"startTime", 0, mdr_TDouble},
    {"endTime", 0, mdr_TDouble},
};

const MDRFieldDescr LogbookWorkersWorkshiftFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"WorkshiftKey", keyWidth, mdr_TChar},
    {"WorkerKey", keyWidth, mdr_TChar},
    {"opening", 0, mdr_TBool},
};

const MDRFieldDescr LogbookRecordFields[15] = {RECORD_FIELDS};

const MDRFieldDescr LogbookRecordExtFields[18] = {
    RECORD_FIELDS,
    {"file", 0, mdr_TBool},
    {"comment", 0, mdr_TBool},
    {"object", 0, mdr_TMemo},
};

const MDRFieldDescr LogbookCommentFields[6] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"WorkerKey", keyWidth, mdr_TChar},
    {"RecordKey", keyWidth, mdr_TChar},
    {"commentTime", 0, mdr_TDouble},
    {"text_", 0, mdr_TMemo},
    {"readedTime", 0, mdr_TDouble},
};

const MDRFieldDescr LogbookFilesFields[5] = {
    {"KeyLink", keyWidth, mdr_TChar},   {"WorkerKey", keyWidth, mdr_TChar},
    {"RecordKey", keyWidth, mdr_TChar}, {"fileName", nameWidth, mdr_TChar},
    {"fileData", 0, mdr_TBlob},
};

const MDRFieldDescr LogbookTemplatesFields[4] = {
    {"KeyLink", keyWidth, mdr_TChar},
    {"CategoryKey", keyWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
    {"html", 0, mdr_TMemo},
};

const MDRFieldDescr LogbookCatsTemplateFields[5] = {
    {"KeyLink", keyWidth, mdr_TChar},    {"ParentKey", keyWidth, mdr_TChar},
    {"OrgTypeKey", keyWidth, mdr_TChar}, {"DepartmentKey", keyWidth, mdr_TChar},
    {"nameLoc", nameWidth, mdr_TChar},
};
