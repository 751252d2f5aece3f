#include "RecordCreatorDialog.h"

#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DraftRow.h"
#include "KeptDraft.h"
#include "TemplateFiller.h"
#include "ui_RecordCreatorDialog.h"

void RecordCreatorDialog::save()
{
    if (!m_form->saveButton->isEnabled())
        return;
    m_form->failureBar->hide();
    if (m_conflict) {
        askConflict();
        return;
    }
    CVrkCliSes* session = m_module->session();
    if (m_mode == Mode::Create ? m_row->insert(session, draft()) : m_row->update(session, draft()))
        saved();
    else
        m_form->failureBar->tell(NoticeBar::Error,
                                 tr("Не удалось сохранить запись: %1").arg(session->lastErrorText()));
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

void RecordCreatorDialog::saved()
{
    const bool next = m_mode == Mode::Create && m_form->keepOpenCheck->isChecked() && !m_openAsked;
    if (m_mode == Mode::Create)
        m_form->templatesWidget->noteUse();
    m_form->recordFields->filler()->valuesWritten();
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
