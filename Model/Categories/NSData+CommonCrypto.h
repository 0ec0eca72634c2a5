#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFlags>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <optional>

#include "Platform/Foundation/Error.h"

/// Digests, symmetric ciphers and keyed digests over byte buffers.
///
/// All functions are thread-safe. They read nothing outside the buffers they are given, keep
/// nothing of them, and make no copy of the data beyond the one result. Copies of keys, and what is
/// derived from keys, are wiped before a function returns.
///
/// A key or an initialization vector is a QByteArray, or a QString, which stands for its UTF-8
/// bytes. An invalid QVariant stands for no initialization vector, or for the empty key of a keyed
/// digest. Any other type, and a cipher without a key, raises an AssertionFailure.
///
/// Many of these algorithms are broken (MD2, MD4, MD5, SHA-1, DES, RC4, 40-bit keys) or give no
/// authentication (every cipher here). They are kept for data that exists.

/// The numbering of the system's cipher library. Other numbers may be given and are refused with
/// `CommonCryptoErrorDomain::ParameterError`.
enum class CipherAlgorithm : quint32 {
    /// FIPS 197, blocks of 16 bytes; the key's length selects 128, 192 or 256 bits.
    AES = 0,
    /// FIPS 46-3, blocks of 8 bytes.
    DES = 1,
    /// FIPS 46-3 with three keys, blocks of 8 bytes.
    TripleDES = 2,
    /// CAST-128 (RFC 2144), blocks of 8 bytes.
    CAST = 3,
    /// A stream cipher: no blocks, so neither padding nor mode nor initialization vector apply.
    RC4 = 4,
};

/// Bits that are not named here are ignored.
enum class CipherOption : quint32 {
    /// RFC 5652, 6.3: every encryption adds 1 byte to a whole block.
    PKCS7Padding = 1,
    /// Each block is processed by itself, without an initialization vector. Without this bit,
    /// blocks are chained (CBC), starting with an all-zero vector if none is given.
    ECBMode = 2,
};
Q_DECLARE_FLAGS(CipherOptions, CipherOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(CipherOptions)

/// The numbering of the system's cipher library. Any other number fails an assertion.
enum class HMACAlgorithm : quint32 {
    SHA1 = 0,
    MD5 = 1,
    SHA256 = 2,
    SHA384 = 3,
    SHA512 = 4,
    SHA224 = 5,
};

/// The result of a cipher: `Success` or one of the failures in CommonCryptoErrorDomain.
using CCCryptorStatus = qint32;

/// The domain of `CommonCryptoErrorDomain::errorWithCCCryptorStatus`, "CommonCryptoErrorDomain".
Q_DECL_EXPORT extern const QString kCommonCryptoErrorDomain;

namespace CommonCryptoErrorDomain {

/// The only status of a result.
inline constexpr CCCryptorStatus Success = 0;
/// An algorithm that does not exist, or an empty RC4 key.
inline constexpr CCCryptorStatus ParameterError = -4300;
/// These two, and Unimplemented, belong to the numbering; no function here fails with them.
inline constexpr CCCryptorStatus BufferTooSmall = -4301;
inline constexpr CCCryptorStatus MemoryFailure = -4302;
/// The data is not a whole number of blocks, or is to be unpadded and is empty.
inline constexpr CCCryptorStatus AlignmentError = -4303;
/// The decrypted data does not end in padding: most often the key is wrong.
inline constexpr CCCryptorStatus DecodeError = -4304;
inline constexpr CCCryptorStatus Unimplemented = -4305;

/// Returns the error for `status`, with a localized message; any number may be given. The code is
/// the status. Success and unknown statuses have no failure reason. Thread-safe.
Error errorWithCCCryptorStatus(CCCryptorStatus status);

}  // namespace CommonCryptoErrorDomain

/// Digests of the whole of `data`. They do not fail. `data` may be empty. O(n).
namespace CommonDigest {

/// 16 bytes, RFC 1319.
QByteArray MD2Sum(const QByteArray &data);
/// 16 bytes, RFC 1320.
QByteArray MD4Sum(const QByteArray &data);
/// 16 bytes, RFC 1321.
QByteArray MD5Sum(const QByteArray &data);
/// 20 bytes, FIPS 180-4, as are the following.
QByteArray SHA1Hash(const QByteArray &data);
/// 28 bytes.
QByteArray SHA224Hash(const QByteArray &data);
/// 32 bytes.
QByteArray SHA256Hash(const QByteArray &data);
/// 48 bytes.
QByteArray SHA384Hash(const QByteArray &data);
/// 64 bytes.
QByteArray SHA512Hash(const QByteArray &data);

}  // namespace CommonDigest

/// Padded CBC from an all-zero initialization vector. The length of `key` is fixed as in
/// LowLevelCommonCryptor, so "AES256" too means what the key's length says.
///
/// On failure the result is std::nullopt and `error` is set, unless it is null. On success `error`
/// is not changed. The status behind an error is one of ParameterError, AlignmentError and
/// DecodeError.
namespace CommonCryptor {

std::optional<QByteArray> AES256EncryptedDataUsingKey(const QByteArray &data, const QVariant &key,
                                                      std::optional<Error> *error = nullptr);
std::optional<QByteArray> decryptedAES256DataUsingKey(const QByteArray &data, const QVariant &key,
                                                      std::optional<Error> *error = nullptr);

std::optional<QByteArray> DESEncryptedDataUsingKey(const QByteArray &data, const QVariant &key,
                                                   std::optional<Error> *error = nullptr);
std::optional<QByteArray> decryptedDESDataUsingKey(const QByteArray &data, const QVariant &key,
                                                   std::optional<Error> *error = nullptr);

std::optional<QByteArray> CASTEncryptedDataUsingKey(const QByteArray &data, const QVariant &key,
                                                    std::optional<Error> *error = nullptr);
std::optional<QByteArray> decryptedCASTDataUsingKey(const QByteArray &data, const QVariant &key,
                                                    std::optional<Error> *error = nullptr);

}  // namespace CommonCryptor

/// Any cipher with any options. Forms without options use none (CBC without padding); forms without
/// an initialization vector use the all-zero one.
///
/// The length of `key`, in bytes, is fixed first, by zero bytes at its end or by cutting its tail:
/// AES takes 16, 24 or 32, the least of them that holds the key, or else 32; DES 8; triple DES 24;
/// CAST 5 to 16; RC4 up to 512, of which 256 matter. Then the initialization vector, if there is
/// one, gets the length of the key, and of that the first block is used; a CAST key shorter than a
/// block cuts it to that length, and zero bytes complete the block.
///
/// On failure the result is std::nullopt and `error` is set, unless it is null. On success `error`
/// is not changed. The time of the padding check does not depend on the decrypted bytes. A caller
/// must not let an attacker distinguish DecodeError from success in another way.
namespace LowLevelCommonCryptor {

std::optional<QByteArray> dataEncryptedUsingAlgorithm(const QByteArray &data,
                                                      CipherAlgorithm algorithm,
                                                      const QVariant &key,
                                                      CCCryptorStatus *error = nullptr);
std::optional<QByteArray> dataEncryptedUsingAlgorithm(const QByteArray &data,
                                                      CipherAlgorithm algorithm,
                                                      const QVariant &key, CipherOptions options,
                                                      CCCryptorStatus *error = nullptr);
std::optional<QByteArray> dataEncryptedUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    const QVariant &initializationVector, CipherOptions options, CCCryptorStatus *error = nullptr);

std::optional<QByteArray> decryptedDataUsingAlgorithm(const QByteArray &data,
                                                      CipherAlgorithm algorithm,
                                                      const QVariant &key,
                                                      CCCryptorStatus *error = nullptr);
std::optional<QByteArray> decryptedDataUsingAlgorithm(const QByteArray &data,
                                                      CipherAlgorithm algorithm,
                                                      const QVariant &key, CipherOptions options,
                                                      CCCryptorStatus *error = nullptr);
std::optional<QByteArray> decryptedDataUsingAlgorithm(
    const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
    const QVariant &initializationVector, CipherOptions options, CCCryptorStatus *error = nullptr);

}  // namespace LowLevelCommonCryptor

/// Keyed digests (RFC 2104). They do not fail, except for the assertions stated above.
namespace CommonHMAC {

/// Returns 16 bytes for MD5 and 20 for every other algorithm: the SHA-2 results are truncated to 20
/// bytes. An invalid key is an empty key.
QByteArray HMACWithAlgorithm(const QByteArray &data, HMACAlgorithm algorithm,
                             const QVariant &key = {});

}  // namespace CommonHMAC
