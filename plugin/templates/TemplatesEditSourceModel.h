#pragma once

#include "CModelTable.h"
#include "TemplateLevel.h"

#include <array>
#include <QAbstractItemModel>
#include <vector>

class QTextCodec;

/// The tree of one level of templates, computed on demand from flat record arrays: an index contains the
/// record itself, and the children of a parent come from the arrays' own indexes, so that they are always
/// consistent. The children of a parent are its categories, its new categories, its templates and its new
/// templates, each group in array order. The model owns no table; callers enclose changes of the arrays in
/// begin...Row and end...Row.
class TemplatesEditSourceModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    ~TemplatesEditSourceModel() override;

    /// \name Tables of the level; each setter resets the model. A table that the level does not have is
    /// ignored.
    /// @{
    void setTextCodec(QTextCodec* codec) { set(m_codec, codec); }
    void setOrgTypesTable(CModelTable* table);
    void setDepartmentsTable(CModelTable* table);
    void setCatsTemplateTable(CModelTable* table) { set(m_categories, table); }
    void setTemplatesTable(CModelTable* table) { set(m_templates, table); }
    void setCatsTemplateEdit(CModelTable* table) { set(m_categoriesEdit, table); }
    void setTemplatesEdit(CModelTable* table) { set(m_templatesEdit, table); }
    void setEditable(bool editable) { set(m_editable, editable); }
    void clear();
    /// The codec and all tables of the level are set.
    bool isReady() const;
    /// @}

    /// The record of a valid index, otherwise null.
    MDRData* recordByIndex(const QModelIndex& index) const;
    /// The index of a record that can be reached from the top of the tree, otherwise an invalid one.
    QModelIndex indexByRecord(const MDRData* record) const;
    /// Number of categories under the parent, including new ones; at a top level of root rows, the number
    /// of these. It is the row of the next new category.
    int folderCount(const QModelIndex& parent) const;
    /// The top level contains categories.
    bool isTopOfCategories() const { return m_level.roots == TemplateLevel::NoRoots; }
    /// The row at which the next stored category or template under the parent is inserted: after others of
    /// its kind.
    int nextCategoryRow(const QModelIndex& parent) const;
    int nextTemplateRow(const QModelIndex& parent) const;

    /// \name Calls that enclose a change of the arrays
    /// @{
    void beginAppendRow(const QModelIndex& parent) { beginInsertRow(rowCount(parent), parent); }
    void endAppendRow() { endInsertRow(); }
    void beginInsertRow(int row, const QModelIndex& parent) { beginInsertRows(parent, row, row); }
    void endInsertRow() { endInsertRows(); }
    void beginRemoveRow(int row, const QModelIndex& parent) { beginRemoveRows(parent, row, row); }
    void endRemoveRow() { endRemoveRows(); }
    /// \a to is the row after the move.
    void beginMoveRow(const QModelIndex& parent, int from, int to);
    void endMoveRow() { endMoveRows(); }
    void resetModel();
    /// The whole tree must be repainted.
    void updateView();
    /// The record's row must be repainted.
    void updateRecord(MDRData* record);
    /// @}

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Role 0 the name, Qt::UserRole the key, Qt::DecorationRole the picture of the kind.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    Qt::DropActions supportedDropActions() const override;

signals:
    /// An item was dropped: the key of its record and the target. The receiver moves it.
    void moveToCategory(QString keyLink, QModelIndex indexSource);

protected:
    TemplatesEditSourceModel(const TemplateLevel& level, QObject* parent);

private:
    /// The children of one parent: four groups, each in order of entry.
    struct Rows {
        MDRRange categories;
        std::vector<MDRData*> newCategories;
        MDRRange templates;
        std::vector<MDRData*> newTemplates;

        std::array<MDRRange, 4> groups() const;
        int folders() const;
        int count() const;
        MDRData* at(int row) const;
        /// The row of a record, or -1.
        int rowOf(const MDRData* record) const;
    };

    const CModelTable* tableByRecord(const MDRData* record) const;
    template <typename Member, typename Value>
    void set(Member& member, Value value)
    {
        beginResetModel();
        member = value;
        endResetModel();
    }
    bool isTopOfRoots(const MDRData* parent) const
    {
        return !parent && m_level.roots != TemplateLevel::NoRoots;
    }
    int rootCount() const { return m_roots->data.RecCount(); }
    Rows rowsUnder(const MDRData* parent) const;
    /// The parent of a record; null at the top level; then \a orphan says whether it should have a parent.
    MDRData* parentRecord(const MDRData* record, bool* orphan) const;
    int rowOf(const MDRData* record, const MDRData* parent) const;
    QString text(const MDRData* record, const char* field) const;

    const TemplateLevel& m_level;
    QTextCodec* m_codec = nullptr;
    CModelTable* m_roots = nullptr;
    CModelTable* m_categories = nullptr;
    CModelTable* m_templates = nullptr;
    CModelTable* m_categoriesEdit = nullptr;
    CModelTable* m_templatesEdit = nullptr;
    bool m_editable = false;
};
