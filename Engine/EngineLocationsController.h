#pragma once

#include "Engine/EngineSyncLocation.h"
#include "Host/QVSyncLocationsController.h"

class ProfileDatabase;

/// The locations of a profile. Only locations that have changed are written again.
class EngineLocationsController : public QVSyncLocationsController {
    Q_OBJECT
public:
    /// `profile` outlives the controller.
    explicit EngineLocationsController(ProfileDatabase *profile) : m_profile(profile) {}

    /// Reads the locations with their states. What cannot be understood is kept as far as it can
    /// be.
    std::optional<Error> load();

    QList<std::shared_ptr<QVSyncLocation>> syncLocations() const override;
    qsizetype countOfSyncLocations() const override { return m_locations.size(); }
    void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                            qsizetype index) override;
    qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const override;
    void removeObjectFromSyncLocationsAtIndex(qsizetype index) override;
    bool save(std::optional<Error> *error) override;

private:
    bool writeLocations(QList<qint64> &rowIds);
    bool writeStates(const EngineSyncLocation &location, qint64 rowId);

    ProfileDatabase *const m_profile;
    QList<std::shared_ptr<EngineSyncLocation>> m_locations;
};
