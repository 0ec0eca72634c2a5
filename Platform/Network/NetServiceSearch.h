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

/// One search of a NetServiceBrowser, which owns it. Owns the services that it has found. Must be
/// used on the main thread.
class NetServiceSearch : public QObject {
    Q_OBJECT
public:
    NetServiceSearch(NetServiceBrowser &browser, const QString &type, const QString &domain);
    ~NetServiceSearch() override;

private Q_SLOTS:
    /// Signals of all searches of this process.
    void addItem(int interface, int protocol, const QString &name, const QString &type,
                 const QString &domain, uint flags, const QDBusMessage &message);
    void removeItem(int interface, int protocol, const QString &name, const QString &type,
                    const QString &domain, uint flags, const QDBusMessage &message);

private:
    using Identity = std::tuple<QString, QString, QString>;
    using InterfaceAndProtocol = std::pair<int, int>;
    enum class Change { Find, Remove };
    struct Found {
        std::shared_ptr<NetService> service;
        std::set<InterfaceAndProtocol> sightings;
    };
    struct Sighting {
        /// The daemon's object that has reported it.
        QString path;
        Change change;
        Identity identity;
        InterfaceAndProtocol place;
    };
    struct Event {
        Change change;
        std::shared_ptr<NetService> service;
    };

    /// Starts to search if the daemon is available.
    void begin();
    void loseAll();
    /// Notes a sighting of this or another search.
    void note(const Sighting &sighting);
    void see(const Identity &identity, const InterfaceAndProtocol &place);
    void lose(const Identity &identity, const InterfaceAndProtocol &place);
    /// Queues a call of the delegate.
    void append(Change change, const std::shared_ptr<NetService> &service);
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
    std::deque<Event> m_events;
};
