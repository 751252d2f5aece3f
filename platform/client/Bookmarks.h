#pragma once

#include "VrkExport.h"

#include <QByteArray>
#include <QVector>

class UserSettings;

/// The records that a user has marked for himself, kept in his settings on this computer. Others do not see them,
/// and the records do not change.
class VRK_EXPORT Bookmarks
{
public:
    static constexpr int Most = 200;

    /// \a settings is not owned; they announce every change (Setting::bookmarks).
    explicit Bookmarks(UserSettings* settings) : m_settings(settings) {}

    /// Keys of records, the latest bookmark first. Some may not exist any more, or in another store.
    QVector<QByteArray> keys() const;
    bool contains(const QByteArray& recordKey) const;
    /// Sets the bookmark or removes it; true if it is set now. The oldest of more than Most are removed.
    bool toggle(const QByteArray& recordKey);

private:
    UserSettings* m_settings;
};
