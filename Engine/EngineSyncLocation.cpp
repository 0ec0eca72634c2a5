#include "Engine/EngineSyncLocation.h"

#include "Engine/EngineSyncState.h"
#include "Engine/FolderStore.h"
#include "Engine/UnsupportedStore.h"
#include "Platform/KeyValue/KeyValue.h"

std::shared_ptr<QVSyncLocation> EngineSyncLocation::Class::syncLocationWithURL(
    const Url &URL) const {
    auto location = std::make_shared<EngineSyncLocation>();
    location->setURL(URL);
    return location;
}

void EngineSyncLocation::setURL(const Url &URL) {
    m_URL = URL;
    m_savedURL = URL.absoluteString();
    m_needsSaving = true;
    KeyValue::announce<&EngineSyncLocation::URLChanged>(this);
}

void EngineSyncLocation::setSavedURL(const QString &text) {
    setURL(Url::fromString(text));
    m_savedURL = text;
}

std::shared_ptr<QVSyncState> EngineSyncLocation::stateForDatabaseWithUUID(
    const QString &UUID) const {
    return m_statesByUUID.value(UUID);
}

std::shared_ptr<QVSyncState> EngineSyncLocation::addStateForDatabaseWithUUID(const QString &UUID,
                                                                             const QString &name) {
    auto &state = m_statesByUUID[UUID];
    if (!state) {
        state = std::make_shared<EngineSyncState>(shared_from_this(), UUID, name);
        m_states.append(state);
        m_needsSaving = true;
        const auto added = state;
        KeyValue::announce<&EngineSyncLocation::synchronizationStatesChanged>(this);
        return added;
    }
    return state;
}

std::shared_ptr<QVSyncStore> EngineSyncLocation::createStore() {
    if (m_URL.isFileURL()) {
        return std::make_shared<FolderStore>(shared_from_this(), m_URL.path());
    }
    return std::make_shared<UnsupportedStore>(shared_from_this());
}
