#include "OrgStructModel.h"

#include "TextMatch.h"

#include <QCollator>
#include <QIcon>

namespace
{
int typeOf(const QStandardItem* item)
{
    return item->data(OrgStructModel::TypeRole).toInt();
}

// Workers come before subdepartments; otherwise items are sorted by name.
bool precedes(const QStandardItem* left, const QStandardItem* right)
{
    static const QCollator collator{QLocale(QLocale::Russian)};
    if (typeOf(left) != typeOf(right))
        return typeOf(left) > typeOf(right);
    return collator.compare(left->text(), right->text()) < 0;
}

QIcon iconOf(int type)
{
    switch (type) {
    case OrgStruct::Person:
        return QIcon(QStringLiteral(":/vrk/user.png"));
    case OrgStruct::Department:
        return QIcon(QStringLiteral(":/vrk/department.png"));
    case OrgStruct::Organization:
        return QIcon(QStringLiteral(":/vrk/organization.png"));
    default:
        return QIcon(QStringLiteral(":/vrk/type.png"));
    }
}

void setName(QStandardItem* item, const QString& name)
{
    item->setText(name);
    item->setData(TextMatch::folded(name), OrgStructModel::FoldedRole);
}

bool isInOrder(const QStandardItem* parent, const QStandardItem* item)
{
    const QStandardItem* above = parent->child(item->row() - 1);
    const QStandardItem* below = parent->child(item->row() + 1);
    return (!above || !precedes(item, above)) && (!below || !precedes(below, item));
}
} // namespace

OrgStructModel::OrgStructModel(const OrgStructTables* tables, QObject* parent)
    : QStandardItemModel(parent), m_tables(tables)
{
}

OrgStructModel::~OrgStructModel() = default;

void OrgStructModel::rebuild()
{
    clear();
    m_items.clear();
    for (int type : {OrgStruct::OrgType, OrgStruct::Organization, OrgStruct::Department, OrgStruct::Person}) {
        const QVector<OrgStructTables::Row> rows = m_tables->rows(type);
        for (const OrgStructTables::Row& row : rows)
            place(row);
    }
}

QModelIndex OrgStructModel::indexOf(int type, const QString& key) const
{
    const QStandardItem* item = m_items.value(Id(type, key));
    return item ? item->index() : QModelIndex();
}

// The item of a row; creates it and all items above it if needed.
QStandardItem* OrgStructModel::place(const OrgStructTables::Row& row)
{
    if (row.hidden)
        return nullptr;
    QStandardItem*& item = m_items[Id(row.type, row.key)];
    if (item)
        return item;
    auto* made = new QStandardItem(iconOf(row.type), row.name);
    made->setEditable(false);
    setName(made, row.name);
    made->setData(row.type, TypeRole);
    made->setData(row.key, KeyRole);
    item = made;
    insert(parentItem(row), made);
    return made;
}

QStandardItem* OrgStructModel::parentItem(const OrgStructTables::Row& row)
{
    const OrgStructTables::Row parent = m_tables->parent(row.type, row.key);
    return parent.type == OrgStruct::None ? invisibleRootItem() : place(parent);
}

void OrgStructModel::insert(QStandardItem* parent, QStandardItem* item)
{
    int first = 0;
    int last = parent->rowCount();
    while (first < last) {
        const int middle = (first + last) / 2;
        if (precedes(item, parent->child(middle)))
            last = middle;
        else
            first = middle + 1;
    }
    parent->insertRow(first, item);
}

void OrgStructModel::refresh(int type, const QString& key)
{
    const OrgStructTables::Row row = m_tables->row(type, key);
    QStandardItem* item = m_items.value(Id(type, key));
    const bool wanted = row.type != OrgStruct::None && !row.hidden;
    if (wanted && !item) {
        place(row);
        moveChildren(type);
    } else if (!wanted && item) {
        m_items.remove(Id(type, key));
        moveChildren(type);
        QStandardItem* parent = item->parent() ? item->parent() : invisibleRootItem();
        parent->removeRow(item->row());
    } else if (item) {
        QStandardItem* parent = item->parent() ? item->parent() : invisibleRootItem();
        QStandardItem* target = parentItem(row);
        setName(item, row.name);
        // Stays in its place if possible: a removed item loses selection and expansion.
        if (parent != target || !isInOrder(parent, item))
            insert(target, parent->takeRow(item->row()).value(0));
    }
}

// Moves rows that now have a different parent, because an item of this type was added or removed.
void OrgStructModel::moveChildren(int type)
{
    for (int child = type; child <= OrgStruct::Person; child *= 2) {
        const QVector<OrgStructTables::Row> rows = m_tables->rows(child);
        for (const OrgStructTables::Row& row : rows) {
            QStandardItem* item = m_items.value(Id(row.type, row.key));
            QStandardItem* target = item ? parentItem(row) : nullptr;
            QStandardItem* parent = item && item->parent() ? item->parent() : invisibleRootItem();
            if (item && parent != target)
                insert(target, parent->takeRow(item->row()).value(0));
        }
    }
}

OrgStructFilter::OrgStructFilter(QObject* parent) : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
}

OrgStructFilter::~OrgStructFilter() = default;

void OrgStructFilter::setSelectionType(int type)
{
    if (m_selectionType == type)
        return;
    m_selectionType = type;
    invalidateFilter();
}

void OrgStructFilter::setRootDepartment(const QString& key)
{
    m_root = key;
    invalidateFilter();
}

void OrgStructFilter::setQuery(const QString& query)
{
    m_words = TextMatch::parts(query);
    invalidateFilter();
}

bool OrgStructFilter::isSelectable(const QModelIndex& index) const
{
    return index.isValid() && (index.data(OrgStructModel::TypeRole).toInt() & m_selectionType) != 0;
}

Qt::ItemFlags OrgStructFilter::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QSortFilterProxyModel::flags(index);
    return isSelectable(index) ? flags : flags & ~Qt::ItemIsSelectable;
}

bool OrgStructFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QModelIndex item = sourceModel()->index(sourceRow, 0, sourceParent);
    // Nothing below the lowest selectable level.
    if (item.data(OrgStructModel::TypeRole).toInt() > m_selectionType)
        return false;
    bool inRoot = m_root.isNull();
    QString names;
    for (QModelIndex above = item; above.isValid(); above = above.parent()) {
        names += above.data(OrgStructModel::FoldedRole).toString() + QLatin1Char('\n');
        inRoot = inRoot || (above.data(OrgStructModel::TypeRole).toInt() == OrgStruct::Department &&
                            above.data(OrgStructModel::KeyRole).toString() == m_root);
    }
    return inRoot && TextMatch::matches(names, m_words);
}
