#include "Benchmarks/DelayedLine.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <deque>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

/// How often the thread looks whether the line has ended.
constexpr std::chrono::milliseconds LookInterval{50};

int require(int result, const char *what) {
    if (result < 0) {
        qFatal("%s failed", what);
    }
    return result;
}

sockaddr_in loopback(quint16 port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int newSocket() {
    const int made = require(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
    return made;
}

void sendAtOnce(int socket) {
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

/// One direction of a connection.
struct Direction {
    struct Piece {
        Clock::time_point arrival;
        /// Empty at the end.
        std::string bytes;
    };

    int from = -1;
    int to = -1;
    /// When the connection is made.
    Clock::time_point start;
    std::deque<Piece> pieces = {};
    bool hasEnded = false;

    void take(std::chrono::milliseconds delay) {
        std::array<char, 65536> buffer = {};
        const ssize_t count = recv(from, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
            return;
        }
        hasEnded = count <= 0;
        pieces.push_back(
            {std::max(Clock::now(), start) + delay,
             std::string(buffer.data(), static_cast<size_t>(std::max<ssize_t>(count, 0)))});
    }

    /// Delivers what has arrived. Returns false if that was the end.
    bool deliver() {
        while (!pieces.empty() && pieces.front().arrival <= Clock::now()) {
            const std::string bytes = std::move(pieces.front().bytes);
            pieces.pop_front();
            for (size_t sent = 0; sent < bytes.size();) {
                const ssize_t count =
                    send(to, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
                if (count <= 0) {
                    return false;
                }
                sent += static_cast<size_t>(count);
            }
            if (bytes.empty()) {
                return false;
            }
        }
        return true;
    }
};

}  // namespace

struct DelayedLine::Connection {
    Direction there;
    Direction back;

    Connection(const Direction &one, const Direction &other) : there(one), back(other) {}
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() {
        close(there.from);
        close(there.to);
    }
};

DelayedLine::DelayedLine(quint16 server, std::chrono::milliseconds delay)
    : m_server(server), m_delay(delay), m_listener(newSocket()) {
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    auto *const any = reinterpret_cast<sockaddr *>(&address);
    require(bind(m_listener, any, size), "bind");
    require(listen(m_listener, SOMAXCONN), "listen");
    require(getsockname(m_listener, any, &size), "getsockname");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { run(); });
}

DelayedLine::~DelayedLine() {
    m_isEnding = true;
    m_thread.join();
    close(m_listener);
}

void DelayedLine::accept() {
    const int client = require(accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC), "accept");
    const int server = newSocket();
    const sockaddr_in address = loopback(m_server);
    require(connect(server, reinterpret_cast<const sockaddr *>(&address), sizeof address),
            "connect");
    sendAtOnce(client);
    sendAtOnce(server);
    const auto start = Clock::now() + 2 * m_delay;
    m_connections.emplace_back(Direction{client, server, start}, Direction{server, client, start});
}

std::chrono::milliseconds DelayedLine::untilNextArrival() const {
    auto wait = LookInterval;
    for (const Connection &connection : m_connections) {
        for (const Direction *direction : {&connection.there, &connection.back}) {
            if (!direction->pieces.empty()) {
                const auto left = direction->pieces.front().arrival - Clock::now();
                wait = std::clamp(std::chrono::ceil<std::chrono::milliseconds>(left),
                                  std::chrono::milliseconds(0), wait);
            }
        }
    }
    return wait;
}

void DelayedLine::run() {
    while (!m_isEnding) {
        std::vector<pollfd> polled{{m_listener, POLLIN, 0}};
        std::vector<Direction *> directions{nullptr};
        for (Connection &connection : m_connections) {
            for (Direction *direction : {&connection.there, &connection.back}) {
                if (!direction->hasEnded) {
                    polled.push_back({direction->from, POLLIN, 0});
                    directions.push_back(direction);
                }
            }
        }
        poll(polled.data(), polled.size(), static_cast<int>(untilNextArrival().count()));
        for (size_t i = 1; i < polled.size(); ++i) {
            if (polled[i].revents != 0) {
                directions[i]->take(m_delay);
            }
        }
        m_connections.remove_if([](Connection &connection) {
            return !connection.there.deliver() || !connection.back.deliver();
        });
        if (polled[0].revents != 0) {
            accept();
        }
    }
}
