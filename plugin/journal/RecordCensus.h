#pragma once

#include "MDArray.h"

#include <QByteArray>
#include <QHash>

/// Numbers of the records that bulk actions would change, updated record by record: at every event they
/// decide which actions are enabled, which must not scan the table.
class RecordCensus
{
public:
    /// The author of "my" records. Set it before the first record.
    void setWorkerKey(const QByteArray& key) { m_workerKey = key; }
    const QByteArray& workerKey() const { return m_workerKey; }

    /// Counts the record, or counts it again after a change.
    void put(const MDRData* record);
    /// Removes the record from the counts; call it before the record is deleted.
    void remove(const MDRData* record) { count(m_traits.take(record), -1); }
    void clear();

    bool hasDrafts() const { return m_drafts > 0; }
    bool hasMyDrafts() const { return m_myDrafts > 0; }
    /// Approved records of other workers: those on which the user can set a visa.
    bool hasSignable() const { return m_signable > 0; }

    /// The rules for one record. A record without an author belongs to nobody and cannot get a visa.
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
