#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <memory>
#include <optional>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncLocation;

/// Owns the person's sync locations, in their order, and saves them. Main thread.
class HOST_EXPORT QVSyncLocationsController : public QObject {
    Q_OBJECT
public:
    ~QVSyncLocationsController() override;

    virtual QList<std::shared_ptr<QVSyncLocation>> syncLocations() const = 0;
    virtual qsizetype countOfSyncLocations() const = 0;
    /// `index` from 0 to the count; the count appends.
    virtual void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                                    qsizetype index) = 0;
    /// The index of that very object, or -1.
    virtual qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const = 0;
    /// Removes the location and, with it, its states from what is saved.
    virtual void removeObjectFromSyncLocationsAtIndex(qsizetype index) = 0;
    /// Saves all locations with their states and schedules, or nothing: then it answers false and,
    /// where `error` is given, says why in it.
    virtual bool save(std::optional<Error> *error) = 0;
};
