#include "OpenWorkshiftDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "KeptChoice.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TemplateFiller.h"

namespace
{
QByteArrayList keysOf(const CMDArray& rows)
{
    QByteArrayList keys;
    for (int position = 0; position < rows.RecCount(); ++position)
        keys << Row(MDARec(rows.array, 0, position)).key();
    return keys;
}

/// Replaces the content of the batch by deletions of these rows.
void turnIntoDeletions(CRowBatch& batch)
{
    const QByteArrayList keys = keysOf(batch);
    batch.lastError = MDAClearRec(batch.array);
    for (const QByteArray& key : keys)
        batch.RecPost(batch.newRow(ROW_DELETE, key));
}
} // namespace

void OpenWorkshiftDialog::apply()
{
    const QString signature = QStringLiteral("void OpenWorkshiftDialog::apply()");
    const QString title = tr("Ошибка при открытии смены");
    if (!module()) {
        LogText::warn(signature, QStringLiteral("failed assert [parent] how [CVrkCliMod*]!"));
    } else if (m_departmentKey.isEmpty()) {
        LogText::warn(signature, QStringLiteral("could not create record: unknown workshift keyLink!"));
        emit error(title, tr("Подразделение не найдено!"));
    } else if (m_workerKey.isEmpty()) {
        LogText::warn(signature, QStringLiteral("could not create record: unknown worker keyLink!"));
        emit error(title, tr("Сотрудник не найден!"));
    } else {
        openWorkshift();
    }
    close();
}

void OpenWorkshiftDialog::addWorkshift(CRowBatch& batch, const QByteArray& key, double from, double to,
                                       double now) const
{
    const QByteArray departmentKey = m_departmentKey.toUtf8();
    const QByteArray workerKey = m_workerKey.toUtf8();
    MDRData* row = batch.newRow(ROW_INSERT, key);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(key));
    batch.SetValF(row, Field::DepartmentKey, MDRValue::text(departmentKey));
    batch.SetValF(row, Field::OpenWorkerKey, MDRValue::text(workerKey));
    batch.SetValF(row, Field::CloseWorkerKey, MDRValue::null());
    batch.SetValF(row, Field::createdAt, MDRValue::real(now));
    batch.SetValF(row, Field::startTime, MDRValue::real(from));
    batch.SetValF(row, Field::endTime, MDRValue::real(to));
    batch.RecPost(row);
}

void OpenWorkshiftDialog::openWorkshift()
{
    const QString signature = QStringLiteral("void OpenWorkshiftDialog::openWorkshift(CVrkCliMod*)");
    const QString title = tr("Ошибка открытия смены");
    const double from = DateTime_To_HfnTime(start());
    const double to = DateTime_To_HfnTime(end());
    const double now = DateTime_To_HfnTime(module()->session()->HfnTimeToSesTime());
    const QByteArray workshiftKey = GenGuid32();

    CRowBatch workshift(LogbookWorkshiftFields);
    addWorkshift(workshift, workshiftKey, from, to, now);
    if (!send(LogbookTable::Workshifts, workshift)) {
        LogText::warn(
            signature,
            LogText::fill(QStringLiteral("error open workshift! SqlUpdate returned FALSE! Data: Table[%1]: "
                                         "%2[%3], %4[%5], %6[%7], %8[%9], %10[%11], %12[%13],"),
                          {QLatin1String(LogbookTable::Workshifts), QLatin1String(Field::KeyLink),
                           QString::fromLatin1(workshiftKey), QLatin1String(Field::DepartmentKey),
                           m_departmentKey, QLatin1String(Field::OpenWorkerKey), m_workerKey,
                           QLatin1String(Field::CloseWorkerKey), QStringLiteral("NULL"),
                           QLatin1String(Field::startTime), logNumber(from), QLatin1String(Field::endTime),
                           logNumber(to)}));
        emit error(title, tr("Произошла внутренняя ошибка при открытии смены!"));
        return;
    }

    CRowBatch crew(LogbookWorkersWorkshiftFields);
    addCrewRows(crew, workshiftKey, true);
    if (!send(LogbookTable::WorkersWorkshift, crew)) {
        turnIntoDeletions(workshift);
        send(LogbookTable::Workshifts, workshift);
        LogText::warn(
            signature,
            LogText::fill(QStringLiteral("error open workshift! SqlUpdate returned FALSE! Data: Table[%1]"),
                          {QLatin1String(LogbookTable::WorkersWorkshift)}));
        emit error(title, tr("Произошла внутренняя ошибка при открытии смены!"));
        return;
    }

    QStringList values{QLatin1String(LogbookTable::Records)};
    CRowBatch record(LogbookRecordFields);
    addRecord(record, workshiftKey, now, &values);
    if (!send(LogbookTable::Records, record)) {
        turnIntoDeletions(workshift);
        turnIntoDeletions(crew);
        send(LogbookTable::Workshifts, workshift);
        send(LogbookTable::WorkersWorkshift, crew);
        // The last pair, the direction, is not in the log line.
        LogText::warn(
            signature,
            LogText::fill(
                QStringLiteral("error create record about opening workshift! SqlUpdate returned FALSE! "
                               "Data: Table[%1]: %2[%3], %4[%5], %6[%7], %8[%9], %10[%11], %12[%13], "
                               "%14[%15], %16[%17], %18[%19], %20[%21], %22[%23], %24[%25], %26[%27]"),
                values));
        emit error(title, tr("Не удалось создать запись об открытии смены!"));
        return;
    }
    m_filler->valuesWritten();
    m_kept->forget();
}
