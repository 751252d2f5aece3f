#include "TemplateFavourites.h"

#include <QSettings>

void TemplateFavourites::setOwner(const QString& workerKey, const QString& departmentKey)
{
    m_group =
        workerKey.isEmpty() ? QString() : QStringLiteral("templates/%1/%2").arg(workerKey, departmentKey);
    m_recent.clear();
    m_pinned.clear();
    if (m_group.isEmpty())
        return;
    QSettings settings;
    settings.beginGroup(m_group);
    m_recent = settings.value(QStringLiteral("recent")).toStringList();
    m_pinned = settings.value(QStringLiteral("pinned")).toStringList();
}

void TemplateFavourites::noteUse(const QString& templateKey)
{
    if (m_group.isEmpty() || templateKey.isEmpty())
        return;
    m_recent.removeAll(templateKey);
    m_recent.prepend(templateKey);
    m_recent = m_recent.mid(0, RecentLimit);
    save(QStringLiteral("recent"), m_recent);
}

void TemplateFavourites::setPinned(const QString& templateKey, bool pinned)
{
    if (m_group.isEmpty() || templateKey.isEmpty())
        return;
    m_pinned.removeAll(templateKey);
    if (pinned)
        m_pinned.append(templateKey);
    save(QStringLiteral("pinned"), m_pinned);
}

void TemplateFavourites::save(const QString& list, const QStringList& keys) const
{
    QSettings settings;
    settings.beginGroup(m_group);
    settings.setValue(list, keys);
}
