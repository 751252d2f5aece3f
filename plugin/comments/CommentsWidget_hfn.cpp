#include "CommentsWidget.h"

#include "Fields.h"
#include "LiveTable.h"
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
    live(answer).load(sql);
    live(m_shown.records).append(answer);
}

void CommentsWidget::uploadByRecords(CModelTable& target)
{
    const QString keys = TableLoad::quotedKeys(m_shown.records.data);
    if (keys.isEmpty())
        return;
    const QString sql =
        LogText::fill(QLatin1String(LogbookSql::ByRecords),
                      {QString::fromStdString(target.name), QLatin1String(Field::RecordKey), keys});
    live(target).load(sql);
}

void CommentsWidget::uploadAttachments(CModelTable& target, const char* recordKey)
{
    const QString sql = LogText::fill(QLatin1String(LogbookSql::ByRecords),
                                      {QString::fromStdString(target.name), QLatin1String(Field::RecordKey),
                                       QLatin1Char('\'') + QString::fromUtf8(recordKey) + QLatin1Char('\'')});
    CModelTable answer(target.name);
    live(answer).load(sql);
    live(target).append(answer);
}

MDRData* CommentsWidget::uploadRecord(const char* key)
{
    const QString sql = LogText::fill(
        QLatin1String(LogbookSql::RecordByField),
        {QLatin1String(LogbookTable::Records), QLatin1String(Field::KeyLink), QString::fromUtf8(key)});
    CModelTable answer(LogbookTable::Records);
    live(answer).load(sql);
    if (answer.data.RecCount() == 0) {
        LogText::warn(QStringLiteral("MDArrayRec* CommentsWidget::uploadRecord(MDRChar)"),
                      LogText::fill(QStringLiteral("error SQL query execution [%1]. Not found record %2!"),
                                    {sql, QString::fromUtf8(key)}));
        return nullptr;
    }
    m_tableTool->model()->beginAppendRows(1);
    MDRData* record = live(m_shown.records).append(answer);
    uploadAttachments(m_shown.comments, key); // its existing comments
    uploadAttachments(m_shown.files, key);
    m_shown.preparer.prepareRecord(record);
    m_tableTool->model()->endAppendRows();
    return record;
}
