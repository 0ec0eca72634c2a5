#pragma once

#include "Engine/Locations/EngineSyncLocation.h"

/// Returns a location of no engine, whose own stores cannot be used.
inline std::shared_ptr<EngineSyncLocation> locationWithoutEngine(const Url &URL = {}) {
    return std::make_shared<EngineSyncLocation>(
        URL, std::make_shared<EngineLocationKinds>(std::make_shared<StoreOperations>()));
}
