#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "RecordValue.h"
#include "TemplatesEditSourceModel.h"
#include "TemplateTab.h"

namespace
{
/// A text, or null for an empty one. The bytes must outlive the value.
MDRVar keyOrNull(const QByteArray& key)
{
    return key.isEmpty() ? MDRValue::null() : MDRValue::text(key);
}

} // namespace

void TemplateTab::moveItem(const QString& keyLink, const QModelIndex& target)
{
    if (keyLink.isEmpty())
        return;
    MDRData* targetRecord = m_model->recordByIndex(target);
    const QByteArray key = keyLink.toUtf8();
    if (MDRData* category = recordByKeyLink(&m_tables.categories, key.constData())) {
        moveCategory(category, targetRecord);
        return;
    }
    MDRData* item = recordByKeyLink(&m_tables.templates, key.constData());
    if (item && targetRecord)
        moveTemplate(item, targetRecord);
}

const MDRData* TemplateTab::storedOf(const MDRData* record, const CModelTable& edits) const
{
    const QByteArray key = Row(record).key();
    const MDRData* sent = m_sent.isUnderWay(key) ? recordByKeyLink(&edits, key.constData()) : nullptr;
    return sent ? sent : record;
}

void TemplateTab::moveCategory(MDRData* record, MDRData* target)
{
    const bool isInType = TemplateTables::isContains(m_orgTypesTable, target);
    const bool isInDepartment = TemplateTables::isContains(m_departmentsTable, target);
    const bool isInCategory = TemplateTables::isContains(&m_tables.categories, target);
    if (!isInType && !isInDepartment && !isInCategory) {
        emit writeLog(QStringLiteral("void TemplateTab::moveCategory(MDArrayRec*, MDArrayRec*)"),
                      QStringLiteral("Can not find destination parent"));
        return;
    }
    const MDRData* stored = storedOf(record, m_tables.categoriesEdit);
    const QByteArray targetKey = Row(target).key();
    const auto keyIf = [&](bool isIt) { return isIt ? keyOrNull(targetKey) : MDRValue::null(); };
    const QByteArray name = Row(stored).copy(Field::nameLoc);
    sendMove(&m_tables.categoriesMoved, Row(record).key(),
             {{Field::ParentKey, keyIf(isInCategory)},
              {Field::OrgTypeKey, keyIf(isInType)},
              {Field::DepartmentKey, keyIf(isInDepartment)},
              {Field::nameLoc, MDRValue::text(name)}});
}

void TemplateTab::moveTemplate(MDRData* record, MDRData* target)
{
    const MDRData* stored = storedOf(record, m_tables.templatesEdit);
    const QByteArray category = Row(target).key();
    const QByteArray name = Row(stored).copy(Field::nameLoc);
    sendMove(&m_tables.templatesMoved, Row(record).key(),
             {{Field::CategoryKey, keyOrNull(category)},
              {Field::nameLoc, MDRValue::text(name)},
              {Field::html, Row(stored).value(Field::html)}});
}

/// Deletes and inserts one key in one block, so that references to it stay valid without changes. Unsaved
/// changes stay unsaved: a move writes the server's state.
void TemplateTab::sendMove(CModelTable* moved, const QByteArray& key,
                           const std::vector<std::pair<const char*, MDRVar>>& values)
{
    CMDArray& rows = moved->data;
    CRowBatch deletion(rows);
    deletion.RecPost(deletion.newRow(ROW_DELETE, key));
    // Sends only this move: rows of an earlier failed move stay in the table.
    CRowBatch insertion(rows);
    MDRData* sent = insertion.newRow(ROW_INSERT, key);
    MDRSetUser(MDRFldByName(insertion.array, Field::KeyLink), sent, 1);
    for (const auto& [field, value] : values)
        insertion.SetValF(sent, field, value);
    sent = insertion.RecPost(sent);

    if (MDRData* earlier = recordByKeyLink(moved, key.constData()))
        TemplateTables::deleteRecord(moved, earlier);
    MDRData* kept = MDARecNew(rows.array);
    KeptEdits::copyRecord(sent, kept);
    rows.RecPost(kept);

    CVrkCliSes* session = m_module->session();
    const char* name = moved->name.c_str();
    session->BlockBeg();
    session->SqlUpdate(name, deletion.array, true, nullptr);
    session->SqlUpdate(name, insertion.array, true, nullptr);
    if (session->BlockEnd(true, nullptr)) // the host reports a failure; the tree has not changed
        m_moving.insert(key);
}
