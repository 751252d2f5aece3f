#pragma once

#include <QByteArray>

/// The scripts of the schema, and the rules for writes of persons, which are written once for both engines.
namespace SchemaScript
{
/// The version of the schema that this program writes and reads.
constexpr int version = 4;

/// A file of the folder schema; empty if it does not exist.
QByteArray file(const char* name);

/// The syntax of an engine's rules: the refusing statements of a rule are placed between head and end.
struct Dialect {
    /// with "%name", "%operation", "%table", "%condition" and "%row" (NEW, or OLD for a deletion)
    QByteArray head;
    QByteArray tail;
    QByteArray refuse; ///< "%text", with its quotes
    QByteArray logged; ///< "%values" of a row of the change log, and "%place" of the wanted value
};

/// schema/rules.sql and the rules of tables that persons may not write at all, as statements of an engine.
QByteArray rules(const Dialect& dialect);
} // namespace SchemaScript
