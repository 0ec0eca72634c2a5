#pragma once

#include <QtCore/QHash>

#include "Engine/Locations/EngineLocationKinds.h"
#include "Engine/Locations/EngineSyncState.h"
#include "Host/QVSyncLocation.h"

/// A location with its states. It does not know whether it is in the list of the locations
/// controller, which compares its values with the saved ones. Must be created with
/// std::make_shared, and used and destroyed on the main thread.
class EngineSyncLocation : public QVSyncLocation,
                           public std::enable_shared_from_this<EngineSyncLocation> {
    Q_OBJECT
public:
    /// Creates a new location with a random identifier. `URL` may be nil. `kinds` must not be null.
    EngineSyncLocation(const Url &URL, std::shared_ptr<const EngineLocationKinds> kinds);
    /// Creates the location of a row of the profile. If `URLText` cannot be parsed, the URL is nil,
    /// but the text is kept until setURL() is called. So a URL that only another version
    /// understands survives. Neither the states nor the list are read here, see
    /// EngineLocationsController::load().
    EngineSyncLocation(const QString &identifier, const QString &URLText,
                       std::shared_ptr<const EngineLocationKinds> kinds);

    /// Returns nil if there is no URL or its text cannot be parsed.
    Url URL() const override { return m_URL; }
    /// Later stores are those of the kind of the new URL. Failures with the former one are
    /// forgotten: the last results of such states become empty, which is announced by each before
    /// `URL` is. Successful results and the dates stay.
    void setURL(const Url &URL) override;
    QVSyncStates synchronizationStates() const override { return m_states; }
    /// These are O(1). UUIDs are compared exactly.
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const override;
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                             const QString &name) override;
    /// Returns the same as createBlobStore().
    std::shared_ptr<QVSyncStore> createStore() override;

    /// Returns a new store for the current URL, as the engine uses it; never null. If the URL is of
    /// an unknown kind, every operation of the store fails. The store keeps this location alive. A
    /// new object for each call, which accesses nothing until it is used.
    std::shared_ptr<BlobStore> createBlobStore();
    /// Returns the kind of the current URL. Valid as long as this object, but no longer that of the
    /// location once setURL() is called.
    const EngineLocationKind &kind() const { return m_kinds->kindForURL(m_URL); }
    /// Returns the UUID that identifies the location in the profile, in lower case without braces.
    /// Constant; it is not sent to the location.
    QString identifier() const { return m_identifier; }
    /// Returns the text of the URL that is saved in the profile.
    QString URLText() const { return m_URLText; }
    /// Adds a state read from the profile, without announcing it and marked as saved. Ignored if
    /// `databaseUUID` is empty or has a state already.
    void restoreState(const QString &databaseUUID, const QString &databaseName,
                      const EngineSyncState::Values &values);
    /// Removes the state of a database that was deleted, if there is one, and announces that.
    void removeState(const QString &databaseUUID);
    /// Returns the states in the order of synchronizationStates(). The reference is valid as long
    /// as this object.
    const QList<std::shared_ptr<EngineSyncState>> &engineStates() const { return m_engineStates; }

private:
    /// Appends a new state, marked as changed. There must be none for `databaseUUID`.
    std::shared_ptr<EngineSyncState> insertState(const QString &databaseUUID,
                                                 const QString &databaseName,
                                                 const EngineSyncState::Values &values);

    /// Shared with the other locations of the engine.
    const std::shared_ptr<const EngineLocationKinds> m_kinds;
    const QString m_identifier;
    /// The text of the URL as it was read or set; differs from that of `m_URL` only if it cannot be
    /// parsed.
    QString m_URLText;
    Url m_URL;
    QVSyncStates m_states;
    /// The same objects as in `m_states`, in the same order.
    QList<std::shared_ptr<EngineSyncState>> m_engineStates;
    /// The same states by the UUID of their database.
    QHash<QString, std::shared_ptr<EngineSyncState>> m_stateByUUID;
};
