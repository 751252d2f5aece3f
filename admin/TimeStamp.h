#pragma once

#include "StoreError.h"

#include <QByteArray>
#include <QString>

/// Time stamps (RFC 3161) for the notes of heads, made and checked by the program openssl. The authority is reached by a
/// command of the site or by a courier; this program uses no network for it.
namespace TimeStamp
{
/// A request for a stamp of \a note.
bool request(const QByteArray& note, QByteArray* query, StoreError* error);
/// Passes the request to a command of the shell and returns its output. A command that takes longer than \a seconds is
/// ended with all its processes.
bool ask(const QString& command, const QByteArray& query, int seconds, QByteArray* response,
         StoreError* error);
/// Whether a response can be one for \a note; verify() proves it.
bool isFor(const QByteArray& response, const QByteArray& note);
/// Whether the response stamps exactly \a note, by an authority that the certificates in \a caFile vouch for.
bool verify(const QByteArray& note, const QByteArray& response, const QString& caFile, StoreError* error);
} // namespace TimeStamp
