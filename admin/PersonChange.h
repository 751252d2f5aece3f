#pragma once

#include "Directory.h"

/// Changes of persons that keep what they wrote: their rows in Workers remain, marked as removed, and no row of the
/// journal is touched, so neither signatures nor sealed history change. For a store opened in the role of imports.
class PersonChange
{
public:
    /// Both must outlive the object.
    PersonChange(Store* loader, const Directory* directory) : m_store(loader), m_directory(directory) {}

    /// Closes a login and marks its rows of Workers. False with \a error, also if the person is in an open shift, which
    /// he could not close any more.
    bool retire(const QString& login, StoreError* error);
    /// Opens the login again, with the rows that the last retirement marked. False with \a error.
    bool reinstate(const QString& login, StoreError* error);

    /// Joins two rows of one person in one department: the row \a lose gets the person of \a keep and is marked, its
    /// roles go to \a keep. A login that has no other row is closed.
    struct Merge {
        QByteArray keep; ///< rows of Workers
        QByteArray lose;
        QStringList effects; ///< what would be written, for the user
        QString refusal;     ///< why it is impossible; empty if it is possible
        QString closedLogin; ///< empty if none
    };
    /// Fills everything but the rows. False if the store cannot be read.
    bool plan(Merge* merge, StoreError* error);
    /// Writes a planned merge that is possible.
    bool write(const Merge& merge, StoreError* error);

    /// The row of Users with this login; null if there is none.
    const DirectoryRow* user(const QString& login) const;

private:
    qint64 number(const QByteArray& sql, StoreError* error) const;
    /// The rows of Workers of a person, with the removed ones.
    QVector<const DirectoryRow*> workersOf(const QByteArray& user) const;
    bool isOnDuty(const QVector<const DirectoryRow*>& workers, StoreError* error) const;
    bool mark(const DirectoryRow& user, const QVector<QByteArray>& workers, bool removed, const char* deed,
              StoreError* error);
    /// Why the merged rows could not be those of one person; empty without a reason.
    QString conflict(const Merge& merge, StoreError* error) const;

    Store* m_store;
    const Directory* m_directory;
};
