#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "Platform/Security/SecretBytes.h"

/// The data of a pairing, by which a server authorizes a client that it does not know yet. Both
/// computers show the same short code. A man in the middle would have to present different
/// certificates to client and server, so the codes would differ, and he cannot choose them:
///
///     client → "pair": "name", "commitment", which fixes the client's nonce and secret
///     server → "pair": "nonce"
///     client → "reveal": "nonce", "secret"
///
/// Then both compute the code, the server asks its user, and responds as to a greeting. The
/// commitment prevents trying nonces until two codes are equal (as in RFC 6189, section 4.4.1.1),
/// so six digits are sufficient. A value; the functions are thread-safe.
struct DirectConnectionPairing {
    /// Size of nonces and secrets in bytes.
    static constexpr qsizetype RandomSize = 32;

    /// Fingerprint of the certificate that the server presents.
    QByteArray serverFingerprint;
    QString clientName;
    QByteArray clientNonce;
    SecretBytes clientSecret;
    QByteArray serverNonce;

    /// Returns `RandomSize` cryptographically random bytes of the system's generator.
    static QByteArray random();
    /// Returns the SHA-256 that the client sends first.
    QByteArray commitment() const;
    /// Returns the pairing code, which both users compare, as text: six digits in two groups. All
    /// members must be set, the fixed-size ones to their size. The groups are separated by a
    /// no-break space, so that the code is not broken at a line's end.
    QString code() const;
};
