#pragma once

#include "LogbookModule.h"

#include <memory>

class CLiteModel;
class CModelTable;
class CommentInbox;
class LocationInfo;
class LogBookTab;
class LogBookToolBar;
class LogBookWidget;
class OrgStructDialog;
class QShortcut;
class QToolButton;
namespace Ui
{
class CVrkLogBook;
}

/// The window "Оперативный журнал": one tab for each department's journal, and one tool bar. The first tab,
/// home, is the journal of the user's own department: only there records are created and changed, and
/// shifts opened and closed. Changes by the tool bar apply to the home tab, its views to the current tab.
class CVrkLogBook : public LogbookModule
{
    Q_OBJECT

public:
    explicit CVrkLogBook(CVrkCliApp* app);
    ~CVrkLogBook() override;

    /// Loads the reference tables, determines user and department, loads the home tab. On failure the
    /// window shows an error box, the home tab is empty and there is no tool bar.
    bool ModuleStart() override;
    /// Passes a change event to every initialised tab, in tab order; returns 1, and 0 for anything else.
    int MessageData(HFNCliParam* block) override;

    /// Accepts "showRecord" with the KeyLink of a record: shows it in its workshift, in the tab of its
    /// department.
    void slot_modNotify(QString name, QVariant value) override;

    /// Opens the journal of a department in a new tab, or raises the existing one.
    void appendLogbook(const QString& organizationKey, const QString& departmentKey);

public slots:
    /// Closes a tab and deletes it; the home tab stays.
    void closeLogbook(int index);
    /// Connects the tool bar to the tab at \a index.
    void switchingToLogBook(int index);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void updateTitleComments();

private:
    /// False, with an error box, if there is no such record.
    bool showRecord(const QByteArray& recordKey);
    /// Offers texts that were not saved when the program ended last.
    void createLeftTexts();

    void uploadHfnTables();
    /// Sets KeyLink as the only key of Departments, Organizations and Workers. For a host whose tables have
    /// no key; ours sets it, so nothing calls this.
    void prepareHfnTables();
    bool hasErrorUpload();

    void configureAddButton();
    void configurePaneButton();
    void configurePinnedKeys();
    void configureToolBar();
    void configureTabBar();
    void createDialogs();
    void createInbox();
    void createConnections();

    void requestAppendLogbook();
    /// Raises the tab of comments; creates it first if needed.
    void commentsRequest();

    LogBookWidget* home() const;
    LogBookWidget* currentLogBook() const;
    LogBookTab* currentTab() const;

    void updateControlsState(LogBookWidget* logbook);
    void updateStatusWorkshift(LogBookTab* tab);
    void updateIntervalWorkshift(LogBookWidget* logbook);
    void updateLogBookState(LogBookWidget* logbook);
    void disableToolBar();
    /// Why no record can be created while this tab is current; empty if it can.
    QString creationRefusal(const LogBookTab* tab) const;
    /// Makes the status and Ctrl+N show the reason while the create button is disabled.
    void updateCreationRefusal();
    void tellCreationRefusal();

    std::unique_ptr<Ui::CVrkLogBook> m_form;
    std::unique_ptr<CLiteModel> m_model;
    CModelTable* m_workers = nullptr; ///< null until it is loaded, like the next three
    CModelTable* m_departments = nullptr;
    CModelTable* m_organizations = nullptr;
    CModelTable* m_orgTypes = nullptr;
    LocationInfo* m_location = nullptr;
    CommentInbox* m_inbox = nullptr; ///< null until the journal is loaded
    OrgStructDialog* m_orgStructDialog = nullptr;

    QToolButton* m_addButton = nullptr;
    LogBookToolBar* m_toolBar = nullptr;    ///< null until the journal is loaded
    QShortcut* m_refusalShortcut = nullptr; ///< the key of the create button while the button is disabled
};
