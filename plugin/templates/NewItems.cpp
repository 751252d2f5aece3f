#include "NewItems.h"

#include "GenGuid32.h"
#include "PageTree.h"
#include "RecordValue.h"
#include "TemplateEdits.h"
#include "TemplateLevel.h"
#include "TemplatesEditSourceModel.h"
#include "TemplateTables.h"

#include <QTextCodec>

NewItems::NewItems(const TemplateLevel& level, TemplateTables& tables, PageTree& tree, TemplateEdits& edits,
                   const QTextCodec* codec)
    : m_level(level), m_tables(tables), m_tree(tree), m_edits(edits), m_codec(codec)
{
}

void NewItems::add(int row, const QModelIndex& parent, CMDArray& rows, const Values& values)
{
    const QByteArray key = GenGuid32();
    m_tree.model()->beginInsertRow(row, parent);
    MDRData* record = MDARecNew(rows.array);
    MDRSetFlags(record, ROW_INSERT);
    rows.SetValF(record, Field::KeyLink, MDRValue::text(key));
    for (const auto& [field, value] : values)
        rows.SetValF(record, field, value);
    record = rows.RecPost(record);
    m_tree.model()->endInsertRow();
    m_edits.add(record);
}

bool NewItems::isCategory(const QModelIndex& index) const
{
    return TemplateTables::isContains(&m_tables.categories, m_tree.model()->recordByIndex(index));
}

bool NewItems::isRoot(const QModelIndex& index) const
{
    return TemplateTables::isContains(m_tree.roots(), m_tree.model()->recordByIndex(index));
}

QByteArray NewItems::keyAt(const QModelIndex& index) const
{
    return Row(m_tree.model()->recordByIndex(index)).key();
}

void NewItems::addFolder(const QModelIndex& parent, const QString& name)
{
    const QByteArray key = keyAt(parent);
    const char* above = isRoot(parent) ? m_level.scopeField : Field::ParentKey;
    const auto keyOf = [&](const char* field) {
        return qstrcmp(field, above) == 0 ? TemplateTables::keyOrNull(key) : MDRValue::null();
    };
    const QByteArray nameBytes = m_codec->fromUnicode(name);
    add(m_tree.model()->folderCount(parent), parent, m_tables.categoriesEdit.data,
        {{Field::ParentKey, keyOf(Field::ParentKey)},
         {Field::OrgTypeKey, keyOf(Field::OrgTypeKey)},
         {Field::DepartmentKey, keyOf(Field::DepartmentKey)},
         {Field::nameLoc, MDRValue::text(nameBytes)}});
}

void NewItems::addTemplate(const QModelIndex& parent, const QByteArray& name, const MDRVar& html)
{
    const QByteArray category = keyAt(parent);
    add(m_tree.model()->rowCount(parent), parent, m_tables.templatesEdit.data,
        {{Field::CategoryKey, TemplateTables::keyOrNull(category)},
         {Field::nameLoc, MDRValue::text(name)},
         {Field::html, html}});
}

void NewItems::newRootFolder()
{
    addFolder(QModelIndex(), tr("Новая категория"));
}

bool NewItems::newFolder(QModelIndex index)
{
    if (!isRoot(index) && !isCategory(index)) {
        index = index.parent(); // a template is selected
        if (!isCategory(index))
            return false;
    }
    addFolder(index, tr("Новая подкатегория"));
    return true;
}

bool NewItems::newTemplate(QModelIndex index)
{
    if (!isCategory(index))
        index = index.parent();
    if (!isCategory(index))
        return false;
    addTemplate(index, m_codec->fromUnicode(tr("Новый шаблон")), MDRValue::null());
    return true;
}

void NewItems::pasteTemplate(const MDRData* source)
{
    QModelIndex index = m_tree.currentSource();
    if (TemplateTables::isContains(&m_tables.templates, m_tree.currentRecord()))
        index = index.parent();
    addTemplate(index, Row(source).copy(Field::nameLoc), Row(source).value(Field::html));
}
