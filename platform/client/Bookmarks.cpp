#include "Bookmarks.h"

#include "UserSettings.h"

#include <QStringList>

QVector<QByteArray> Bookmarks::keys() const
{
    QVector<QByteArray> keys;
    const QStringList kept = m_settings->value(Setting::bookmarks).toStringList();
    for (const QString& key : kept)
        keys.append(key.toUtf8());
    return keys;
}

bool Bookmarks::contains(const QByteArray& recordKey) const
{
    return m_settings->value(Setting::bookmarks).toStringList().contains(QString::fromUtf8(recordKey));
}

bool Bookmarks::toggle(const QByteArray& recordKey)
{
    if (recordKey.isEmpty())
        return false;
    const QString key = QString::fromUtf8(recordKey);
    QStringList kept = m_settings->value(Setting::bookmarks).toStringList();
    const bool isSet = !kept.removeAll(key);
    if (isSet)
        kept.prepend(key);
    m_settings->setValue(Setting::bookmarks, QStringList(kept.mid(0, Most)));
    return isSet;
}
