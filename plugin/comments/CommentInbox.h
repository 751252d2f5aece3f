#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

class CVrkCliMod;
class LocationInfo;
struct MDArray;
struct TEventNciParse;

/// The unread comments on the user's own records, whatever is shown: counted from the start of the journal on and kept
/// current by change events.
class CommentInbox : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned.
    CommentInbox(CVrkCliMod* module, const LocationInfo* location, QObject* parent);

    /// Counts what waits. What the server does not tell is asked again a little later, here and when a comment comes.
    void upload();
    void take(const TEventNciParse& event);
    int count() const { return m_unread.size(); }

signals:
    void countChanged(int count);
    /// A comment has come to which the user has to be called: on a record of his own, or one that follows a comment of his;
    /// \a text says whose it is and how it begins.
    void arrived(const QString& text);

private:
    struct Arrival {
        QByteArray key;
        QByteArray recordKey;
        QString announcement; ///< empty for a comment that has only changed
        QString answer;       ///< the same for a record of somebody else's
        bool isUnread = true;
    };
    enum class Answer { Yes, No, Unknown };

    MDArray* request(const QString& sql) const;
    Answer isOwnRecord(const QByteArray& recordKey);
    void judge(const Arrival& arrival);
    void askAgain();
    /// An empty text when the event is no new comment of somebody else; \a text takes author and comment.
    QString announcement(const TEventNciParse& event, const QString& text) const;
    /// Tells a new comment on a record of somebody else's on which the user has commented himself. False when the store
    /// does not say whether he has.
    bool tellAnswer(const Arrival& arrival);

    CVrkCliMod* m_module;
    const LocationInfo* m_location;
    QSet<QByteArray> m_unread;       ///< keys of comments
    QHash<QByteArray, bool> m_isOwn; ///< by record, as far as it was asked
    QVector<Arrival> m_doubtful;     ///< whose record it is could not be asked
    bool m_isUploaded = false;
    QTimer m_retry;
};
