#pragma once

#include <QMenu>

class LogBookWidget;

/// The context menu of a record of the journal.
class RecordMenu : public QMenu
{
    Q_OBJECT

public:
    /// \a page carries out the actions; not owned.
    RecordMenu(LogBookWidget* page, QWidget* parent);

    /// Shows the menu for the page's current record.
    void show(const QPoint& globalPos);

private:
    void nameSecondMark(QAction* action);

    LogBookWidget* m_page;
};
