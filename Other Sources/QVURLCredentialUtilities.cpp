#include "Other Sources/QVURLCredentialUtilities.h"

#include "Platform/Foundation/Url.h"
#include "Platform/Security/UrlCredentialStorage.h"

namespace {

std::optional<UrlProtectionSpace> protectionSpace(const Url &URL, const QString &method) {
    if (URL.isNil()) {
        return {};
    }
    return UrlProtectionSpace{.host = URL.host(),
                              .port = URL.port().value_or(0),
                              .protocol = URL.scheme(),
                              .realm = {},
                              .authenticationMethod = method};
}

std::optional<UrlCredential> credential(const std::optional<UrlProtectionSpace> &space,
                                        const Url &URL) {
    UrlCredentialStorage &storage = UrlCredentialStorage::shared();
    if (!URL.user().isNull()) {
        const auto credentials = storage.credentialsForProtectionSpace(space);
        if (const auto found = credentials.constFind(URL.user()); found != credentials.cend()) {
            return *found;
        }
    }
    return storage.defaultCredentialForProtectionSpace(space);
}

}  // namespace

std::optional<UrlProtectionSpace> QVHTTPBasicURLProtectionSpaceForURL(const Url &URL) {
    return protectionSpace(URL, UrlAuthenticationMethodHttpBasic);
}

std::optional<UrlProtectionSpace> QVHTTPDigestURLProtectionSpaceForURL(const Url &URL) {
    return protectionSpace(URL, UrlAuthenticationMethodHttpDigest);
}

std::optional<UrlCredential> QVHTTPBasicURLCredentialForURL(const Url &URL) {
    return credential(QVHTTPBasicURLProtectionSpaceForURL(URL), URL);
}

std::optional<UrlCredential> QVHTTPDigestURLCredentialForURL(const Url &URL) {
    return credential(QVHTTPDigestURLProtectionSpaceForURL(URL), URL);
}

std::optional<UrlCredential> QVDefaultURLCredentialForURL(const Url &URL) {
    if (URL.isNil()) {
        return {};
    }
    const std::optional<UrlCredential> basic = QVHTTPBasicURLCredentialForURL(URL);
    return basic ? basic : QVHTTPDigestURLCredentialForURL(URL);
}
