#pragma once

#include <QtCore/QString>

#include "Platform/PlatformExport.h"

/// Percent encoding. Hexadecimal digits are written in upper case. Thread-safe.
namespace PercentEscapes {

/// The reserved characters of RFC 3986, section 2.2: "sub-delims", which any part of a URL may
/// contain, and "gen-delims", which separate the parts.
inline constexpr char SubDelimiters[] = "!$&'()*+,;=";
inline constexpr char GeneralDelimiters[] = ":/?#[]@";

/// Returns `text` in UTF-8 with every byte percent-encoded except the unreserved characters of RFC
/// 3986, section 2.3, and the ASCII characters in `kept`.
PLATFORM_EXPORT QByteArray encoding(const QString &text, const QByteArray &kept = {});
/// Returns `path` with every byte percent-encoded that must not occur in the path of a URL
/// according to RFC 3986, section 3.3. Slashes are kept, so that `path` may have several
/// components; a percent sign is encoded, so a path must not be encoded twice.
PLATFORM_EXPORT QString encodingPath(const QString &path);
/// Returns `text`, which must be ASCII, with its percent escapes replaced by the UTF-8 text that
/// they encode. The escapes must be complete, as Url verifies; bytes that are not UTF-8 become
/// replacement characters.
PLATFORM_EXPORT QString decoding(QStringView text);

/// Returns `text` in UTF-8 with every byte percent-encoded that must not occur in a URL according
/// to RFC 2396: all except the unreserved characters (letters, digits, "-_.!~*'()") and the
/// reserved characters ";/?:@&=+$,". Characters of these that `alsoEscaped` contains are encoded
/// too. Percent signs are encoded. Characters of `alsoEscaped` that are not ASCII have no effect,
/// because all such characters are encoded.
PLATFORM_EXPORT QString adding(const QString &text, const QString &alsoEscaped = {});

}  // namespace PercentEscapes
