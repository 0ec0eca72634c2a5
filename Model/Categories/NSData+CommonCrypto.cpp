#include "Model/Categories/NSData+CommonCrypto.h"

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

#include <QtCore/QStringConverter>
#include <QtCore/QVarLengthArray>
#include <algorithm>
#include <array>
#include <cstring>

#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"

using namespace CommonCryptoErrorDomain;

const QString kCommonCryptoErrorDomain = QStringLiteral("CommonCryptoErrorDomain");

namespace {

constexpr const char *sourceFile = "Model/Categories/NSData+CommonCrypto";

bool isBytesOrString(const QVariant &value) {
    const int type = value.typeId();
    return type == QMetaType::QByteArray || type == QMetaType::QString;
}

const uint8_t *bytesOf(const QByteArray &data) {
    return reinterpret_cast<const uint8_t *>(data.constData());
}

uint8_t *bytesOf(QByteArray &data) {
    return reinterpret_cast<uint8_t *>(data.data());
}

/// A value that is wiped before its memory goes back.
template <typename T>
struct Wiped {
    Wiped() = default;
    ~Wiped() { explicit_bzero(&value, sizeof value); }
    Q_DISABLE_COPY_MOVE(Wiped)

    T value;
};

/// A copy of a key or an initialization vector, wiped in the end. An absent value is empty.
class SecretBytes {
public:
    explicit SecretBytes(const QVariant &value) {
        if (value.typeId() == QMetaType::QByteArray) {
            const auto &bytes = *static_cast<const QByteArray *>(value.constData());
            m_bytes.append(bytesOf(bytes), bytes.size());
        } else if (value.typeId() == QMetaType::QString) {
            // Encoded in place, for toUtf8() would leave a copy behind.
            const auto &text = *static_cast<const QString *>(value.constData());
            QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
            m_bytes.resize(encoder.requiredSpace(text.size()));
            char *const start = reinterpret_cast<char *>(m_bytes.data());
            setSize(static_cast<size_t>(encoder.appendToBuffer(start, text) - start));
        }
    }
    ~SecretBytes() { wipeFrom(0); }
    Q_DISABLE_COPY_MOVE(SecretBytes)

    const uint8_t *data() const { return m_bytes.constData(); }
    size_t size() const { return static_cast<size_t>(m_bytes.size()); }
    /// Lengthens by zero bytes, or cuts the tail.
    void setSize(size_t newSize) {
        const size_t oldSize = size();
        if (newSize < oldSize) {
            wipeFrom(newSize);
        }
        m_bytes.resize(static_cast<qsizetype>(newSize));
        if (newSize > oldSize) {
            std::fill(m_bytes.begin() + oldSize, m_bytes.end(), 0);
        }
    }

private:
    void wipeFrom(size_t start) { explicit_bzero(m_bytes.data() + start, size() - start); }

    /// Every length that a cipher's key can be lengthened to fits without a second allocation,
    /// which would leave the first one unwiped.
    QVarLengthArray<uint8_t, 512> m_bytes;
};

// Digests

template <typename Context, auto init, auto update, auto digest>
QByteArray digestOf(const QByteArray &data, qsizetype length) {
    Context context;
    init(&context);
    update(&context, static_cast<size_t>(data.size()), bytesOf(data));
    QByteArray result(length, Qt::Uninitialized);
    digest(&context, static_cast<size_t>(length), bytesOf(result));
    return result;
}

template <typename Context, auto setKey, auto update, auto digest>
QByteArray hmacOf(const QByteArray &data, const QVariant &key, qsizetype length) {
    const SecretBytes keyBytes(key);
    Wiped<Context> context;
    setKey(&context.value, keyBytes.size(), keyBytes.data());
    update(&context.value, static_cast<size_t>(data.size()), bytesOf(data));
    QByteArray result(length, Qt::Uninitialized);
    digest(&context.value, static_cast<size_t>(length), bytesOf(result));
    return result;
}

// Block ciphers

constexpr size_t maximalBlockSize = AES_BLOCK_SIZE;

union BlockContext {
    aes128_ctx aes128;
    aes192_ctx aes192;
    aes256_ctx aes256;
    des_ctx des;
    des3_ctx tripleDES;
    cast128_ctx cast;
};

using SetKey = void(BlockContext &context, const SecretBytes &key);
using EncryptChain = void(const BlockContext &context, uint8_t *iv, size_t length, uint8_t *result,
                          const uint8_t *data);

/// What Nettle has for a cipher.
struct BlockCipher {
    size_t blockSize;
    SetKey *setEncryptKey;
    SetKey *setDecryptKey;
    /// Both work on each block by itself.
    nettle_cipher_func *encrypt;
    nettle_cipher_func *decrypt;
    /// Faster than `encrypt` called for one block of the chain after another; not every cipher's.
    EncryptChain *encryptChain;
};

template <auto member, auto function>
void setKey(BlockContext &context, const SecretBytes &key) {
    // DES reports weak keys, and works with them.
    static_cast<void>(function(&(context.*member), key.data()));
}

void setCASTKey(BlockContext &context, const SecretBytes &key) {
    cast5_set_key(&context.cast, key.size(), key.data());
}

template <auto member, auto function>
void encryptChain(const BlockContext &context, uint8_t *iv, size_t length, uint8_t *result,
                  const uint8_t *data) {
    function(&(context.*member), iv, length, result, data);
}

/// Nettle passes its ciphers around in this type, and so do its macros for chaining. A function in
/// between, once a block, would cost a tenth of the time.
template <typename Context>
nettle_cipher_func *anyCipher(void (*function)(const Context *, size_t, uint8_t *,
                                               const uint8_t *)) {
    return reinterpret_cast<nettle_cipher_func *>(function);
}

const BlockCipher aes128Cipher = {
    AES_BLOCK_SIZE,
    setKey<&BlockContext::aes128, aes128_set_encrypt_key>,
    setKey<&BlockContext::aes128, aes128_set_decrypt_key>,
    anyCipher(aes128_encrypt),
    anyCipher(aes128_decrypt),
    encryptChain<&BlockContext::aes128, cbc_aes128_encrypt>,
};
const BlockCipher aes192Cipher = {
    AES_BLOCK_SIZE,
    setKey<&BlockContext::aes192, aes192_set_encrypt_key>,
    setKey<&BlockContext::aes192, aes192_set_decrypt_key>,
    anyCipher(aes192_encrypt),
    anyCipher(aes192_decrypt),
    encryptChain<&BlockContext::aes192, cbc_aes192_encrypt>,
};
const BlockCipher aes256Cipher = {
    AES_BLOCK_SIZE,
    setKey<&BlockContext::aes256, aes256_set_encrypt_key>,
    setKey<&BlockContext::aes256, aes256_set_decrypt_key>,
    anyCipher(aes256_encrypt),
    anyCipher(aes256_decrypt),
    encryptChain<&BlockContext::aes256, cbc_aes256_encrypt>,
};
const BlockCipher desCipher = {
    DES_BLOCK_SIZE,
    setKey<&BlockContext::des, des_set_key>,
    setKey<&BlockContext::des, des_set_key>,
    anyCipher(des_encrypt),
    anyCipher(des_decrypt),
    nullptr,
};
const BlockCipher tripleDESCipher = {
    DES3_BLOCK_SIZE,
    setKey<&BlockContext::tripleDES, des3_set_key>,
    setKey<&BlockContext::tripleDES, des3_set_key>,
    anyCipher(des3_encrypt),
    anyCipher(des3_decrypt),
    nullptr,
};
const BlockCipher castCipher = {
    CAST128_BLOCK_SIZE,         setCASTKey, setCASTKey, anyCipher(cast128_encrypt),
    anyCipher(cast128_decrypt), nullptr,
};

/// The cipher for a key whose length has been fixed; none for RC4 and unknown algorithms.
const BlockCipher *blockCipher(CipherAlgorithm algorithm, size_t keySize) {
    switch (algorithm) {
        case CipherAlgorithm::AES:
            if (keySize == AES128_KEY_SIZE) {
                return &aes128Cipher;
            }
            return keySize == AES192_KEY_SIZE ? &aes192Cipher : &aes256Cipher;
        case CipherAlgorithm::DES:
            return &desCipher;
        case CipherAlgorithm::TripleDES:
            return &tripleDESCipher;
        case CipherAlgorithm::CAST:
            return &castCipher;
        case CipherAlgorithm::RC4:
            break;
    }
    return nullptr;
}

/// How many bytes of padding end `block`, or 0 where it is not padded rightly. Which bytes are
/// wrong, and how many there are, makes no difference to the time it takes.
size_t paddingLength(const uint8_t *block, size_t blockSize) {
    const unsigned padding = block[blockSize - 1];
    const auto size = static_cast<unsigned>(blockSize);
    // Each difference of small numbers has its top bit set exactly where it is negative.
    unsigned wrong = ((padding - 1) | (size - padding)) >> 31;
    for (unsigned fromEnd = 0; fromEnd < size; ++fromEnd) {
        const unsigned isPadding = (fromEnd - padding) >> 31;
        wrong |= (block[size - 1 - fromEnd] ^ padding) & (0U - isPadding);
    }
    const unsigned isRight = (wrong - 1) >> 31;
    return padding & (0U - isRight);
}

enum class Direction { Encrypt, Decrypt };

/// What a cipher gives: a result, or why there is none.
struct Outcome {
    std::optional<QByteArray> result;
    CCCryptorStatus status = Success;
};

class BlockCryptor {
public:
    BlockCryptor(const BlockCipher &cipher, Direction direction, CipherOptions options,
                 const SecretBytes &key, const SecretBytes &initializationVector)
        : m_cipher(cipher),
          m_direction(direction),
          m_isChained(!options.testFlag(CipherOption::ECBMode)),
          m_isPadded(options.testFlag(CipherOption::PKCS7Padding)) {
        const bool encrypts = direction == Direction::Encrypt;
        (encrypts ? cipher.setEncryptKey : cipher.setDecryptKey)(m_context.value, key);
        std::copy_n(initializationVector.data(),
                    std::min(cipher.blockSize, initializationVector.size()), m_iv.begin());
    }

    Outcome process(const QByteArray &data) {
        return m_direction == Direction::Encrypt ? encrypt(data) : decrypt(data);
    }

private:
    Outcome encrypt(const QByteArray &data) {
        const auto size = static_cast<size_t>(data.size());
        const size_t rest = size % m_cipher.blockSize;
        if (!m_isPadded && rest != 0) {
            return {std::nullopt, AlignmentError};
        }
        const size_t padding = m_isPadded ? m_cipher.blockSize - rest : 0;
        QByteArray result(static_cast<qsizetype>(size + padding), Qt::Uninitialized);
        uint8_t *const bytes = bytesOf(result);
        cryptBlocks(bytes, bytesOf(data), size - rest);
        if (m_isPadded) {
            uint8_t *const last = bytes + size - rest;
            std::copy_n(bytesOf(data) + size - rest, rest, last);
            std::fill_n(last + rest, padding, static_cast<uint8_t>(padding));
            cryptBlocks(last, last, m_cipher.blockSize);
        }
        return {std::move(result)};
    }

    Outcome decrypt(const QByteArray &data) {
        const auto size = static_cast<size_t>(data.size());
        if (size % m_cipher.blockSize != 0 || (m_isPadded && size == 0)) {
            return {std::nullopt, AlignmentError};
        }
        QByteArray result(data.size(), Qt::Uninitialized);
        uint8_t *const bytes = bytesOf(result);
        cryptBlocks(bytes, bytesOf(data), size);
        if (m_isPadded) {
            const size_t padding =
                paddingLength(bytes + size - m_cipher.blockSize, m_cipher.blockSize);
            if (padding == 0) {
                return {std::nullopt, DecodeError};
            }
            result.truncate(static_cast<qsizetype>(size - padding));
        }
        return {std::move(result)};
    }

    /// `length` is a whole number of blocks; the buffers are the same or apart. What continues the
    /// chain is left in the initialization vector.
    void cryptBlocks(uint8_t *result, const uint8_t *data, size_t length) {
        const BlockContext &context = m_context.value;
        const bool encrypts = m_direction == Direction::Encrypt;
        if (!m_isChained) {
            (encrypts ? m_cipher.encrypt : m_cipher.decrypt)(&context, length, result, data);
        } else if (!encrypts) {
            cbc_decrypt(&context, m_cipher.decrypt, m_cipher.blockSize, m_iv.data(), length, result,
                        data);
        } else if (m_cipher.encryptChain != nullptr) {
            m_cipher.encryptChain(context, m_iv.data(), length, result, data);
        } else {
            cbc_encrypt(&context, m_cipher.encrypt, m_cipher.blockSize, m_iv.data(), length, result,
                        data);
        }
    }

    const BlockCipher &m_cipher;
    const Direction m_direction;
    const bool m_isChained;
    const bool m_isPadded;
    /// Aligned, for chaining adds it to each block a word at a time.
    alignas(maximalBlockSize) std::array<uint8_t, maximalBlockSize> m_iv = {};
    Wiped<BlockContext> m_context;
};

Outcome cryptRC4(const QByteArray &data, const SecretBytes &key) {
    if (key.size() == 0) {
        return {std::nullopt, ParameterError};
    }
    Wiped<arcfour_ctx> context;
    // The key is read round and round, one byte for each of 256: what follows never matters, and
    // Nettle refuses it.
    arcfour_set_key(&context.value, std::min<size_t>(key.size(), ARCFOUR_MAX_KEY_SIZE), key.data());
    QByteArray result(data.size(), Qt::Uninitialized);
    arcfour_crypt(&context.value, static_cast<size_t>(data.size()), bytesOf(result), bytesOf(data));
    return {std::move(result)};
}

// Both forms of ciphers

size_t fixedKeyLength(CipherAlgorithm algorithm, size_t length) {
    switch (algorithm) {
        case CipherAlgorithm::AES:
            if (length <= 16) {
                return 16;
            }
            return length <= 24 ? 24 : 32;
        case CipherAlgorithm::DES:
            return 8;
        case CipherAlgorithm::TripleDES:
            return 24;
        case CipherAlgorithm::CAST:
            return std::clamp<size_t>(length, 5, 16);
        case CipherAlgorithm::RC4:
            return std::min<size_t>(length, 512);
    }
    return length;
}

/// An absent initialization vector becomes zero bytes, which is what absent means.
void FixKeyLengths(CipherAlgorithm algorithm, SecretBytes &key, SecretBytes &initializationVector) {
    key.setSize(fixedKeyLength(algorithm, key.size()));
    initializationVector.setSize(key.size());
}

Outcome process(Direction direction, const QByteArray &data, CipherAlgorithm algorithm,
                const QVariant &key, const QVariant &initializationVector, CipherOptions options,
                const char *method) {
    requireParameter(isBytesOrString(key),
                     "[key isKindOfClass: [NSData class]] || [key isKindOfClass: [NSString class]]",
                     method, sourceFile);
    requireParameter(!initializationVector.isValid() || isBytesOrString(initializationVector),
                     "iv == nil || [iv isKindOfClass: [NSData class]] || "
                     "[iv isKindOfClass: [NSString class]]",
                     method, sourceFile);

    SecretBytes keyBytes(key);
    SecretBytes ivBytes(initializationVector);
    FixKeyLengths(algorithm, keyBytes, ivBytes);
    if (const BlockCipher *cipher = blockCipher(algorithm, keyBytes.size())) {
        return BlockCryptor(*cipher, direction, options, keyBytes, ivBytes).process(data);
    }
    if (algorithm == CipherAlgorithm::RC4) {
        return cryptRC4(data, keyBytes);
    }
    return {std::nullopt, ParameterError};
}

std::optional<QByteArray> processPadded(Direction direction, const QByteArray &data,
                                        CipherAlgorithm algorithm, const QVariant &key,
                                        std::optional<Error> *error, const char *method) {
    Outcome outcome =
        process(direction, data, algorithm, key, QVariant(), CipherOption::PKCS7Padding, method);
    if (!outcome.result && error != nullptr) {
        *error = errorWithCCCryptorStatus(outcome.status);
    }
    return std::move(outcome.result);
}

std::optional<QByteArray> resultOf(Outcome outcome, CCCryptorStatus *error) {
    if (!outcome.result && error != nullptr) {
        *error = outcome.status;
    }
    return std::move(outcome.result);
}

}  // namespace

// Errors

Error CommonCryptoErrorDomain::errorWithCCCryptorStatus(CCCryptorStatus status) {
    const auto error = [status](const QString &description, const QString &reason = {}) {
        return Error{kCommonCryptoErrorDomain, status, description, reason};
    };
    switch (status) {
        case Success:
            return error(localizedSyncString("Success"));
        case ParameterError:
            return error(localizedSyncString("Parameter Error"),
                         localizedSyncString(
                             "Illegal parameter supplied to encryption/decryption algorithm"));
        case BufferTooSmall:
            return error(
                localizedSyncString("Buffer Too Small"),
                localizedSyncString("Insufficient buffer provided for specified operation"));
        case MemoryFailure:
            return error(localizedSyncString("Memory Failure"),
                         localizedSyncString("Failed to allocate memory"));
        case AlignmentError:
            return error(localizedSyncString("Alignment Error"),
                         localizedSyncString(
                             "Input size to encryption algorithm was not aligned correctly"));
        case DecodeError:
            return error(localizedSyncString("Decode Error"),
                         localizedSyncString("Input data did not decode or decrypt correctly"));
        case Unimplemented:
            return error(localizedSyncString("Unimplemented Function"),
                         localizedSyncString("Function not implemented for the current algorithm"));
        default:
            return error(localizedSyncString("Unknown Error"));
    }
}

// Digests

QByteArray CommonDigest::MD2Sum(const QByteArray &data) {
    return digestOf<md2_ctx, md2_init, md2_update, md2_digest>(data, MD2_DIGEST_SIZE);
}

QByteArray CommonDigest::MD4Sum(const QByteArray &data) {
    return digestOf<md4_ctx, md4_init, md4_update, md4_digest>(data, MD4_DIGEST_SIZE);
}

QByteArray CommonDigest::MD5Sum(const QByteArray &data) {
    return digestOf<md5_ctx, md5_init, md5_update, md5_digest>(data, MD5_DIGEST_SIZE);
}

QByteArray CommonDigest::SHA1Hash(const QByteArray &data) {
    return digestOf<sha1_ctx, sha1_init, sha1_update, sha1_digest>(data, SHA1_DIGEST_SIZE);
}

QByteArray CommonDigest::SHA224Hash(const QByteArray &data) {
    return digestOf<sha224_ctx, sha224_init, sha224_update, sha224_digest>(data,
                                                                           SHA224_DIGEST_SIZE);
}

QByteArray CommonDigest::SHA256Hash(const QByteArray &data) {
    return digestOf<sha256_ctx, sha256_init, sha256_update, sha256_digest>(data,
                                                                           SHA256_DIGEST_SIZE);
}

QByteArray CommonDigest::SHA384Hash(const QByteArray &data) {
    return digestOf<sha384_ctx, sha384_init, sha384_update, sha384_digest>(data,
                                                                           SHA384_DIGEST_SIZE);
}

QByteArray CommonDigest::SHA512Hash(const QByteArray &data) {
    return digestOf<sha512_ctx, sha512_init, sha512_update, sha512_digest>(data,
                                                                           SHA512_DIGEST_SIZE);
}

// High-level ciphers

std::optional<QByteArray> CommonCryptor::AES256EncryptedDataUsingKey(const QByteArray &data,
                                                                     const QVariant &key,
                                                                     std::optional<Error> *error) {
    return processPadded(Direction::Encrypt, data, CipherAlgorithm::AES, key, error,
                         "CommonCryptor::AES256EncryptedDataUsingKey");
}

std::optional<QByteArray> CommonCryptor::decryptedAES256DataUsingKey(const QByteArray &data,
                                                                     const QVariant &key,
                                                                     std::optional<Error> *error) {
    return processPadded(Direction::Decrypt, data, CipherAlgorithm::AES, key, error,
                         "CommonCryptor::decryptedAES256DataUsingKey");
}

std::optional<QByteArray> CommonCryptor::DESEncryptedDataUsingKey(const QByteArray &data,
                                                                  const QVariant &key,
                                                                  std::optional<Error> *error) {
    return processPadded(Direction::Encrypt, data, CipherAlgorithm::DES, key, error,
                         "CommonCryptor::DESEncryptedDataUsingKey");
}

std::optional<QByteArray> CommonCryptor::decryptedDESDataUsingKey(const QByteArray &data,
                                                                  const QVariant &key,
                                                                  std::optional<Error> *error) {
    return processPadded(Direction::Decrypt, data, CipherAlgorithm::DES, key, error,
                         "CommonCryptor::decryptedDESDataUsingKey");
}

std::optional<QByteArray> CommonCryptor::CASTEncryptedDataUsingKey(const QByteArray &data,
                                                                   const QVariant &key,
                                                                   std::optional<Error> *error) {
    return processPadded(Direction::Encrypt, data, CipherAlgorithm::CAST, key, error,
                         "CommonCryptor::CASTEncryptedDataUsingKey");
}

std::optional<QByteArray> CommonCryptor::decryptedCASTDataUsingKey(const QByteArray &data,
                                                                   const QVariant &key,
                                                                   std::optional<Error> *error) {
    return processPadded(Direction::Decrypt, data, CipherAlgorithm::CAST, key, error,
                         "CommonCryptor::decryptedCASTDataUsingKey");
}

// Low-level ciphers

std::optional<QByteArray> LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    CCCryptorStatus *error) {
    return dataEncryptedUsingAlgorithm(data, algorithm, key, QVariant(), CipherOptions(), error);
}

std::optional<QByteArray> LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key, CipherOptions options,
    CCCryptorStatus *error) {
    return dataEncryptedUsingAlgorithm(data, algorithm, key, QVariant(), options, error);
}

std::optional<QByteArray> LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    const QVariant &initializationVector, CipherOptions options, CCCryptorStatus *error) {
    return resultOf(process(Direction::Encrypt, data, algorithm, key, initializationVector, options,
                            "LowLevelCommonCryptor::dataEncryptedUsingAlgorithm"),
                    error);
}

std::optional<QByteArray> LowLevelCommonCryptor::decryptedDataUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    CCCryptorStatus *error) {
    return decryptedDataUsingAlgorithm(data, algorithm, key, QVariant(), CipherOptions(), error);
}

std::optional<QByteArray> LowLevelCommonCryptor::decryptedDataUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key, CipherOptions options,
    CCCryptorStatus *error) {
    return decryptedDataUsingAlgorithm(data, algorithm, key, QVariant(), options, error);
}

std::optional<QByteArray> LowLevelCommonCryptor::decryptedDataUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    const QVariant &initializationVector, CipherOptions options, CCCryptorStatus *error) {
    return resultOf(process(Direction::Decrypt, data, algorithm, key, initializationVector, options,
                            "LowLevelCommonCryptor::decryptedDataUsingAlgorithm"),
                    error);
}

// HMAC

QByteArray CommonHMAC::HMACWithAlgorithm(const QByteArray &data, HMACAlgorithm algorithm,
                                         const QVariant &key) {
    constexpr const char *method = "CommonHMAC::HMACWithAlgorithm";
    constexpr qsizetype cutLength = SHA1_DIGEST_SIZE;
    requireParameter(!key.isValid() || isBytesOrString(key),
                     "key == nil || [key isKindOfClass: [NSData class]] || "
                     "[key isKindOfClass: [NSString class]]",
                     method, sourceFile);
    switch (algorithm) {
        case HMACAlgorithm::SHA1:
            return hmacOf<hmac_sha1_ctx, hmac_sha1_set_key, hmac_sha1_update, hmac_sha1_digest>(
                data, key, cutLength);
        case HMACAlgorithm::MD5:
            return hmacOf<hmac_md5_ctx, hmac_md5_set_key, hmac_md5_update, hmac_md5_digest>(
                data, key, MD5_DIGEST_SIZE);
        case HMACAlgorithm::SHA256:
            return hmacOf<hmac_sha256_ctx, hmac_sha256_set_key, hmac_sha256_update,
                          hmac_sha256_digest>(data, key, cutLength);
        case HMACAlgorithm::SHA384:
            return hmacOf<hmac_sha384_ctx, hmac_sha384_set_key, hmac_sha384_update,
                          hmac_sha384_digest>(data, key, cutLength);
        case HMACAlgorithm::SHA512:
            return hmacOf<hmac_sha512_ctx, hmac_sha512_set_key, hmac_sha512_update,
                          hmac_sha512_digest>(data, key, cutLength);
        case HMACAlgorithm::SHA224:
            return hmacOf<hmac_sha224_ctx, hmac_sha224_set_key, hmac_sha224_update,
                          hmac_sha224_digest>(data, key, cutLength);
    }
    failAssertion(QStringLiteral("Invalid parameter not satisfying: algorithm <= 5"), method,
                  sourceFile);
}
