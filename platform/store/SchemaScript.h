#pragma once

#include <QByteArray>

/// The scripts of the schema and the rules of what persons may write, which are told once for both engines.
namespace SchemaScript
{
/// A file of the folder schema; empty when there is none.
QByteArray file(const char* name);

/// What makes a rule of one engine: the statements of a rule that refuse stand between the two.
struct Dialect {
    /// "%name", "%operation", "%table", "%condition" and "%row" (NEW, or OLD for a deletion) stand in them.
    QByteArray head;
    QByteArray tail;
    QByteArray refuse; ///< "%text", with its quotes
    QByteArray logged; ///< "%values" of a row of the change log, and "%place" of the one that is wanted
};

/// schema/rules.sql and the rules of the tables that persons do not write at all, as statements of an engine.
QByteArray rules(const Dialect& dialect);
} // namespace SchemaScript
