#pragma once

#include "CModelTable.h"

#include <QByteArray>
#include <QHash>
#include <QVector>

struct TEventNciParse;

/// The changes written by saves whose events have not arrived yet: distinguishes own changes from a
/// colleague's.
class SentEdits
{
public:
    /// Call it after the records of an edit table were written.
    void note(const CModelTable& edits);
    /// Whether an event contains what was written under its key. Forgets that write and all earlier ones.
    bool take(TEventNciParse* event);
    /// Whether an event for this key is still to come.
    bool isUnderWay(const QByteArray& key) const { return m_written.contains(key); }
    /// Whether the server already has the new record of this key.
    bool isInserted(const QByteArray& key) const;

    /// Whether a name or a text that the user changed differs from that of an event's row. False for null.
    static bool differs(const MDRData* edit, TEventNciParse* event);

private:
    struct Written {
        bool isNew;
        QVector<QPair<const char*, QByteArray>> values;
    };
    QHash<QByteArray, QVector<Written>> m_written;
};
