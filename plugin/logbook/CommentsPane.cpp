#include "CommentsPane.h"

#include "CModelTable.h"
#include "HfnTime.h"
#include "HfnWrapper.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "MessageListDelegate.h"
#include "RecordValue.h"

#include <QListWidget>
#include <QTextCodec>

CommentsPane::CommentsPane(QListWidget* list, const Source& source, QObject* parent)
    : QObject(parent), m_list(list), m_source(source)
{
}

void CommentsPane::reload(const MDRData* record)
{
    m_list->clear();
    if (!record)
        return;
    const MDRVar key = recordValue(record, "KeyLink");
    if (!MDRValue::hasText(key)) {
        LogText::warn(QStringLiteral("void %1::reloadComments(MDRData*)").arg(m_source.owner),
                      QStringLiteral("can not reload comments - KeyLink is empty!"));
        return;
    }

    const QString timeFormat = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    const auto timeText = [&](const MDRVar& time) {
        return HfnTime_to_DateTime(time.value.real, -1).toString(timeFormat);
    };
    CModelTable* workers = m_source.location->table(QLatin1String(LogbookTable::Workers));
    for (const MDRData* comment :
         MDARecsWith(m_source.comments->data.array, "RecordKey", key.value.text.data)) {
        const QString author = QString::fromUtf8(MDRValue::copy(recordValue(comment, "WorkerKey")));
        const MDRVar readed = recordValue(comment, "readedTime");
        const bool isRead = MDRValue::hasTime(readed) && readed.value.real > 0.0;

        auto* item =
            new QListWidgetItem(m_source.codec->toUnicode(MDRValue::bytes(recordValue(comment, "text_"))));
        item->setToolTip(isRead ? tr("Прочитано %1").arg(timeText(readed)) : QString());
        item->setData(CommentKeyRole, QString::fromUtf8(MDRValue::copy(recordValue(comment, "KeyLink"))));
        item->setData(CommentAuthorRole, HfnWrapper::workerShortName(m_source.codec, workers, author));
        item->setData(CommentTimeRole, timeText(recordValue(comment, "commentTime")));
        if (!author.isEmpty() && author == m_source.location->workerKey())
            item->setData(CommentIsMineRole, true);
        item->setData(CommentIsReadRole, isRead);
        m_list->addItem(item);
    }
    m_list->setCurrentRow(0);
}
