#include "KeptEdits.h"

#include "LogbookFields.h"
#include "MDRValues.h"
#include "RecordValue.h"

KeptEdits::KeptEdits() : m_categories("LogbookCatsTemplate"), m_templates("LogbookTemplates")
{
    MDAFldAdd(m_categories.data.array, fieldCount(LogbookCatsTemplateFields), LogbookCatsTemplateFields);
    MDAFldAdd(m_templates.data.array, fieldCount(LogbookTemplatesFields), LogbookTemplatesFields);
    for (CModelTable* table : {&m_categories, &m_templates})
        TemplateTables::setDefaultKey(table);
}

void KeptEdits::add(CModelTable* kept, const CModelTable& stored, const MDRData* record)
{
    if (record->flags & ROW_DELETE)
        return;
    const QByteArray key = MDRValue::copy(recordValue(record, "KeyLink"));
    if (MDRData* earlier = TemplateTables::recordByKeyLink(kept, key.constData()))
        TemplateTables::deleteRecord(kept, earlier);
    MDRData* copy = MDARecNew(kept->data.array);
    copyRecord(record, copy);
    const MDRData* base = TemplateTables::recordByKeyLink(&stored, key.constData());
    for (int i = 0; base && i < MDAFldCount(kept->data.array); ++i) {
        const MDRField* field = MDRFldByNum(kept->data.array, i);
        const MDRVar value = recordValue(base, field->name);
        bool isMarked = false;
        MDRIsUser(field, copy, &isMarked);
        if (!isMarked)
            MDRSetVal(field, copy, &value);
    }
    kept->data.RecPost(copy);
}

void KeptEdits::keepAll(const TemplateTables& tables)
{
    for (int i = 0; i < tables.categoriesEdit.data.RecCount(); ++i)
        add(&m_categories, tables.categories, MDARec(tables.categoriesEdit.data.array, 0, i));
    for (int i = 0; i < tables.templatesEdit.data.RecCount(); ++i)
        add(&m_templates, tables.templates, MDARec(tables.templatesEdit.data.array, 0, i));
}

void KeptEdits::keep(const TemplateTables& tables, const MDRData* record)
{
    if (TemplateTables::isContains(&tables.categoriesEdit, record))
        add(&m_categories, tables.categories, record);
    else
        add(&m_templates, tables.templates, record);
}

void KeptEdits::forget(const CModelTable& kept, const QByteArray& key)
{
    CModelTable* table = &kept == &m_categories ? &m_categories : &m_templates;
    if (MDRData* record = TemplateTables::recordByKeyLink(table, key.constData()))
        TemplateTables::deleteRecord(table, record);
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
