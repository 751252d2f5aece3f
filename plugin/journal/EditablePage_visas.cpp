#include "CVrkCliMod.h"
#include "EditablePage.h"
#include "LogbookFields.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordValue.h"
#include "VisaOption.h"

/// The visas. They are written at once, or, if the site asks for it, after the user has given his password again.

void EditablePage::signRecordRequest()
{
    MDRData* record = currentRecord();
    if (isRecordSignable(record))
        requestVisas({record}, false);
}

void EditablePage::signAllRecordsRequest()
{
    QVector<MDRData*> signable;
    for (int i = 0; i < m_shown.records.data.RecCount(); ++i) {
        MDRData* record = MDARec(m_shown.records.data.array, 0, i);
        if (isRecordSignable(record))
            signable.append(record);
    }
    if (!signable.isEmpty())
        requestVisas(signable, true);
}

void EditablePage::requestVisas(const QVector<MDRData*>& records, bool isOfAll)
{
    if (!VisaOption::asksPassword(m_module->session())) {
        writeVisas(records, isOfAll);
        return;
    }
    m_awaitingVisas.clear();
    for (const MDRData* record : records)
        m_awaitingVisas.append(Row(record).key());
    m_isVisaOfAll = isOfAll;
    emit visaPasswordWanted(isOfAll ? nullptr : records.first(), records.size());
}

void EditablePage::signAfterPassword()
{
    QVector<MDRData*> signable;
    for (const QByteArray& key : qAsConst(m_awaitingVisas)) {
        MDRData* awaiting = recordByKeyLink(&m_shown.records, key.constData());
        if (isRecordSignable(awaiting))
            signable.append(awaiting);
    }
    const bool isAnyLost = signable.size() < m_awaitingVisas.size();
    m_awaitingVisas.clear();
    writeVisas(signable, m_isVisaOfAll);
    if (isAnyLost)
        m_messages->error(tr("Виза"),
                          m_isVisaOfAll ? tr("Пока вводился пароль, часть записей удалили: на них визы нет.")
                                        : tr("Пока вводился пароль, запись удалили: визы на ней нет."));
}

void EditablePage::writeVisas(const QVector<MDRData*>& records, bool isOfAll)
{
    CRowBatch batch(LogbookRecordFields);
    for (const MDRData* record : records) {
        MDRData* row = batch.newRow(ROW_UPDATE, Row(record).key());
        batch.SetValF(row, Field::VisaWorkerKey, MDRValue::text(workerKey()));
        batch.RecPost(row);
    }
    const QString table = QLatin1String(LogbookTable::Records);
    if (isOfAll)
        write(batch, "signAllRecordsRequest()",
              LogText::fill(QStringLiteral("error sign record! Data: Table(%1)"), {table}),
              tr("Не удалось поставить визу на записи!"));
    else
        write(batch, "signRecordRequest()",
              LogText::fill(
                  QStringLiteral("error sign record! Data: Table(%1), KeyLink(%2)"),
                  {table, records.isEmpty() ? QString() : QString::fromUtf8(Row(records.first()).key())}),
              tr("Не удалось поставить визу на запись!"));
}
