#pragma once

#include "ParameterKind.h"

#include <memory>
#include <QDateTime>
#include <QObject>
#include <QVector>

class CVrkCliMod;
struct TEventNciParse;

/// An item that a parameter may refer to.
struct ReferenceItem {
    QString key;
    QString text;     ///< text that the parameter shows
    QString detail;   ///< distinguishes equal texts in a list
    QString folded;   ///< text and detail in the form used for searching
    bool near = true; ///< in the user's own department or below it
};

/// The reference data of a module's session in the form that parameters need: read on demand, cached, and
/// read again after a change. All fillers of a module share one object. Without a session all answers are
/// empty.
class ReferenceData : public QObject
{
    Q_OBJECT

public:
    /// The object of this module, created on the first call; it lives as long as the module. Null without a
    /// module.
    static ReferenceData* of(CVrkCliMod* module);
    ~ReferenceData() override;

    /// All items that a parameter of this kind can refer to, near ones first, then sorted by text. Valid
    /// until changed().
    const QVector<ReferenceItem>& items(ParameterKind kind);
    /// The workers of the open workshift of the user's department, in the form that parameters of this kind
    /// of crew show.
    QVector<ReferenceItem> crew(ParameterKind kind);
    /// The server's current time.
    QDateTime now() const;
    /// Key of the login's row.
    QString userKey() const;

    /// Drops the data that the event makes stale. Several fillers may pass the same event.
    void MessageData(TEventNciParse* event);

signals:
    void changed();

private:
    explicit ReferenceData(CVrkCliMod* module);

    struct Private;
    std::unique_ptr<Private> d;
};
