#pragma once

#include <QtCore/QString>
#include <chrono>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// Host names of the local network (RFC 6762).
namespace LocalHostName {

/// Returns whether `hostName` is resolved by multicast DNS: it ends in ".local" or ".local." (RFC
/// 6762, section 3), in upper or lower case. Thread-safe. Looks at the text only.
PLATFORM_EXPORT bool isLocal(const QString &hostName);

/// The codes of errors of the domain "LocalHostName". Their messages are localized and name the
/// host.
enum class ErrorCode {
    /// The Avahi daemon is not running, does not respond, or has failed.
    NoService = 1,
    /// No computer has confirmed the name in time.
    NotFound,
};

/// Returns an address of `hostName` as text: an IPv4 address if there is one, otherwise an IPv6
/// address, with its interface ("%" and a number) if it is link-local. Uses the daemon because the
/// resolvers of many systems do not know these names. `hostName` should be one for which isLocal()
/// returns true. Blocks for at most `timeout`: first for the system bus and the daemon, then half
/// of what is left for each family of addresses. Cannot be cancelled. The answer is not
/// authenticated: any computer of the network can send it. Thread-safe.
PLATFORM_EXPORT Expected<QString> address(const QString &hostName,
                                          std::chrono::milliseconds timeout);

}  // namespace LocalHostName
