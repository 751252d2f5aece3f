#pragma once

#include "OldShifts.h"

#include <QDir>

/// Writes the folder that keeps what leaves the journal: the changes of the rows with their proofs (EvidenceExport),
/// and the content of the files, which the change log does not have.
class OldShiftsExport
{
public:
    /// Both must outlive the object.
    OldShiftsExport(Store* store, const QVector<OldShifts::Shift>* shifts) : m_store(store), m_shifts(shifts)
    {
    }

    /// Fills a new folder, whose note for the reader says what it is \a about; when it returns, all is on the disk. False with \a error, also if a change is not sealed or
    /// a file is not the one in the log.
    bool write(const QDir& folder, const QString& about, StoreError* error);

private:
    bool writeEvidence(StoreError* error);
    bool writeFiles(StoreError* error);
    /// Whether the log has this content for the file.
    bool isLogged(const QByteArray& key, const QByteArray& hash, StoreError* error) const;
    bool put(const QString& name, const QByteArray& content, StoreError* error) const;

    Store* m_store;
    const QVector<OldShifts::Shift>* m_shifts;
    QDir m_folder;
};
