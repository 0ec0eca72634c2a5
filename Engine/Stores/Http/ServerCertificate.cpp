#include "Engine/Stores/Http/ServerCertificate.h"

#include <openssl/x509.h>
#include <openssl/x509_vfy.h>
#include <openssl/x509v3.h>

#include <QtCore/QUrl>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QSslConfiguration>
#include <memory>

namespace {

struct Free {
    void operator()(X509_STORE *store) const { X509_STORE_free(store); }
    void operator()(X509_STORE_CTX *context) const { X509_STORE_CTX_free(context); }
    void operator()(STACK_OF(X509) * certificates) const { sk_X509_free(certificates); }
};
using Authorities = std::unique_ptr<X509_STORE, Free>;
using Codes = QList<int>;

/// OpenSSL's level of keys of 1024 bits for RSA, 160 for elliptic curves. It excludes MD5 and
/// SHA-1.
constexpr int SecurityLevel = 1;

/// The certificate stays the owner.
X509 *handleOf(const QSslCertificate &certificate) {
    return static_cast<X509 *>(certificate.handle());
}

/// Null if there is no memory.
X509_STORE *authoritiesOfSystem() {
    // Not destroyed at the end of the process, when threads may still use them.
    static X509_STORE *const authorities = [] {
        X509_STORE *const store = X509_STORE_new();
        if (store) {
            // Without any, no server is trusted.
            X509_STORE_set_default_paths(store);
        }
        return store;
    }();
    return authorities;
}

Authorities authoritiesFrom(const QList<QSslCertificate> &certificates) {
    Authorities store(X509_STORE_new());
    for (const QSslCertificate &certificate : certificates) {
        if (store && handleOf(certificate)) {
            X509_STORE_add_cert(store.get(), handleOf(certificate));
        }
    }
    return store;
}

/// Notes each error of a verification, which then goes on.
int note(int isValid, X509_STORE_CTX *context) {
    if (isValid != 1) {
        static_cast<Codes *>(X509_STORE_CTX_get_app_data(context))
            ->append(X509_STORE_CTX_get_error(context));
    }
    return 1;
}

/// Returns the codes of the errors of `chain`, which is not empty, for a server.
Codes codesOf(const QList<QSslCertificate> &chain, X509_STORE *authorities) {
    const std::unique_ptr<X509_STORE_CTX, Free> context(X509_STORE_CTX_new());
    const std::unique_ptr<STACK_OF(X509), Free> others(sk_X509_new_null());
    bool isReady = authorities && context && others;
    for (const QSslCertificate &certificate : chain) {
        X509 *const handle = handleOf(certificate);
        isReady = isReady && handle && sk_X509_push(others.get(), handle) > 0;
    }
    if (!isReady || X509_STORE_CTX_init(context.get(), authorities, handleOf(chain.first()),
                                        others.get()) != 1) {
        return {X509_V_ERR_UNSPECIFIED};
    }
    Codes codes;
    X509_STORE_CTX_set_app_data(context.get(), &codes);
    X509_STORE_CTX_set_verify_cb(context.get(), &note);
    X509_VERIFY_PARAM_set_auth_level(X509_STORE_CTX_get0_param(context.get()), SecurityLevel);
    const bool isVerified = X509_STORE_CTX_set_default(context.get(), "ssl_server") == 1 &&
                            X509_verify_cert(context.get()) == 1;
    if (!isVerified && codes.isEmpty()) {
        codes.append(X509_V_ERR_UNSPECIFIED);
    }
    return codes;
}

bool isFor(const QString &host, const QSslCertificate &certificate) {
    const QHostAddress address(host);
    if (!address.isNull()) {
        return X509_check_ip_asc(handleOf(certificate), address.toString().toLatin1().constData(),
                                 0) == 1;
    }
    const QByteArray name = QUrl::toAce(host);
    return X509_check_host(handleOf(certificate), name.constData(), name.size(),
                           X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS, nullptr) == 1;
}

QSslError::SslError errorOf(int code) {
    switch (code) {
        case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
            return QSslError::SelfSignedCertificate;
        case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
            return QSslError::SelfSignedCertificateInChain;
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
            return QSslError::UnableToGetIssuerCertificate;
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
            return QSslError::UnableToGetLocalIssuerCertificate;
        case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
            return QSslError::UnableToVerifyFirstCertificate;
        case X509_V_ERR_CERT_UNTRUSTED:
            return QSslError::CertificateUntrusted;
        case X509_V_ERR_CERT_HAS_EXPIRED:
            return QSslError::CertificateExpired;
        case X509_V_ERR_CERT_NOT_YET_VALID:
            return QSslError::CertificateNotYetValid;
        case X509_V_ERR_CERT_SIGNATURE_FAILURE:
            return QSslError::CertificateSignatureFailed;
        case X509_V_ERR_INVALID_CA:
            return QSslError::InvalidCaCertificate;
        case X509_V_ERR_PATH_LENGTH_EXCEEDED:
            return QSslError::PathLengthExceeded;
        case X509_V_ERR_INVALID_PURPOSE:
            return QSslError::InvalidPurpose;
        case X509_V_ERR_CERT_REJECTED:
            return QSslError::CertificateRejected;
        case X509_V_ERR_EE_KEY_TOO_SMALL:
        case X509_V_ERR_CA_KEY_TOO_SMALL:
        case X509_V_ERR_CA_MD_TOO_WEAK:
            return QSslError::CertificateBlacklisted;
        case X509_V_ERR_HOSTNAME_MISMATCH:
            return QSslError::HostNameMismatch;
        default:
            return QSslError::UnspecifiedError;
    }
}

}  // namespace

QList<QSslError> ServerCertificate::errors(const QList<QSslCertificate> &chain,
                                           const QString &host) {
    if (chain.isEmpty() || !handleOf(chain.first())) {
        return {QSslError(QSslError::NoPeerCertificate)};
    }
    Codes codes = codesOf(chain, authoritiesOfSystem());
    const QList<QSslCertificate> added = QSslConfiguration::defaultConfiguration().caCertificates();
    if (!codes.isEmpty() && !added.isEmpty()) {
        codes = codesOf(chain, authoritiesFrom(added).get());
    }
    if (!isFor(host, chain.first())) {
        codes.append(X509_V_ERR_HOSTNAME_MISMATCH);
    }
    QList<QSslError> errors;
    for (const int code : std::as_const(codes)) {
        const QSslError error(errorOf(code), chain.first());
        if (!errors.contains(error)) {
            errors.append(error);
        }
    }
    return errors;
}
