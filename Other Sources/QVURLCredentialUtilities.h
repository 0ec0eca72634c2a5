#pragma once

#include <optional>

#include "Platform/Security/UrlCredential.h"
#include "Platform/Security/UrlProtectionSpace.h"

class Url;

/// The credential of the user at the server of a URL, in the shared credential storage. A server is
/// asked for by host, port (0 where the URL has none) and scheme, without a realm. Any thread; how
/// long a look-up may take is said in UrlCredentialStorage.h.

/// Empty for a nil URL.
std::optional<UrlProtectionSpace> QVHTTPBasicURLProtectionSpaceForURL(const Url &URL);
std::optional<UrlProtectionSpace> QVHTTPDigestURLProtectionSpaceForURL(const Url &URL);

/// The credential of the URL's user or, where there is none, the default one of the space.
std::optional<UrlCredential> QVHTTPBasicURLCredentialForURL(const Url &URL);
std::optional<UrlCredential> QVHTTPDigestURLCredentialForURL(const Url &URL);

/// That for Basic or, where there is none, that for Digest; empty for a nil URL.
std::optional<UrlCredential> QVDefaultURLCredentialForURL(const Url &URL);
