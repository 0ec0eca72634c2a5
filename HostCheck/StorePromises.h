#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about stores and their handlers.
namespace StorePromises {

QList<HostPromise> all();

}  // namespace StorePromises
