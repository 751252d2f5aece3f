#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EditablePage.h"
#include "GenGuid32.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "RecordValue.h"

/// The second marker and the execution time. They are written to the record that is current when the answer
/// arrives.

namespace
{
QString logTime(double time)
{
    return QStringLiteral("%1").arg(time, 0, 'g');
}
} // namespace

void EditablePage::writeMark(CRowBatch& batch, const QByteArray& key, const char* function,
                             const QString& logLine, const QStringList& rest, const QString& message)
{
    const QStringList values{QLatin1String(LogbookTable::Records), QString::fromLatin1(key)};
    write(batch, function, LogText::fill(logLine, values + rest), message);
}

void EditablePage::markRecord(const QByteArray& key, const Marks& marks, const char* function,
                              const QString& logLine, const QStringList& rest, const QString& message)
{
    CRowBatch batch(LogbookRecordFields);
    MDRData* row = batch.newRow(ROW_UPDATE, key);
    for (const auto& [field, value] : marks)
        batch.SetValF(row, field, value);
    batch.RecPost(row);
    writeMark(batch, key, function, logLine, rest, message);
}

void EditablePage::setSecondMarkRequest(const QDateTime& dt)
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    const QByteArray key = Row(record).key();
    const double time = DateTime_To_HfnTime(dt);
    const QByteArray& worker = workerKey();
    markRecord(
        key,
        {{Field::SecondMarkWorkerKey, MDRValue::text(worker)}, {Field::secondMarkTime, MDRValue::real(time)}},
        "setSecondMarkRequest(QDateTime)",
        QStringLiteral("error set second marker record! Data: Table(%1), KeyLink(%2), "
                       "SecondMarkWorkerKey(%3), secondMarkTime(%4)"),
        {QString::fromUtf8(worker), logTime(time)}, tr("Не удалось установить второй маркер!"));
}

void EditablePage::removeSecondMarkRequest()
{
    if (const MDRData* record = currentRecord())
        markRecord(
            Row(record).key(),
            {{Field::SecondMarkWorkerKey, MDRValue::null()}, {Field::secondMarkTime, MDRValue::null()}},
            "removeSecondMarkRequest()",
            QStringLiteral("error remove second marker record! Data: Table(%1), KeyLink(%2)"), {},
            tr("Не удалось удалить второй маркер!"));
}

void EditablePage::removeTimeExecRequest()
{
    // Deliberate: in place in any status: an approved record gets no successor here.
    if (const MDRData* record = currentRecord())
        markRecord(Row(record).key(), {{Field::executionTime, MDRValue::null()}}, "removeTimeExecRequest()",
                   QStringLiteral("error remove time execution record! Data: Table(%1), KeyLink(%2)"), {},
                   tr("Не удалось сбросить время выпонения!"));
}

void EditablePage::setTimeExecRequest(const QDateTime& dt)
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    const QByteArray key = Row(record).key();
    const double time = DateTime_To_HfnTime(dt);
    // The line has no third placeholder: the time is the fourth.
    const QString logLine =
        QStringLiteral("error set time execution record! Data: Table(%1), KeyLink(%2), executionTime(%4)");
    const char* const function = "setTimeExecRequest(QDateTime)";
    const QStringList rest{QString(), logTime(time)};
    const QString message = tr("Не удалось установить время выполнения!");
    if (!hasStatus(record, StatusApproved)) {
        markRecord(key, {{Field::executionTime, MDRValue::real(time)}}, function, logLine, rest, message);
        return;
    }
    CRowBatch batch(LogbookRecordFields);
    addSuccessor(batch, record, key, time);
    writeMark(batch, key, function, logLine, rest, message);
}

/// The old record is marked deleted; a copy with the execution time replaces it and refers to it.
void EditablePage::addSuccessor(CRowBatch& batch, const MDRData* record, const QByteArray& key, double time)
{
    const QByteArray successorKey = GenGuid32();
    MDRData* old = batch.newRow(ROW_UPDATE, key);
    batch.SetValF(old, Field::status, MDRValue::number(StatusDeleted));
    batch.RecPost(old);

    MDRData* row = batch.newRow(ROW_INSERT, successorKey);
    copyMarked(batch, row, record);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(successorKey));
    batch.SetValF(row, Field::status, MDRValue::number(StatusApproved));
    batch.SetValF(row, Field::OriginRecordKey, MDRValue::text(key));
    batch.SetValF(row, Field::VisaWorkerKey, MDRValue::null());
    batch.SetValF(row, Field::executionTime, MDRValue::real(time));
    batch.RecPost(row);
}

void EditablePage::copyMarked(CRowBatch& batch, MDRData* row, const MDRData* record)
{
    for (int number = 0; number < MDAFldCount(batch.array); ++number) {
        const MDRField* field = MDRFldByNum(batch.array, number);
        MDRVar value;
        MDRGetVal(MDRFldByNum(MDARecArr(record), number), record, &value);
        MDRSetVal(field, row, &value);
        MDRSetUser(field, row, 1);
    }
}
