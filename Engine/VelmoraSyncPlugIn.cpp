#include "Engine/VelmoraSyncPlugIn.h"

std::optional<Error> VelmoraSyncPlugIn::openProfile(const QString &directory) {
    return m_engine->openProfile(directory);
}

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine->library();
}
