#include "PaneRoom.h"

#include "VrkTableTool.h"

#include <QEvent>
#include <QSplitter>
#include <QTableView>

PaneRoom::PaneRoom(QSplitter* splitter, const VrkTableTool* tool)
    : QObject(splitter), m_splitter(splitter), m_tool(tool)
{
    splitter->installEventFilter(this);
}

void PaneRoom::toggle()
{
    QWidget* panes = m_splitter->widget(1);
    m_byUser = true;
    show(!panes->isVisible());
    if (panes->isVisible())
        panes->setFocus();
}

void PaneRoom::show(bool isShown)
{
    QWidget* panes = m_splitter->widget(1);
    if (!isShown && panes->isAncestorOf(m_splitter->window()->focusWidget()))
        m_tool->tableView()->setFocus(); // hidden panes would keep the keyboard
    panes->setVisible(isShown);
}

bool PaneRoom::eventFilter(QObject* watched, QEvent* event)
{
    const bool isNews = event->type() == QEvent::Resize || event->type() == QEvent::Show ||
                        event->type() == QEvent::FontChange;
    if (watched == m_splitter && isNews && !m_byUser && !m_scheduled) {
        m_scheduled = true; // later: the table must first get the new font and size
        QMetaObject::invokeMethod(this, &PaneRoom::judge, Qt::QueuedConnection);
    }
    return false;
}

void PaneRoom::judge()
{
    m_scheduled = false;
    const int needed = m_tool->comfortableWidth();
    if (m_byUser || needed == 0 || !m_splitter->isVisible())
        return;
    QWidget* panes = m_splitter->widget(1);
    if (panes->isVisible())
        m_paneWidth =
            // the layout does not have the new font yet
            qMax(panes->width(), panes->minimumSizeHint().width());
    show(m_splitter->width() - m_paneWidth - m_splitter->handleWidth() >= needed);
}
