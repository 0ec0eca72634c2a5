#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about locations and their descriptions.
namespace LocationPromises {

/// Returns the promises in the order in which they are checked. Must be called on the main thread,
/// on which the checks run, too.
QList<HostPromise> all();

}  // namespace LocationPromises
