#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusMessage>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <tuple>

class DiscoveryClient;
class NetService;
class NetServiceBrowser;

/// One search of a NetServiceBrowser, which owns it. It searches whenever the daemon is available;
/// when the daemon ends, all services are reported as lost. It shares the services that it has
/// found with the delegate's code. The delegate is called from the event loop, never from within a
/// call. Must be used on the main thread; no call waits for the daemon.
class NetServiceSearch : public QObject {
    Q_OBJECT
public:
    /// `browser` is not owned; it owns this object. `type` and `domain` are those of
    /// NetServiceBrowser. Begins the search before it returns if the daemon is available.
    NetServiceSearch(NetServiceBrowser &browser, const QString &type, const QString &domain);
    /// Ends the search. Events that were not delivered are dropped, and no service is reported as
    /// lost.
    ~NetServiceSearch() override;

private Q_SLOTS:
    /// Signals of the daemon for all searches of this process: those of others are recognized by
    /// the path of the daemon's object and ignored. Data from the network, thus not trusted.
    void addItem(int interface, int protocol, const QString &name, const QString &type,
                 const QString &domain, uint flags, const QDBusMessage &message);
    void removeItem(int interface, int protocol, const QString &name, const QString &type,
                    const QString &domain, uint flags, const QDBusMessage &message);

private:
    /// Name, type and domain of a service.
    using Identity = std::tuple<QString, QString, QString>;
    /// A service is found once on each network interface and for each protocol.
    using InterfaceAndProtocol = std::pair<int, int>;
    enum class Change { Find, Remove };
    struct Found {
        /// Never null.
        std::shared_ptr<NetService> service;
        /// Where it was found and not lost since. It is lost when the last one is.
        std::set<InterfaceAndProtocol> sightings;
    };
    struct Sighting {
        /// The daemon's object that has reported it.
        QString path;
        Change change;
        Identity identity;
        InterfaceAndProtocol place;
    };
    /// A call of the delegate.
    struct Event {
        Change change;
        std::shared_ptr<NetService> service;
    };

    /// Starts to search if the daemon is available.
    void begin();
    /// Reports all services as lost, since the daemon has ended.
    void loseAll();
    /// Notes a sighting of this or another search.
    void note(const Sighting &sighting);
    /// Add and remove a place at which a service was found; the first and the last one are events.
    void see(const Identity &identity, const InterfaceAndProtocol &place);
    void lose(const Identity &identity, const InterfaceAndProtocol &place);
    /// Queues a call of the delegate.
    void append(Change change, const std::shared_ptr<NetService> &service);
    /// Calls the delegate for all events. The delegate may destroy this object.
    void deliver();

    NetServiceBrowser &m_browser;
    const QString m_type;
    const QString m_domain;
    const std::shared_ptr<DiscoveryClient> m_client;
    /// The daemon's object that searches; empty while it is not known.
    QString m_path;
    /// What was reported while the path was not known.
    std::deque<Sighting> m_early;
    std::map<Identity, Found> m_found;
    /// The events that the delegate was not called for yet, in order.
    std::deque<Event> m_events;
};
