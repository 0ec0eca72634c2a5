#pragma once

#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Expected.h"

/// Saves all sync locations with their ticks and schedules, as QVSyncLocationsController::save()
/// does. A failure leaves what is on the disk as it was; the error is for the user, also if the
/// host gives no reason. Must be called on the main thread. Blocks for a disk write.
inline Expected<void> saveLocations(
    QVSyncLocationsController &controller = *QVSyncPlugin::plugin()->locationsController()) {
    std::optional<Error> error;
    if (controller.save(&error)) {
        return {};
    }
    return failure(error.value_or(Error{
        .domain = SyncErrorDomain,
        .localizedDescription = localizedSyncString(
            "Your changes to the sync locations could not be saved, and the reason is not known. "
            "Check the space on the disk, and try again.")}));
}
