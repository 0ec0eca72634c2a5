#include "Engine/UnsupportedStore.h"

#include "Engine/EngineError.h"
#include "Platform/Foundation/Localization.h"

std::optional<Error> UnsupportedStore::open() {
    return engineError(
        EngineErrorCode::StoreUnsupported,
        localizedSyncString("This version of Velmora cannot reach locations of this kind."));
}

EngineStore::Fetched UnsupportedStore::fetchDatabases() {
    return {std::nullopt, open()};
}
