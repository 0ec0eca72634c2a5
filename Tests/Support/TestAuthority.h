#pragma once

#include <QtCore/QTemporaryDir>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

/// A private certificate authority that issues certificates with the openssl program. It is
/// untrusted unless a test makes this process trust it. Failures throw std::runtime_error.
class TestAuthority {
public:
    /// Paths of PEM files, which are removed with the authority.
    struct Identity {
        QString certificate;
        QString key;
    };

    /// What is too weak in a certificate: its key has 512 bits, or it is signed with SHA-1.
    enum class Weakness { None, Key, Digest };

    explicit TestAuthority(const QString &name = QStringLiteral("Test Authority"),
                           Weakness weakness = Weakness::None);
    /// `issuer`, which must outlive this object, issues the certificate of this authority, with
    /// `extensions`: see issueWith().
    TestAuthority(const TestAuthority &issuer, const QString &name,
                  const QStringList &extensions = {QStringLiteral("basicConstraints=CA:TRUE")},
                  Weakness weakness = Weakness::None);

    QSslCertificate certificate() const;
    /// Issues the identity of a server with those names, for example "DNS:localhost,IP:127.0.0.1".
    /// It has expired if the number of days is 0.
    Identity issue(const QString &names, int days = 1, Weakness weakness = Weakness::None) const;
    /// Issues an identity with that common name and those extensions, each a line of a
    /// configuration of the openssl program.
    Identity issueWith(const QString &commonName, const QStringList &extensions, int days = 1,
                       Weakness weakness = Weakness::None) const;

private:
    QTemporaryDir m_folder;
    Identity m_identity;
    mutable int m_count = 0;
};

/// Makes this process trust an authority like the system's while it exists.
class TrustedAuthority {
public:
    explicit TrustedAuthority(const TestAuthority &authority);
    ~TrustedAuthority();
    TrustedAuthority(const TrustedAuthority &) = delete;
    TrustedAuthority &operator=(const TrustedAuthority &) = delete;

private:
    const QSslConfiguration m_before;
};
