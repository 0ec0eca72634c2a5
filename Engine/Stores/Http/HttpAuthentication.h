#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCryptographicHash>
#include <optional>

#include "Platform/Security/UrlCredential.h"

/// Computes the response to the challenge of an HTTP server: Basic (RFC 7617) or Digest (RFC 7616)
/// with SHA-256 or MD5 and the quality of protection "auth". No other scheme is ever used, so that
/// no password takes part in NTLM or Negotiate. Not thread-safe. No function blocks.
class HttpAuthentication {
public:
    /// The supported schemes.
    enum class Scheme { Basic, Digest };

    /// Returns the strongest supported challenge of `challenges`, the value of the header field
    /// "WWW-Authenticate" (several fields are joined with commas): Digest with SHA-256, Digest with
    /// MD5, Basic. Returns an empty optional if there is none. The text comes from the server and
    /// may be anything: it is read up to the first syntax error (RFC 9110, section 11.6.1), and a
    /// challenge with missing or unsuitable parameters is ignored. A Digest challenge without "qop"
    /// (RFC 2069) is not supported.
    static std::optional<HttpAuthentication> fromChallenges(const QByteArray &challenges);

    /// A caller uses it to decide whether the password may be sent at all: Basic reveals it to
    /// everyone who can read the connection, Digest does not.
    Scheme scheme() const { return m_digest ? Scheme::Digest : Scheme::Basic; }

    /// Returns the value of the header field "Authorization" for a request with `method` and the
    /// request target `target` (path and query, percent-encoded). Counts the uses of the server's
    /// nonce, so every request needs its own call. Returns an empty optional if the scheme cannot
    /// transport the user name: control characters, or a colon in Basic. The user name and password
    /// are encoded as UTF-8. The value contains the password (Basic) or what can be used to guess
    /// it (Digest), so it must not be logged.
    std::optional<SecretBytes> authorization(const UrlCredential &credential,
                                             const QByteArray &method, const QByteArray &target);
    /// Does the same with the client nonce `clientNonce` instead of a random one. For tests, which
    /// compare with the examples of the RFCs. `clientNonce` must consist of printable ASCII
    /// characters.
    std::optional<SecretBytes> authorization(const UrlCredential &credential,
                                             const QByteArray &method, const QByteArray &target,
                                             const QByteArray &clientNonce);

private:
    /// The parameters of a Digest challenge.
    struct Digest {
        QCryptographicHash::Algorithm algorithm = QCryptographicHash::Md5;
        QByteArray realm = {};
        QByteArray nonce = {};
        /// Null if the challenge has none.
        QByteArray opaque = {};
        /// The number of requests sent with the nonce.
        quint32 nonceCount = 0;
    };
    struct Challenge;
    class Parser;

    static SecretBytes basicAuthorization(const UrlCredential &credential);
    SecretBytes digestAuthorization(const UrlCredential &credential, const QByteArray &method,
                                    const QByteArray &target, const QByteArray &clientNonce);

    explicit HttpAuthentication(std::optional<Digest> digest) : m_digest(std::move(digest)) {}
    /// Returns the parameters of `challenge`; empty if it is not a supported Digest challenge.
    static std::optional<Digest> digestOf(const Challenge &challenge);

    /// Empty for Basic.
    std::optional<Digest> m_digest;
};
