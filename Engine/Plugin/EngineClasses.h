#pragma once

#include <memory>

class SyncEngine;

/// The class objects of one engine, registered under the host's names while this object exists, so
/// that the preference pane finds the engine with NSClassFromString(). At most one engine of a
/// process can have its classes registered at a time. Must be used on the main thread.
class EngineClasses {
public:
    /// Raises an AssertionFailure if the classes of another engine are registered. `engine` is not
    /// owned and must outlive this object. Its profile need not be open: until it is, the classes
    /// return no databases.
    explicit EngineClasses(SyncEngine &engine);
    /// Unregisters the classes. Cancels running Dropbox authorizations, waits for their threads,
    /// and calls their handlers with an error of the code Cancelled. Dropbox sessions must not be
    /// used afterwards.
    ~EngineClasses();
    EngineClasses(const EngineClasses &) = delete;
    EngineClasses &operator=(const EngineClasses &) = delete;

private:
    /// The class objects with their registrations.
    struct Objects;
    const std::unique_ptr<Objects> m_objects;
};
