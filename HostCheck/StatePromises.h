#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about the states of databases at locations.
namespace StatePromises {

QList<HostPromise> all();

}  // namespace StatePromises
