#include "Platform/Network/NetServiceBrowser.h"

#include <avahi-client/lookup.h>

#include <QtCore/QPointer>
#include <deque>
#include <map>
#include <set>
#include <tuple>

#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"

class NetServiceBrowser::Search : public QObject {
public:
    Search(NetServiceBrowser &browser, const QString &type, const QString &domain);
    ~Search() override { endSearch(); }

private:
    using Identity = std::tuple<QString, QString, QString>;
    using InterfaceAndProtocol = std::pair<AvahiIfIndex, AvahiProtocol>;
    struct Found {
        std::shared_ptr<NetService> service;
        std::set<InterfaceAndProtocol> sightings;
    };
    enum class Change { Find, Remove };
    struct Event {
        Change change;
        std::shared_ptr<NetService> service;
    };

    static void browserEvent(AvahiServiceBrowser *browser, AvahiIfIndex interface,
                             AvahiProtocol protocol, AvahiBrowserEvent event, const char *name,
                             const char *type, const char *domain, AvahiLookupResultFlags flags,
                             void *self);
    void beginSearch();
    void endSearch();
    void loseAll();
    void see(const Identity &identity, const InterfaceAndProtocol &sighting);
    void lose(const Identity &identity, const InterfaceAndProtocol &sighting);
    void append(Change change, const std::shared_ptr<NetService> &service);
    void deliver();

    NetServiceBrowser &m_browser;
    const QByteArray m_type;
    const QByteArray m_domain;
    const std::shared_ptr<DiscoveryClient> m_client = DiscoveryClient::shared();
    AvahiServiceBrowser *m_avahiBrowser = nullptr;
    std::map<Identity, Found> m_found;
    std::deque<Event> m_events;
};

NetServiceBrowser::Search::Search(NetServiceBrowser &browser, const QString &type,
                                  const QString &domain)
    : m_browser(browser), m_type(type.toUtf8()), m_domain(domain.toUtf8()) {
    connect(m_client.get(), &DiscoveryClient::available, this, &Search::beginSearch);
    connect(m_client.get(), &DiscoveryClient::lost, this, &Search::loseAll);
    beginSearch();
}

void NetServiceBrowser::Search::beginSearch() {
    if (m_client->client() && !m_avahiBrowser) {
        m_avahiBrowser = avahi_service_browser_new(
            m_client->client(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC, m_type.constData(),
            m_domain.isEmpty() ? nullptr : m_domain.constData(), AvahiLookupFlags(0),
            &Search::browserEvent, this);
    }
}

void NetServiceBrowser::Search::endSearch() {
    if (m_avahiBrowser) {
        avahi_service_browser_free(m_avahiBrowser);
        m_avahiBrowser = nullptr;
    }
}

void NetServiceBrowser::Search::loseAll() {
    endSearch();
    for (const auto &[identity, found] : std::exchange(m_found, {})) {
        append(Change::Remove, found.service);
    }
}

void NetServiceBrowser::Search::browserEvent(AvahiServiceBrowser * /*browser*/,
                                             AvahiIfIndex interface, AvahiProtocol protocol,
                                             AvahiBrowserEvent event, const char *name,
                                             const char *type, const char *domain,
                                             AvahiLookupResultFlags /*flags*/, void *self) {
    auto &search = *static_cast<Search *>(self);
    if (event != AVAHI_BROWSER_NEW && event != AVAHI_BROWSER_REMOVE) {
        return;
    }
    const Identity identity(QString::fromUtf8(name), QString::fromUtf8(type),
                            QString::fromUtf8(domain));
    if (event == AVAHI_BROWSER_NEW) {
        search.see(identity, {interface, protocol});
    } else {
        search.lose(identity, {interface, protocol});
    }
}

void NetServiceBrowser::Search::see(const Identity &identity,
                                    const InterfaceAndProtocol &sighting) {
    Found &found = m_found[identity];
    found.sightings.insert(sighting);
    if (!found.service) {
        const auto &[name, type, domain] = identity;
        found.service = std::make_shared<NetService>(domain, type, name);
        append(Change::Find, found.service);
    }
}

void NetServiceBrowser::Search::lose(const Identity &identity,
                                     const InterfaceAndProtocol &sighting) {
    const auto position = m_found.find(identity);
    if (position == m_found.end()) {
        return;
    }
    position->second.sightings.erase(sighting);
    if (position->second.sightings.empty()) {
        append(Change::Remove, position->second.service);
        m_found.erase(position);
    }
}

void NetServiceBrowser::Search::append(Change change, const std::shared_ptr<NetService> &service) {
    m_events.push_back({change, service});
    if (m_events.size() == 1) {
        QMetaObject::invokeMethod(this, &Search::deliver, Qt::QueuedConnection);
    }
}

void NetServiceBrowser::Search::deliver() {
    const QPointer<Search> self = this;
    while (self && !m_events.empty()) {
        const Event event = std::move(m_events.front());
        m_events.pop_front();
        NetServiceBrowserDelegate *delegate = m_browser.delegate();
        const bool moreComing = !m_events.empty();
        if (delegate && event.change == Change::Find) {
            delegate->netServiceBrowserDidFindServiceMoreComing(&m_browser, event.service,
                                                                moreComing);
        } else if (delegate) {
            delegate->netServiceBrowserDidRemoveServiceMoreComing(&m_browser, event.service,
                                                                  moreComing);
        }
    }
}

NetServiceBrowser::NetServiceBrowser() = default;

NetServiceBrowser::~NetServiceBrowser() = default;

void NetServiceBrowser::searchForServicesOfTypeInDomain(const QString &type,
                                                        const QString &domain) {
    m_search = std::make_unique<Search>(*this, type, domain);
}

void NetServiceBrowser::stop() {
    m_search.reset();
}
