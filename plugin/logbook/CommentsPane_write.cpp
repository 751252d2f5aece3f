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
#include "RecordValue.h"

#include <QListWidget>
#include <QTextCodec>
#include <QToolButton>

bool CommentsPane::send(CRowBatch& batch) const
{
    return m_source.module->session()->SqlUpdate(LogbookTable::Comments, batch.array, true, nullptr);
}

void CommentsPane::createCommentRequest()
{
    // The key of the comment that was changed last stays, and the new text replaces that comment: meant.
    m_editor->clear();
    m_editor->show();
}

/// The status of the record is not asked: the writer may change a comment on a deleted record. Meant.
void CommentsPane::changeCommentRequest()
{
    const QString key = keyOf(m_controls.list->currentItem());
    const MDRData* row = comment(key);
    if (!row || !isMine(row))
        return;
    m_editor->setCommentKey(key);
    m_editor->setText(
        m_source.module->session()->codec()->toUnicode(MDRValue::bytes(recordValue(row, "text_"))));
    m_editor->show();
}

void CommentsPane::upsertComment(const QString& commentKey, const QString& text)
{
    const QString function = signature("void %1::upsertComment(const QString&, const QString&)");
    const QByteArray worker = m_source.location->workerKey().toUtf8();
    const QByteArray bytes = m_source.module->session()->codec()->fromUnicode(text);
    const double now = m_source.now();
    const bool isEdit = !commentKey.isEmpty();

    CRowBatch batch(LogbookCommentFields, fieldCount(LogbookCommentFields));
    MDRData* row = nullptr;
    if (isEdit) {
        const MDRData* old = comment(commentKey);
        if (!old) {
            LogText::warn(function,
                          LogText::fill(QStringLiteral("error edit comment: comment %1 not found in %2!"),
                                        {commentKey, QLatin1String(LogbookTable::Comments)}));
            return;
        }
        row = batch.newRow(ROW_UPDATE, commentKey.toUtf8());
        const MDRVar record = recordValue(old, "RecordKey");
        MDRSetVal(MDRFldByName(batch.array, "RecordKey"), row, &record);
    } else {
        row = newComment(batch, now);
        if (!row)
            return;
    }
    batch.SetValF(row, "WorkerKey", MDRValue::text(worker));
    batch.SetValF(row, "commentTime", MDRValue::real(now));
    batch.SetValF(row, "text_", MDRValue::text(bytes, mdr_TMemo));
    row = batch.RecPost(row);
    if (send(batch))
        return;
    const auto keyText = [row](const char* field) {
        return QString::fromUtf8(MDRValue::copy(recordValue(row, field)));
    };
    LogText::warn(
        function,
        LogText::fill(QStringLiteral("error create new comment in %1! Func SqlUpdate returned FALSE! Data: "
                                     "KeyLink(%2),WorkerKey(%3),RecordKey(%4),commentTime(%5),text_(%6)"),
                      {QLatin1String(LogbookTable::Comments), keyText("KeyLink"),
                       m_source.location->workerKey(), keyText("RecordKey"),
                       QStringLiteral("%1").arg(now, 0, 'g'), text}));
    m_source.messages->error(tr("Ошибка"), isEdit ? tr("Не удалось изменить комментарий")
                                                  : tr("Не удалось добавить новый комментарий"));
}

MDRData* CommentsPane::newComment(CRowBatch& batch, double now) const
{
    const auto failed = [this](const char* reason) {
        LogText::warn(signature("void %1::upsertComment(const QString&, const QString&)"),
                      QLatin1String("can not create or change comment: record ") + QLatin1String(reason));
        return nullptr;
    };
    const MDRData* record = m_source.currentRecord();
    if (!record)
        return failed("not selected!");
    const MDRVar recordKey = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(recordKey))
        return failed("does not contains KeyLink!");
    const MDRVar author = recordValue(record, "WorkerKey");
    if (!MDRValue::hasText(author))
        return failed("does not contains WorkerKey!");

    const QByteArray key = GenGuid32();
    MDRData* row = batch.newRow(ROW_INSERT, key);
    batch.SetValF(row, "KeyLink", MDRValue::text(key));
    batch.SetValF(row, "RecordKey", recordKey);
    // One's own records need no reading.
    batch.SetValF(row, "readedTime", isMine(record) ? MDRValue::real(now) : MDRValue::null());
    return row;
}

void CommentsPane::deleteByKey()
{
    if (m_controls.remove->isEnabled())
        deleteCommentRequest();
}

void CommentsPane::deleteCommentRequest()
{
    m_askedKey = keyOf(m_controls.list->currentItem());
    m_source.messages->ask(tr("Удаление комментария"), tr("Вы действительно хотите удалить комментарий?"),
                           this, SLOT(deleteCommentAnswer(QAbstractButton*)));
}

void CommentsPane::deleteCommentAnswer(QAbstractButton* button)
{
    m_askedKey.clear();
    const bool isConfirmed = m_source.messages->isConfirmed(button);
    const MDRData* row = comment(keyOf(m_controls.list->currentItem()));
    if (!isConfirmed || !row)
        return;
    const QByteArray key = MDRValue::copy(recordValue(row, "KeyLink"));
    CRowBatch batch(m_source.comments->data);
    MDRData* deletion = batch.newRow(ROW_DELETE, key);
    batch.SetValF(deletion, "KeyLink", MDRValue::text(key));
    batch.RecPost(deletion);
    if (send(batch))
        return;
    LogText::warn(
        signature("void %1::deleteCommentAnswer(QAbstractButton*)"),
        LogText::fill(
            QStringLiteral("error delete comment in %1! Func SqlUpdate returned FALSE! Data: KeyLink(%2)"),
            {QLatin1String(LogbookTable::Comments), QString::fromUtf8(key)}));
    m_source.messages->error(tr("Ошибка"), tr("Не удалось удалить комментарий!"));
}

void CommentsPane::setCommentReaded(const QString& key, CRowBatch& batch)
{
    if (!comment(key)) {
        LogText::warn(signature("void %1::setCommentReaded(const QString&, CMDArray*)"),
                      LogText::fill(QStringLiteral("error read comment: comment %1 not found in %2!"),
                                    {key, QLatin1String(LogbookTable::Comments)}));
        return;
    }
    MDRData* row = batch.newRow(ROW_UPDATE, key.toUtf8());
    batch.SetValF(row, "readedTime", MDRValue::real(m_source.module->session()->GetHfnTime()));
    batch.RecPost(row);
}

/// A comment that is read keeps its time.
void CommentsPane::setCommentReaded(const QListWidgetItem* item, CRowBatch& batch)
{
    const QString key = keyOf(item);
    const MDRData* row = comment(key);
    if (!row || !m_source.isReaded(recordValue(row, "readedTime")))
        setCommentReaded(key, batch);
}

void CommentsPane::setCurrentCommentReaded()
{
    const QListWidgetItem* item = m_controls.list->currentItem();
    if (!item)
        return;
    CRowBatch batch(LogbookCommentFields, fieldCount(LogbookCommentFields));
    setCommentReaded(item, batch);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(signature("void %1::setCurrentCommentReaded()"),
                  QStringLiteral("error read comment in %1! Func SqlUpdate returned FALSE!")
                      .arg(QLatin1String(LogbookTable::Comments)));
    m_source.messages->error(tr("Ошибка"), tr("Не удалось отметить комментарий как прочитанный!"));
}

void CommentsPane::setAllCommentsReaded()
{
    CRowBatch batch(LogbookCommentFields, fieldCount(LogbookCommentFields));
    for (int row = 0; row < m_controls.list->count(); ++row)
        setCommentReaded(m_controls.list->item(row), batch);
    if (batch.RecCount() == 0 || send(batch))
        return;
    LogText::warn(signature("void %1::setAllCommentsReaded()"),
                  QStringLiteral("error read all comment in %1! Func SqlUpdate returned FALSE!")
                      .arg(QLatin1String(LogbookTable::Comments)));
    m_source.messages->error(tr("Ошибка"), tr("Не удалось отметить комментарии как прочитанные!"));
}
