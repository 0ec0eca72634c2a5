#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

/// A private message bus in a temporary folder, which starts no service. Failures throw
/// std::runtime_error.
class PrivateBus {
public:
    /// Starts the bus.
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    void start();
    /// Kills the bus.
    void stop();

    /// The same for each start.
    QString address() const { return m_address; }
    /// Returns this process's own connection to the bus. Must be called while the bus runs.
    QDBusConnection connection() const { return QDBusConnection(m_address); }

private:
    QTemporaryDir m_folder;
    const QString m_address;
    QProcess m_process;
};
