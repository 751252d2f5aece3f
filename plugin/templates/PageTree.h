#pragma once

#include <memory>
#include <QModelIndex>

class CModelTable;
class QItemSelectionModel;
class QTreeView;
class TemplatesEditSourceModel;
class TemplatesProxyModel;
struct MDRData;
struct TemplateTables;

/// The tree of a page of the configurator: the view with its model and its proxy. Its rows are records.
class PageTree
{
public:
    /// Takes over the model; the tables and \a roots, the rows at the top of the tree (null if these are
    /// categories), are not owned. The view shows the tree from show() on.
    PageTree(QTreeView* view, std::unique_ptr<TemplatesEditSourceModel> model, TemplateTables& tables,
             const CModelTable* roots);
    ~PageTree();
    void show(bool isEditable);

    QTreeView* view() const { return m_view; }
    TemplatesEditSourceModel* model() const { return m_model.get(); }
    TemplatesProxyModel* proxy() const { return m_proxy.get(); }
    QItemSelectionModel* selection() const;
    const CModelTable* roots() const { return m_roots; }

    /// \name Indexes of the model
    /// @{
    QModelIndex currentSource() const;
    /// The category or root row with this key; invalid if the tree does not have it.
    QModelIndex folder(const QByteArray& key) const;
    /// @}
    MDRData* currentRecord() const;
    /// The rows, as indexes of the proxy, whose name contains a text.
    QModelIndexList matcheIndexes(const QString& text) const;

    /// Makes the first row current; false if there is none.
    bool selectFirst();
    /// Makes an index of the proxy current and scrolls to it.
    void scrollTo(const QModelIndex& index);
    /// Makes the record's row current without emitting the change of selection.
    void setFocusOn(const MDRData* record);
    /// Makes the previous row current again, without emitting the change of selection, and returns it. If
    /// it was removed, the current one stays.
    QModelIndex putBack(const QModelIndex& previous);
    /// Removes a record from its table, and from the tree if it is a row.
    void removeRow(CModelTable* table, MDRData* record);

private:
    QTreeView* m_view;
    std::unique_ptr<TemplatesEditSourceModel> m_model;
    std::unique_ptr<TemplatesProxyModel> m_proxy;
    const TemplateTables& m_tables;
    const CModelTable* m_roots;
};
