#pragma once

#include "MDArray.h"

#include <QByteArray>
#include <QHash>

/// Counts of the records that bulk actions would touch, kept current record by record: the questions whether
/// there is one are asked at every event and must not walk over the table.
class RecordCensus
{
public:
    /// Whose records are mine. Set before the first record.
    void setWorkerKey(const QByteArray& key) { m_workerKey = key; }

    /// Counts the record, anew when it was counted before.
    void put(const MDRData* record);
    /// Forgets the record; call it before the record is deleted.
    void remove(const MDRData* record);
    void clear();

    bool hasDrafts() const { return m_drafts > 0; }
    bool hasMyDrafts() const { return m_myDrafts > 0; }
    /// Approved records of other workers: those that can take my visa.
    bool hasSignable() const { return m_signable > 0; }

    /// The rules themselves, for one record. A record without an author is nobody's and takes no visa.
    static bool isDraft(const MDRData* record);
    static bool isAuthor(const MDRData* record, const QByteArray& workerKey);
    static bool isSignable(const MDRData* record, const QByteArray& workerKey);

private:
    enum Trait { Draft = 1, MyDraft = 2, Signable = 4 };
    void count(int traits, int step);

    QByteArray m_workerKey;
    QHash<const MDRData*, int> m_traits;
    int m_drafts = 0;
    int m_myDrafts = 0;
    int m_signable = 0;
};
