#pragma once

#include "LogHistory.h"
#include "Sheet.h"
#include "Store.h"

#include <QHash>
#include <QVariant>

/// One row of a table of the store in memory.
struct DirectoryRow {
    QByteArray key;
    QHash<QByteArray, QVariant>
        values; ///< texts as QString, numbers, flags and times; null values are absent

    QString text(const QByteArray& field) const { return values.value(field).toString(); }
    QByteArray reference(const QByteArray& field) const { return values.value(field).toByteArray(); }
    bool retired() const { return values.value("deleted_").toBool(); }
};

/// The tables of all sheets in memory, with the names by which people identify their rows: a row's own
/// name, or its name after the names of its owners ("Owner / Name"), or its key.
class Directory
{
public:
    /// False if the store cannot be read.
    bool load(Store* store, StoreError* error);
    /// The rows as they were after a transaction of the change log. False if the log cannot be read.
    bool load(LogHistory* history, qint64 number);

    /// Sorted by label.
    QVector<const DirectoryRow*> rows(const QByteArray& table) const;
    const DirectoryRow* row(const QByteArray& table, const QByteArray& key) const;
    /// Adds a row or replaces the one with its key.
    void put(const QByteArray& table, const DirectoryRow& row);

    /// The full name of a row, which begins with its owners.
    QString label(const QByteArray& table, const DirectoryRow& row) const;
    /// The shortest name that resolve() finds.
    QString reference(const QByteArray& table, const QByteArray& key,
                      const QByteArray& department = {}) const;
    /// The rows that \a text may refer to; normally one. They must belong to \a department if it is given.
    QVector<QByteArray> resolve(const QByteArray& table, const QString& text,
                                const QByteArray& department = {}) const;
    /// The most similar existing name for an unknown one; empty if none is similar.
    QString nearest(const QByteArray& table, const QString& text, const QByteArray& department = {}) const;
    /// The key of the row with the same identity as \a row, or empty, as for tables that identify rows only
    /// by key. If there are several, the one that is not retired.
    QByteArray same(const QByteArray& table, const DirectoryRow& row) const;
    /// True if the row is its own owner, directly or through others.
    bool ownsItself(const QByteArray& table, const QByteArray& key, const QByteArray& field) const;

    /// Rows of UserRights of the user: name of the right to the row's key.
    QHash<QString, QByteArray> rights(const QByteArray& user) const { return m_rights.value(user); }

private:
    struct Table {
        QHash<QByteArray, DirectoryRow> rows;
        QMultiHash<QString, QByteArray> names;
        QMultiHash<QString, QByteArray> identities;
        bool stale = true;
    };

    QString label(const QByteArray& table, const DirectoryRow& row, int depth) const;
    void enter(const QByteArray& table, const DirectoryRow& row) const;
    void addRight(const DirectoryRow& row)
    {
        m_rights[row.reference("UserKey")].insert(row.text("rightName"), row.key);
    }
    const Table& indexed(const QByteArray& table) const;

    mutable QHash<QByteArray, Table> m_tables;
    QHash<QByteArray, QHash<QString, QByteArray>> m_rights;
};
