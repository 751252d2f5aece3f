#include "RecordCreatorDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "KeptDraft.h"
#include "MDRValues.h"
#include "ui_RecordCreatorDialog.h"

#include <QTextCodec>

namespace
{
const char* const RecordsTable = "LogbookRecords";
}

void RecordCreatorDialog::save()
{
    if (!m_form->saveButton->isEnabled())
        return;
    m_form->failureBar->hide();
    if (m_conflict) {
        askConflict();
        return;
    }
    if (m_mode == Mode::Create ? insert() : update())
        saved();
    else
        showFailure(tr("Не удалось сохранить запись: %1").arg(m_module->session()->lastErrorText()));
}

void RecordCreatorDialog::askConflict()
{
    m_form->questionBar->tell(NoticeBar::Question,
                              tr("Запись тем временем изменили. Какой вариант оставить?"),
                              {{KeepMine, tr("Сохранить мой"), QStringLiteral("keepMineButton")},
                               {TakeTheirs, tr("Взять изменённый"), QStringLiteral("takeTheirsButton")},
                               {Stay, tr("Вернуться"), QStringLiteral("stayButton")}});
    m_form->questionBar->focusChoice(KeepMine);
}

bool RecordCreatorDialog::insert()
{
    if (m_attempted) {
        // The answer to an earlier attempt may have been lost: the row must not be written twice.
        bool written = false;
        if (!findOwnRow(&written))
            return false;
        if (written)
            return update();
    }
    CVrkCliSes* session = m_module->session();
    const QByteArray shift = m_workshiftKey.toUtf8();
    const QByteArray worker = m_workerKey.toUtf8();
    CRowBatch rows(LogbookRecordFields);
    MDRData* row = rows.newRow(ROW_INSERT, m_key);
    rows.SetValF(row, Field::ShiftKey, MDRValue::text(shift));
    rows.SetValF(row, Field::WorkerKey, MDRValue::text(worker));
    rows.SetValF(row, Field::recordTime, MDRValue::real(session->GetHfnTime()));
    rows.SetValF(row, Field::status, MDRValue::number(StatusDraft));
    for (const char* absent :
         fieldNames(Field::VisaWorkerKey, Field::OriginRecordKey, Field::SecondMarkWorkerKey,
                    Field::secondMarkTime, Field::executionTime))
        rows.SetValF(row, absent, MDRValue::null());
    m_sent = draft();
    m_sent.writeAll(rows, row, session->codec());
    rows.RecPost(row);
    m_attempted = true;
    return session->SqlUpdate(RecordsTable, rows.array, true, nullptr);
}

bool RecordCreatorDialog::findOwnRow(bool* found)
{
    CVrkCliSes* session = m_module->session();
    CMDArray answer;
    answer = session->SqlRequest(QStringLiteral("SELECT * FROM LogbookRecords WHERE KeyLink = '%1'")
                                     .arg(QString::fromUtf8(m_key))
                                     .toUtf8());
    if (answer.array == nullptr)
        return false;
    *found = answer.RecCount() > 0;
    if (*found) {
        m_before = RecordDraft();
        m_before.read(MDARec(answer.array, 0, 0), session->codec());
    }
    return true;
}

bool RecordCreatorDialog::update()
{
    CVrkCliSes* session = m_module->session();
    m_sent = draft();
    CRowBatch rows(LogbookRecordFields);
    MDRData* row = rows.newRow(ROW_UPDATE, m_key);
    if (!m_sent.writeChanges(rows, row, m_before, session->codec())) {
        MDARecDel(row);
        return true;
    }
    rows.RecPost(row);
    m_attempted = true;
    return session->SqlUpdate(RecordsTable, rows.array, true, nullptr);
}

void RecordCreatorDialog::saved()
{
    const bool next = m_mode == Mode::Create && m_form->keepOpenCheck->isChecked() && !m_openAsked;
    if (m_mode == Mode::Create)
        m_form->templatesWidget->noteUse();
    m_form->templateFiller->valuesWritten();
    m_unsaved->forget();
    m_mode = Mode::Nothing;
    if (!next) {
        leave();
        return;
    }
    m_requestedKey.clear();
    open();
    m_form->noticeBar->tell(NoticeBar::Information, tr("Запись сохранена в %1")
                                                        .arg(m_module->session()->HfnTimeToSesTime().toString(
                                                            QStringLiteral("hh:mm:ss"))));
}
