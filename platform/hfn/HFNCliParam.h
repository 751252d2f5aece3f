#pragma once

#include "MDArray.h"

/// Parameter block of a message or an answer: one row of numbered fields. Reach a field with
/// MDRFldByNum(block->array, number) and read it with MDRGetAsInt32, MDRGetTextPtr, MDRGetTextRef.
///
/// | Block              | Field | Kind    | Meaning                                   |
/// |--------------------|-------|---------|-------------------------------------------|
/// | answer to a packet | 0     | integer | return code, 0 for success                |
/// |                    | 2     | text    | packed array for HFNArrayUnPack           |
/// | change event       | 1     | integer | event number 601, 602, 603                |
/// |                    | 4     | text    | key of the row                            |
/// |                    | 5     | text    | "NCI:<Table>,<number>"                    |
/// |                    | 7     | binary  | packed row for MDRRecSet; empty for 603   |
struct VRK_EXPORT HFNCliParam {
    HFNCliParam();
    ~HFNCliParam();
    HFNCliParam(const HFNCliParam&) = delete;
    HFNCliParam& operator=(const HFNCliParam&) = delete;

    /// An answer block. The receiver frees it through the session (CVrkCliSes::PrmFree).
    static HFNCliParam* answer(int code, const QByteArray& packedArray);
    /// A change event. \a source is the text of field 5.
    static HFNCliParam* event(int number, const QByteArray& key, const QByteArray& source,
                              const QByteArray& packedRecord);

    MDArray* array = nullptr; ///< owned; describes the fields
    MDRData* record = nullptr;
};
