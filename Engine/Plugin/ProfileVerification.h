#pragma once

#include "Application/Interface/SyncPlugIn.h"
#include "Application/Interface/VerificationReport.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Synchronization/StoreSession.h"

class EngineDatabase;
class EngineSyncPlugin;

/// Verifies a profile and every store with which its databases synchronize: the enabled states of
/// all locations, and the served store. Must be used on the main thread.
class ProfileVerification {
public:
    /// The arguments are not owned and must outlive this object. `served` is the folder of the
    /// store that the profile's server serves; it need not exist. The profile must be open and
    /// loaded.
    ProfileVerification(const ProfileDatabase &profile, EngineNoteLibrary &library,
                        const EngineSyncPlugin &plugin, QString served);

    /// See SyncPlugIn::verify. May take as long as the slowest location does, since the stores are
    /// read completely and one after the other; it cannot be cancelled. The event loop runs
    /// meanwhile, so the caller must prevent that these objects are destroyed, or run() is called
    /// again, by what happens there.
    ///
    /// A location that cannot be reached is a part that was not checked, and does not end the
    /// verification. The parts are the profile, then each database at each location in the order of
    /// the list, then those of the served store.
    VerificationReport run(VerificationMode mode);
    /// Verifies only the profile: checks the file with SQLite ("integrity_check" and
    /// "foreign_key_check"), every operation against its digest, whether the operations of all
    /// known transactions are there, and what the profile has derived against what it was derived
    /// from. Damaged operations are read again by the synchronizations that follow.
    VerificationReport::Part verifyProfile() const;

private:
    using Part = VerificationReport::Part;
    /// Whether a database was ever synchronized with a store.
    enum class History { Synchronized, NeverSynchronized };

    /// What a check has found, also if it could not be completed.
    struct Findings {
        QStringList problems;
        Expected<void> completed;
    };

    /// Returns the problems of the profile itself. Fails if a check cannot be completed and none
    /// were found; otherwise that is one of the problems.
    Expected<QStringList> profileProblems() const;
    /// Returns what SQLite finds. An error of the disk is an error, not damage.
    Findings integrityProblems() const;
    /// Returns the damaged notes of `database`, and remembers them in it.
    Expected<QStringList> damagedNotes(EngineDatabase &database) const;
    /// Returns the changes of `database` that the profile knew and does not have any more.
    Expected<QStringList> lostNotes(const EngineDatabase &database) const;
    /// Returns what is wrong with what the profile has derived about `database`.
    Expected<QStringList> derivedProblems(const EngineDatabase &database) const;
    /// Derives again what is wrong, and returns what that was.
    Expected<QStringList> repairDerived() const;
    /// Returns how much the profile contains, for the user.
    Expected<QString> profileExtent() const;
    /// Add a part to the report for each database of the location, or of the served store.
    /// Databases whose state is disabled are not verified.
    void verifyLocation(EngineSyncLocation &location);
    void verifyServedStore();
    /// Verifies one database at one store, after a synchronization that repairs it in the mode
    /// Repair. A store that does not contain the database is a problem only if it was synchronized
    /// before.
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
