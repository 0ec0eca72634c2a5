#pragma once

#include <QtCore/QList>

#include "HostCheck/HostCheckExport.h"
#include "HostCheck/HostFinding.h"
#include "HostCheck/HostPromise.h"

/// Checks whether the registered host keeps the promises of the headers in the folder Host. Must be
/// used on the main thread, while NSApp() is set. The checks add locations and states to the host
/// and start synchronizations, so they must not be run with what a user has.
namespace HostCheck {

/// Returns all promises, in the order of the headers. No two have the same key.
HOSTCHECK_EXPORT QList<HostPromise> promises();

/// Checks one promise. Runs the event loop until the host has answered, for half a minute at most:
/// a handler that was not called by then counts as one that is never called. An exception that the
/// host raises breaks the promise. A function of the host that does not return is not noticed.
HOSTCHECK_EXPORT HostFinding find(const HostPromise &promise);

}  // namespace HostCheck
