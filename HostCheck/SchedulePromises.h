#pragma once

#include <QtCore/QList>

#include "HostCheck/HostPromise.h"

/// The promises about schedules, also where the clock is changed.
namespace SchedulePromises {

QList<HostPromise> all();

}  // namespace SchedulePromises
