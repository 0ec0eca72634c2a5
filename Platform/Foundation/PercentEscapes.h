#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Percent escapes as RFC 2396 has them. Any thread.
namespace PercentEscapes {

/// `text` in UTF-8 with every byte escaped, in capital digits, that may not stand in a URL: all but
/// the unreserved characters (letters, digits, "-_.!~*'()") and the reserved ";/?:@&=+$,". Those of
/// them that `alsoEscaped` holds are escaped too.
PLATFORM_EXPORT QString adding(const QString &text, const QString &alsoEscaped = {});

}  // namespace PercentEscapes
