#pragma once

#include <QtNetwork/QTcpSocket>
#include <atomic>
#include <functional>
#include <future>
#include <thread>

/// A server on a port of this computer that handles connections with a function of the test, on its
/// own threads.
class ScriptedServer {
public:
    /// One connection, passed to the handling function.
    class Connection {
    public:
        Connection(QTcpSocket &socket, const std::atomic<bool> &isEnding);

        /// Waits for the next request. Returns it with its body, or empty if the client has closed.
        QByteArray readRequest();
        void send(const QByteArray &bytes);
        /// Sends a response with its Content-Length.
        void answer(const QByteArray &statusAndHeaders, const QByteArray &body = {});
        /// Sends nothing more until the client closes or the test ends.
        void waitUntilClosed();
        /// Sends `bytes` one after the other, with pauses, until the client closes or the test
        /// ends.
        void sendSlowly(const QByteArray &bytes);
        /// Waits until the client has sent anything or closed.
        void awaitBytes();
        /// Reads nothing more until the test ends.
        void ignore();
        /// Close the connection: in order, and as a server does that has crashed.
        void close();
        void reset();
        bool isOpen();

    private:
        QTcpSocket &m_socket;
        const std::atomic<bool> &m_isEnding;
        QByteArray m_received;
    };
    using Script = std::function<void(Connection &connection)>;

    enum class Order {
        OneAfterTheOther,
        /// Each connection has a thread of its own; the function must be thread-safe.
        AllAtOnce
    };

    explicit ScriptedServer(Script script, Order order = Order::OneAfterTheOther);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer &) = delete;
    ScriptedServer &operator=(const ScriptedServer &) = delete;

    quint16 port() const { return m_port; }
    /// "http://ida@127.0.0.1:PORT/PATH"
    QString URLText(const QString &path) const;
    /// The number of connections so far.
    int connections() const { return m_connections; }

private:
    void serve(std::promise<quint16> port);
    /// Serves the connection of the socket `descriptor`.
    void serveConnection(qintptr descriptor);

    const Script m_script;
    const Order m_order;
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_connections = 0;
    quint16 m_port = 0;
    std::thread m_thread;
};
