#pragma once

#include "Engine/EngineStore.h"

/// Stands for a store that this engine cannot reach. Opening it fails and says so.
class UnsupportedStore : public EngineStore {
public:
    using EngineStore::EngineStore;

protected:
    std::optional<Error> open() override;
    Fetched fetchDatabases() override;
};
