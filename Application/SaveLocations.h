#pragma once

#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Foundation/Expected.h"

/// Saves all sync locations with their ticks and schedules, as QVSyncLocationsController::save()
/// does. A failure leaves what is on the disk as it was, and the error is for the user. Must be
/// called on the main thread while a profile is open. Blocks for a disk write.
inline Expected<void> saveLocations() {
    std::optional<Error> error;
    if (!QVSyncPlugin::plugin()->locationsController()->save(&error)) {
        return failure(error.value_or(Error()));
    }
    return {};
}
