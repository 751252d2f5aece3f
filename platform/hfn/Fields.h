#pragma once

/// The fields of all tables, each defined once. A descriptor table is a list of them, and code names a
/// field by its constant, so a misspelt name does not compile.

#include "MDArray.h"

#include <array>

/// A field known at compile time: a row of a descriptor table. It converts to its name.
template <MDRType Type>
struct TypedField : MDRFieldDescr {
    /// \a width in bytes, for fields of type mdr_TChar.
    constexpr explicit TypedField(const char* fieldName, std::uint8_t fieldWidth = 0)
        : MDRFieldDescr{{}, fieldWidth, Type}
    {
        for (int i = 0; fieldName[i] != '\0'; ++i)
            name[i] = fieldName[i];
    }
    constexpr operator const char*() const { return name; }
};
using TextField = TypedField<mdr_TChar>;
using MemoField = TypedField<mdr_TMemo>;
using BlobField = TypedField<mdr_TBlob>;
using RealField = TypedField<mdr_TDouble>;
using NumberField = TypedField<mdr_TInt32>;
using FlagField = TypedField<mdr_TBool>;

/// The names of fields of any types, for loops.
template <class... Fields>
constexpr std::array<const char*, sizeof...(Fields)> fieldNames(const Fields&... fields)
{
    return {fields.name...};
}

/// The constants have the names of the fields in the store.
namespace Field
{
constexpr std::uint8_t keyWidth = 32;
constexpr std::uint8_t nameWidth = 100;

// Keys: of the row itself, then references to rows of other tables.
inline constexpr TextField KeyLink("KeyLink", keyWidth);
inline constexpr TextField ShiftKey("ShiftKey", keyWidth);
inline constexpr TextField WorkerKey("WorkerKey", keyWidth);
inline constexpr TextField VisaWorkerKey("VisaWorkerKey", keyWidth);
inline constexpr TextField ReceiverWorkerKey("ReceiverWorkerKey", keyWidth);
inline constexpr TextField OriginRecordKey("OriginRecordKey", keyWidth);
inline constexpr TextField SecondMarkWorkerKey("SecondMarkWorkerKey", keyWidth);
inline constexpr TextField DepartmentKey("DepartmentKey", keyWidth);
inline constexpr TextField OpenWorkerKey("OpenWorkerKey", keyWidth);
inline constexpr TextField CloseWorkerKey("CloseWorkerKey", keyWidth);
inline constexpr TextField WorkshiftKey("WorkshiftKey", keyWidth);
inline constexpr TextField RecordKey("RecordKey", keyWidth);
inline constexpr TextField CategoryKey("CategoryKey", keyWidth);
inline constexpr TextField ParentKey("ParentKey", keyWidth);
inline constexpr TextField OrgTypeKey("OrgTypeKey", keyWidth);
inline constexpr TextField UserKey("UserKey", keyWidth);
inline constexpr TextField OrganizationKey("OrganizationKey", keyWidth);
inline constexpr TextField RoleKey("RoleKey", keyWidth);
inline constexpr TextField TablesKey("TablesKey", keyWidth);
inline constexpr TextField TableKey("TableKey", keyWidth);
inline constexpr TextField FieldTypeKey("FieldTypeKey", keyWidth);

// Names and short texts.
inline constexpr TextField fileName("fileName", nameWidth);
inline constexpr TextField nameLoc("nameLoc", nameWidth);
inline constexpr TextField login("login", nameWidth);
inline constexpr TextField name_("name_", nameWidth);
inline constexpr TextField rightName("rightName", nameWidth);
inline constexpr TextField firstName("firstName", nameWidth);
inline constexpr TextField lastName("lastName", nameWidth);
inline constexpr TextField patronymicName("patronymicName", nameWidth);
inline constexpr TextField nameLat("nameLat", nameWidth);
inline constexpr TextField kind("kind", nameWidth);
inline constexpr TextField voltage("voltage", nameWidth);
inline constexpr TextField icon("icon", nameWidth);
inline constexpr TextField completingIcon("completingIcon", nameWidth);
inline constexpr TextField completingCommand("completingCommand", nameWidth);

// Long texts and contents.
inline constexpr MemoField html("html");
inline constexpr MemoField object("object");
inline constexpr MemoField text_("text_");
inline constexpr BlobField fileData("fileData");
inline constexpr MemoField param("param");

// Times (HfnTime.h).
inline constexpr RealField recordTime("recordTime");
inline constexpr RealField eventTime("eventTime");
inline constexpr RealField firstMarkTime("firstMarkTime");
inline constexpr RealField secondMarkTime("secondMarkTime");
inline constexpr RealField executionTime("executionTime");
inline constexpr RealField createdAt("createdAt");
inline constexpr RealField startTime("startTime");
inline constexpr RealField endTime("endTime");
inline constexpr RealField commentTime("commentTime");
inline constexpr RealField readedTime("readedTime");

// Numbers and flags.
inline constexpr NumberField status("status");
inline constexpr NumberField direction("direction");
inline constexpr FlagField opening("opening");
inline constexpr FlagField file("file");
inline constexpr FlagField comment("comment");
inline constexpr FlagField deleted_("deleted_");
inline constexpr NumberField safetyGroup("safetyGroup");
inline constexpr FlagField canStartShift("canStartShift");
inline constexpr FlagField canEndShift("canEndShift");
inline constexpr FlagField isNecessaryFinishTime("isNecessaryFinishTime");
} // namespace Field
