#include "Platform/Network/LocalHostName.h"

#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-common/error.h>
#include <avahi-common/simple-watch.h>
#include <net/if.h>

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <array>
#include <memory>

#include "Platform/Foundation/Localization.h"

namespace {

using Poll = std::unique_ptr<AvahiSimplePoll, decltype(&avahi_simple_poll_free)>;
using Client = std::unique_ptr<AvahiClient, decltype(&avahi_client_free)>;
using Resolver = std::unique_ptr<AvahiHostNameResolver, decltype(&avahi_host_name_resolver_free)>;

struct Lookup {
    bool hasEnded = false;
    QString address;
};

tl::unexpected<Error> noService(const QString &hostName, int reason) {
    return failure(
        {.domain = QStringLiteral("LocalHostName"),
         .code = static_cast<int>(LocalHostName::ErrorCode::NoService),
         .localizedDescription =
             localizedString(PlatformTable,
                             "The name “%1” cannot be looked up in the local network, because the "
                             "service Avahi does not respond: %2. Start it and try again.")
                 .arg(hostName, QString::fromUtf8(avahi_strerror(reason)))});
}

tl::unexpected<Error> notFound(const QString &hostName) {
    return failure({.domain = QStringLiteral("LocalHostName"),
                    .code = static_cast<int>(LocalHostName::ErrorCode::NotFound),
                    .localizedDescription =
                        localizedString(PlatformTable,
                                        "No computer of the local network has responded to the "
                                        "name “%1”. Check that the computer is on and in the same "
                                        "network.")
                            .arg(hostName)});
}

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

/// Returns an empty text if no computer has responded.
Expected<QString> lookUp(const QString &hostName, AvahiProtocol protocol, QDeadlineTimer deadline) {
    const Poll poll(avahi_simple_poll_new(), &avahi_simple_poll_free);
    int error = 0;
    const Client client(avahi_client_new(avahi_simple_poll_get(poll.get()), AvahiClientFlags(0),
                                         &clientEvent, nullptr, &error),
                        &avahi_client_free);
    if (!client) {
        return noService(hostName, error);
    }
    Lookup lookup;
    const Resolver resolver(
        avahi_host_name_resolver_new(client.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_UNSPEC,
                                     hostName.toUtf8().constData(), protocol, AvahiLookupFlags(0),
                                     &hostNameEvent, &lookup),
        &avahi_host_name_resolver_free);
    bool goesOn = resolver != nullptr;
    while (goesOn && !lookup.hasEnded && !deadline.hasExpired()) {
        goesOn =
            avahi_simple_poll_iterate(poll.get(), static_cast<int>(deadline.remainingTime())) == 0;
    }
    if (!goesOn || avahi_client_get_state(client.get()) == AVAHI_CLIENT_FAILURE) {
        return noService(hostName, avahi_client_errno(client.get()));
    }
    return lookup.address;
}

}  // namespace

bool LocalHostName::isLocal(const QString &hostName) {
    return hostName.endsWith(QStringLiteral(".local"), Qt::CaseInsensitive) ||
           hostName.endsWith(QStringLiteral(".local."), Qt::CaseInsensitive);
}

Expected<QString> LocalHostName::address(const QString &hostName,
                                         std::chrono::milliseconds timeout) {
    // Half of the time for each family: a host without an address of one does not reply to it.
    for (const AvahiProtocol protocol : {AVAHI_PROTO_INET, AVAHI_PROTO_INET6}) {
        Expected<QString> text = lookUp(hostName, protocol, QDeadlineTimer(timeout / 2));
        if (!text || !text->isEmpty()) {
            return text;
        }
    }
    return notFound(hostName);
}
