// Each operation beside the same work done by OpenSSL's EVP interface with prefetched algorithms,
// and, for long data, by Nettle called directly. Everybody starts from a key and data and makes a
// new result; only OpenSSL's algorithm objects and Nettle's result buffer are there beforehand.

#include <nettle/aes.h>
#include <nettle/arcfour.h>
#include <nettle/cast128.h>
#include <nettle/cbc.h>
#include <nettle/des.h>
#include <nettle/hmac.h>
#include <nettle/md2.h>
#include <nettle/md4.h>
#include <nettle/md5.h>
#include <nettle/sha1.h>
#include <nettle/sha2.h>
#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/params.h>
#include <openssl/provider.h>

#include <array>

#include "Benchmarks/Benchmark.h"
#include "Model/Categories/NSData+CommonCrypto.h"

namespace {

using Benchmark::Report;
using Benchmark::Row;

constexpr CipherOption padding = CipherOption::PKCS7Padding;
constexpr qsizetype mebibyte = 1 << 20;

/// What Nettle does with all of `data`, into `result`, which has room for it.
using Direct = void (*)(const QByteArray &key, const QByteArray &data, uint8_t *result);

const uint8_t *bytesOf(const QByteArray &data) {
    return reinterpret_cast<const uint8_t *>(data.constData());
}

uint8_t *bytesOf(QByteArray &data) {
    return reinterpret_cast<uint8_t *>(data.data());
}

size_t sizeOf(const QByteArray &data) {
    return static_cast<size_t>(data.size());
}

template <typename Pointer>
Pointer required(Pointer pointer, const char *name) {
    if (!pointer) {
        qFatal("OpenSSL has no %s", name);
    }
    return pointer;
}

void requireSuccess(int status) {
    if (status != 1) {
        qFatal("OpenSSL fails");
    }
}

// Nettle called directly

template <typename Context, auto init, auto update, auto digest, size_t length>
void digestDirectly(const QByteArray &, const QByteArray &data, uint8_t *result) {
    Context context;
    init(&context);
    update(&context, sizeOf(data), bytesOf(data));
    digest(&context, length, result);
}

template <typename Context, auto setKey, auto update, auto digest, size_t length>
void authenticateDirectly(const QByteArray &key, const QByteArray &data, uint8_t *result) {
    Context context;
    setKey(&context, sizeOf(key), bytesOf(key));
    update(&context, sizeOf(data), bytesOf(data));
    digest(&context, length, result);
}

template <typename Context, auto setKey, auto encrypt>
void encryptAESDirectly(const QByteArray &key, const QByteArray &data, uint8_t *result) {
    Context context;
    setKey(&context, bytesOf(key));
    std::array<uint8_t, AES_BLOCK_SIZE> iv = {};
    encrypt(&context, iv.data(), sizeOf(data), result, bytesOf(data));
}

template <typename Context, auto setKey, auto crypt, size_t blockSize, auto chain>
void cryptDirectly(const QByteArray &key, const QByteArray &data, uint8_t *result) {
    Context context;
    setKey(&context, bytesOf(key));
    std::array<uint8_t, blockSize> iv = {};
    chain(&context, reinterpret_cast<nettle_cipher_func *>(crypt), blockSize, iv.data(),
          sizeOf(data), result, bytesOf(data));
}

void cryptRC4Directly(const QByteArray &key, const QByteArray &data, uint8_t *result) {
    arcfour_ctx context;
    arcfour_set_key(&context, sizeOf(key), bytesOf(key));
    arcfour_crypt(&context, sizeOf(data), result, bytesOf(data));
}

// OpenSSL

QByteArray digestByOpenSSL(const EVP_MD *algorithm, const QByteArray &data) {
    QByteArray result(EVP_MD_get_size(algorithm), Qt::Uninitialized);
    requireSuccess(
        EVP_Digest(data.constData(), sizeOf(data), bytesOf(result), nullptr, algorithm, nullptr));
    return result;
}

QByteArray cryptByOpenSSL(const EVP_CIPHER *algorithm, bool encrypts, const QByteArray &key,
                          const QByteArray &data) {
    static constexpr std::array<uint8_t, EVP_MAX_IV_LENGTH> iv = {};
    EVP_CIPHER_CTX *const context = EVP_CIPHER_CTX_new();
    requireSuccess(
        EVP_CipherInit_ex2(context, algorithm, bytesOf(key), iv.data(), encrypts ? 1 : 0, nullptr));
    QByteArray result(data.size() + EVP_CIPHER_get_block_size(algorithm), Qt::Uninitialized);
    int updated = 0;
    requireSuccess(EVP_CipherUpdate(context, bytesOf(result), &updated, bytesOf(data),
                                    static_cast<int>(data.size())));
    int finished = 0;
    requireSuccess(EVP_CipherFinal_ex(context, bytesOf(result) + updated, &finished));
    EVP_CIPHER_CTX_free(context);
    result.truncate(updated + finished);
    return result;
}

/// `prepared` has its digest, and no key yet.
QByteArray authenticateByOpenSSL(const EVP_MAC_CTX *prepared, qsizetype length,
                                 const QByteArray &key, const QByteArray &data) {
    EVP_MAC_CTX *const context = EVP_MAC_CTX_dup(prepared);
    requireSuccess(EVP_MAC_init(context, bytesOf(key), sizeOf(key), nullptr));
    requireSuccess(EVP_MAC_update(context, bytesOf(data), sizeOf(data)));
    std::array<uint8_t, EVP_MAX_MD_SIZE> whole;
    size_t written = 0;
    requireSuccess(EVP_MAC_final(context, whole.data(), &written, whole.size()));
    EVP_MAC_CTX_free(context);
    return {reinterpret_cast<const char *>(whole.data()), length};
}

EVP_MAC_CTX *preparedHMAC(const char *digest) {
    static EVP_MAC *const hmac = required(EVP_MAC_fetch(nullptr, "HMAC", nullptr), "HMAC");
    EVP_MAC_CTX *const context = EVP_MAC_CTX_new(hmac);
    const std::array<OSSL_PARAM, 2> parameters = {
        OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, const_cast<char *>(digest), 0),
        OSSL_PARAM_construct_end()};
    requireSuccess(EVP_MAC_CTX_set_params(context, parameters.data()));
    return context;
}

// The operations

struct Operation {
    QString name;
    std::function<QByteArray(const QByteArray &data)> ours;
    /// None where OpenSSL has no such algorithm.
    std::function<QByteArray(const QByteArray &data)> openssl;
    Direct nettle;
    QByteArray key;
    /// What makes data of a length that the operation can take.
    std::function<QByteArray(qsizetype length)> makeData;
};

QByteArray plainData(qsizetype length) {
    return QByteArray(length, 'd');
}

void addDigest(QList<Operation> &operations, const char *name, const char *opensslName,
               QByteArray (*ours)(const QByteArray &), Direct nettle) {
    Operation operation{QString::fromUtf8(name), ours, {}, nettle, {}, plainData};
    if (opensslName != nullptr) {
        const EVP_MD *algorithm = required(EVP_MD_fetch(nullptr, opensslName, nullptr), name);
        operation.openssl = [algorithm](const QByteArray &data) {
            return digestByOpenSSL(algorithm, data);
        };
    }
    operations += operation;
}

void addCipher(QList<Operation> &operations, const char *name, const char *opensslName,
               CipherAlgorithm algorithm, qsizetype keyLength, Direct nettleEncrypt,
               Direct nettleDecrypt) {
    using namespace LowLevelCommonCryptor;
    const QByteArray key = QByteArray("0123456789abcdefghijklmnopqrstuv").first(keyLength);
    const EVP_CIPHER *openssl = required(EVP_CIPHER_fetch(nullptr, opensslName, nullptr), name);
    const auto opensslFor = [=](bool encrypts) {
        return [=](const QByteArray &data) { return cryptByOpenSSL(openssl, encrypts, key, data); };
    };
    const auto encrypt = [=](const QByteArray &data) {
        return *dataEncryptedUsingAlgorithm(data, algorithm, key, padding);
    };
    const auto decrypt = [=](const QByteArray &data) {
        return *decryptedDataUsingAlgorithm(data, algorithm, key, padding);
    };
    const auto encryptedData = [=](qsizetype length) {
        const bool isPadded = algorithm != CipherAlgorithm::RC4;
        return encrypt(plainData(isPadded ? length - 1 : length));
    };
    operations += {QString::fromUtf8(name) + QStringLiteral(" encrypt"),
                   encrypt,
                   opensslFor(true),
                   nettleEncrypt,
                   key,
                   plainData};
    operations += {QString::fromUtf8(name) + QStringLiteral(" decrypt"),
                   decrypt,
                   opensslFor(false),
                   nettleDecrypt,
                   key,
                   encryptedData};
}

void addHMAC(QList<Operation> &operations, const char *name, const char *opensslName,
             HMACAlgorithm algorithm, qsizetype length, Direct nettle) {
    const QByteArray key = "0123456789abcdef";
    const EVP_MAC_CTX *prepared = preparedHMAC(opensslName);
    operations += {
        QString::fromUtf8(name),
        [=](const QByteArray &data) { return CommonHMAC::HMACWithAlgorithm(data, algorithm, key); },
        [=](const QByteArray &data) { return authenticateByOpenSSL(prepared, length, key, data); },
        nettle,
        key,
        plainData};
}

QList<Operation> allOperations() {
    required(OSSL_PROVIDER_load(nullptr, "default"), "default provider");
    required(OSSL_PROVIDER_load(nullptr, "legacy"), "legacy provider");

    using namespace CommonDigest;
    QList<Operation> all;
    addDigest(all, "MD2", nullptr, MD2Sum,
              digestDirectly<md2_ctx, md2_init, md2_update, md2_digest, 16>);
    addDigest(all, "MD4", "MD4", MD4Sum,
              digestDirectly<md4_ctx, md4_init, md4_update, md4_digest, 16>);
    addDigest(all, "MD5", "MD5", MD5Sum,
              digestDirectly<md5_ctx, md5_init, md5_update, md5_digest, 16>);
    addDigest(all, "SHA-1", "SHA1", SHA1Hash,
              digestDirectly<sha1_ctx, sha1_init, sha1_update, sha1_digest, 20>);
    addDigest(all, "SHA-224", "SHA224", SHA224Hash,
              digestDirectly<sha224_ctx, sha224_init, sha224_update, sha224_digest, 28>);
    addDigest(all, "SHA-256", "SHA256", SHA256Hash,
              digestDirectly<sha256_ctx, sha256_init, sha256_update, sha256_digest, 32>);
    addDigest(all, "SHA-384", "SHA384", SHA384Hash,
              digestDirectly<sha384_ctx, sha384_init, sha384_update, sha384_digest, 48>);
    addDigest(all, "SHA-512", "SHA512", SHA512Hash,
              digestDirectly<sha512_ctx, sha512_init, sha512_update, sha512_digest, 64>);

    addCipher(all, "AES-128", "AES-128-CBC", CipherAlgorithm::AES, 16,
              encryptAESDirectly<aes128_ctx, aes128_set_encrypt_key, cbc_aes128_encrypt>,
              cryptDirectly<aes128_ctx, aes128_set_decrypt_key, aes128_decrypt, 16, cbc_decrypt>);
    addCipher(all, "AES-192", "AES-192-CBC", CipherAlgorithm::AES, 24,
              encryptAESDirectly<aes192_ctx, aes192_set_encrypt_key, cbc_aes192_encrypt>,
              cryptDirectly<aes192_ctx, aes192_set_decrypt_key, aes192_decrypt, 16, cbc_decrypt>);
    addCipher(all, "AES-256", "AES-256-CBC", CipherAlgorithm::AES, 32,
              encryptAESDirectly<aes256_ctx, aes256_set_encrypt_key, cbc_aes256_encrypt>,
              cryptDirectly<aes256_ctx, aes256_set_decrypt_key, aes256_decrypt, 16, cbc_decrypt>);
    addCipher(all, "DES", "DES-CBC", CipherAlgorithm::DES, 8,
              cryptDirectly<des_ctx, des_set_key, des_encrypt, 8, cbc_encrypt>,
              cryptDirectly<des_ctx, des_set_key, des_decrypt, 8, cbc_decrypt>);
    addCipher(all, "Triple DES", "DES-EDE3-CBC", CipherAlgorithm::TripleDES, 24,
              cryptDirectly<des3_ctx, des3_set_key, des3_encrypt, 8, cbc_encrypt>,
              cryptDirectly<des3_ctx, des3_set_key, des3_decrypt, 8, cbc_decrypt>);
    addCipher(all, "CAST", "CAST5-CBC", CipherAlgorithm::CAST, 16,
              cryptDirectly<cast128_ctx, cast128_set_key, cast128_encrypt, 8, cbc_encrypt>,
              cryptDirectly<cast128_ctx, cast128_set_key, cast128_decrypt, 8, cbc_decrypt>);
    addCipher(all, "RC4", "RC4", CipherAlgorithm::RC4, 16, cryptRC4Directly, cryptRC4Directly);

    addHMAC(all, "HMAC SHA-1", "SHA1", HMACAlgorithm::SHA1, 20,
            authenticateDirectly<hmac_sha1_ctx, hmac_sha1_set_key, hmac_sha1_update,
                                 hmac_sha1_digest, 20>);
    addHMAC(
        all, "HMAC MD5", "MD5", HMACAlgorithm::MD5, 16,
        authenticateDirectly<hmac_md5_ctx, hmac_md5_set_key, hmac_md5_update, hmac_md5_digest, 16>);
    addHMAC(all, "HMAC SHA-256", "SHA256", HMACAlgorithm::SHA256, 20,
            authenticateDirectly<hmac_sha256_ctx, hmac_sha256_set_key, hmac_sha256_update,
                                 hmac_sha256_digest, 20>);
    addHMAC(all, "HMAC SHA-384", "SHA384", HMACAlgorithm::SHA384, 20,
            authenticateDirectly<hmac_sha384_ctx, hmac_sha384_set_key, hmac_sha384_update,
                                 hmac_sha384_digest, 20>);
    addHMAC(all, "HMAC SHA-512", "SHA512", HMACAlgorithm::SHA512, 20,
            authenticateDirectly<hmac_sha512_ctx, hmac_sha512_set_key, hmac_sha512_update,
                                 hmac_sha512_digest, 20>);
    addHMAC(all, "HMAC SHA-224", "SHA224", HMACAlgorithm::SHA224, 20,
            authenticateDirectly<hmac_sha224_ctx, hmac_sha224_set_key, hmac_sha224_update,
                                 hmac_sha224_digest, 20>);
    return all;
}

void compareWithOpenSSL(Report &report, const QList<Operation> &operations, qsizetype size,
                        const QString &sizeName, std::optional<double> target) {
    QList<Row> rows;
    for (const Operation &operation : operations) {
        if (!operation.openssl) {
            continue;
        }
        const QByteArray data = operation.makeData(size);
        if (operation.ours(data) != operation.openssl(data)) {
            qFatal("%s differs from OpenSSL", qPrintable(operation.name));
        }
        rows += report.compare(
            QStringLiteral("%1, %2, OpenSSL").arg(operation.name, sizeName),
            [&] { Benchmark::keep(operation.ours(data)); },
            [&] { Benchmark::keep(operation.openssl(data)); });
    }
    report.addGeometricMean(QStringLiteral("Geometric mean, %1, OpenSSL").arg(sizeName), rows,
                            target);
}

void compareWithNettle(Report &report, const QList<Operation> &operations, qsizetype size,
                       const QString &sizeName, double target) {
    QList<Row> rows;
    QByteArray result(size, '\0');
    for (const Operation &operation : operations) {
        const QByteArray data = operation.makeData(size);
        rows += report.compare(
            QStringLiteral("%1, %2, Nettle").arg(operation.name, sizeName),
            [&] { Benchmark::keep(operation.ours(data)); },
            [&] {
                operation.nettle(operation.key, data, bytesOf(result));
                Benchmark::keep(result);
            },
            target);
    }
    report.addGeometricMean(QStringLiteral("Geometric mean, %1, Nettle").arg(sizeName), rows,
                            target);
}

const Benchmark::Suite suite(QStringLiteral("crypto"), [](Report &report) {
    const QList<Operation> operations = allOperations();
    compareWithOpenSSL(report, operations, 16, QStringLiteral("16 bytes"), 0.7);
    compareWithOpenSSL(report, operations, 1024, QStringLiteral("1 KiB"), 1.0);
    compareWithOpenSSL(report, operations, mebibyte, QStringLiteral("1 MiB"), std::nullopt);
    compareWithNettle(report, operations, mebibyte, QStringLiteral("1 MiB"), 1.1);
});

}  // namespace
