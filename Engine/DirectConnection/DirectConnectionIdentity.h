#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>
#include <optional>

#include "Platform/Foundation/Error.h"

/// What a profile's server proves itself by: a private key and a certificate that it signed itself,
/// which others know again by its fingerprint. Kept as PEM (RFC 7468) in one file of the profile,
/// which its owner alone may read. A value.
struct DirectConnectionIdentity {
    QSslKey privateKey;
    QSslCertificate certificate;

    /// That of the profile in `directory`; made where there is none yet. Any thread. A file that
    /// is damaged is left as it is, and answered by an error: another key would be a stranger to
    /// everyone who knows this one.
    static std::optional<Error> load(const QString &directory, DirectConnectionIdentity &identity);

    /// The SHA-256 of a certificate in DER.
    static QByteArray fingerprint(const QByteArray &certificate);
};
