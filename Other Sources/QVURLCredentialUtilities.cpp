#include "Other Sources/QVURLCredentialUtilities.h"

#include "Platform/Foundation/Url.h"
#include "Platform/Security/UrlCredentialStorage.h"

std::optional<UrlProtectionSpace> QVHTTPBasicURLProtectionSpaceForURL(const Url &URL) {
    return UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpBasic);
}

std::optional<UrlProtectionSpace> QVHTTPDigestURLProtectionSpaceForURL(const Url &URL) {
    return UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpDigest);
}

std::optional<UrlCredential> QVHTTPBasicURLCredentialForURL(const Url &URL) {
    return UrlCredentialStorage::shared()
        .credentialForURL(URL, UrlAuthenticationMethodHttpBasic)
        .value_or(std::nullopt);
}

std::optional<UrlCredential> QVHTTPDigestURLCredentialForURL(const Url &URL) {
    return UrlCredentialStorage::shared()
        .credentialForURL(URL, UrlAuthenticationMethodHttpDigest)
        .value_or(std::nullopt);
}

std::optional<UrlCredential> QVDefaultURLCredentialForURL(const Url &URL) {
    return UrlCredentialStorage::shared().credentialForURL(URL).value_or(std::nullopt);
}
