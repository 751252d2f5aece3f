#pragma once

#include <functional>
#include <QObject>
#include <QStringList>

class CModelTable;
class CVrkCliSes;
class OrgStructDialog;
class QTableWidget;

/// The table of workers in a shift's dialogs: one row for each worker, with full name and roles, and his
/// key as data of both cells. A worker without a name is shown by his login, or as a dash.
class CrewTable : public QObject
{
    Q_OBJECT

public:
    enum Names { FullNames, ShortNames };

    /// Sets the view's columns and look; \a view and \a session must outlive this object.
    CrewTable(QTableWidget* view, CVrkCliSes* session, QObject* parent);

    /// Reference tables for names and roles; any of them may be missing.
    void setTables(CModelTable* workers, CModelTable* roles, CModelTable* workerRoles);

    /// The form of workers' names; the default is the full name.
    void setNames(Names names) { m_names = names; }

    bool contains(const QString& workerKey) const { return workerKeys().contains(workerKey); }
    /// Appends a row; an empty key, and a chosen worker without a full name, give a row without cells. \a
    /// selectable false: the row can be neither selected nor removed.
    void append(const QString& workerKey, bool selectable = true);
    /// Appends the workers of a table LogbookWorkersWorkshift; none without a table.
    void appendRows(const CModelTable* crew);
    void removeCurrent();
    void clear();
    /// Keys of the rows from top to bottom; rows without cells are skipped.
    QStringList workerKeys() const;

    /// Lets the user choose a worker of the department; calls \a chosen once, unless the worker is already
    /// in the table.
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
