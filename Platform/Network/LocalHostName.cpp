#include "Platform/Network/LocalHostName.h"

#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-common/simple-watch.h>
#include <net/if.h>

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <array>
#include <memory>

namespace {

using Poll = std::unique_ptr<AvahiSimplePoll, decltype(&avahi_simple_poll_free)>;
using Client = std::unique_ptr<AvahiClient, decltype(&avahi_client_free)>;
using Resolver = std::unique_ptr<AvahiHostNameResolver, decltype(&avahi_host_name_resolver_free)>;

struct Lookup {
    bool hasEnded = false;
    QString address;
};

QString textOf(const AvahiAddress &address, AvahiIfIndex interface) {
    std::array<char, AVAHI_ADDRESS_STR_MAX> buffer{};
    avahi_address_snprint(buffer.data(), buffer.size(), &address);
    QString text = QString::fromLatin1(buffer.data());
    if (text.startsWith(QStringLiteral("fe80:"))) {
        text += u'%' + QString::number(interface);
    }
    return text;
}

void hostNameEvent(AvahiHostNameResolver * /*resolver*/, AvahiIfIndex interface,
                   AvahiProtocol /*protocol*/, AvahiResolverEvent event, const char * /*name*/,
                   const AvahiAddress *address, AvahiLookupResultFlags /*flags*/, void *self) {
    auto &lookup = *static_cast<Lookup *>(self);
    lookup.hasEnded = true;
    if (event == AVAHI_RESOLVER_FOUND) {
        lookup.address = textOf(*address, interface);
    }
}

void clientEvent(AvahiClient * /*client*/, AvahiClientState /*state*/, void * /*self*/) {}

QString lookUp(const QByteArray &hostName, AvahiProtocol protocol, QDeadlineTimer deadline) {
    const Poll poll(avahi_simple_poll_new(), &avahi_simple_poll_free);
    const Client client(avahi_client_new(avahi_simple_poll_get(poll.get()), AvahiClientFlags(0),
                                         &clientEvent, nullptr, nullptr),
                        &avahi_client_free);
    if (!client) {
        return {};
    }
    Lookup lookup;
    const Resolver resolver(
        avahi_host_name_resolver_new(client.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
                                     hostName.constData(), protocol, AvahiLookupFlags(0),
                                     &hostNameEvent, &lookup),
        &avahi_host_name_resolver_free);
    bool goesOn = resolver != nullptr;
    while (goesOn && !lookup.hasEnded && !deadline.hasExpired()) {
        goesOn =
            avahi_simple_poll_iterate(poll.get(), static_cast<int>(deadline.remainingTime())) == 0;
    }
    return lookup.address;
}

}  // namespace

bool LocalHostName::isLocal(const QString &hostName) {
    return hostName.endsWith(QStringLiteral(".local"), Qt::CaseInsensitive) ||
           hostName.endsWith(QStringLiteral(".local."), Qt::CaseInsensitive);
}

QString LocalHostName::address(const QString &hostName, std::chrono::milliseconds patience) {
    // Half of the time for each family: a host without an address of one does not reply to it.
    for (const AvahiProtocol protocol : {AVAHI_PROTO_INET, AVAHI_PROTO_INET6}) {
        QString text = lookUp(hostName.toUtf8(), protocol, QDeadlineTimer(patience / 2));
        if (!text.isEmpty()) {
            return text;
        }
    }
    return {};
}
