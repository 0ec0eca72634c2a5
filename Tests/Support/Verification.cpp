#include "Support/Verification.h"

#include <QtCore/QFileInfo>
#include <QtTest/QTest>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Plugin/ProfileVerification.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Synchronization/VerificationSession.h"
#include "Support/RunSession.h"

namespace {

/// Adds what is wrong with the records of one database in a folder.
void addProblems(QStringList &found, SyncEngine &engine, EngineSyncLocation &location,
                 const QVSyncState &state) {
    VerificationSession session(engine.profile(), *engine.library(),
                                {.databaseUUID = state.databaseUUID(),
                                 .databaseName = state.databaseName(),
                                 .store = location.identifier()});
    // What cannot be read is not damaged.
    static_cast<void>(runSession(session, *location.createBlobStore()));
    for (const Error &problem : session.problems().kept()) {
        // One of the two may not have everything yet.
        if (isEngineError(problem, EngineErrorCode::DamagedRecord)) {
            found.append(problem.localizedDescription);
        }
    }
}

}  // namespace

QStringList Verification::lastingProblems(SyncEngine &engine) {
    QStringList found = problemsOfProfile(engine);
    const auto locations = engine.plugin().locationsController()->syncLocations();
    for (const auto &location : locations) {
        const Url URL = location->URL();
        if (!URL.isFileURL() || !QFileInfo::exists(URL.path())) {
            continue;
        }
        const auto states = location->synchronizationStates();
        for (const auto &state : states) {
            if (state->isEnabled()) {
                addProblems(found, engine, dynamic_cast<EngineSyncLocation &>(*location), *state);
            }
        }
    }
    return found;
}

void Verification::failForLastingProblems(SyncEngine &engine) {
    if (!engine.library() || !QTest::currentTestFunction()) {
        return;
    }
    const QStringList problems = lastingProblems(engine);
    for (const QString &problem : problems) {
        QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
    }
}

void Verification::failForLastingProblems(const QString &directory) {
    if (!QFileInfo::exists(directory) || !QTest::currentTestFunction()) {
        return;
    }
    SyncEngine engine;
    const Expected<void> opened =
        engine.openProfile(directory, FirstContents::Inbox, ProfileUse::Edit);
    if (opened) {
        failForLastingProblems(engine);
    } else {
        QTest::qFail(qPrintable(opened.error().localizedDescription), __FILE__, __LINE__);
    }
}

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
