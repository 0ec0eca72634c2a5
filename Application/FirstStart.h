#pragma once

#include <QtCore/QString>

#include "Application/Interface/FirstContents.h"
#include "Host/LocationAdding.h"

/// What the user wants when Velmora is started for the first time. By default: decide later, and
/// begin empty.
struct FirstStart {
    FirstContents contents = FirstContents::Inbox;
    /// The kind of the location that is added next, see LocationOffer; empty if the user decides
    /// later.
    QString location;
    /// What follows when that location is added.
    LocationAdding::Next next = LocationAdding::Next::Nothing;
};
