#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about futures.
namespace FuturePromises {

QList<HostPromise> all();

}  // namespace FuturePromises
