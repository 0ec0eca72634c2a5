#pragma once

#include "Application/Interface/SyncPlugIn.h"
#include "Application/Interface/VerificationReport.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Synchronization/StoreSession.h"

class EngineSyncPlugin;

/// Verifies a profile and every store with which its databases synchronize. Must be used on the
/// main thread.
class ProfileVerification {
public:
    /// The arguments are not owned and must outlive this object. `served` is the folder of the
    /// store that the profile's server serves; it need not exist.
    ProfileVerification(const ProfileDatabase &profile, EngineNoteLibrary &library,
                        const EngineSyncPlugin &plugin, QString served);

    /// See SyncPlugIn::verify.
    VerificationReport run(VerificationMode mode);

private:
    using Part = VerificationReport::Part;
    /// Whether a database was ever synchronized with a store.
    enum class History { Synchronized, NeverSynchronized };

    Part verifyProfile() const;
    /// Returns the problems of the profile itself.
    Expected<QStringList> profileProblems() const;
    /// Returns how much the profile contains, for the user.
    Expected<QString> profileExtent() const;
    void verifyLocation(EngineSyncLocation &location);
    void verifyServedStore();
    void verifyStore(const StoreSession::Subject &subject, const QString &title, BlobStore &store,
                     History history);
    /// Runs `session` on a thread until it is done or fails, and the event loop meanwhile.
    static Expected<void> runSession(StoreSession &session, BlobStore &store);

    const ProfileDatabase &m_profile;
    EngineNoteLibrary &m_library;
    const EngineSyncPlugin &m_plugin;
    const QString m_served;
    VerificationMode m_mode = VerificationMode::Report;
    VerificationReport m_report;
};
