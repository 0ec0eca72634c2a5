#include "Support/SessionManager.h"

#include <QtTest/QtTest>
#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "Support/EventTimeout.h"

// Last, because of their macros.
#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>

struct SessionManager::Handlers {
    static SessionManager &of(SmPointer manager) { return *static_cast<SessionManager *>(manager); }

    static Status newClient(SmsConn client, SmPointer manager, unsigned long *mask,
                            SmsCallbacks *callbacks, char ** /*failureReason*/) {
        *callbacks = {};
        callbacks->register_client = {&registerClient, manager};
        callbacks->interact_request = {&interactRequest, manager};
        callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, manager};
        callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {},
                                            manager};
        callbacks->save_yourself_phase2_request = {
            [](SmsConn connection, SmPointer) { SmsSaveYourselfPhase2(connection); }, manager};
        callbacks->save_yourself_done = {&saveYourselfDone, manager};
        callbacks->close_connection = {&closeConnection, manager};
        callbacks->set_properties = {&setProperties, manager};
        callbacks->delete_properties = {&deleteProperties, manager};
        callbacks->get_properties = {
            [](SmsConn connection, SmPointer) { SmsReturnProperties(connection, 0, nullptr); },
            manager};
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
                SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask |
                SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
        of(manager).m_client = client;
        return 1;
    }

    static Status registerClient(SmsConn client, SmPointer /*manager*/, char *previousId) {
        std::free(previousId);
        char *id = SmsGenerateClientID(client);
        SmsRegisterClientReply(client, id);
        std::free(id);
        // Required after each registration.
        SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
        return 1;
    }

    static void interactRequest(SmsConn client, SmPointer /*manager*/, int /*dialogType*/) {
        SmsInteract(client);
    }

    static void saveYourselfDone(SmsConn client, SmPointer manager, Bool isSuccess) {
        of(manager).m_hasSaved = isSuccess != 0;
        SmsSaveComplete(client);
    }

    static void closeConnection(SmsConn /*client*/, SmPointer manager, int count, char **reasons) {
        SmFreeReasons(count, reasons);
        of(manager).forgetClient();
    }

    static void setProperties(SmsConn /*client*/, SmPointer /*manager*/, int count,
                              SmProp **properties) {
        for (int i = 0; i < count; ++i) {
            SmFreeProperty(properties[i]);
        }
        std::free(properties);
    }

    static void deleteProperties(SmsConn /*client*/, SmPointer /*manager*/, int count,
                                 char **names) {
        for (int i = 0; i < count; ++i) {
            std::free(names[i]);
        }
        std::free(names);
    }
};

SessionManager::SessionManager() {
    // A client that ends may close its end of the connection at any time.
    std::signal(SIGPIPE, SIG_IGN);
    IceSetIOErrorHandler([](IceConn) {});
    std::array<char, 256> error{};
    // The library is prepared once; each manager gets the handlers of the last one.
    static SessionManager *current = nullptr;
    current = this;
    static const bool isReady =
        SmsInitialize(
            "Velmora", "1",
            [](SmsConn client, SmPointer, unsigned long *mask, SmsCallbacks *callbacks,
               char **reason) {
                return Handlers::newClient(client, current, mask, callbacks, reason);
            },
            nullptr, [](char *) -> Bool { return True; }, error.size(), error.data()) != 0;
    if (!isReady ||
        IceListenForConnections(&m_listenerCount, &m_listeners, error.size(), error.data()) == 0) {
        throw std::runtime_error(std::string("The session manager cannot listen: ") + error.data());
    }
    for (int i = 0; i < m_listenerCount; ++i) {
        IceSetHostBasedAuthProc(m_listeners[i], [](char *) -> Bool { return True; });
        auto notifier = std::make_unique<QSocketNotifier>(
            IceGetListenConnectionNumber(m_listeners[i]), QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [this, listener = m_listeners[i]] { accept(listener); });
        m_notifiers.push_back(std::move(notifier));
    }
    char *addresses = IceComposeNetworkIdList(m_listenerCount, m_listeners);
    m_address = QString::fromLocal8Bit(addresses);
    std::free(addresses);
}

SessionManager::~SessionManager() {
    forgetClient();
    m_notifiers.clear();
    IceFreeListenObjs(m_listenerCount, m_listeners);
}

void SessionManager::accept(_IceListenObj *listener) {
    IceAcceptStatus status = IceAcceptFailure;
    IceConn connection = IceAcceptConnection(listener, &status);
    if (connection == nullptr || status != IceAcceptSuccess) {
        throw std::runtime_error("The session manager cannot accept a client.");
    }
    auto notifier =
        std::make_unique<QSocketNotifier>(IceConnectionNumber(connection), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this, connection] { read(connection); });
    m_notifiers.push_back(std::move(notifier));
}

void SessionManager::read(_IceConn *connection) {
    if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesIOError) {
        forgetClient();
    }
}

void SessionManager::forgetClient() {
    // Not deleted: one of them may be calling.
    for (auto &notifier : m_notifiers) {
        notifier->setEnabled(false);
    }
    if (_SmsConn *client = std::exchange(m_client, nullptr)) {
        IceConn connection = SmsGetIceConnection(client);
        SmsCleanUp(client);
        IceSetShutdownNegotiation(connection, False);
        IceCloseConnection(connection);
    }
}

bool SessionManager::askToSave() {
    if (m_client == nullptr) {
        throw std::runtime_error("The session has no client.");
    }
    m_hasSaved = false;
    SmsSaveYourself(m_client, SmSaveBoth, True, SmInteractStyleAny, False);
    return QTest::qWaitFor([this] { return m_hasSaved; }, EventTimeout);
}

void SessionManager::end() {
    SmsDie(m_client);
}
