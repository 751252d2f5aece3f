#pragma once

#include <QObject>

class QSplitter;
class VrkTableTool;

/// Keeps the panes beside a record table out of its way where the text of records would have no room beside them: with
/// large letters in a small window they are hidden at first. What the user switches stays as he has left it.
class PaneRoom : public QObject
{
    Q_OBJECT

public:
    /// The splitter holds the table, then the panes; both outlive this.
    PaneRoom(QSplitter* splitter, const VrkTableTool* tool);

    /// Hides or shows the panes, by the user's wish.
    void toggle();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void judge();

    QSplitter* m_splitter;
    const VrkTableTool* m_tool;
    int m_paneWidth = 0; ///< when last seen
    bool m_byUser = false;
    bool m_scheduled = false;
};
