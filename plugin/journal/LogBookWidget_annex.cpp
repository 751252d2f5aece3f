#include "CloseWorkshiftDialog.h"
#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogBookWidget.h"
#include "LogText.h"
#include "OpenWorkshiftDialog.h"
#include "PageMessages.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "VrkTableTool.h"

namespace
{
/// Adds a row that sets the status of a record.
void addStatus(CRowBatch& batch, const MDRData* record, RecordStatus status)
{
    MDRData* row = batch.newRow(ROW_UPDATE, Row(record).key());
    batch.SetValF(row, Field::status, MDRValue::number(status));
    batch.RecPost(row);
}

void addDeletion(CRowBatch& batch, const MDRData* record)
{
    batch.RecPost(batch.newRow(ROW_DELETE, Row(record).key()));
}
} // namespace

bool LogBookWidget::send(CRowBatch& batch)
{
    return m_module->session()->SqlUpdate(LogbookTable::Records, batch.array, true, nullptr);
}

void LogBookWidget::showError(const QString& title, const QString& text)
{
    m_messages->error(title, text);
}

void LogBookWidget::openWorkshiftRequest()
{
    m_openWorkshift->show();
}

void LogBookWidget::closeWorkshiftRequest()
{
    if (!isExistDrafts()) {
        showCloseWorkshift(false);
        return;
    }
    showMsgBox(tr("Утверждение записей"),
               LogText::centered(tr("Смена содержит черновые записи!") + QStringLiteral("<br/><br/>") +
                                 tr("Утвердить все черновые записи?")),
               MessageIconQuestion, MessageTypeYesNo, SLOT(closeWorkshiftAnswer(QAbstractButton*)));
}

/// "No" does not stop the closing: the drafts stay drafts.
void LogBookWidget::closeWorkshiftAnswer(QAbstractButton* button)
{
    const bool approve = isConfirmed(button);
    if (button)
        showCloseWorkshift(approve);
}

void LogBookWidget::showCloseWorkshift(bool approveDrafts)
{
    m_closeWorkshift->setApproveDraftRecords(approveDrafts);
    m_closeWorkshift->setCurrentWorkshift(m_currentWorkshift);
    m_closeWorkshift->show();
}

void LogBookWidget::createRecordRequest()
{
    showRecordCreator(nullptr);
}

void LogBookWidget::showKeptRecord(const KeptTexts::Text& text)
{
    const bool isEdit = text.values.value(QStringLiteral("create")) == QStringLiteral("0");
    const QByteArray key = text.values.value(QStringLiteral("key")).toUtf8();
    MDRData* record = isEdit ? recordByKeyLink(&m_records, key.constData()) : nullptr;
    showRecordCreator(record && hasStatus(record, StatusDraft) ? record : nullptr);
}

void LogBookWidget::editRecordRequest()
{
    if (MDRData* record = currentRecord())
        showRecordCreator(record);
}

void LogBookWidget::showRecordCreator(MDRData* record)
{
    m_recordCreator->setCurrentRecord(record);
    m_recordCreator->setWorkshiftKey(workshiftKeyLink());
    m_recordCreator->setWorkerKey(m_location->workerKey());
    m_recordCreator->show();
}

bool LogBookWidget::deleteRecord(MDRData* record)
{
    CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
    addDeletion(batch, record);
    return send(batch);
}

bool LogBookWidget::setRecordDeleted(MDRData* record)
{
    CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
    addStatus(batch, record, StatusDeleted);
    return send(batch);
}

void LogBookWidget::deleteRecordRequest()
{
    MDRData* record = currentRecord();
    if (hasStatus(record, StatusApproved)) {
        showMsgBox(tr("Удаление утвержденной записи"),
                   LogText::centered(tr("После удаления запись будет помечена как удалённая!") +
                                     QLatin1Char('\n') + tr("Вы действительно хотите удалить запись?")),
                   MessageIconQuestion, MessageTypeYesNo, SLOT(deleteRecordAnswer(QAbstractButton*)));
    } else if (hasStatus(record, StatusDraft) && !deleteRecord(record)) {
        LogText::warn(QStringLiteral("void LogBookWidget::deleteRecordRequest()"),
                      LogText::fill(QStringLiteral("failed delete record %1 with status %2 from table %3"),
                                    {QString::fromUtf8(Row(record).key()), QString::number(StatusDraft),
                                     QLatin1String(LogbookTable::Records)}));
        showError(tr("Ошибка удаления записи"), tr("Не удалось удалить запись!"));
    }
}

void LogBookWidget::deleteRecordAnswer(QAbstractButton* button)
{
    if (!isConfirmed(button))
        return;
    MDRData* record = currentRecord(); // the record that is current now, not that of the question
    if (!record || setRecordDeleted(record))
        return;
    LogText::warn(QStringLiteral("void LogBookWidget::deleteRecordAnswer(QAbstractButton*)"),
                  LogText::fill(QStringLiteral("failed set status %1 for record %2 in table %3"),
                                {QString::number(StatusDeleted), QString::fromUtf8(Row(record).key()),
                                 QLatin1String(LogbookTable::Records)}));
    showError(tr("Ошибка удаления записи"), tr("Не удалось удалить запись!"));
}

void LogBookWidget::deleteMyDraftsRequest()
{
    deleteDrafts(true, "void LogBookWidget::deleteMyDraftsRequest()");
}

void LogBookWidget::deleteAllDraftsRequest()
{
    deleteDrafts(false, "void LogBookWidget::deleteAllDraftsRequest()");
}

void LogBookWidget::deleteDrafts(bool onlyMine, const char* signature)
{
    CRowBatch batch(m_records.data);
    for (const MDRData* record : drafts(onlyMine))
        addDeletion(batch, record);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(QLatin1String(signature), QStringLiteral("error delete my records! Data: Table(%1) ")
                                                .arg(QLatin1String(LogbookTable::Records)));
    showError(tr("Ошибка"), tr("Не удалось удалить черновые записи!"));
}

QVector<MDRData*> LogBookWidget::drafts(bool onlyMine) const
{
    QVector<MDRData*> found;
    const QByteArray worker = m_location->workerKey().toUtf8();
    for (int i = 0; i < m_records.data.RecCount(); ++i) {
        MDRData* record = MDARec(m_records.data.array, 0, i);
        if (RecordCensus::isDraft(record) && (!onlyMine || RecordCensus::isAuthor(record, worker)))
            found.append(record);
    }
    return found;
}

void LogBookWidget::approveRecordRequest()
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    if (templateOf(Row(record).value(Field::html)).isExistTemplateProperty("time_exec") &&
        !Row(record).has(Field::executionTime)) {
        showMsgBox(tr("Утверждение записи"),
                   LogText::centered(tr("Не внесено время выполнения! После утверждения редактирование "
                                        "записи запрещено! Продолжить?")),
                   MessageIconWarning, MessageTypeYesNo, SLOT(approveRecordAnswer(QAbstractButton*)));
        return;
    }
    approveRecord();
}

void LogBookWidget::approveRecordAnswer(QAbstractButton* button)
{
    if (isConfirmed(button))
        approveRecord();
}

void LogBookWidget::approveRecord()
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    CRowBatch batch(m_records.data);
    addStatus(batch, record, StatusApproved);
    if (send(batch))
        return;
    LogText::warn(
        QStringLiteral("void LogBookWidget::approveRecord()"),
        LogText::fill(QStringLiteral("error approve record! Data: Table(%1), KeyLink(%2)"),
                      {QLatin1String(LogbookTable::Records), QString::fromUtf8(Row(record).key())}));
    showError(tr("Ошибка"), tr("Не удалось утвердить запись!"));
}

void LogBookWidget::approveMyRecordsRequest()
{
    approveDrafts(true, "void LogBookWidget::approveMyRecordsRequest()");
}

void LogBookWidget::approveAllRecordsRequest()
{
    approveDrafts(false, "void LogBookWidget::approveAllRecordsRequest()");
}

void LogBookWidget::approveDrafts(bool onlyMine, const char* signature)
{
    CRowBatch batch(m_records.data);
    for (const MDRData* record : drafts(onlyMine))
        addStatus(batch, record, StatusApproved);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(QLatin1String(signature), QStringLiteral("error approve users records! Data: Table(%1) ")
                                                .arg(QLatin1String(LogbookTable::Records)));
    showError(tr("Ошибка"), tr("Не удалось утвердить записи!"));
}

void LogBookWidget::addVisa(CRowBatch& batch, const MDRData* record) const
{
    const QByteArray worker = m_location->workerKey().toUtf8();
    MDRData* row = batch.newRow(ROW_UPDATE, Row(record).key());
    batch.SetValF(row, Field::VisaWorkerKey, MDRValue::text(worker));
    batch.RecPost(row);
}

void LogBookWidget::signRecordRequest()
{
    MDRData* record = currentRecord();
    if (!isRecordSignable(record))
        return;
    CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
    addVisa(batch, record);
    if (send(batch))
        return;
    LogText::warn(
        QStringLiteral("void LogBookWidget::signRecordRequest()"),
        LogText::fill(QStringLiteral("error sign record! Data: Table(%1), KeyLink(%2)"),
                      {QLatin1String(LogbookTable::Records), QString::fromUtf8(Row(record).key())}));
    showError(tr("Ошибка"), tr("Не удалось поставить визу на запись!"));
}

void LogBookWidget::signAllRecordsRequest()
{
    CRowBatch batch(LogbookRecordFields, fieldCount(LogbookRecordFields));
    for (int i = 0; i < m_records.data.RecCount(); ++i) {
        MDRData* record = MDARec(m_records.data.array, 0, i);
        if (isRecordSignable(record))
            addVisa(batch, record);
    }
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(
        QStringLiteral("void LogBookWidget::signAllRecordsRequest()"),
        QStringLiteral("error sign record! Data: Table(%1)").arg(QLatin1String(LogbookTable::Records)));
    showError(tr("Ошибка"), tr("Не удалось поставить визу на записи!"));
}

void LogBookWidget::goToOriginRecord()
{
    const MDRVar key = Row(currentRecord()).value(Field::OriginRecordKey);
    if (!MDRValue::hasText(key))
        return;
    if (MDRData* origin = recordByKeyLink(&m_records, key.value.text.data))
        m_tableTool->setCurrentRecord(origin);
    else
        showError(tr("Ошибка поиска записи"), tr("Не удалось найти первичную запись!"));
}
