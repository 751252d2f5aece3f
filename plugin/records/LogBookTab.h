#pragma once

#include "CMDArray.h"
#include "KeptTexts.h"
#include "TEventNciParse.h"

#include <functional>
#include <memory>
#include <QModelIndexList>
#include <QWidget>

class CModelTable;
class CommentsPane;
class CVrkCliMod;
class FilesPane;
class LiveTable;
class LocationInfo;
class PageMessages;
class PaneRoom;
class RecordColumns;
class QAction;
class VrkTableFilterRow;
class VrkTableTool;
struct MDRVar;
struct RecordTables;

namespace Ui
{
class LogBookTab;
}

/// Base of the pages of the journal window: the form with the record table, the panes of comments and files
/// and the search bar, and helpers that find and change a page's records.
class LogBookTab : public QWidget
{
    Q_OBJECT

public:
    explicit LogBookTab(QWidget* parent = nullptr);
    ~LogBookTab() override;

    /// Loads the page. \a location is not owned and must outlive the page.
    virtual void init(CVrkCliMod* module, LocationInfo* location) = 0;
    /// Handles a change event; false if it does not apply to this page.
    virtual bool MessageData(TEventNciParse* event) = 0;

    /// Pages receive events only after init.
    bool isInit() const { return m_isInit; }
    /// The location passed to init, or null.
    LocationInfo* location() const { return m_location; }
    /// The record under the current row, or null.
    MDRData* currentRecord() const;

    /// Shows the search bar and moves the focus there, or hides and clears it.
    void switchVisibleSearch();
    /// Moves the focus to the records.
    void takeKeyboard();
    /// Hides the panes of comments and files, or shows them.
    void switchVisiblePanes();
    /// Shows the editor of comments with a kept text.
    void showKeptComment(const KeptTexts::Text& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

    LiveTable live(CModelTable& table) const;

    /// \name Change events of records, comments and files: LogBookTab_events.cpp
    /// @{
    /// Appends the new record of an event.
    MDRData* appendRecord(const TEventNciParse& event);
    /// Appends a new comment or file, unless its record is not here.
    void insertAttachment(CModelTable& table, const TEventNciParse& event);
    /// Changes or removes a row, and updates the view and the panes; false if the row is not here.
    bool applyChange(CModelTable& table, const TEventNciParse& event);
    bool applyDeletion(CModelTable& table, const TEventNciParse& event);
    /// Called for a new or changed record before it is shown: fills what exists only in the client.
    virtual void prepareRecord(MDRData* record);
    /// Called before a record is removed.
    virtual void forgetRecord(MDRData*) {}
    /// @}

    /// Shows the records in the table, without those that the filter hides. \a tables belongs to the page.
    void createTable(RecordTables& tables, VrkTableFilterRow* filter);
    /// Creates the columns of the table; module and location must be set.
    void configureTableTool();

    /// The parts of the panes that differ between pages.
    struct Annex {
        QString owner; ///< the page's class, for log lines
        std::function<double()> commentTime;
        std::function<bool(const MDRVar& time)> isCommentReaded;
    };
    /// Creates the message box and both panes, after the table.
    void createAnnex(const Annex& annex);
    /// Deletes the table, the panes and their windows: for destructors, while the page's tables still
    /// exist.
    void dropAnnex();
    /// Shows the comments and files of a record in the panes.
    void reloadPanes(MDRData* record);
    /// The action of the Delete key in the pane with the focus; false if neither has it.
    bool deleteInPanes();

    std::unique_ptr<Ui::LogBookTab> m_ui;
    QAction* m_allReaded; ///< "mark all as read", in the menu of readedCommentButton
    CVrkCliMod* m_module = nullptr;
    LocationInfo* m_location = nullptr;
    RecordTables* m_tables = nullptr;    ///< of the page, after createTable
    VrkTableTool* m_tableTool = nullptr; ///< after createTable
    RecordColumns* m_columns = nullptr;  ///< after configureTableTool
    std::unique_ptr<PageMessages> m_messages;
    std::unique_ptr<CommentsPane> m_commentsPane;
    std::unique_ptr<FilesPane> m_filesPane;
    PaneRoom* m_paneRoom = nullptr; ///< created with the panes
    bool m_isInit = false;

private:
    void configureForm();
    void configureKeys();
    void updateAttachments(const CModelTable& table, MDRData* record);
    QModelIndexList matcheIndexes(const QString& text) const;
};
