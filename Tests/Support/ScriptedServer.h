#pragma once

#include <QtCore/QThread>
#include <QtNetwork/QTcpSocket>
#include <atomic>
#include <functional>
#include <future>
#include <memory>

/// A server on a port of this computer that answers each connection as a test's function says, one
/// after the other, on a thread of its own.
class ScriptedServer {
public:
    /// One connection, for the function that answers it.
    class Connection {
    public:
        Connection(QTcpSocket &socket, const std::atomic<bool> &isEnding);

        /// The next request with its body; empty when the client has closed.
        QByteArray readRequest();
        void send(const QByteArray &bytes);
        /// Sends an answer with its length.
        void answer(const QByteArray &statusAndHeaders, const QByteArray &body = {});
        /// Says nothing more until the client closes, or the test is over.
        void waitUntilClosed();
        bool isOpen();

    private:
        QTcpSocket &m_socket;
        const std::atomic<bool> &m_isEnding;
        QByteArray m_received;
    };
    using Script = std::function<void(Connection &connection)>;

    explicit ScriptedServer(Script script);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer &) = delete;
    ScriptedServer &operator=(const ScriptedServer &) = delete;

    quint16 port() const { return m_port; }
    /// "http://ida@127.0.0.1:PORT/PATH"
    QString URLText(const QString &path) const;
    /// How many connections there were.
    int connections() const { return m_connections; }

private:
    void serve(std::promise<quint16> port);

    const Script m_script;
    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_connections = 0;
    quint16 m_port = 0;
    std::unique_ptr<QThread> m_thread;
};
