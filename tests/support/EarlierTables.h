#pragma once

#include "ConverterTables.h"
#include "MadeTable.h"
#include "RecordValue.h"
#include "TableCatalog.h"

#include <QTextCodec>

/// The tables of a conversion, filled by the test, with the fields and keys of the server's answers.
class EarlierTables : public ConverterTables
{
public:
    EarlierTables()
    {
        static QTextCodec* const cyrillic = QTextCodec::codecForName("Windows-1251");
        codec = cyrillic;
        for (CModelTable* table : {&oldCategories, &oldTemplates, &oldParams, &categories, &templates,
                                   &paramCategories, &params}) {
            const auto fields = TableCatalog::table(QByteArray::fromStdString(table->name))->descriptors();
            MDAFldAdd(table->data.array, fields.size(), fields.constData());
        }
        setKeys();
    }

    /// Adds a row; texts are converted to the code page, missing fields are null.
    MDRData* add(CModelTable& table, const char* key, const TestStore::Fields& fields) const
    {
        MDRData* row = MDARecNew(table.data.array);
        set(table, row, {"KeyLink", key});
        for (const TestStore::Field& field : fields)
            set(table, row, field);
        return table.data.RecPost(row);
    }
    MDRData* addParam(const char* name, const TestStore::Fields& fields)
    {
        TestStore::Fields all = fields;
        all.emplace_back("nameLat", name);
        const QByteArray key = QByteArrayLiteral("P_") + name;
        return add(oldParams, key.constData(), all);
    }
    /// A row of TemplateParams with one parameter, like the base parameters: no flag, no marks.
    MDRData* addBase(const char* name, const char* label)
    {
        const std::string html = HtmlParser::createParameter({{"name", name}, {"locname", label}}, label);
        const QByteArray key = QByteArrayLiteral("$base.") + name;
        return add(params, key.constData(), {{"nameLoc", label}, {"html", QString::fromStdString(html)}});
    }
    /// The row of TemplateParams with this key.
    MDRData* param(const char* key) const { return seek(params, 0, QString::fromUtf8(key)); }
    QString field(const MDRData* record, const char* name) const { return text(record, name); }
    HtmlParser parsed(const MDRData* record) const { return HtmlParser(text(record, "html").toStdString()); }
    /// The only new template of this name.
    MDRData* made(const QString& name) const { return seek(templates, 1, name); }

private:
    static void set(CModelTable& table, MDRData* row, const TestStore::Field& field)
    {
        const MDRField* handle = MDRFldByName(table.data.array, field.name);
        if (!handle)
            qFatal("no field %s", field.name);
        MDRVar value = MDRValue::null();
        const QByteArray bytes = TestStore::bytes(field.value.toString());
        if (field.value.isValid() && handle->type == mdr_TBool)
            value = MDRValue::boolean(field.value.toBool());
        else if (field.value.isValid())
            value = MDRValue::text(bytes, static_cast<MDRType>(handle->type));
        MDRSetVal(handle, row, &value);
    }
};
