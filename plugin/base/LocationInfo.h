#pragma once

#include <QMap>
#include <QObject>
#include <QString>

class CModelTable;
class CStringParams;

/// The user and his place: login, worker, department, organization, type of organization; and access to the
/// reference tables that all tabs share. Filled once; later changes of the tables do not change the keys.
class LocationInfo : public QObject
{
    Q_OBJECT

public:
    explicit LocationInfo(QObject* parent = nullptr);

    /// Add a reference table under its name. The tables are not owned.
    void setWorkersTable(CModelTable* table) { m_tables.insert(QStringLiteral("Workers"), table); }
    void setDepartmentsTable(CModelTable* table) { m_tables.insert(QStringLiteral("Departments"), table); }
    void setOrganizationsTable(CModelTable* table)
    {
        m_tables.insert(QStringLiteral("Organizations"), table);
    }
    void setOrgTypesTable(CModelTable* table) { m_tables.insert(QStringLiteral("OrgTypes"), table); }
    /// The reference table of this name, or null.
    CModelTable* table(const QString& name) const { return m_tables.value(name, nullptr); }

    /// Takes the keys from the login's parameters and finds the others in the tables, which must be set.
    void init(const CStringParams& params);
    /// True if user, worker, department or organization is unknown.
    bool hasError() const;
    /// The first unknown one of user, worker, department, organization in the user's words; otherwise
    /// empty.
    QString errorString() const;

    QString workerKey() const { return m_workerKey; }
    QString departmentKey() const { return m_departmentKey; }
    QString organizationKey() const { return m_organizationKey; }
    QString orgTypeKey() const { return m_orgTypeKey; }

    /// Set a key without a check: for tabs of other departments.
    void setWorkerKey(const QString& key) { m_workerKey = key; }
    void setDepartmentKey(const QString& key) { m_departmentKey = key; }
    void setOrganizationKey(const QString& key) { m_organizationKey = key; }

    /// The worker of a login in a department: the first current row of Workers, or empty.
    QString workerKey(const QString& userKey, const QString& departmentKey) const;
    /// Type of an organization, or empty.
    QString orgTypeKey(const QString& organizationKey) const;

    /// Writes all keys to the debug log.
    void printInfo() const;

private:
    QString m_userKey;
    QString m_workerKey;
    QString m_departmentKey;
    QString m_organizationKey;
    QString m_orgTypeKey;
    QMap<QString, CModelTable*> m_tables;
};
