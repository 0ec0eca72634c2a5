#pragma once

#include <QtCore/QTemporaryDir>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>

/// An authority of the test's own that issues certificates with openssl's program. Nobody trusts
/// it, but for tests that let this process do so. What fails raises std::runtime_error.
class TestAuthority {
public:
    /// Paths of PEM files, which live as long as the authority.
    struct Identity {
        QString certificate;
        QString key;
    };

    explicit TestAuthority(const QString &name = QStringLiteral("Test Authority"));

    QSslCertificate certificate() const;
    /// The identity of a server of those names, such as "DNS:localhost,IP:127.0.0.1"; with a
    /// negative number of days it has expired.
    Identity issue(const QString &names, int days = 1) const;

private:
    QTemporaryDir m_folder;
    Identity m_identity;
    mutable int m_count = 0;
};

/// While it exists, this process trusts an authority as if it were the system's.
class TrustedAuthority {
public:
    explicit TrustedAuthority(const TestAuthority &authority);
    ~TrustedAuthority();
    TrustedAuthority(const TrustedAuthority &) = delete;
    TrustedAuthority &operator=(const TrustedAuthority &) = delete;

private:
    const QSslConfiguration m_before;
};
