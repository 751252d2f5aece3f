#include "TemplateEvents.h"

#include "EventRow.h"
#include "LogbookTables.h"
#include "PageTree.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplateEdits.h"
#include "TemplateMoves.h"
#include "TemplatePassport.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"

#include <QTextCodec>
#include <QTreeView>

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

TemplateEvents::TemplateEvents(TemplateTables& tables, PageTree& tree, TemplateEdits& edits,
                               TemplateMoves& moves, TemplatePassport& passport, const QTextCodec* codec,
                               QObject* parent)
    : QObject(parent),
      m_tables(tables),
      m_tree(tree),
      m_edits(edits),
      m_moves(moves),
      m_passport(passport),
      m_codec(codec)
{
}

void TemplateEvents::MessageData(TEventNciParse* event)
{
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

bool TemplateEvents::deleteEditRecord(CModelTable* table, TEventNciParse* event)
{
    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return false;
    const QuietSelection quiet(m_tree.selection());
    m_tree.removeRow(table, record);
    return true;
}

void TemplateEvents::becomeChange(CModelTable* edits, MDRData* pending)
{
    const QuietSelection quiet(m_tree.selection());
    const QModelIndex index = m_tree.model()->indexByRecord(pending);
    if (index.isValid())
        m_tree.model()->beginRemoveRow(index.row(), index.parent());
    MDRSetFlags(pending, ROW_UPDATE);
    for (const char* place : fieldNames(Field::KeyLink, Field::ParentKey, Field::OrgTypeKey,
                                        Field::DepartmentKey, Field::CategoryKey))
        if (const MDRField* field = MDRFldByName(edits->data.array, place))
            MDRSetUser(field, pending, 0);
    if (index.isValid())
        m_tree.model()->endRemoveRow();
}

void TemplateEvents::rowChanged(CModelTable* table, CModelTable* edits, TEventNciParse* event)
{
    const bool isOwn = m_edits.sent().take(event);
    MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOther = SentEdits::differs(edit, event);
    // The event of the user's own save, who has continued typing in the meantime.
    const bool goesOn = isOwn && isOther && !(edit->flags & ROW_INSERT);
    const bool isLost =
        isOther && !isOwn && !(m_edits.isSent() && m_edits.sent().isUnderWay(event->recordKey));
    if (isLost)
        m_edits.keep(edit);
    if (!goesOn && deleteEditRecord(edits, event))
        m_edits.updateEditStatus();

    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    if (isMoved(table, record, event)) {
        moveRow(table, record, event);
    } else {
        const QuietSelection quiet(m_tree.selection());
        record = changeRecord(table, MDARecEdit(record), event);
        m_tree.model()->updateRecord(record);
        if (record == m_tree.currentRecord() && !goesOn)
            m_passport.raiseUpPassport(record);
    }
    if (isLost)
        m_edits.tellKept(tr("Элемент «%1» тем временем изменил другой пользователь, показано его состояние.")
                             .arg(EventRow(*event).text(Field::nameLoc, m_codec)));
}

/// The row has moved, for example by an import: remove it and insert it at the new place.
void TemplateEvents::moveRow(CModelTable* table, MDRData* record, TEventNciParse* event)
{
    const bool wasCurrent = record == m_tree.currentRecord();
    QuietSelection quiet(m_tree.selection());
    m_tree.removeRow(table, record);
    int row = -1;
    QModelIndex parent;
    whereInsertRecord(row, parent, event);
    if (row >= 0) {
        m_tree.model()->beginInsertRow(row, parent);
        MDRData* arrived = MDARecNew(table->data.array);
        EventRow(*event).copyTo(arrived, EventRow::All);
        arrived = table->data.RecPost(arrived);
        m_tree.model()->endInsertRow();
        if (wasCurrent)
            setFocusOn(arrived);
    }
    if (quiet.end())
        emit currentLost();
}

void TemplateEvents::rowDeleted(CModelTable* table, CModelTable* edits, TEventNciParse* event)
{
    MDRData* record = recordByKeyLink(table, event->recordKey);
    if (!record)
        return;
    const QString name = Row(record).text(Field::nameLoc, m_codec);
    const MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOwnMove = m_moves.isUnderWay(event->recordKey);
    const bool isLost = edit && !m_edits.isSent() && !isOwnMove;
    if (isLost)
        m_edits.keep(edit);

    QuietSelection quiet(m_tree.selection());
    if (!isOwnMove && deleteEditRecord(edits, event)) // what is unsaved goes along with one's own move
        m_edits.updateEditStatus();
    m_tree.removeRow(table, record);
    m_tree.view()->viewport()->update();
    const bool hasMoved = quiet.end();
    if (hasMoved && isOwnMove) // the row will be inserted at its new place
        m_passport.raiseUpPassport(m_tree.currentRecord());
    else if (hasMoved)
        emit currentLost();
    if (isLost)
        m_edits.tellKept(
            tr("Элемент «%1» тем временем удалил или переместил другой пользователь.").arg(name));
}

void TemplateEvents::rowInserted(CModelTable* table, CModelTable* edits, CModelTable* moved,
                                 TEventNciParse* event)
{
    QuietSelection quiet(m_tree.selection());
    const bool isOwn = m_edits.sent().take(event);
    MDRData* edit = recordByKeyLink(edits, event->recordKey);
    const bool isOwnMove = m_moves.finish(event->recordKey);
    const bool wasPending = edit && !isOwnMove;
    const bool goesOn = wasPending && isOwn && (edit->flags & ROW_INSERT) && SentEdits::differs(edit, event);
    if (goesOn) { // the user has continued typing since the save
        becomeChange(edits, edit);
    } else if (!isOwnMove) {
        edit = nullptr;
        if (deleteEditRecord(edits, event))
            m_edits.updateEditStatus();
    }
    int row = -1;
    QModelIndex parent;
    if (!recordByKeyLink(table, event->recordKey)) // a load may have brought it already
        whereInsertRecord(row, parent, event);
    if (row < 0) { // it belongs to the tree of another page
        if (quiet.end())
            emit currentLost();
        return;
    }

    m_tree.model()->beginInsertRow(row, parent);
    MDRData* record = changeRecord(table, MDARecNew(table->data.array), event);
    m_tree.model()->endInsertRow();
    const bool wasMoved = deleteEditRecord(moved, event);
    if (!wasPending && !wasMoved) {
        m_edits.updateEditStatus();
        return;
    }

    setFocusOn(record, edit);
    if (table == &m_tables.categories && wasMoved) {
        const QModelIndex index = m_tree.proxy()->mapFromSource(m_tree.model()->indexByRecord(record));
        if (index.isValid())
            m_tree.view()->expand(index);
        else
            emit writeLog(QStringLiteral("void TemplateTab::MessageData(TEventNciParse*)"),
                          QStringLiteral("record pasted, but has invalid index"));
    }
    m_edits.updateEditStatus();
}

void TemplateEvents::whereInsertRecord(int& row, QModelIndex& parent, TEventNciParse* event) const
{
    const bool isCategory = event->tableName == QLatin1String(LogbookTable::CatsTemplate);
    const EventRow arrived(*event);
    const CModelTable* folders = &m_tables.categories;
    MDRVar key = arrived.value(isCategory ? Field::ParentKey : Field::CategoryKey);
    for (const char* scope : fieldNames(Field::OrgTypeKey, Field::DepartmentKey)) {
        if (!isCategory || arrived.value(scope).isNull)
            continue;
        key = arrived.value(scope); // one of another level is not among the roots
        folders = m_tree.roots();
    }
    if (MDRValue::hasText(key))
        parent = m_tree.model()->indexByRecord(recordByKeyLink(folders, key.value.text.data));
    const bool isTop = isCategory && m_tree.model()->isTopOfCategories() && !MDRValue::hasText(key);
    if (parent.isValid() || isTop)
        row = isCategory ? m_tree.model()->nextCategoryRow(parent) : m_tree.model()->nextTemplateRow(parent);
}

void TemplateEvents::setFocusOn(MDRData* record, MDRData* edit)
{
    m_tree.setFocusOn(record);
    m_passport.raiseUpPassport(edit ? edit : record);
}
