#pragma once

#include "CModelTable.h"
#include "LogBookTab.h"
#include "RecordPreparer.h"

class FilterUnreadedComments;

/// The user's inbox: his own records with unread comments. It loads once in init and follows change events;
/// when its comments have been read, a record stays in the table, hidden by the filter. Only for reading
/// and answering comments: no workshift, no period, no actions on records, no files.
class CommentsWidget : public LogBookTab
{
    Q_OBJECT

public:
    explicit CommentsWidget(QWidget* parent = nullptr);
    ~CommentsWidget() override;

    void init(CVrkCliMod* module, LocationInfo* location) override;
    bool MessageData(TEventNciParse* event) override;

    /// "Комментарии (%1)" with the number of shown records.
    QString title() const;
    /// Loads one record of any author into the table, with its comments and files; null with a line in the
    /// log if the server has none.
    MDRData* uploadRecord(const char* key);

signals:
    /// The title has changed: read it again.
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
    /// Updates the view after a change of the record's comments or files.
    void updateAttachments(const CModelTable& table, MDRData* record);

    CModelTable m_records;
    CModelTable m_comments;
    CModelTable m_files;
    RecordPreparer m_preparer;
    FilterUnreadedComments* m_filter = nullptr;
};
