#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Returns `date` as text in the user's language, relative to `now`: "today at 10:32", "yesterday
/// at …", "tomorrow at …", or the short date and time of the user's locale for any other day. Days
/// are those of the local time zone, in which `now` must be given; `date` may be in any. Returns an
/// empty text for an invalid date. The text is that of one moment: compute it again when DayChange
/// announces a new day. Thread-safe.
PLATFORM_EXPORT QString relativeDateString(const QDateTime &date, const QDateTime &now);
