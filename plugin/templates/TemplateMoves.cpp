#include "TemplateMoves.h"

#include "Fields.h"
#include "KeptEdits.h"
#include "RecordValue.h"
#include "SentEdits.h"
#include "TemplateTables.h"
#include "WriteBlock.h"

TemplateMoves::TemplateMoves(CVrkCliSes* session, TemplateTables& tables, const SentEdits& sent,
                             const CModelTable* orgTypes, const CModelTable* departments)
    : m_session(session), m_tables(tables), m_sent(sent), m_orgTypes(orgTypes), m_departments(departments)
{
}

const MDRData* TemplateMoves::storedOf(const MDRData* record, const CModelTable& edits) const
{
    const QByteArray key = Row(record).key();
    const MDRData* sent = m_sent.isUnderWay(key) ? recordByKeyLink(&edits, key.constData()) : nullptr;
    return sent ? sent : record;
}

bool TemplateMoves::moveCategory(const MDRData* record, const MDRData* target)
{
    const bool isInType = TemplateTables::isContains(m_orgTypes, target);
    const bool isInDepartment = TemplateTables::isContains(m_departments, target);
    const bool isInCategory = TemplateTables::isContains(&m_tables.categories, target);
    if (!isInType && !isInDepartment && !isInCategory)
        return false;
    const MDRData* stored = storedOf(record, m_tables.categoriesEdit);
    const QByteArray targetKey = Row(target).key();
    const auto keyIf = [&](bool isIt) {
        return isIt ? TemplateTables::keyOrNull(targetKey) : MDRValue::null();
    };
    const QByteArray name = Row(stored).copy(Field::nameLoc);
    sendMove(&m_tables.categoriesMoved, Row(record).key(),
             {{Field::ParentKey, keyIf(isInCategory)},
              {Field::OrgTypeKey, keyIf(isInType)},
              {Field::DepartmentKey, keyIf(isInDepartment)},
              {Field::nameLoc, MDRValue::text(name)}});
    return true;
}

void TemplateMoves::moveTemplate(const MDRData* record, const MDRData* target)
{
    const MDRData* stored = storedOf(record, m_tables.templatesEdit);
    const QByteArray category = Row(target).key();
    const QByteArray name = Row(stored).copy(Field::nameLoc);
    sendMove(&m_tables.templatesMoved, Row(record).key(),
             {{Field::CategoryKey, TemplateTables::keyOrNull(category)},
              {Field::nameLoc, MDRValue::text(name)},
              {Field::html, Row(stored).value(Field::html)}});
}

/// Deletes and inserts one key in one block, so that references to it stay valid without changes. Unsaved
/// changes stay unsaved: a move writes the server's state.
void TemplateMoves::sendMove(CModelTable* moved, const QByteArray& key,
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

    const char* name = moved->name.c_str();
    WriteBlock block(m_session);
    m_session->SqlUpdate(name, deletion.array, true, nullptr);
    m_session->SqlUpdate(name, insertion.array, true, nullptr);
    if (block.commit()) // the host reports a failure; the tree has not changed
        m_moving.insert(key);
}
