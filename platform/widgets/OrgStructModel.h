#pragma once

#include "OrgStructTables.h"

#include <QHash>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

/// The tree of organizations as items. Single rows are inserted, removed and moved with the proper signals,
/// so that selection and expanded branches survive events.
class OrgStructModel : public QStandardItemModel
{
    Q_OBJECT

public:
    enum Role { TypeRole = Qt::UserRole + 1, KeyRole, FoldedRole };

    explicit OrgStructModel(const OrgStructTables* tables, QObject* parent = nullptr);
    ~OrgStructModel() override;

    /// Rebuilds the tree.
    void rebuild();
    /// Updates one item from the tables: creates, moves, renames or removes it, and moves items whose
    /// parent it is or was.
    void refresh(int type, const QString& key);
    QModelIndex indexOf(int type, const QString& key) const;

private:
    using Id = QPair<int, QString>;

    QStandardItem* place(const OrgStructTables::Row& row);
    void insert(QStandardItem* parent, QStandardItem* item);
    void moveChildren(int type);
    QStandardItem* parentItem(const OrgStructTables::Row& row);

    const OrgStructTables* m_tables;
    QHash<Id, QStandardItem*> m_items;
};

/// Filters the tree: only the levels that lead to selectable items, optionally only one department and
/// below, and only the matches of a search. Every typed word must be in the name of the item or of an item
/// above it.
class OrgStructFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit OrgStructFilter(QObject* parent = nullptr);
    ~OrgStructFilter() override;

    void setSelectionType(int type);
    int selectionType() const { return m_selectionType; }
    /// Null removes the restriction; an empty text shows nothing.
    void setRootDepartment(const QString& key);
    QString rootDepartment() const { return m_root; }
    void setQuery(const QString& query);
    bool isSelectable(const QModelIndex& index) const;

    Qt::ItemFlags flags(const QModelIndex& index) const override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    int m_selectionType = OrgStruct::Person;
    QString m_root;
    QStringList m_words;
};
