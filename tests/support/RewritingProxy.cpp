#include "RewritingProxy.h"

#include "UnixSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>

namespace
{
constexpr int napMs = 5;

sockaddr* general(sockaddr_in* address)
{
    return reinterpret_cast<sockaddr*>(address);
}
} // namespace

RewritingProxy::RewritingProxy(const QString& serverFolder, const QVector<Rewriting>& rewritings)
    : m_server(serverFolder),
      m_rewritings(rewritings),
      m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    for (const Rewriting& rewriting : rewritings)
        if (rewriting.first.size() != rewriting.second.size())
            qFatal("a rewriting changes the length");
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (::bind(m_listener, general(&address), length) != 0 || ::listen(m_listener, 10) != 0 ||
        ::getsockname(m_listener, general(&address), &length) != 0)
        qFatal("the proxy cannot listen");
    m_port = ntohs(address.sin_port);
    m_acceptor = std::thread([this] { accept(); });
}

RewritingProxy::~RewritingProxy()
{
    m_isEnding = true;
    m_acceptor.join();
    for (std::thread& carrier : m_carriers)
        carrier.join();
    ::close(m_listener);
}

QString RewritingProxy::url(const QString& database, const QString& host) const
{
    return QStringLiteral("postgresql://postgres@%1:%2/%3?sslmode=disable")
        .arg(host)
        .arg(m_port)
        .arg(database);
}

void RewritingProxy::accept()
{
    while (!m_isEnding) {
        pollfd entry = {m_listener, POLLIN, 0};
        if (::poll(&entry, 1, napMs) <= 0)
            continue;
        const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0)
            m_carriers.emplace_back([this, client] { carry(client); });
    }
}

void RewritingProxy::carry(int client)
{
    int server = -1;
    bool isOpen = UnixSocket::connectTo(m_server, &server);
    QByteArray buffer(65536, '\0');
    while (isOpen && !m_isEnding) {
        pollfd entries[2] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
        if (::poll(entries, 2, napMs) < 0)
            break;
        for (int way = 0; way < 2 && isOpen; ++way) {
            if (!entries[way].revents)
                continue;
            const ssize_t length =
                ::recv(entries[way].fd, buffer.data(), static_cast<std::size_t>(buffer.size()), 0);
            QByteArray reported = buffer.left(static_cast<int>(length));
            for (const Rewriting& rewriting : m_rewritings)
                reported.replace(rewriting.first, rewriting.second);
            isOpen = length > 0 &&
                     UnixSocket::sendAll(way == 0 ? server : client, reported.constData(), reported.size());
        }
    }
    ::close(client);
    ::close(server);
}
