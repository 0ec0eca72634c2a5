#include "Engine/UnreachableStore.h"

#include "Engine/EngineError.h"
#include "Platform/Foundation/Localization.h"

std::optional<Error> UnreachableStore::open() {
    const QString description =
        URL().isNil() ? localizedSyncString("This location has no address yet.")
                      : localizedSyncString("Locations of the kind “%1” cannot be reached yet.")
                            .arg(URL().scheme());
    return engineError(EngineErrorCode::StoreUnreachable, description);
}

EngineStore::Fetched UnreachableStore::fetch(const PZFuture & /*future*/) {
    return {{}, open()};
}
