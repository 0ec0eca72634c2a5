#pragma once

#include <QtDBus/QDBusMessage>
#include <atomic>

#include "Support/BusService.h"

/// A discovery daemon on a private system bus that attacks its clients, or fails.
class HostileDiscoveryDaemon : public BusService {
public:
    enum class Attack {
        /// Replies to nothing.
        Silence,
        /// Finds `ManyServices`, then loses the first one.
        ManyServices,
        /// Finds one service, many with huge names, and loses the first one.
        GiantNames,
        /// Finds a service. Leaves the bus when it is to resolve one.
        Disappearance,
        /// Finds and loses services in signals with values of other types, then a sound one.
        /// Replies to requests for names and states with values of other types.
        Types,
        /// Resolves everything to something huge, and has a huge name.
        GiantReplies,
        /// Has another service of every name that is announced.
        Collisions,
        /// Refuses to say the host name of the computer.
        NoHostName,
        /// Is not hostile, but replies with its domain name before its host name.
        OtherOrder
    };

    static constexpr int ManyServices = 5'000;

    HostileDiscoveryDaemon(const QString &busAddress, Attack attack);
    ~HostileDiscoveryDaemon() override;

    using BusService::leaveBus;

    /// The number of messages that it has received.
    int countOfMessages() const { return m_countOfMessages; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QVariantList answer(const QString &member) const;
    void sendServices(const QDBusConnection &connection);

    const Attack m_attack;
    /// The request that is answered later.
    QDBusMessage m_postponed;
    std::atomic_int m_countOfMessages = 0;
};
