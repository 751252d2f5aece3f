#pragma once

#include <QMenu>

class LogBookWidget;
class QAbstractScrollArea;

/// The context menu of a record of the journal. Its keys work in the whole page, for the current record.
class RecordMenu : public QMenu
{
    Q_OBJECT

public:
    /// The context menu of the table of a page, which carries out the actions; nothing is owned.
    RecordMenu(LogBookWidget* page, QAbstractScrollArea* table);

private:
    /// Shows the menu for the page's current record, at a position in the table.
    void showRecordMenu(const QPoint& pos);
    void nameSecondMark(QAction* action);

    LogBookWidget* m_page;
    QAbstractScrollArea* m_table;
};
