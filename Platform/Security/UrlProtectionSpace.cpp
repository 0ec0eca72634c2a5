#include "Platform/Security/UrlProtectionSpace.h"

#include "Platform/Foundation/Url.h"

std::optional<UrlProtectionSpace> UrlProtectionSpace::ofURL(const Url &URL,
                                                            const QString &authenticationMethod) {
    if (URL.isNil()) {
        return std::nullopt;
    }
    return UrlProtectionSpace{.host = URL.host(),
                              .port = URL.port().value_or(0),
                              .protocol = URL.scheme(),
                              .realm = {},
                              .authenticationMethod = authenticationMethod};
}
