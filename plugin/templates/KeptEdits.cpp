#include "KeptEdits.h"

#include "LogbookFields.h"
#include "MDRValues.h"
#include "RecordValue.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextCodec>

namespace
{
const QString categoriesName = QStringLiteral("categories");
const QString templatesName = QStringLiteral("templates");

bool haveSameFields(const MDArray* one, const MDArray* other)
{
    bool isSame = MDAFldCount(one) == MDAFldCount(other);
    for (int i = 0; isSame && i < MDAFldCount(one); ++i) {
        const MDRField* field = MDRFldByNum(one, i);
        const MDRField* theirs = MDRFldByNum(other, i);
        isSame = qstricmp(field->name, theirs->name) == 0 && field->type == theirs->type;
    }
    return isSame;
}

/// The stored row already has all changes of the user.
bool isStored(const MDRData* record, const MDRData* row)
{
    for (const char* name : fieldNames(Field::nameLoc, Field::html)) {
        const MDRField* field = MDRFldByName(MDARecArr(record), name);
        const MDRVar value = field ? Row(record).value(name) : MDRValue::null();
        const MDRVar stored = field ? Row(row).value(name) : MDRValue::null();
        if (value.isNull != stored.isNull || MDRValue::bytes(value) != MDRValue::bytes(stored))
            return false;
    }
    return true;
}
} // namespace

void KeptEdits::add(CModelTable* kept, const CModelTable& stored, const MDRData* record)
{
    if (record->flags & ROW_DELETE)
        return;
    const QByteArray key = Row(record).key();
    if (MDRData* earlier = recordByKeyLink(kept, key.constData()))
        TemplateTables::deleteRecord(kept, earlier);
    MDRData* copy = MDARecNew(kept->data.array);
    copyRecord(record, copy);
    const MDRData* base = recordByKeyLink(&stored, key.constData());
    for (int i = 0; base && i < MDAFldCount(kept->data.array); ++i) {
        const MDRField* field = MDRFldByNum(kept->data.array, i);
        const MDRVar value = Row(base).value(field->name);
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

void KeptEdits::keepAll(const KeptEdits& other)
{
    for (const auto& [from, to] :
         {std::pair(&other.m_categories, &m_categories), std::pair(&other.m_templates, &m_templates)})
        for (int i = 0; i < from->data.RecCount(); ++i)
            add(to, *to, MDARec(from->data.array, 0, i));
}

KeptTexts::Values KeptEdits::values(const QTextCodec* codec) const
{
    if (isEmpty())
        return {};
    QStringList names;
    KeptTexts::Values values;
    for (const auto& [table, name] :
         {std::pair(&m_categories, categoriesName), std::pair(&m_templates, templatesName)}) {
        for (int i = 0; i < table->data.RecCount(); ++i)
            names << Row(MDARec(table->data.array, 0, i)).text(Field::nameLoc, codec);
        values.insert(name, QString::fromLatin1(HFNArrayPack(table->data.array)));
    }
    values.insert(
        QStringLiteral("caption"),
        QCoreApplication::translate("TemplateTab", "шаблоны: %1").arg(names.join(QStringLiteral(", "))));
    return values;
}

void KeptEdits::read(const KeptTexts::Values& values, const TemplateTables& tables)
{
    read(&m_categories, values.value(categoriesName), tables.categories);
    read(&m_templates, values.value(templatesName), tables.templates);
}

void KeptEdits::read(CModelTable* kept, const QString& packed, const CModelTable& stored)
{
    CMDArray rows;
    MDACreate(&rows.array, 0);
    if (HFNArrayUnPack(rows.array, packed.toLatin1().constData(), 0) != mdr_Ok ||
        !haveSameFields(rows.array, kept->data.array))
        return;
    for (int i = 0; i < rows.RecCount(); ++i) {
        const MDRData* record = MDARec(rows.array, 0, i);
        const QByteArray key = Row(record).key();
        const MDRData* row = recordByKeyLink(&stored, key.constData());
        if (!key.isEmpty() && !(row && isStored(record, row)))
            add(kept, stored, record);
    }
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
    if (MDRData* record = recordByKeyLink(table, key.constData()))
        TemplateTables::deleteRecord(table, record);
}

void KeptEdits::clear()
{
    for (CModelTable* table : {&m_categories, &m_templates})
        MDAClearRec(table->data.array);
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
