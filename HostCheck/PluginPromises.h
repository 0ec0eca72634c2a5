#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about the plug-in, the databases, the application and the grants.
namespace PluginPromises {

QList<HostPromise> all();

}  // namespace PluginPromises
