#pragma once

#include <QStringList>

/// The templates that a worker has used recently in a department, and those he has pinned. Kept in the
/// program's settings on this computer; without a worker nothing is kept.
class TemplateFavourites
{
public:
    static constexpr int RecentLimit = 8;

    void setOwner(const QString& workerKey, const QString& departmentKey);
    /// Keys of templates, the latest first. Some may no longer exist.
    QStringList recent() const { return m_recent; }
    /// In the order in which they were pinned.
    QStringList pinned() const { return m_pinned; }
    void noteUse(const QString& templateKey);
    void setPinned(const QString& templateKey, bool pinned);

private:
    void save(const QString& list, const QStringList& keys) const;

    QString m_group; ///< group of the settings; empty without an owner
    QStringList m_recent;
    QStringList m_pinned;
};
