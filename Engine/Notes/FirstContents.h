#pragma once

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Initial contents of a new profile.
enum class FirstContents {
    /// The inbox alone.
    Inbox,
    /// The inbox, two example databases with notes, and a sync store in the profile folder as a
    /// location with which the first of these databases synchronizes. The examples are the same
    /// databases in all profiles of the same language.
    Welcome,
};

/// Writes the initial contents into the empty tables of `profile`, and the folders of the sync
/// store to the disk. Must be called within a transaction of `profile`, on the main thread. Texts
/// are in the user's language. Errors have the code ProfileNotWritten, or ProfileUnusable if the
/// folders cannot be created.
Expected<void> writeFirstContents(const ProfileDatabase &profile, FirstContents contents);
