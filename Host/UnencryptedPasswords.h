#pragma once

#include "Host/HostExport.h"

class Url;

/// The servers to which a password may be sent in a way that everybody on the network can read: the
/// user has accepted the sheet of a location that says so. Stored in the user defaults, by host and
/// port. Thread-safe.
namespace UnencryptedPasswords {

/// Returns whether the user has accepted that for the server of `URL`.
HOST_EXPORT bool areAccepted(const Url &URL);
/// Stores that the user has accepted it.
HOST_EXPORT void accept(const Url &URL);

}  // namespace UnencryptedPasswords
