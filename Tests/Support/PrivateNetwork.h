#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

/// What a test prints and ends with where it may not make network namespaces; the test's property
/// SKIP_RETURN_CODE makes ctest say so.
inline constexpr int NeedsRootExitCode = 77;

/// Gives this process, and those it starts, a network with nothing but the loopback interface, and
/// a
/// "/run" of their own. All of it is gone with them. Called first, while there is one thread. Ends
/// the process with a sentence where it cannot be done.
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
