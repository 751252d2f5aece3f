#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QWidget>

class CModelTable;
class QLineEdit;
class QModelIndex;
class QSortFilterProxyModel;
class QStandardItem;
class QStandardItemModel;
class QTextCodec;
class QTreeView;
struct MDRData;

/// The available parameters as a tree of their groups, with a search line above it. A double click, or
/// Enter in the tree or in the search line, takes a parameter; it can also be dragged from the tree into
/// the text.
class TemplateEditorPanel : public QWidget
{
    Q_OBJECT

public:
    enum Role { KeyRole = Qt::UserRole + 1, HtmlRole };

    explicit TemplateEditorPanel(QWidget* parent = nullptr);

    void setTextCodec(QTextCodec* codec);
    void setCategories(CModelTable* table);
    void setParameters(CModelTable* table);
    /// The base names of the available parameters; empty: all.
    void setFilter(const QStringList& names);
    /// False: the tree can be browsed, but no parameter can be taken.
    void setTaking(bool taking);

    /// Rebuilds the tree; keeps expanded branches and the current item.
    void reload();
    /// One row has changed: only its item is updated if its place is the same.
    void update(MDRData* record);

    QSize sizeHint() const override;
    QTreeView* tree() const { return m_tree; }

signals:
    /// The user has chosen the parameter with this text.
    void taken(const QString& html);
    /// Escape was pressed: the search has ended.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row {
        QString key;
        QString category;
        QString name;
        QString html; ///< of parameters
        bool offered = true;
    };
    Row read(const MDRData* record, bool parameter) const;
    QVector<Row> rows(const CModelTable* table, bool parameters) const;
    QStandardItem* itemOf(const Row& row) const;
    void take(const QModelIndex& index);
    void search(const QString& query);
    void expandAsBefore();
    /// The first parameter in the order of the tree that matches the search.
    QModelIndex firstParameter() const;

    QTextCodec* m_codec;
    CModelTable* m_categories = nullptr;
    CModelTable* m_parameters = nullptr;
    QStringList m_filter;
    bool m_taking = true;
    QStandardItemModel* m_model;
    QSortFilterProxyModel* m_shown;
    QLineEdit* m_search;
    QTreeView* m_tree;
    QHash<QString, QStandardItem*> m_items; ///< by key
    QSet<QString> m_collapsed;              ///< groups that the user has closed
};
