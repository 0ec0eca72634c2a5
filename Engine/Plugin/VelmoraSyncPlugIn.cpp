#include "Engine/Plugin/VelmoraSyncPlugIn.h"

std::optional<Error> VelmoraSyncPlugIn::openProfile(const QString &directory) {
    return m_engine->openProfile(directory);
}

std::optional<Error> VelmoraSyncPlugIn::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_engine->plugin().setUsesSandboxedAccess(usesSandboxedAccess);
}

void VelmoraSyncPlugIn::closeProfile() {
    m_engine.reset();
}

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine ? m_engine->library() : nullptr;
}
