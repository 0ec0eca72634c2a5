#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

#include "Platform/PlatformExport.h"

/// The user's settings of the application, shared by everything in its process and kept between
/// runs. Any thread.
namespace UserDefaults {

/// False where nothing is set.
PLATFORM_EXPORT bool boolForKey(const QString &key);
/// 0 where nothing is set.
PLATFORM_EXPORT int integerForKey(const QString &key);
/// Empty where nothing is set.
PLATFORM_EXPORT QString stringForKey(const QString &key);
PLATFORM_EXPORT bool contains(const QString &key);
PLATFORM_EXPORT void setValue(const QString &key, const QVariant &value);
PLATFORM_EXPORT void remove(const QString &key);

}  // namespace UserDefaults
