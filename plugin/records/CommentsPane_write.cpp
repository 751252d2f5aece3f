#include "CModelTable.h"
#include "CommentCreatorDialog.h"
#include "CommentsPane.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "GenGuid32.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "PageMessages.h"
#include "RecordTitle.h"
#include "RecordValue.h"

#include <QListWidget>
#include <QTextCodec>
#include <QToolButton>

void CommentsPane::createCommentRequest()
{
    // Deliberate: the key of the comment that was changed last stays, and the new text replaces that
    // comment.
    m_editor->clear();
    m_editor->setRecordKey(currentRecordKey());
    m_editor->warn(replacementWarning(m_editor->commentKey()));
    showEditor();
}

void CommentsPane::showEditor()
{
    nameRecord(source().currentRecord());
    m_editor->show();
}

void CommentsPane::nameRecord(const MDRData* record)
{
    m_editor->recordTitle()->showRecord(record, source().module->session(),
                                        source().location->table(QLatin1String(LogbookTable::Workers)));
}

QString CommentsPane::currentRecordKey() const
{
    const MDRData* record = source().currentRecord();
    return record ? QString::fromUtf8(Row(record).key()) : QString();
}

void CommentsPane::showKept(const KeptTexts::Text& text)
{
    nameRecord(source().currentRecord());
    m_editor->showKept(text);
}

/// A warning about a text that will replace an earlier comment; empty for a new comment.
QString CommentsPane::replacementWarning(const QString& commentKey) const
{
    constexpr int shown = 40;
    if (commentKey.isEmpty())
        return QString();
    const MDRData* old = row(commentKey);
    if (!old)
        return tr("Текст не будет записан: комментария, который вы меняли последним, здесь уже нет.");
    QString text = Row(old).text(Field::text_, source().module->session()->codec());
    text = text.simplified();
    if (text.size() > shown)
        text = text.left(shown) + QStringLiteral("…");
    return tr("Текст заменит ваш прежний комментарий: «%1».").arg(text);
}

/// Deliberate: the record's status is not checked: the author may change a comment on a deleted record.
void CommentsPane::changeCommentRequest()
{
    const QString key = keyOf(m_controls.list->currentItem());
    const MDRData* comment = row(key);
    if (!comment || !isMine(comment))
        return;
    m_editor->setCommentKey(key);
    m_editor->setRecordKey(currentRecordKey());
    m_editor->setText(Row(comment).text(Field::text_, source().module->session()->codec()));
    m_editor->warn(QString());
    showEditor();
}

void CommentsPane::upsertComment(const QString& commentKey, const QString& text)
{
    const QString function = signature("void %1::upsertComment(const QString&, const QString&)");
    const QByteArray worker = source().location->workerKey().toUtf8();
    const QByteArray bytes = source().module->session()->codec()->fromUnicode(text);
    const double now = m_habits.now();
    const bool isEdit = !commentKey.isEmpty();

    CRowBatch batch(LogbookCommentFields);
    m_editor->keep(text); // until it is written
    MDRData* written = nullptr;
    if (isEdit) {
        const MDRData* old = row(commentKey);
        if (!old) {
            LogText::warn(function,
                          LogText::fill(QStringLiteral("error edit comment: comment %1 not found in %2!"),
                                        {commentKey, QLatin1String(LogbookTable::Comments)}));
            return;
        }
        written = batch.newRow(ROW_UPDATE, commentKey.toUtf8());
        const MDRVar record = Row(old).value(Field::RecordKey);
        MDRSetVal(MDRFldByName(batch.array, Field::RecordKey), written, &record);
    } else {
        written = newComment(batch, now);
        if (!written)
            return;
    }
    batch.SetValF(written, Field::WorkerKey, MDRValue::text(worker));
    batch.SetValF(written, Field::commentTime, MDRValue::real(now));
    batch.SetValF(written, Field::text_, MDRValue::text(bytes, mdr_TMemo));
    written = batch.RecPost(written);
    if (send(batch)) {
        m_editor->forget(text);
        return;
    }
    const auto keyText = [written](const char* field) {
        return QString::fromUtf8(MDRValue::copy(Row(written).value(field)));
    };
    LogText::warn(
        function,
        LogText::fill(QStringLiteral("error create new comment in %1! Func SqlUpdate returned FALSE! Data: "
                                     "KeyLink(%2),WorkerKey(%3),RecordKey(%4),commentTime(%5),text_(%6)"),
                      {QLatin1String(LogbookTable::Comments), keyText(Field::KeyLink),
                       source().location->workerKey(), keyText(Field::RecordKey),
                       QStringLiteral("%1").arg(now, 0, 'g'), text}));
    source().messages->error(tr("Ошибка"), isEdit ? tr("Не удалось изменить комментарий")
                                                  : tr("Не удалось добавить новый комментарий"));
}

MDRData* CommentsPane::newComment(CRowBatch& batch, double now) const
{
    const auto failed = [this](const char* reason) {
        LogText::warn(signature("void %1::upsertComment(const QString&, const QString&)"),
                      QLatin1String("can not create or change comment: record ") + QLatin1String(reason));
        return nullptr;
    };
    const MDRData* record = source().currentRecord();
    if (!record)
        return failed("not selected!");
    const MDRVar recordKey = Row(record).value(Field::KeyLink);
    if (!MDRValue::hasText(recordKey))
        return failed("does not contains KeyLink!");
    const MDRVar author = Row(record).value(Field::WorkerKey);
    if (!MDRValue::hasText(author))
        return failed("does not contains WorkerKey!");

    const QByteArray key = GenGuid32();
    MDRData* row = batch.newRow(ROW_INSERT, key);
    batch.SetValF(row, Field::KeyLink, MDRValue::text(key));
    batch.SetValF(row, Field::RecordKey, recordKey);
    // On the author's own records a comment counts as read.
    batch.SetValF(row, Field::readedTime, isMine(record) ? MDRValue::real(now) : MDRValue::null());
    return row;
}

void CommentsPane::deleteByKey()
{
    if (m_controls.remove->isEnabled())
        deleteCommentRequest();
}

void CommentsPane::deleteCommentRequest()
{
    ask(keyOf(m_controls.list->currentItem()), tr("Удаление комментария"),
        tr("Вы действительно хотите удалить комментарий?"), SLOT(deleteCommentAnswer(QAbstractButton*)));
}

void CommentsPane::deleteCommentAnswer(QAbstractButton* button)
{
    const bool isAgreed = isConfirmed(button);
    const MDRData* comment = row(keyOf(m_controls.list->currentItem()));
    if (isAgreed && comment)
        remove(comment, "void %1::deleteCommentAnswer(QAbstractButton*)",
               QStringLiteral("error delete comment in %1! Func SqlUpdate returned FALSE! Data: KeyLink(%2)"),
               tr("Не удалось удалить комментарий!"));
}

void CommentsPane::setCommentReaded(const QString& key, CRowBatch& batch)
{
    if (!row(key)) {
        LogText::warn(signature("void %1::setCommentReaded(const QString&, CMDArray*)"),
                      LogText::fill(QStringLiteral("error read comment: comment %1 not found in %2!"),
                                    {key, QLatin1String(LogbookTable::Comments)}));
        return;
    }
    MDRData* reading = batch.newRow(ROW_UPDATE, key.toUtf8());
    batch.SetValF(reading, Field::readedTime, MDRValue::real(source().module->session()->GetHfnTime()));
    batch.RecPost(reading);
}

/// A read comment keeps its time.
void CommentsPane::setCommentReaded(const QListWidgetItem* item, CRowBatch& batch)
{
    const QString key = keyOf(item);
    const MDRData* comment = row(key);
    if (!comment || !m_habits.isReaded(Row(comment).value(Field::readedTime)))
        setCommentReaded(key, batch);
}

void CommentsPane::setCurrentCommentReaded()
{
    const QListWidgetItem* item = m_controls.list->currentItem();
    if (!item)
        return;
    CRowBatch batch(LogbookCommentFields);
    setCommentReaded(item, batch);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(signature("void %1::setCurrentCommentReaded()"),
                  QStringLiteral("error read comment in %1! Func SqlUpdate returned FALSE!")
                      .arg(QLatin1String(LogbookTable::Comments)));
    source().messages->error(tr("Ошибка"), tr("Не удалось отметить комментарий как прочитанный!"));
}

void CommentsPane::setAllCommentsReaded()
{
    CRowBatch batch(LogbookCommentFields);
    for (int i = 0; i < m_controls.list->count(); ++i)
        setCommentReaded(m_controls.list->item(i), batch);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(signature("void %1::setAllCommentsReaded()"),
                  QStringLiteral("error read all comment in %1! Func SqlUpdate returned FALSE!")
                      .arg(QLatin1String(LogbookTable::Comments)));
    source().messages->error(tr("Ошибка"), tr("Не удалось отметить комментарии как прочитанные!"));
}
