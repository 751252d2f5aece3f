#include "TemplateEdits.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "HtmlParser.h"
#include "KeptDraft.h"
#include "LogbookTables.h"
#include "NoticeBar.h"
#include "PageTree.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplateText.h"
#include "WriteBlock.h"

#include <QTextCodec>
#include <QTreeView>

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

/// Adds the deletion of a record to an edit table.
void addDeletion(CModelTable& edits, const MDRData* record)
{
    const MDRVar key = Row(record).value(Field::KeyLink);
    MDRData* deletion = MDARecNew(edits.data.array);
    MDRSetFlags(deletion, ROW_DELETE);
    MDRSetVal(MDRFldByName(edits.data.array, Field::KeyLink), deletion, &key);
    edits.data.RecPost(deletion);
}
} // namespace

TemplateEdits::TemplateEdits(CVrkCliSes* session, TemplateTables& tables, PageTree& tree, NoticeBar* notice,
                             QWidget* page)
    : QObject(page),
      m_session(session),
      m_tables(tables),
      m_tree(tree),
      m_notice(notice),
      m_unsaved(new KeptDraft(page, KeptTexts::of(page), [this] { return unsaved(); }))
{
    connect(notice, &NoticeBar::chosen, this, &TemplateEdits::answer);
}

MDRData* TemplateEdits::editedRecord(CModelTable* table, CModelTable* edits,
                                     std::initializer_list<const char*> copied)
{
    MDRData* record = m_tree.currentRecord();
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

MDRData* TemplateEdits::editedCategory()
{
    // OrgTypeKey and DepartmentKey stay null in the copy, without a mark: the server keeps them.
    return editedRecord(&m_tables.categories, &m_tables.categoriesEdit,
                        {Field::KeyLink, Field::ParentKey, Field::nameLoc});
}

MDRData* TemplateEdits::editedTemplate()
{
    return editedRecord(&m_tables.templates, &m_tables.templatesEdit,
                        {Field::KeyLink, Field::CategoryKey, Field::nameLoc, Field::html});
}

void TemplateEdits::add(MDRData* record)
{
    m_isSent = false;
    m_tree.setFocusOn(record);
    emit shown(record);
    updateEditStatus();
}

void TemplateEdits::changed()
{
    m_isSent = false;
    m_unsaved->touch();
}

void TemplateEdits::updateEditStatus()
{
    m_unsaved->touch();
    if (m_tables.isEdited()) {
        emit dataEdited();
    } else {
        m_isSent = false;
        emit editDataReseted();
    }
}

bool TemplateEdits::inspectEditCategories()
{
    for (int i = 0; i < m_tables.categoriesEdit.data.RecCount(); ++i) {
        if (Row(MDARec(m_tables.categoriesEdit.data.array, 0, i)).has(Field::nameLoc))
            continue;
        emit failed(tr("Название категории не может быть пустым!"));
        return true;
    }
    return false;
}

bool TemplateEdits::inspectEditTemplates()
{
    for (int i = 0; i < m_tables.templatesEdit.data.RecCount(); ++i) {
        const Row row(MDARec(m_tables.templatesEdit.data.array, 0, i));
        const bool isNamed = row.has(Field::nameLoc);
        if (isNamed && !showsNothing(row.text(Field::html, m_session->codec())))
            continue;
        emit failed(isNamed ? tr("Шаблон не может быть пустым!")
                            : tr("Название шаблона не может быть пустым!"));
        return true;
    }
    return false;
}

bool TemplateEdits::sendChangesToServer()
{
    if (!m_tables.isEdited())
        return true;
    if (inspectEditCategories() || inspectEditTemplates())
        return false;

    WriteBlock block(m_session);
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
    dropUnsaved(m_session->lastErrorText());
    return false;
}

void TemplateEdits::sendEdits(const CModelTable& edits)
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
    m_session->SqlUpdate(edits.name.c_str(), rows.array, true, nullptr);
}

void TemplateEdits::removePending()
{
    for (CModelTable* edits : {&m_tables.templatesEdit, &m_tables.categoriesEdit})
        while (MDRData* record = MDARec(edits->data.array, 0, 0))
            m_tree.removeRow(edits, record);
}

void TemplateEdits::clearEditTables()
{
    {
        const QuietSelection quiet(m_tree.selection());
        removePending();
    }
    m_tree.view()->viewport()->update();
    emit currentLost();
}

void TemplateEdits::cancelChanges()
{
    if (!m_tables.isEdited())
        return;
    const bool isFirst = m_kept.isEmpty();
    m_kept.keepAll(m_tables);
    clearEditTables();
    updateEditStatus();
    tellKept(tr("Изменения отменены."));
    m_isPassingOffer = isFirst;
}

/// Changes that could not be saved leave the edit tables, but can be restored.
void TemplateEdits::dropUnsaved(const QString& reason)
{
    m_kept.keepAll(m_tables);
    {
        const QuietSelection quiet(m_tree.selection());
        removePending();
    }
    m_tree.view()->viewport()->update();
    emit shown(m_tree.currentRecord());
    updateEditStatus();
    if (!m_kept.isEmpty())
        tellKept(tr("Изменения не сохранены. %1").arg(reason));
}

void TemplateEdits::deleteTemplate(const MDRData* record)
{
    addDeletion(m_tables.templatesEdit, record);
}

void TemplateEdits::deleteFolder(const MDRData* record, std::set<const MDRData*>& seen)
{
    if (!seen.insert(record).second)
        return;
    const QByteArray key = Row(record).key();
    for (const MDRData* child :
         MDARecsWith(m_tables.categories.data.array, Field::ParentKey, key.constData()))
        deleteFolder(child, seen);
    for (const MDRData* child :
         MDARecsWith(m_tables.templates.data.array, Field::CategoryKey, key.constData()))
        deleteTemplate(child);
    addDeletion(m_tables.categoriesEdit, record);
}

void TemplateEdits::deleteItem(const MDRData* record)
{
    const bool hadUnsaved = m_tables.isEdited();
    std::set<const MDRData*> seen;
    if (TemplateTables::isContains(&m_tables.categories, record))
        deleteFolder(record, seen);
    else if (TemplateTables::isContains(&m_tables.templates, record))
        deleteTemplate(record);

    WriteBlock block(m_session);
    for (const CModelTable* edits : {&m_tables.templatesEdit, &m_tables.categoriesEdit})
        if (edits->data.RecCount() > 0)
            m_session->SqlUpdate(edits->name.c_str(), edits->data.array, true, nullptr);
    const bool isDone = block.commit();
    if (!isDone)
        emit failed(tr("При изменения данных возникла ошибка.\nДанные не были изменены!"));

    // Unsaved changes go with the deletions: they are sent in the same block, or dropped with it.
    if (!isDone)
        m_kept.keepAll(m_tables);
    QuietSelection quiet(m_tree.selection());
    removePending();
    if (quiet.end() || !isDone)
        emit shown(m_tree.currentRecord());
    updateEditStatus();
    if (!isDone && hadUnsaved)
        tellKept(tr("Изменения не сохранены. %1").arg(m_session->lastErrorText()));
}

void TemplateEdits::writeLogUnsaved(const QString& func, const QString& text)
{
    // Deliberate: the pass for templates also lists the categories under their heading.
    QString dump;
    for (const CModelTable* table : {&m_tables.categoriesEdit, &m_tables.templatesEdit})
        if (table->data.RecCount() > 0)
            dump += dumpOf(m_tables.categoriesEdit, m_session->codec());
    emit writeLog(func, dump.isEmpty() ? text + QStringLiteral("\nEdited tables is empty!")
                                       : text + QLatin1Char('\n') + dump);
}
