#pragma once

#include "CModelTable.h"

/// Fills the three fields of a page's records that exist only in the client: object, comment and file. Uses
/// the page's tables, which keep their addresses; a table's array may be replaced.
class RecordPreparer
{
public:
    RecordPreparer(CModelTable& records, CModelTable& comments, CModelTable& files);

    /// All three, of every record.
    void prepareRecords();
    /// All three, of one record.
    void prepareRecord(MDRData* record);
    /// object: substation and line from the record's text, as "substation/line". Unchanged if the text
    /// names neither.
    void prepareRecordHtml(MDRData* record);
    /// comment: whether the record has a comment.
    void prepareRecordComment(MDRData* record);
    /// file: whether the record has a file.
    void prepareRecordFile(MDRData* record);

private:
    /// Handles of the fields, resolved once for a whole pass.
    struct Fields {
        explicit Fields(const MDArray* records);
        const MDRField* key;
        const MDRField* html;
        const MDRField* object;
        const MDRField* comment;
        const MDRField* file;
    };
    void prepare(MDRData* record, const Fields& fields);
    void fillObject(MDRData* record, const Fields& fields);
    void markOwner(MDRData* record, const Fields& fields, const MDRField* mark, CModelTable& owned);

    CModelTable& m_records;
    CModelTable& m_comments;
    CModelTable& m_files;
};
