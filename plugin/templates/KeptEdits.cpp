#include "KeptEdits.h"

#include "LogbookFields.h"

namespace
{
void add(CModelTable* kept, const MDRData* record)
{
    if (record->flags & ROW_DELETE)
        return;
    MDRData* copy = MDARecNew(kept->data.array);
    KeptEdits::copyRecord(record, copy);
    kept->data.RecPost(copy);
}
} // namespace

KeptEdits::KeptEdits() : m_categories("LogbookCatsTemplate"), m_templates("LogbookTemplates")
{
    MDAFldAdd(m_categories.data.array, fieldCount(LogbookCatsTemplateFields), LogbookCatsTemplateFields);
    MDAFldAdd(m_templates.data.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
    for (CModelTable* table : {&m_categories, &m_templates})
        TemplateTables::setDefaultKey(table);
}

void KeptEdits::keepAll(const TemplateTables& tables)
{
    clear();
    for (int i = 0; i < tables.categoriesEdit.data.RecCount(); ++i)
        add(&m_categories, MDARec(tables.categoriesEdit.data.array, 0, i));
    for (int i = 0; i < tables.templatesEdit.data.RecCount(); ++i)
        add(&m_templates, MDARec(tables.templatesEdit.data.array, 0, i));
}

void KeptEdits::keep(const TemplateTables& tables, const MDRData* record)
{
    clear();
    add(TemplateTables::isContains(&tables.categoriesEdit, record) ? &m_categories : &m_templates, record);
}

void KeptEdits::clear()
{
    for (CModelTable* table : {&m_categories, &m_templates})
        MDAClearRec(table->data.array);
}

bool KeptEdits::isEmpty() const
{
    return m_categories.data.RecCount() == 0 && m_templates.data.RecCount() == 0;
}

void KeptEdits::copyRecord(const MDRData* from, MDRData* to)
{
    MDArray* array = MDARecArr(from);
    MDRSetFlags(to, from->flags);
    for (int i = 0; i < MDAFldCount(array); ++i) {
        const MDRField* field = MDRFldByNum(array, i);
        MDRVar value;
        MDRGetVal(field, from, &value);
        MDRSetVal(field, to, &value);
        bool isMarked = false;
        MDRIsUser(field, from, &isMarked);
        MDRSetUser(field, to, isMarked ? 1 : 0);
    }
}
