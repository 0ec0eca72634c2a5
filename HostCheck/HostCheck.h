#pragma once

#include <QtCore/QList>

#include "HostCheck/HostCheckExport.h"
#include "HostCheck/HostFinding.h"
#include "HostCheck/HostPromise.h"

class QVHostPlugIn;

/// Checks whether the registered host keeps the promises of the headers in the folder Host. Must be
/// used on the main thread, while NSApp() is set. The checks add locations, states and databases to
/// the host, start synchronizations and web servers on this computer, and change NSApp() and the
/// user defaults (and change them back), so they must not be run with what a user has.
namespace HostCheck {

/// Returns all promises, in the order of the headers. No two have the same key.
HOSTCHECK_EXPORT QList<HostPromise> promises();

/// Returns what a finding says of `promise` without its result.
HOSTCHECK_EXPORT HostFinding findingOf(const HostPromise &promise);

/// Checks one promise. Runs the event loop until the host has responded, for half a minute at most:
/// a handler that was not called by then counts as one that is never called. An exception that the
/// host raises breaks the promise. If a function of the host does not return, neither does this;
/// velmora-check-host notices that. `host`, which is not owned and has begun, opens the databases
/// about which it is notified; without it, promises about these are not offered.
HOSTCHECK_EXPORT HostFinding find(const HostPromise &promise, QVHostPlugIn *host = nullptr);

}  // namespace HostCheck
