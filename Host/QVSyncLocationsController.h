#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <memory>
#include <optional>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncLocation;

/// The user's sync locations in their order. It shares ownership of the locations in its list and
/// saves them. It announces no changes: code that changes the list must update what is derived from
/// it. A host may give its controller the signal "saved()", emitted after save() has succeeded.
/// Must be used on the main thread.
class HOST_EXPORT QVSyncLocationsController : public QObject {
    Q_OBJECT
public:
    ~QVSyncLocationsController() override;

    /// Returns the locations in the user's order. No entry is null.
    virtual QList<std::shared_ptr<QVSyncLocation>> syncLocations() const = 0;
    /// Returns the size of syncLocations().
    virtual qsizetype countOfSyncLocations() const = 0;
    /// Inserts `location` before the one at `index`, which must be from 0 to
    /// countOfSyncLocations(); that count appends. Any other index is a mistake of the caller,
    /// whose effect is not defined. Raises an AssertionFailure if `location` is null or not one of
    /// this host. It must not be in the list already.
    virtual void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                                    qsizetype index) = 0;
    /// Returns the index of this object (compared by identity), or -1 if the list does not contain
    /// it. `location` may be null.
    virtual qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const = 0;
    /// Removes the location at `index` with its states. Has no effect if `index` is not from 0 to
    /// countOfSyncLocations() - 1, in particular if it is the -1 of indexOfObjectInSyncLocations().
    /// Others who hold the location can continue to use it, but it is not saved any more.
    virtual void removeObjectFromSyncLocationsAtIndex(qsizetype index) = 0;
    /// Saves all locations with their states and schedules in one transaction. Returns true if they
    /// are on disk. Returns false if nothing was saved; if `error` is not null, it then receives
    /// the reason, and is not changed otherwise. Blocks for the time of a disk write.
    virtual bool save(std::optional<Error> *error) = 0;

    /// Connects the signal "saved()" to the slot `slot` of `receiver`, written as for
    /// QObject::connect() with the macro SLOT. Has no effect if the host's controller has no such
    /// signal. The connection ends with either object.
    void connectSaved(const QObject *receiver, const char *slot) const;
};
