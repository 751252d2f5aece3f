#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "EventRow.h"
#include "LogbookFields.h"
#include "LogbookTables.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplateMoves.h"
#include "TemplatePassport.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "ui_TemplateTab.h"

#include <QTextCodec>

namespace
{
bool isSame(const MDRVar& one, const MDRVar& other)
{
    const bool isNull = one.isNull || one.type == mdr_TNone;
    if (isNull || other.isNull || other.type == mdr_TNone)
        return isNull == (other.isNull || other.type == mdr_TNone);
    return MDRValue::bytes(one) == MDRValue::bytes(other);
}

/// The event puts the record at another place of the tree.
bool isMoved(const CModelTable* table, const MDRData* record, TEventNciParse* event)
{
    for (const char* name :
         fieldNames(Field::ParentKey, Field::OrgTypeKey, Field::DepartmentKey, Field::CategoryKey)) {
        const bool isField = MDRFldByName(table->data.array, name) != nullptr;
        if (isField && !isSame(Row(record).value(name), EventRow(*event).value(name)))
            return true;
    }
    return false;
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
        rowDeleted(table, edits, event);
        break;
    default:
        break;
    }
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
    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return false;
    const QuietSelection quiet(m_form->templatesTree->selectionModel());
    if (record->flags & ROW_INSERT)
        removeRow(table, record);
    else
        TemplateTables::deleteRecord(table, record);
    return true;
}

void TemplateTab::becomeChange(CModelTable* edits, MDRData* pending)
{
    const QuietSelection quiet(m_form->templatesTree->selectionModel());
    const QModelIndex index = m_model->indexByRecord(pending);
    if (index.isValid())
        m_model->beginRemoveRow(index.row(), index.parent());
    MDRSetFlags(pending, ROW_UPDATE);
    for (const char* place : fieldNames(Field::KeyLink, Field::ParentKey, Field::OrgTypeKey,
                                        Field::DepartmentKey, Field::CategoryKey))
        if (const MDRField* field = MDRFldByName(edits->data.array, place))
            MDRSetUser(field, pending, 0);
    if (index.isValid())
        m_model->endRemoveRow();
}

void TemplateTab::rowChanged(CModelTable* table, CModelTable* edits, TEventNciParse* event)
{
    const bool isOwn = m_sent.take(event);
    MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOther = SentEdits::differs(edit, event);
    // The event of the user's own save, who has continued typing in the meantime.
    const bool goesOn = isOwn && isOther && !(edit->flags & ROW_INSERT);
    const bool isLost = isOther && !isOwn && !(m_isSent && m_sent.isUnderWay(event->recordKey));
    if (isLost)
        m_kept.keep(m_tables, edit);
    if (!goesOn && deleteEditRecord(edits, event))
        updateEditStatus();

    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    if (isMoved(table, record, event)) {
        moveRow(table, record, event);
    } else {
        const QuietSelection quiet(m_form->templatesTree->selectionModel());
        record = changeRecord(table, MDARecEdit(record), event);
        m_model->updateRecord(record);
        if (record == currentRecord() && !goesOn)
            m_passport->show(record);
    }
    if (isLost)
        tellKept(tr("Элемент «%1» тем временем изменил другой пользователь, показано его состояние.")
                     .arg(EventRow(*event).text(Field::nameLoc, codec())));
}

/// The row has moved, for example by an import: remove it and insert it at the new place.
void TemplateTab::moveRow(CModelTable* table, MDRData* record, TEventNciParse* event)
{
    const bool wasCurrent = record == currentRecord();
    QuietSelection quiet(m_form->templatesTree->selectionModel());
    removeRow(table, record);
    int row = -1;
    QModelIndex parent;
    whereInsert(row, parent, event);
    if (row >= 0) {
        m_model->beginInsertRow(row, parent);
        MDRData* arrived = MDARecNew(table->data.array);
        EventRow(*event).copyTo(arrived, EventRow::All);
        arrived = table->data.RecPost(arrived);
        m_model->endInsertRow();
        if (wasCurrent)
            setFocusOn(arrived);
    }
    if (quiet.end())
        reloadFor(m_form->templatesTree->currentIndex(), QModelIndex());
}

void TemplateTab::rowDeleted(CModelTable* table, CModelTable* edits, TEventNciParse* event)
{
    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    const QString name = Row(record).text(Field::nameLoc, codec());
    const MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOwnMove = m_moves->isUnderWay(event->recordKey);
    const bool isLost = edit && !m_isSent && !isOwnMove;
    if (isLost)
        m_kept.keep(m_tables, edit);

    QuietSelection quiet(m_form->templatesTree->selectionModel());
    if (!isOwnMove && deleteEditRecord(edits, event)) // what is unsaved goes along with one's own move
        updateEditStatus();
    removeRow(table, record);
    m_form->templatesTree->viewport()->update();
    const bool hasMoved = quiet.end();
    if (hasMoved && isOwnMove) // the row will be inserted at its new place
        raiseUpPassport(m_form->templatesTree->currentIndex());
    else if (hasMoved)
        reloadFor(m_form->templatesTree->currentIndex(), QModelIndex());
    if (isLost)
        tellKept(tr("Элемент «%1» тем временем удалил или переместил другой пользователь.").arg(name));
}

void TemplateTab::rowInserted(CModelTable* table, CModelTable* edits, CModelTable* moved,
                              TEventNciParse* event)
{
    QTreeView* tree = m_form->templatesTree;
    QuietSelection quiet(tree->selectionModel());
    const bool isOwn = m_sent.take(event);
    MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOwnMove = m_moves->finish(event->recordKey);
    const bool wasPending = edit && !isOwnMove;
    const bool goesOn = wasPending && isOwn && (edit->flags & ROW_INSERT) && SentEdits::differs(edit, event);
    if (goesOn) { // the user has continued typing since the save
        becomeChange(edits, edit);
    } else if (!isOwnMove) {
        edit = nullptr;
        if (deleteEditRecord(edits, event))
            updateEditStatus();
    }
    int row = -1;
    QModelIndex parent;
    if (!recordByKeyLink(table, event->recordKey)) // a load may have brought it already
        whereInsert(row, parent, event);
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

    setFocusOn(record, edit);
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

void TemplateTab::whereInsert(int& row, QModelIndex& parent, TEventNciParse* event)
{
    const bool isCategory = event->tableName == QLatin1String(LogbookTable::CatsTemplate);
    const EventRow arrived(*event);
    const CModelTable* folders = &m_tables.categories;
    MDRVar key = arrived.value(isCategory ? Field::ParentKey : Field::CategoryKey);
    for (const char* scope : fieldNames(Field::OrgTypeKey, Field::DepartmentKey)) {
        if (!isCategory || arrived.value(scope).isNull)
            continue;
        key = arrived.value(scope); // one of another level is not among the roots
        folders = roots();
    }
    if (MDRValue::hasText(key))
        parent = m_model->indexByRecord(recordByKeyLink(folders, key.value.text.data));
    const bool isTop = isCategory && !m_level->scopeField && !MDRValue::hasText(key);
    if (parent.isValid() || isTop)
        row = isCategory ? m_model->nextCategoryRow(parent) : m_model->nextTemplateRow(parent);
}
