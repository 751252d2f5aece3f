#pragma once

#include <QHash>
#include <QObject>
#include <QSet>

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

    /// Counts what waits; a failed request counts as nothing.
    void upload();
    void take(const TEventNciParse& event);
    int count() const { return m_unread.size(); }

signals:
    void countChanged(int count);
    /// A comment has come to which the user has to be called; \a text says whose it is and how it begins.
    void arrived(const QString& text);

private:
    MDArray* request(const QString& sql) const;
    bool isOwnRecord(const QByteArray& recordKey);

    CVrkCliMod* m_module;
    const LocationInfo* m_location;
    QSet<QByteArray> m_unread;       ///< keys of comments
    QHash<QByteArray, bool> m_isOwn; ///< by record, as far as it was asked
};
