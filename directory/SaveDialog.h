#pragma once

#include "DirectoryDraft.h"

#include <QDialog>

/// Shows what saving will do, and asks for it.
class SaveDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a note: what the administrator must know first; may be empty.
    SaveDialog(const DirectoryDraft& draft, const QString& note, QWidget* parent);
};

/// Shows the cells that somebody else changed, too, and asks whose shall stay. Accepted: a choice was made.
class ConflictDialog : public QDialog
{
    Q_OBJECT

public:
    ConflictDialog(const DirectoryDraft::Meanwhile& meanwhile, QWidget* parent);

    /// After the dialog was accepted: the cells of the store shall stay.
    bool wantsTheirs() const { return m_wantsTheirs; }

private:
    bool m_wantsTheirs = false;
};
