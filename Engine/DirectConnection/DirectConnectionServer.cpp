#include "Engine/DirectConnection/DirectConnectionServer.h"

#include <QtCore/QDateTime>
#include <QtNetwork/QNetworkInterface>
#include <atomic>
#include <cstdlib>
#include <limits>
#include <utility>

#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/QuestionPresenter.h"
#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionClients.h"
#include "Engine/DirectConnection/EngineServedDatabase.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/DirectConnection/ServedStoreObserver.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Host/DefaultsKeys.h"
#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DateText.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/ServiceDiscovery.h"
#include "Platform/Security/Keychain.h"

namespace {

/// The settings with the times of the last connections, each followed by the client's account.
const QString ConnectionKey = QStringLiteral("lastConnection/");

/// A client that connects again and again causes one write in that time.
constexpr qint64 MillisecondsBetweenRecords = 60'000;

/// How many listeners of the process have a thread of their own.
std::atomic_int listeners = 0;

quint16 portOrDefault(int port) {
    const bool isPort = port > 0 && port <= std::numeric_limits<quint16>::max();
    return isPort ? static_cast<quint16>(port) : DirectConnection::DefaultPort;
}

/// Presents the error later, since the application may still be starting.
void present(const Error &error) {
    MainQueue::dispatchAsync([error] {
        if (QVApplication *application = NSApp()) {
            application->presentError(error);
        }
    });
}

/// `known` are the names of the authorized clients.
Question questionFor(const DirectConnectionPairing &client, const Expected<QStringList> &known) {
    QString details =
        localizedSyncString("It shows a code. Allow it only if the code is the same as here.");
    if (!known) {
        details += u'\n' + localizedSyncString(
                               "Whether it replaces another computer of this name "
                               "is unknown, because the keyring cannot be read.");
    } else if (known->contains(DirectConnectionClients::account(client.clientName))) {
        details += u'\n' + localizedSyncString("It replaces another computer of this name.");
    }
    return {localizedSyncString("Let “%1” synchronize with this computer?").arg(client.clientName),
            details, localizedSyncString("Allow"), localizedSyncString("Refuse"), client.code()};
}

/// Returns the addresses of this computer in its networks as text. Those of IPv6 only if there is
/// no other.
QStringList ownAddresses() {
    QStringList addresses;
    QStringList longAddresses;
    for (const QHostAddress &address : QNetworkInterface::allAddresses()) {
        if (address.isLoopback() || address.isLinkLocal()) {
            continue;
        }
        const bool isShort = address.protocol() == QAbstractSocket::IPv4Protocol;
        (isShort ? addresses : longAddresses).append(address.toString());
    }
    return addresses.isEmpty() ? longAddresses : addresses;
}

}  // namespace

DirectConnectionServer::DirectConnectionServer(const ProfileDatabase &profile)
    : m_profile(profile), m_port(DirectConnection::DefaultPort) {}

DirectConnectionServer::~DirectConnectionServer() {
    stop();
}

bool DirectConnectionServer::isAnyListenerRunning() {
    return listeners > 0;
}

void DirectConnectionServer::load(const DirectConnectionPackage &package,
                                  ServedStoreObserver &observer) {
    m_package.emplace(package);
    m_observer = &observer;
    m_storedPort = UserDefaults::integerForKey(DefaultsKeys::DirectConnectionServerPortNumber);
    m_port = portOrDefault(m_storedPort.value_or(0));
}

void DirectConnectionServer::offerChoice(const NoteLibrary &library,
                                         std::shared_ptr<ServedDatabases> served) {
    m_library = &library;
    m_served = std::move(served);
    connect(m_library, &NoteLibrary::knownDatabasesChanged, this, [this] {
        KeyValue::announce<&QVDirectConnectionServer::databasesChanged>(
            static_cast<QVDirectConnectionServer *>(this));
    });
}

void DirectConnectionServer::startIfEnabled() {
    const Expected<bool> isEnabled = m_storedPort.and_then([](int /*port*/) {
        return UserDefaults::boolForKey(DefaultsKeys::DirectConnectionServerEnabled);
    });
    if (!isEnabled) {
        present(isEnabled.error());
    } else if (*isEnabled) {
        startServing();
    }
}

void DirectConnectionServer::setPort(quint16 port) {
    const quint16 former = std::exchange(m_port, portOrDefault(port));
    if (isServing() && m_port != former) {
        stopServing();
        startServing();
    }
    KeyValue::announce<&QVDirectConnectionServer::portChanged>(
        static_cast<QVDirectConnectionServer *>(this));
}

void DirectConnectionServer::startServing() {
    if (isServing()) {
        return;
    }
    if (const Expected<void> started = start(); !started) {
        stop();
        present(started.error());
    }
    KeyValue::announce<&QVDirectConnectionServer::servingChanged>(
        static_cast<QVDirectConnectionServer *>(this));
    announceAddress();
}

void DirectConnectionServer::stopServing() {
    if (isServing()) {
        stop();
        KeyValue::announce<&QVDirectConnectionServer::servingChanged>(
            static_cast<QVDirectConnectionServer *>(this));
        announceAddress();
    }
}

Expected<void> DirectConnectionServer::start() {
    const auto identity = m_profile.checkFiles().and_then(
        [this] { return DirectConnectionIdentity::load(m_profile.directory()); });
    if (!identity) {
        return failure(identity.error());
    }
    Expected<void> listening = m_package->make().and_then([&] { return listen(*identity); });
    if (listening) {
        // Without a name: it is announced under the computer's name.
        m_service = std::make_shared<NetService>(QString(), DirectConnection::BonjourServiceType,
                                                 QString(), m_port);
        m_service->setDelegate(this);
        m_service->publish();
        m_discovery = std::make_unique<ServiceDiscovery>();
        connect(m_discovery.get(), &ServiceDiscovery::availableChanged, this,
                &DirectConnectionServer::announceAddress);
    }
    return listening;
}

Expected<void> DirectConnectionServer::listen(const DirectConnectionIdentity &identity) {
    ++m_listenerNumber;
    auto listener =
        std::make_unique<DirectConnectionListener>(identity, *m_package, m_limits, mainThread());
    if (!listener->listen(QHostAddress::Any, m_port)) {
        return failure(engineError(
            EngineErrorCode::ServerUnusable,
            localizedSyncString("The server cannot use the port %1. Choose another port. (%2)")
                .arg(m_port)
                .arg(listener->errorString())));
    }
    m_listener = listener.release();
    ++listeners;
    // On its thread, also if that is abandoned.
    connect(m_listener, &QObject::destroyed, [] { --listeners; });
    m_thread = std::make_unique<QThread>();
    m_listener->moveToThread(m_thread.get());
    const auto replaceFormerAccounts = [] {
        if (const auto replaced = DirectConnectionClients::replaceFormerAccounts(); !replaced) {
            present(replaced.error());
        }
    };
    // The signal is emitted on that thread, so that nothing is handed over.
    connect(m_thread.get(), &QThread::started, m_listener, replaceFormerAccounts);
    m_thread->start();
    return {};
}

QString DirectConnectionServer::addressText() const {
    if (!isServing()) {
        return {};
    }
    const QStringList addresses = ownAddresses();
    QString address =
        addresses.isEmpty()
            ? localizedSyncString("This computer is in no network. Port: %1").arg(m_port)
            : localizedSyncString("Address: %1. Port: %2")
                  .arg(addresses.join(QStringLiteral(", ")), QString::number(m_port));
    if (!m_discovery->isAvailable() && !addresses.isEmpty()) {
        return address + u'\n' +
               localizedSyncString(
                   "Other computers do not find this one by themselves, because the service "
                   "“Avahi” is not running on this computer. Start it, or enter this address and "
                   "port on the other computer under “Add”, “Direct Connection…”.");
    }
    if (!m_isAnnounced) {
        return address;
    }
    const QString name = m_service->name();
    return localizedSyncString("Other computers list this one as “%1”.").arg(name) + u'\n' +
           address;
}

QVariantList DirectConnectionServer::databases() const {
    QVariantList databases;
    const auto known =
        m_library ? m_library->knownDatabases() : decltype(m_library->knownDatabases()){};
    for (const auto &database : known) {
        databases.append(QVariant::fromValue<std::shared_ptr<QVServedDatabase>>(
            std::make_shared<EngineServedDatabase>(database, m_served)));
    }
    return databases;
}

QString DirectConnectionServer::lastConnectionText(const QString &client) const {
    const Expected<QVariant> time = ProfileSettings::value(m_profile, ConnectionKey + client);
    if (!time) {
        QVJobLog::logMessage(time.error().localizedDescription);
    }
    if (!time || !time->isValid()) {
        return localizedSyncString("Last connected: unknown");
    }
    // Not in words such as "today", which the sheet would still show after midnight.
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(time->toLongLong());
    return localizedSyncString("Last connected: %1").arg(DateText::shortDate(date));
}

void DirectConnectionServer::netServiceDidPublish(const std::shared_ptr<NetService> & /*service*/) {
    m_isAnnounced = true;
    announceAddress();
}

void DirectConnectionServer::announceAddress() {
    KeyValue::announce<&QVDirectConnectionServer::addressTextChanged>(
        static_cast<QVDirectConnectionServer *>(this));
}

void DirectConnectionServer::stop() {
    if (m_service) {
        m_service->setDelegate(nullptr);
    }
    m_service.reset();
    m_discovery.reset();
    m_isAnnounced = false;
    withdrawQuestion();
    if (!m_listener) {
        return;
    }
    // On the listener's thread, at the latest when that thread ends.
    m_listener->deleteLater();
    m_listener = nullptr;
    m_thread->quit();
    if (!m_thread->wait(EndTimeout)) {
        QThread *abandoned = m_thread.release();
        connect(abandoned, &QThread::finished, abandoned, &QObject::deleteLater);
    }
    m_thread.reset();
}

DirectConnectionListener::MainThread DirectConnectionServer::mainThread() {
    using Call = std::function<void(DirectConnectionServer &)>;
    // An abandoned listener may outlive this object. Only the main thread looks at it.
    const auto post = [server = QPointer(this), listener = m_listenerNumber](Call call) {
        MainQueue::dispatchAsync([server, listener, call = std::move(call)] {
            if (server && server->m_listener && server->m_listenerNumber == listener) {
                call(*server);
            }
        });
    };
    return {
        [post](quint64 session, const DirectConnectionPairing &client) {
            post([=](DirectConnectionServer &server) { server.askFor(session, client); });
        },
        [post] { post([](DirectConnectionServer &server) { server.withdrawQuestion(); }); },
        [post](quint64 session, const QString &clientName) {
            post([=](DirectConnectionServer &server) {
                server.recordConnection(clientName);
                server.prepareStore(session);
            });
        },
        [post] {
            post([](DirectConnectionServer &server) { server.m_observer->clientsDidWrite(); });
        },
    };
}

void DirectConnectionServer::askFor(quint64 session, const DirectConnectionPairing &client) {
    // The decision may arrive after the listener, or the whole server, was destroyed.
    const auto decide = [listener = m_listener, session](bool isAccepted) {
        if (listener) {
            listener->decide(session, isAccepted);
        }
    };
    const quint64 number = ++m_questionNumber;
    Keychain::shared().findAccounts(
        DirectConnection::ClientAuthorizationServiceName,
        [server = QPointer(this), number, client, decide](const Expected<QStringList> &known) {
            QuestionPresenter *presenter = QuestionPresenter::ofApplication();
            if (!server || server->m_questionNumber != number || !presenter) {
                decide(false);
                return;
            }
            server->m_withdrawal = presenter->ask(questionFor(client, known), decide);
        });
}

void DirectConnectionServer::withdrawQuestion() {
    ++m_questionNumber;
    if (const auto withdraw = std::exchange(m_withdrawal, nullptr)) {
        withdraw();
    }
}

void DirectConnectionServer::prepareStore(quint64 session) {
    m_observer->clientWillRead([listener = m_listener, session] {
        if (listener) {
            listener->proceed(session);
        }
    });
}

void DirectConnectionServer::recordConnection(const QString &clientName) {
    const QString key = ConnectionKey + DirectConnectionClients::account(clientName);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const Expected<void> recorded =
        ProfileSettings::value(m_profile, key).and_then([&](const QVariant &before) {
            const bool isRecorded = before.isValid() && std::abs(now - before.toLongLong()) <
                                                            MillisecondsBetweenRecords;
            return isRecorded ? Expected<void>() : ProfileSettings::set(m_profile, key, now);
        });
    if (!recorded && NSApp()) {
        QVJobLog::logMessage(recorded.error().localizedDescription);
    }
}
