#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about the server and Dropbox.
namespace ServicePromises {

QList<HostPromise> all();

}  // namespace ServicePromises
