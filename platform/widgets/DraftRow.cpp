#include "DraftRow.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "MDRValues.h"

namespace
{
const char* const RecordsTable = "LogbookRecords";
}

void DraftRow::start(const QByteArray& keyLink)
{
    key = keyLink;
    attempted = false;
    sent = RecordDraft();
    before = RecordDraft();
}

bool DraftRow::insert(CVrkCliSes* session, const RecordDraft& draft)
{
    if (attempted) {
        // The answer to an earlier attempt may have been lost: the row must not be written twice.
        bool written = false;
        if (!find(session, &written))
            return false;
        if (written)
            return update(session, draft);
    }
    const QByteArray shift = author.workshiftKey.toUtf8();
    const QByteArray worker = author.workerKey.toUtf8();
    CRowBatch rows(LogbookRecordFields);
    MDRData* row = rows.newRow(ROW_INSERT, key);
    rows.SetValF(row, Field::ShiftKey, MDRValue::text(shift));
    rows.SetValF(row, Field::WorkerKey, MDRValue::text(worker));
    rows.SetValF(row, Field::recordTime, MDRValue::real(session->GetHfnTime()));
    rows.SetValF(row, Field::status, MDRValue::number(StatusDraft));
    for (const char* absent :
         fieldNames(Field::VisaWorkerKey, Field::OriginRecordKey, Field::SecondMarkWorkerKey,
                    Field::secondMarkTime, Field::executionTime))
        rows.SetValF(row, absent, MDRValue::null());
    sent = draft;
    sent.writeAll(rows, row, session->codec());
    rows.RecPost(row);
    attempted = true;
    return session->SqlUpdate(RecordsTable, rows.array, true, nullptr);
}

bool DraftRow::find(CVrkCliSes* session, bool* found)
{
    CMDArray answer;
    answer = session->SqlRequest(QStringLiteral("SELECT * FROM LogbookRecords WHERE KeyLink = '%1'")
                                     .arg(QString::fromUtf8(key))
                                     .toUtf8());
    if (answer.array == nullptr)
        return false;
    *found = answer.RecCount() > 0;
    if (*found) {
        before = RecordDraft();
        before.read(MDARec(answer.array, 0, 0), session->codec());
    }
    return true;
}

bool DraftRow::update(CVrkCliSes* session, const RecordDraft& draft)
{
    sent = draft;
    CRowBatch rows(LogbookRecordFields);
    MDRData* row = rows.newRow(ROW_UPDATE, key);
    if (!sent.writeChanges(rows, row, before, session->codec())) {
        MDARecDel(row);
        return true;
    }
    rows.RecPost(row);
    attempted = true;
    return session->SqlUpdate(RecordsTable, rows.array, true, nullptr);
}
