#pragma once

#include "CMDArray.h"
#include "KeptTexts.h"
#include "TEventNciParse.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <QModelIndexList>
#include <QWidget>

class CModelTable;
class CommentsPane;
class CVrkCliMod;
class FilesPane;
class LocationInfo;
class PageMessages;
class PaneRoom;
class RecordColumns;
class Row;
class QAction;
class VrkTableTool;
struct MDRVar;

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
    void changeEvent(QEvent* event) override;

    /// The table of an event among these, or null.
    static CModelTable* tableOf(const TEventNciParse* event, std::initializer_list<CModelTable*> tables);
    /// The record of a comment or a file, or null.
    static MDRData* recordOf(const CModelTable& records, const Row& attachment);
    /// Copies the marked fields of the event's row to \a record, field by position, and posts it. Returns
    /// the posted record; null if nothing changes.
    MDRData* changeRecord(CMDArray* array, MDRData* record, const TEventNciParse* event) const;
    MDRData* changeRecord(CModelTable* table, MDRData* record, const TEventNciParse* event) const;

    /// The parts of the panes that differ between pages; the tables belong to the page.
    struct Annex {
        QString owner; ///< the page's class, for log lines
        CModelTable* comments;
        CModelTable* files;
        std::function<double()> commentTime;
        std::function<bool(const MDRVar& time)> isCommentReaded;
    };
    /// Creates the message box and both panes; module and location must be set.
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
    VrkTableTool* m_tableTool = nullptr; ///< created by the page in init
    RecordColumns* m_columns = nullptr;  ///< made by the page in init
    std::unique_ptr<PageMessages> m_messages;
    std::unique_ptr<CommentsPane> m_commentsPane;
    std::unique_ptr<FilesPane> m_filesPane;
    PaneRoom* m_paneRoom = nullptr; ///< created with the panes
    bool m_isInit = false;

private:
    void configureForm();
    QModelIndexList matcheIndexes(const QString& text) const;
};
