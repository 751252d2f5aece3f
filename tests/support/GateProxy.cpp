#include "GateProxy.h"

#include "TestFolder.h"
#include "UnixSocket.h"

#include <chrono>
#include <poll.h>
#include <QtEndian>

namespace
{
constexpr int napMs = 5;

/// The length of the first message in \a bytes, 0 while it is incomplete.
int messageLength(const QByteArray& bytes, bool isFirst)
{
    const int head = isFirst ? 0 : 1; // the start-up message has no type
    if (bytes.size() < head + 4)
        return 0;
    const int length = head + static_cast<int>(qFromBigEndian<quint32>(bytes.constData() + head));
    return bytes.size() < length ? 0 : length;
}
} // namespace

struct GateProxy::Link {
    int client = -1;
    int server = -1;
    int generation = 0;
    bool isStarted = false;
    bool swallowsAnswer = false;
    QByteArray waiting; ///< from the client, up to the end of a request
    QByteArray request;
};

GateProxy::GateProxy(const QString& serverFolder)
    : m_server(serverFolder),
      m_folder(testFolderTemplate()),
      m_listener(UnixSocket::listenIn(m_folder.path()))
{
    m_acceptor = std::thread([this] { accept(); });
}

GateProxy::~GateProxy()
{
    m_isEnding = true;
    m_acceptor.join();
    for (std::thread& carrier : m_carriers)
        carrier.join();
    ::close(m_listener);
}

void GateProxy::breakAt(int request, Place place, int refusals)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_left = request;
    m_place = place;
    m_nextRefusals = refusals;
    m_hasBroken = false;
}

void GateProxy::breakNow()
{
    ++m_generation;
}

void GateProxy::accept()
{
    while (!m_isEnding) {
        pollfd entry = {m_listener, POLLIN, 0};
        if (::poll(&entry, 1, napMs) <= 0)
            continue;
        const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0)
            continue;
        if (m_refusals > 0) {
            --m_refusals;
            ::close(client);
            continue;
        }
        m_carriers.emplace_back([this, client] { carry(client); });
    }
}

/// Passes one complete request on. False if the connection ends with it.
bool GateProxy::carryRequest(Link& link)
{
    for (;;) {
        const int length = messageLength(link.waiting, !link.isStarted);
        if (length == 0)
            return true;
        const char type = link.isStarted ? link.waiting.at(0) : 'p';
        link.isStarted = true;
        link.request += link.waiting.left(length);
        link.waiting.remove(0, length);
        if (!strchr("pQSX", type))
            continue; // a part of an extended query
        const QByteArray request = link.request;
        link.request.clear();
        bool isPlace = false;
        Place place = BeforeRequest;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            isPlace = m_left > 0 && --m_left == 0;
            if (isPlace) {
                place = m_place;
                m_refusals = m_nextRefusals;
                m_hasBroken = true;
            }
        }
        if (isPlace && place == Held) {
            ::close(link.client);
            link.client = -1;
            while (!m_isReleased && !m_isEnding)
                std::this_thread::sleep_for(std::chrono::milliseconds(napMs));
        }
        if (isPlace && place == BeforeRequest)
            return false;
        link.swallowsAnswer = isPlace;
        if (!UnixSocket::sendAll(link.server, request.constData(), request.size()))
            return false;
    }
}

void GateProxy::carry(int client)
{
    Link link;
    link.client = client;
    link.generation = m_generation;
    bool isOpen = UnixSocket::connectTo(m_server, &link.server);
    QByteArray buffer(65536, '\0');
    while (isOpen && !m_isEnding && link.generation == m_generation) {
        pollfd entries[2] = {{link.client, POLLIN, 0}, {link.server, POLLIN, 0}};
        if (::poll(entries, 2, napMs) < 0)
            break;
        if (entries[0].revents) {
            const ssize_t length = ::recv(link.client, buffer.data(), buffer.size(), 0);
            link.waiting += buffer.left(static_cast<int>(length));
            isOpen = length > 0 && carryRequest(link);
        }
        if (isOpen && entries[1].revents) {
            const ssize_t length = ::recv(link.server, buffer.data(), buffer.size(), 0);
            isOpen = length > 0 && !link.swallowsAnswer &&
                     UnixSocket::sendAll(link.client, buffer.constData(), length);
        }
    }
    if (link.client >= 0)
        ::close(link.client);
    ::close(link.server);
}
