#pragma once

#include <QtCore/QHash>

#include "Engine/Locations/EngineLocationKinds.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Host/QVSyncLocation.h"

/// A location with its states. Always shared.
class EngineSyncLocation : public QVSyncLocation,
                           public std::enable_shared_from_this<EngineSyncLocation> {
    Q_OBJECT
public:
    /// Creates a new location with an identifier of its own.
    EngineSyncLocation(const Url &URL, std::shared_ptr<const EngineLocationKinds> kinds);
    /// Creates the location of a row of the profile. A `URLText` that does not parse gives a nil
    /// URL, but is kept until the URL is set.
    EngineSyncLocation(const QString &identifier, const QString &URLText,
                       std::shared_ptr<const EngineLocationKinds> kinds);

    Url URL() const override { return m_URL; }
    void setURL(const Url &URL) override;
    QVSyncStates synchronizationStates() const override { return m_states; }
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const override;
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                             const QString &name) override;
    std::shared_ptr<QVSyncStore> createStore() override;

    /// Returns the same as the engine uses it, never nullptr. Every operation of the store fails
    /// if the URL belongs to no known kind.
    std::shared_ptr<BlobStore> createBlobStore();
    /// Returns the kind that the URL belongs to now.
    const EngineLocationKind &kind() const { return m_kinds->kindForURL(m_URL); }
    /// Names the location in the profile for as long as it exists.
    QString identifier() const { return m_identifier; }
    /// What is saved.
    QString URLText() const { return m_URLText; }
    /// Adds a state as the profile holds it, unannounced; ignored where there is one for its
    /// database.
    void restoreState(const QString &databaseUUID, const QString &databaseName,
                      const EngineSyncState::Values &values);
    const QList<std::shared_ptr<EngineSyncState>> &engineStates() const { return m_engineStates; }

private:
    std::shared_ptr<EngineSyncState> insertState(const QString &databaseUUID,
                                                 const QString &databaseName,
                                                 const EngineSyncState::Values &values);

    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    const QString m_identifier;
    QString m_URLText;
    Url m_URL;
    QVSyncStates m_states;
    QList<std::shared_ptr<EngineSyncState>> m_engineStates;
    QHash<QString, std::shared_ptr<EngineSyncState>> m_stateByUUID;
};
