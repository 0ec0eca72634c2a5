#pragma once

#include "Application/Interface/InterfaceExport.h"
#include "Platform/Foundation/Expected.h"

class QVSyncDispatcher;
class QVSyncState;

/// Knows whether something remains to be sent to the locations.
///
/// This is an optional addition to QVSyncDispatcher: the dispatcher of a host that has it is also a
/// QVUnsentChanges. Must be used on the main thread.
class INTERFACE_EXPORT QVUnsentChanges {
public:
    virtual ~QVUnsentChanges();

    /// Returns whether the database of `state` has changes that its location does not have yet;
    /// false if the database is not on this computer. Fails if that cannot be read. Blocks for the
    /// profile, shortly if nothing has changed since the last synchronization.
    virtual Expected<bool> hasUnsentChanges(const QVSyncState &state) const = 0;

    /// Returns the same for `state`; false if the host of `dispatcher`, which must not be null,
    /// does not know it.
    static Expected<bool> in(const QVSyncState &state, const QVSyncDispatcher *dispatcher);
};
