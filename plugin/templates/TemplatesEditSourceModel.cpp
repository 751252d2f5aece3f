#include "TemplatesEditSourceModel.h"

#include "CVrkCliMod.h"
#include "Fields.h"
#include "MDRValues.h"
#include "RecordValue.h"
#include "TemplateTables.h"

#include <algorithm>
#include <QPixmap>
#include <QTextCodec>

namespace
{
constexpr int iconSide = 20;

bool enteredBefore(const MDRData* a, const MDRData* b)
{
    return a->entry < b->entry;
}

/// Scaled once for each name, since the pictures never change.
QPixmap picture(const char* name)
{
    static QHash<QByteArray, QPixmap> pictures;
    QPixmap& made = pictures[name];
    if (made.isNull()) {
        const QIcon icon = CVrkCliMod::icon(QLatin1String(name));
        const QPixmap largest = icon.pixmap(QSize(48, 48));
        made = largest.scaled(iconSide, iconSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    return made;
}

/// The records of an edit table that are rows of the tree: the new ones.
std::vector<MDRData*> inserted(const MDRRange& range)
{
    std::vector<MDRData*> found;
    std::copy_if(range.begin(), range.end(), std::back_inserter(found),
                 [](const MDRData* record) { return (record->flags & ROW_INSERT) != 0; });
    return found;
}

int positionIn(const MDRRange& range, const MDRData* record)
{
    MDRData* const* found = std::lower_bound(range.begin(), range.end(), record, enteredBefore);
    return found != range.end() && *found == record ? static_cast<int>(found - range.begin()) : -1;
}

} // namespace

TemplatesEditSourceModel::TemplatesEditSourceModel(const TemplateLevel& level, QObject* parent)
    : QAbstractItemModel(parent), m_level(level)
{
}

TemplatesEditSourceModel::~TemplatesEditSourceModel()
{
    clear();
}

void TemplatesEditSourceModel::setOrgTypesTable(CModelTable* table)
{
    if (m_level.roots == TemplateLevel::OrgTypeRoots)
        set(m_roots, table);
}

void TemplatesEditSourceModel::setDepartmentsTable(CModelTable* table)
{
    if (m_level.roots == TemplateLevel::DepartmentRoots)
        set(m_roots, table);
}

void TemplatesEditSourceModel::clear()
{
    beginResetModel();
    m_codec = nullptr;
    m_roots = m_categories = m_templates = m_categoriesEdit = m_templatesEdit = nullptr;
    m_editable = false;
    endResetModel();
}

bool TemplatesEditSourceModel::isReady() const
{
    const bool rootsReady = m_roots || m_level.roots == TemplateLevel::NoRoots;
    return m_codec && rootsReady && m_categories && m_templates && m_categoriesEdit && m_templatesEdit;
}

const CModelTable* TemplatesEditSourceModel::tableByRecord(const MDRData* record) const
{
    for (const CModelTable* table : {m_roots, m_categories, m_templates, m_categoriesEdit, m_templatesEdit})
        if (TemplateTables::isContains(table, record))
            return table;
    return nullptr;
}

std::array<MDRRange, 4> TemplatesEditSourceModel::Rows::groups() const
{
    return {categories,
            {newCategories.data(), newCategories.size()},
            templates,
            {newTemplates.data(), newTemplates.size()}};
}

int TemplatesEditSourceModel::Rows::folders() const
{
    return static_cast<int>(categories.count + newCategories.size());
}

int TemplatesEditSourceModel::Rows::count() const
{
    return folders() + static_cast<int>(templates.count + newTemplates.size());
}

MDRData* TemplatesEditSourceModel::Rows::at(int row) const
{
    auto left = static_cast<std::size_t>(row);
    for (const MDRRange& group : groups()) {
        if (left < group.count)
            return group.data[left];
        left -= group.count;
    }
    return nullptr;
}

int TemplatesEditSourceModel::Rows::rowOf(const MDRData* record) const
{
    int before = 0;
    for (const MDRRange& group : groups()) {
        const int found = positionIn(group, record);
        if (found >= 0)
            return before + found;
        before += static_cast<int>(group.count);
    }
    return -1;
}

TemplatesEditSourceModel::Rows TemplatesEditSourceModel::rowsUnder(const MDRData* parent) const
{
    Rows rows;
    if (!parent) {
        rows.categories = MDARecsWithout(m_categories->data.array, "ParentKey;OrgTypeKey;DepartmentKey");
        rows.newCategories = inserted(MDARecsWithout(m_categoriesEdit->data.array, Field::ParentKey));
        return rows;
    }
    const bool isRoot = TemplateTables::isContains(m_roots, parent);
    const bool isNew =
        TemplateTables::isContains(m_categoriesEdit, parent) && (parent->flags & ROW_INSERT) != 0;
    const bool isFolder = TemplateTables::isContains(m_categories, parent) ||
                          (isNew && m_level.roots == TemplateLevel::NoRoots);
    const MDRVar key = Row(parent).value(Field::KeyLink);
    if ((!isRoot && !isFolder) || !MDRValue::hasText(key))
        return rows;

    const char* keyText = key.value.text.data;
    const char* field = isRoot ? m_level.scopeField : Field::ParentKey;
    rows.categories = MDARecsWith(m_categories->data.array, field, keyText);
    rows.newCategories = inserted(MDARecsWith(m_categoriesEdit->data.array, field, keyText));
    if (isFolder) {
        rows.templates = MDARecsWith(m_templates->data.array, Field::CategoryKey, keyText);
        rows.newTemplates = inserted(MDARecsWith(m_templatesEdit->data.array, Field::CategoryKey, keyText));
    }
    return rows;
}

MDRData* TemplatesEditSourceModel::recordByIndex(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<MDRData*>(index.internalPointer()) : nullptr;
}

QModelIndex TemplatesEditSourceModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!isReady() || row < 0)
        return {};
    const MDRData* above = recordByIndex(parent);
    MDRData* record = isTopOfRoots(above) ? MDARec(m_roots->data.array, 0, row) : rowsUnder(above).at(row);
    return record ? createIndex(row, column, record) : QModelIndex();
}

int TemplatesEditSourceModel::rowCount(const QModelIndex& parent) const
{
    if (!isReady())
        return 0;
    const MDRData* above = recordByIndex(parent);
    return isTopOfRoots(above) ? rootCount() : rowsUnder(above).count();
}

int TemplatesEditSourceModel::folderCount(const QModelIndex& parent) const
{
    if (!isReady())
        return 0;
    const MDRData* above = recordByIndex(parent);
    return isTopOfRoots(above) ? rootCount() : rowsUnder(above).folders();
}

int TemplatesEditSourceModel::nextCategoryRow(const QModelIndex& parent) const
{
    return static_cast<int>(rowsUnder(recordByIndex(parent)).categories.count);
}

int TemplatesEditSourceModel::nextTemplateRow(const QModelIndex& parent) const
{
    const Rows rows = rowsUnder(recordByIndex(parent));
    return rows.folders() + static_cast<int>(rows.templates.count);
}

int TemplatesEditSourceModel::columnCount(const QModelIndex&) const
{
    return 1;
}

MDRData* TemplatesEditSourceModel::parentRecord(const MDRData* record, bool* orphan) const
{
    *orphan = false;
    MDRVar key;
    if (TemplateTables::isContains(m_categories, record) ||
        TemplateTables::isContains(m_categoriesEdit, record)) {
        if (m_level.scopeField)
            key = Row(record).value(m_level.scopeField);
        if (!MDRValue::hasText(key))
            key = Row(record).value(Field::ParentKey);
    } else if (TemplateTables::isContains(m_templates, record) ||
               TemplateTables::isContains(m_templatesEdit, record)) {
        key = Row(record).value(Field::CategoryKey);
    }
    if (!MDRValue::hasText(key))
        return nullptr;

    const char* keyText = key.value.text.data;
    for (const CModelTable* table : {m_roots, m_categories})
        if (MDRData* found = recordByKeyLink(table, keyText))
            return found;
    for (MDRData* found : MDARecsWith(m_categoriesEdit->data.array, Field::KeyLink, keyText))
        if (found->flags & ROW_INSERT)
            return found;
    *orphan = true;
    return nullptr;
}

int TemplatesEditSourceModel::rowOf(const MDRData* record, const MDRData* parent) const
{
    return isTopOfRoots(parent) ? MDARecPos(m_roots->data.array, 0, record) : rowsUnder(parent).rowOf(record);
}

QModelIndex TemplatesEditSourceModel::parent(const QModelIndex& index) const
{
    if (!isReady())
        return {};
    bool orphan = false;
    MDRData* above = parentRecord(recordByIndex(index), &orphan);
    if (!above)
        return {};
    const int row = rowOf(above, parentRecord(above, &orphan));
    return row >= 0 ? createIndex(row, 0, above) : QModelIndex();
}

QModelIndex TemplatesEditSourceModel::indexByRecord(const MDRData* record) const
{
    if (!isReady() || !tableByRecord(record))
        return {};
    // Goes up while each record is a child of the next. A cycle of categories never reaches the top; it
    // ends after more steps than there are categories.
    int steps = m_categories->data.RecCount() + m_categoriesEdit->data.RecCount() + 2;
    int ownRow = -1;
    for (const MDRData* one = record; steps >= 0; --steps) {
        bool orphan = false;
        const MDRData* above = parentRecord(one, &orphan);
        const int row = orphan ? -1 : rowOf(one, above);
        if (row < 0)
            return {};
        if (one == record)
            ownRow = row;
        else if (flags(createIndex(row, 0, const_cast<MDRData*>(one))) & Qt::ItemNeverHasChildren)
            return {};
        if (!above)
            return createIndex(ownRow, 0, const_cast<MDRData*>(record));
        one = above;
    }
    return {};
}

QString TemplatesEditSourceModel::text(const MDRData* record, const char* field) const
{
    return m_codec->toUnicode(MDRValue::bytes(Row(record).value(field)));
}

QVariant TemplatesEditSourceModel::data(const QModelIndex& index, int role) const
{
    const MDRData* record = recordByIndex(index);
    const CModelTable* table = isReady() ? tableByRecord(record) : nullptr;
    if (!table)
        return {};
    switch (role) {
    case Qt::DisplayRole: {
        const MDRVar name = Row(record).value(table == m_roots ? Field::name_ : Field::nameLoc);
        return MDRValue::isText(name) && !name.isNull ? m_codec->toUnicode(MDRValue::bytes(name))
                                                      : QVariant();
    }
    case Qt::DecorationRole:
        if (table == m_roots || table == m_categories)
            return picture("folder.png");
        return picture(table == m_templates ? "template.png" : "edited.png");
    case Qt::UserRole:
        return text(record, Field::KeyLink);
    case Qt::ToolTipRole:
        return m_level.tellsKey ? QVariant(text(record, Field::KeyLink)) : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags TemplatesEditSourceModel::flags(const QModelIndex& index) const
{
    if (!index
             // the empty area below a tree of categories accepts a drop, which the page then refuses
             .isValid())
        return m_editable && m_level.roots == TemplateLevel::NoRoots ? Qt::ItemIsDropEnabled
                                                                     : Qt::NoItemFlags;
    if (!m_editable)
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    const MDRData* record = recordByIndex(index);
    if (TemplateTables::isContains(m_categories, record))
        return base | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    // Deliberate: in the common tree new items can also be dragged; their mime data is empty.
    if (m_level.roots == TemplateLevel::NoRoots || TemplateTables::isContains(m_templates, record))
        return base | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
    return TemplateTables::isContains(m_roots, record) ? base | Qt::ItemIsDropEnabled : base;
}

void TemplatesEditSourceModel::beginMoveRow(const QModelIndex& parent, int from, int to)
{
    beginMoveRows(parent, from, from, parent, to + (to > from ? 1 : 0));
}

void TemplatesEditSourceModel::resetModel()
{
    beginResetModel();
    endResetModel();
}

void TemplatesEditSourceModel::updateView()
{
    emit dataChanged(QModelIndex(), QModelIndex(), {Qt::DisplayRole, Qt::DecorationRole});
}

void TemplatesEditSourceModel::updateRecord(MDRData* record)
{
    const QModelIndex changed = indexByRecord(record);
    if (changed.isValid())
        emit dataChanged(changed, changed, {Qt::DisplayRole, Qt::DecorationRole});
}
