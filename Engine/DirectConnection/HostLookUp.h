#pragma once

#include <netdb.h>

#include <QtCore/QString>
#include <memory>

#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/Expected.h"

/// Looks up the addresses of other computers. Thread-safe.
namespace HostLookUp {

/// A list of addresses. Not null.
using Addresses = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

/// The number of look-ups that may run at the same time in the process, including abandoned ones:
/// each has a thread.
inline constexpr int MostLookUps = 64;

/// Returns the addresses of `host`, a name or an address, for TCP connections to `port`. A name of
/// the local network is looked up with LocalHostName, and if that fails as every other name: by the
/// system. Blocks for at most 20 seconds; cancelling `future` ends that at once. The look-up itself
/// cannot be cancelled: it goes on, on a thread of its own, until the system ends it or the process
/// ends. Fails with the code StoreUnreachable and a text for each of these if there is no such
/// server, if it cannot be looked up, for example because no name server responds in time, or if
/// too many look-ups are running; with Cancelled.
Expected<Addresses> addresses(const QString &host, quint16 port, const EngineFuture &future);
/// Returns whether a look-up of any caller is still running. It may use static objects, so the
/// process must then end by std::_Exit(), which does not destroy these.
bool isAnyRunning();

}  // namespace HostLookUp
