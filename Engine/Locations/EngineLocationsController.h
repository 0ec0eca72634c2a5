#pragma once

#include <QtCore/QHash>

#include "Engine/Locations/EngineSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Reads the locations with their states from the profile, and writes what has changed in one
/// transaction. Changes and removals by another process are kept unless the same value was changed
/// here too; a location that it has removed is not written again. Must be used on the main thread.
/// Every function that reads or writes the profile blocks for the disk.
class EngineLocationsController : public QVSyncLocationsController {
    Q_OBJECT
public:
    /// `profile` is not owned and must outlive this object. `kinds` must not be null. The list is
    /// empty before load().
    EngineLocationsController(const ProfileDatabase &profile,
                              std::shared_ptr<const EngineLocationKinds> kinds);

    /// Reads the locations and states from the profile. Must be called once, after the profile was
    /// opened. If it fails, the controller must not be used. States of locations that do not exist
    /// are ignored.
    Expected<void> load();

    QList<std::shared_ptr<QVSyncLocation>> syncLocations() const override;
    qsizetype countOfSyncLocations() const override { return m_locations.size(); }
    /// `location` must be an EngineSyncLocation. Neither this nor removing is saved until save() is
    /// called. A location may be inserted again after it was removed; it is saved with all its
    /// states, whether or not the removal was saved meanwhile.
    void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                            qsizetype index) override;
    /// Locations are compared by identity. O(n).
    qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const override;
    /// An index out of range is ignored. Otherwise emits locationRemoved(), whose slots find the
    /// list without the location.
    void removeObjectFromSyncLocationsAtIndex(qsizetype index) override;
    /// Writes the locations and states that have changed, in one transaction. If it fails, nothing
    /// is written and the changes remain to be saved. Values that were not changed here are not
    /// written, so it is quick if nothing was. The URL of a location whose removal is saved is
    /// recorded, see removedLocations(), and so is the former URL of a location that has another
    /// one now, as if a location of that URL had been removed.
    bool save(std::optional<Error> *error) override;

    /// Returns the states of the database that stores name `UUID`, at all listed locations.
    QList<std::shared_ptr<EngineSyncState>> statesOf(const QString &UUID) const;
    /// Deletes these states, of all saved locations, from the profile. Must be called within a
    /// transaction of it, and be followed by forgetStates() once that is durable.
    Expected<void> deleteStates(const QString &UUID) const;
    /// Removes these states from the listed locations.
    void forgetStates(const QString &UUID);

    /// Return the identifiers of the locations whose removal was saved, and the URL that such a
    /// location had; empty if the removal of `identifier` is not recorded. Adding the location
    /// again removes the record.
    Expected<QStringList> removedLocations() const;
    /// Returns a nil URL if the location had none or its text cannot be parsed.
    Expected<std::optional<Url>> removedURL(const QString &identifier) const;
    /// Removes the record of a removal. Succeeds if there is none.
    Expected<void> forgetRemoval(const QString &identifier) const;

Q_SIGNALS:
    /// Emitted after a location was inserted into the list, possibly with the states that it had
    /// when it was removed.
    void locationInserted(EngineSyncLocation &location);
    /// Emitted after a location was removed from the list, with its identifier; the removal is not
    /// saved yet and may be undone. Jobs of the location should end now.
    void locationRemoved(const QString &identifier);
    /// Emitted after save() has succeeded.
    void saved();
    /// Emitted after save() has recorded the former URL of a location, with the identifier under
    /// which it is recorded, which is not that of the location.
    void addressReplaced(const QString &identifier);

private:
    /// The values of a location's row in the profile.
    struct Row {
        QString URLText;
        qsizetype position = 0;
        bool operator==(const Row &) const = default;
    };
    using Locations = QList<std::shared_ptr<EngineSyncLocation>>;

    /// Steps of load() and save().
    Expected<void> loadLocations();
    /// Must follow loadLocations().
    Expected<void> loadStates();
    Expected<void> writeLocations() const;
    Expected<void> writeLocation(const QString &identifier, const Row &row) const;
    Expected<void> deleteLocation(const QString &identifier) const;
    /// Returns the saved URLs of the locations that have another one now, by new identifiers.
    QHash<QString, QString> formerURLTexts() const;
    Expected<void> recordRemovals(const QHash<QString, QString> &URLTexts) const;
    Expected<void> recordRemoval(const QString &identifier, const QString &URLText) const;
    Expected<void> writeStates() const;
    /// Returns whether the profile contains the location.
    bool isSaved(const EngineSyncLocation &location) const;
    /// Marks all locations and states as saved.
    void rememberSaved();

    const ProfileDatabase &m_profile;
    /// Passed to the locations that are read.
    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    Locations m_locations;
    /// The locations that the profile holds, by their identifiers.
    QHash<QString, Row> m_saved;
};
