#pragma once

#include "Platform/Foundation/Localization.h"

/// The table of the texts of the pane and its hosts, of which a host returns some: see
/// QVSyncLocationFormatter::locationType().
inline constexpr char SyncTable[] = "Sync";

/// The domain of the errors that the pane makes, also of what a host reports. They have no codes.
inline const QString SyncErrorDomain = QStringLiteral("SyncPreferences");

/// Returns `key`, an English text in UTF-8, in the user's language as the sync plug-in's own table
/// has it, or `key` if the table has no such text. Thread-safe.
///
/// The second parameter exists for code that uic generates and is ignored. `key` must not be null.
inline QString localizedSyncString(const char *key, const char * /*comment*/ = nullptr) {
    return localizedString(SyncTable, key);
}

/// Returns `key`, an English text about `count` things, in the user's language and in the plural
/// form that `count` requires there. `one` is the English text about one thing, or null if that is
/// the same. Placeholders are left to the caller. Thread-safe.
inline QString localizedSyncCount(const char *key, const char *one, qint64 count) {
    return localizedString(SyncTable, key, one, count);
}
