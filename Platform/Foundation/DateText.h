#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QLocale>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Dates with names of days and months, which are in the language of the texts: that of the table
/// PlatformTable, or English. The system may have another language for dates (LC_TIME) than for
/// texts (LANGUAGE, LC_MESSAGES). Times and numbers are as usual in the user's region, see
/// QLocale(). Thread-safe.
namespace DateText {

/// Returns the name of a day, which is a Qt::DayOfWeek, as it stands alone.
PLATFORM_EXPORT QString dayName(int day, QLocale::FormatType format);
/// Returns the date with the names of its day and month; empty if it is not valid.
PLATFORM_EXPORT QString longDate(const QDate &date);
/// Returns the same with the time, to the second, in the time zone of this computer.
PLATFORM_EXPORT QString longDate(const QDateTime &date);
/// Returns the date as it is usual in the user's region in short, which has a name in some; empty
/// if it is not valid.
PLATFORM_EXPORT QString shortDate(const QDate &date);
/// Returns the same with the time, in the time zone of `date`.
PLATFORM_EXPORT QString shortDate(const QDateTime &date);

}  // namespace DateText
