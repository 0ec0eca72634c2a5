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
    /// A blob is too long, no plain file, or of a name that no blob may have.
    BlobRefused,
    /// The store does not let this user do that: wrong password, no right, read-only.
    AccessDenied,
    StoreFull,
    /// The server cannot prove to be the one it claims to be.
    CertificateUntrusted,
    /// The server of this computer cannot serve.
    ServerUnusable,
    /// A newer program has written it, and only a newer one may change it.
    UnknownVersion,
    /// Another process uses the profile.
    ProfileInUse,
};

/// `description` is a whole sentence for a person.
Error engineError(EngineErrorCode code, const QString &description);
/// `text` localized, its "%1" being `place`.
Error engineError(EngineErrorCode code, const char *text, const QString &place);
/// Returns true if `error` is the engine's error `code`; codes of other domains do not count.
bool isEngineError(const Error &error, EngineErrorCode code);
/// What an operation ends with that was cancelled.
Error operationCancelled();
