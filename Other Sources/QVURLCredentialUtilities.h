#pragma once

#include <optional>

#include "Platform/Security/UrlCredential.h"
#include "Platform/Security/UrlProtectionSpace.h"

class Url;

/// Looks up the user's credential for the server of a URL in the shared credential storage.
/// Thread-safe. Lookups block as UrlCredentialStorage says.

/// Return the protection space of the server of `URL`: host, port (0 if the URL has none) and
/// scheme, without a realm. Empty for a nil URL.
std::optional<UrlProtectionSpace> QVHTTPBasicURLProtectionSpaceForURL(const Url &URL);
std::optional<UrlProtectionSpace> QVHTTPDigestURLProtectionSpaceForURL(const Url &URL);

/// Return the credential of the URL's user in that space or, if there is none, the space's default
/// one. Empty as well if it cannot be read: code that must distinguish that uses
/// UrlCredentialStorage itself.
std::optional<UrlCredential> QVHTTPBasicURLCredentialForURL(const Url &URL);
std::optional<UrlCredential> QVHTTPDigestURLCredentialForURL(const Url &URL);

/// Returns the credential for Basic or, if there is none, that for Digest; empty for a nil URL.
std::optional<UrlCredential> QVDefaultURLCredentialForURL(const Url &URL);
