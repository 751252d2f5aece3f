#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <QVector>

class CLiteModel;
class CModelTable;
class CVrkCliMod;

/// The names for the keys of records: the workers, departments and organizations of the store, loaded when
/// the module started.
class KeyNames
{
public:
    KeyNames();
    ~KeyNames();

    /// False if a table could not be loaded.
    bool load(CVrkCliMod* module);

    /// Surname and initials; empty for an unknown key.
    QString workerName(const QByteArray& key) const;
    QString departmentName(const QByteArray& key) const;
    /// Of the organization of a department; empty if it has none.
    QString organizationName(const QByteArray& departmentKey) const;

    struct Entry {
        QByteArray key;
        QString name;
    };
    /// All departments with their organizations, sorted by name.
    QVector<Entry> departments() const;
    /// The workers of a department, or all for an empty key, sorted by name; includes former ones, because
    /// the archive contains their records.
    QVector<Entry> workers(const QByteArray& departmentKey) const;

private:
    CVrkCliMod* m_module = nullptr;
    std::unique_ptr<CLiteModel> m_model;
    CModelTable* m_workers = nullptr;
    CModelTable* m_departments = nullptr;
    CModelTable* m_organizations = nullptr;
};
