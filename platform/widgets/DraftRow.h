#pragma once

#include "RecordDraft.h"

#include <QByteArray>
#include <QString>

class CVrkCliSes;

/// The row of the record that a window writes. Its key is the same for all retries, so that a row is never
/// written twice.
struct DraftRow {
    /// To whom a new row belongs.
    struct Author {
        QString workerKey;
        QString departmentKey;
        QString workshiftKey;
    };

    Author author;
    QByteArray key;         ///< KeyLink
    bool attempted = false; ///< a row with this key may exist although writing it failed
    RecordDraft sent;       ///< the values of the last attempt to write
    RecordDraft before;     ///< values of the record when it was opened, or last changed by others

    /// Turns to the row with this key, or to a new one, of which nothing is known but its author.
    void start(const QByteArray& keyLink);
    /// Writes the draft as a new row, or as a change of it if an earlier attempt has written it after all.
    /// False if it failed: session->lastErrorText().
    bool insert(CVrkCliSes* session, const RecordDraft& draft);
    /// Writes what differs from \a before; without a difference nothing is sent. False if it failed.
    bool update(CVrkCliSes* session, const RecordDraft& draft);
    /// Sets \a found if the store has the row, and reads \a before from it. False if the request failed.
    bool find(CVrkCliSes* session, bool* found);
};
