#pragma once

#include "Engine/Stores/Http/CertificateTrust.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"
#include "Support/TestLocation.h"

/// Returns a store of no engine, which trusts no certificate that no authority vouches for.
inline std::shared_ptr<WebDAVStore> webDAVStoreWithoutEngine(const QString &URLText,
                                                             HttpClient::Timeouts timeouts = {}) {
    const ProfileDatabase noProfile;
    const auto trust = std::make_shared<CertificateTrust>(noProfile);
    trust->close();
    const auto location = locationWithoutEngine(Url::fromString(URLText));
    return std::make_shared<WebDAVStore>(location, std::make_shared<StoreOperations>(),
                                         location->identifier(), trust, timeouts);
}
