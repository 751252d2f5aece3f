#pragma once

#include "VrkExport.h"

#include <QByteArrayList>
#include <QString>
#include <QVariant>
#include <QVector>

/// One change of one row, as the change log of the store has it.
struct VRK_EXPORT RowChange {
    enum Event { Inserted = 601, Changed = 602, Removed = 603 };

    /// Whether the store has signed the change in the log, as it does with a visa, an approval or a closing.
    struct Signature {
        enum State {
            NotNeeded,       ///< the change is none of these, or nobody has looked
            Signed,          ///< by the person below
            ByAdministrator, ///< without one: an import or a command of vrk-admin
            BeforeFirst,     ///< without one: at that time no changes were signed
            Missing          ///< there is none, or it is that of another text
        };
        State state = NotNeeded;
        QString meaning; ///< in the user's words, such as "виза"
        QString person;
        QString login;
        double time = 0; ///< HfnTime

        /// Why there is no signature, in the user's words.
        QString lack() const;
    };

    qint64 number = 0;            ///< of the transaction
    double time = 0;              ///< of its commit (HfnTime)
    QString login;                ///< who wrote it
    bool isAdministrator = false; ///< by vrk-admin; the login is then that of the server or the machine
    QString reason;               ///< the administrator's reason; usually empty
    QByteArray table;
    QByteArray key;
    int event = 0;
    QByteArrayList fields;    ///< names, in the order of the values
    QVector<QVariant> before; ///< empty if there was no row
    QVector<QVariant> after;  ///< empty if there is no row any more
    Signature signature;

    /// The value of a field before the change and after it: texts as QString, times and numbers as such, the bytes of
    /// a file as a QVariantMap of "sha256" (hexadecimal) and "length"; invalid for null and without a row.
    QVariant was(const char* field) const { return before.value(fields.indexOf(field)); }
    QVariant is(const char* field) const { return after.value(fields.indexOf(field)); }
    bool differs(const char* field) const { return !isSame(was(field), is(field)); }
    /// The places of the fields whose values differ; of a row that was inserted or removed, of all that are not null.
    QVector<int> differences() const;
    /// What was done, in the user's words, such as "Поставлена виза".
    QString deed() const;
    /// The name of a field for the user; its own name if it has no other.
    static QString title(const QByteArray& field);

    /// Null differs from an empty text.
    static bool isSame(const QVariant& one, const QVariant& other)
    {
        return one.isValid() == other.isValid() && one == other;
    }
};
