#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <QStringList>
#include <vector>

class CModelTable;
class QTextCodec;

/// The data from which the tree of templates is built. Owns nothing.
struct TemplatesSource {
    QTextCodec* codec = nullptr;
    CModelTable* categories = nullptr;
    CModelTable* templates = nullptr;
    CModelTable* departments = nullptr;
    CModelTable* orgTypes = nullptr;
    QString departmentKey;
    QString orgTypeKey;
    QStringList props;        ///< template properties to filter by
    bool propsPresent = true; ///< templates must have all of them, or none
    QStringList recent;
    QStringList pinned;
};

/// The tree of TemplatesWidget: groups, in them categories by name, then templates by name. It is built in
/// one pass and contains only keys and names, so the tables may change until the next rebuild(). A template
/// may occur several times: in its category, among the recent and among the pinned ones.
class TemplatesModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        KeyRole = Qt::UserRole, ///< KeyLink of a category or template, a fixed name of a group
        TemplateRole,           ///< true for a template
    };

    explicit TemplatesModel(QObject* parent = nullptr);

    void rebuild(const TemplatesSource& source);
    /// Shows only templates whose name, together with the names of their categories, contains all words of
    /// the query, and the categories that contain them.
    void setFilter(const QString& query);
    bool isFiltered() const { return !m_parts.isEmpty(); }
    int templateCount() const { return m_templateCount; } ///< in the levels, without the filter
    int shownCount() const { return m_shownCount; }       ///< in the levels, with the filter

    /// The first shown template of the levels.
    QModelIndex firstTemplate() const;
    /// The next (\a step 1) or previous (-1) shown template in the order of the tree.
    QModelIndex nextTemplate(const QModelIndex& from, int step) const;
    /// The first shown template whose name begins with the query, otherwise the first with such words,
    /// otherwise the first shown one.
    QModelIndex bestMatch() const;
    /// The index of a template: in the group of \a near if it is there, otherwise in its category.
    QModelIndex indexOf(const QString& templateKey, const QString& nearGroup = QString()) const;
    /// The pinned template with this number, from 1 on, also if the filter hides it; empty if there is none.
    QString pinned(int number) const;
    /// Up to this number pinned templates have a key: Alt and the number.
    static constexpr int PinnedKeys = 9;
    /// "Alt+1" of the first pinned template, and so on; empty for the others.
    QString shortcutOf(const QString& templateKey) const;
    bool contains(const QString& templateKey) const { return m_places.contains(templateKey); }
    /// The key of an index's group.
    QString groupOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& = QModelIndex()) const override { return 1; }
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    enum class Kind { Root, Favourites, Level, Category, Template };
    struct Node {
        Kind kind = Kind::Root;
        int parent = -1; ///< smaller than the node's own number, -1 for the root
        QString key;
        QString name;
        QString folded;
        std::vector<int> shown; ///< children that pass the filter, in order
        int row = -1;           ///< among the parent's shown children, -1 when hidden
        int order = 0;          ///< number of shown templates before it in the tree
    };
    class Builder;

    void applyFilter();
    void numberTemplates(int node);
    QModelIndex indexOfNode(int node) const;
    int nodeOf(const QModelIndex& index) const;
    int groupNode(int node) const;

    const QIcon m_folderIcon;
    const QIcon m_templateIcon;
    std::vector<Node> m_nodes;                 ///< the root first; siblings in the order of the tree
    std::vector<int> m_order;                  ///< shown templates in the order of the tree
    QHash<QString, std::vector<int>> m_places; ///< nodes of each template, its category first
    QStringList m_parts;
    bool m_hideEmpty = false;
    int m_templateCount = 0;
    int m_shownCount = 0;
};
