#pragma once

#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QSignalBlocker>

/// Blocks the signals of a selection model while rows are inserted and removed; unblocks them at the end of
/// its scope.
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

    /// Unblocks the signals. True if the current row differs from the one at the beginning.
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
