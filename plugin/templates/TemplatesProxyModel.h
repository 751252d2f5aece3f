#pragma once

#include <QSortFilterProxyModel>

class CModelTable;

/// Sorts a tree of templates, categories before templates and each by name, and can be restricted to one
/// root row.
class TemplatesProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setCatsTemplateTable(CModelTable* table) { set(m_categories, table); }
    void setCatsTemplateEdit(CModelTable* table) { set(m_categoriesEdit, table); }
    void setTemplatesTable(CModelTable* table) { set(m_templates, table); }
    void setTemplatesEdit(CModelTable* table) { set(m_templatesEdit, table); }
    /// Shows only the row of the top level with this key, and its subtree. Empty: all rows.
    void setFilterRoot(QString key);

    bool isReadyData() const;
    /// These two expect indexes of the source.
    bool isCategory(const QModelIndex& index) const;
    bool isTemplate(const QModelIndex& index) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    template <typename Member, typename Value>
    void set(Member& member, Value value)
    {
        beginResetModel();
        member = value;
        endResetModel();
    }

    CModelTable* m_categories = nullptr;
    CModelTable* m_categoriesEdit = nullptr;
    CModelTable* m_templates = nullptr;
    CModelTable* m_templatesEdit = nullptr;
    QString m_filterRoot;
};
