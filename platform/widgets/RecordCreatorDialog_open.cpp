#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CToolLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "HfnWrapper.h"
#include "HtmlParser.h"
#include "KeptDraft.h"
#include "MarkerIcon.h"
#include "MDRValues.h"
#include "RecordCreatorKept.h"
#include "Row.h"
#include "ui_RecordCreatorDialog.h"

#include <QScopedValueRollback>
#include <QStyle>
#include <QTextCodec>

namespace
{
const char* const CategoriesTable = "LogbookCatsTemplate";
const char* const TemplatesTable = "LogbookTemplates";
} // namespace

void RecordCreatorDialog::setCurrentRecord(MDRData* record)
{
    m_requestedKey = Row(record).key();
    if (!isVisible())
        return;
    raise();
    activateWindow();
    const bool sameRecord = m_requestedKey.isEmpty() ? m_mode == Mode::Create : m_requestedKey == m_key;
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
    hideBars();
    loadTables();
    if (m_requestedKey.isEmpty())
        openNew();
    else
        openRecord(m_requestedKey);
    updateControls();
}

void RecordCreatorDialog::loadTables()
{
    if (!m_tablesStale)
        return;
    CToolLiteModel tool(m_module);
    tool.m_names = QStringList{QStringLiteral("Workers"),       QStringLiteral("Departments"),
                               QStringLiteral("Organizations"), QStringLiteral("OrgTypes"),
                               QLatin1String(CategoriesTable),  QLatin1String(TemplatesTable)};
    tool.Perform(false);
    const bool complete = tool.m_loaded.size() == static_cast<std::size_t>(tool.m_names.size());
    if (!complete) {
        m_form->failureBar->tell(
            NoticeBar::Error,
            tr("Не удалось загрузить шаблоны: %1").arg(m_module->session()->lastErrorText()),
            {{ReloadTables, tr("Повторить"), QStringLiteral("reloadTablesButton")}});
    }
    if (!complete && m_tables)
        return; // tables loaded earlier are better than a part of them
    m_tablesStale = !complete;
    const std::unique_ptr<CLiteModel> old = std::move(m_tables);
    m_tables.reset(tool.m_model);
    tool.m_model = nullptr;

    TemplatesWidget* templates = m_form->templatesWidget;
    templates->setCatsTemplateTable(table(CategoriesTable));
    templates->setTemplatesTable(table(TemplatesTable));
    templates->setDepartmentsTable(table("Departments"));
    templates->setOrgTypesTable(table("OrgTypes"));
}

CModelTable* RecordCreatorDialog::table(const char* name) const
{
    return m_tables ? m_tables->GetTableByName(name) : nullptr;
}

void RecordCreatorDialog::openNew()
{
    setWindowTitle(tr("Новая запись"));
    m_mode = Mode::Create;
    m_key = GenGuid32();
    m_attempted = false;
    m_conflict = false;
    m_restored = false;
    m_before = RecordDraft();
    m_before.eventTime = DateTime_To_HfnTime(m_module->session()->HfnTimeToSesTime());
    {
        QScopedValueRollback<bool> filling(m_filling, true);
        m_form->templatesWidget->clearSelection();
    }
    showDraft(m_before);
    restoreNew();
    m_form->templatesWidget->setVisible(true);
    if (m_restored)
        focusText();
    else
        m_form->templatesWidget->startSearch();
}

void RecordCreatorDialog::openRecord(const QByteArray& key)
{
    m_key = key;
    m_attempted = false;
    m_conflict = false;
    m_restored = false;
    m_before = RecordDraft();
    const MDRData* record = recordByKeyLink(m_records, key.constData());
    if (record)
        m_before.read(record, m_module->session()->codec());
    const bool draft = record && m_before.status == StatusDraft;
    m_mode = draft ? Mode::Edit : Mode::Read;
    setWindowTitle(draft ? tr("Правка записи") : tr("Просмотр записи"));
    showDraft(m_before);
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
    else if (HtmlParser(m_form->templateFiller->filledTemplate(true).toStdString()).countParameters() > 0)
        m_form->templateFiller->setFocus();
    else
        m_form->eventTimeEdit->setFocus();
}

void RecordCreatorDialog::tellReadOnly()
{
    m_form->noticeBar->tell(NoticeBar::Information,
                            m_before.status == StatusDeleted
                                ? tr("Запись удалена и открыта только для чтения.")
                                : tr("Запись утверждена и открыта только для чтения."));
}

void RecordCreatorDialog::showDraft(const RecordDraft& draft)
{
    QScopedValueRollback<bool> filling(m_filling, true);
    m_form->templateFiller->setTemplate(draft.html);
    m_cleanText = m_form->templateFiller->filledTemplate(true);
    m_autoTime.clear();
    showMarker();
    showFields(draft);
}

void RecordCreatorDialog::showFields(const RecordDraft& draft)
{
    QScopedValueRollback<bool> filling(m_filling, true);
    m_form->eventTimeEdit->setDateTime(HfnTime_to_DateTime(draft.eventTime, -1));
    showCounterpart(draft.receiverKey);
    if (QAbstractButton* button = m_form->directionGroup->button(draft.direction))
        button->setChecked(true);
    updateControls();
}

void RecordCreatorDialog::showCounterpart(const QByteArray& key)
{
    m_form->counterpartEdit->setWorker(
        key,
        HfnWrapper::workerFullName(m_module->session()->codec(), table("Workers"), QString::fromUtf8(key)));
}

void RecordCreatorDialog::chooseTemplate()
{
    if (m_filling)
        return;
    const MDRData* chosen = m_form->templatesWidget->currentTemplate();
    if (!chosen && isDirty())
        return; // the template was deleted in the meantime: the typed text stays, since the record contains
                // its text
    if (m_restored && isDirty()) {
        // The filler keeps the values typed for a template, but not a restored text: that is kept here for
        // the next opening.
        keepUnsaved();
        m_key = GenGuid32();
        m_attempted = false;
    }
    if (m_restored)
        m_form->noticeBar->hide();
    m_restored = false;
    const QString html = Row(chosen).text(Field::html, m_module->session()->codec());
    {
        QScopedValueRollback<bool> filling(m_filling, true);
        TemplateFiller* filler = m_form->templateFiller;
        filler->setTemplate(html);
        // Values typed earlier for this template are shown again, and are still unsaved.
        const bool typedBefore = filler->filledTemplate(false) != html;
        prefill();
        m_cleanText = typedBefore ? QString() : filler->filledTemplate(true);
    }
    showMarker();
    updateControls();
}

void RecordCreatorDialog::showMarker()
{
    const QString marker = RecordDraft::firstMarker(m_form->templateFiller->filledTemplate(true));
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_form->markerIconLabel->setPixmap(MarkerIcon::at(marker).pixmap(size, size));
    m_form->markerIconLabel->setVisible(MarkerIcon::isPath(marker));
    m_form->markerLabel->setVisible(MarkerIcon::isPath(marker));
}

RecordDraft RecordCreatorDialog::draft() const
{
    RecordDraft draft = m_before;
    const QString text = m_form->templateFiller->filledTemplate(true);
    // Unchanged text is the stored one, byte for byte, even if the filler's output differs.
    draft.html = m_mode == Mode::Edit && text == m_cleanText ? m_before.html : text;
    draft.eventTime = DateTime_To_HfnTime(m_form->eventTimeEdit->dateTime());
    draft.direction = m_form->directionGroup->checkedId();
    draft.receiverKey = m_form->counterpartEdit->workerKey();
    // The first mark follows the time of the event, unless it was set to another time.
    if (RecordDraft::firstMarker(draft.html).isEmpty())
        return draft;
    if (m_before.firstMark == 0.0 || m_before.firstMark == m_before.eventTime)
        draft.firstMark = draft.eventTime;
    return draft;
}

bool RecordCreatorDialog::isDirty() const
{
    switch (m_mode) {
    case Mode::Nothing:
    case Mode::Read:
        return false;
    case Mode::Create:
        return m_form->templateFiller->filledTemplate(true) != m_cleanText ||
               !m_form->counterpartEdit->workerKey().isEmpty();
    case Mode::Edit:
        return !draft().differences(m_before).isEmpty();
    case Mode::Orphaned:
        return m_lostUnsaved || m_form->templateFiller->filledTemplate(true) != m_cleanText;
    }
    return false;
}

KeptTexts::Values RecordCreatorDialog::unsaved() const
{
    if (!isDirty())
        return {};
    Kept kept;
    kept.create = m_mode != Mode::Edit;
    kept.key = m_mode == Mode::Orphaned ? GenGuid32() : m_key;
    if (m_mode == Mode::Create) // while editing, the tree is hidden and keeps its state
        kept.templateKey = m_form->templatesWidget->currentTemplateKey();
    kept.attempted = m_attempted;
    kept.sent = m_sent;
    kept.draft = draft();
    return kept.values();
}

void RecordCreatorDialog::keepUnsaved()
{
    if (isDirty())
        m_form->templateFiller->forgetValues();
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
        if (!kept.create && kept.key == m_key)
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
        m_key = kept.create ? kept.key : GenGuid32();
        m_attempted = kept.create && (kept.attempted || text.isLeft);
        m_sent = kept.sent;
        bool isWritten = false;
        if (text.isLeft && kept.create && findOwnRow(&isWritten) && isWritten &&
            kept.draft.differences(m_before).isEmpty()) {
            m_unsaved->forget();
            m_before = RecordDraft();
            m_key = GenGuid32();
            m_attempted = false;
            return false;
        }
        QScopedValueRollback<bool> filling(m_filling, true);
        m_form->templatesWidget->selectTemplate(kept.templateKey);
    }
    m_restored = true;
    const QString clean = m_cleanText;
    showDraft(kept.draft);
    m_cleanText = clean;
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
    m_form->templateFiller->forgetValues();
    m_unsaved->forget();
    m_form->noticeBar->hide();
    if (m_mode == Mode::Edit)
        openRecord(m_key);
    else
        openNew();
    updateControls();
}
