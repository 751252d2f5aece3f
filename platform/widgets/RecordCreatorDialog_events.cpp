#include "RecordCreatorDialog.h"

#include "CLiteModel.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "Fields.h"
#include "GenGuid32.h"
#include "KeptDraft.h"
#include "LiveTable.h"
#include "MDRValues.h"
#include "OrgStructDialog.h"
#include "OrgStructWidget.h"
#include "RecordCreatorKept.h"
#include "ui_RecordCreatorDialog.h"

#include <QScopedValueRollback>
#include <QTextCodec>

void RecordCreatorDialog::reloadTemplates()
{
    m_tablesStale = m_tablesStale || !isVisible();
    m_form->templatesWidget->reloadTemplates();
}

void RecordCreatorDialog::MessageData(TEventNciParse* event)
{
    if (!event || !event->recordKey)
        return;
    m_form->templateFiller->MessageData(event);
    if (m_orgStruct)
        m_orgStruct->widget()->MessageData(event);
    if (EventRow(*event).isOf("LogbookRecords")) {
        recordEvent(event);
        return;
    }
    for (const char* name :
         {"LogbookTemplates", "LogbookCatsTemplate", "Workers", "Departments", "Organizations", "OrgTypes"}) {
        if (!EventRow(*event).isOf(name))
            continue;
        CModelTable* changed = table(name);
        if (isVisible() && changed)
            LiveTable(*changed).apply(*event);
        else
            m_tablesStale = true;
    }
}

void RecordCreatorDialog::recordEvent(const TEventNciParse* event)
{
    const QByteArray key(event->recordKey);
    // A kept text is useless if exactly this row exists after all.
    if (event->eventNumber == EventInserted)
        m_unsaved->forgetOffered([&key](const KeptTexts::Text& text) {
            const Kept kept = Kept::read(text);
            return kept.key == key && kept.sent.differences(kept.draft).isEmpty();
        });
    if (key != m_key)
        return;
    if (event->eventNumber == EventInserted)
        recordArrived(event);
    else if (m_mode != Mode::Edit && m_mode != Mode::Read)
        return;
    else if (event->eventNumber == EventDeleted)
        recordLost(tr("Запись удалена: %1.").arg(whoAndWhen(event)));
    else
        recordChanged(event);
}

void RecordCreatorDialog::recordArrived(const TEventNciParse* event)
{
    if (m_mode != Mode::Create || !m_attempted)
        return;
    const bool sameText = m_sent.differences(draft()).isEmpty();
    m_before = RecordDraft();
    m_before.readMarked(event->recordType, event->recordData, m_module->session()->codec());
    if (sameText) {
        saved();
        return;
    }
    m_form->failureBar->hide();
    m_form->noticeBar->tell(NoticeBar::Information,
                            tr("Запись уже сохранена. То, что вы изменили после этого, сохранится кнопкой."));
}

void RecordCreatorDialog::recordChanged(const TEventNciParse* event)
{
    RecordDraft theirs = m_before;
    theirs.readMarked(event->recordType, event->recordData, m_module->session()->codec());
    if (m_mode == Mode::Read) {
        const bool changed = theirs.status != m_before.status;
        m_before = theirs;
        if (changed)
            tellReadOnly();
        return;
    }
    if (theirs.status != StatusDraft) {
        if (!isDirty()) {
            m_mode = Mode::Read;
            m_before = theirs;
            showDraft(theirs);
        }
        recordLost(tr("Запись утверждена: %1.").arg(whoAndWhen(event)));
        return;
    }
    const QStringList changes = theirs.differences(m_before);
    if (changes.isEmpty())
        return;
    if (theirs.differences(draft()).isEmpty()) { // the window shows what the server has
        m_before = theirs;
        if (m_attempted && m_sent.differences(theirs).isEmpty())
            saved();
        return;
    }
    const bool dirty = isDirty();
    takeUntouched(theirs);
    const QString news = tr("%1: изменено (%2).").arg(whoAndWhen(event), changes.join(QStringLiteral(", ")));
    m_form->noticeBar->tell(dirty ? NoticeBar::Warning : NoticeBar::Information,
                            dirty ? news + u' ' + tr("Ваш текст остался в окне, при сохранении будет вопрос.")
                                  : news);
}

/// Accepts the others' values in fields that the user has not changed; the rest waits for his decision.
void RecordCreatorDialog::takeUntouched(const RecordDraft& theirs)
{
    RecordDraft shown = draft();
    const bool textTouched = shown.html != m_before.html;
    m_conflict = isDirty();
    if (shown.eventTime == m_before.eventTime)
        shown.eventTime = theirs.eventTime;
    if (shown.direction == m_before.direction)
        shown.direction = theirs.direction;
    if (shown.receiverKey == m_before.receiverKey)
        shown.receiverKey = theirs.receiverKey;
    m_before = theirs;
    if (textTouched) {
        m_cleanText = QString(); // the filler's text now always differs from the stored one
        showFields(shown);
    } else {
        shown.html = theirs.html;
        showDraft(shown);
    }
}

void RecordCreatorDialog::takeTheirs()
{
    m_conflict = false;
    m_form->templateFiller->forgetValues();
    m_form->noticeBar->hide();
    showDraft(m_before);
}

void RecordCreatorDialog::recordLost(const QString& what)
{
    if (m_mode == Mode::Read) {
        m_form->noticeBar->tell(NoticeBar::Warning, what);
        return;
    }
    m_lostUnsaved = isDirty();
    m_mode = Mode::Orphaned;
    m_conflict = false;
    m_form->questionBar->hide();
    m_form->noticeBar->tell(
        NoticeBar::Warning, what,
        {{SaveAsNew, tr("Сохранить текст новой записью"), QStringLiteral("saveAsNewButton")}});
    updateControls();
}

void RecordCreatorDialog::saveAsNew()
{
    m_mode = Mode::Create;
    m_key = GenGuid32();
    m_attempted = false;
    m_before = RecordDraft();
    m_cleanText = QString();
    m_form->noticeBar->hide();
    setWindowTitle(tr("Новая запись"));
    updateControls();
    save();
}

/// "Name, hh:mm" of the transaction of an event; the change log knows its author.
QString RecordCreatorDialog::whoAndWhen(const TEventNciParse* event) const
{
    CVrkCliSes* session = m_module->session();
    const QByteArray source(event->sourceText);
    const qlonglong number = source.mid(source.lastIndexOf(',') + 1).toLongLong();
    CMDArray answer;
    answer = session->SqlRequest(
        QStringLiteral("SELECT Users.name_, ChangeTransactions.login, ChangeTransactions.time "
                       "FROM ChangeTransactions "
                       "LEFT JOIN Users ON Users.login = ChangeTransactions.login "
                       "WHERE ChangeTransactions.number = %1")
            .arg(number)
            .toUtf8()
            .constData());
    QString name = tr("другой пользователь");
    QDateTime time = session->HfnTimeToSesTime();
    if (const MDRData* found = MDARec(answer.array, 0, 0)) {
        const Row row(found);
        if (row.has(Field::name_))
            name = row.text(Field::name_, session->codec());
        else if (row.has(Field::login))
            name = row.text(Field::login, session->codec());
        const MDRVar written = row.value("time");
        if (MDRValue::hasTime(written))
            time = HfnTime_to_DateTime(written.value.real, -1);
    }
    return tr("%1, %2").arg(name, time.toString(QStringLiteral("hh:mm")));
}
