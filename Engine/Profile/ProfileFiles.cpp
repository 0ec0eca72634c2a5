#include "Engine/Profile/ProfileFiles.h"

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

Error replaced(const QString &path) {
    return engineError(
        EngineErrorCode::ProfileNotWritten,
        "The profile file “%1” was moved, deleted or replaced, so nothing can be saved. "
        "Put it back, or copy unsaved text elsewhere and restart Velmora.",
        path);
}

Error unreachable(const QString &path, const QString &reason) {
    return engineError(
        EngineErrorCode::ProfileNotWritten,
        localizedSyncString("The profile file “%1” cannot be reached, so nothing can be saved: %2. "
                            "Check the permissions of its folder and its disk, or copy unsaved "
                            "text elsewhere and restart Velmora.")
            .arg(path, reason));
}

}  // namespace

Expected<void> ProfileFiles::add(const QString &path) {
    return FileIdentity::of(path).map([&](const std::optional<FileIdentity> &identity) {
        if (identity) {
            m_identities.insert(path, *identity);
        }
    });
}

Expected<void> ProfileFiles::check() const {
    for (auto file = m_identities.begin(); file != m_identities.end(); ++file) {
        const Expected<std::optional<FileIdentity>> found = FileIdentity::of(file.key());
        if (!found) {
            return failure(unreachable(file.key(), found.error().localizedFailureReason));
        }
        if (*found != file.value()) {
            return failure(replaced(file.key()));
        }
    }
    return {};
}
