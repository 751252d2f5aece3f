#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <QVector>

class CLiteModel;
class CModelTable;
class CVrkCliMod;

/// Who and what the keys of records stand for: the workers, departments and organizations of the store, as they were when
/// the module started.
class KeyNames
{
public:
    KeyNames();
    ~KeyNames();

    /// False when a table could not be had.
    bool load(CVrkCliMod* module);

    /// Surname and initials; empty for an unknown key.
    QString workerName(const QByteArray& key) const;
    QString departmentName(const QByteArray& key) const;

    struct Entry {
        QByteArray key;
        QString name;
    };
    /// All departments with their organizations, by name.
    QVector<Entry> departments() const;
    /// The workers of a department, all when the key is empty, by name; former ones too, for the archive is theirs as well.
    QVector<Entry> workers(const QByteArray& departmentKey) const;

private:
    QString text(CModelTable* table, const QByteArray& key, const char* field) const;

    CVrkCliMod* m_module = nullptr;
    std::unique_ptr<CLiteModel> m_model;
    CModelTable* m_workers = nullptr;
    CModelTable* m_departments = nullptr;
    CModelTable* m_organizations = nullptr;
};
