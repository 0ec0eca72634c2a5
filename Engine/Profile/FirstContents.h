#pragma once

#include <optional>

#include "Platform/Foundation/Error.h"

class ProfileDatabase;

/// With what a new profile begins.
enum class FirstContents {
    /// The inbox alone.
    Inbox,
    /// The inbox, two databases with notes, and a sync store in the profile folder for one of them.
    Welcome,
};

/// Writes them into the empty tables of `profile`, inside the transaction of the caller.
std::optional<Error> writeFirstContents(const ProfileDatabase &profile, FirstContents contents);
