#include "ConverterTables.h"

#include "Fields.h"
#include "MDRValues.h"
#include "RecordValue.h"

#include <QTextCodec>

const char convertedCategoryKey[] = "$AutoConvertFromDelphi";

namespace
{
constexpr int convertedPercent = 90;

/// Percentage of the rows whose name_ is absent or is the nameLoc (key 1) of a row of the other table.
int percentFound(const CMDArray& old, const CMDArray& present)
{
    int found = 0;
    const int rows = old.RecCount();
    for (int i = 0; i < rows; ++i) {
        const MDRVar name = Row(MDARec(old.array, 0, i)).value(Field::name_);
        if (!MDRValue::hasText(name) || MDARecSeekV(present.array, 1, &name, 0))
            ++found;
    }
    return 100 * found / rows;
}
} // namespace

void ConverterTables::setKeys()
{
    for (CModelTable* table :
         {&oldCategories, &oldTemplates, &oldParams, &categories, &templates, &paramCategories, &params}) {
        CMDArray& rows = *table;
        rows.lastError = MDAUnpackForWrite(rows.array);
        rows.setKeys({Field::KeyLink});
    }
    categories.data.KeyAdd(Field::nameLoc, 0);
    templates.data.KeyAdd(Field::nameLoc, 0);
    oldParams.data.KeyAdd(Field::nameLat, 0);
}

QString ConverterTables::text(const MDRData* record, const char* field) const
{
    return codec->toUnicode(MDRValue::bytes(Row(record).value(field)));
}

MDRData* ConverterTables::seek(const CModelTable& table, int key, const QString& text) const
{
    const QByteArray bytes = codec->fromUnicode(text);
    const MDRVar value = MDRValue::text(bytes);
    return MDARecSeekV(table.data.array, key, &value, 0);
}

bool hasNothingToConvert(const ConverterTables& tables)
{
    return tables.oldCategories.data.RecCount() == 0 || tables.oldTemplates.data.RecCount() == 0;
}

bool isAlreadyConverted(const ConverterTables& tables)
{
    return !hasNothingToConvert(tables) &&
           percentFound(tables.oldCategories, tables.categories) >= convertedPercent &&
           percentFound(tables.oldTemplates, tables.templates) >= convertedPercent;
}

void copyEdited(const CModelTable* from, CMDArray* to)
{
    to->lastError = MDACopy(to->array, from->data.array, 0);
    for (int i = 0; i < from->data.RecCount(); ++i) {
        const MDRData* source = MDARec(from->data.array, 0, i);
        if ((source->flags & (ROW_INSERT | ROW_UPDATE)) == 0)
            continue;
        MDRData* copy = MDARecNew(to->array);
        MDRSetFlags(copy, source->flags);
        for (int f = 0; f < MDAFldCount(to->array); ++f) {
            const MDRField* field = MDRFldByNum(to->array, f);
            MDRVar value;
            MDRGetVal(field, source, &value);
            MDRSetVal(field, copy, &value);
            MDRSetUser(field, copy, 1);
        }
        to->RecPost(copy);
    }
}
