#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

/// The domain of all errors of the engine.
inline const QString EngineErrorDomain = QStringLiteral("VelmoraSyncErrorDomain");

enum class EngineErrorCode {
    ProfileUnusable = 1,
    ProfileNotWritten,
    InvalidDatabase,
    StoreUnreachable,
    DamagedRecord,
    Cancelled,
    /// The store has no such blob.
    BlobMissing,
    /// A blob is too long, not a plain file, or has a name that is not valid for a blob.
    BlobRefused,
    /// The store denies access, for example because a permission is missing.
    AccessDenied,
    StoreFull,
    /// The server cannot prove its identity.
    CertificateUntrusted,
    /// The server of this computer cannot be used.
    ServerUnusable,
    /// A newer version of the program has written the data, and only such a version may change it.
    UnknownVersion,
    /// Another process uses the profile.
    ProfileInUse,
    /// The profile's file is damaged or missing. A backup or a new profile can replace it.
    ProfileDamaged,
    /// No backup of the profile could be made or restored.
    BackupFailed,
    /// A record was damaged, and its contents are written again.
    RecordRepaired,
    /// A synchronization would remove many notes, and the user has not decided.
    RemovalUndecided,
    /// The server does not accept the user name and password.
    PasswordRefused,
    /// The store can be read but not written.
    ReadOnly,
};

// The functions are thread-safe.

/// Returns an error whose message to the user is `description`, a complete sentence.
Error engineError(EngineErrorCode code, const QString &description);
/// Returns an error whose message is `text`, localized, with `place` for its "%1".
Error engineError(EngineErrorCode code, const char *text, const QString &place);
/// Returns true if `error` is the engine's error `code`; codes of other domains do not count.
bool isEngineError(const Error &error, EngineErrorCode code);
/// Returns an error of the code DamagedRecord for the record at `place`, in words for the user.
Error damagedRecord(const QString &place);
/// Returns the error of an operation that was cancelled.
Error operationCancelled();
