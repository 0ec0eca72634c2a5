// Any algorithm number, option bits, key, initialization vector and data, against what the
// functions promise. A broken promise aborts with its condition.

#include <vector>

#include "Fuzz/FuzzInput.h"
#include "Model/Categories/NSData+CommonCrypto.h"
#include "Platform/Foundation/Assertion.h"

using namespace FuzzInput;

namespace {

/// Takes values from the fuzzer's input; an exhausted input reads as zeros.
class Input {
public:
    Input(const uint8_t *data, size_t size) : m_data(data), m_end(data + size) {}

    uint8_t byte() { return m_data == m_end ? 0 : *m_data++; }
    quint32 number() {
        quint32 number = 0;
        for (int i = 0; i < 4; ++i) {
            number = number << 8 | byte();
        }
        return number;
    }
    /// Most often a number from 0 to `last`, else any.
    quint32 numberNear(quint32 last) {
        const uint8_t choice = byte();
        return choice < 240 ? choice % (last + 1) : number();
    }
    QByteArray bytes(qsizetype length) {
        const QByteArray bytes(reinterpret_cast<const char *>(m_data),
                               std::min<qsizetype>(length, m_end - m_data));
        m_data += bytes.size();
        return bytes;
    }
    QByteArray rest() { return bytes(m_end - m_data); }
    /// Absent, bytes, a string, or of a type that is refused.
    QVariant secret() {
        const uint8_t kind = byte();
        const QByteArray secret = bytes((kind & 0x40) != 0 ? byte() * 3 : byte() % 40);
        switch (kind % 8) {
            case 0:
                return {};
            case 1:
                return kind;
            case 2:
            case 3:
                return QString::fromUtf8(secret);
            default:
                return secret;
        }
    }

private:
    const uint8_t *m_data;
    const uint8_t *const m_end;
};

bool isBytesOrString(const QVariant &value) {
    return value.typeId() == QMetaType::QByteArray || value.typeId() == QMetaType::QString;
}

struct Answer {
    std::optional<QByteArray> result;
    CCCryptorStatus status = CommonCryptoErrorDomain::Success;

    bool operator==(const Answer &) const = default;
};

struct Call {
    CipherAlgorithm algorithm;
    CipherOptions options;
    QVariant key;
    QVariant iv;

    Answer encrypt(const QByteArray &data) const {
        Answer answer;
        answer.result = LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(data, algorithm, key, iv,
                                                                           options, &answer.status);
        return answer;
    }
    Answer decrypt(const QByteArray &data) const {
        Answer answer;
        answer.result = LowLevelCommonCryptor::decryptedDataUsingAlgorithm(data, algorithm, key, iv,
                                                                           options, &answer.status);
        return answer;
    }
    Call unpadded() const {
        Call call = *this;
        call.options.setFlag(CipherOption::PKCS7Padding, false);
        return call;
    }
    bool isPadded() const {
        return algorithm != CipherAlgorithm::RC4 && options.testFlag(CipherOption::PKCS7Padding);
    }
    qsizetype blockSize() const {
        switch (algorithm) {
            case CipherAlgorithm::AES:
                return 16;
            case CipherAlgorithm::RC4:
                return 1;
            default:
                return 8;
        }
    }
    bool isPossible() const {
        if (algorithm > CipherAlgorithm::RC4) {
            return false;
        }
        return algorithm != CipherAlgorithm::RC4 || !key.toByteArray().isEmpty();
    }
};

Answer withoutPadding(const QByteArray &padded, qsizetype blockSize) {
    const qsizetype padding = static_cast<uint8_t>(padded.back());
    if (padding < 1 || padding > blockSize ||
        padded.last(padding) != QByteArray(padding, padded.back())) {
        return {std::nullopt, CommonCryptoErrorDomain::DecodeError};
    }
    return {padded.chopped(padding)};
}

void checkRefusedTypes(const Call &call, const QByteArray &data) {
    for (const auto function : {&Call::encrypt, &Call::decrypt}) {
        try {
            (call.*function)(data);
        } catch (const AssertionFailure &) {
            continue;
        }
        require(false, "a key or vector of another type is refused");
    }
}

void checkEncryption(const Call &call, const QByteArray &data) {
    const Answer answer = call.encrypt(data);
    if (!call.isPossible()) {
        require(answer == Answer{std::nullopt, CommonCryptoErrorDomain::ParameterError},
                "encrypting refuses the algorithm");
        return;
    }
    const qsizetype rest = data.size() % call.blockSize();
    if (!call.isPadded() && rest != 0) {
        require(answer == Answer{std::nullopt, CommonCryptoErrorDomain::AlignmentError},
                "encrypting refuses a part of a block");
        return;
    }
    require(answer.status == CommonCryptoErrorDomain::Success, "encrypting succeeds");
    const qsizetype padding = call.isPadded() ? call.blockSize() - rest : 0;
    require(answer.result->size() == data.size() + padding, "the length is that of all blocks");
    require(call.decrypt(*answer.result) == Answer{data}, "decrypting undoes encrypting");
}

void checkDecryption(const Call &call, const QByteArray &data) {
    const Answer answer = call.decrypt(data);
    if (!call.isPossible()) {
        require(answer == Answer{std::nullopt, CommonCryptoErrorDomain::ParameterError},
                "decrypting refuses the algorithm");
        return;
    }
    if (data.size() % call.blockSize() != 0 || (call.isPadded() && data.isEmpty())) {
        require(answer == Answer{std::nullopt, CommonCryptoErrorDomain::AlignmentError},
                "decrypting refuses a part of a block, and nothing where padding must be");
        return;
    }
    const Answer unpadded = call.unpadded().decrypt(data);
    require(unpadded.status == CommonCryptoErrorDomain::Success, "decrypting succeeds");
    require(call.unpadded().encrypt(*unpadded.result) == Answer{data},
            "encrypting undoes decrypting");
    require(
        answer == (call.isPadded() ? withoutPadding(*unpadded.result, call.blockSize()) : unpadded),
        "padding is taken off where it is right");
}

void checkDigests(const QByteArray &data) {
    require(CommonDigest::MD2Sum(data).size() == 16, "length of MD2");
    require(CommonDigest::MD4Sum(data).size() == 16, "length of MD4");
    require(CommonDigest::MD5Sum(data).size() == 16, "length of MD5");
    require(CommonDigest::SHA1Hash(data).size() == 20, "length of SHA-1");
    require(CommonDigest::SHA224Hash(data).size() == 28, "length of SHA-224");
    require(CommonDigest::SHA256Hash(data).size() == 32, "length of SHA-256");
    require(CommonDigest::SHA384Hash(data).size() == 48, "length of SHA-384");
    require(CommonDigest::SHA512Hash(data).size() == 64, "length of SHA-512");
}

void checkHMAC(quint32 algorithm, const QVariant &key, const QByteArray &data) {
    const bool isAllowed = algorithm <= 5 && (!key.isValid() || isBytesOrString(key));
    try {
        const QByteArray result =
            CommonHMAC::HMACWithAlgorithm(data, static_cast<HMACAlgorithm>(algorithm), key);
        require(isAllowed, "a key of another type and an unknown algorithm are refused");
        require(result.size() == (algorithm == 1 ? 16 : 20), "HMAC results are cut");
    } catch (const AssertionFailure &) {
        require(!isAllowed, "a right key and algorithm are not refused");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size) {
    const QByteArray all = expanded(FuzzInput::bytes(bytes, size));
    Input input(reinterpret_cast<const uint8_t *>(all.constData()),
                static_cast<size_t>(all.size()));
    const quint32 algorithm = input.numberNear(5);
    const quint32 options = input.numberNear(3);
    const QVariant key = input.secret();
    const QVariant iv = input.secret();
    const QByteArray rest = input.rest();
    // Without the byte that QByteArray keeps behind its own, so that reading there is found.
    const std::vector<char> exact(rest.begin(), rest.end());
    const QByteArray data =
        QByteArray::fromRawData(exact.data(), static_cast<qsizetype>(exact.size()));

    const Call call{static_cast<CipherAlgorithm>(algorithm), CipherOptions::fromInt(options), key,
                    iv};
    if (isBytesOrString(key) && (!iv.isValid() || isBytesOrString(iv))) {
        checkEncryption(call, data);
        checkDecryption(call, data);
    } else {
        checkRefusedTypes(call, data);
    }
    checkHMAC(algorithm, key, data);
    checkDigests(data);
    return 0;
}
