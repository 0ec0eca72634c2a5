#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about the list of locations.
namespace LocationsControllerPromises {

QList<HostPromise> all();

}  // namespace LocationsControllerPromises
