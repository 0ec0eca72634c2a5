#pragma once

#include <QtCore/QHash>

#include "Engine/Locations/EngineSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Reads the locations with their states from the profile, and writes what has changed in one
/// transaction. What another process has removed or changed in the meantime stays as it left it,
/// unless it was changed here too; a location that it has removed does not come back.
class EngineLocationsController : public QVSyncLocationsController {
    Q_OBJECT
public:
    /// `profile` must outlive this.
    EngineLocationsController(const ProfileDatabase &profile,
                              std::shared_ptr<const EngineLocationKinds> kinds);

    /// Takes over what the profile holds; called once, when it was opened.
    Expected<void> load();

    QList<std::shared_ptr<QVSyncLocation>> syncLocations() const override;
    qsizetype countOfSyncLocations() const override { return m_locations.size(); }
    void insertObjectInSyncLocationsAtIndex(const std::shared_ptr<QVSyncLocation> &location,
                                            qsizetype index) override;
    qsizetype indexOfObjectInSyncLocations(
        const std::shared_ptr<QVSyncLocation> &location) const override;
    void removeObjectFromSyncLocationsAtIndex(qsizetype index) override;
    bool save(std::optional<Error> *error) override;

Q_SIGNALS:
    /// Emitted after a location was removed from the list, with its identifier.
    void locationRemoved(const QString &identifier);

private:
    /// What the profile holds of a location, without its states.
    struct Row {
        QString URLText;
        qsizetype position = 0;
        bool operator==(const Row &) const = default;
    };
    using Locations = QList<std::shared_ptr<EngineSyncLocation>>;

    Expected<void> loadLocations();
    Expected<void> loadStates();
    Expected<void> writeLocations() const;
    Expected<void> writeLocation(const QString &identifier, const Row &row) const;
    Expected<void> writeStates() const;
    bool isSaved(const EngineSyncLocation &location) const;
    void rememberSaved();

    const ProfileDatabase &m_profile;
    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    Locations m_locations;
    /// The locations that the profile holds, by their identifiers.
    QHash<QString, Row> m_saved;
};
