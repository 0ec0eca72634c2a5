#pragma once

#include <optional>

#include "Application/Interface/FirstContents.h"
#include "Platform/Interface/LocationAdding.h"

/// What the user wants when Velmora is started for the first time. By default: decide later, and
/// begin empty.
struct FirstStart {
    FirstContents contents = FirstContents::Inbox;
    /// The kind of the location that is added next; nothing if the user decides later.
    std::optional<LocationAdding::Kind> location;
    /// What follows when that location is added.
    LocationAdding::Next next = LocationAdding::Next::Nothing;
};
