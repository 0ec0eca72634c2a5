#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about the notifications that a host posts, and about their objects.
namespace NotificationPromises {

QList<HostPromise> all();

}  // namespace NotificationPromises
