#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtNetwork/QLocalSocket>
#include <chrono>

/// Finds out whether the system bus responds, on a connection of its own, before Qt connects to it:
/// Qt serves the connections to all buses on one thread, and connecting to a bus that accepts
/// connections but does not respond holds that thread and the caller for 25 s. Must be used on one
/// thread. The destructor does not wait.
class SystemBusProbe : public QObject {
    Q_OBJECT
public:
    explicit SystemBusProbe(QObject *parent = nullptr);
    ~SystemBusProbe() override;

    /// Sends a request to the bus, without waiting for it; ended() is emitted with the result,
    /// perhaps within this call. Must not be called again before that.
    void start();
    /// Sends a request to the bus and returns whether it has responded. Blocks for at most
    /// `timeout`.
    static bool responds(std::chrono::milliseconds timeout);

Q_SIGNALS:
    /// Emitted once for each start(): when the bus has responded, as late as that is, or when it
    /// has refused or ended the connection or is not running. `isResponding` is also true if the
    /// address of the bus is not that of one socket in a folder, so that it cannot be asked.
    void ended(bool isResponding);

private:
    void authenticate();
    void readReply();
    void end(bool isResponding);

    QLocalSocket m_socket;
    QByteArray m_received;
    bool m_isAsking = false;
    bool m_isAuthenticated = false;
};
