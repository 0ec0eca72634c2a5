#include "Platform/Network/NetServiceSearch.h"

#include <QtCore/QPointer>

#include "Platform/Network/AvahiBus.h"
#include "Platform/Network/DiscoveryClient.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"

namespace {

/// Maximum size in bytes of a service's name (RFC 6763, section 4.1.1).
constexpr qsizetype LongestServiceName = 63;

const QString ItemSignature = QStringLiteral("iisssu");

}  // namespace

NetServiceSearch::NetServiceSearch(NetServiceBrowser &browser, const QString &type,
                                   const QString &domain)
    : m_browser(browser), m_type(type), m_domain(domain), m_client(DiscoveryClient::shared()) {
    connect(m_client.get(), &DiscoveryClient::available, this, &NetServiceSearch::begin);
    connect(m_client.get(), &DiscoveryClient::lost, this, &NetServiceSearch::loseAll);
    if (m_client->isAvailable()) {
        begin();
    }
}

NetServiceSearch::~NetServiceSearch() {
    m_client->free(m_path, AvahiBus::BrowserInterface);
}

void NetServiceSearch::begin() {
    // Before the search exists: its first signals may arrive before its path.
    m_client->listen({}, AvahiBus::BrowserInterface, QStringLiteral("ItemNew"), ItemSignature, this,
                     SLOT(addItem(int, int, QString, QString, QString, uint, QDBusMessage)));
    m_client->listen({}, AvahiBus::BrowserInterface, QStringLiteral("ItemRemove"), ItemSignature,
                     this,
                     SLOT(removeItem(int, int, QString, QString, QString, uint, QDBusMessage)));
    const auto created = [this](const QString &path) {
        m_path = path;
        for (const Sighting &sighting : std::exchange(m_early, {})) {
            note(sighting);
        }
    };
    m_client->create(QStringLiteral("ServiceBrowserNew"),
                     {AvahiBus::Any, AvahiBus::Any, m_type, m_domain, AvahiBus::NoFlags},
                     AvahiBus::BrowserInterface, this, created);
}

void NetServiceSearch::loseAll() {
    m_path.clear();
    m_early.clear();
    for (const auto &[identity, found] : std::exchange(m_found, {})) {
        append(Change::Remove, found.service);
    }
}

void NetServiceSearch::addItem(int interface, int protocol, const QString &name,
                               const QString &type, const QString &domain, uint /*flags*/,
                               const QDBusMessage &message) {
    note({message.path(), Change::Find, {name, type, domain}, {interface, protocol}});
}

void NetServiceSearch::removeItem(int interface, int protocol, const QString &name,
                                  const QString &type, const QString &domain, uint /*flags*/,
                                  const QDBusMessage &message) {
    note({message.path(), Change::Remove, {name, type, domain}, {interface, protocol}});
}

void NetServiceSearch::note(const Sighting &sighting) {
    if (m_path.isEmpty()) {
        if (m_early.size() < NetServiceBrowser::MostServices) {
            m_early.push_back(sighting);
        }
    } else if (sighting.path == m_path && sighting.change == Change::Find) {
        see(sighting.identity, sighting.place);
    } else if (sighting.path == m_path) {
        lose(sighting.identity, sighting.place);
    }
}

void NetServiceSearch::see(const Identity &identity, const InterfaceAndProtocol &place) {
    const auto &[name, type, domain] = identity;
    const bool isKnown = m_found.contains(identity);
    if (!isKnown && (m_found.size() >= NetServiceBrowser::MostServices ||
                     name.toUtf8().size() > LongestServiceName)) {
        return;
    }
    Found &found = m_found[identity];
    found.sightings.insert(place);
    if (!found.service) {
        found.service = std::make_shared<NetService>(domain, type, name);
        append(Change::Find, found.service);
    }
}

void NetServiceSearch::lose(const Identity &identity, const InterfaceAndProtocol &place) {
    const auto position = m_found.find(identity);
    if (position == m_found.end()) {
        return;
    }
    position->second.sightings.erase(place);
    if (position->second.sightings.empty()) {
        append(Change::Remove, position->second.service);
        m_found.erase(position);
    }
}

void NetServiceSearch::append(Change change, const std::shared_ptr<NetService> &service) {
    m_events.push_back({change, service});
    if (m_events.size() == 1) {
        QMetaObject::invokeMethod(this, &NetServiceSearch::deliver, Qt::QueuedConnection);
    }
}

void NetServiceSearch::deliver() {
    const QPointer<NetServiceSearch> self = this;
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
