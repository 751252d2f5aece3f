#pragma once

#include "CModelTable.h"
#include "Row.h"
#include "TEventNciParse.h"

class CVrkCliSes;

/// The row of a change event, read by the constants of Fields.h, and the one way in which it gets into a table.
class VRK_EXPORT EventRow : public Row
{
public:
    explicit EventRow(const TEventNciParse& event);

    /// The event is about this table; ASCII case ignored.
    bool isOf(const char* table) const;

    enum Which {
        Marked, ///< the fields that were changed
        All
    };
    /// Copies values into a record of the same table, field by field by their positions. Events carry no contents of
    /// files: with a session these stay in the store, which gives them when they are asked for; without one they become
    /// null.
    void copyTo(MDRData* record, Which which = Marked, CVrkCliSes* session = nullptr) const;

private:
    const TEventNciParse* m_event;
};

/// Copies the marked fields of the event's row into a fresh or an edited record of \a array and posts it. Returns the posted
/// record; null without an array or a record, and when the record is not the array's.
VRK_EXPORT MDRData* changeRecord(CMDArray* array, MDRData* record, const TEventNciParse* event,
                                 CVrkCliSes* session = nullptr);
VRK_EXPORT MDRData* changeRecord(CModelTable* table, MDRData* record, const TEventNciParse* event,
                                 CVrkCliSes* session = nullptr);
