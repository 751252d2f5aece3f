#pragma once

#include <QObject>

class QSplitter;
class VrkTableTool;

/// Hides the panes next to a record table at first if the text of records would have no space, as with
/// large letters in a small window. The user's own choice is kept.
class PaneRoom : public QObject
{
    Q_OBJECT

public:
    /// The splitter contains the table, then the panes; both must outlive this object.
    PaneRoom(QSplitter* splitter, const VrkTableTool* tool);

    /// Hides or shows the panes on the user's request.
    void toggle();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void judge();
    void show(bool isShown);

    QSplitter* m_splitter;
    const VrkTableTool* m_tool;
    int m_paneWidth = 0; ///< at the last check
    bool m_byUser = false;
    bool m_scheduled = false;
};
