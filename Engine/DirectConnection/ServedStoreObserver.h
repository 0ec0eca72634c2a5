#pragma once

#include <functional>

/// Who keeps the sync store that the direct-connection server serves in step with the databases of
/// this computer. Main thread.
class ServedStoreObserver {
public:
    virtual ~ServedStoreObserver() = default;

    /// An authorized client is about to look into the store. It waits until `proceed` is called,
    /// on the main thread, within this call or later; the client may be gone by then.
    virtual void clientWillRead(std::function<void()> proceed) = 0;
    /// Clients have written into the store since the last call.
    virtual void clientsDidWrite() = 0;
};
