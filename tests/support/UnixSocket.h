#pragma once

#include <cstring>
#include <QString>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// Sockets of PostgreSQL in a folder, for proxies between a server and its clients.
namespace UnixSocket
{
inline sockaddr_un addressIn(const QString& folder)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, (folder + QStringLiteral("/.s.PGSQL.5432")).toLocal8Bit().constData(),
             sizeof address.sun_path);
    return address;
}

/// Ends the program if it cannot be created.
inline int listenIn(const QString& folder)
{
    const sockaddr_un address = addressIn(folder);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(listener, 400) != 0)
        qFatal("the proxy cannot listen");
    return listener;
}

/// A socket connected to the server in \a folder; false if there is none.
inline bool connectTo(const QString& folder, int* socket)
{
    const sockaddr_un address = addressIn(folder);
    *socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return ::connect(*socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

inline bool sendAll(int socket, const char* data, ssize_t length)
{
    while (length > 0) {
        const ssize_t sent = ::send(socket, data, static_cast<std::size_t>(length), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        data += sent;
        length -= sent;
    }
    return true;
}
} // namespace UnixSocket
