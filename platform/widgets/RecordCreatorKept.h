#pragma once

#include "RecordCreatorDialog.h"

/// Text that was not saved when the dialog was closed over the user's head.
struct RecordCreatorDialog::Kept {
    bool create = true;  ///< for a new record; otherwise an edit of the record with this key
    QByteArray key;      ///< KeyLink, kept so that a row that was written after all is not written twice
    QString templateKey; ///< template that was chosen
    bool attempted = false;
    RecordDraft sent;
    RecordDraft draft;
};
