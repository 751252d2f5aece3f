#pragma once

#include "KeptTexts.h"
#include "RecordCreatorDialog.h"
#include "RecordDraft.h"

/// The unsaved text of a record in the form in which it is kept.
struct RecordCreatorDialog::Kept {
    bool create = true;  ///< for a new record; otherwise an edit of the record with this key
    QByteArray key;      ///< KeyLink; prevents a second row if the first one was written after all
    QString templateKey; ///< template that was chosen
    bool attempted = false;
    RecordDraft sent;
    RecordDraft draft;

    KeptTexts::Values values() const;
    static Kept read(const KeptTexts::Text& text);
};
