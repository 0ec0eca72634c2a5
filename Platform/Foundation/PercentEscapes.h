#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Percent encoding according to RFC 2396. Thread-safe.
namespace PercentEscapes {

/// Returns `text` in UTF-8 with every byte percent-encoded (hexadecimal digits in upper case) that
/// must not occur in a URL: all except the unreserved characters (letters, digits, "-_.!~*'()") and
/// the reserved characters ";/?:@&=+$,". Characters of these that `alsoEscaped` contains are
/// encoded too.
PLATFORM_EXPORT QString adding(const QString &text, const QString &alsoEscaped = {});

}  // namespace PercentEscapes
