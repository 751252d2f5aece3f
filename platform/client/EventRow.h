#pragma once

#include "CModelTable.h"
#include "Row.h"
#include "TEventNciParse.h"

#include <initializer_list>

class CVrkCliSes;

/// The row of a change event, read by the constants of Fields.h; the only way to copy it into a table.
class VRK_EXPORT EventRow : public Row
{
public:
    explicit EventRow(const TEventNciParse& event);

    /// Whether the event belongs to this table; ignores ASCII case.
    bool isOf(const char* table) const;
    /// The table of the event among these, or null.
    CModelTable* tableAmong(std::initializer_list<CModelTable*> tables) const;

    enum Which {
        Marked, ///< only the changed fields
        All
    };
    /// Copies values into a record of the same table, field by field by their positions. Events do not
    /// contain file contents: with a session these stay in the store, which returns them on demand; without
    /// one they become null.
    void copyTo(MDRData* record, Which which = Marked, CVrkCliSes* session = nullptr) const;

private:
    const TEventNciParse* m_event;
};

/// Copies the marked fields of the event's row into a fresh or an edited record of \a array and posts it.
/// Returns the posted record; null without an array or a record, and if the record belongs to another
/// array.
VRK_EXPORT MDRData* changeRecord(CMDArray* array, MDRData* record, const TEventNciParse* event,
                                 CVrkCliSes* session = nullptr);
VRK_EXPORT MDRData* changeRecord(CModelTable* table, MDRData* record, const TEventNciParse* event,
                                 CVrkCliSes* session = nullptr);
