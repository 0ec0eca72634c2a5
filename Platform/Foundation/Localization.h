#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "Platform/PlatformExport.h"

class QTranslator;

/// Returns `key`, an English text in UTF-8, in the user's language as the table `table` has it.
///
/// Only the translator that was set for the table is searched; translators that are installed in
/// the application are not, even if they know a context of the same name. Returns the key itself if
/// the table has no translator or the translator has no such text. Thread-safe. Neither argument
/// may be null. Texts with comments are not supported. Blocks only while a table is added or
/// removed.
PLATFORM_EXPORT QString localizedString(const char *table, const char *key);

/// Returns `key`, an English text about `count` things, in the user's language and in the plural
/// form that `count` requires there.
///
/// The table must have plural forms for the key. If it has no such text, or the table has no
/// translator, returns `one`, the English text about one thing, if `count` is 1, and otherwise the
/// key. `one` is null if the English text does not depend on the count. Placeholders, also the one
/// of the count, are left to the caller. Thread-safe and blocks as the function above.
PLATFORM_EXPORT QString localizedString(const char *table, const char *key, const char *one,
                                        qint64 count);

/// Returns a number that fits an `int` and requires the same plural form as `count` in every
/// language. A negative count is 0.
PLATFORM_EXPORT int pluralCount(qint64 count);

/// Returns the language of `table`, as its translator states it, for example "de_DE"; empty if the
/// table has none, so that its texts are English. `table` must not be null. Thread-safe.
PLATFORM_EXPORT QString localizationLanguage(const char *table);

/// The table of Platform's own texts.
inline constexpr char PlatformTable[] = "Platform";

/// Makes `translator` the source of the texts of `table`, which is the name of a context in it.
///
/// The translator is not owned. It must not be null, and must be removed by
/// `removeLocalizationTables` before it is destroyed. An earlier translator of the same table is
/// not used again until this one is removed. Thread-safe. Texts that were returned before do not
/// change.
PLATFORM_EXPORT void addLocalizationTable(const QByteArray &table, const QTranslator *translator);

/// Removes `translator` from each table; the one that was set before it is used again. Has no
/// effect if there is none. Thread-safe; no other thread uses the translator any more when this
/// returns.
PLATFORM_EXPORT void removeLocalizationTables(const QTranslator *translator);
