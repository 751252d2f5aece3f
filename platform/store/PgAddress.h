#pragma once

#include <QByteArray>
#include <QString>

/// How far the address of a server trusts it. A password goes only to a server that has proved who it is, unless the
/// address says otherwise or the server is on this machine.
namespace PgAddress
{
/// Whether a host, as it stands in an address, is this machine: nothing, a folder of sockets, a name of localhost, an
/// address of the loopback.
bool isThisMachine(const QByteArray& host);

/// The way of encryption: the one written in the address; else "verify-full" when a host is another machine; else
/// nothing, which leaves it to libpq.
QByteArray sslMode(const QString& url);

/// What a connection leaves unproved, in the user's words; empty when the server is this machine or has proved who it is.
QString caution(const QByteArray& host, const QByteArray& sslMode, bool isEncrypted);

/// Whether the words of a failed attempt to connect are about encryption and certificates. libpq has no code for it.
bool isAboutProof(const QString& words);
} // namespace PgAddress
