#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// How a client that the server does not know yet is authorized. Both computers show the same short
/// code; somebody between them, who would have to show one certificate to the client and have
/// another shown by the server, has another code at each, and cannot choose one:
///   client → "pair": "name", "commitment", which settles the client's nonce and secret;
///   server → "pair": "nonce";
///   client → "reveal": "nonce", "secret";
/// then both compute the code, the server asks its person, and answers as to a greeting. The
/// commitment keeps everyone from trying nonces until two codes are equal (as in RFC 6189, section
/// 4.4.1.1), so that six digits are enough.
struct DirectConnectionPairing {
    /// Bytes of a nonce and of a secret.
    static constexpr qsizetype RandomSize = 32;

    /// That of the certificate that the server presents.
    QByteArray serverFingerprint;
    QString clientName;
    QByteArray clientNonce;
    QByteArray clientSecret;
    QByteArray serverNonce;

    /// As many bytes that nobody can guess.
    static QByteArray random();
    QByteArray commitment() const;
    /// Six digits, in two groups for reading aloud.
    QString code() const;
};
