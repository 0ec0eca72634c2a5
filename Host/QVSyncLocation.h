#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Host/QVSyncState.h"
#include "Platform/Foundation/Url.h"

class QVSyncStore;

/// A location that databases synchronize with, such as a folder or a server. Shared ownership: the
/// locations controller shares those in its list. Locations are compared by identity. Must be used
/// on the main thread.
class HOST_EXPORT QVSyncLocation : public QObject {
    Q_OBJECT
    Q_PROPERTY(Url URL READ URL WRITE setURL NOTIFY URLChanged)
    Q_PROPERTY(QVSyncStates synchronizationStates READ synchronizationStates NOTIFY
                   synchronizationStatesChanged)
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVSyncLocation"};
        /// Returns a new location that is in no list yet. `URL` may be nil; the location is then
        /// not configured until setURL() is called. Never null.
        virtual std::shared_ptr<QVSyncLocation> syncLocationWithURL(const Url &URL) const = 0;
    };

    ~QVSyncLocation() override;

    /// Returns the address, or nil if the location is not configured. The scheme determines the
    /// kind of location. Contains no password.
    virtual Url URL() const = 0;
    /// Sets the address, which may be nil, and announces `URL`, also if it is equal to the former
    /// one. Stores that were created before, and jobs that use them, continue with the former
    /// address. Not saved until QVSyncLocationsController::save() is called.
    virtual void setURL(const Url &URL) = 0;
    /// Returns the states in the order in which they were added, at most one for each database. No
    /// entry is null.
    virtual QVSyncStates synchronizationStates() const = 0;
    /// Returns the state of the database, or nullptr if it has none at this location; always
    /// nullptr for an empty UUID. O(1).
    virtual std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const = 0;
    /// Returns the state of the database. If there is none yet, adds one that is disabled and has
    /// no schedule, and announces `synchronizationStates`; otherwise `name` is ignored. A new state
    /// synchronizes its database neither when that is opened nor when it is closed. Never null.
    /// Raises an AssertionFailure if `UUID` is empty.
    virtual std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                                     const QString &name) = 0;
    /// Returns a new store, not open yet, for the location's current address. Never null: if the
    /// address is nil or of an unknown kind, opening the store fails. The store shares ownership of
    /// the location.
    virtual std::shared_ptr<QVSyncStore> createStore() = 0;

Q_SIGNALS:
    /// Emitted by setURL(), once, when URL() returns the new address.
    void URLChanged();
    /// Emitted by addStateForDatabaseWithUUID(), once, when the states contain the new one, and
    /// when a state was removed.
    void synchronizationStatesChanged();
};
