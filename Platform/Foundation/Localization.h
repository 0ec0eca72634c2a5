#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// `key`, an English text in UTF-8, in the person's language as the table "Sync" of the sync
/// plug-in has it; the key itself where the table has nothing. The second parameter serves uic and
/// is not read.
PLATFORM_EXPORT QString localizedSyncString(const char *key, const char *comment = nullptr);
