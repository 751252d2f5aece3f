#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EditablePage.h"
#include "GenGuid32.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "RecordValue.h"

#include <algorithm>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

/// Copying and pasting of records. Only a reference is copied: pasting fetches the record itself.

namespace
{
constexpr char recordFormat[] = "logbook_record";
constexpr int longestKey = 32;

/// A foreign key is inserted into a select unchanged, so only letters and digits are accepted.
bool isKey(const QString& key)
{
    return !key.isEmpty() && key.size() <= longestKey &&
           std::all_of(key.begin(), key.end(), [](QChar character) {
               return character.unicode() < 128 &&
                      (character.isLetterOrNumber() || character == QLatin1Char('_'));
           });
}
} // namespace

void EditablePage::copyRecordRequest()
{
    const MDRData* record = currentRecord();
    if (!record)
        return;
    auto* mimeData = new QMimeData;
    mimeData->setData(QLatin1String(recordFormat),
                      QByteArray(LogbookTable::Records) + ';' + Row(record).bytes(Field::KeyLink));
    QGuiApplication::clipboard()->setMimeData(mimeData);
}

void EditablePage::pasteRecordRequest()
{
    const QMimeData* mimeData = QGuiApplication::clipboard()->mimeData();
    if (!mimeData || !mimeData->hasFormat(QLatin1String(recordFormat)))
        return;
    const QString text =
        QString::fromUtf8(mimeData->data(QLatin1String(recordFormat)).constData()); // up to its first NUL
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() != 2 || parts[0] != QLatin1String(LogbookTable::Records) || !isKey(parts[1]))
        return;

    CMDArray answer; // contains the record if it is not in this page's view
    const MDRData* source = recordByKeyLink(&m_shown.records, parts[1].toLatin1().constData());
    if (!source) {
        const QString sql =
            QString::fromLatin1(LogbookSql::RecordByKey).arg(QLatin1String(LogbookTable::Records), parts[1]);
        answer = m_module->session()->SqlRequest(sql.toUtf8().constData());
        source = answer.RecCount() > 0 ? MDARec(answer.array, 0, 0) : nullptr;
        if (!source)
            return; // removed, or unreachable: no message
    }
    pasteRecord(source);
}

void EditablePage::pasteRecord(const MDRData* source)
{
    const QByteArray key = GenGuid32();
    const QByteArray workshiftKey = workshiftKeyLink().toUtf8();
    CRowBatch batch(LogbookRecordFields);
    MDRData* row = batch.newRow(ROW_INSERT, key);
    copyMarked(batch, row, source);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(key));
    batch.SetValF(row, Field::ShiftKey, MDRValue::text(workshiftKey));
    batch.SetValF(row, Field::WorkerKey, MDRValue::text(workerKey()));
    batch.SetValF(row, Field::VisaWorkerKey, MDRValue::null());
    batch.SetValF(row, Field::status, MDRValue::number(StatusDraft));
    batch.RecPost(row);
    send(batch); // a failed paste has no message here; the status line shows it
}
