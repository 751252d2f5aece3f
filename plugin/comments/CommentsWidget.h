#pragma once

#include "CModelTable.h"
#include "LogBookTab.h"
#include "RecordPreparer.h"

class FilterUnreadedComments;

/// The user's inbox: the own records on which comments wait unread. Loads once in init and lives on change events; a
/// record stays in the table when its comments have been read, hidden by the filter. For reading and answering
/// comments only: no workshift, no period, no action on records, no files.
class CommentsWidget : public LogBookTab
{
    Q_OBJECT

public:
    explicit CommentsWidget(QWidget* parent = nullptr);
    ~CommentsWidget() override;

    void init(CVrkCliMod* module, LocationInfo* location) override;
    bool MessageData(TEventNciParse* event) override;

    /// "Комментарии (%1)" with the number of records that are shown.
    QString title() const;
    /// Fetches one record into the table, whosever it is, with its comments and files; null, with a line in the log, when the server has none.
    MDRData* uploadRecord(const char* key);

signals:
    /// Ask for the title again.
    void titleChanged();

private:
    void initTables();
    void configureTableTool();
    void createConnections();

    // CommentsWidget_hfn.cpp
    void uploadRecords();
    void uploadByRecords(CModelTable& target);
    void uploadAttachments(CModelTable& target, const char* recordKey);

    // CommentsWidget_events.cpp
    bool insertRecord(TEventNciParse* event);
    bool insertComment(TEventNciParse* event);
    bool insertFile(TEventNciParse* event);
    bool changeRow(CModelTable& table, TEventNciParse* event);
    bool deleteRow(CModelTable& table, TEventNciParse* event);
    CModelTable* eventTable(const TEventNciParse* event);
    MDRData* recordOf(const MDRData* attachment) const;
    /// Shows what changed in the record's comments or files.
    void updateAttachments(const CModelTable& table, MDRData* record);

    CModelTable m_records;
    CModelTable m_comments;
    CModelTable m_files;
    RecordPreparer m_preparer;
    FilterUnreadedComments* m_filter = nullptr;
};
