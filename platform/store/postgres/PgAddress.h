#pragma once

#include <QByteArray>
#include <QString>

/// How much a connection trusts the server of an address. A password is sent only to a server that has
/// proved its identity, unless the address says otherwise or the server is on this machine.
namespace PgAddress
{
/// Whether a host in an address is this machine: empty, a folder of sockets, a name of localhost, a
/// loopback address.
bool isThisMachine(const QByteArray& host);

/// The SSL mode: the one in the address; otherwise "verify-full" if a host is another machine; otherwise
/// empty, and libpq decides.
QByteArray sslMode(const QString& url);

/// What the server of a connection has not proved, in the user's words; empty if it is this machine or has
/// proved its identity.
QString caution(const QByteArray& host, const QByteArray& sslMode, bool isEncrypted);

/// Whether the error text of a failed connection attempt is about encryption or certificates. libpq has no
/// code for it.
bool isAboutProof(const QString& words);
} // namespace PgAddress
