#include "CommentsPane.h"

#include "CModelTable.h"
#include "CommentCreatorDialog.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "HfnWrapper.h"
#include "LocationInfo.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "MessageListDelegate.h"
#include "RecordValue.h"

#include <QAction>
#include <QListWidget>
#include <QTextCodec>
#include <QToolButton>

CommentsPane::CommentsPane(const Controls& controls, const Source& source, const Habits& habits,
                           QObject* parent)
    : RecordPane(source, parent),
      m_controls(controls),
      m_habits(habits),
      m_editor(new CommentCreatorDialog(source.module, -1))
{
    connect(m_controls.list, &QListWidget::itemSelectionChanged, this, &CommentsPane::updateCommentDelete);
    connect(m_controls.list, &QListWidget::doubleClicked, this, &CommentsPane::changeCommentRequest);
    connect(m_controls.create, &QToolButton::clicked, this, &CommentsPane::createCommentRequest);
    connect(m_controls.remove, &QToolButton::clicked, this, &CommentsPane::deleteCommentRequest);
    connect(m_controls.readed, &QToolButton::clicked, this, &CommentsPane::setCurrentCommentReaded);
    connect(m_controls.allReaded, &QAction::triggered, this, &CommentsPane::setAllCommentsReaded);
    connect(m_editor, &CommentCreatorDialog::commentChanged, this, &CommentsPane::upsertComment);
}

CommentsPane::~CommentsPane()
{
    delete m_editor;
}

void CommentsPane::reload(const MDRData* record)
{
    if (m_editor->isVisible())
        nameRecord(record);
    m_controls.list->clear();
    for (QToolButton* button : {m_controls.create, m_controls.remove, m_controls.readed})
        button->setEnabled(false);
    if (!record)
        return;
    const MDRVar key = Row(record).value(Field::KeyLink);
    if (!MDRValue::hasText(key)) {
        LogText::warn(signature("void %1::reloadComments(MDRData*)"),
                      QStringLiteral("can not reload comments - KeyLink is empty!"));
        return;
    }

    for (const MDRData* comment :
         MDARecsWith(source().table->data.array, Field::RecordKey, key.value.text.data))
        list(comment);
    const QString asked = askedKey();
    int position = 0;
    if (!asked.isEmpty()) { // the answer applies to the comment of the question, or to none
        position = m_controls.list->count() - 1;
        while (position >= 0 && keyOf(m_controls.list->item(position)) != asked)
            --position;
    }
    m_controls.list->setCurrentRow(position);
    updateButtons();
}

void CommentsPane::list(const MDRData* comment)
{
    const auto timeText = [](const MDRVar& time) {
        return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    };
    const QTextCodec* codec = source().module->session()->codec();
    CModelTable* workers = source().location->table(QLatin1String(LogbookTable::Workers));
    const QString author = QString::fromUtf8(Row(comment).copy(Field::WorkerKey));
    const MDRVar readed = Row(comment).value(Field::readedTime);
    const bool isRead = MDRValue::hasTime(readed) && readed.value.real > 0.0;

    auto* item = new QListWidgetItem(Row(comment).text(Field::text_, codec));
    item->setToolTip(isRead ? tr("Прочитано %1").arg(timeText(readed)) : QString());
    item->setData(CommentKeyRole, QString::fromUtf8(Row(comment).key()));
    item->setData(CommentAuthorRole, HfnWrapper::workerShortName(codec, workers, author));
    item->setData(CommentTimeRole, timeText(Row(comment).value(Field::commentTime)));
    if (isMine(comment))
        item->setData(CommentIsMineRole, true);
    item->setData(CommentIsReadRole, isRead);
    m_controls.list->addItem(item);
}

QString CommentsPane::keyOf(const QListWidgetItem* item) const
{
    return item ? item->data(CommentKeyRole).toString() : QString();
}

bool CommentsPane::isUnread(const QListWidgetItem* item) const
{
    const MDRData* comment = row(keyOf(item));
    return comment && !Row(comment).has(Field::readedTime);
}

void CommentsPane::updateButtons()
{
    updateCommentCreate();
    updateCommentDelete();
    updateCommentReaded();
}

void CommentsPane::updateCommentCreate()
{
    m_controls.create->setEnabled(isChangeable());
}

void CommentsPane::updateCommentDelete()
{
    m_controls.remove->setEnabled(isChangeable() && isMine(row(keyOf(m_controls.list->currentItem()))));
}

/// Deliberate: enabled while any comment of the record is unread, independent of the selection.
void CommentsPane::updateCommentReaded()
{
    bool isAnyUnread = false;
    for (int i = 0; i < m_controls.list->count() && !isAnyUnread; ++i)
        isAnyUnread = isUnread(m_controls.list->item(i));
    m_controls.readed->setEnabled(isAnyUnread);
}
