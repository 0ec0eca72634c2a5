#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about synchronizations and clean-ups.
namespace DispatcherPromises {

QList<HostPromise> all();

}  // namespace DispatcherPromises
