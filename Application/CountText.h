#pragma once

#include <QtCore/QString>

/// Returns `key`, an English text of `context` about `count` things, in the user's language and in
/// the plural form that `count` requires there.
///
/// `one` is the English text about one thing, or null if that is the same. Placeholders, also the
/// one of the count, are left to the caller. Thread-safe.
QString translateCount(const char *context, const char *key, const char *one, qint64 count);
