#include "EditablePage.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordValue.h"

namespace
{
/// Adds a row that sets the status of a record.
void addStatus(CRowBatch& batch, const MDRData* record, RecordStatus status)
{
    MDRData* row = batch.newRow(ROW_UPDATE, Row(record).key());
    batch.SetValF(row, Field::status, MDRValue::number(status));
    batch.RecPost(row);
}

/// A log line: "%1" is the table of records, "%2" a record.
QString inRecords(const char* line, const QByteArray& key = QByteArray())
{
    return LogText::fill(QLatin1String(line), {QLatin1String(LogbookTable::Records), QString::fromUtf8(key)});
}

void addDeletion(CRowBatch& batch, const MDRData* record)
{
    batch.RecPost(batch.newRow(ROW_DELETE, Row(record).key()));
}
} // namespace

bool EditablePage::send(CRowBatch& batch)
{
    return m_module->session()->SqlUpdate(LogbookTable::Records, batch.array, true, nullptr);
}

void EditablePage::write(CRowBatch& batch, const char* function, const QString& logLine,
                         const QString& message)
{
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(QStringLiteral("void LogBookWidget::") + QLatin1String(function), logLine);
    m_messages->error(tr("Ошибка"), message);
}

bool EditablePage::deleteRecord(MDRData* record)
{
    CRowBatch batch(LogbookRecordFields);
    addDeletion(batch, record);
    return send(batch);
}

bool EditablePage::setRecordDeleted(MDRData* record)
{
    CRowBatch batch(LogbookRecordFields);
    addStatus(batch, record, StatusDeleted);
    return send(batch);
}

void EditablePage::deleteRecordRequest()
{
    MDRData* record = currentRecord();
    if (hasStatus(record, StatusApproved)) {
        m_messages->showMsgBox(
            tr("Удаление утвержденной записи"),
            LogText::centered(tr("После удаления запись будет помечена как удалённая!") + QLatin1Char('\n') +
                              tr("Вы действительно хотите удалить запись?")),
            MessageIconQuestion, MessageTypeYesNo, this, SLOT(deleteRecordAnswer(QAbstractButton*)));
    } else if (hasStatus(record, StatusDraft) && !deleteRecord(record)) {
        LogText::warn(QStringLiteral("void LogBookWidget::deleteRecordRequest()"),
                      LogText::fill(QStringLiteral("failed delete record %1 with status %2 from table %3"),
                                    {QString::fromUtf8(Row(record).key()), QString::number(StatusDraft),
                                     QLatin1String(LogbookTable::Records)}));
        m_messages->error(tr("Ошибка удаления записи"), tr("Не удалось удалить запись!"));
    }
}

void EditablePage::deleteRecordAnswer(QAbstractButton* button)
{
    if (!m_messages->isConfirmed(button))
        return;
    MDRData* record = currentRecord(); // the record that is current now, not that of the question
    if (!record || setRecordDeleted(record))
        return;
    LogText::warn(QStringLiteral("void LogBookWidget::deleteRecordAnswer(QAbstractButton*)"),
                  LogText::fill(QStringLiteral("failed set status %1 for record %2 in table %3"),
                                {QString::number(StatusDeleted), QString::fromUtf8(Row(record).key()),
                                 QLatin1String(LogbookTable::Records)}));
    m_messages->error(tr("Ошибка удаления записи"), tr("Не удалось удалить запись!"));
}

void EditablePage::deleteDrafts(bool onlyMine, const char* function)
{
    CRowBatch batch(m_shown.records.data);
    for (const MDRData* record : drafts(onlyMine))
        addDeletion(batch, record);
    write(batch, function, inRecords("error delete my records! Data: Table(%1) "),
          tr("Не удалось удалить черновые записи!"));
}

QVector<MDRData*> EditablePage::drafts(bool onlyMine) const
{
    QVector<MDRData*> found;
    const QByteArray& worker = workerKey();
    for (int i = 0; i < m_shown.records.data.RecCount(); ++i) {
        MDRData* record = MDARec(m_shown.records.data.array, 0, i);
        if (RecordCensus::isDraft(record) && (!onlyMine || RecordCensus::isAuthor(record, worker)))
            found.append(record);
    }
    return found;
}

void EditablePage::approveRecordRequest()
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    if (templateOf(Row(record).value(Field::html)).isExistTemplateProperty("time_exec") &&
        !Row(record).has(Field::executionTime)) {
        m_messages->showMsgBox(
            tr("Утверждение записи"),
            LogText::centered(tr("Не внесено время выполнения! После утверждения редактирование "
                                 "записи запрещено! Продолжить?")),
            MessageIconWarning, MessageTypeYesNo, this, SLOT(approveRecordAnswer(QAbstractButton*)));
        return;
    }
    approveRecord();
}

void EditablePage::approveRecordAnswer(QAbstractButton* button)
{
    if (m_messages->isConfirmed(button))
        approveRecord();
}

void EditablePage::approveRecord()
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    CRowBatch batch(m_shown.records.data);
    addStatus(batch, record, StatusApproved);
    write(batch, "approveRecord()",
          inRecords("error approve record! Data: Table(%1), KeyLink(%2)", Row(record).key()),
          tr("Не удалось утвердить запись!"));
}

void EditablePage::approveDrafts(bool onlyMine, const char* function)
{
    CRowBatch batch(m_shown.records.data);
    for (const MDRData* record : drafts(onlyMine))
        addStatus(batch, record, StatusApproved);
    write(batch, function, inRecords("error approve users records! Data: Table(%1) "),
          tr("Не удалось утвердить записи!"));
}
