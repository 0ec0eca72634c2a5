#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>

#include "Platform/Foundation/Expected.h"

/// The identity of a profile's server: a private key and a self-signed certificate, which clients
/// recognize by its fingerprint. Stored as PEM (RFC 7468) in one file of the profile that only its
/// owner can read. A value. The key is an elliptic-curve key (P-256); the certificate does not
/// expire (RFC 5280, section 4.1.2.5) and names neither the user nor the computer.
struct DirectConnectionIdentity {
    QSslKey privateKey;
    QSslCertificate certificate;

    /// Loads the identity of the profile in `directory`, or creates one if there is no file. Blocks
    /// for file access. Thread-safe. Fails if the file cannot be created or read, or is damaged; a
    /// damaged file is not replaced, because no paired client would recognize another key. Other
    /// users' access to the file is removed if the file system can do so; if not, the profile was
    /// reported when it was opened. Errors have the code ServerUnusable.
    static Expected<DirectConnectionIdentity> load(const QString &directory);

    /// Returns the SHA-256 (32 bytes) of a certificate in DER.
    static QByteArray fingerprint(const QByteArray &certificate);
};
