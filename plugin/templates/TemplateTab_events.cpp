#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "TEventNciParse.h"
#include "ui_TemplateTab.h"

#include <QTextCodec>

namespace
{
/// Takes over all fields of an event's row, marked or not.
void takeWhole(MDRData* record, TEventNciParse* event)
{
    for (int i = 0; i < event->recordType.count; ++i) {
        const MDRField* field = MDRFldByNum(&event->recordType, i);
        MDRVar value;
        MDRGetVal(field, &event->recordData, &value);
        MDRSetVal(field, record, &value); // by position
    }
}

bool isSame(const MDRVar& one, const MDRVar& other)
{
    const bool isNull = one.isNull || one.type == mdr_TNone;
    if (isNull || other.isNull || other.type == mdr_TNone)
        return isNull == (other.isNull || other.type == mdr_TNone);
    return MDRValue::bytes(one) == MDRValue::bytes(other);
}

MDRVar eventValue(TEventNciParse* event, const char* field)
{
    MDRVar value;
    MDRGetVal(MDRFldByName(&event->recordType, field), &event->recordData, &value);
    return value;
}
} // namespace

void TemplateTab::MessageData(TEventNciParse* event)
{
    if (!m_model)
        return;
    const bool isCategory = event->tableName == QLatin1String(LogbookTable::CatsTemplate);
    if (!isCategory && event->tableName != QLatin1String(LogbookTable::Templates))
        return;
    CModelTable* table = isCategory ? &m_tables.categories : &m_tables.templates;
    CModelTable* edits = isCategory ? &m_tables.categoriesEdit : &m_tables.templatesEdit;
    CModelTable* moved = isCategory ? &m_tables.categoriesMoved : &m_tables.templatesMoved;
    switch (event->eventNumber) {
    case EventInserted:
        rowInserted(table, edits, moved, event);
        break;
    case EventChanged:
        rowChanged(table, edits, event);
        break;
    case EventDeleted:
        rowDeleted(table, edits, moved, event);
        break;
    default:
        break;
    }
}

MDRData* TemplateTab::changeRecord(CModelTable* table, MDRData* record, TEventNciParse* event)
{
    return TemplateTables::changeRecord(table, record, event);
}

void TemplateTab::removeRow(CModelTable* table, MDRData* record)
{
    const QModelIndex index = m_model->indexByRecord(record);
    if (index.isValid())
        m_model->beginRemoveRow(index.row(), index.parent());
    TemplateTables::deleteRecord(table, record);
    if (index.isValid())
        m_model->endRemoveRow();
}

bool TemplateTab::deleteEditRecord(CModelTable* table, TEventNciParse* event)
{
    MDRData* record = TemplateTables::recordByKeyLink(table, event->recordKey);
    if (!record)
        return false;
    const QuietSelection quiet(m_form->templatesTree->selectionModel());
    if (record->flags & ROW_INSERT)
        removeRow(table, record);
    else
        TemplateTables::deleteRecord(table, record);
    return true;
}

/// The user's change is not what the server now holds: somebody else has saved this record.
bool TemplateTab::isOverruled(const MDRData* edit, TEventNciParse* event) const
{
    if (!edit)
        return false;
    for (const char* name : {"nameLoc", "html"}) {
        const MDRField* field = MDRFldByName(MDARecArr(edit), name);
        bool isMarked = false;
        if (field)
            MDRIsUser(field, edit, &isMarked);
        if (isMarked && !isSame(recordValue(edit, name), eventValue(event, name)))
            return true;
    }
    return false;
}

bool TemplateTab::isMoved(const CModelTable* table, const MDRData* record, TEventNciParse* event)
{
    for (const char* name : {"ParentKey", "OrgTypeKey", "DepartmentKey", "CategoryKey"}) {
        const bool isField = MDRFldByName(table->data.array, name) != nullptr;
        if (isField && !isSame(recordValue(record, name), eventValue(event, name)))
            return true;
    }
    return false;
}

void TemplateTab::rowChanged(CModelTable* table, CModelTable* edits, TEventNciParse* event)
{
    const MDRData* edit = TemplateTables::recordByKeyLink(edits, event->recordKey);
    const bool isLost = isOverruled(edit, event);
    if (isLost)
        m_kept.keep(m_tables, edit);
    if (deleteEditRecord(edits, event))
        updateEditStatus();

    MDRData* record = TemplateTables::recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    if (isMoved(table, record, event)) {
        moveRow(table, record, event);
    } else {
        const QuietSelection quiet(m_form->templatesTree->selectionModel());
        record = changeRecord(table, MDARecEdit(record), event);
        m_model->updateRecord(record);
        if (record == currentRecord())
            raiseUpPassport(record);
    }
    if (isLost)
        tellKept(tr("Элемент «%1» тем временем изменил другой пользователь, показано его состояние.")
                     .arg(codec()->toUnicode(MDRValue::bytes(eventValue(event, "nameLoc")))));
}

/// The row stands elsewhere than before, such as after an import: out there and in here.
void TemplateTab::moveRow(CModelTable* table, MDRData* record, TEventNciParse* event)
{
    const bool wasCurrent = record == currentRecord();
    QuietSelection quiet(m_form->templatesTree->selectionModel());
    removeRow(table, record);
    int row = -1;
    QModelIndex parent;
    (this->*m_operations->whereInsertRecord)(row, parent, event);
    if (row >= 0) {
        m_model->beginInsertRow(row, parent);
        MDRData* arrived = MDARecNew(table->data.array);
        takeWhole(arrived, event);
        arrived = table->data.RecPost(arrived);
        m_model->endInsertRow();
        if (wasCurrent)
            setFocusOn(arrived);
    }
    if (quiet.end())
        reloadFor(m_form->templatesTree->currentIndex(), QModelIndex());
}

void TemplateTab::rowDeleted(CModelTable* table, CModelTable* edits, CModelTable* moved,
                             TEventNciParse* event)
{
    MDRData* record = TemplateTables::recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    const QString name = codec()->toUnicode(MDRValue::bytes(recordValue(record, "nameLoc")));
    const MDRData* edit = TemplateTables::recordByKeyLink(edits, event->recordKey);
    const bool isLost = edit && !m_isSent && !TemplateTables::recordByKeyLink(moved, event->recordKey);
    if (isLost)
        m_kept.keep(m_tables, edit);

    QuietSelection quiet(m_form->templatesTree->selectionModel());
    if (deleteEditRecord(edits, event))
        updateEditStatus();
    removeRow(table, record);
    m_form->templatesTree->viewport()->update();
    if (quiet.end())
        reloadFor(m_form->templatesTree->currentIndex(), QModelIndex());
    if (isLost)
        tellKept(tr("Элемент «%1» тем временем удалил или переместил другой пользователь.").arg(name));
}

void TemplateTab::rowInserted(CModelTable* table, CModelTable* edits, CModelTable* moved,
                              TEventNciParse* event)
{
    QTreeView* tree = m_form->templatesTree;
    QuietSelection quiet(tree->selectionModel());
    const bool wasPending = deleteEditRecord(edits, event);
    if (wasPending)
        updateEditStatus();
    int row = -1;
    QModelIndex parent;
    if (!TemplateTables::recordByKeyLink(table, event->recordKey)) // a load may have brought it already
        (this->*m_operations->whereInsertRecord)(row, parent, event);
    if (row < 0) { // it belongs to the tree of another page
        if (quiet.end())
            reloadFor(tree->currentIndex(), QModelIndex());
        return;
    }

    m_model->beginInsertRow(row, parent);
    MDRData* record = changeRecord(table, MDARecNew(table->data.array), event);
    m_model->endInsertRow();
    const bool wasMoved = deleteEditRecord(moved, event);
    if (!wasPending && !wasMoved) {
        updateEditStatus();
        return;
    }

    setFocusOn(record);
    if (table == &m_tables.categories && wasMoved) {
        const QModelIndex index = m_proxy->mapFromSource(m_model->indexByRecord(record));
        if (index.isValid())
            tree->expand(index);
        else
            emit writeLog(QStringLiteral("void TemplateTab::MessageData(TEventNciParse*)"),
                          QStringLiteral("record pasted, but has invalid index"));
    }
    updateEditStatus();
}

void TemplateTab::whereInsert(int& row, QModelIndex& parent, TEventNciParse* event, const CModelTable* roots,
                              const char* scopeField, std::initializer_list<const char*> refused)
{
    const bool isCategory = event->tableName == QLatin1String(LogbookTable::CatsTemplate);
    const MDRFieldDescr* fields = isCategory ? LogbookCatsTemplateFields : LogbookTemplatesFields;
    CRowBatch rows(fields,
                   isCategory ? fieldCount(LogbookCatsTemplateFields) : fieldCount(LogbookTemplatesFields));
    MDRData* arrived = MDARecNew(rows.array);
    takeWhole(arrived, event);
    rows.RecPost(arrived);

    const CModelTable* folders = &m_tables.categories;
    MDRVar key = recordValue(arrived, isCategory ? "ParentKey" : "CategoryKey");
    if (isCategory) {
        for (const char* field : refused)
            if (!recordValue(arrived, field).isNull)
                return;
        if (scopeField && !recordValue(arrived, scopeField).isNull) {
            key = recordValue(arrived, scopeField);
            folders = roots;
        }
    }
    if (MDRValue::hasText(key))
        parent = m_model->indexByRecord(TemplateTables::recordByKeyLink(folders, key.value.text.data));
    const bool isTop = isCategory && !scopeField && !MDRValue::hasText(key);
    if (parent.isValid() || isTop)
        row = isCategory ? m_model->nextCategoryRow(parent) : m_model->nextTemplateRow(parent);
}
