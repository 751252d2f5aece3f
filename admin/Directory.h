#pragma once

#include "Sheet.h"
#include "Store.h"

#include <QHash>
#include <QVariant>

/// One row of a table of the store in memory.
struct DirectoryRow {
    QByteArray key;
    QHash<QByteArray, QVariant>
        values; ///< texts as QString, numbers, flags and times; null ones are not there

    QString text(const QByteArray& field) const { return values.value(field).toString(); }
    QByteArray reference(const QByteArray& field) const { return values.value(field).toByteArray(); }
    bool retired() const { return values.value("deleted_").toBool(); }
};

/// The tables of all sheets in memory, with the names by which people call their rows: a row is called by its own name,
/// or by that with the names of its owners in front ("Owner / Name"), or by its key.
class Directory
{
public:
    /// False when the store cannot be read.
    bool load(Store* store, StoreError* error);

    /// In the order of their labels.
    QVector<const DirectoryRow*> rows(const QByteArray& table) const;
    const DirectoryRow* row(const QByteArray& table, const QByteArray& key) const;
    /// Takes a row in or puts it in place of the one with its key.
    void put(const QByteArray& table, const DirectoryRow& row);

    /// The full name of a row: owners first.
    QString label(const QByteArray& table, const DirectoryRow& row) const;
    /// The shortest name that resolve() understands.
    QString reference(const QByteArray& table, const QByteArray& key,
                      const QByteArray& department = {}) const;
    /// The rows that \a text may mean; one when all is well. \a department, where given, is the one they belong to.
    QVector<QByteArray> resolve(const QByteArray& table, const QString& text,
                                const QByteArray& department = {}) const;
    /// The name that was probably meant by one that nothing is called; empty when none is like it.
    QString nearest(const QByteArray& table, const QString& text, const QByteArray& department = {}) const;
    /// The key of the row that has the identity of \a row, or empty, as for tables that know rows by their keys alone. Of several the one that is not retired.
    QByteArray same(const QByteArray& table, const DirectoryRow& row) const;
    /// True when the row is its own owner over some others.
    bool ownsItself(const QByteArray& table, const QByteArray& key, const QByteArray& field) const;

    /// Rows of UserRights by the user: name of the right to the row's key.
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
    const Table& indexed(const QByteArray& table) const;

    mutable QHash<QByteArray, Table> m_tables;
    QHash<QByteArray, QHash<QString, QByteArray>> m_rights;
};
