#pragma once

#include "HFNCliParam.h"
#include "MDArray.h"

#include <QString>

/// Numbers of change events.
enum EventNumber { EventInserted = 601, EventChanged = 602, EventDeleted = 603 };

/// A change event, parsed once for all receivers. The pointers point into the parameter block, which must
/// outlive the parse. Missing fields give 0, empty texts and no row.
struct VRK_EXPORT TEventNciParse {
    TEventNciParse() = default;
    explicit TEventNciParse(HFNCliParam* block);

    /// The numbers that modules accept: 601 to 603.
    bool isChange() const { return eventNumber >= EventInserted && eventNumber <= EventDeleted; }

    HFNCliParam* parameterBlock = nullptr;
    int eventNumber = 0;
    char* recordKey = nullptr;  ///< KeyLink of the row
    char* sourceText = nullptr; ///< "NCI:<Table>,<number>"
    QString tableName;          ///< after the prefix of four characters, up to the first comma; empty
                                ///< without a comma
    MDRRecordType recordType;   ///< fields of recordData; empty for 603
    MDRData recordData;         ///< the row as sent, with marks on the changed fields
};
