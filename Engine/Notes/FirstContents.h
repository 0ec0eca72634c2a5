#pragma once

#include "Application/Interface/FirstContents.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Writes the initial contents into the empty tables of `profile`, and the folders of the sync
/// store to the disk. Must be called within a transaction of `profile`, on the main thread. Texts
/// are in the user's language. Errors have the code ProfileNotWritten, or ProfileUnusable if the
/// folders cannot be created.
Expected<void> writeFirstContents(const ProfileDatabase &profile, FirstContents contents);
