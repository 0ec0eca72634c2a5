#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// `date` as a person would say it at `now`: "today at 10:32", "yesterday at …", "tomorrow at …",
/// or else the short date and time of the user's locale. Both in local time. Empty for an invalid
/// date.
PLATFORM_EXPORT QString relativeDateString(const QDateTime &date, const QDateTime &now);
