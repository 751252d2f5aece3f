#pragma once

/// Record arrays: in-memory tables of typed fields whose records carry change flags and are ordered by keys.
///
/// Conventions of this floor
/// 1. Nothing throws. Operations return a code (MDRCode, 0 is success) or a pointer that is null on failure.
/// 2. Null handles, foreign records and indexes out of range are answered by a code or null, never by a crash.
/// 3. An array owns its records and its fields' descriptions. A record's address never changes until it is deleted.
/// 4. Field numbers, key numbers and positions count from 0.
/// 5. Text is bytes of the session's code page, NUL-terminated, with a separate length; times are HfnTime
/// (HfnTime.h).
/// 6. All use is on one thread; there are no locks.

#include "VrkExport.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <QByteArray>
#include <vector>

class MDArray;
struct HFNCliParam;

/// Type codes of fields and values. Descriptor rows and packed bytes contain these numbers.
enum MDRType : std::uint8_t {
    mdr_TNone = 0,   ///< no value
    mdr_TBool = 1,   ///< boolean, in MDRVar::value.number
    mdr_TByte = 2,   ///< unsigned byte, in MDRVar::value.number
    mdr_TInt32 = 5,  ///< signed 32-bit integer, in MDRVar::value.number
    mdr_TDouble = 8, ///< double, in MDRVar::value.real; all times
    mdr_TChar = 9,   ///< text with a suggested width, in MDRVar::value.text
    mdr_TMemo = 10,  ///< long text, in MDRVar::value.text
    mdr_TBlob = 11,  ///< binary data, in MDRVar::value.text
};

/// Codes of array operations.
enum MDRCode : int {
    mdr_Ok = 0,
    mdr_Invalid = -1,      ///< a null handle, a position out of range, a malformed descriptor
    mdr_TypeMismatch = -2, ///< a value that the field's type cannot take
    mdr_Assign = -3,       ///< an answer was null or the array's own (CMDArray::assign)
    mdr_Full = -4,         ///< more fields, keys or bytes than an array or a record can have
    mdr_Foreign = -5,      ///< the record belongs to another array
    mdr_Packed = -6,       ///< packed bytes that are damaged, truncated or of another version
    mdr_Source = -7,       ///< the bytes of a stored blob could not be fetched
};

/// Flags of a record: what CVrkCliSes::SqlUpdate does with it.
enum MDRFlag : std::uint8_t {
    ROW_INSERT = 1, ///< a new row
    ROW_UPDATE = 2, ///< the fields with the user mark are written; the key field names the row
    ROW_DELETE = 4, ///< the row with this key is removed
};

/// One row of a descriptor table: 66 bytes without padding.
struct MDRFieldDescr {
    char name[64];      ///< NUL-padded, ASCII
    std::uint8_t width; ///< bytes of a mdr_TChar field, 0 for all other kinds
    std::uint8_t type;  ///< MDRType
};
static_assert(sizeof(MDRFieldDescr) == 66, "descriptor rows are packed");

/// Description of a key: field names joined by ';', each optionally followed by ":0x4" for descending order, as in
/// "DepartmentKey;startTime:0x4". An empty text is the order of entry. Null is the least value, then numbers by
/// value, texts by their unsigned bytes; equal records keep their order of entry. Blobs cannot be ordered.
struct MDRKeyDescr {
    char fields[384];
    int flags;
};

/// Handle of a field: its name, its type and its ordinal. It works on every record that has a field of this
/// type at this ordinal, so handles of one array may be used on records of another with the same leading
/// fields. The name is the first member: a handle also reads as its name.
struct MDRField {
    char name[64];
    std::uint8_t width;
    std::uint8_t type;
    std::uint8_t ordinal;
};

/// A value in transit. The pointer of a text or blob returned by MDRGetVal points into the record and is valid until
/// the record changes.
struct MDRVar {
    struct Text {
        std::int32_t length;
        const char* data;
    };
    union Value {
        std::int32_t number; ///< mdr_TInt32, mdr_TByte, mdr_TBool
        double real;         ///< mdr_TDouble
        Text text;           ///< mdr_TChar, mdr_TMemo, mdr_TBlob
    };

    std::uint8_t type = mdr_TNone;
    std::uint8_t isNull = 0;
    Value value = {};
};

/// One record. Arrays create and own them (MDARecNew); a stand-alone one on the stack is prepared with MDRRecInit and
/// filled from packed bytes with MDRRecSet. Its destructor frees its values.
struct VRK_EXPORT MDRData {
    struct Body; ///< values, null states and user marks, in one allocation

    MDRData() = default;
    ~MDRData();
    MDRData(const MDRData&) = delete;
    MDRData& operator=(const MDRData&) = delete;

    MDArray* owner = nullptr; ///< null for a stand-alone record and for a deleted one
    std::uint8_t flags = 0;   ///< MDRFlag
    std::uint8_t state = 0;   ///< fresh, posted, edited: kept by the array
    std::uint64_t entry = 0;  ///< place in the order of entry: kept by the array
    Body* body = nullptr;
    MDRData* partner =
        nullptr; ///< the edited version of a posted record, the posted record of an edited version
};

/// Field descriptions derived from a packed record (MDRTypGen). Read them with MDRFldByName and MDRFldByNum.
struct VRK_EXPORT MDRRecordType {
    MDRRecordType() = default;
    ~MDRRecordType();
    MDRRecordType(const MDRRecordType&) = delete;
    MDRRecordType& operator=(const MDRRecordType&) = delete;

    int count = 0;
    MDRField* fields = nullptr; ///< owned
};

/// The source of a blob's bytes when they stay in the store until they are read.
class VRK_EXPORT MDRBlobSource
{
public:
    virtual ~MDRBlobSource();
    /// Fetches the bytes; false if they no longer exist or the store does not answer.
    virtual bool read(QByteArray& bytes) const = 0;
};

/// Records in order of entry, as returned by an index or a key. Valid until the array changes.
struct MDRRange {
    MDRData* const* data = nullptr;
    std::size_t count = 0;
    MDRData* const* begin() const { return data; }
    MDRData* const* end() const { return data + count; }
};

/// \name Arrays
/// @{
VRK_EXPORT int MDACreate(MDArray** array, int reserved);
VRK_EXPORT void MDADestroy(MDArray* array);
/// Appends \a count fields in order, all or none; mdr_Full beyond 255. The fields are null in existing records. If
/// several fields have the same name, MDRFldByName finds the first. Handles stay valid as long as the array exists.
VRK_EXPORT int MDAFldAdd(MDArray* array, int count, const MDRFieldDescr* fields);
/// Adds a key as the last one (\a count is 1) and orders all records by it.
VRK_EXPORT int MDAKeyAdd(MDArray* array, int count, const MDRKeyDescr* key);
VRK_EXPORT int MDAKeyDel(MDArray* array, int key);
/// Number of fields, 0 to 255.
VRK_EXPORT int MDAFldCount(const MDArray* array);
VRK_EXPORT int MDAKeyCount(const MDArray* array);
/// Number of records that \a key sees: all of them. 0 when there is no such key.
VRK_EXPORT int MDAKeyRecCount(const MDArray* array, int key);
/// The record at a position of a key's order, or null. O(1) or O(log n).
VRK_EXPORT MDRData* MDARec(const MDArray* array, int key, int position);
/// The position of a posted record in a key's order, or -1. O(log n).
VRK_EXPORT int MDARecPos(const MDArray* array, int key, const MDRData* record);
/// A fresh record: all fields null, in no key yet. Post it or discard it with MDARecDel.
VRK_EXPORT MDRData* MDARecNew(MDArray* array);
/// An editable version of a posted record with its values, flags and user marks. A second call returns the same
/// version, reset to the posted values; an edit may be abandoned. The posted record is unchanged until MDARecPost.
VRK_EXPORT MDRData* MDARecEdit(MDRData* record);
/// Adds a fresh record to all keys, or swaps an edited version into the record it came from, which keeps its address
/// and its place in the order of entry. \a posted receives the final address, null on failure; it may be null.
VRK_EXPORT int MDARecPost(MDRData* record, MDRData** posted);
/// Removes a posted record with its edited version, or discards a fresh or edited one. MDARecArr still accepts the
/// pointer and returns null for it.
VRK_EXPORT int MDARecDel(MDRData* record);
/// Exact search: \a values contains as many values as the key has fields. Null if nothing is found, the key has no
/// fields, or a value is null. Of equal records, returns the first in order of entry.
VRK_EXPORT MDRData* MDARecSeekV(const MDArray* array, int key, const MDRVar* values, int reserved);
/// All records whose field contains exactly this text, in order of entry. The array creates an index on the first
/// call and keeps it current. For fields that are no key of the array.
VRK_EXPORT MDRRange MDARecsWith(MDArray* array, const char* field, const char* text);
/// All records in which each of these fields (of any kind, joined by ';') is null, in order of entry; uses an index
/// like that of MDARecsWith. None if one of the fields does not exist.
VRK_EXPORT MDRRange MDARecsWithout(MDArray* array, const char* fields);
/// All posted records in order of entry, with or without keys. O(n log n): for full passes, not for single steps.
VRK_EXPORT std::vector<MDRData*> MDARecsByEntry(const MDArray* array);
/// The array that owns the record; null for a deleted or stand-alone record.
VRK_EXPORT MDArray* MDARecArr(const MDRData* record);
/// Removes all records, fresh and edited ones too; keeps fields and keys.
VRK_EXPORT int MDAClearRec(MDArray* array);
/// Removes records, keys and fields.
VRK_EXPORT int MDAClearAll(MDArray* array);
/// Replaces the destination's fields, and with \a flag 1 its records, by the source's. A destination with keys keeps
/// and re-sorts them (a key field that no longer exists is dropped from its key); one without takes the source's
/// keys. Blobs that stay in the store are not fetched. An array cannot be copied onto itself (mdr_Invalid).
VRK_EXPORT int MDACopy(MDArray* destination, const MDArray* source, int flag);
/// Copies the records that the source's first key sees, in its order, to the end of the destination: values, without
/// flags and marks, field by field by their numbers. A value that the destination's field cannot take is null, and so
/// are fields that the source does not have.
VRK_EXPORT int MDARecsAppend(MDArray* destination, const MDArray* source);
/// Makes an array received from the server writable. Answers are writable here already, so it only checks.
VRK_EXPORT int MDAUnpackForWrite(MDArray* array);
/// Replaces the content of an array by the packed form, a NUL-terminated ASCII text. mdr_Packed leaves the array
/// empty.
VRK_EXPORT int HFNArrayUnPack(MDArray* array, const char* packed, int flag);
/// The packed form of an array: fields, keys, records with values, flags and marks. Stored blobs are fetched. Empty
/// if one of them cannot be fetched or the result exceeds 1 GiB.
VRK_EXPORT QByteArray HFNArrayPack(const MDArray* array);
/// @}

/// \name Fields and records
/// @{
/// Field by name, ASCII case ignored, or null.
VRK_EXPORT const MDRField* MDRFldByName(const MDArray* array, const char* name);
VRK_EXPORT const MDRField* MDRFldByName(const MDRRecordType* type, const char* name);
VRK_EXPORT const MDRField* MDRFldByNum(const MDArray* array, int index);
VRK_EXPORT const MDRField* MDRFldByNum(const MDRRecordType* type, int index);
/// Fills the value; null fields return the field's type and isNull 1. A blob in the store is fetched and kept;
/// mdr_Source leaves the value null. If the record does not have the field, only the type of \a value becomes 0.
VRK_EXPORT int MDRGetVal(const MDRField* field, const MDRData* record, MDRVar* value);
/// Stores the value; text is copied. isNull with any type stores null. Text kinds convert to each other and so do
/// numbers (doubles to the nearest integer, any but 0 to true); anything else, and a number that the field cannot
/// hold, is mdr_TypeMismatch. For a posted record the keys are updated, too.
VRK_EXPORT int MDRSetVal(const MDRField* field, MDRData* record, const MDRVar* value);
VRK_EXPORT int MDRSetUser(const MDRField* field, MDRData* record, int mark);
VRK_EXPORT int MDRIsUser(const MDRField* field, const MDRData* record, bool* mark);
VRK_EXPORT int MDRIsNull(const MDRField* field, const MDRData* record, bool* null);
/// Replaces the flags of the record.
VRK_EXPORT int MDRSetFlags(MDRData* record, int flags);
/// Leaves a blob in the store: \a length bytes that \a source fetches when MDRGetVal needs them.
VRK_EXPORT int MDRSetBlobSource(const MDRField* field, MDRData* record, std::int32_t length,
                                std::shared_ptr<const MDRBlobSource> source);
/// Length of a blob without fetching it; 0 for null.
VRK_EXPORT int MDRBlobLength(const MDRField* field, const MDRData* record, std::int32_t* length);
/// @}

/// \name Parameter blocks and packed records
/// @{

/// These three return 0, an empty text and no bytes if the field is null or the call fails; never a null pointer.
VRK_EXPORT int MDRGetAsInt32(const MDRField* field, const HFNCliParam* block, int* value);
/// The text points into the block.
VRK_EXPORT int MDRGetTextPtr(const MDRField* field, const HFNCliParam* block, char** text);
/// The bytes point into the block.
VRK_EXPORT int MDRGetTextRef(const MDRField* field, const HFNCliParam* block, int* length, const char** data);

VRK_EXPORT void MDRTypInit(MDRRecordType* type);
/// Derives the field description from a record that MDRRecSet filled. \a source is "NCI".
VRK_EXPORT int MDRTypGen(MDRRecordType* type, const char* source, const MDRData* record);
VRK_EXPORT void MDRTypFree(MDRRecordType* type);
VRK_EXPORT void MDRRecInit(MDRData* record);
/// Fills a stand-alone record from packed bytes; mdr_Packed leaves it empty.
VRK_EXPORT int MDRRecSet(MDRData* record, const char* packed, int length);
/// The packed form of one record, with its field descriptions, flags and marks; empty when it has no fields
/// or a stored blob cannot be fetched.
VRK_EXPORT QByteArray MDRRecPack(const MDRData* record);
/// @}
