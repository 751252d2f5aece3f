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
#include "PageMessages.h"
#include "RecordValue.h"

#include <QAction>
#include <QListWidget>
#include <QTextCodec>
#include <QToolButton>

CommentsPane::CommentsPane(const Controls& controls, const Source& source, QObject* parent)
    : QObject(parent),
      m_controls(controls),
      m_source(source),
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

QString CommentsPane::signature(const char* function) const
{
    return LogText::fill(QLatin1String(function), {m_source.owner});
}

void CommentsPane::reload(const MDRData* record)
{
    m_controls.list->clear();
    for (QToolButton* button : {m_controls.create, m_controls.remove, m_controls.readed})
        button->setEnabled(false);
    if (!record)
        return;
    const MDRVar key = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(key)) {
        LogText::warn(signature("void %1::reloadComments(MDRData*)"),
                      QStringLiteral("can not reload comments - KeyLink is empty!"));
        return;
    }

    for (const MDRData* comment :
         MDARecsWith(m_source.comments->data.array, "RecordKey", key.value.text.data))
        list(comment);
    if (!m_source.messages->isOpen()) // another message took the place of the question
        m_askedKey.clear();
    int row = 0;
    if (!m_askedKey.isEmpty()) { // the answer meets the comment that was asked about, or none
        row = m_controls.list->count() - 1;
        while (row >= 0 && keyOf(m_controls.list->item(row)) != m_askedKey)
            --row;
    }
    m_controls.list->setCurrentRow(row);
    updateButtons();
}

void CommentsPane::list(const MDRData* comment)
{
    const auto timeText = [](const MDRVar& time) {
        return HfnTime_to_DateTime(time.value.real, -1).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    };
    const QTextCodec* codec = m_source.module->session()->codec();
    CModelTable* workers = m_source.location->table(QLatin1String(LogbookTable::Workers));
    const QString author = QString::fromUtf8(MDRValue::copy(recordValue(comment, "WorkerKey")));
    const MDRVar readed = recordValue(comment, "readedTime");
    const bool isRead = MDRValue::hasTime(readed) && readed.value.real > 0.0;

    auto* item = new QListWidgetItem(codec->toUnicode(MDRValue::bytes(recordValue(comment, "text_"))));
    item->setToolTip(isRead ? tr("Прочитано %1").arg(timeText(readed)) : QString());
    item->setData(CommentKeyRole, QString::fromUtf8(MDRValue::copy(recordValue(comment, "KeyLink"))));
    item->setData(CommentAuthorRole, HfnWrapper::workerShortName(codec, workers, author));
    item->setData(CommentTimeRole, timeText(recordValue(comment, "commentTime")));
    if (isMine(comment))
        item->setData(CommentIsMineRole, true);
    item->setData(CommentIsReadRole, isRead);
    m_controls.list->addItem(item);
}

QString CommentsPane::keyOf(const QListWidgetItem* item) const
{
    return item ? item->data(CommentKeyRole).toString() : QString();
}

MDRData* CommentsPane::comment(const QString& key) const
{
    if (key.isEmpty())
        return nullptr;
    const MDRRange found = MDARecsWith(m_source.comments->data.array, "KeyLink", key.toUtf8().constData());
    return found.count > 0 ? found.data[0] : nullptr;
}

bool CommentsPane::isMine(const MDRData* comment) const
{
    const MDRVar worker = recordValue(comment, "WorkerKey");
    return MDRValue::hasText(worker) && MDRValue::bytes(worker) == m_source.location->workerKey().toUtf8();
}

bool CommentsPane::isUnread(const QListWidgetItem* item) const
{
    const MDRData* row = comment(keyOf(item));
    return row && !MDRValue::hasTime(recordValue(row, "readedTime"));
}

bool CommentsPane::isChangeable() const
{
    const MDRData* record = m_source.currentRecord();
    return record && !hasStatus(record, StatusDeleted);
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
    m_controls.remove->setEnabled(isChangeable() && isMine(comment(keyOf(m_controls.list->currentItem()))));
}

/// While any comment of the record is unread, whichever is selected: meant.
void CommentsPane::updateCommentReaded()
{
    bool isAnyUnread = false;
    for (int row = 0; row < m_controls.list->count() && !isAnyUnread; ++row)
        isAnyUnread = isUnread(m_controls.list->item(row));
    m_controls.readed->setEnabled(isAnyUnread);
}
