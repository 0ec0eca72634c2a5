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
    ServerUnusable,
    CertificateChanged,
    NotAuthorized,
};

/// `description` is a whole sentence for a person.
Error engineError(EngineErrorCode code, const QString &description);
/// `text` localized, its "%1" being `place`.
Error engineError(EngineErrorCode code, const char *text, const QString &place);
