#include "Engine/Profile/ProfileFiles.h"

#include "Engine/Foundation/EngineError.h"

void ProfileFiles::add(const QString &path) {
    if (const std::optional<FileIdentity> identity = FileIdentity::of(path)) {
        m_identities.insert(path, *identity);
    }
}

Expected<void> ProfileFiles::check() const {
    for (auto file = m_identities.begin(); file != m_identities.end(); ++file) {
        if (FileIdentity::of(file.key()) != file.value()) {
            return failure(engineError(
                EngineErrorCode::ProfileNotWritten,
                "The profile file “%1” was moved, deleted or replaced, so nothing can be saved. "
                "Put it back, or copy unsaved text elsewhere and restart Velmora.",
                file.key()));
        }
    }
    return {};
}
