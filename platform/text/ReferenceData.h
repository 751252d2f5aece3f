#pragma once

#include "ParameterKind.h"

#include <memory>
#include <QDateTime>
#include <QObject>
#include <QVector>

class CVrkCliMod;
struct TEventNciParse;

/// Something that a parameter may refer to.
struct ReferenceItem {
    QString key;
    QString text;     ///< what the parameter shows
    QString detail;   ///< tells equal ones apart in a list
    QString folded;   ///< text and detail for searching
    bool near = true; ///< of the user's own department or below it
};

/// The reference data of a module's session as parameters need it: read at the first question, kept, and read again
/// after a change. One serves all fillers of a module. Without a session all answers are empty.
class ReferenceData : public QObject
{
    Q_OBJECT

public:
    /// The one of this module, made at the first call; it lives as long as the module. Null without a module.
    static ReferenceData* of(CVrkCliMod* module);
    ~ReferenceData() override;

    /// All items that a parameter of this kind can take, near ones first, otherwise by text. Valid until changed().
    const QVector<ReferenceItem>& items(ParameterKind kind);
    /// The workers of the open workshift of the user's department, as parameters of this kind of crew show them.
    QVector<ReferenceItem> crew(ParameterKind kind);
    /// The server's present time.
    QDateTime now() const;
    /// Key of the login's row.
    QString userKey() const;

    /// Drops what the event has made stale. Several fillers may hand in the same event.
    void MessageData(TEventNciParse* event);

signals:
    void changed();

private:
    explicit ReferenceData(CVrkCliMod* module);

    struct Private;
    std::unique_ptr<Private> d;
};
