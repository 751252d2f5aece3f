#include "RecordCreatorDialog.h"

#include "CreatorTables.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "DraftRow.h"
#include "EventRow.h"
#include "Fields.h"
#include "GenGuid32.h"
#include "KeptDraft.h"
#include "MDRValues.h"
#include "RecordCreatorKept.h"
#include "TemplateFiller.h"
#include "ui_RecordCreatorDialog.h"

namespace
{
/// "Name, hh:mm" of the transaction of an event; the change log knows its author.
QString whoAndWhen(const TEventNciParse* event, CVrkCliSes* session)
{
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
    QString name = RecordCreatorDialog::tr("другой пользователь");
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
    return RecordCreatorDialog::tr("%1, %2").arg(name, time.toString(QStringLiteral("hh:mm")));
}
} // namespace

void RecordCreatorDialog::reloadTemplates()
{
    if (!isVisible())
        m_tables->setStale();
    m_form->templatesWidget->reloadTemplates();
}

void RecordCreatorDialog::MessageData(TEventNciParse* event)
{
    if (!event || !event->recordKey)
        return;
    m_form->recordFields->MessageData(event);
    if (EventRow(*event).isOf("LogbookRecords"))
        recordEvent(event);
    else
        m_tables->apply(*event, isVisible());
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
    if (key != m_row->key)
        return;
    if (event->eventNumber == EventInserted)
        recordArrived(event);
    else if (m_mode != Mode::Edit && m_mode != Mode::Read)
        return;
    else if (event->eventNumber == EventDeleted)
        recordLost(tr("Запись удалена: %1.").arg(whoAndWhen(event, m_module->session())));
    else
        recordChanged(event);
}

void RecordCreatorDialog::recordArrived(const TEventNciParse* event)
{
    if (m_mode != Mode::Create || !m_row->attempted)
        return;
    const bool sameText = m_row->sent.differences(draft()).isEmpty();
    m_row->before = RecordDraft();
    m_row->before.readMarked(event->recordType, event->recordData, m_module->session()->codec());
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
    RecordDraft theirs = m_row->before;
    theirs.readMarked(event->recordType, event->recordData, m_module->session()->codec());
    if (m_mode == Mode::Read) {
        const bool changed = theirs.status != m_row->before.status;
        m_row->before = theirs;
        if (changed)
            tellReadOnly();
        return;
    }
    if (theirs.status != StatusDraft) {
        if (!isDirty()) {
            m_mode = Mode::Read;
            m_row->before = theirs;
            showDraft(theirs);
        }
        recordLost(tr("Запись утверждена: %1.").arg(whoAndWhen(event, m_module->session())));
        return;
    }
    const QStringList changes = theirs.differences(m_row->before);
    if (changes.isEmpty())
        return;
    if (theirs.differences(draft()).isEmpty()) { // the window shows what the server has
        m_row->before = theirs;
        if (m_row->attempted && m_row->sent.differences(theirs).isEmpty())
            saved();
        return;
    }
    const bool dirty = isDirty();
    takeUntouched(theirs);
    const QString news = tr("%1: изменено (%2).")
                             .arg(whoAndWhen(event, m_module->session()), changes.join(QStringLiteral(", ")));
    m_form->noticeBar->tell(dirty ? NoticeBar::Warning : NoticeBar::Information,
                            dirty ? news + u' ' + tr("Ваш текст остался в окне, при сохранении будет вопрос.")
                                  : news);
}

/// Accepts the others' values in fields that the user has not changed; the rest waits for his decision.
void RecordCreatorDialog::takeUntouched(const RecordDraft& theirs)
{
    const RecordDraft own = draft();
    const RecordDraft merged = own.mergedWith(theirs, m_row->before);
    const bool textTouched = own.html != m_row->before.html;
    m_conflict = isDirty();
    m_row->before = theirs;
    if (!textTouched) {
        showDraft(merged);
        return;
    }
    m_form->recordFields->setTextTouched();
    m_form->recordFields->setValues(merged);
    updateControls();
}

void RecordCreatorDialog::takeTheirs()
{
    m_conflict = false;
    m_form->recordFields->filler()->forgetValues();
    m_form->noticeBar->hide();
    showDraft(m_row->before);
}

void RecordCreatorDialog::recordLost(const QString& what)
{
    if (m_mode == Mode::Read) {
        m_form->noticeBar->tell(NoticeBar::Warning, what);
        return;
    }
    if (isDirty())
        m_form->recordFields->setTextTouched();
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
    m_row->start(GenGuid32());
    m_form->recordFields->setTextTouched();
    m_form->noticeBar->hide();
    setWindowTitle(tr("Новая запись"));
    updateControls();
    save();
}
