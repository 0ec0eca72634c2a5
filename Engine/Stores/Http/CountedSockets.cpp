#include "Engine/Stores/Http/CountedSockets.h"

#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <numeric>

curl_socket_t CountedSockets::open(const curl_sockaddr &address) {
    const curl_socket_t opened =
        socket(address.family, address.socktype | SOCK_CLOEXEC, address.protocol);
    if (opened >= 0) {
        m_open.push_back(opened);
    }
    return opened >= 0 ? opened : CURL_SOCKET_BAD;
}

void CountedSockets::close(curl_socket_t socket) {
    m_receivedByClosed += receivedAt(socket);
    m_open.erase(std::remove(m_open.begin(), m_open.end(), socket), m_open.end());
    ::close(socket);
}

qint64 CountedSockets::received() const {
    return std::accumulate(m_open.begin(), m_open.end(), m_receivedByClosed,
                           [](qint64 sum, curl_socket_t each) { return sum + receivedAt(each); });
}

qint64 CountedSockets::receivedAt(curl_socket_t socket) {
    // A kernel that knows less of it writes less.
    tcp_info info{};
    socklen_t size = sizeof info;
    const bool isCounted = getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) == 0;
    return isCounted ? static_cast<qint64>(info.tcpi_bytes_received) : 0;
}
