#include "Support/Verification.h"

#include "Engine/Plugin/ProfileVerification.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Synchronization/VerificationSession.h"
#include "Support/RunSession.h"

QStringList Verification::problems(const VerificationReport &report) {
    QStringList found;
    for (const VerificationReport::Part &part : report.parts) {
        if (part.outcome != VerificationReport::Outcome::Sound) {
            found.append(part.name + u' ' + part.problems.join(u' '));
        }
    }
    return found;
}

QStringList Verification::problemsOfProfile(SyncEngine &engine) {
    const ProfileVerification verification(engine.profile(), *engine.library(), engine.plugin(),
                                           {});
    return problems(VerificationReport{{verification.verifyProfile()}});
}

QStringList Verification::problems(const QString &directory) {
    SyncEngine engine;
    const Expected<void> opened =
        engine.openProfile(directory, FirstContents::Inbox, ProfileUse::Edit);
    return opened ? problems(engine.verify(VerificationMode::Report))
                  : QStringList(opened.error().localizedDescription);
}

QStringList Verification::problems(const ProfileDatabase &profile, EngineNoteLibrary &library,
                                   const StoreSession::Subject &subject, BlobStore &store) {
    VerificationSession session(profile, library, subject);
    const Expected<void> done = runSession(session, store);
    QStringList found;
    for (const Error &problem : session.problems().kept()) {
        found.append(problem.localizedDescription);
    }
    if (!done) {
        found.append(done.error().localizedDescription);
    }
    return found;
}
