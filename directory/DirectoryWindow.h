#pragma once

#include "DirectoryDraft.h"

#include <memory>
#include <QMainWindow>

class NoticeBar;
class QAction;
class QLabel;
class QListWidget;
class QStackedWidget;
class QTimer;
class SheetPage;

/// The window in which an administrator edits the reference data of a store: a page for each sheet, the list of faults,
/// and saving, which first shows what will change.
class DirectoryWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \a store: in the role of imports; the window owns it. \a url: its address.
    DirectoryWindow(std::unique_ptr<Store> store, const QString& url, QWidget* parent = nullptr);
    ~DirectoryWindow() override;

    /// Reads the store. False with \a error.
    bool load(StoreError* error);
    DirectoryDraft* draft() { return &m_draft; }
    /// The page of a table.
    SheetPage* page(const QByteArray& table) const;

    void save();
    /// Reads what others wrote; the edits stay.
    void refresh();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QAction* addAction(const QString& text, const char* name, const QKeySequence& keys,
                       void (DirectoryWindow::*slot)());
    void makeActions();
    SheetPage* current() const;
    void nameSheet(int number, int faults);
    void turnPage(int step);
    void addRow();
    void discard();
    void find();
    void nextFault();
    void showFault(int number);
    void check();
    void showFaults();
    void showState();
    bool look(DirectoryDraft::Meanwhile* meanwhile);
    /// Resolves conflicts, checks, shows the changes.
    void prepare(const DirectoryDraft::Meanwhile& meanwhile);
    void propose(const DirectoryDraft::Meanwhile& meanwhile, bool theirs);
    void write();
    void fail(const QString& text);
    void showWork(const char* name, qint64 done, qint64 total);

    std::unique_ptr<Store> m_store;
    QString m_url;
    DirectoryDraft m_draft;
    NoticeBar* m_notice;
    QListWidget* m_sheets; ///< their names, in the order of the pages
    QStackedWidget* m_stack;
    QWidget* m_faultPane;
    QListWidget* m_faults;
    QLabel* m_faultCount;
    QLabel* m_work;
    QTimer* m_pause;
    QVector<SheetPage*> m_pages;
    bool m_closesAfterSaving = false;
};
