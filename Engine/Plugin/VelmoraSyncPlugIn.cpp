#include "Engine/Plugin/VelmoraSyncPlugIn.h"

#include "Engine/Foundation/EngineError.h"

Expected<void> VelmoraSyncPlugIn::openProfile(const QString &directory, ProfileUse use) {
    return m_engine->openProfile(directory, FirstContents::Welcome, use);
}

Expected<void> VelmoraSyncPlugIn::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_engine->plugin().setUsesSandboxedAccess(usesSandboxedAccess);
}

bool VelmoraSyncPlugIn::isProfileInUse(const Error &error) const {
    return error.domain == EngineErrorDomain &&
           error.code == static_cast<int>(EngineErrorCode::ProfileInUse);
}

void VelmoraSyncPlugIn::closeProfile() {
    m_classes.reset();
    m_engine.reset();
}

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine ? m_engine->library() : nullptr;
}
