#pragma once

#include <QtCore/QtGlobal>
#include <atomic>
#include <chrono>
#include <list>
#include <thread>

/// A line to a server on this computer, as long as one to a distant server: what is sent arrives
/// later, in both directions, and a connection takes a round trip to be made. The bandwidth is not
/// limited. Ends with the object. Failures end the process.
class DelayedLine {
public:
    /// `server` is the port of the server. `delay` is that of one direction.
    DelayedLine(quint16 server, std::chrono::milliseconds delay);
    ~DelayedLine();
    DelayedLine(const DelayedLine &) = delete;
    DelayedLine &operator=(const DelayedLine &) = delete;

    /// The port to connect to.
    quint16 port() const { return m_port; }

private:
    struct Connection;

    /// Forwards until the object is destroyed.
    void run();
    void accept();
    std::chrono::milliseconds untilNextArrival() const;

    const quint16 m_server;
    const std::chrono::milliseconds m_delay;
    int m_listener = -1;
    quint16 m_port = 0;
    std::list<Connection> m_connections;
    std::atomic_bool m_isEnding = false;
    std::thread m_thread;
};
