#pragma once

#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QSignalBlocker>

/// Keeps a selection model from telling that the current row moves while rows come and go under it; unblocks at the end
/// of its scope.
class QuietSelection
{
public:
    explicit QuietSelection(QItemSelectionModel* selection)
        : m_selection(selection),
          m_blocker(selection),
          m_current(selection->currentIndex()),
          m_hadCurrent(m_current.isValid())
    {
    }

    /// Ends the silence. True when another row, or none any more, is current than at its beginning.
    bool end()
    {
        m_blocker.unblock();
        return m_selection->currentIndex() != m_current || (m_hadCurrent && !m_current.isValid());
    }

private:
    QItemSelectionModel* m_selection;
    QSignalBlocker m_blocker;
    QPersistentModelIndex m_current;
    bool m_hadCurrent;
};
