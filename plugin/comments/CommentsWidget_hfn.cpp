#include "CommentsWidget.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "TableLoad.h"
#include "VrkTableModel.h"
#include "VrkTableTool.h"

/// A failed request is not handled here: the tab stays empty, and the session has informed the user.
void CommentsWidget::uploadRecords()
{
    const QString sql = LogText::fill(QLatin1String(LogbookSql::UnreadRecords),
                                      {QLatin1String(LogbookTable::Records), QLatin1String(Field::KeyLink),
                                       QLatin1String(LogbookTable::Comments), QLatin1String(Field::RecordKey),
                                       QLatin1String(Field::WorkerKey), m_location->workerKey(),
                                       QLatin1String(Field::readedTime)});
    CModelTable answer(LogbookTable::Records);
    answer.data = m_module->session()->SqlRequest(sql.toUtf8().constData());
    TableLoad::repack(answer.data, m_records.data);
}

void CommentsWidget::uploadByRecords(CModelTable& target)
{
    const QString keys = TableLoad::quotedKeys(m_records.data);
    if (keys.isEmpty())
        return;
    const QString sql =
        LogText::fill(QLatin1String(LogbookSql::ByRecords),
                      {QString::fromStdString(target.name), QLatin1String(Field::RecordKey), keys});
    target.data = m_module->session()->SqlRequest(sql.toUtf8().constData());
}

void CommentsWidget::uploadAttachments(CModelTable& target, const char* recordKey)
{
    const QString sql = LogText::fill(QLatin1String(LogbookSql::ByRecords),
                                      {QString::fromStdString(target.name), QLatin1String(Field::RecordKey),
                                       QLatin1Char('\'') + QString::fromUtf8(recordKey) + QLatin1Char('\'')});
    CMDArray answer;
    answer = m_module->session()->SqlRequest(sql.toUtf8().constData());
    TableLoad::repack(answer, target.data);
}

MDRData* CommentsWidget::uploadRecord(const char* key)
{
    const QString sql = LogText::fill(
        QLatin1String(LogbookSql::RecordByField),
        {QLatin1String(LogbookTable::Records), QLatin1String(Field::KeyLink), QString::fromUtf8(key)});
    CModelTable answer(LogbookTable::Records);
    answer.data = m_module->session()->SqlRequest(sql.toUtf8().constData());
    if (answer.data.RecCount() == 0) {
        LogText::warn(QStringLiteral("MDArrayRec* CommentsWidget::uploadRecord(MDRChar)"),
                      LogText::fill(QStringLiteral("error SQL query execution [%1]. Not found record %2!"),
                                    {sql, QString::fromUtf8(key)}));
        return nullptr;
    }
    m_tableTool->model()->beginAppendRows(1);
    MDRData* record = TableLoad::repack(answer.data, m_records.data);
    uploadAttachments(m_comments, key); // its existing comments
    uploadAttachments(m_files, key);
    m_preparer.prepareRecord(record);
    m_tableTool->model()->endAppendRows();
    return record;
}
