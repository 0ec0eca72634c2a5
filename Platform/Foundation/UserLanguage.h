#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Returns the user's language for texts that are in English unless a table translates them.
///
/// The user's languages are those of `QLocale().uiLanguages()`, in their order. The result is the
/// first one for which `folder` has a table, the file `table`_LANGUAGE.qm; a variant of a country
/// falls back to its language. The result is such a LANGUAGE, for example "de" or "pt_BR". It is
/// empty if English comes first, or if no language has a table or `folder` cannot be read.
/// Thread-safe unless the default locale is changed at the same time; blocks for the file system.
PLATFORM_EXPORT QString userLanguage(const QString &folder, const QString &table);
