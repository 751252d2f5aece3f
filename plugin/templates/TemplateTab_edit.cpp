#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "KeptDraft.h"
#include "LogbookTables.h"
#include "NoticeBar.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplatePassport.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "TemplateText.h"
#include "ui_TemplateTab.h"
#include "WriteBlock.h"

#include <QTextCodec>

namespace
{
/// The names of a record's flags, each followed by a space.
QString flagNames(const MDRData* record)
{
    QString names;
    const std::pair<int, QString> flags[] = {{ROW_INSERT, QStringLiteral("ROW_INSERT ")},
                                             {ROW_UPDATE, QStringLiteral("ROW_UPDATE ")},
                                             {ROW_DELETE, QStringLiteral("ROW_DELETE ")}};
    for (const auto& [flag, name] : flags)
        if (record->flags & flag)
            names += name;
    return names;
}

QString dumpOf(const CModelTable& table, const QTextCodec* codec)
{
    QString dump = QStringLiteral("Table %1 contains:\n").arg(QLatin1String(LogbookTable::CatsTemplate));
    for (int i = 0; i < table.data.RecCount(); ++i) {
        const MDRData* record = MDARec(table.data.array, 0, i);
        dump += QStringLiteral("record has flags: ") + flagNames(record) + QLatin1Char('\n');
        for (int f = 0; f < MDAFldCount(table.data.array); ++f) {
            const MDRField* field = MDRFldByNum(table.data.array, f);
            MDRVar value;
            MDRGetVal(field, record, &value);
            dump += QLatin1String(field->name) + QStringLiteral(": ");
            dump += value.isNull ? QStringLiteral(" NULL") : codec->toUnicode(MDRValue::bytes(value));
            dump += QStringLiteral(";\n");
        }
    }
    return dump + QLatin1Char('\n');
}
/// Spaces alone, in any form, are no text; a parameter or a property is.
bool showsNothing(const QString& html)
{
    if (QString(html).remove(QLatin1Char(' ')).isEmpty())
        return true;
    const HtmlParser parser(html.toStdString());
    return parser.countParameters() == 0 && parser.readyHtml(true) == parser.readyHtml(false) &&
           TemplateText::plain(html).trimmed().isEmpty();
}

/// Why the unsaved records cannot be saved; empty if they can.
QString faultOf(const TemplateTables& tables, const QTextCodec* codec)
{
    const auto hasName = [](const MDRData* record) { return Row(record).has(Field::nameLoc); };
    for (int i = 0; i < tables.categoriesEdit.data.RecCount(); ++i)
        if (!hasName(MDARec(tables.categoriesEdit.data.array, 0, i)))
            return TemplateTab::tr("Название категории не может быть пустым!");
    for (int i = 0; i < tables.templatesEdit.data.RecCount(); ++i) {
        const MDRData* record = MDARec(tables.templatesEdit.data.array, 0, i);
        if (!hasName(record))
            return TemplateTab::tr("Название шаблона не может быть пустым!");
        if (showsNothing(Row(record).text(Field::html, codec)))
            return TemplateTab::tr("Шаблон не может быть пустым!");
    }
    return {};
}

/// The key of the row under which a record belongs; empty at the top.
QByteArray keyAbove(const MDRData* record)
{
    for (const char* field :
         fieldNames(Field::CategoryKey, Field::ParentKey, Field::OrgTypeKey, Field::DepartmentKey)) {
        const QByteArray key = MDRValue::copy(Row(record).value(field));
        if (!key.isEmpty())
            return key;
    }
    return {};
}
} // namespace

MDRData* TemplateTab::editedRecord(CModelTable* table, CModelTable* edits,
                                   std::initializer_list<const char*> copied)
{
    MDRData* record = currentRecord();
    if (!record || TemplateTables::isContains(edits, record))
        return record; // a pending new record is its own edit record
    if (!TemplateTables::isContains(table, record))
        return nullptr;
    const MDRVar key = Row(record).value(Field::KeyLink);
    if (MDRData* known = recordByKeyLink(edits, key.value.text.data))
        return known;

    MDRData* edit = MDARecNew(edits->data.array);
    MDRSetFlags(edit, ROW_UPDATE);
    for (const char* field : copied) {
        const MDRVar value = Row(record).value(field);
        MDRSetVal(MDRFldByName(edits->data.array, field), edit, &value);
    }
    edit = edits->data.RecPost(edit);
    updateEditStatus();
    return edit;
}

MDRData* TemplateTab::editedCategory()
{
    // OrgTypeKey and DepartmentKey stay null in the copy, without a mark: the server keeps them.
    return editedRecord(&m_tables.categories, &m_tables.categoriesEdit,
                        {Field::KeyLink, Field::ParentKey, Field::nameLoc});
}

MDRData* TemplateTab::editedTemplate()
{
    return editedRecord(&m_tables.templates, &m_tables.templatesEdit,
                        {Field::KeyLink, Field::CategoryKey, Field::nameLoc, Field::html});
}

KeptTexts::Values TemplateTab::unsaved() const
{
    KeptEdits all;
    if (!m_isPassingOffer)
        all.keepAll(m_kept);
    all.keepAll(m_tables);
    return all.values(codec());
}

/// Offers changes that were neither saved nor dropped when the program ended.
void TemplateTab::offerLeft()
{
    const bool isDepartment = m_level->roots == TemplateLevel::DepartmentRoots;
    m_unsaved->setPlace(QStringLiteral("templates/") + objectName() +
                        (isDepartment ? userParameter("DEPARTMENTKEY") : QString()));
    KeptTexts* texts = KeptTexts::of(m_module);
    for (const KeptTexts::Text& text : texts->offered(m_unsaved->place())) {
        m_kept.read(text.values, m_tables);
        texts->forget(text.id);
    }
    if (!m_kept.isEmpty() && isAnyAdmin())
        tellKept(tr("С прошлого раза остались несохранённые изменения."));
    m_unsaved->keepNow();
}

void TemplateTab::updateEditStatus()
{
    m_unsaved->touch();
    if (isExistUnsaved()) {
        emit dataEdited();
    } else {
        m_isSent = false;
        emit editDataReseted();
    }
}

void TemplateTab::applyChanges()
{
    if (isExistUnsaved() && isAnyAdmin())
        sendChangesToServer();
}

void TemplateTab::cancelChanges()
{
    if (!isExistUnsaved())
        return;
    const bool isFirst = m_kept.isEmpty();
    m_kept.keepAll(m_tables);
    clearEditTables();
    updateEditStatus();
    tellKept(tr("Изменения отменены."));
    m_isPassingOffer = isFirst;
    m_unsaved->touch();
}

/// The offer to undo a cancellation lasts until the user continues.
void TemplateTab::forgetOffer()
{
    if (!m_isPassingOffer)
        return;
    m_isPassingOffer = false;
    m_kept.clear();
    m_notice->hide();
    m_unsaved->touch();
}

bool TemplateTab::sendChangesToServer()
{
    if (!isExistUnsaved())
        return true;
    const QString fault = faultOf(m_tables, codec());
    if (!fault.isEmpty()) {
        showError(fault);
        return false;
    }

    WriteBlock block(m_module->session());
    sendEdits(m_tables.categoriesEdit);
    sendEdits(m_tables.templatesEdit);
    if (block.commit()) {
        m_isSent = true; // the records stay until their events empty the tables
        m_sent.note(m_tables.categoriesEdit);
        m_sent.note(m_tables.templatesEdit);
        return true;
    }
    writeLogUnsaved(QStringLiteral("bool TemplateTab::sendChangesToServer()"),
                    QStringLiteral("CVrkCliSes::BlockEnd returned FALSE"));
    dropUnsaved(m_module->session()->lastErrorText());
    return false;
}

void TemplateTab::sendEdits(const CModelTable& edits)
{
    if (edits.data.RecCount() == 0)
        return;
    CRowBatch rows(edits.data);
    for (int i = 0; i < edits.data.RecCount(); ++i) {
        const MDRData* record = MDARec(edits.data.array, 0, i);
        MDRData* sent = MDARecNew(rows.array);
        KeptEdits::copyRecord(record, sent);
        // Records inserted by an earlier save exist, even if their events have not arrived.
        if ((sent->flags & ROW_INSERT) && m_sent.isInserted(Row(record).key()))
            MDRSetFlags(sent, ROW_UPDATE);
        rows.RecPost(sent);
    }
    m_module->session()->SqlUpdate(edits.name.c_str(), rows.array, true, nullptr);
}

void TemplateTab::removePending()
{
    for (CModelTable* edits : {&m_tables.templatesEdit, &m_tables.categoriesEdit}) {
        while (MDRData* record = MDARec(edits->data.array, 0, 0)) {
            const bool isRow = record->flags & ROW_INSERT;
            const QModelIndex index = isRow ? m_model->indexByRecord(record) : QModelIndex();
            if (index.isValid())
                m_model->beginRemoveRow(index.row(), index.parent());
            TemplateTables::deleteRecord(edits, record);
            if (index.isValid())
                m_model->endRemoveRow();
        }
    }
}

void TemplateTab::clearEditTables()
{
    QTreeView* tree = m_form->templatesTree;
    {
        const QuietSelection quiet(tree->selectionModel());
        removePending();
    }
    tree->viewport()->update();
    reloadFor(tree->currentIndex(), QModelIndex());
}

/// Changes that could not be saved leave the edit tables, but can be restored.
void TemplateTab::dropUnsaved(const QString& reason)
{
    m_kept.keepAll(m_tables);
    QuietSelection quiet(m_form->templatesTree->selectionModel());
    removePending();
    const bool hasMoved = quiet.end();
    m_form->templatesTree->viewport()->update();
    if (hasMoved)
        raiseUpPassport(m_form->templatesTree->currentIndex());
    else
        m_passport->show(currentRecord());
    updateEditStatus();
    if (!m_kept.isEmpty())
        tellKept(tr("Изменения не сохранены. %1").arg(reason));
}

void TemplateTab::writeLogUnsaved(const QString& func, const QString& text)
{
    // Deliberate: the pass for templates also lists the categories under their heading.
    QString dump;
    for (const CModelTable* table : {&m_tables.categoriesEdit, &m_tables.templatesEdit})
        if (table->data.RecCount() > 0)
            dump += dumpOf(m_tables.categoriesEdit, codec());
    emit writeLog(func, dump.isEmpty() ? text + QStringLiteral("\nEdited tables is empty!")
                                       : text + QLatin1Char('\n') + dump);
}

void TemplateTab::tellKept(const QString& text)
{
    enum NoticeChoice { Restore, Dismiss };
    m_isPassingOffer = false;
    m_unsaved->touch();
    m_notice->tell(NoticeBar::Warning, text,
                   {{Restore, tr("Вернуть изменения"), QStringLiteral("restoreButton")},
                    {Dismiss, tr("Скрыть"), QStringLiteral("dismissButton")}});
}

void TemplateTab::restoreKept()
{
    if (isExistUnsaved()) {
        showError(tr("Сначала сохраните или отмените изменения!"));
        return;
    }
    QuietSelection quiet(m_form->templatesTree->selectionModel());
    MDRData* restored = nullptr;
    restoreFrom(m_kept.categories(), m_tables.categories, &m_tables.categoriesEdit, &restored);
    restoreFrom(m_kept.templates(), m_tables.templates, &m_tables.templatesEdit, &restored);
    quiet.end();
    if (!restored) {
        const bool isTemplate = m_kept.templates().data.RecCount() > 0;
        showError(isTemplate
                      ? tr("Места, где был шаблон, больше нет. Выберите категорию, в которую его вернуть.")
                      : tr("Вернуть изменения некуда: элемента больше нет в дереве."));
        return;
    }
    // A changed record is not a row of the tree: its base record is selected, and the passport shows the
    // change.
    const MDRVar key = Row(restored).value(Field::KeyLink);
    const bool isCategory = TemplateTables::isContains(&m_tables.categoriesEdit, restored);
    MDRData* base =
        recordByKeyLink(isCategory ? &m_tables.categories : &m_tables.templates, key.value.text.data);
    setFocusOn(restored->flags & ROW_INSERT ? restored : base);
    m_passport->show(restored);
    updateEditStatus();
}

void TemplateTab::restoreFrom(const CModelTable& kept, const CModelTable& table, CModelTable* edits,
                              MDRData** restored)
{
    for (int i = 0; i < kept.data.RecCount();) {
        const MDRData* record = MDARec(kept.data.array, 0, i);
        MDRData* back = restoreRecord(table, edits, record);
        if (back) {
            *restored = back;
            m_kept.forget(kept, Row(record).key());
        } else {
            ++i;
        }
    }
}

/// Null if it has no place in this tree.
MDRData* TemplateTab::restoreRecord(const CModelTable& table, CModelTable* edits, const MDRData* kept)
{
    const QByteArray key = Row(kept).key();
    const MDRData* base = recordByKeyLink(&table, key.constData());
    const bool isTemplate = edits == &m_tables.templatesEdit;
    QModelIndex parent;
    if (base && !m_model->indexByRecord(base).isValid())
        return nullptr; // moved to another level
    if (!base) {
        parent = placeOf(kept);
        const bool isTop = !isTemplate && m_model->isTopOfCategories() && keyAbove(kept).isEmpty();
        if (!parent.isValid() && !isTop)
            return nullptr;
        m_model->beginInsertRow(isTemplate ? m_model->rowCount(parent) : m_model->folderCount(parent),
                                parent);
    }
    MDRData* record = MDARecNew(edits->data.array);
    KeptEdits::copyRecord(kept, record);
    MDRSetFlags(record, base ? ROW_UPDATE : ROW_INSERT);
    for (int i = 0; !base && i < MDAFldCount(edits->data.array); ++i)
        MDRSetUser(MDRFldByNum(edits->data.array, i), record, 1);
    if (!base && isTemplate) {
        const QByteArray category = parent.data(Qt::UserRole).toString().toUtf8();
        edits->data.SetValF(record, Field::CategoryKey, MDRValue::text(category));
    }
    record = edits->data.RecPost(record);
    if (!base)
        m_model->endInsertRow();
    return record;
}

/// The index to which a missing record belongs. A template whose category no longer exists goes to the
/// current place.
QModelIndex TemplateTab::placeOf(const MDRData* kept) const
{
    const QByteArray above = keyAbove(kept);
    const CModelTable* const places[] = {&m_tables.categories, m_orgTypesTable, m_departmentsTable};
    for (const CModelTable* folders : places) {
        const QModelIndex place = m_model->indexByRecord(recordByKeyLink(folders, above.constData()));
        if (place.isValid())
            return place;
    }
    if (MDRFldByName(MDARecArr(kept), Field::CategoryKey) == nullptr)
        return {};
    const QModelIndex current = currentSource();
    for (const QModelIndex& place : {current, current.parent()})
        if (TemplateTables::isContains(&m_tables.categories, m_model->recordByIndex(place)))
            return place;
    return {};
}
