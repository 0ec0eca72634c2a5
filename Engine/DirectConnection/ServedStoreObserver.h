#pragma once

#include <functional>

/// Observer that keeps the served sync store in sync with this computer's databases. Called on the
/// main thread. Not owned by the server, which stops before it is destroyed.
class ServedStoreObserver {
public:
    virtual ~ServedStoreObserver() = default;

    /// Called when an authorized client is about to read the store. The client waits until
    /// `proceed` is called, on the main thread, within this call or later; it may have disconnected
    /// by then. `proceed` is never empty; calling it twice has no effect. It may be called after
    /// the server was stopped or destroyed.
    virtual void clientWillRead(std::function<void()> proceed) = 0;
    /// Called after clients have written to the store, at least once after the last write. Several
    /// writes may be combined.
    virtual void clientsDidWrite() = 0;
};
