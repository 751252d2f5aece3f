#pragma once

#include "LogBookTab.h"
#include "RecordTables.h"

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
    void createConnections();

    // CommentsWidget_hfn.cpp
    void uploadRecords();
    void uploadByRecords(CModelTable& target);
    void uploadAttachments(CModelTable& target, const char* recordKey);

    // CommentsWidget_events.cpp
    bool insertRow(CModelTable& table, const TEventNciParse& event);

    RecordTables m_shown;
};
