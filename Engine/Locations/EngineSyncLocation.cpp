#include "Engine/Locations/EngineSyncLocation.h"

#include <QtCore/QUuid>

#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"

EngineSyncLocation::EngineSyncLocation(const Url &URL,
                                       std::shared_ptr<const EngineLocationKinds> kinds)
    : m_kinds(std::move(kinds)),
      m_identifier(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_URLText(URL.absoluteString()),
      m_URL(URL) {}

EngineSyncLocation::EngineSyncLocation(const QString &identifier, const QString &URLText,
                                       std::shared_ptr<const EngineLocationKinds> kinds)
    : m_kinds(std::move(kinds)),
      m_identifier(identifier),
      m_URLText(URLText),
      m_URL(Url::fromString(URLText)) {}

void EngineSyncLocation::setURL(const Url &URL) {
    m_URL = URL;
    m_URLText = URL.absoluteString();
    const QList<std::shared_ptr<EngineSyncState>> states = m_engineStates;
    for (const std::shared_ptr<EngineSyncState> &state : states) {
        QVSyncResult::forgetFailure(state.get());
    }
    KeyValue::announce<&QVSyncLocation::URLChanged>(this);
}

std::shared_ptr<QVSyncState> EngineSyncLocation::stateForDatabaseWithUUID(
    const QString &UUID) const {
    return m_stateByUUID.value(UUID);
}

std::shared_ptr<QVSyncState> EngineSyncLocation::addStateForDatabaseWithUUID(const QString &UUID,
                                                                             const QString &name) {
    requireParameter(!UUID.isEmpty(), "!UUID.isEmpty()",
                     "EngineSyncLocation::addStateForDatabaseWithUUID",
                     "Engine/Locations/EngineSyncLocation");
    if (const std::shared_ptr<EngineSyncState> known = m_stateByUUID.value(UUID)) {
        return known;
    }
    const std::shared_ptr<EngineSyncState> state = insertState(UUID, name, {});
    KeyValue::announce<&QVSyncLocation::synchronizationStatesChanged>(this);
    return state;
}

std::shared_ptr<QVSyncStore> EngineSyncLocation::createStore() {
    return createBlobStore();
}

std::shared_ptr<BlobStore> EngineSyncLocation::createBlobStore() {
    return kind().createStore(shared_from_this(), m_identifier);
}

void EngineSyncLocation::restoreState(const QString &databaseUUID, const QString &databaseName,
                                      const EngineSyncState::Values &values) {
    if (!databaseUUID.isEmpty() && !m_stateByUUID.contains(databaseUUID)) {
        insertState(databaseUUID, databaseName, values)->setChanged(false);
    }
}

void EngineSyncLocation::removeState(const QString &databaseUUID) {
    if (const std::shared_ptr<EngineSyncState> removed = m_stateByUUID.take(databaseUUID)) {
        m_states.removeOne(removed);
        m_engineStates.removeOne(removed);
        KeyValue::announce<&QVSyncLocation::synchronizationStatesChanged>(this);
    }
}

std::shared_ptr<EngineSyncState> EngineSyncLocation::insertState(
    const QString &databaseUUID, const QString &databaseName,
    const EngineSyncState::Values &values) {
    auto state =
        std::make_shared<EngineSyncState>(weak_from_this(), databaseUUID, databaseName, values);
    m_states.append(state);
    m_engineStates.append(state);
    m_stateByUUID.insert(databaseUUID, state);
    return state;
}
