#include "RecordPane.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordValue.h"

RecordPane::RecordPane(const Source& source, QObject* parent) : QObject(parent), m_source(source) {}

QString RecordPane::signature(const char* function) const
{
    return LogText::fill(QLatin1String(function), {m_source.owner});
}

MDRData* RecordPane::row(const QString& key) const
{
    return recordByKeyLink(m_source.table, key.toUtf8().constData());
}

bool RecordPane::isMine(const MDRData* row) const
{
    const MDRVar worker = Row(row).value(Field::WorkerKey);
    return MDRValue::hasText(worker) && MDRValue::bytes(worker) == m_source.location->workerKey().toUtf8();
}

bool RecordPane::isChangeable() const
{
    const MDRData* record = m_source.currentRecord();
    return record && !hasStatus(record, StatusDeleted);
}

bool RecordPane::send(const CRowBatch& batch) const
{
    return m_source.module->session()->SqlUpdate(m_source.table->name.c_str(), batch.array, true, nullptr);
}

void RecordPane::ask(const QString& key, const QString& title, const QString& text, const char* slot)
{
    m_askedKey = key;
    m_source.messages->ask(title, text, this, slot);
}

QString RecordPane::askedKey()
{
    if (!m_source.messages->isOpen())
        m_askedKey.clear();
    return m_askedKey;
}

bool RecordPane::isConfirmed(QAbstractButton* button)
{
    m_askedKey.clear();
    return m_source.messages->isConfirmed(button);
}

void RecordPane::remove(const MDRData* row, const char* function, const QString& logLine,
                        const QString& message)
{
    const QByteArray key = Row(row).key();
    CRowBatch batch(m_source.table->data);
    MDRData* deletion = batch.newRow(ROW_DELETE, key);
    batch.SetValF(deletion, Field::KeyLink, MDRValue::text(key));
    batch.RecPost(deletion);
    if (send(batch))
        return;
    LogText::warn(signature(function), LogText::fill(logLine, {QString::fromStdString(m_source.table->name),
                                                               QString::fromUtf8(key)}));
    m_source.messages->error(tr("Ошибка"), message);
}
