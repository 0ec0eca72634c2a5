#pragma once

#include <QtCore/QObject>
#include <functional>
#include <memory>

class DiscoveryClient;
class NetService;
class QDBusMessage;

/// The announcement of a NetService, which owns it. The service is announced whenever the daemon is
/// available, under another name if its own is in use, and withdrawn when this object is destroyed.
/// If the daemon refuses it, that is only logged. Must be used on the main thread.
class NetServicePublication : public QObject {
    Q_OBJECT
public:
    /// `service` is not owned; it owns this object and must be owned by a std::shared_ptr.
    /// Begins to announce it, if the daemon is available, before it returns.
    explicit NetServicePublication(NetService &service);
    /// Withdraws the service. Pending notifications are dropped.
    ~NetServicePublication() override;

private Q_SLOTS:
    /// Signal of the daemon's entry group.
    void changeState(int state);

private:
    /// Withdraws the service, and announces it if a host name is registered.
    void announceOrWithdraw();
    /// Creates an entry group, adds the service and commits it, without waiting for the daemon.
    void announce();
    /// Frees the entry group, if there is one. Replies that are still to come are ignored.
    void withdraw();
    /// Adds the service to the daemon's entry group under the first name that is not used on this
    /// computer.
    void addService();
    /// Has the daemon announce the group, which it reports by changeState().
    void commit();
    /// Changes the name of the service to an alternative, and then calls `renamed`.
    void rename(const std::function<void()> &renamed);
    /// Returns whether `reply` is no error; logs it otherwise.
    bool isSuccess(const QDBusMessage &reply) const;
    /// Notifies the delegate. May destroy this object.
    void notifyDelegate();

    NetService &m_service;
    const std::shared_ptr<DiscoveryClient> m_client;
    /// The daemon's object for the announcement; empty while the service is not announced.
    QString m_group;
    /// The context of the calls for the current announcement. Null while there is none.
    std::unique_ptr<QObject> m_announcement;
    /// The number of names of the current announcement that were in use.
    int m_collisions = 0;
};
