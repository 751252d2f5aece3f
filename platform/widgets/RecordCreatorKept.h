#pragma once

#include "KeptTexts.h"
#include "RecordCreatorDialog.h"

/// Text of a record that is not saved, as it is kept.
struct RecordCreatorDialog::Kept {
    bool create = true;  ///< for a new record; otherwise an edit of the record with this key
    QByteArray key;      ///< KeyLink, kept so that a row that was written after all is not written twice
    QString templateKey; ///< template that was chosen
    bool attempted = false;
    RecordDraft sent;
    RecordDraft draft;

    KeptTexts::Values values() const;
    static Kept read(const KeptTexts::Text& text);
};
