#include "RecordCreatorDialog.h"

#include "CModelTable.h"
#include "CreatorTables.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DraftRow.h"
#include "GenGuid32.h"
#include "KeptDraft.h"
#include "MDRValues.h"
#include "RecordCreatorKept.h"
#include "Row.h"
#include "TemplateFiller.h"
#include "ui_RecordCreatorDialog.h"

#include <QSignalBlocker>

void RecordCreatorDialog::setCurrentRecord(MDRData* record)
{
    m_requestedKey = Row(record).key();
    if (!isVisible())
        return;
    raise();
    activateWindow();
    const bool sameRecord = m_requestedKey.isEmpty() ? m_mode == Mode::Create : m_requestedKey == m_row->key;
    if (sameRecord)
        return;
    m_openAsked = isDirty();
    if (m_openAsked)
        askUnsaved();
    else
        open();
}

void RecordCreatorDialog::open()
{
    m_openAsked = false;
    m_unsaved->forget(); // the user was asked before he continued from unsaved text
    for (NoticeBar* bar : {m_form->noticeBar, m_form->failureBar, m_form->questionBar})
        bar->hide();
    loadTables();
    if (m_requestedKey.isEmpty())
        openNew();
    else
        openRecord(m_requestedKey);
    updateControls();
}

void RecordCreatorDialog::loadTables()
{
    if (!m_tables->load(m_module, m_form->templatesWidget))
        m_form->failureBar->tell(
            NoticeBar::Error,
            tr("Не удалось загрузить шаблоны: %1").arg(m_module->session()->lastErrorText()),
            {{ReloadTables, tr("Повторить"), QStringLiteral("reloadTablesButton")}});
}

void RecordCreatorDialog::openNew()
{
    setWindowTitle(tr("Новая запись"));
    m_mode = Mode::Create;
    m_row->start(GenGuid32());
    m_conflict = false;
    m_restored = false;
    m_row->before.eventTime = DateTime_To_HfnTime(m_module->session()->HfnTimeToSesTime());
    {
        const QSignalBlocker quiet(m_form->templatesWidget);
        m_form->templatesWidget->clearSelection();
    }
    showDraft(m_row->before);
    restoreNew();
    m_form->templatesWidget->setVisible(true);
    if (m_restored)
        focusText();
    else
        m_form->templatesWidget->startSearch();
}

void RecordCreatorDialog::openRecord(const QByteArray& key)
{
    m_row->start(key);
    m_conflict = false;
    m_restored = false;
    const MDRData* record = recordByKeyLink(m_records, key.constData());
    if (record)
        m_row->before.read(record, m_module->session()->codec());
    const bool draft = record && m_row->before.status == StatusDraft;
    m_mode = draft ? Mode::Edit : Mode::Read;
    setWindowTitle(draft ? tr("Правка записи") : tr("Просмотр записи"));
    showDraft(m_row->before);
    if (!record)
        m_form->noticeBar->tell(NoticeBar::Warning, tr("Запись не найдена: возможно, она удалена."));
    else if (!draft)
        tellReadOnly();
    else
        restoreEdit();
    focusText();
}

void RecordCreatorDialog::focusText()
{
    if (m_mode == Mode::Read)
        m_form->cancelButton->setFocus();
    else
        m_form->recordFields->focusText();
}

void RecordCreatorDialog::tellReadOnly()
{
    m_form->noticeBar->tell(NoticeBar::Information,
                            m_row->before.status == StatusDeleted
                                ? tr("Запись удалена и открыта только для чтения.")
                                : tr("Запись утверждена и открыта только для чтения."));
}

void RecordCreatorDialog::showDraft(const RecordDraft& draft)
{
    m_form->recordFields->setDraft(draft);
    updateControls();
}

void RecordCreatorDialog::chooseTemplate()
{
    const MDRData* chosen = m_form->templatesWidget->currentTemplate();
    if (!chosen && isDirty())
        return; // the template was deleted in the meantime: the typed text stays, since the record contains
                // its text
    if (m_restored && isDirty()) {
        // The filler keeps the values typed for a template, but not a restored text: that is kept here for
        // the next opening.
        keepUnsaved();
        m_row->start(GenGuid32());
    }
    if (m_restored)
        m_form->noticeBar->hide();
    m_restored = false;
    m_form->recordFields->startText(Row(chosen).text(Field::html, m_module->session()->codec()),
                                    m_row->author);
    updateControls();
}

void RecordCreatorDialog::choosePinned(int number)
{
    if (m_mode != Mode::Create || m_openAsked || m_form->questionBar->isVisible())
        return;
    if (!m_form->templatesWidget->activatePinned(number))
        m_form->noticeBar->tell(
            NoticeBar::Information,
            tr("У клавиш Alt+%1 нет шаблона: их получают первые девять закреплённых (Ctrl+D в дереве).")
                .arg(number));
}

RecordDraft RecordCreatorDialog::draft() const
{
    return m_form->recordFields->draft(m_row->before);
}

bool RecordCreatorDialog::isDirty() const
{
    switch (m_mode) {
    case Mode::Nothing:
    case Mode::Read:
        return false;
    case Mode::Create:
        return m_form->recordFields->isTextTouched() || !draft().receiverKey.isEmpty();
    case Mode::Edit:
        return !draft().differences(m_row->before).isEmpty();
    case Mode::Orphaned:
        return m_form->recordFields->isTextTouched();
    }
    return false;
}

KeptTexts::Values RecordCreatorDialog::unsaved() const
{
    if (!isDirty())
        return {};
    Kept kept;
    kept.create = m_mode != Mode::Edit;
    kept.key = m_mode == Mode::Orphaned ? GenGuid32() : m_row->key;
    if (m_mode == Mode::Create) // while editing, the tree is hidden and keeps its state
        kept.templateKey = m_form->templatesWidget->currentTemplateKey();
    kept.attempted = m_row->attempted;
    kept.sent = m_row->sent;
    kept.draft = draft();
    return kept.values();
}

void RecordCreatorDialog::keepUnsaved()
{
    if (isDirty())
        m_form->recordFields->filler()->forgetValues();
    m_unsaved->release();
}

/// Restores the text kept last among those that were not written in the meantime.
void RecordCreatorDialog::restoreNew()
{
    QVector<KeptTexts::Text> texts = m_unsaved->offered();
    while (!texts.isEmpty() && !restoreKept(texts.takeLast()))
        ;
}

/// Restores the text kept last for the current record, if any.
void RecordCreatorDialog::restoreEdit()
{
    KeptTexts::Text last;
    for (const KeptTexts::Text& text : m_unsaved->offered()) {
        const Kept kept = Kept::read(text);
        if (!kept.create && kept.key == m_row->key)
            last = text;
    }
    if (!last.id.isEmpty())
        restoreKept(last);
}

/// False if the text was already written: a program that was killed may not have been able to forget it.
bool RecordCreatorDialog::restoreKept(const KeptTexts::Text& text)
{
    const Kept kept = Kept::read(text);
    m_unsaved->take(text);
    if (m_mode == Mode::Create) {
        m_row->key = kept.create ? kept.key : GenGuid32();
        m_row->attempted = kept.create && (kept.attempted || text.isLeft);
        m_row->sent = kept.sent;
        bool isWritten = false;
        if (text.isLeft && kept.create && m_row->find(m_module->session(), &isWritten) && isWritten &&
            kept.draft.differences(m_row->before).isEmpty()) {
            m_unsaved->forget();
            m_row->start(GenGuid32());
            return false;
        }
        const QSignalBlocker quiet(m_form->templatesWidget);
        m_form->templatesWidget->selectTemplate(kept.templateKey);
    }
    m_restored = true;
    m_form->recordFields->restoreDraft(kept.draft);
    updateControls();
    if (m_mode == Mode::Edit && !isDirty()) {
        m_restored = false;
        m_unsaved->forget();
        return false;
    }
    m_form->noticeBar->tell(NoticeBar::Information, tr("Восстановлен несохранённый текст"),
                            {{DropRestored, tr("Отбросить"), QStringLiteral("dropRestoredButton")}});
    return true;
}

void RecordCreatorDialog::dropRestored()
{
    m_form->recordFields->filler()->forgetValues();
    m_unsaved->forget();
    m_form->noticeBar->hide();
    if (m_mode == Mode::Edit)
        openRecord(m_row->key);
    else
        openNew();
    updateControls();
}
