#pragma once

#include "CModelTable.h"

#include <QString>

class CVrkCliSes;
struct TEventNciParse;

/// Loads a table of the server, finds its rows by key and applies change events to it. A view: it holds no
/// data and may be made for one call; the table, which must outlive it, belongs to the caller. A changed row
/// keeps its address.
class VRK_EXPORT LiveTable
{
public:
    /// Contents of files are not part of events. With a session they stay in the store, which returns them
    /// on demand; without one they become null. Loading needs a session.
    explicit LiveTable(CModelTable& table, CVrkCliSes* session = nullptr) : m_table(table), m_session(session)
    {
    }

    /// Replaces fields, keys and rows by the answer to a select. False if it failed; nothing changes then.
    bool load(const QString& sql);
    /// Appends a row for each row of an answer whose fields are the first ones of the table; contents of
    /// files stay in the store. Returns the last one, null if there was none.
    MDRData* append(const CMDArray& answer);

    /// The row of an event, or null.
    MDRData* find(const TEventNciParse& event) const;
    /// Appends the row of an event that is not in the table yet.
    MDRData* insert(const TEventNciParse& event);
    /// Copies the marked fields of an event into its row. Null if the row is not in the table.
    MDRData* change(const TEventNciParse& event);
    void remove(MDRData* row);
    /// Carries out what the event says: inserts, changes or removes its row. A row that is known when its
    /// insertion arrives was loaded after it had been written: the newer event changes it. False if nothing
    /// was done.
    bool apply(const TEventNciParse& event);

private:
    CModelTable& m_table;
    CVrkCliSes* m_session;
};
