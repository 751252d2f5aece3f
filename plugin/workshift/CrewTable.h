#pragma once

#include <functional>
#include <QObject>
#include <QStringList>

class CModelTable;
class CVrkCliSes;
class OrgStructDialog;
class QTableWidget;
namespace OrgStruct
{
struct Worker;
}

/// The table of workers in a shift's dialogs: a row a worker, with full name and roles, his key behind both cells. Who has no
/// name stands there under his login, or under a dash.
class CrewTable : public QObject
{
    Q_OBJECT

public:
    enum Names { FullNames, ShortNames };

    /// Gives the view its columns and look; \a view and \a session outlive this object.
    CrewTable(QTableWidget* view, CVrkCliSes* session, QObject* parent);

    /// Reference tables that names and roles come from; any of them may be missing.
    void setTables(CModelTable* workers, CModelTable* roles, CModelTable* workerRoles);

    /// How workers are named: in full at first.
    void setNames(Names names) { m_names = names; }

    bool contains(const QString& workerKey) const;
    /// Appends a row; an empty key, and a worker to choose without a full name, leave one without cells. \a selectable false: the row can neither be
    /// selected nor removed.
    void append(const QString& workerKey, bool selectable = true);
    void removeCurrent();
    void clear();
    /// Keys of the rows from top to bottom; rows without cells are left out.
    QStringList workerKeys() const;

    /// Lets the user choose a worker of the department; \a chosen gets him once, unless he stands in the table already.
    void choose(OrgStructDialog* dialog, const QString& departmentKey,
                const std::function<void(const QString&)>& chosen);

private:
    QString shownName(const QString& workerKey) const;

    QTableWidget* m_view;
    CVrkCliSes* m_session;
    Names m_names = FullNames;
    CModelTable* m_workers = nullptr;
    CModelTable* m_roles = nullptr;
    CModelTable* m_workerRoles = nullptr;
};
