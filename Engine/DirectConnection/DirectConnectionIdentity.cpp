#include "Engine/DirectConnection/DirectConnectionIdentity.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <array>
#include <memory>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/DurableFile.h"
#include "Platform/Foundation/FileManager.h"

namespace {

constexpr QFile::Permissions OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;
using Memory = std::unique_ptr<BIO, decltype(&BIO_free)>;

/// Returns a certificate for `key` that does not expire (RFC 5280, section 4.1.2.5) and identifies
/// no user or host; null if OpenSSL fails.
Certificate selfSigned(EVP_PKEY *key) {
    std::array<unsigned char, 16> serial{};
    if (RAND_bytes(serial.data(), serial.size()) != 1) {
        return {nullptr, &X509_free};
    }
    serial[0] &= 0x7f;
    Certificate certificate(X509_new(), &X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    const std::unique_ptr<BIGNUM, decltype(&BN_free)> number(
        BN_bin2bn(serial.data(), serial.size(), nullptr), &BN_free);
    BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate.get()));
    ASN1_TIME_set_string_X509(X509_getm_notBefore(certificate.get()), "20200101000000Z");
    ASN1_TIME_set_string_X509(X509_getm_notAfter(certificate.get()), "99991231235959Z");
    X509_set_pubkey(certificate.get(), key);
    X509_NAME *name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char *>("Velmora"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    return X509_sign(certificate.get(), key, EVP_sha256()) > 0 ? std::move(certificate)
                                                               : Certificate(nullptr, &X509_free);
}

Error notCreated(const QString &path) {
    return engineError(EngineErrorCode::ServerUnusable,
                       "The certificate “%1” of this computer could not be created. Check the "
                       "permissions of the profile folder.",
                       path);
}

/// Returns a new key and its certificate in PEM for the file `path`.
Expected<QByteArray> newIdentity(const QString &path) {
    const Key key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    const Certificate certificate = key ? selfSigned(key.get()) : Certificate(nullptr, &X509_free);
    const Memory memory(BIO_new(BIO_s_mem()), &BIO_free);
    if (!certificate ||
        PEM_write_bio_PrivateKey(memory.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) !=
            1 ||
        PEM_write_bio_X509(memory.get(), certificate.get()) != 1) {
        return failure(notCreated(path));
    }
    char *text = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &text);
    return QByteArray(text, size);
}

Expected<void> create(const QString &path) {
    return newIdentity(path).and_then([&](const QByteArray &identity) {
        return DurableFile::write(path, identity).map_error([&](const Error &cause) {
            Error error = notCreated(path);
            error.localizedFailureReason = cause.localizedFailureReason;
            return error;
        });
    });
}

Error notRead(const QString &path, const QString &reason) {
    return engineError(
        EngineErrorCode::ServerUnusable,
        localizedSyncString("The certificate “%1” of this computer cannot be read: %2. Check its "
                            "permissions, then turn the server on again.")
            .arg(path, reason));
}

/// Creates the file unless there is one, which paired computers know.
Expected<void> createIfMissing(const QString &path) {
    return FileManager::exists(path)
        .map_error([&](const Error &error) { return notRead(path, error.localizedFailureReason); })
        .and_then([&](bool isThere) { return isThere ? Expected<void>() : create(path); });
}

Expected<QByteArray> contentsOf(const QString &path) {
    QFile file(path);
    // A copy of the profile may have other permissions. If they cannot be changed, the user was
    // told so when the profile was opened (ProfilePermissions).
    file.setPermissions(OwnerOnly);
    QByteArray contents;
    if (file.open(QIODevice::ReadOnly)) {
        contents = file.readAll();
    }
    if (file.error() != QFile::NoError) {
        return failure(notRead(path, file.errorString()));
    }
    return contents;
}

}  // namespace

Expected<DirectConnectionIdentity> DirectConnectionIdentity::load(const QString &directory) {
    const QString path = directory + QStringLiteral("/Direct Connection.pem");
    const Expected<QByteArray> contents =
        createIfMissing(path).and_then([&] { return contentsOf(path); });
    if (!contents) {
        return failure(contents.error());
    }
    const DirectConnectionIdentity identity{QSslKey(*contents, QSsl::Ec),
                                            QSslCertificate(*contents)};
    if (identity.privateKey.isNull() || identity.certificate.isNull()) {
        return failure(
            engineError(EngineErrorCode::ServerUnusable,
                        "The certificate “%1” of this computer is damaged. Delete it and pair "
                        "the other computers again.",
                        path));
    }
    return identity;
}

QByteArray DirectConnectionIdentity::fingerprint(const QByteArray &certificate) {
    return QCryptographicHash::hash(certificate, QCryptographicHash::Sha256);
}
