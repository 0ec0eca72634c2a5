#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "Model/Categories/NSData+CommonCrypto.h"
#include "Platform/Foundation/Assertion.h"
#include "Support/TestMain.h"

using namespace CommonCryptoErrorDomain;

/// The fuzz target's checks; see NSDataCommonCryptoFuzz.cpp.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size);

namespace {

constexpr quint32 seed = 20040217;

const QList<CipherAlgorithm> allCiphers = {CipherAlgorithm::AES, CipherAlgorithm::DES,
                                           CipherAlgorithm::TripleDES, CipherAlgorithm::CAST,
                                           CipherAlgorithm::RC4};
const QList<CipherAlgorithm> blockCiphers = allCiphers.first(4);
const QList<HMACAlgorithm> allHMACs = {HMACAlgorithm::SHA1,   HMACAlgorithm::MD5,
                                       HMACAlgorithm::SHA256, HMACAlgorithm::SHA384,
                                       HMACAlgorithm::SHA512, HMACAlgorithm::SHA224};

constexpr CipherOption padding = CipherOption::PKCS7Padding;
constexpr CipherOption ecb = CipherOption::ECBMode;

using Digest = QByteArray (*)(const QByteArray &);
const QList<std::pair<QString, Digest>> allDigests = {
    {QStringLiteral("MD2"), CommonDigest::MD2Sum},
    {QStringLiteral("MD4"), CommonDigest::MD4Sum},
    {QStringLiteral("MD5"), CommonDigest::MD5Sum},
    {QStringLiteral("SHA1"), CommonDigest::SHA1Hash},
    {QStringLiteral("SHA224"), CommonDigest::SHA224Hash},
    {QStringLiteral("SHA256"), CommonDigest::SHA256Hash},
    {QStringLiteral("SHA384"), CommonDigest::SHA384Hash},
    {QStringLiteral("SHA512"), CommonDigest::SHA512Hash},
};

using HighLevel = std::optional<QByteArray> (*)(const QByteArray &, const QVariant &,
                                                std::optional<Error> *);
struct HighLevelPair {
    CipherAlgorithm algorithm;
    HighLevel encrypt;
    HighLevel decrypt;
};
const QList<HighLevelPair> highLevelPairs = {
    {CipherAlgorithm::AES, CommonCryptor::AES256EncryptedDataUsingKey,
     CommonCryptor::decryptedAES256DataUsingKey},
    {CipherAlgorithm::DES, CommonCryptor::DESEncryptedDataUsingKey,
     CommonCryptor::decryptedDESDataUsingKey},
    {CipherAlgorithm::CAST, CommonCryptor::CASTEncryptedDataUsingKey,
     CommonCryptor::decryptedCASTDataUsingKey},
};

QByteArray fromHex(const char *hex) {
    return QByteArray::fromHex(hex);
}

qsizetype blockSize(CipherAlgorithm algorithm) {
    return algorithm == CipherAlgorithm::AES ? 16 : 8;
}

/// The result of a cipher; compared as a whole.
struct Answer {
    std::optional<QByteArray> result;
    CCCryptorStatus status = Success;

    bool operator==(const Answer &) const = default;
};

Answer failure(CCCryptorStatus status) {
    return {std::nullopt, status};
}

char *toString(const Answer &answer) {
    return qstrdup(answer.result ? answer.result->toHex() : QByteArray::number(answer.status));
}

Answer encrypt(const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
               CipherOptions options, const QVariant &iv = {}) {
    Answer answer;
    answer.result = LowLevelCommonCryptor::dataEncryptedUsingAlgorithm(data, algorithm, key, iv,
                                                                       options, &answer.status);
    return answer;
}

Answer decrypt(const QByteArray &data, CipherAlgorithm algorithm, const QVariant &key,
               CipherOptions options, const QVariant &iv = {}) {
    Answer answer;
    answer.result = LowLevelCommonCryptor::decryptedDataUsingAlgorithm(data, algorithm, key, iv,
                                                                       options, &answer.status);
    return answer;
}

/// The message of the assertion that `work` fails, or a null string.
template <typename Work>
QString assertionOf(const Work &work) {
    try {
        work();
    } catch (const AssertionFailure &failure) {
        return failure.sourceFile() + QStringLiteral(": ") + failure.message();
    }
    return {};
}

class Random {
public:
    quint32 below(quint32 bound) { return m_generator.bounded(bound); }
    bool chance() { return below(2) == 0; }
    QByteArray bytes(qsizetype length) {
        QByteArray bytes(length, Qt::Uninitialized);
        for (char &byte : bytes) {
            byte = static_cast<char>(below(256));
        }
        return bytes;
    }

private:
    QRandomGenerator m_generator{seed};
};

/// Bytes with memory that cannot be read right before or right behind them.
class GuardedBytes {
public:
    enum class Place { AtStart, AtEnd };

    GuardedBytes(const QByteArray &bytes, Place place) : m_length(bytes.size()) {
        m_memory = static_cast<char *>(
            mmap(nullptr, 3 * page(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        Q_ASSERT(m_memory != MAP_FAILED && static_cast<size_t>(m_length) <= page());
        m_start = m_memory + page();
        if (place == Place::AtEnd) {
            m_start += page() - static_cast<size_t>(m_length);
        }
        std::copy(bytes.begin(), bytes.end(), m_start);
        mprotect(m_memory, page(), PROT_NONE);
        mprotect(m_memory + 2 * page(), page(), PROT_NONE);
    }
    ~GuardedBytes() { munmap(m_memory, 3 * page()); }
    Q_DISABLE_COPY_MOVE(GuardedBytes)

    QByteArray bytes() const { return QByteArray::fromRawData(m_start, m_length); }

private:
    static size_t page() { return static_cast<size_t>(sysconf(_SC_PAGESIZE)); }

    qsizetype m_length;
    char *m_memory;
    char *m_start;
};

/// Runs `work` on a thread with its own stack and returns what it left on that stack.
QByteArray stackAfter(const std::function<void()> &work) {
    constexpr size_t size = 1 << 20;
    void *const stack =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, stack, size);
    pthread_t thread = {};
    const auto run = [](void *argument) -> void * {
        (*static_cast<const std::function<void()> *>(argument))();
        return nullptr;
    };
    pthread_create(&thread, &attributes, run, const_cast<void *>(static_cast<const void *>(&work)));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    QByteArray left(static_cast<const char *>(stack), size);
    munmap(stack, size);
    return left;
}

/// Whether any eight bytes of `secret` in a row are in `memory`.
bool holdsPartOf(const QByteArray &memory, const QByteArray &secret) {
    for (qsizetype start = 0; start + 8 <= secret.size(); start += 8) {
        if (memory.contains(secret.sliced(start, 8))) {
            return true;
        }
    }
    return false;
}

/// How many bytes more than before the process held at most while `work` ran.
qint64 additionalMemory(const std::function<void()> &work) {
    const auto field = [](QByteArrayView name) -> qint64 {
        QFile status(QStringLiteral("/proc/self/status"));
        if (!status.open(QIODevice::ReadOnly)) {
            return -1;
        }
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith(name)) {
                return line.simplified().split(' ').at(1).toLongLong() * 1024;
            }
        }
        return -1;
    };
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (!reset.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || reset.write("5") != 1) {
        return -1;
    }
    const qint64 before = field("VmRSS:");
    work();
    return field("VmHWM:") - before;
}

void write(const QString &file, const QByteArray &content) {
    QFile output(file);
    if (!output.open(QIODevice::WriteOnly) || output.write(content) != content.size()) {
        qFatal("%s cannot be written", qPrintable(file));
    }
}

QByteArray read(const QString &file) {
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

/// Runs the lines as shell scripts, two at a time, in `directory`.
void runInShell(const QByteArrayList &lines, const QString &directory) {
    const qsizetype half = lines.size() / 2;
    QProcess shells[2];
    for (int i = 0; i < 2; ++i) {
        const QString script = directory + QStringLiteral("/script%1").arg(i);
        write(script, (i == 0 ? lines.first(half) : lines.sliced(half)).join('\n') + '\n');
        shells[i].setWorkingDirectory(directory);
        shells[i].setProcessChannelMode(QProcess::ForwardedErrorChannel);
        shells[i].start(QStringLiteral("/bin/sh"), {script});
    }
    for (QProcess &shell : shells) {
        QVERIFY2(shell.waitForFinished(100'000), "openssl takes too long");
        QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    }
}

/// The digests that `openssl dgst -r` wrote, one a line.
QByteArrayList digestsIn(const QString &file) {
    QByteArrayList digests;
    for (const QByteArray &line : read(file).trimmed().split('\n')) {
        digests += QByteArray::fromHex(line.left(line.indexOf(' ')));
    }
    return digests;
}

/// One cipher call that OpenSSL's command line can make too.
struct CipherCase {
    bool encrypts;
    CipherAlgorithm algorithm;
    CipherOptions options;
    QByteArray key;
    QVariant iv;
    QByteArray data;

    bool isECB() const { return options.testFlag(ecb); }
    bool hasIV() const { return algorithm != CipherAlgorithm::RC4 && !isECB(); }

    Answer answer() const {
        return encrypts ? encrypt(data, algorithm, key, options, iv)
                        : decrypt(data, algorithm, key, options, iv);
    }

    /// The key as OpenSSL wants it, of exactly the cipher's length.
    QByteArray opensslKey() const {
        const auto sized = [this](qsizetype length) {
            return key.leftJustified(length, '\0', true);
        };
        switch (algorithm) {
            case CipherAlgorithm::AES:
                if (key.size() <= 16) {
                    return sized(16);
                }
                return sized(key.size() <= 24 ? 24 : 32);
            case CipherAlgorithm::DES:
                return sized(8);
            case CipherAlgorithm::TripleDES:
                return sized(24);
            case CipherAlgorithm::CAST:
                return sized(16);
            case CipherAlgorithm::RC4:
                // A key and that key repeated are the same to RC4.
                return key.repeated(16).first(16);
        }
        return {};
    }
    QByteArray opensslIV() const {
        const qsizetype fixedKeyLength =
            algorithm == CipherAlgorithm::CAST ? std::clamp<qsizetype>(key.size(), 5, 16) : 32;
        const QByteArray bytes = iv.toByteArray().left(fixedKeyLength);
        return bytes.leftJustified(blockSize(algorithm), '\0', true);
    }
    QByteArray opensslName() const {
        const QByteArray mode = isECB() ? "-ecb" : "-cbc";
        switch (algorithm) {
            case CipherAlgorithm::AES:
                return "aes-" + QByteArray::number(opensslKey().size() * 8) + mode;
            case CipherAlgorithm::DES:
                return "des" + mode;
            case CipherAlgorithm::TripleDES:
                return "des-ede3" + mode;
            case CipherAlgorithm::CAST:
                return "cast5" + mode;
            case CipherAlgorithm::RC4:
                return "rc4";
        }
        return {};
    }
    QByteArray opensslLine(const QByteArray &number) const {
        QByteArrayList words = {"openssl enc", "-" + opensslName(), encrypts ? "-e" : "-d", "-K",
                                opensslKey().toHex()};
        if (hasIV()) {
            words += {"-iv", opensslIV().toHex()};
        }
        if (!options.testFlag(padding)) {
            words += "-nopad";
        }
        words += "-provider legacy -provider default";
        words += {"-in", number + ".in", "-out", number + ".out", "2>/dev/null"};
        words += {"&& : >", number + ".done"};
        return words.join(' ');
    }
    QByteArray description() const {
        return opensslLine("case") + " # key " + key.toHex() + " iv " + iv.toByteArray().toHex() +
               " data " + data.toHex();
    }
};

CipherCase randomCipherCase(Random &random) {
    CipherCase call;
    call.encrypts = random.chance();
    call.algorithm = allCiphers.at(static_cast<qsizetype>(random.below(5)));
    call.options = CipherOptions::fromInt(random.below(4));
    switch (call.algorithm) {
        case CipherAlgorithm::RC4: {
            const qsizetype period = qsizetype(1) << random.below(5);
            call.key = random.bytes(period).repeated(1 + random.below(700 / period));
            break;
        }
        case CipherAlgorithm::CAST:
            // OpenSSL's command line takes 16 bytes only. Shorter ones are filled up with zeros,
            // but up to 10 bytes make fewer rounds.
            call.key = random.bytes(11 + random.below(20));
            break;
        default:
            call.key = random.bytes(random.below(50));
            break;
    }
    if (random.below(3) != 0) {
        call.iv = random.bytes(random.below(40));
    }
    const qsizetype block = blockSize(call.algorithm);
    call.data = random.bytes(random.below(4) == 0 ? random.below(300) : block * random.below(20));
    if (!call.encrypts && call.options.testFlag(padding) && random.below(4) != 0) {
        // Ends, when decrypted, in something that is padding or close to it.
        const auto count = static_cast<qsizetype>(random.below(static_cast<quint32>(block) + 3));
        const auto value = static_cast<char>(count + (random.below(4) == 0 ? 1 : 0));
        QByteArray plain = random.bytes(block * (2 + random.below(5)));
        plain.replace(plain.size() - count, count, QByteArray(count, value));
        call.data = *encrypt(plain, call.algorithm, call.key, call.options & ecb, call.iv).result;
    }
    return call;
}

}  // namespace

class NSDataCommonCryptoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qInfo("Random values from the seed %u", seed); }

    // Published vectors
    void digestsGiveThePublishedResults_data();
    void digestsGiveThePublishedResults();
    void blockCiphersGiveThePublishedResults_data();
    void blockCiphersGiveThePublishedResults();
    void RC4GivesThePublishedKeyStream_data();
    void RC4GivesThePublishedKeyStream();
    void HMACsGiveThePublishedResultsCutToTheirLength_data();
    void HMACsGiveThePublishedResultsCutToTheirLength();

    // Digests
    void digestsOfEverythingUpToThreeBlocksAgreeWithThoseOfSlices();

    // Key and IV lengths
    void AESKeysAreFixedToTheLeastLengthThatHoldsThem();
    void DESAndTripleDESKeysAreFixedToTheirOneLength();
    void CASTKeysAreFixedToFiveToSixteenBytes();
    void RC4KeysCountUpTo256Bytes();
    void onlyTheFirstBlockOfAnInitializationVectorCounts();
    void anInitializationVectorIsCutToAShortCASTKeyAndCompletedWithZeros();
    void anAbsentOrEmptyInitializationVectorIsAllZero();

    // Options
    void encryptingNothingWithPaddingGivesOneBlock();
    void paddingFillsTheLastBlockWithTheNumberOfItsBytes();
    void decryptingRefusesEveryWrongPadding();
    void withoutPaddingNothingGivesNothing();
    void withoutPaddingAPartOfABlockIsAnAlignmentError();
    void decryptingNothingOrAPartOfABlockWithPaddingIsAnAlignmentError();
    void ECBIgnoresTheInitializationVector();
    void RC4IgnoresPaddingModeAndInitializationVector();
    void bitsThatNameNoOptionAreIgnored();

    // Forms
    void shorterFormsUseNoOptionsAndNoInitializationVector();
    void highLevelCiphersPadAndChainFromAZeroVector();
    void stringsStandForTheirUTF8Bytes();
    void RC4WithAnEmptyKeyIsAParameterError();
    void unknownAlgorithmsAreAParameterError();
    void failuresMayGoUnreported();
    void successLeavesTheErrorAlone();
    void highLevelFailuresGiveTheStatusInWords();
    void keysOfOtherTypesFailAnAssertion();
    void initializationVectorsOfOtherTypesFailAnAssertion();

    // HMAC
    void anAbsentHMACKeyIsAnEmptyOne();
    void HMACKeysMayBeStrings();
    void HMACKeysOfOtherTypesFailAnAssertion();
    void unknownHMACAlgorithmsFailAnAssertion();

    // Errors
    void statusesHaveTheirTexts_data();
    void statusesHaveTheirTexts();

    // Memory
    void nothingOutsideTheBuffersIsRead();
    void theDataIsNeverChanged();
    void noCopyOfTheDataIsMadeBesideTheResult();
    void keysAreNotLeftOnTheStack();

    // Against others
    void ciphersAgreeWithOpenSSL();
    void digestsAgreeWithOpenSSL();
    void HMACsAgreeWithOpenSSL();
    void anyInputKeepsThePromisesOfTheFuzzTarget();
};

void NSDataCommonCryptoTest::digestsGiveThePublishedResults_data() {
    QTest::addColumn<Digest>("digest");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("result");

    const QByteArray letters = "abcdefghijklmnopqrstuvwxyz";
    const QByteArray alphabet = letters.toUpper() + letters + "0123456789";
    const QByteArray digits = QByteArray("1234567890").repeated(8);
    const QByteArray a56 = "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq";
    const QByteArray a112 =
        "abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
        "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu";
    const QByteArray million(1'000'000, 'a');

    const auto add = [](const char *name, Digest digest, const QByteArray &data,
                        const char *result) {
        QTest::newRow(name) << digest << data << fromHex(result);
    };
    using namespace CommonDigest;
    add("RFC 1319 A.5, 1", MD2Sum, "", "8350e5a3e24c153df2275c9f80692773");
    add("RFC 1319 A.5, 2", MD2Sum, "a", "32ec01ec4a6dac72c0ab96fb34c0b5d1");
    add("RFC 1319 A.5, 3", MD2Sum, "abc", "da853b0d3f88d99b30283a69e6ded6bb");
    add("RFC 1319 A.5, 4", MD2Sum, "message digest", "ab4f496bfb2a530b219ff33031fe06b0");
    add("RFC 1319 A.5, 5", MD2Sum, letters, "4e8ddff3650292ab5a4108c3aa47940b");
    add("RFC 1319 A.5, 6", MD2Sum, alphabet, "da33def2a42df13975352846c30338cd");
    add("RFC 1319 A.5, 7", MD2Sum, digits, "d5976f79d83d3a0dc9806c3c66f3efd8");

    add("RFC 1320 A.5, 1", MD4Sum, "", "31d6cfe0d16ae931b73c59d7e0c089c0");
    add("RFC 1320 A.5, 2", MD4Sum, "a", "bde52cb31de33e46245e05fbdbd6fb24");
    add("RFC 1320 A.5, 3", MD4Sum, "abc", "a448017aaf21d8525fc10ae87aa6729d");
    add("RFC 1320 A.5, 4", MD4Sum, "message digest", "d9130a8164549fe818874806e1c7014b");
    add("RFC 1320 A.5, 5", MD4Sum, letters, "d79e1c308aa5bbcdeea8ed63df412da9");
    add("RFC 1320 A.5, 6", MD4Sum, alphabet, "043f8582f241db351ce627e153e7f0e4");
    add("RFC 1320 A.5, 7", MD4Sum, digits, "e33b4ddc9c38f2199c3e7b164fcc0536");

    add("RFC 1321 A.5, 1", MD5Sum, "", "d41d8cd98f00b204e9800998ecf8427e");
    add("RFC 1321 A.5, 2", MD5Sum, "a", "0cc175b9c0f1b6a831c399e269772661");
    add("RFC 1321 A.5, 3", MD5Sum, "abc", "900150983cd24fb0d6963f7d28e17f72");
    add("RFC 1321 A.5, 4", MD5Sum, "message digest", "f96b697d7cb7938d525a2f31aaf161d0");
    add("RFC 1321 A.5, 5", MD5Sum, letters, "c3fcd3d76192e4007dfb496cca67e13b");
    add("RFC 1321 A.5, 6", MD5Sum, alphabet, "d174ab98d277d9f5a5611c2c9f419d9f");
    add("RFC 1321 A.5, 7", MD5Sum, digits, "57edf4a22be3c955ac49da2e2107b67a");

    // The example messages that NIST publishes for FIPS 180-4: one block, two blocks, a million.
    add("FIPS 180-4, SHA-1, one block", SHA1Hash, "abc",
        "a9993e364706816aba3e25717850c26c9cd0d89d");
    add("FIPS 180-4, SHA-1, two blocks", SHA1Hash, a56, "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
    add("FIPS 180-4, SHA-1, a million", SHA1Hash, million,
        "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
    add("FIPS 180-4, SHA-224, one block", SHA224Hash, "abc",
        "23097d223405d8228642a477bda255b32aadbce4bda0b3f7e36c9da7");
    add("FIPS 180-4, SHA-224, two blocks", SHA224Hash, a56,
        "75388b16512776cc5dba5da1fd890150b0c6455cb4f58b1952522525");
    add("FIPS 180-4, SHA-224, a million", SHA224Hash, million,
        "20794655980c91d8bbb4c1ea97618a4bf03f42581948b2ee4ee7ad67");
    add("FIPS 180-4, SHA-256, one block", SHA256Hash, "abc",
        "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    add("FIPS 180-4, SHA-256, two blocks", SHA256Hash, a56,
        "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    add("FIPS 180-4, SHA-256, a million", SHA256Hash, million,
        "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
    add("FIPS 180-4, SHA-384, one block", SHA384Hash, "abc",
        "cb00753f45a35e8bb5a03d699ac65007272c32ab0eded1631a8b605a43ff5bed"
        "8086072ba1e7cc2358baeca134c825a7");
    add("FIPS 180-4, SHA-384, two blocks", SHA384Hash, a112,
        "09330c33f71147e83d192fc782cd1b4753111b173b3b05d22fa08086e3b0f712"
        "fcc7c71a557e2db966c3e9fa91746039");
    add("FIPS 180-4, SHA-384, a million", SHA384Hash, million,
        "9d0e1809716474cb086e834e310a4a1ced149e9c00f248527972cec5704c2a5b"
        "07b8b3dc38ecc4ebae97ddd87f3d8985");
    add("FIPS 180-4, SHA-512, one block", SHA512Hash, "abc",
        "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
        "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
    add("FIPS 180-4, SHA-512, two blocks", SHA512Hash, a112,
        "8e959b75dae313da8cf4f72814fc143f8f7779c6eb9f7fa17299aeadb6889018"
        "501d289e4900f7e4331b99dec4b5433ac7d329eeb6dd26545e96e55b874be909");
    add("FIPS 180-4, SHA-512, a million", SHA512Hash, million,
        "e718483d0ce769644e2e42c7bc15b4638e1f98b13b2044285632a803afa973eb"
        "de0ff244877ea60a4cb0432ce577c31beb009c5c2c49aa2e4eadb217ad8cc09b");
}

void NSDataCommonCryptoTest::digestsGiveThePublishedResults() {
    QFETCH(Digest, digest);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, result);
    QCOMPARE(digest(data), result);
}

void NSDataCommonCryptoTest::blockCiphersGiveThePublishedResults_data() {
    QTest::addColumn<CipherAlgorithm>("algorithm");
    QTest::addColumn<CipherOptions>("options");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QVariant>("iv");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("cipher");

    const auto addECB = [](const char *name, CipherAlgorithm algorithm, const char *key,
                           const char *plain, const char *cipher) {
        QTest::newRow(name) << algorithm << CipherOptions(ecb) << fromHex(key) << QVariant()
                            << fromHex(plain) << fromHex(cipher);
    };
    const auto addCBC = [](const char *name, CipherAlgorithm algorithm, const char *key,
                           const char *iv, const char *plain, const char *cipher) {
        QTest::newRow(name) << algorithm << CipherOptions() << fromHex(key) << QVariant(fromHex(iv))
                            << fromHex(plain) << fromHex(cipher);
    };

    constexpr CipherAlgorithm AES = CipherAlgorithm::AES;
    const char *const key128 = "2b7e151628aed2a6abf7158809cf4f3c";
    const char *const key192 = "8e73b0f7da0e6452c810f32b809079e562f8ead2522c6b7b";
    const char *const key256 = "603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4";
    const char *const iv = "000102030405060708090a0b0c0d0e0f";
    const char *const blocks =
        "6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51"
        "30c81c46a35ce411e5fbc1191a0a52eff69f2445df4f9b17ad2b417be66c3710";
    addECB("NIST SP 800-38A, F.1.1 and F.1.2", AES, key128, blocks,
           "3ad77bb40d7a3660a89ecaf32466ef97f5d3d58503b9699de785895a96fdbaaf"
           "43b1cd7f598ece23881b00e3ed0306887b0c785e27e8ad3f8223207104725dd4");
    addECB("NIST SP 800-38A, F.1.3 and F.1.4", AES, key192, blocks,
           "bd334f1d6e45f25ff712a214571fa5cc974104846d0ad3ad7734ecb3ecee4eef"
           "ef7afd2270e2e60adce0ba2face6444e9a4b41ba738d6c72fb16691603c18e0e");
    addECB("NIST SP 800-38A, F.1.5 and F.1.6", AES, key256, blocks,
           "f3eed1bdb5d2a03c064b5a7e3db181f8591ccb10d410ed26dc5ba74a31362870"
           "b6ed21b99ca6f4f9f153e7b1beafed1d23304b7a39f9f3ff067d8d8f9e24ecc7");
    addCBC("NIST SP 800-38A, F.2.1 and F.2.2", AES, key128, iv, blocks,
           "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"
           "73bed6b8e3c1743b7116e69e222295163ff1caa1681fac09120eca307586e1a7");
    addCBC("NIST SP 800-38A, F.2.3 and F.2.4", AES, key192, iv, blocks,
           "4f021db243bc633d7178183a9fa071e8b4d9ada9ad7dedf4e5e738763f69145a"
           "571b242012fb7ae07fa9baac3df102e008b0e27988598881d920a9e64f5615cd");
    addCBC("NIST SP 800-38A, F.2.5 and F.2.6", AES, key256, iv, blocks,
           "f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"
           "39f23369a9d9bacfa530e26304231461b2eb05e2c39be9fcda6c19078c6a9d1b");

    constexpr CipherAlgorithm DES = CipherAlgorithm::DES;
    addECB("NIST SP 800-17, table A.1, 1 (variable plaintext)", DES, "0101010101010101",
           "8000000000000000", "95f8a5e5dd31d900");
    addECB("NIST SP 800-17, table A.1, 2 (variable plaintext)", DES, "0101010101010101",
           "4000000000000000", "dd7f121ca5015619");
    addECB("NIST SP 800-17, table A.2, 1 (variable key)", DES, "8001010101010101",
           "0000000000000000", "95a8d72813daa94d");
    addECB("NIST SP 800-17, table A.2, 2 (variable key)", DES, "4001010101010101",
           "0000000000000000", "0eec1487dd8c26d5");
    addECB("NIST SP 800-17, table A.3, 1 (permutation)", DES, "1046913489980131",
           "0000000000000000", "88d55e54f54c97b4");
    addECB("NIST SP 800-17, table A.4, 1 (substitution)", DES, "7ca110454a1a6e57",
           "01a1d6d039776742", "690f5b0d9a26939b");
    addECB("NIST SP 800-17, table A.4, 2 (substitution)", DES, "0131d9619dc1376e",
           "5cd54ca83def57da", "7a389d10354bd271");
    addECB("NIST SP 800-17, table A.4, 3 (substitution)", DES, "07a1133e4a0b2686",
           "0248d43806f67172", "868ebb51cab4599a");
    const char *const nowIsTheTime = "4e6f77206973207468652074696d6520666f7220616c6c20";
    addECB("FIPS 81, table B1 (ECB)", DES, "0123456789abcdef", nowIsTheTime,
           "3fa40e8a984d48156a271787ab8883f9893d51ec4b563b53");
    addCBC("FIPS 81, table C1 (CBC)", DES, "0123456789abcdef", "1234567890abcdef", nowIsTheTime,
           "e5c7cdde872bf27c43e934008c389c0f683788499a7c05f6");

    constexpr CipherAlgorithm TDES = CipherAlgorithm::TripleDES;
    const char *const keys = "0123456789abcdef23456789abcdef01456789abcdef0123";
    const char *const tdesBlocks =
        "6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51";
    addECB("NIST SP 800-67, appendix B.1", TDES, keys,
           "54686520717566636b2062726f776e20666f78206a756d70",
           "a826fd8ce53b855fcce21c8112256fe668d5c05dd9b6b900");
    addECB("NIST SP 800-20, table A.1, 1 (variable plaintext)", TDES,
           "010101010101010101010101010101010101010101010101", "8000000000000000",
           "95f8a5e5dd31d900");
    addECB("NIST TDES examples, ECB, three keys", TDES, keys, tdesBlocks,
           "714772f339841d34267fcc4bd2949cc3ee11c22a576a303876183f99c0b6de87");
    addCBC("NIST TDES examples, CBC, three keys", TDES, keys, "f69f2445df4f9b17", tdesBlocks,
           "2079c3d53aa763e193b79e2569ab5262516570481f25b50f73c0bda85c8e0da7");

    constexpr CipherAlgorithm CAST = CipherAlgorithm::CAST;
    addECB("RFC 2144 B.1, 128 bits", CAST, "0123456712345678234567893456789a", "0123456789abcdef",
           "238b4fe5847e44b2");
    addECB("RFC 2144 B.1, 80 bits", CAST, "01234567123456782345", "0123456789abcdef",
           "eb6a711a2c02271b");
    addECB("RFC 2144 B.1, 40 bits", CAST, "0123456712", "0123456789abcdef", "7ac816d16e9b302e");
}

void NSDataCommonCryptoTest::blockCiphersGiveThePublishedResults() {
    QFETCH(CipherAlgorithm, algorithm);
    QFETCH(CipherOptions, options);
    QFETCH(QByteArray, key);
    QFETCH(QVariant, iv);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, cipher);
    QCOMPARE(encrypt(plain, algorithm, key, options, iv), Answer{cipher});
    QCOMPARE(decrypt(cipher, algorithm, key, options, iv), Answer{plain});
}

void NSDataCommonCryptoTest::RC4GivesThePublishedKeyStream_data() {
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("from0");
    QTest::addColumn<QByteArray>("from4080");

    const auto add = [](const char *name, const char *key, const char *from0,
                        const char *from4080) {
        QTest::newRow(name) << fromHex(key) << fromHex(from0) << fromHex(from4080);
    };
    add("RFC 6229, 40 bits", "0102030405",
        "b2396305f03dc027ccc3524a0a1118a86982944f18fc82d589c403a47a0d0919",
        "068326a2118416d21f9d04b2cd1ca050ff25b58995996707e51fbdf08b34d875");
    add("RFC 6229, 56 bits", "01020304050607",
        "293f02d47f37c9b633f2af5285feb46be620f1390d19bd84e2e0fd752031afc1",
        "f3172ceffc3b3d997c85ccd5af1a950ce74b0b9731227fd37c0ec08a47ddd8b8");
    add("RFC 6229, 64 bits", "0102030405060708",
        "97ab8a1bf0afb96132f2f67258da15a88263efdb45c4a18684ef87e6b19e5b09",
        "d5fa5a3469d29aaaf83d23589db8c85b3fb46e2c8f0f068edce8cdcd7dfc5862");
    add("RFC 6229, 80 bits", "0102030405060708090a",
        "ede3b04643e586cc907dc2185170990203516ba78f413beb223aa5d4d2df6711",
        "1f135ed14ce60a91369d2322bef25e3c08b6be45124a43e2eb77953f84dc8553");
    add("RFC 6229, 128 bits", "0102030405060708090a0b0c0d0e0f10",
        "9ac7cc9a609d1ef7b2932899cde41b975248c4959014126a6e8a84f11d1a9e1c",
        "ff38265c1642c1abe8d3c2fe5e572bf8a36a4c301ae8ac13610ccbc12256cacc");
    add("RFC 6229, 192 bits", "0102030405060708090a0b0c0d0e0f101112131415161718",
        "0595e57fe5f0bb3c706edac8a4b2db11dfde31344a1af769c74f070aee9e2326",
        "29a0b8aed54a132324c62e423f54b4c83cb0f3b5020a98b82af9fe154484a168");
    add("RFC 6229, 256 bits", "0102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f20",
        "eaa6bd25880bf93d3f5d1e4ca2611d91cfa45c9f7e714b54bdfa80027cb14380",
        "a13a7c79c7e119b5ab0296ab28c300b9f3e4c0a2e02d1d01f7f0a74618af2b48");
}

void NSDataCommonCryptoTest::RC4GivesThePublishedKeyStream() {
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, from0);
    QFETCH(QByteArray, from4080);
    const QByteArray zeros(4112, '\0');
    const Answer stream = encrypt(zeros, CipherAlgorithm::RC4, key, {});
    QCOMPARE(stream.result->first(32), from0);
    QCOMPARE(stream.result->sliced(4080), from4080);
    QCOMPARE(decrypt(*stream.result, CipherAlgorithm::RC4, key, {}), Answer{zeros});
}

void NSDataCommonCryptoTest::HMACsGiveThePublishedResultsCutToTheirLength_data() {
    QTest::addColumn<HMACAlgorithm>("algorithm");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("published");

    const QByteArray jefe = "what do ya want for nothing?";
    const QByteArray truncated = "Test With Truncation";
    const QByteArray hashedKey = "Test Using Larger Than Block-Size Key - Hash Key First";
    QByteArray counted;
    for (char i = 1; i <= 25; ++i) {
        counted += i;
    }
    const QByteArray dd(50, '\xdd');
    const QByteArray cd(50, '\xcd');
    const auto key = [](qsizetype count, char byte) { return QByteArray(count, byte); };
    const auto add = [](const char *name, HMACAlgorithm algorithm, const QByteArray &keyBytes,
                        const QByteArray &data, const char *published) {
        QTest::newRow(name) << algorithm << keyBytes << data << fromHex(published);
    };

    constexpr HMACAlgorithm MD5 = HMACAlgorithm::MD5;
    constexpr HMACAlgorithm SHA1 = HMACAlgorithm::SHA1;
    const QByteArray hashedKeyLong =
        "Test Using Larger Than Block-Size Key and Larger Than One Block-Size Data";
    add("RFC 2202, MD5, 1", MD5, key(16, '\x0b'), "Hi There", "9294727a3638bb1c13f48ef8158bfc9d");
    add("RFC 2202, MD5, 2", MD5, "Jefe", jefe, "750c783e6ab0b503eaa86e310a5db738");
    add("RFC 2202, MD5, 3", MD5, key(16, '\xaa'), dd, "56be34521d144c88dbb8c733f0e8b3f6");
    add("RFC 2202, MD5, 4", MD5, counted, cd, "697eaf0aca3a3aea3a75164746ffaa79");
    add("RFC 2202, MD5, 5", MD5, key(16, '\x0c'), truncated, "56461ef2342edc00f9bab995690efd4c");
    add("RFC 2202, MD5, 6", MD5, key(80, '\xaa'), hashedKey, "6b1ab7fe4bd7bf8f0b62e6ce61b9d0cd");
    add("RFC 2202, MD5, 7", MD5, key(80, '\xaa'), hashedKeyLong,
        "6f630fad67cda0ee1fb1f562db3aa53e");
    add("RFC 2202, SHA-1, 1", SHA1, key(20, '\x0b'), "Hi There",
        "b617318655057264e28bc0b6fb378c8ef146be00");
    add("RFC 2202, SHA-1, 2", SHA1, "Jefe", jefe, "effcdf6ae5eb2fa2d27416d5f184df9c259a7c79");
    add("RFC 2202, SHA-1, 3", SHA1, key(20, '\xaa'), dd,
        "125d7342b9ac11cd91a39af48aa17b4f63f175d3");
    add("RFC 2202, SHA-1, 4", SHA1, counted, cd, "4c9007f4026250c6bc8414f9bf50c86c2d7235da");
    add("RFC 2202, SHA-1, 5", SHA1, key(20, '\x0c'), truncated,
        "4c1a03424b55e07fe7f27be1d58bb9324a9a5a04");
    add("RFC 2202, SHA-1, 6", SHA1, key(80, '\xaa'), hashedKey,
        "aa4ae5e15272d00e95705637ce8a3b55ed402112");
    add("RFC 2202, SHA-1, 7", SHA1, key(80, '\xaa'), hashedKeyLong,
        "e8e99d0f45237d786d6bbaa7965c7808bbff1a91");

    constexpr HMACAlgorithm SHA224 = HMACAlgorithm::SHA224;
    constexpr HMACAlgorithm SHA256 = HMACAlgorithm::SHA256;
    constexpr HMACAlgorithm SHA384 = HMACAlgorithm::SHA384;
    constexpr HMACAlgorithm SHA512 = HMACAlgorithm::SHA512;
    const QByteArray bothHashed =
        "This is a test using a larger than block-size key and a larger than block-size data. The "
        "key needs to be hashed before being used by the HMAC algorithm.";
    const QByteArray key1 = key(20, '\x0b');
    add("RFC 4231, SHA-224, 1", SHA224, key1, "Hi There",
        "896fb1128abbdf196832107cd49df33f47b4b1169912ba4f53684b22");
    add("RFC 4231, SHA-256, 1", SHA256, key1, "Hi There",
        "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7");
    add("RFC 4231, SHA-384, 1", SHA384, key1, "Hi There",
        "afd03944d84895626b0825f4ab46907f15f9dadbe4101ec682aa034c7cebc59c"
        "faea9ea9076ede7f4af152e8b2fa9cb6");
    add("RFC 4231, SHA-512, 1", SHA512, key1, "Hi There",
        "87aa7cdea5ef619d4ff0b4241a1d6cb02379f4e2ce4ec2787ad0b30545e17cde"
        "daa833b7d6b8a702038b274eaea3f4e4be9d914eeb61f1702e696c203a126854");
    add("RFC 4231, SHA-224, 2", SHA224, "Jefe", jefe,
        "a30e01098bc6dbbf45690f3a7e9e6d0f8bbea2a39e6148008fd05e44");
    add("RFC 4231, SHA-256, 2", SHA256, "Jefe", jefe,
        "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
    add("RFC 4231, SHA-384, 2", SHA384, "Jefe", jefe,
        "af45d2e376484031617f78d2b58a6b1b9c7ef464f5a01b47e42ec3736322445e"
        "8e2240ca5e69e2c78b3239ecfab21649");
    add("RFC 4231, SHA-512, 2", SHA512, "Jefe", jefe,
        "164b7a7bfcf819e2e395fbe73b56e0a387bd64222e831fd610270cd7ea250554"
        "9758bf75c05a994a6d034f65f8f0e6fdcaeab1a34d4a6b4b636e070a38bce737");
    const QByteArray key3 = key(20, '\xaa');
    add("RFC 4231, SHA-224, 3", SHA224, key3, dd,
        "7fb3cb3588c6c1f6ffa9694d7d6ad2649365b0c1f65d69d1ec8333ea");
    add("RFC 4231, SHA-256, 3", SHA256, key3, dd,
        "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe");
    add("RFC 4231, SHA-384, 3", SHA384, key3, dd,
        "88062608d3e6ad8a0aa2ace014c8a86f0aa635d947ac9febe83ef4e55966144b"
        "2a5ab39dc13814b94e3ab6e101a34f27");
    add("RFC 4231, SHA-512, 3", SHA512, key3, dd,
        "fa73b0089d56a284efb0f0756c890be9b1b5dbdd8ee81a3655f83e33b2279d39"
        "bf3e848279a722c806b485a47e67c807b946a337bee8942674278859e13292fb");
    add("RFC 4231, SHA-224, 4", SHA224, counted, cd,
        "6c11506874013cac6a2abc1bb382627cec6a90d86efc012de7afec5a");
    add("RFC 4231, SHA-256, 4", SHA256, counted, cd,
        "82558a389a443c0ea4cc819899f2083a85f0faa3e578f8077a2e3ff46729665b");
    add("RFC 4231, SHA-384, 4", SHA384, counted, cd,
        "3e8a69b7783c25851933ab6290af6ca77a9981480850009cc5577c6e1f573b4e"
        "6801dd23c4a7d679ccf8a386c674cffb");
    add("RFC 4231, SHA-512, 4", SHA512, counted, cd,
        "b0ba465637458c6990e5a8c5f61d4af7e576d97ff94b872de76f8050361ee3db"
        "a91ca5c11aa25eb4d679275cc5788063a5f19741120c4f2de2adebeb10a298dd");
    const QByteArray key5 = key(20, '\x0c');
    add("RFC 4231, SHA-224, 5", SHA224, key5, truncated, "0e2aea68a90c8d37c988bcdb9fca6fa8");
    add("RFC 4231, SHA-256, 5", SHA256, key5, truncated, "a3b6167473100ee06e0c796c2955552b");
    add("RFC 4231, SHA-384, 5", SHA384, key5, truncated, "3abf34c3503b2a23a46efc619baef897");
    add("RFC 4231, SHA-512, 5", SHA512, key5, truncated, "415fad6271580a531d4179bc891d87a6");
    const QByteArray key6 = key(131, '\xaa');
    add("RFC 4231, SHA-224, 6", SHA224, key6, hashedKey,
        "95e9a0db962095adaebe9b2d6f0dbce2d499f112f2d2b7273fa6870e");
    add("RFC 4231, SHA-256, 6", SHA256, key6, hashedKey,
        "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
    add("RFC 4231, SHA-384, 6", SHA384, key6, hashedKey,
        "4ece084485813e9088d2c63a041bc5b44f9ef1012a2b588f3cd11f05033ac4c6"
        "0c2ef6ab4030fe8296248df163f44952");
    add("RFC 4231, SHA-512, 6", SHA512, key6, hashedKey,
        "80b24263c7c1a3ebb71493c1dd7be8b49b46d1f41b4aeec1121b013783f8f352"
        "6b56d037e05f2598bd0fd2215d6a1e5295e64f73f63f0aec8b915a985d786598");
    add("RFC 4231, SHA-224, 7", SHA224, key6, bothHashed,
        "3a854166ac5d9f023f54d517d0b39dbd946770db9c2b95c9f6f565d1");
    add("RFC 4231, SHA-256, 7", SHA256, key6, bothHashed,
        "9b09ffa71b942fcb27635fbcd5b0e944bfdc63644f0713938a7f51535c3a35e2");
    add("RFC 4231, SHA-384, 7", SHA384, key6, bothHashed,
        "6617178e941f020d351e2f254e8fd32c602420feb0b8fb9adccebb82461e99c5"
        "a678cc31e799176d3860e6110c46523e");
    add("RFC 4231, SHA-512, 7", SHA512, key6, bothHashed,
        "e37b6a775dc87dbaa4dfa9f96e5e3ffddebd71f8867289865df5a32d20cdc944"
        "b6022cac3c4982b10d5eeb55c3e4de15134676fb6de0446065c97440fa8c6a58");
}

void NSDataCommonCryptoTest::HMACsGiveThePublishedResultsCutToTheirLength() {
    QFETCH(HMACAlgorithm, algorithm);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, published);
    const QByteArray result = CommonHMAC::HMACWithAlgorithm(data, algorithm, key);
    QCOMPARE(result.size(), algorithm == HMACAlgorithm::MD5 ? 16 : 20);
    // Case 5 of RFC 4231 is published cut to 16 bytes.
    QCOMPARE(result.left(published.size()), published.left(20));
}

void NSDataCommonCryptoTest::digestsOfEverythingUpToThreeBlocksAgreeWithThoseOfSlices() {
    const QByteArray data = Random().bytes(400);
    for (const auto &[name, digest] : allDigests) {
        for (qsizetype length = 0; length <= data.size(); ++length) {
            const QByteArray copy(data.constData(), length);
            QCOMPARE(digest(QByteArray::fromRawData(data.constData(), length)), digest(copy));
        }
    }
    QCOMPARE(CommonDigest::MD5Sum(QByteArray()), CommonDigest::MD5Sum(QByteArray("")));
}

/// That a key of every length up to 600 acts as the key of the length that `fixedLength` gives.
static void verifyKeyLengths(CipherAlgorithm algorithm,
                             const std::function<qsizetype(qsizetype)> &fixedLength) {
    Random random;
    const QByteArray data = random.bytes(64);
    for (qsizetype length = 0; length <= 600; ++length) {
        const QByteArray key = random.bytes(length);
        const QByteArray fixed = key.leftJustified(fixedLength(length), '\0', true);
        const Answer answer = encrypt(data, algorithm, key, {});
        QCOMPARE(answer.status, Success);
        QCOMPARE(answer, encrypt(data, algorithm, fixed, {}));
        QCOMPARE(decrypt(*answer.result, algorithm, key, {}), Answer{data});
    }
}

void NSDataCommonCryptoTest::AESKeysAreFixedToTheLeastLengthThatHoldsThem() {
    verifyKeyLengths(CipherAlgorithm::AES, [](qsizetype length) -> qsizetype {
        if (length <= 16) {
            return 16;
        }
        return length <= 24 ? 24 : 32;
    });
    // Those lengths choose ciphers of their own: filling up further makes another key.
    const QByteArray block(16, 'b');
    const QByteArray key = Random().bytes(24);
    const auto encrypted = [&block](const QByteArray &bytes) {
        return *encrypt(block, CipherAlgorithm::AES, bytes, {}).result;
    };
    QVERIFY(encrypted(key.first(16)) != encrypted(key.first(16) + '\0'));
    QVERIFY(encrypted(key) != encrypted(key + '\0'));
}

void NSDataCommonCryptoTest::DESAndTripleDESKeysAreFixedToTheirOneLength() {
    verifyKeyLengths(CipherAlgorithm::DES, [](qsizetype) { return 8; });
    verifyKeyLengths(CipherAlgorithm::TripleDES, [](qsizetype) { return 24; });
}

void NSDataCommonCryptoTest::CASTKeysAreFixedToFiveToSixteenBytes() {
    verifyKeyLengths(CipherAlgorithm::CAST,
                     [](qsizetype length) { return std::clamp<qsizetype>(length, 5, 16); });
}

void NSDataCommonCryptoTest::RC4KeysCountUpTo256Bytes() {
    Random random;
    const QByteArray data = random.bytes(4096);
    const auto encrypted = [&data](const QByteArray &key) {
        return *encrypt(data, CipherAlgorithm::RC4, key, {}).result;
    };
    const QByteArray key = random.bytes(600);
    for (const qsizetype length : {256, 257, 300, 511, 512, 513, 600}) {
        QCOMPARE(encrypted(key.first(length)), encrypted(key.first(256)));
    }
    QVERIFY(encrypted(key.first(255)) != encrypted(key.first(256)));
    QVERIFY(encrypted(key.first(1)) != encrypted(key.first(1) + '\0' + '\1'));
}

void NSDataCommonCryptoTest::onlyTheFirstBlockOfAnInitializationVectorCounts() {
    Random random;
    for (const CipherAlgorithm algorithm : blockCiphers) {
        const QByteArray key = random.bytes(32);
        const QByteArray data = random.bytes(64);
        const QByteArray iv = random.bytes(600);
        const QByteArray block = iv.first(blockSize(algorithm));
        const Answer answer = encrypt(data, algorithm, key, {}, block);
        QCOMPARE(encrypt(data, algorithm, key, {}, iv), answer);
        QCOMPARE(decrypt(*answer.result, algorithm, key, {}, iv), Answer{data});
        QVERIFY(encrypt(data, algorithm, key, {}, block.chopped(1)) != answer);
        QCOMPARE(encrypt(data, algorithm, key, {}, block.chopped(3)),
                 encrypt(data, algorithm, key, {}, block.chopped(3) + QByteArray(3, '\0')));
    }
}

void NSDataCommonCryptoTest::anInitializationVectorIsCutToAShortCASTKeyAndCompletedWithZeros() {
    const QByteArray data = Random().bytes(64);
    const QByteArray iv = "12345678";
    for (qsizetype length = 0; length <= 9; ++length) {
        const QByteArray key(length, 'k');
        const QByteArray used = iv.first(std::clamp<qsizetype>(length, 5, 8)) + QByteArray(3, '\0');
        const QByteArray zeroIVData =
            *encrypt(data, CipherAlgorithm::CAST, key, {}, QByteArray(8, '\0')).result;
        // Chaining from a vector is chaining from zeros with the vector added to the first block.
        QByteArray added = data;
        for (qsizetype i = 0; i < 8; ++i) {
            added[i] = static_cast<char>(added[i] ^ used[i]);
        }
        QCOMPARE(encrypt(data, CipherAlgorithm::CAST, key, {}, iv),
                 encrypt(added, CipherAlgorithm::CAST, key, {}));
        QCOMPARE(encrypt(data, CipherAlgorithm::CAST, key, {}).result, zeroIVData);
    }
}

void NSDataCommonCryptoTest::anAbsentOrEmptyInitializationVectorIsAllZero() {
    const QByteArray data = Random().bytes(64);
    const QByteArray key = "0123456789abcdef";
    for (const CipherAlgorithm algorithm : blockCiphers) {
        const Answer answer = encrypt(data, algorithm, key, {}, QByteArray(16, '\0'));
        QCOMPARE(encrypt(data, algorithm, key, {}), answer);
        QCOMPARE(encrypt(data, algorithm, key, {}, QByteArray()), answer);
        QCOMPARE(encrypt(data, algorithm, key, {}, QString()), answer);
        QCOMPARE(decrypt(*answer.result, algorithm, key, {}), Answer{data});
    }
}

void NSDataCommonCryptoTest::encryptingNothingWithPaddingGivesOneBlock() {
    for (const CipherAlgorithm algorithm : blockCiphers) {
        const Answer answer = encrypt({}, algorithm, QByteArray("key"), padding);
        QCOMPARE(answer.result->size(), blockSize(algorithm));
        QCOMPARE(decrypt(*answer.result, algorithm, QByteArray("key"), padding),
                 Answer{QByteArray()});
    }
}

void NSDataCommonCryptoTest::paddingFillsTheLastBlockWithTheNumberOfItsBytes() {
    Random random;
    for (const CipherAlgorithm algorithm : blockCiphers) {
        for (const CipherOptions mode : {CipherOptions(), CipherOptions(ecb)}) {
            for (qsizetype length = 0; length <= 50; ++length) {
                const QByteArray data = random.bytes(length);
                const QByteArray key = random.bytes(16);
                const qsizetype block = blockSize(algorithm);
                const qsizetype count = block - length % block;
                const Answer answer = encrypt(data, algorithm, key, mode | padding);
                QCOMPARE(decrypt(*answer.result, algorithm, key, mode),
                         Answer{data + QByteArray(count, static_cast<char>(count))});
                QCOMPARE(decrypt(*answer.result, algorithm, key, mode | padding), Answer{data});
            }
        }
    }
}

void NSDataCommonCryptoTest::decryptingRefusesEveryWrongPadding() {
    const QByteArray key = "0123456789abcdef";
    for (const CipherAlgorithm algorithm : blockCiphers) {
        const auto decrypted = [&](const QByteArray &plain) {
            return decrypt(*encrypt(plain, algorithm, key, {}).result, algorithm, key, padding);
        };
        const qsizetype block = blockSize(algorithm);
        for (int last = 0; last < 256; ++last) {
            // As many bytes as it says where that fits, so that only the number can be wrong.
            const bool isRight = last >= 1 && last <= block;
            const QByteArray plain(2 * block, static_cast<char>(last));
            QCOMPARE(decrypted(plain),
                     isRight ? Answer{plain.chopped(last)} : failure(DecodeError));
        }
        for (qsizetype count = 1; count <= block; ++count) {
            for (qsizetype wrong = 2; wrong <= count; ++wrong) {
                for (const int flipped : {0x01, 0x80}) {
                    QByteArray plain(2 * block, static_cast<char>(count));
                    plain[plain.size() - wrong] = static_cast<char>(count ^ flipped);
                    QCOMPARE(decrypted(plain), failure(DecodeError));
                }
            }
            QByteArray plain(2 * block, static_cast<char>(count));
            plain[plain.size() - count - 1] = '\x7f';
            QCOMPARE(decrypted(plain), Answer{plain.chopped(count)});
        }
    }
}

void NSDataCommonCryptoTest::withoutPaddingNothingGivesNothing() {
    for (const CipherAlgorithm algorithm : allCiphers) {
        QCOMPARE(encrypt({}, algorithm, QByteArray("key"), {}), Answer{QByteArray()});
        QCOMPARE(decrypt({}, algorithm, QByteArray("key"), {}), Answer{QByteArray()});
    }
}

void NSDataCommonCryptoTest::withoutPaddingAPartOfABlockIsAnAlignmentError() {
    for (const CipherAlgorithm algorithm : blockCiphers) {
        for (qsizetype length = 0; length <= 40; ++length) {
            const QByteArray data(length, 'd');
            const bool isWhole = length % blockSize(algorithm) == 0;
            for (const CipherOptions mode : {CipherOptions(), CipherOptions(ecb)}) {
                const Answer encrypted = encrypt(data, algorithm, QByteArray("key"), mode);
                const Answer decrypted = decrypt(data, algorithm, QByteArray("key"), mode);
                QCOMPARE(encrypted.status, isWhole ? Success : AlignmentError);
                QCOMPARE(encrypted.result.has_value(), isWhole);
                QCOMPARE(decrypted.status, isWhole ? Success : AlignmentError);
                QCOMPARE(decrypted.result.has_value(), isWhole);
            }
        }
    }
}

void NSDataCommonCryptoTest::decryptingNothingOrAPartOfABlockWithPaddingIsAnAlignmentError() {
    for (const CipherAlgorithm algorithm : blockCiphers) {
        for (qsizetype length = 0; length < 40; ++length) {
            if (length == 0 || length % blockSize(algorithm) != 0) {
                const QByteArray data(length, 'd');
                QCOMPARE(decrypt(data, algorithm, QByteArray("key"), padding),
                         failure(AlignmentError));
                QCOMPARE(decrypt(data, algorithm, QByteArray("key"), padding | ecb),
                         failure(AlignmentError));
            }
        }
    }
}

void NSDataCommonCryptoTest::ECBIgnoresTheInitializationVector() {
    Random random;
    const QByteArray data = random.bytes(64);
    const QByteArray iv = random.bytes(16);
    for (const CipherAlgorithm algorithm : blockCiphers) {
        const Answer answer = encrypt(data, algorithm, QByteArray("key"), ecb);
        QCOMPARE(encrypt(data, algorithm, QByteArray("key"), ecb, iv), answer);
        QCOMPARE(decrypt(*answer.result, algorithm, QByteArray("key"), ecb, iv), Answer{data});
        QVERIFY(encrypt(data, algorithm, QByteArray("key"), {}, iv) != answer);
    }
}

void NSDataCommonCryptoTest::RC4IgnoresPaddingModeAndInitializationVector() {
    const QByteArray data = "thirteen byte";
    const QByteArray key = "key";
    const Answer answer = encrypt(data, CipherAlgorithm::RC4, key, {});
    QCOMPARE(answer.result->size(), data.size());
    for (const CipherOptions options :
         {CipherOptions(padding), CipherOptions(ecb), padding | ecb}) {
        QCOMPARE(encrypt(data, CipherAlgorithm::RC4, key, options, QByteArray("vector")), answer);
        QCOMPARE(decrypt(*answer.result, CipherAlgorithm::RC4, key, options, QByteArray("vector")),
                 Answer{data});
    }
    QCOMPARE(decrypt({}, CipherAlgorithm::RC4, key, padding), Answer{QByteArray()});
}

void NSDataCommonCryptoTest::bitsThatNameNoOptionAreIgnored() {
    const QByteArray data(32, 'd');
    for (const int named : {0, 1, 2, 3}) {
        const auto with = [&](quint32 bits) {
            return encrypt(data, CipherAlgorithm::AES, QByteArray("key"),
                           CipherOptions::fromInt(bits), QByteArray("vector"));
        };
        QCOMPARE(with(static_cast<quint32>(named) | 0xfffffffcU), with(named));
    }
}

void NSDataCommonCryptoTest::shorterFormsUseNoOptionsAndNoInitializationVector() {
    using namespace LowLevelCommonCryptor;
    const QByteArray data(32, 'd');
    const QByteArray key = "key";
    for (const CipherAlgorithm algorithm : allCiphers) {
        const QByteArray plain = *encrypt(data, algorithm, key, {}).result;
        QCOMPARE(dataEncryptedUsingAlgorithm(data, algorithm, key), plain);
        QCOMPARE(decryptedDataUsingAlgorithm(plain, algorithm, key), data);
        const CipherOptions both = padding | ecb;
        const QByteArray padded = *encrypt(data, algorithm, key, both).result;
        QCOMPARE(dataEncryptedUsingAlgorithm(data, algorithm, key, both), padded);
        QCOMPARE(decryptedDataUsingAlgorithm(padded, algorithm, key, both), data);
    }
    const QByteArray part(5, 'd');
    CCCryptorStatus status = Success;
    QVERIFY(!dataEncryptedUsingAlgorithm(part, CipherAlgorithm::DES, key, &status));
    QCOMPARE(status, AlignmentError);
    status = Success;
    QVERIFY(!dataEncryptedUsingAlgorithm(part, CipherAlgorithm::DES, key, ecb, &status));
    QCOMPARE(status, AlignmentError);
    status = Success;
    QVERIFY(!decryptedDataUsingAlgorithm(part, CipherAlgorithm::DES, key, &status));
    QCOMPARE(status, AlignmentError);
    status = Success;
    QVERIFY(!decryptedDataUsingAlgorithm(part, CipherAlgorithm::DES, key, ecb, &status));
    QCOMPARE(status, AlignmentError);
}

void NSDataCommonCryptoTest::highLevelCiphersPadAndChainFromAZeroVector() {
    Random random;
    for (const HighLevelPair &pair : highLevelPairs) {
        for (qsizetype length = 0; length <= 40; ++length) {
            const QByteArray data = random.bytes(length);
            const QByteArray key = random.bytes(length);
            const std::optional<QByteArray> encrypted = pair.encrypt(data, key, nullptr);
            QCOMPARE(encrypted, encrypt(data, pair.algorithm, key, padding).result);
            QCOMPARE(pair.decrypt(*encrypted, key, nullptr), data);
        }
    }
}

void NSDataCommonCryptoTest::stringsStandForTheirUTF8Bytes() {
    const QByteArray data(32, 'd');
    for (const QString &text : {QStringLiteral("key"), QStringLiteral("Schlüssel – 钥匙 🔑"),
                                QString(), QStringLiteral("€").repeated(300)}) {
        const QByteArray bytes = text.toUtf8();
        for (const CipherAlgorithm algorithm : allCiphers) {
            QCOMPARE(encrypt(data, algorithm, text, {}, text),
                     encrypt(data, algorithm, bytes, {}, bytes));
            QCOMPARE(decrypt(data, algorithm, text, {}, text),
                     decrypt(data, algorithm, bytes, {}, bytes));
        }
        for (const HighLevelPair &pair : highLevelPairs) {
            QCOMPARE(pair.encrypt(data, text, nullptr), pair.encrypt(data, bytes, nullptr));
        }
    }
}

void NSDataCommonCryptoTest::RC4WithAnEmptyKeyIsAParameterError() {
    for (const QVariant &key : {QVariant(QByteArray()), QVariant(QString())}) {
        QCOMPARE(encrypt("data", CipherAlgorithm::RC4, key, {}), failure(ParameterError));
        QCOMPARE(decrypt("data", CipherAlgorithm::RC4, key, {}), failure(ParameterError));
    }
}

void NSDataCommonCryptoTest::unknownAlgorithmsAreAParameterError() {
    for (const quint32 number : {5U, 6U, 255U, 0x80000000U, 0xffffffffU}) {
        const auto algorithm = static_cast<CipherAlgorithm>(number);
        for (const qsizetype length : {0, 1, 16, 600}) {
            const QByteArray key(length, 'k');
            QCOMPARE(encrypt("data", algorithm, key, padding, key), failure(ParameterError));
            QCOMPARE(decrypt("data", algorithm, key, padding, key), failure(ParameterError));
        }
    }
}

void NSDataCommonCryptoTest::failuresMayGoUnreported() {
    using namespace LowLevelCommonCryptor;
    const QByteArray part(5, 'd');
    QVERIFY(!dataEncryptedUsingAlgorithm(part, CipherAlgorithm::AES, QByteArray("key")));
    QVERIFY(!decryptedDataUsingAlgorithm(part, CipherAlgorithm::AES, QByteArray("key")));
    for (const HighLevelPair &pair : highLevelPairs) {
        QVERIFY(!pair.decrypt(part, QByteArray("key"), nullptr));
    }
}

void NSDataCommonCryptoTest::successLeavesTheErrorAlone() {
    CCCryptorStatus status = 17;
    QVERIFY(LowLevelCommonCryptor::dataEncryptedUsingAlgorithm({}, CipherAlgorithm::AES,
                                                               QByteArray("key"), &status));
    QVERIFY(LowLevelCommonCryptor::decryptedDataUsingAlgorithm({}, CipherAlgorithm::AES,
                                                               QByteArray("key"), &status));
    QCOMPARE(status, 17);
    std::optional<Error> error;
    for (const HighLevelPair &pair : highLevelPairs) {
        const std::optional<QByteArray> encrypted = pair.encrypt({}, QByteArray("key"), &error);
        QVERIFY(pair.decrypt(*encrypted, QByteArray("key"), &error));
    }
    QVERIFY(!error);
}

void NSDataCommonCryptoTest::highLevelFailuresGiveTheStatusInWords() {
    for (const HighLevelPair &pair : highLevelPairs) {
        std::optional<Error> error;
        QVERIFY(!pair.decrypt("part", QByteArray("key"), &error));
        QVERIFY(error == errorWithCCCryptorStatus(AlignmentError));
        const QByteArray unpadded =
            *encrypt(QByteArray(32, 'd'), pair.algorithm, QByteArray("key"), {}).result;
        QVERIFY(!pair.decrypt(unpadded, QByteArray("key"), &error));
        QVERIFY(error == errorWithCCCryptorStatus(DecodeError));
    }
}

void NSDataCommonCryptoTest::keysOfOtherTypesFailAnAssertion() {
    const QString expected = QStringLiteral(
        "Model/Categories/NSData+CommonCrypto: Invalid parameter not satisfying: "
        "[key isKindOfClass: [NSData class]] || [key isKindOfClass: [NSString class]]");
    for (const QVariant &key : {QVariant(), QVariant(1), QVariant(QStringList())}) {
        QCOMPARE(assertionOf([&] { encrypt({}, CipherAlgorithm::AES, key, {}); }), expected);
        QCOMPARE(assertionOf([&] { decrypt({}, CipherAlgorithm::AES, key, {}); }), expected);
        for (const HighLevelPair &pair : highLevelPairs) {
            QCOMPARE(assertionOf([&] { pair.encrypt({}, key, nullptr); }), expected);
            QCOMPARE(assertionOf([&] { pair.decrypt({}, key, nullptr); }), expected);
        }
    }
}

void NSDataCommonCryptoTest::initializationVectorsOfOtherTypesFailAnAssertion() {
    const QString expected = QStringLiteral(
        "Model/Categories/NSData+CommonCrypto: Invalid parameter not satisfying: "
        "iv == nil || [iv isKindOfClass: [NSData class]] || [iv isKindOfClass: [NSString class]]");
    const QByteArray key = "key";
    QCOMPARE(assertionOf([&] { encrypt({}, CipherAlgorithm::AES, key, {}, 1); }), expected);
    QCOMPARE(assertionOf([&] { decrypt({}, CipherAlgorithm::AES, key, {}, 1); }), expected);
}

void NSDataCommonCryptoTest::anAbsentHMACKeyIsAnEmptyOne() {
    for (const HMACAlgorithm algorithm : allHMACs) {
        const QByteArray result = CommonHMAC::HMACWithAlgorithm("data", algorithm);
        QCOMPARE(CommonHMAC::HMACWithAlgorithm("data", algorithm, QByteArray()), result);
        QCOMPARE(CommonHMAC::HMACWithAlgorithm("data", algorithm, QString()), result);
        QVERIFY(CommonHMAC::HMACWithAlgorithm("data", algorithm, QByteArray("key")) != result);
    }
}

void NSDataCommonCryptoTest::HMACKeysMayBeStrings() {
    const QString text = QStringLiteral("Schlüssel").repeated(40);
    for (const HMACAlgorithm algorithm : allHMACs) {
        QCOMPARE(CommonHMAC::HMACWithAlgorithm("data", algorithm, text),
                 CommonHMAC::HMACWithAlgorithm("data", algorithm, text.toUtf8()));
    }
}

void NSDataCommonCryptoTest::HMACKeysOfOtherTypesFailAnAssertion() {
    QCOMPARE(assertionOf([] { CommonHMAC::HMACWithAlgorithm({}, HMACAlgorithm::MD5, 1); }),
             QStringLiteral("Model/Categories/NSData+CommonCrypto: "
                            "Invalid parameter not satisfying: key == nil || [key isKindOfClass: "
                            "[NSData class]] || [key isKindOfClass: [NSString class]]"));
}

void NSDataCommonCryptoTest::unknownHMACAlgorithmsFailAnAssertion() {
    for (const quint32 number : {6U, 0xffffffffU}) {
        QCOMPARE(assertionOf([number] {
                     CommonHMAC::HMACWithAlgorithm({}, static_cast<HMACAlgorithm>(number));
                 }),
                 QStringLiteral("Model/Categories/NSData+CommonCrypto: "
                                "Invalid parameter not satisfying: algorithm <= 5"));
    }
}

void NSDataCommonCryptoTest::statusesHaveTheirTexts_data() {
    QTest::addColumn<CCCryptorStatus>("status");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("reason");
    const auto add = [](CCCryptorStatus status, const char *description, const char *reason) {
        QTest::addRow("%d", status)
            << status << QString::fromUtf8(description) << QString::fromUtf8(reason);
    };
    add(0, "Success", "");
    add(-4300, "Parameter Error", "Illegal parameter supplied to encryption/decryption algorithm");
    add(-4301, "Buffer Too Small", "Insufficient buffer provided for specified operation");
    add(-4302, "Memory Failure", "Failed to allocate memory");
    add(-4303, "Alignment Error", "Input size to encryption algorithm was not aligned correctly");
    add(-4304, "Decode Error", "Input data did not decode or decrypt correctly");
    add(-4305, "Unimplemented Function", "Function not implemented for the current algorithm");
    add(12345, "Unknown Error", "");
    add(-4306, "Unknown Error", "");
    add(-1, "Unknown Error", "");
}

void NSDataCommonCryptoTest::statusesHaveTheirTexts() {
    QFETCH(CCCryptorStatus, status);
    QFETCH(QString, description);
    QFETCH(QString, reason);
    const Error error = errorWithCCCryptorStatus(status);
    QCOMPARE(error.domain, QStringLiteral("CommonCryptoErrorDomain"));
    QCOMPARE(error.domain, kCommonCryptoErrorDomain);
    QCOMPARE(error.code, status);
    QCOMPARE(error.localizedDescription, description);
    QCOMPARE(error.localizedFailureReason, reason);
}

void NSDataCommonCryptoTest::nothingOutsideTheBuffersIsRead() {
    using Place = GuardedBytes::Place;
    Random random;
    const QByteArray bytes = random.bytes(300);
    for (const Place place : {Place::AtStart, Place::AtEnd}) {
        for (qsizetype length = 0; length <= 100; ++length) {
            const GuardedBytes data(bytes.first(length), place);
            const GuardedBytes key(bytes.sliced(100, length), place);
            const GuardedBytes iv(bytes.sliced(200, length), place);
            for (const CipherAlgorithm algorithm : allCiphers) {
                for (const quint32 options : {0U, 1U, 2U, 3U}) {
                    const auto flags = CipherOptions::fromInt(options);
                    QCOMPARE(encrypt(data.bytes(), algorithm, key.bytes(), flags, iv.bytes()),
                             encrypt(bytes.first(length), algorithm, bytes.sliced(100, length),
                                     flags, bytes.sliced(200, length)));
                    QCOMPARE(decrypt(data.bytes(), algorithm, key.bytes(), flags, iv.bytes()),
                             decrypt(bytes.first(length), algorithm, bytes.sliced(100, length),
                                     flags, bytes.sliced(200, length)));
                }
            }
            for (const auto &[name, digest] : allDigests) {
                QCOMPARE(digest(data.bytes()), digest(bytes.first(length)));
            }
            for (const HMACAlgorithm algorithm : allHMACs) {
                QCOMPARE(CommonHMAC::HMACWithAlgorithm(data.bytes(), algorithm, key.bytes()),
                         CommonHMAC::HMACWithAlgorithm(bytes.first(length), algorithm,
                                                       bytes.sliced(100, length)));
            }
        }
    }
}

void NSDataCommonCryptoTest::theDataIsNeverChanged() {
    const QByteArray original = Random().bytes(64);
    const QByteArray data(original.constData(), original.size());
    const QByteArray key = data;
    for (const CipherAlgorithm algorithm : allCiphers) {
        encrypt(data, algorithm, key, padding, key);
        decrypt(data, algorithm, key, {}, key);
    }
    QCOMPARE(data, original);
}

void NSDataCommonCryptoTest::noCopyOfTheDataIsMadeBesideTheResult() {
    constexpr qint64 size = 32 << 20;
    // The address sanitizer keeps an eighth for itself; a copy would be the whole.
    constexpr qint64 tolerance = size / 2;
    const QByteArray key = "key";
    const QByteArray data(size, 'd');
    QByteArray encrypted;
    const auto keep = [&encrypted](const std::optional<QByteArray> &result) {
        encrypted = *result;
    };

    const qint64 forEncryption =
        additionalMemory([&] { keep(CommonCryptor::AES256EncryptedDataUsingKey(data, key)); });
    QVERIFY2(forEncryption >= size, "the peak of memory cannot be measured");
    QVERIFY(forEncryption < size + tolerance);
    QVERIFY(additionalMemory([&] {
                QCOMPARE(CommonCryptor::decryptedAES256DataUsingKey(encrypted, key)->size(), size);
            }) < size + tolerance);
    QVERIFY(additionalMemory([&] { encrypt(data, CipherAlgorithm::RC4, key, {}); }) <
            size + tolerance);
    QVERIFY(additionalMemory([&] { CommonDigest::SHA1Hash(data); }) < tolerance);
    QVERIFY(additionalMemory([&] {
                CommonHMAC::HMACWithAlgorithm(data, HMACAlgorithm::SHA1, key);
            }) < tolerance);
}

void NSDataCommonCryptoTest::keysAreNotLeftOnTheStack() {
    const QByteArray bytes = QByteArray("TheKeyThatMustNotStayInMemory!!!").repeated(3);
    const QString string = QString::fromUtf8(bytes);
    const QByteArray data(64, 'd');
    const QByteArray otherIV = "the vector is no secret";

    // What is looked for is found where it is left, deeper than the end of a thread reaches.
    QVERIFY(holdsPartOf(stackAfter([&bytes] {
                            volatile char copy[1 << 16];
                            std::copy_n(bytes.begin(), 32, copy);
                        }),
                        bytes));
    for (const QVariant &key : {QVariant(bytes), QVariant(string)}) {
        for (const CipherAlgorithm algorithm : allCiphers) {
            QVERIFY(!holdsPartOf(stackAfter([&] {
                                     encrypt(data, algorithm, key, padding, otherIV);
                                     decrypt(data, algorithm, key, padding, otherIV);
                                 }),
                                 bytes));
        }
        for (const HMACAlgorithm algorithm : allHMACs) {
            QVERIFY(!holdsPartOf(
                stackAfter([&] { CommonHMAC::HMACWithAlgorithm(data, algorithm, key); }), bytes));
        }
    }
}

void NSDataCommonCryptoTest::ciphersAgreeWithOpenSSL() {
    constexpr int count = 2000;
    const QTemporaryDir directory;
    const QDir files(directory.path());
    Random random;
    std::vector<CipherCase> cases;
    QByteArrayList lines;
    for (int i = 0; i < count; ++i) {
        cases.push_back(randomCipherCase(random));
        const QByteArray number = QByteArray::number(i);
        write(files.filePath(QStringLiteral("%1.in").arg(i)), cases.back().data);
        lines += cases.back().opensslLine(number);
    }
    runInShell(lines, directory.path());

    int successes = 0;
    for (int i = 0; i < count; ++i) {
        const CipherCase &call = cases[static_cast<size_t>(i)];
        const Answer answer = call.answer();
        const bool succeeds = files.exists(QStringLiteral("%1.done").arg(i));
        QVERIFY2(answer.result.has_value() == succeeds, call.description());
        if (succeeds) {
            ++successes;
            const QByteArray expected = read(files.filePath(QStringLiteral("%1.out").arg(i)));
            QVERIFY2(*answer.result == expected, call.description());
        }
    }
    // Both outcomes are many.
    QVERIFY(successes > count / 2);
    QVERIFY(successes < count * 9 / 10);
}

void NSDataCommonCryptoTest::digestsAgreeWithOpenSSL() {
    constexpr int count = 400;
    const QTemporaryDir directory;
    const QDir files(directory.path());
    Random random;
    QByteArrayList data;
    QByteArrayList names;
    for (int i = 0; i < count; ++i) {
        data += random.bytes(i);
        names += QByteArray::number(i);
        write(files.filePath(QString::number(i)), data.last());
    }
    // OpenSSL has no MD2.
    const auto digests = allDigests.sliced(1);
    QByteArrayList lines;
    for (const auto &[name, digest] : digests) {
        lines += "openssl dgst -r -" + name.toLower().toLatin1() +
                 " -provider legacy -provider default " + names.join(' ') + " >" + name.toLatin1();
    }
    runInShell(lines, directory.path());
    for (const auto &[name, digest] : digests) {
        const QByteArrayList expected = digestsIn(files.filePath(name));
        QCOMPARE(expected.size(), count);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(digest(data[i]), expected[i]);
        }
    }
}

void NSDataCommonCryptoTest::HMACsAgreeWithOpenSSL() {
    constexpr int keyCount = 20;
    constexpr int dataCount = 20;
    const QByteArrayList opensslNames = {"sha1", "md5", "sha256", "sha384", "sha512", "sha224"};
    const QTemporaryDir directory;
    const QDir files(directory.path());
    Random random;
    QByteArrayList data;
    QByteArrayList names;
    for (int i = 0; i < dataCount; ++i) {
        data += random.bytes(random.below(400));
        names += QByteArray::number(i);
        write(files.filePath(QString::number(i)), data.last());
    }
    struct Case {
        HMACAlgorithm algorithm;
        QByteArray key;
    };
    QList<Case> cases;
    QByteArrayList lines;
    for (const HMACAlgorithm algorithm : allHMACs) {
        for (int i = 0; i < keyCount; ++i) {
            // OpenSSL's command line takes no empty key, but one zero byte acts alike.
            const QByteArray key = i == 0 ? QByteArray() : random.bytes(1 + random.below(300));
            const QByteArray hex = i == 0 ? QByteArray("00") : key.toHex();
            lines += "openssl dgst -r -" + opensslNames.at(static_cast<qsizetype>(algorithm)) +
                     " -mac HMAC -macopt hexkey:" + hex + ' ' + names.join(' ') + " >hmac" +
                     QByteArray::number(cases.size());
            cases += {algorithm, key};
        }
    }
    runInShell(lines, directory.path());
    for (qsizetype i = 0; i < cases.size(); ++i) {
        const QByteArrayList expected = digestsIn(files.filePath(QStringLiteral("hmac%1").arg(i)));
        QCOMPARE(expected.size(), dataCount);
        for (qsizetype j = 0; j < dataCount; ++j) {
            QCOMPARE(CommonHMAC::HMACWithAlgorithm(data[j], cases[i].algorithm, cases[i].key),
                     expected[j].left(20));
        }
    }
}

void NSDataCommonCryptoTest::anyInputKeepsThePromisesOfTheFuzzTarget() {
    Random random;
    for (int i = 0; i < 5000; ++i) {
        const QByteArray input = random.bytes(random.below(600));
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()),
                               static_cast<size_t>(input.size()));
    }
}

VELMORA_TEST(NSDataCommonCryptoTest)

#include "NSDataCommonCryptoTest.moc"
