#pragma once

#include <QtCore/QString>
#include <chrono>

#include "Platform/PlatformExport.h"

/// The addresses of computers by name.
namespace LocalHostName {

/// Whether `hostName` is one that only the computers of the local network know among themselves: it
/// ends in ".local" (RFC 6762, section 3).
PLATFORM_EXPORT bool isLocal(const QString &hostName);

/// An address of such a name, in numbers, of IPv4 where there is one; a link-local one with its
/// interface. Asks the Avahi daemon, since many systems' own look-up does not know these names.
/// Empty where there is no such computer, no daemon, or no answer in time. Blocks for at most
/// `patience`; any thread.
PLATFORM_EXPORT QString address(const QString &hostName, std::chrono::milliseconds patience);

}  // namespace LocalHostName
