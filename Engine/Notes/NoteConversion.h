#pragma once

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Writes the notes of the table "old_notes", in which profiles of schema version 1 stored them,
/// and the names of all databases as operations. Must be called within a transaction of `profile`,
/// on the main thread. "old_notes" itself is not changed.
Expected<void> convertOldNotes(const ProfileDatabase &profile);
