#include "CommentInbox.h"

#include "CModelTable.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "HfnWrapper.h"
#include "LocationInfo.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "RecordValue.h"
#include "TableLoad.h"
#include "TEventNciParse.h"

#include <algorithm>
#include <QTextCodec>
#include <utility>

namespace
{
constexpr int retryMs = 1000; ///< until a failed request is repeated

bool isRead(const MDRVar& time)
{
    return MDRValue::hasTime(time) && time.value.real > 0.0;
}
} // namespace

CommentInbox::CommentInbox(CVrkCliMod* module, const LocationInfo* location, QObject* parent)
    : QObject(parent), m_module(module), m_location(location)
{
    m_retry.setInterval(retryMs);
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &CommentInbox::askAgain);
}

MDArray* CommentInbox::request(const QString& sql) const
{
    return m_module->session()->SqlRequest(sql.toUtf8().constData());
}

void CommentInbox::upload()
{
    m_unread.clear();
    m_isOwn.clear();
    CMDArray records;
    records = request(LogText::fill(QLatin1String(LogbookSql::UnreadRecords),
                                    {QLatin1String(LogbookTable::Records), QLatin1String(Field::KeyLink),
                                     QLatin1String(LogbookTable::Comments), QLatin1String(Field::RecordKey),
                                     QLatin1String(Field::WorkerKey), m_location->workerKey(),
                                     QLatin1String(Field::readedTime)}));
    m_isUploaded = records.array != nullptr;
    const QString keys = TableLoad::quotedKeys(records);
    if (!keys.isEmpty()) {
        CMDArray comments;
        comments = request(
            LogText::fill(QLatin1String(LogbookSql::ByRecords),
                          {QLatin1String(LogbookTable::Comments), QLatin1String(Field::RecordKey), keys}));
        m_isUploaded = comments.array != nullptr;
        for (int row = 0; row < comments.RecCount(); ++row) {
            const MDRData* comment = MDARec(comments.array, 0, row);
            if (!isRead(Row(comment).value(Field::readedTime)))
                m_unread.insert(Row(comment).key());
        }
    }
    if (!m_isUploaded)
        m_retry.start();
    emit countChanged(count());
}

void CommentInbox::take(const TEventNciParse& event)
{
    if (!EventRow(event).isOf(LogbookTable::Comments))
        return;
    const QByteArray key(event.recordKey);
    const Arrival arrival{key, EventRow(event).copy(Field::RecordKey),
                          announcement(event, tr("Комментарий к вашей записи. %1: %2")),
                          announcement(event, tr("Ответ на ваш комментарий. %1: %2")),
                          event.eventNumber != EventDeleted &&
                              !isRead(EventRow(event).value(Field::readedTime))};
    if (arrival.isUnread) {
        if (!m_unread.contains(key))
            judge(arrival);
        return;
    }
    m_doubtful.erase(std::remove_if(m_doubtful.begin(), m_doubtful.end(),
                                    [&](const Arrival& one) { return one.key == key; }),
                     m_doubtful.end());
    if (m_unread.remove(key))
        emit countChanged(count());
    // when the author of a record answers, his comment is already marked as read
    if (!arrival.answer.isEmpty())
        judge(arrival);
}

void CommentInbox::judge(const Arrival& arrival)
{
    const Answer answer = isOwnRecord(arrival.recordKey);
    if (answer == Answer::Unknown || (answer == Answer::No && !tellAnswer(arrival))) {
        m_doubtful.append(arrival);
        m_retry.start();
    }
    if (answer != Answer::Yes || !arrival.isUnread || m_unread.contains(arrival.key))
        return;
    m_unread.insert(arrival.key);
    emit countChanged(count());
    if (!arrival.announcement.isEmpty())
        emit arrived(arrival.announcement);
}

void CommentInbox::askAgain()
{
    if (!m_isUploaded)
        upload();
    for (const Arrival& arrival : std::exchange(m_doubtful, {}))
        judge(arrival);
}

QString CommentInbox::announcement(const TEventNciParse& event, const QString& text) const
{
    const QByteArray worker = EventRow(event).copy(Field::WorkerKey);
    if (event.eventNumber != EventInserted || worker == m_location->workerKey().toUtf8())
        return QString();
    const QTextCodec* codec = m_module->session()->codec();
    const QString author = HfnWrapper::workerShortName(
        codec, m_location->table(QLatin1String(LogbookTable::Workers)), QString::fromUtf8(worker));
    return text.arg(author, EventRow(event).text(Field::text_, codec));
}

bool CommentInbox::tellAnswer(const Arrival& arrival)
{
    if (arrival.answer.isEmpty())
        return true;
    CMDArray comments;
    comments = request(LogText::fill(QLatin1String(LogbookSql::RecordByField),
                                     {QLatin1String(LogbookTable::Comments), QLatin1String(Field::RecordKey),
                                      QString::fromUtf8(arrival.recordKey)}));
    if (!comments.array)
        return false;
    const QByteArray worker = m_location->workerKey().toUtf8();
    for (int row = 0; row < comments.RecCount(); ++row) {
        const MDRData* comment = MDARec(comments.array, 0, row);
        if (Row(comment).bytes(Field::WorkerKey) == worker) {
            emit arrived(arrival.answer);
            break;
        }
    }
    return true;
}

CommentInbox::Answer CommentInbox::isOwnRecord(const QByteArray& recordKey)
{
    const auto known = m_isOwn.constFind(recordKey);
    if (known != m_isOwn.constEnd())
        return *known ? Answer::Yes : Answer::No;
    CMDArray answer;
    answer = request(LogText::fill(
        QLatin1String(LogbookSql::RecordByField),
        {QLatin1String(LogbookTable::Records), QLatin1String(Field::KeyLink), QString::fromUtf8(recordKey)}));
    if (!answer.array)
        return Answer::Unknown;
    if (answer.RecCount() == 0)
        return Answer::No; // asked again with the next comment
    const MDRVar worker = Row(MDARec(answer.array, 0, 0)).value(Field::WorkerKey);
    const bool isOwn =
        MDRValue::hasText(worker) && MDRValue::bytes(worker) == m_location->workerKey().toUtf8();
    m_isOwn.insert(recordKey, isOwn);
    return isOwn ? Answer::Yes : Answer::No;
}
