#include "Platform/Security/SecretBytes.h"

#include "Support/TestMain.h"

namespace {

/// The line of /proc/self/smaps that lists the flags of the mapping which holds `address`.
QByteArray mappingFlags(const void *address) {
    QFile file(QStringLiteral("/proc/self/smaps"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const auto wanted = reinterpret_cast<quintptr>(address);
    bool isWanted = false;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QByteArrayList range = line.left(line.indexOf(' ')).split('-');
        if (range.size() == 2) {
            isWanted = range[0].toULongLong(nullptr, 16) <= wanted &&
                       wanted < range[1].toULongLong(nullptr, 16);
        } else if (isWanted && line.startsWith("VmFlags:")) {
            return line;
        }
    }
    return {};
}

}  // namespace

class SecretBytesTest : public QObject {
    Q_OBJECT

    /// Returns the output of the program SecretMemory.cpp: the locked kilobytes and the secret.
    static QByteArrayList outputOfProgram(const QStringList &arguments) {
        QProcess program;
        program.start(QStringLiteral(SECRET_MEMORY), arguments);
        program.waitForFinished();
        return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0
                   ? program.readAllStandardOutput().split(' ')
                   : QByteArrayList();
    }

private Q_SLOTS:
    void theMemoryIsLocked() {
        const QByteArrayList output = outputOfProgram({});
        QCOMPARE(output.size(), 2);
        QVERIFY2(output[0].toInt() > 0, output[0].constData());
        QCOMPARE(output[1], QByteArray("secret"));
    }

    void aProcessThatMayNotLockMemoryHasItsSecretsNevertheless() {
        QCOMPARE(outputOfProgram({QStringLiteral("--no-locks")}), (QByteArrayList{"0", "secret"}));
    }

    void holdsTheBytesAndTheText() {
        const QByteArray bytes("a\0\xff", 3);
        QCOMPARE(SecretBytes(bytes).toByteArray(), bytes);
        QCOMPARE(SecretBytes(QStringLiteral("Öl 🔑")).toText(), QStringLiteral("Öl 🔑"));
        QVERIFY(SecretBytes().isEmpty());
        QVERIFY(SecretBytes(QByteArray()).isEmpty());
        QCOMPARE(SecretBytes().toText(), QString());
    }

    void copiesShareTheMemoryAndAreEqual() {
        const SecretBytes first(QByteArray("secret"));
        const SecretBytes copy = first;  // NOLINT(performance-unnecessary-copy-initialization)
        QCOMPARE(copy.view().data(), first.view().data());
        QVERIFY(first == SecretBytes(QByteArray("secret")));
        QVERIFY(!(first == SecretBytes(QByteArray("other"))));
    }

    void theMemoryIsNotInCoreFiles() {
        const SecretBytes secret(QByteArray("secret"));
        const QByteArray flags = mappingFlags(secret.view().data());
        QVERIFY2(flags.contains(" dd"), flags.constData());
    }

    void wipingOverwritesWhatNoOtherObjectShares() {
        QByteArray bytes("secret");
        bytes.detach();
        const QByteArray shared = bytes;
        SecretBytes::wipe(bytes);
        QVERIFY(bytes.isEmpty());
        QCOMPARE(shared, QByteArray("secret"));
        QString text = QStringLiteral("se") + QStringLiteral("cret");
        SecretBytes::wipe(text);
        QVERIFY(text.isEmpty());
    }
};

VELMORA_TEST(SecretBytesTest)
#include "SecretBytesTest.moc"
