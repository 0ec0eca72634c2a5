#pragma once

#include "Host/HostExport.h"
#include "Platform/Foundation/Expected.h"

class Url;

/// The servers to which a password may be sent in a way that everybody on the network can read: the
/// user has accepted the sheet of a location that says so. Stored in the user defaults, by host and
/// port. The pane stores it; a host must not send such a password otherwise. Thread-safe.
namespace UnencryptedPasswords {

/// Returns whether the user has accepted that for the server of `URL`. Hosts are compared without
/// case; a URL without a port has the port 80. `URL` must not be nil. Returns an error for the user
/// if the user defaults cannot be read.
HOST_EXPORT Expected<bool> areAccepted(const Url &URL);
/// Stores that the user has accepted it, for all locations at that server, until forget() is
/// called. If it cannot be written, returns an error for the user, and it holds until the program
/// ends. Blocks for the user defaults.
HOST_EXPORT Expected<void> accept(const Url &URL);
/// Returns whether both URLs, which must not be nil, have the same server in this sense.
HOST_EXPORT bool isSameServer(const Url &URL, const Url &other);
/// Forgets that the user has accepted it; has no effect if that is not so. Returns an error for the
/// user if that cannot be written. Blocks for the user defaults.
HOST_EXPORT Expected<void> forget(const Url &URL);

}  // namespace UnencryptedPasswords
