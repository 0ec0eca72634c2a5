#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about passwords and their servers.
namespace CredentialPromises {

QList<HostPromise> all();

}  // namespace CredentialPromises
