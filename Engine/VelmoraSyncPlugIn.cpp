#include "Engine/VelmoraSyncPlugIn.h"

std::optional<Error> VelmoraSyncPlugIn::openProfile(const QString &directory) {
    return m_engine->openProfile(directory);
}

void VelmoraSyncPlugIn::closeProfile() {
    m_engine.reset();
}

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine ? m_engine->library() : nullptr;
}
