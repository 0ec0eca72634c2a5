#include "Platform/Network/DiscoveryClient.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtCore/QUuid>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <chrono>
#include <limits>
#include <utility>

#include "Platform/Network/AvahiBus.h"

namespace {

// Interval of attempts while the system bus is not running. One that responds late, and a daemon
// that starts, are noticed.
constexpr std::chrono::seconds RetryInterval(2);

// A daemon that responds late is used then; the bus reports one that ends.
constexpr int NoTimeout = std::numeric_limits<int>::max();

/// Maximum number of characters of a domain name (RFC 1035, section 2.3.4).
constexpr qsizetype LongestDomainName = 255;

const QString BusService = QStringLiteral("org.freedesktop.DBus");
const QString BusPath = QStringLiteral("/org/freedesktop/DBus");
const QString LocalPath = QStringLiteral("/org/freedesktop/DBus/Local");
const QString LocalInterface = QStringLiteral("org.freedesktop.DBus.Local");

void warnOfRefusal(const QString &method, const QDBusMessage &reply) {
    qWarning().noquote()
        << QStringLiteral("Avahi has refused “%1”: %2").arg(method, reply.errorMessage());
}

}  // namespace

std::shared_ptr<DiscoveryClient> DiscoveryClient::shared() {
    static std::weak_ptr<DiscoveryClient> current;
    std::shared_ptr<DiscoveryClient> client = current.lock();
    if (!client) {
        client = std::make_shared<DiscoveryClient>();
        current = client;
    }
    return client;
}

DiscoveryClient::DiscoveryClient()
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)), m_bus(m_name) {
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryInterval);
    connect(&m_retry, &QTimer::timeout, &m_probe, &SystemBusProbe::start);
    connect(&m_probe, &SystemBusProbe::ended, this, [this](bool isResponding) {
        if (isResponding) {
            connectToBus();
        } else {
            m_retry.start();
        }
    });
    m_probe.start();
}

DiscoveryClient::~DiscoveryClient() {
    disconnectFromBus();
}

void DiscoveryClient::connectToBus() {
    m_bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, m_name);
    if (!m_bus.isConnected()) {
        disconnectFromBus();
        m_retry.start();
        return;
    }
    m_bus.connect(QString(), LocalPath, LocalInterface, QStringLiteral("Disconnected"), this,
                  SLOT(loseBus()));
    m_bus.connect(BusService, BusPath, BusService, QStringLiteral("NameOwnerChanged"),
                  QStringList{AvahiBus::Service}, QStringLiteral("sss"), this,
                  SLOT(changeOwner(QString, QString, QString)));
    // The bus starts a daemon that does not run, if it can.
    const QDBusMessage request =
        QDBusMessage::createMethodCall(AvahiBus::Service, AvahiBus::ServerPath,
                                       AvahiBus::ServerInterface, QStringLiteral("GetAPIVersion"));
    await(m_bus.asyncCall(request, NoTimeout), this, [this](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) {
            askForOwner();
        }
    });
}

void DiscoveryClient::askForOwner() {
    QDBusMessage request = QDBusMessage::createMethodCall(BusService, BusPath, BusService,
                                                          QStringLiteral("GetNameOwner"));
    request.setArguments({AvahiBus::Service});
    // Not every version of Qt states the sender of a reply.
    await(m_bus.asyncCall(request, NoTimeout), this, [this](const QDBusMessage &reply) {
        if (const QString owner = reply.arguments().value(0).toString();
            reply.type() == QDBusMessage::ReplyMessage && !owner.isEmpty()) {
            connectToDaemon(owner);
        }
    });
}

void DiscoveryClient::disconnectFromBus() {
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_name);
}

void DiscoveryClient::loseBus() {
    loseDaemon();
    disconnectFromBus();
    m_retry.start();
}

void DiscoveryClient::changeOwner(const QString & /*service*/, const QString & /*before*/,
                                  const QString &owner) {
    loseDaemon();
    if (!owner.isEmpty()) {
        connectToDaemon(owner);
    }
}

void DiscoveryClient::connectToDaemon(const QString &owner) {
    m_owner = owner;
    listen(AvahiBus::ServerPath, AvahiBus::ServerInterface, QStringLiteral("StateChanged"),
           QStringLiteral("is"), this, SLOT(changeState(int)));
    call(AvahiBus::ServerPath, AvahiBus::ServerInterface, QStringLiteral("GetState"), {}, this,
         [this](const QDBusMessage &reply) {
             if (reply.type() == QDBusMessage::ReplyMessage) {
                 changeState(reply.arguments().value(0).toInt());
             }
         });
}

void DiscoveryClient::loseDaemon() {
    ++m_number;
    m_owner.clear();
    m_isHostRegistered = false;
    forgetNames();
    if (std::exchange(m_isAvailable, false)) {
        Q_EMIT lost();
    }
}

void DiscoveryClient::changeState(int state) {
    if (!std::exchange(m_isAvailable, true)) {
        Q_EMIT available();
    }
    m_isRunning = state == AvahiBus::ServerRunning;
    if (!m_isRunning) {
        forgetNames();
        setHostRegistered(false);
        return;
    }
    readName(QStringLiteral("GetHostName"), m_hostName);
    readName(QStringLiteral("GetDomainName"), m_domainName);
}

void DiscoveryClient::readName(const QString &method, QString &name) {
    call(AvahiBus::ServerPath, AvahiBus::ServerInterface, method, {}, this,
         [this, method, &name](const QDBusMessage &reply) {
             // The argument of an error is its text.
             const bool isNamed = reply.type() == QDBusMessage::ReplyMessage;
             if (!isNamed) {
                 warnOfRefusal(method, reply);
             }
             name = isNamed ? reply.arguments().value(0).toString().left(LongestDomainName)
                            : QString();
             // The replies arrive in any order.
             setHostRegistered(m_isRunning && !m_hostName.isEmpty() && !m_domainName.isEmpty());
         });
}

void DiscoveryClient::forgetNames() {
    m_hostName.clear();
    m_domainName.clear();
}

void DiscoveryClient::setHostRegistered(bool isHostRegistered) {
    if (m_isHostRegistered != isHostRegistered) {
        m_isHostRegistered = isHostRegistered;
        Q_EMIT hostRegisteredChanged();
    }
}

void DiscoveryClient::call(const QString &path, const QString &interface, const QString &method,
                           const QVariantList &arguments, QObject *context,
                           const Handler &handler) {
    QDBusMessage request = QDBusMessage::createMethodCall(m_owner, path, interface, method);
    request.setArguments(arguments);
    await(m_bus.asyncCall(request, NoTimeout), context, handler);
}

void DiscoveryClient::create(const QString &method, const QVariantList &arguments,
                             const QString &interface, QObject *context,
                             const std::function<void(const QString &path)> &created) {
    const auto handler = [this, method, interface, isWanted = QPointer(context),
                          created](const QDBusMessage &reply) {
        const QString path = reply.arguments().value(0).value<QDBusObjectPath>().path();
        if (path.isEmpty()) {
            warnOfRefusal(method, reply);
        } else if (isWanted) {
            created(path);
        } else {
            free(path, interface);
        }
    };
    call(AvahiBus::ServerPath, AvahiBus::ServerInterface, method, arguments, this, handler);
}

void DiscoveryClient::free(const QString &path, const QString &interface) {
    if (m_isAvailable && !path.isEmpty()) {
        m_bus.send(
            QDBusMessage::createMethodCall(m_owner, path, interface, QStringLiteral("Free")));
    }
}

void DiscoveryClient::listen(const QString &path, const QString &interface, const QString &signal,
                             const QString &signature, QObject *receiver, const char *slot) {
    // Without a signature, Qt aborts the process if a signal has other arguments than the slot.
    m_bus.connect(m_owner, path, interface, signal, {}, signature, receiver, slot);
}

void DiscoveryClient::await(const QDBusPendingCall &call, QObject *context,
                            const Handler &handler) {
    auto *watcher = new QDBusPendingCallWatcher(call, context);
    const auto finish = [this, number = m_number, handler](QDBusPendingCallWatcher *finished) {
        finished->deleteLater();
        if (number == m_number) {
            handler(finished->reply());
        }
    };
    connect(watcher, &QDBusPendingCallWatcher::finished, context, finish);
}
