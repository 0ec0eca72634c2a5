#pragma once

#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Notes/NoteLog.h"

/// The changes of a database that a store does not have yet, as far as the profile knows the store.
/// Must be used on the main thread; blocks for the profile.
namespace UnsentChanges {

/// Returns whether there are any. O(log n) if nothing has changed and no record was removed since
/// the last synchronization, otherwise O(n).
Expected<bool> exist(const NoteLog &log, const KnownTransactions &known);

}  // namespace UnsentChanges
