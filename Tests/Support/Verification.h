#pragma once

#include <QtCore/QStringList>

#include "Application/Interface/VerificationReport.h"
#include "Engine/Synchronization/StoreSession.h"

class SyncEngine;

/// What "velmora verify" finds at the end of a test. All functions return one text for each
/// problem, and nothing if everything is in order. They must be called on the main thread.
namespace Verification {

QStringList problems(const VerificationReport &report);
/// Verifies the profile of `engine`, but nothing with which it synchronizes.
QStringList problemsOfProfile(SyncEngine &engine);
/// Verifies the profile in the folder `directory`, which must not be open, and what it synchronizes
/// with.
QStringList problems(const QString &directory);
/// Verifies the profile of `engine` and all folders with which it synchronizes, as far as they can
/// be read. What a synchronization settles is no problem.
QStringList lastingProblems(SyncEngine &engine);
/// Fails the current test for each of these problems, or for those of the profile in the folder
/// `directory`, if it exists. Has no effect outside of tests.
void failForLastingProblems(SyncEngine &engine);
void failForLastingProblems(const QString &directory);
/// Verifies the database `subject` of an open profile and what `store` has of it.
QStringList problems(const ProfileDatabase &profile, EngineNoteLibrary &library,
                     const StoreSession::Subject &subject, BlobStore &store);

}  // namespace Verification
