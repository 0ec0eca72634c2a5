#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about locations and their descriptions.
namespace LocationPromises {

QList<HostPromise> all();

}  // namespace LocationPromises
