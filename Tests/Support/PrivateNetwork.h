#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QUdpSocket>

/// Gives this process and those that it starts a private network, with only the loopback interface,
/// and a private "/run". Both disappear with them. Must be called while the process has one thread.
/// Exits the process with CannotRunExitCode if the system does not allow it.
void enterPrivateNetwork();

/// Runs a program and blocks until it ends. Raises std::runtime_error with its output if it fails.
void runOrThrow(const QString &program, const QStringList &arguments);

/// A system bus with a discovery daemon, as a separate computer has them. This process uses them
/// while the object exists.
class DiscoveryDaemon {
public:
    /// `interface` is the only network interface that the daemon uses.
    explicit DiscoveryDaemon(const QString &hostName,
                             const QString &interface = QStringLiteral("lo"));
    ~DiscoveryDaemon();
    DiscoveryDaemon(const DiscoveryDaemon &) = delete;
    DiscoveryDaemon &operator=(const DiscoveryDaemon &) = delete;

    /// Each blocks until it is done.
    void startBus();
    void stopBus();
    void startDaemon();
    bool isDaemonRunning() const { return m_daemon.state() == QProcess::Running; }
    /// Stops the daemon, which withdraws its services.
    void stopDaemon();
    /// Kills the daemon, which withdraws nothing.
    void killDaemon();

private:
    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_daemon;
};

/// The name server of a private network, which replies to nothing. This process looks up names with
/// it while the object exists. Failures raise std::runtime_error.
class SilentNameServer {
public:
    /// Must be called in a private network.
    SilentNameServer();
    ~SilentNameServer();
    SilentNameServer(const SilentNameServer &) = delete;
    SilentNameServer &operator=(const SilentNameServer &) = delete;

    bool wasAsked() const { return m_socket.hasPendingDatagrams(); }

private:
    QTemporaryDir m_folder;
    QUdpSocket m_socket;
};
