#pragma once

#include "SheetImport.h"
#include "SheetModel.h"

#include <memory>
#include <QUndoStack>

/// The reference tables of a store while an administrator edits them: the sheets of people, roles, the timetable and
/// equipment, with what the store has and what the user wants. Checked, compared and written by SheetImport, as if the
/// user's rows came from files.
class DirectoryDraft : public QObject
{
    Q_OBJECT

public:
    /// A fault of a row.
    struct Fault {
        SheetModel* model;
        QByteArray key;
        CellFault fault;
    };
    /// A cell that the user and somebody else changed, in different ways.
    struct Conflict {
        SheetModel* model;
        QByteArray key;
        int column;
        QString theirs; ///< the cell that the store has now
    };
    /// What the store has got from others since load().
    struct Meanwhile {
        int rows = 0; ///< rows that differ
        QVector<Conflict> conflicts;
    };

    explicit DirectoryDraft(QObject* parent = nullptr);

    /// One for each sheet, in the order of the sheets.
    const QVector<SheetModel*>& models() const { return m_models; }
    QUndoStack* undo() { return &m_undo; }

    /// Reads the store; the user's edits are lost. False with \a error, then nothing changes.
    bool load(Store* store, StoreError* error);
    /// Takes all edits back.
    void drop();
    /// Whether there is anything to save.
    bool isEdited() const;
    /// Checks the edited rows against the store as it was read; no request. The models show the faults.
    const QVector<Fault>& check(Store* store);
    const QVector<Fault>& faults() const { return m_faults; }

    /// Reads the store again and compares it with what load() read. False with \a error.
    bool look(Store* store, Meanwhile* meanwhile, StoreError* error);
    /// Takes what look() read: rows of others appear, the user's edits stay. In conflicts the cells of the user stay, or
    /// those of the store if \a theirs. The undo stack becomes empty if there was a difference.
    void adopt(const Meanwhile& meanwhile, bool theirs);
    /// What save() did.
    struct Outcome {
        bool isWritten = false; ///< the store has the edits, also if something else failed
        int shared = 0; ///< written rows that somebody else changed, too, between look() and the write
    };
    /// Writes the edited rows in one transaction, then reads the store. Call look() and check() before. False with
    /// \a error.
    bool save(Store* store, const QString& url, Outcome* outcome, StoreError* error);

private:
    struct Line {
        SheetModel* model;
        QByteArray key;
    };

    /// An import of the edited rows. \a lines: for each file, the rows in the order of their lines.
    std::unique_ptr<SheetImport> import(Store* store, QHash<QString, QVector<Line>>* lines) const;
    void show(const Directory& directory);
    /// The rows among \a keys that more than one transaction has changed since look().
    int sharedRows(Store* store, const QSet<QByteArray>& keys) const;

    QVector<SheetModel*> m_models;
    QUndoStack m_undo;
    Directory m_base;      ///< as load() read it
    Directory m_shown;     ///< with the user's edits
    Directory m_fresh;     ///< as look() read it
    ChangePosition m_seen; ///< the end of the change log before that
    QVector<Fault> m_faults;
};
