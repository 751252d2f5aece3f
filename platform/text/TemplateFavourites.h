#pragma once

#include <QStringList>

/// The templates that a worker used lately in a department, and those he pinned. Kept in the settings of the
/// program on this computer; without a worker nothing is kept.
class TemplateFavourites
{
public:
    static constexpr int RecentLimit = 8;

    void setOwner(const QString& workerKey, const QString& departmentKey);
    /// Keys of templates, the latest first. Some may not exist any more.
    QStringList recent() const { return m_recent; }
    /// In the order of pinning.
    QStringList pinned() const { return m_pinned; }
    void noteUse(const QString& templateKey);
    void setPinned(const QString& templateKey, bool pinned);

private:
    void save(const QString& list, const QStringList& keys) const;

    QString m_group; ///< of the settings; empty without an owner
    QStringList m_recent;
    QStringList m_pinned;
};
