#pragma once

#include <QByteArray>
#include <QStringList>

struct CatalogTable;

/// The scripts of the schema. The steps and the log are written for each engine, the rules for writes of
/// persons once for both. A store is made by steps only, whether new or upgraded.
namespace SchemaScript
{
/// The version of the schema that this program writes and reads.
constexpr int version = 7;

/// A file of the folder schema; empty if it does not exist.
QByteArray file(const QByteArray& name);

/// A file that is executed for a table, with "%table"; "%key(NEW)", the key of a row; "%row(NEW)", by
/// \a rowOf; "%any{#}", the condition for any of the fields "#" that contain a fraction. Lines between
/// "-- IF fact fact" and "-- END IF" stay if all these facts are true: those that the caller gives, and
/// "keyed" (it has KeyLink), "tree" (of categories), "reals" (it has fields that contain a fraction),
/// "signed" (some of its changes are signatures: "%meaning" by signatures.sql, "%inserted" without OLD).
QByteArray ofTable(const QByteArray& name, const CatalogTable& table, QStringList facts,
                   QByteArray (*rowOf)(const CatalogTable& table, const QByteArray& alias));

/// What differs between the engines: the syntax of rules, in which the refusing statements of a rule are
/// placed between head and tail, and the triggers of the log.
struct Dialect {
    QByteArray engine; ///< how the names of its files begin
    /// with "%name", "%operation", "%table", "%condition" and "%row" (NEW, or OLD for a deletion)
    QByteArray head;
    QByteArray tail;
    QByteArray refuse; ///< "%text", with its quotes
    QByteArray logged; ///< "%values" of a row of the change log, and "%place" of the wanted value
    /// The triggers that log every change of a table and refuse changes that bypass the store.
    QByteArray (*logTriggers)(const CatalogTable& table);
};

/// The steps from version \a from to this version. A new store is made by all steps, from 0.
QByteArray steps(const QByteArray& engine, int from);

/// Everything that every upgrade recreates, for the tables as they are after the last step: functions and
/// views, the rules of rules.sql and of tables that persons may not write at all, the triggers of the log and
/// of the search.
QByteArray definitions(const Dialect& dialect);
} // namespace SchemaScript
