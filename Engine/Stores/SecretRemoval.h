#pragma once

#include <QtCore/QString>
#include <functional>

#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/Url.h"

/// A request to delete the secrets of a location that was removed from the list. A value, which may
/// be kept as long as the deletion lasts. Must be used on the main thread.
struct SecretRemoval {
    /// The identifier and the URL of the location when it was removed.
    QString identifier;
    Url URL;
    /// Returns whether a location of the list needs the same secrets now. May be called at any
    /// time; returns true after the engine has ended. Check it again right before something is
    /// deleted that took time to find.
    std::function<bool()> isNeeded;
    /// Must be called once, on the main thread, now or later: with an error if secrets may be left,
    /// which are then deleted in a later run. Not calling it has the same effect as an error,
    /// without a report to the user. Has no effect after the engine has ended.
    std::function<void(const Expected<void> &forgotten)> finish;
};
