#pragma once

#include "CModelTable.h"

#include <QByteArray>
#include <QHash>
#include <QVector>

struct TEventNciParse;

/// What saves have written while their change events are on the way: tells one's own change that comes back from a
/// colleague's.
class SentEdits
{
public:
    /// The records of an edit table were written.
    void note(const CModelTable& edits);
    /// Whether an event brings back what was written under its key. That, and what was written before it, is forgotten.
    bool take(TEventNciParse* event);
    /// Whether something written under this key has not come back.
    bool isUnderWay(const QByteArray& key) const { return m_written.contains(key); }
    /// Whether the server already has the new record of this key.
    bool isInserted(const QByteArray& key) const;

    /// Whether a name or a text that the user changed is not the one of an event's row. False for null.
    static bool differs(const MDRData* edit, TEventNciParse* event);

private:
    struct Written {
        bool isNew;
        QVector<QPair<const char*, QByteArray>> values;
    };
    QHash<QByteArray, QVector<Written>> m_written;
};
