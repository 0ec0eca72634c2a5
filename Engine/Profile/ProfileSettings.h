#pragma once

#include <QtCore/QMap>
#include <QtCore/QVariant>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The table "settings" of a profile: values by key, which is compared with case. Used on the same
/// threads as the profile, which must be open. Every call blocks for the database; all errors have
/// the code ProfileNotWritten.
namespace ProfileSettings {

/// Returns the value of `key`; an invalid QVariant if there is none.
Expected<QVariant> value(const ProfileDatabase &profile, const QString &key);
/// Returns the values of all keys that begin with `prefix`, by what follows it. `prefix` must end
/// with an ASCII character. O(number of these keys), as is removeAll().
Expected<QMap<QString, QVariant>> values(const ProfileDatabase &profile, const QString &prefix);
/// Stores a value, replacing that of the same key. `value` must not be null.
Expected<void> set(const ProfileDatabase &profile, const QString &key, const QVariant &value);
/// Removes the value of `key`, if there is one.
Expected<void> remove(const ProfileDatabase &profile, const QString &key);
/// Removes the values of all keys that begin with `prefix`, which must end with an ASCII character,
/// and, if it is not empty, end with `suffix`.
Expected<void> removeAll(const ProfileDatabase &profile, const QString &prefix,
                         const QString &suffix = {});

}  // namespace ProfileSettings
