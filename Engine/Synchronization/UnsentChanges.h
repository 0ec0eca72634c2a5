#pragma once

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/NoteLog.h"

/// The changes of a database that a store does not have yet, as far as the profile knows the store.
/// Must be used on the main thread; blocks for the profile.
namespace UnsentChanges {

/// Returns whether there are any. Changes that were received from another store count until the
/// next synchronization with this one, even if another computer has already written them there. If
/// records have disappeared from the store, what they contained counts from when a synchronization
/// notices that until it has read the records that have it. Everything counts as long as no
/// synchronization with it was completed since it was added, or since it lost something. O(log n).
Expected<bool> exist(const NoteLog &log, const KnownTransactions &known);

}  // namespace UnsentChanges
