#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

/// Gives this process and those that it starts a private network, with only the loopback interface,
/// and a private "/run". Both disappear with them. Must be called while the process has one thread.
/// Exits the process with CannotRunExitCode if the system does not allow it.
void enterPrivateNetwork();

/// Runs a program to its end; raises std::runtime_error with its output where it fails.
void runOrThrow(const QString &program, const QStringList &arguments);

/// A system bus and a discovery daemon on it, as a computer of its own has them. This process uses
/// them from the making on.
class DiscoveryDaemon {
public:
    /// `interface`: the only one on which it speaks.
    explicit DiscoveryDaemon(const QString &hostName,
                             const QString &interface = QStringLiteral("lo"));
    ~DiscoveryDaemon();
    DiscoveryDaemon(const DiscoveryDaemon &) = delete;
    DiscoveryDaemon &operator=(const DiscoveryDaemon &) = delete;

    /// Each waits until it is done.
    void startBus();
    void stopBus();
    void startDaemon();
    /// It says good-bye.
    void stopDaemon();
    /// It does not.
    void killDaemon();

private:
    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_daemon;
};
