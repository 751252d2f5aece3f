#pragma once

#include "CModelTable.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "TestStore.h"

#include <initializer_list>
#include <QVariant>
#include <utility>

/// A value of a test row: a QVariant or an ASCII literal.
struct MadeValue : QVariant {
    using QVariant::QVariant;
    MadeValue() = default;
    MadeValue(const char* ascii) : QVariant(QByteArray(ascii)) {}
};

/// A table filled by the test, without a store.
class MadeTable : public CModelTable
{
public:
    template <int N>
    MadeTable(const char* tableName, const MDRFieldDescr (&fields)[N], const char* key = "")
        : CModelTable(tableName)
    {
        MDAFldAdd(data.array, N, fields);
        data.KeyAdd(key, 0);
    }

    /// Adds a row; texts are converted to the code page of the tests, an invalid variant is null.
    MDRData* add(std::initializer_list<std::pair<const char*, MadeValue>> values)
    {
        MDRData* row = MDARecNew(data.array);
        for (const auto& [field, value] : values)
            set(row, field, value);
        return data.RecPost(row);
    }

    void set(MDRData* row, const char* fieldName, const MadeValue& value)
    {
        const MDRField* field = MDRFldByName(data.array, fieldName);
        if (!field)
            qFatal("no field %s", fieldName);
        const QByteArray bytes =
            value.type() == QVariant::ByteArray ? value.toByteArray() : TestStore::bytes(value.toString());
        MDRVar var = MDRValue::null();
        if (value.isValid()) {
            const auto type = static_cast<MDRType>(field->type);
            if (type == mdr_TDouble)
                var = MDRValue::real(value.toDouble());
            else if (type == mdr_TInt32 || type == mdr_TBool || type == mdr_TByte)
                var = MDRValue::number(value.toInt(), type);
            else
                var = MDRValue::text(bytes, type);
        }
        MDRSetVal(field, row, &var);
    }
};

/// The fields of the reference tables that the journal reads.
inline constexpr MDRFieldDescr MadeWorkerFields[] = {
    {"KeyLink", 32, mdr_TChar},    {"UserKey", 32, mdr_TChar},   {"DepartmentKey", 32, mdr_TChar},
    {"firstName", 100, mdr_TChar}, {"lastName", 100, mdr_TChar}, {"patronymicName", 100, mdr_TChar},
    {"deleted_", 0, mdr_TBool},
};
inline constexpr MDRFieldDescr MadeOrganizationFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"name_", 100, mdr_TChar}, {"OrgTypeKey", 32, mdr_TChar}};
