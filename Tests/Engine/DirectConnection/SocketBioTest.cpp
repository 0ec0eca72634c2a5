#include "Engine/DirectConnection/SocketBio.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "Support/TestMain.h"

namespace {

using OwnedBio = std::unique_ptr<BIO, decltype(&BIO_free)>;

volatile std::sig_atomic_t brokenPipes = 0;

void countBrokenPipe(int /*signal*/) {
    brokenPipes = brokenPipes + 1;
}

}  // namespace

class SocketBioTest : public QObject {
    Q_OBJECT
private:
    std::array<int, 2> m_ends{-1, -1};

    OwnedBio bio() const { return {newSocketBio(m_ends[0]), &BIO_free}; }
    void closeEnd(size_t end) { close(std::exchange(m_ends.at(end), -1)); }

private Q_SLOTS:
    void init() {
        QCOMPARE(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, m_ends.data()),
                 0);
    }
    void cleanup() {
        for (const int end : m_ends) {
            if (end >= 0) {
                close(end);
            }
        }
    }

    void bytesPassInBothDirections() {
        const OwnedBio made = bio();
        QCOMPARE(BIO_write(made.get(), "request", 7), 7);
        std::array<char, 16> buffer{};
        QCOMPARE(recv(m_ends[1], buffer.data(), buffer.size(), 0), 7);
        QCOMPARE(send(m_ends[1], "response", 8, 0), 8);
        QCOMPARE(BIO_read(made.get(), buffer.data(), buffer.size()), 8);
        QCOMPARE(QByteArray(buffer.data(), 8), QByteArray("response"));
        QCOMPARE(BIO_flush(made.get()), 1);
    }

    void aCallThatWouldBlockIsToBeRepeated() {
        const OwnedBio made = bio();
        std::array<char, 4096> buffer{};
        QCOMPARE(BIO_read(made.get(), buffer.data(), buffer.size()), -1);
        QVERIFY(BIO_should_read(made.get()));
        int written = 0;
        while ((written = BIO_write(made.get(), buffer.data(), buffer.size())) > 0) {
        }
        QCOMPARE(written, -1);
        QVERIFY(BIO_should_write(made.get()));
        QVERIFY(!BIO_should_read(made.get()));
    }

    void theEndOfTheConnectionIsNotToBeRepeated() {
        const OwnedBio made = bio();
        closeEnd(1);
        char byte = 0;
        QCOMPARE(BIO_read(made.get(), &byte, 1), 0);
        QVERIFY(!BIO_should_retry(made.get()));
    }

    void writingToAClosedConnectionSendsNoSignal() {
        const OwnedBio made = bio();
        closeEnd(1);
        const auto former = std::signal(SIGPIPE, &countBrokenPipe);
        brokenPipes = 0;
        const int written = BIO_write(made.get(), "x", 1);
        const int error = errno;
        std::signal(SIGPIPE, former);
        QCOMPARE(written, -1);
        QCOMPARE(error, EPIPE);
        QVERIFY(!BIO_should_retry(made.get()));
        QCOMPARE(int(brokenPipes), 0);
    }

    void theSocketStaysOpen() {
        bio().reset();
        QCOMPARE(send(m_ends[0], "x", 1, MSG_NOSIGNAL), 1);
    }
};

VELMORA_TEST(SocketBioTest)
#include "SocketBioTest.moc"
