#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

class CVrkCliMod;
class LocationInfo;
class MDArray;
struct TEventNciParse;

/// The unread comments on all of the user's own records: counted when the journal starts and updated by
/// change events.
class CommentInbox : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned.
    CommentInbox(CVrkCliMod* module, const LocationInfo* location, QObject* parent);

    /// Counts the unread comments. A failed request is repeated a little later, here and when a comment
    /// arrives.
    void upload();
    void take(const TEventNciParse& event);
    int count() const { return m_unread.size(); }

signals:
    void countChanged(int count);
    /// A comment has arrived that concerns the user: on a record of his own, or after a comment of his; \a
    /// text says who wrote it and how it begins.
    void arrived(const QString& text);

private:
    struct Arrival {
        QByteArray key;
        QByteArray recordKey;
        QString announcement; ///< empty for a comment that has only changed
        QString answer;       ///< the same for a record of another author
        bool isUnread = true;
    };
    enum class Answer { Yes, No, Unknown };

    MDArray* request(const QString& sql) const;
    Answer isOwnRecord(const QByteArray& recordKey);
    void judge(const Arrival& arrival);
    void askAgain();
    /// Empty if the event is not a new comment by another user; \a text is formatted with author and
    /// comment.
    QString announcement(const TEventNciParse& event, const QString& text) const;
    /// Announces a new comment on another author's record on which the user has commented himself. False if
    /// the store does not say whether he has.
    bool tellAnswer(const Arrival& arrival);

    CVrkCliMod* m_module;
    const LocationInfo* m_location;
    QSet<QByteArray> m_unread;       ///< keys of comments
    QHash<QByteArray, bool> m_isOwn; ///< by record, for those already queried
    QVector<Arrival> m_doubtful;     ///< the author of the record could not be queried
    bool m_isUploaded = false;
    QTimer m_retry;
};
