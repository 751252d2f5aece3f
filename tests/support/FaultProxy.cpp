#include "FaultProxy.h"

#include "TestFolder.h"
#include "UnixSocket.h"

#include <algorithm>
#include <chrono>
#include <poll.h>
#include <random>

namespace
{
enum Fault { Passes, Delayed, Cut, HalfClosed, Frozen, Reset };
constexpr int napMs = 20;
constexpr int frozenMs = 5000;

void nap(int ms)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}
} // namespace

FaultProxy::FaultProxy(const QString& serverFolder, unsigned seed)
    : m_server(serverFolder),
      m_folder(testFolderTemplate()),
      m_seed(seed),
      m_listener(UnixSocket::listenIn(m_folder.path()))
{
    m_acceptor = std::thread([this] { accept(); });
}

FaultProxy::~FaultProxy()
{
    m_isEnding = true;
    m_acceptor.join();
    for (std::thread& carrier : m_carriers)
        carrier.join();
    ::close(m_listener);
}

void FaultProxy::accept()
{
    std::mt19937 seeds(m_seed);
    while (!m_isEnding) {
        pollfd entry = {m_listener, POLLIN, 0};
        if (::poll(&entry, 1, napMs) <= 0)
            continue;
        const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0)
            m_carriers.emplace_back(
                [this, client, seed = seeds()] { carry(client, static_cast<unsigned>(seed)); });
    }
}

void FaultProxy::carry(int client, unsigned seed)
{
    std::mt19937 random(seed);
    int server = -1;
    bool isOpen = UnixSocket::connectTo(m_server, &server);
    const auto fault = m_isHealed ? Passes : static_cast<Fault>(random() % 6);
    // The greeting is about a thousand bytes; half of the faults happen within the first few requests.
    long left = static_cast<long>(random() % (random() % 2 ? 6000 : 200000));
    bool isSpoilt = false;
    std::vector<char> buffer(65536);
    while (isOpen && !m_isEnding) {
        pollfd entries[2] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
        if (::poll(entries, 2, napMs) < 0)
            break;
        for (int way = 0; way < 2 && isOpen; ++way) {
            if (!(entries[way].revents & (POLLIN | POLLHUP | POLLERR)))
                continue;
            const int to = way == 0 ? server : client;
            ssize_t length = ::recv(entries[way].fd, buffer.data(), buffer.size(), 0);
            isOpen = length > 0;
            if (!isOpen || fault == Passes) {
                isOpen = isOpen && UnixSocket::sendAll(to, buffer.data(), length);
                continue;
            }
            if (fault == Delayed)
                nap(static_cast<int>(random() % 5));
            else
                left -= length;
            if (left > 0) {
                isOpen = UnixSocket::sendAll(to, buffer.data(), length);
                continue;
            }
            isSpoilt = true;
            switch (fault) {
            case Cut: // in the middle of a message
                UnixSocket::sendAll(to, buffer.data(), std::max<long>(0, length + left));
                break;
            case HalfClosed: // the server receives nothing more, its answer still arrives
                UnixSocket::sendAll(server, buffer.data(), way == 0 ? length : 0);
                ::shutdown(server, SHUT_WR);
                while ((length = ::recv(server, buffer.data(), buffer.size(), 0)) > 0 &&
                       UnixSocket::sendAll(client, buffer.data(), length)) {
                }
                break;
            case Frozen:
                for (int waited = 0; waited < frozenMs && !m_isEnding && !m_isHealed; waited += napMs)
                    nap(napMs);
                break;
            default: // closing with unread data resets
                break;
            }
            isOpen = false;
        }
        if (m_isHealed && fault != Passes)
            break;
    }
    m_faults += isSpoilt ? 1 : 0;
    ::close(client);
    ::close(server);
}
