#pragma once

#include "Engine/EngineStore.h"

/// Stands where there is no store for the location's URL: opening it fails.
class UnreachableStore : public EngineStore {
public:
    using EngineStore::EngineStore;

protected:
    std::optional<Error> open() override;
    Fetched fetch(const PZFuture &future) override;
};
