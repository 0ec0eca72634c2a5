#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <functional>
#include <memory>

#include "Platform/Network/SystemBusProbe.h"

class QDBusPendingCall;

/// The connection of this process to the Avahi daemon over the system bus. Must be used on the main
/// thread. No function waits for the daemon or the bus, whose replies arrive from the event loop:
/// one that does not respond delays nothing. Shared by all searches, resolutions and publications,
/// and closed with the last of them. If the daemon or the system bus is not running or does not
/// respond, it is used when it does; if the connection is lost, it is made again.
class DiscoveryClient : public QObject {
    Q_OBJECT
public:
    /// Receives the reply or error of the daemon.
    using Handler = std::function<void(const QDBusMessage &reply)>;

    /// Returns the shared connection, which is created if there is none. Never null. Whether the
    /// daemon is available is known later.
    static std::shared_ptr<DiscoveryClient> shared();

    /// For shared(). The application object must exist.
    DiscoveryClient();
    ~DiscoveryClient() override;

    /// Returns whether the daemon has responded. call(), create() and listen() must be called only
    /// then.
    bool isAvailable() const { return m_isAvailable; }
    /// Returns whether the daemon has registered a host name for this computer, which publishing a
    /// service requires.
    bool isHostRegistered() const { return m_isHostRegistered; }
    /// Return the names that the daemon has registered. Valid while isHostRegistered() is true.
    QString hostName() const { return m_hostName; }
    QString domainName() const { return m_domainName; }

    /// Calls a method of the daemon's object `path`, and `handler` with the result, as late as it
    /// arrives. The handler is not called if `context`, which must not be null, is destroyed or the
    /// connection is lost before.
    void call(const QString &path, const QString &interface, const QString &method,
              const QVariantList &arguments, QObject *context, const Handler &handler);
    /// Calls a method of the daemon that creates an object, and `created` with its path, under the
    /// conditions of call(). The caller must free the object; one that is created when `context`
    /// has been destroyed is freed. If the daemon refuses, that is only logged.
    void create(const QString &method, const QVariantList &arguments, const QString &interface,
                QObject *context, const std::function<void(const QString &path)> &created);
    /// Frees an object that was created and not lost. Has no effect if `path` is empty.
    void free(const QString &path, const QString &interface);
    /// Connects a signal of the daemon's object `path`, or of all its objects if `path` is empty,
    /// to `slot` of `receiver`, until that is destroyed. A signal whose arguments do not have the
    /// types `signature` is ignored.
    void listen(const QString &path, const QString &interface, const QString &signal,
                const QString &signature, QObject *receiver, const char *slot);

Q_SIGNALS:
    /// Emitted when isAvailable() has become true.
    void available();
    /// Emitted when the connection is lost. Objects that were created no longer exist.
    void lost();
    /// Emitted when isHostRegistered() has changed, except by a loss of the connection.
    void hostRegisteredChanged();

private Q_SLOTS:
    void loseBus();
    void changeOwner(const QString &service, const QString &before, const QString &owner);
    void changeState(int state);

private:
    /// Connects to the system bus, which has just responded; tries again later if that fails.
    void connectToBus();
    void disconnectFromBus();
    /// Connects to the daemon, which has responded, unless the bus reports another one before.
    void askForOwner();
    /// Connects to the daemon with this name on the bus.
    void connectToDaemon(const QString &owner);
    /// Forgets the daemon and the replies that are expected. Emits lost() if it was available.
    void loseDaemon();
    /// Reads the name that `method` of the daemon returns into `name`, a member. The host is
    /// registered as soon as both names are known.
    void readName(const QString &method, QString &name);
    void forgetNames();
    void setHostRegistered(bool isHostRegistered);
    /// Calls `handler` with the result of `call` unless the connection is lost before.
    void await(const QDBusPendingCall &call, QObject *context, const Handler &handler);

    /// The name of the connection in this process.
    const QString m_name;
    QDBusConnection m_bus;
    /// The daemon's name on the bus; empty if it is not known to run.
    QString m_owner;
    /// Identifies the connection to the daemon; incremented when it is lost.
    quint64 m_number = 0;
    bool m_isAvailable = false;
    /// Whether the daemon has registered its names, which may not have been read.
    bool m_isRunning = false;
    bool m_isHostRegistered = false;
    QString m_hostName;
    QString m_domainName;
    SystemBusProbe m_probe;
    QTimer m_retry;
};
