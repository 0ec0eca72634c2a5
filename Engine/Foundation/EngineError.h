#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Error.h"

/// The domain of all errors of the engine. Codes are unique within a domain only, see
/// isEngineError().
inline const QString EngineErrorDomain = QStringLiteral("VelmoraSyncErrorDomain");

/// What a caller can distinguish. The message of an error is more precise and is shown to users; do
/// not derive decisions from it. The numbers are neither stored nor sent, so their order may
/// change.
enum class EngineErrorCode {
    /// The profile cannot be opened.
    ProfileUnusable = 1,
    /// The open profile cannot be read or written. What was to be written has no effect.
    ProfileNotWritten,
    /// The text of a note, or the name or identifier of a database or note, is not valid.
    InvalidDatabase,
    /// The place of a store cannot be reached now; a later attempt may succeed without any change.
    StoreUnreachable,
    /// A record of a store cannot be read; it is left as it is.
    DamagedRecord,
    /// The operation was cancelled, see operationCancelled().
    Cancelled,
    /// The store has no such blob.
    BlobMissing,
    /// A blob is too long, not a plain file, or has a name that is not valid for a blob.
    BlobRefused,
    /// The store denies access, for example because a permission is missing.
    AccessDenied,
    /// The store has no space left, or a quota of the user is used up.
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
    /// An index of the profile is damaged, and nothing else as far as is known. Opening the profile
    /// for writing rebuilds it.
    IndexesDamaged,
    /// The disk reports an error where the profile's file is read. Once the disk works, the profile
    /// may be sound; otherwise it can be replaced like a damaged one.
    ProfileUnreadable,
    /// The profile cannot be read because its disk is full.
    ProfileDiskFull,
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
    /// A client of this computer's server wants what belongs to a database that is not served.
    NotServed,
};

// The functions are thread-safe.

/// Returns an error whose message to the user is `description`, a complete sentence in the user's
/// language that also names the next step. It has no failure reason.
Error engineError(EngineErrorCode code, const QString &description);
/// Returns an error whose message is `text`, a key of the translation table "Sync" in UTF-8,
/// localized, with `place` for its "%1". `place` may be any text from outside; it is not
/// interpreted.
Error engineError(EngineErrorCode code, const char *text, const QString &place);
/// Returns true if `error` is the engine's error `code`; codes of other domains do not count.
bool isEngineError(const Error &error, EngineErrorCode code);
/// Returns an error of the code DamagedRecord for the record at `place`, in words for the user.
/// `place` is a path or address, see BlobStore::place().
Error damagedRecord(const QString &place);
/// Returns an error of the code DamagedRecord for the file at `place`, whose name is not that of a
/// record, in words for the user.
Error foreignFile(const QString &place);
/// Returns an error of the code BlobRefused for `name`, which no blob or folder of a sync store can
/// have, in words for the user.
Error invalidBlobName(const QString &name);
/// Returns an error of the code StoreUnreachable for the folder at `place`, in words for the user.
Error notSyncStore(const QString &place);
/// Returns an error of the code `code` for the sync store at `path`, which cannot be created, in
/// words for the user.
Error storeNotCreated(EngineErrorCode code, const QString &path);
/// Returns an error of the code UnknownVersion for the record at `place`, which a newer version of
/// the program has written, in words for the user.
Error newerRecord(const QString &place);
/// Returns an error of the code StoreUnreachable for the server `name`, of which no address is
/// known, in words for the user.
Error serverNotFound(const QString &name);
/// Returns the error of an operation that was cancelled, of the code Cancelled, by which callers
/// distinguish it from a failure.
Error operationCancelled();
/// Returns an error of the code StoreUnreachable for an operation with the store at `place` that
/// was ended because it took too long, in words for the user.
Error tookTooLong(const QString &place);
