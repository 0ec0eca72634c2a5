#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/syscall.h>

#include <QtCore/QMutex>
#include <QtNetwork/QSslSocket>
#include <thread>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpClient.h"
#include "Engine/Stores/Http/HttpConnection.h"
#include "Support/EventTimeout.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/ScriptedServer.h"
#include "Support/TestMain.h"
#include "Support/TlsServer.h"
#include "Support/WebDAVServer.h"

namespace {

using namespace std::chrono_literals;
using Connection = ScriptedServer::Connection;
using Response = HttpClient::Response;

const QByteArray Challenge = "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"";

/// Collects what several threads say.
class Collected {
public:
    void add(const QByteArray &text) {
        const QMutexLocker lock(&m_mutex);
        m_texts.append(text);
    }
    QList<QByteArray> texts() {
        const QMutexLocker lock(&m_mutex);
        return m_texts;
    }

private:
    QMutex m_mutex;
    QList<QByteArray> m_texts;
};

int status(const Expected<Response> &result) {
    return result ? result->status : 0;
}

QByteArray body(const Expected<Response> &result) {
    return result ? result->body : QByteArray();
}

HttpClient::Options hasty() {
    return {.timeouts = {.idle = 300ms, .total = 900ms}};
}

/// Trusts every certificate.
HttpClient::Options trustful() {
    HttpClient::Options options = hasty();
    options.trusts = [](const auto &, const auto &) { return true; };
    return options;
}

QString addressOf(const TlsServer &server) {
    return QStringLiteral("https://127.0.0.1:%1/").arg(server.port());
}

HttpClient::Options withCredential() {
    HttpClient::Options options = hasty();
    options.credential = [](auto, const auto &) -> std::optional<UrlCredential> {
        return UrlCredential{QStringLiteral("ida"), QStringLiteral("secret")};
    };
    return options;
}

/// Responds to every request with 401 and the header fields that `challenges` returns for its
/// number.
ScriptedServer::Script challenging(Collected &requests,
                                   std::function<QByteArray(int number)> challenges) {
    return [&requests, challenges = std::move(challenges)](Connection &connection) {
        QByteArray request;
        while (!(request = connection.readRequest()).isEmpty()) {
            requests.add(request);
            connection.answer("401 Unauthorized" +
                              challenges(static_cast<int>(requests.texts().size())));
        }
    };
}

/// Requests another handshake in the middle of a response, and presents its certificate again if
/// the client agrees.
void negotiateAgain(SSL *session, std::promise<void> &isAnswered) {
    const int socket = SSL_get_fd(session);
    // Otherwise the certificate would wait until the client has confirmed what was sent before.
    const int isSentAtOnce = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &isSentAtOnce, sizeof isSentAtOnce);
    char byte = 0;
    while (SSL_read(session, &byte, 1) == 1 && SSL_pending(session) > 0) {
    }
    const QByteArray begin("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\no");
    SSL_write(session, begin.constData(), static_cast<int>(begin.size()));
    SSL_set_options(session, SSL_OP_NO_SESSION_RESUMPTION_ON_RENEGOTIATION);
    SSL_renegotiate(session);
    SSL_do_handshake(session);
    recv(socket, &byte, 1, MSG_PEEK);
    SSL_write(session, "k", 1);
    fcntl(socket, F_SETFL, O_NONBLOCK);
    SSL_read(session, &byte, 1);
    fcntl(socket, F_SETFL, 0);
    isAnswered.set_value();
    SSL_read(session, &byte, 1);
}

}  // namespace

class HttpClientTest : public QObject {
    Q_OBJECT
private:
    EngineFuture m_future;
    const QTemporaryDir m_folder;

    Expected<Response> get(const QString &URLText, HttpClient::Options options = hasty(),
                           qint64 limit = 1000) {
        HttpClient client(std::move(options));
        return client.send({.method = "GET", .URL = QUrl(URLText), .limit = limit}, m_future);
    }
    Expected<Response> get(const ScriptedServer &server, HttpClient::Options options = hasty(),
                           qint64 limit = 1000) {
        return get(server.URLText(QStringLiteral("a")), std::move(options), limit);
    }

private Q_SLOTS:
    void aRequestIsSentAsItIs() {
        Collected requests;
        const ScriptedServer server([&](Connection &connection) {
            requests.add(connection.readRequest());
            connection.answer("207 Multi-Status\r\nX-Thing: one", "body");
        });
        HttpClient client(hasty());
        const Expected<Response> result =
            client.send({.method = "PROPFIND",
                         .URL = QUrl(server.URLText(QStringLiteral("a%20b%2Fc"))),
                         .headers = {{"Depth", "1"}},
                         .body = "<x/>"},
                        m_future);
        QCOMPARE(status(result), 207);
        QCOMPARE(body(result), QByteArray("body"));
        QCOMPARE(result->header("x-thing"), QByteArray("one"));
        const QByteArray request = requests.texts().value(0);
        QVERIFY2(request.startsWith("PROPFIND /a%20b%2Fc HTTP/1.1\r\n"), request.constData());
        QVERIFY(request.contains("Depth: 1\r\n"));
        QVERIFY(request.endsWith("\r\n\r\n<x/>"));
        QVERIFY(!request.contains("ida"));
        QVERIFY(!request.toLower().contains("authorization"));
    }

    void aResponseOfAnyStatusIsReturned() {
        for (const char *text :
             {"204 No Content", "400 Bad Request", "404 Not Found", "405 No", "409 Conflict",
              "412 Precondition Failed", "418 Teapot", "429 Too Many Requests", "500 Oh", "501 No",
              "503 Busy", "507 Insufficient Storage"}) {
            const ScriptedServer server([&](Connection &connection) {
                connection.readRequest();
                connection.answer(text);
            });
            const Expected<Response> result = get(server);
            QCOMPARE(status(result), QByteArray(text).left(3).toInt());
        }
    }

    void connectionsAreKept() {
        const ScriptedServer server([&](Connection &connection) {
            while (!connection.readRequest().isEmpty()) {
                connection.answer("200 OK", "x");
            }
        });
        HttpClient client(hasty());
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(
                status(client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, m_future)),
                200);
        }
        QCOMPARE(server.connections(), 1);
    }

    void aRequestForWhichAKeptConnectionBreaksIsSentAgain() {
        const ScriptedServer server([&](Connection &connection) {
            if (connection.readRequest().startsWith("GET")) {
                connection.answer("200 OK");
                connection.awaitBytes();
                connection.reset();
            } else {
                connection.answer("201 Created");
            }
        });
        HttpClient client(HttpClient::Options{});
        QCOMPARE(status(client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, m_future)),
                 200);
        // More than the system keeps until the server reads it.
        const QByteArray contents(16 << 20, 'x');
        QCOMPARE(
            status(client.send({.method = "PUT", .URL = QUrl(server.URLText({})), .body = contents},
                               m_future)),
            201);
        QCOMPARE(server.connections(), 2);
    }

    void anUnrepeatableRequestIsSentOnce() {
        std::atomic<int> posts = 0;
        const ScriptedServer server(
            [&](Connection &connection) {
                QByteArray request = connection.readRequest();
                if (request.startsWith("GET")) {
                    connection.answer("200 OK");
                    request = connection.readRequest();
                }
                posts += request.startsWith("POST") ? 1 : 0;
                connection.close();
            },
            ScriptedServer::Order::AllAtOnce);
        HttpClient client(HttpClient::Options{});
        QCOMPARE(status(client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, m_future)),
                 200);
        QVERIFY(!client.send({.method = "POST",
                              .URL = QUrl(server.URLText({})),
                              .body = "code",
                              .isUnrepeatable = true},
                             m_future));
        QCOMPARE(posts.load(), 1);
        QCOMPARE(server.connections(), 2);
    }

    void aRequestIsNotSentAgainIfANewConnectionBreaks() {
        const ScriptedServer server([&](Connection &connection) {
            connection.awaitBytes();
            connection.reset();
        });
        QVERIFY(!get(server));
        QCOMPARE(server.connections(), 1);
    }

    void severalThreadsMaySendAtOnce() {
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None});
        HttpClient client;
        std::atomic<int> answers = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&] {
                const auto result =
                    client.send({.method = "OPTIONS", .URL = QUrl(server.URLText({}))}, m_future);
                answers += status(result) == 200 ? 1 : 0;
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        QCOMPARE(answers, 8);
    }

    void anAbsentServerHasItsOwnError() {
        QVERIFY(description(get(QStringLiteral("http://no-such-host.invalid/")))
                    .contains(QStringLiteral("The server “no-such-host.invalid” was not found")));
        quint16 port = 0;
        {
            const ScriptedServer gone([](Connection &) {});
            port = gone.port();
        }
        const Expected<Response> refused = get(QStringLiteral("http://127.0.0.1:%1/").arg(port));
        QCOMPARE(code(refused), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(refused).contains(QStringLiteral("refused the connection")));
        QVERIFY(description(refused).contains(QStringLiteral("127.0.0.1:%1").arg(port)));
    }

    void aFailureToWaitEndsTheRequestAtOnce() {
        const ScriptedServer server([](Connection &connection) { connection.waitUntilClosed(); });
        for (const int number : {SYS_poll, SYS_ppoll}) {
            QElapsedTimer time;
            time.start();
            runWithFailingSystemCall(number, EINVAL, [&] {
                HttpClient client(HttpClient::Options{.timeouts = {.idle = 5s, .total = 10s}});
                QVERIFY(!client.send(
                    {.method = "GET", .URL = QUrl(server.URLText(QStringLiteral("x")))},
                    EngineFuture()));
            });
            if (time.elapsed() < 2000) {
                return;
            }
        }
        QFAIL("the request was waited for");
    }

    void aServerThatSendsNothingTimesOut() {
        const ScriptedServer server([](Connection &connection) { connection.waitUntilClosed(); });
        const Expected<Response> result = get(server);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(QStringLiteral("does not respond")),
                 qPrintable(description(result)));
    }

    void aServerThatStopsInTheMiddleIsGivenUp() {
        const ScriptedServer server([](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
            connection.waitUntilClosed();
        });
        QVERIFY(description(get(server)).contains(QStringLiteral("does not respond")));
    }

    void aServerThatSendsSlowlyIsGivenUp() {
        const ScriptedServer server([](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
            while (connection.isOpen()) {
                connection.send("x");
                QThread::msleep(50);
            }
        });
        const Expected<Response> result = get(server, hasty(), 1 << 20);
        QVERIFY2(description(result).contains(QStringLiteral("takes too long")),
                 qPrintable(description(result)));
    }

    void aTruncatedOrMissingResponseHasItsOwnError_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("at once") << QByteArray();
        QTest::newRow("in the headers") << QByteArray("HTTP/1.1 200 OK\r\nContent-Le");
        QTest::newRow("in the body")
            << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
        const QByteArray chunked("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
        QTest::newRow("in a chunk") << chunked + "8\r\nhalf";
        QTest::newRow("between two chunks") << chunked + "4\r\nhalf\r\n";
        QTest::newRow("another protocol") << QByteArray("220 mail.example ESMTP\r\n");
        QTest::newRow("bytes") << QByteArray("\x15\x03\x01\x00\x02\x02\x16\n\n", 9);
        QTest::newRow("no status") << QByteArray("HTTP/1.1 hello\r\n\r\n");
    }

    void aTruncatedOrMissingResponseHasItsOwnError() {
        QFETCH(QByteArray, answer);
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.send(answer);
        });
        const Expected<Response> result = get(server);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(
                     QStringLiteral("closed the connection without a response")),
                 qPrintable(description(result)));
    }

    void anEndlessResponseIsAborted_data() {
        QTest::addColumn<QByteArray>("status");
        for (const char *status :
             {"200 OK", "302 Found\r\nLocation: /b", "401 Unauthorized",
              "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"",
              "401 Unauthorized\r\nWWW-Authenticate: Digest realm=\"x\", nonce=\"n\", qop=auth",
              "401 Unauthorized\r\nWWW-Authenticate: NTLM", "404 Not Found", "407 Proxy",
              "500 Oh"}) {
            QTest::newRow(status) << QByteArray(status);
        }
    }

    void anEndlessResponseIsAborted() {
        QFETCH(QByteArray, status);
        std::atomic<qsizetype> sent = 0;
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 " + status + "\r\n\r\n");
            while (connection.isOpen()) {
                connection.send(QByteArray(100'000, 'x'));
                sent += 100'000;
            }
        });
        HttpClient::Options options = withCredential();
        options.timeouts = {.idle = 10s, .total = 20s};
        const Expected<Response> result = get(server, options);
        QCOMPARE(code(result), EngineErrorCode::BlobRefused);
        QVERIFY(description(result).contains(QStringLiteral("too long")));
        QVERIFY2(sent < 20'000'000, qPrintable(QString::number(sent)));
    }

    void partsOfAResponseThatAreDroppedAreLimited_data() {
        QTest::addColumn<QByteArray>("begin");
        QTest::addColumn<QByteArray>("part");
        QTest::newRow("an extension of a chunk") << QByteArray("1;") << QByteArray(1000, 'x');
        QTest::newRow("extensions of chunks")
            << QByteArray() << "1;" + QByteArray(9000, 'x') + "\r\nx\r\n";
        QTest::newRow("fields behind the chunks")
            << QByteArray("0\r\n") << "X-More: " + QByteArray(1000, 'x') + "\r\n";
    }

    void partsOfAResponseThatAreDroppedAreLimited() {
        QFETCH(const QByteArray, begin);
        QFETCH(const QByteArray, part);
        std::atomic<qsizetype> sent = 0;
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + begin);
            const QByteArray parts = part.repeated(100'000 / part.size());
            while (connection.isOpen()) {
                connection.send(parts);
                sent += parts.size();
            }
        });
        HttpClient::Options options = withCredential();
        options.timeouts = {.idle = 10s, .total = 20s};
        const Expected<Response> result = get(server, options, 1 << 20);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(QStringLiteral("too long")),
                 qPrintable(description(result)));
        QVERIFY2(sent < 30'000'000, qPrintable(QString::number(sent)));
    }

    void smallChunksAreAccepted() {
        const QByteArray contents(100'000, 'x');
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" +
                            QByteArray("1\r\nx\r\n").repeated(contents.size()) + "0\r\n\r\n");
        });
        QCOMPARE(body(get(server, hasty(), contents.size())), contents);
    }

    void endlessHeadersAreCutOff_data() {
        QTest::addColumn<QByteArray>("begin");
        QTest::addColumn<QByteArray>("part");
        QTest::newRow("fields") << QByteArray("HTTP/1.1 200 OK\r\n")
                                << "X-More: " + QByteArray(1000, 'x') + "\r\n";
        QTest::newRow("one field")
            << QByteArray("HTTP/1.1 200 OK\r\nX-More: ") << QByteArray(1000, 'x');
        QTest::newRow("provisional responses")
            << QByteArray() << QByteArray("HTTP/1.1 100 Continue\r\n\r\n");
    }

    void endlessHeadersAreCutOff() {
        QFETCH(QByteArray, begin);
        QFETCH(QByteArray, part);
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.send(begin);
            while (connection.isOpen()) {
                connection.send(part);
            }
        });
        QElapsedTimer timer;
        timer.start();
        const Expected<Response> result = get(server, {});
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    }

    void aResponseOfTheMaximumSizeIsAccepted() {
        const ScriptedServer server([](Connection &connection) {
            connection.readRequest();
            connection.answer("200 OK", QByteArray(1000, 'x'));
        });
        QCOMPARE(body(get(server)).size(), 1000);
        QCOMPARE(code(get(server, hasty(), 999)), EngineErrorCode::BlobRefused);
    }

    void packedContentsAreNotUnpacked() {
        const ScriptedServer server([](Connection &connection) {
            const QByteArray request = connection.readRequest();
            connection.answer("200 OK\r\nContent-Encoding: gzip",
                              request.contains("Accept-Encoding: identity") ? "packed" : "");
        });
        QCOMPARE(body(get(server)), QByteArray("packed"));
    }

    void cancellingEndsTheRequest() {
        EngineFuture future;
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            future.cancel();
            connection.waitUntilClosed();
        });
        HttpClient client;
        const auto result = client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, future);
        QCOMPARE(code(result), EngineErrorCode::Cancelled);
        QCOMPARE(code(client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, future)),
                 EngineErrorCode::Cancelled);
        QCOMPARE(server.connections(), 1);
    }

    void redirectionsWithinTheServerAreFollowed_data() {
        QTest::addColumn<QByteArray>("status");
        for (const char *status : {"301 Moved", "302 Found", "307 Temporary", "308 Permanent"}) {
            QTest::newRow(status) << QByteArray(status);
        }
    }

    void redirectionsWithinTheServerAreFollowed() {
        QFETCH(QByteArray, status);
        Collected requests;
        const ScriptedServer server([&](Connection &connection) {
            requests.add(connection.readRequest());
            connection.answer(status + "\r\nLocation: ../b/");
            requests.add(connection.readRequest());
            connection.answer("201 Created");
        });
        HttpClient client(hasty());
        const auto result = client.send(
            {.method = "PUT", .URL = QUrl(server.URLText(QStringLiteral("x/y"))), .body = "body"},
            m_future);
        QCOMPARE(::status(result), 201);
        QVERIFY(requests.texts().value(1).startsWith("PUT /b/ HTTP/1.1\r\n"));
        QVERIFY(requests.texts().value(1).endsWith("body"));
    }

    void redirectionsInACircleEnd() {
        const ScriptedServer server([&](Connection &connection) {
            while (!connection.readRequest().isEmpty()) {
                connection.answer("302 Found\r\nLocation: /a");
            }
        });
        QVERIFY(description(get(server)).contains(QStringLiteral("redirects too often")));
    }

    void anotherServerNeverGetsARequest_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("port") << QStringLiteral("http://127.0.0.1:%1/a");
        QTest::newRow("host") << QStringLiteral("http://localhost:%1/a");
        QTest::newRow("scheme") << QStringLiteral("https://127.0.0.1:%1/a");
        QTest::newRow("no host") << QStringLiteral("file:///etc/passwd?%1");
    }

    void anotherServerNeverGetsARequest() {
        QFETCH(QString, target);
        // It asks for the credential.
        const ScriptedServer other([](Connection &connection) {
            connection.readRequest();
            connection.answer(Challenge);
        });
        const QByteArray location = target.arg(other.port()).toLatin1();
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.answer("302 Found\r\nLocation: " + location);
        });
        HttpClient::Options options = hasty();
        std::atomic<int> questions = 0;
        options.credential = [&](auto, const auto &) -> std::optional<UrlCredential> {
            ++questions;
            return UrlCredential{QStringLiteral("ida"), QStringLiteral("secret")};
        };
        const Expected<Response> result = get(server, options);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(result).contains(QString::fromLatin1(location)));
        QCOMPARE(other.connections(), 0);
        QCOMPARE(questions, 0);
    }

    void aChallengeIsAnsweredOnce() {
        Collected requests;
        const ScriptedServer server([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                requests.add(request);
                connection.answer(Challenge);
            }
        });
        std::atomic<int> questions = 0;
        HttpClient::Options options = hasty();
        options.credential = [&](auto, const auto &) -> std::optional<UrlCredential> {
            ++questions;
            return UrlCredential{QStringLiteral("ida"), QStringLiteral("secret")};
        };
        QCOMPARE(status(get(server, options)), 401);
        QCOMPARE(questions, 1);
        QCOMPARE(requests.texts().size(), 2);
        QVERIFY(!requests.texts().first().contains("Authorization"));
        QVERIFY(requests.texts().last().contains("Authorization: Basic " +
                                                 QByteArray("ida:secret").toBase64()));
    }

    void aChallengeIsNotAnsweredWithoutACredential() {
        std::atomic<int> requests = 0;
        const ScriptedServer server([&](Connection &connection) {
            while (!connection.readRequest().isEmpty()) {
                ++requests;
                connection.answer(Challenge);
            }
        });
        QCOMPARE(status(get(server)), 401);
        HttpClient::Options options = hasty();
        options.credential = [](auto, const auto &) { return std::optional<UrlCredential>(); };
        QCOMPARE(status(get(server, options)), 401);
        QCOMPARE(requests, 2);
    }

    void aCredentialThatCannotBeReadIsAnError() {
        const ScriptedServer server([&](Connection &connection) {
            connection.readRequest();
            connection.answer(Challenge);
        });
        HttpClient::Options options = hasty();
        options.credential = [](auto, const auto &) { return failure(operationCancelled()); };
        QCOMPARE(code(get(server, options)), EngineErrorCode::Cancelled);
    }

    void otherSchemesAreNotAnswered_data() {
        QTest::addColumn<QByteArray>("challenges");
        QTest::newRow("NTLM") << QByteArray("\r\nWWW-Authenticate: NTLM");
        QTest::newRow("NTLM, type 2") << QByteArray(
            "\r\nWWW-Authenticate: NTLM TlRMTVNTUAACAAAAAAAAADgAAAABggAAASNFZ4mrze8=");
        QTest::newRow("Negotiate") << QByteArray("\r\nWWW-Authenticate: Negotiate");
        QTest::newRow("both") << QByteArray(
            "\r\nWWW-Authenticate: Negotiate\r\nWWW-Authenticate: NTLM");
        QTest::newRow("unknown algorithm") << QByteArray(
            "\r\nWWW-Authenticate: Digest realm=\"x\", nonce=\"n\", qop=\"auth\", algorithm=MD4");
        QTest::newRow("none") << QByteArray();
    }

    void otherSchemesAreNotAnswered() {
        QFETCH(QByteArray, challenges);
        Collected requests;
        const ScriptedServer server(challenging(requests, [&](int) { return challenges; }));
        QCOMPARE(status(get(server, withCredential())), 401);
        QCOMPARE(requests.texts().size(), 1);
        QVERIFY(!requests.texts().first().contains("Authorization"));
    }

    void besideNTLMOnlyBasicIsAnswered() {
        Collected requests;
        const ScriptedServer server(challenging(requests, [](int) {
            return "\r\nWWW-Authenticate: NTLM\r\nWWW-Authenticate: Basic realm=\"x\"";
        }));
        QCOMPARE(status(get(server, withCredential())), 401);
        QCOMPARE(requests.texts().size(), 2);
        QVERIFY(requests.texts().last().contains("\r\nAuthorization: Basic "));
    }

    void changingChallengesEnd_data() {
        QTest::addColumn<QByteArray>("challenge");
        QTest::newRow("Basic") << QByteArray("Basic realm=\"%1\"");
        QTest::newRow("Digest") << QByteArray("Digest realm=\"%1\", nonce=\"%1\", qop=\"auth\"");
        QTest::newRow("stale") << QByteArray(
            "Digest realm=\"x\", nonce=\"%1\", qop=\"auth\", stale=true");
    }

    void changingChallengesEnd() {
        QFETCH(QByteArray, challenge);
        Collected requests;
        const ScriptedServer server(challenging(requests, [&](int number) {
            return "\r\nWWW-Authenticate: " +
                   QByteArray(challenge).replace("%1", QByteArray::number(number));
        }));
        QCOMPARE(status(get(server, withCredential())), 401);
        QCOMPARE(requests.texts().size(), 2);
    }

    void aNonceIsUsedUntilTheServerGivesAnotherOne() {
        Collected requests;
        std::atomic<int> nonce = 1;
        const ScriptedServer server([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                requests.add(request);
                const QByteArray current = "nonce=\"" + QByteArray::number(nonce) + '"';
                connection.answer(request.contains(current)
                                      ? QByteArray("200 OK")
                                      : "401 Unauthorized\r\nWWW-Authenticate: Digest realm=\"x\", "
                                        "qop=\"auth\", stale=true, " +
                                            current);
            }
        });
        HttpClient client(withCredential());
        const HttpClient::Request request = {.method = "GET",
                                             .URL = QUrl(server.URLText(QStringLiteral("a b?c")))};
        QCOMPARE(status(client.send(request, m_future)), 200);
        QCOMPARE(status(client.send(request, m_future)), 200);
        nonce = 2;
        QCOMPARE(status(client.send(request, m_future)), 200);
        const QList<QByteArray> texts = requests.texts();
        QCOMPARE(texts.size(), 5);
        QVERIFY(texts.at(1).contains("nc=00000001"));
        QVERIFY(texts.at(1).contains("uri=\"/a%20b?c\""));
        QVERIFY(texts.at(1).startsWith("GET /a%20b?c HTTP"));
        QVERIFY(texts.at(2).contains("nc=00000002"));
        QVERIFY(texts.at(3).contains("nc=00000003"));
        QVERIFY(texts.at(4).contains("nc=00000001"));
    }

    void anAcceptedCredentialIsForOneServer() {
        Collected requests;
        const ScriptedServer::Script asking = [&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                requests.add(request);
                connection.answer(request.contains("Authorization") ? QByteArray("200 OK")
                                                                    : Challenge);
            }
        };
        const ScriptedServer server(asking);
        const ScriptedServer other(asking);
        HttpClient client(withCredential());
        for (const ScriptedServer *each : {&server, &server, &other}) {
            QVERIFY(client.send({.method = "GET", .URL = QUrl(each->URLText({}))}, m_future));
        }
        QCOMPARE(requests.texts().size(), 5);
        QVERIFY(requests.texts().at(2).contains("Authorization"));
        QVERIFY(!requests.texts().at(3).contains("Authorization"));
    }

    void cookiesAreNotKept() {
        Collected requests;
        const ScriptedServer server([&](Connection &connection) {
            QByteArray request;
            while (!(request = connection.readRequest()).isEmpty()) {
                requests.add(request);
                connection.answer("200 OK\r\nSet-Cookie: a=b");
            }
        });
        HttpClient client(hasty());
        for (int i = 0; i < 2; ++i) {
            QVERIFY(client.send({.method = "GET", .URL = QUrl(server.URLText({}))}, m_future));
        }
        QCOMPARE(requests.texts().size(), 2);
        QVERIFY(!requests.texts().last().toLower().contains("cookie"));
    }

    void aTrustedCertificateNeedsNoQuestion() {
        const TestAuthority authority;
        const TrustedAuthority trusted(authority);
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None,
                                   .identity = authority.issue(QStringLiteral("DNS:localhost"))});
        HttpClient::Options options = {};
        std::atomic<int> questions = 0;
        options.trusts = [&](const auto &, const auto &) { return ++questions > 0; };
        HttpClient client(options);
        QCOMPARE(
            status(client.send({.method = "OPTIONS", .URL = QUrl(server.URLText({}))}, m_future)),
            200);
        QCOMPARE(questions, 0);
    }

    void anUntrustedCertificateFailsWithTheReason_data() {
        QTest::addColumn<bool>("isAuthorityTrusted");
        QTest::addColumn<QString>("names");
        QTest::addColumn<int>("days");
        QTest::addColumn<QString>("reason");
        const QString ours = QStringLiteral("DNS:localhost");
        QTest::newRow("authority")
            << false << ours << 1
            << QStringLiteral("an authority that this computer does not trust");
        QTest::newRow("host") << true << QStringLiteral("DNS:elsewhere.example") << 1
                              << QStringLiteral("was issued for another server");
        QTest::newRow("expired") << true << ours << 0 << QStringLiteral("has expired");
    }

    void anUntrustedCertificateFailsWithTheReason() {
        QFETCH(bool, isAuthorityTrusted);
        QFETCH(QString, names);
        QFETCH(int, days);
        QFETCH(QString, reason);
        const TestAuthority authority;
        std::optional<TrustedAuthority> trusted;
        if (isAuthorityTrusted) {
            trusted.emplace(authority);
        }
        const TestAuthority::Identity identity = authority.issue(names, days);
        const WebDAVServer server(
            {.authentication = WebDAVServer::Authentication::None, .identity = identity});
        QStringList reasons;
        QByteArray digest;
        HttpClient::Options options = {};
        options.trusts = [&](const QSslCertificate &certificate, const QStringList &given) {
            digest = certificate.digest();
            reasons = given;
            return false;
        };
        const Expected<Response> result = get(server.URLText({}), options);
        QCOMPARE(code(result), EngineErrorCode::CertificateUntrusted);
        QVERIFY2(description(result).contains(reason), qPrintable(description(result)));
        QCOMPARE(reasons.size(), 1);
        QVERIFY(reasons.first().contains(reason));
        QCOMPARE(digest, QSslCertificate::fromPath(identity.certificate).value(0).digest());
        options.trusts = [](const auto &, const auto &) { return true; };
        QVERIFY(status(get(server.URLText({}), options)) > 0);
        options.trusts = {};
        QCOMPARE(code(get(server.URLText({}), options)), EngineErrorCode::CertificateUntrusted);
    }

    void aServerThatSendsMessagesWithoutDataIsGivenUp() {
        TlsServer server(*DirectConnectionIdentity::load(m_folder.path()), TLS1_3_VERSION,
                         &TlsServer::updateKeys);
        QElapsedTimer time;
        time.start();
        QCOMPARE(code(get(addressOf(server), trustful())), EngineErrorCode::StoreUnreachable);
        QVERIFY(server.isEncrypted());
        QCOMPARE_LT(time.elapsed(), EventTimeout);
    }

    /// libcurl reads once more from a connection that it closes.
    void aServerCannotPresentAnotherCertificateLater() {
        std::promise<void> isAnswered;
        const std::future<void> answered = isAnswered.get_future();
        TlsServer server(*DirectConnectionIdentity::load(m_folder.path()), TLS1_2_VERSION,
                         [&](SSL *session) { negotiateAgain(session, isAnswered); });
        int questions = 0;
        HttpClient::Options options = hasty();
        options.trusts = [&](const auto &, const auto &) { return ++questions > 0; };
        const HttpRequest request{.method = "GET", .URL = QUrl(addressOf(server))};
        auto connection = std::make_unique<HttpConnection>();
        QCOMPARE(body(connection->exchange(request, options, EngineFuture())), QByteArray("ok"));
        answered.wait();
        connection.reset();
        QCOMPARE(questions, 1);
    }

    void oldVersionsOfTlsAreNotSpoken_data() {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("isSpoken");
        QTest::newRow("1.0") << TLS1_VERSION << false;
        QTest::newRow("1.1") << TLS1_1_VERSION << false;
        QTest::newRow("1.2") << TLS1_2_VERSION << true;
        QTest::newRow("1.3") << TLS1_3_VERSION << true;
    }
    void oldVersionsOfTlsAreNotSpoken() {
        QFETCH(const int, version);
        QFETCH(const bool, isSpoken);
        TlsServer server(*DirectConnectionIdentity::load(m_folder.path()), version);
        QCOMPARE(code(get(addressOf(server), trustful())), EngineErrorCode::StoreUnreachable);
        QCOMPARE(server.isEncrypted(), isSpoken);
    }

    void aServerWithoutTLSHasItsOwnError() {
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None});
        const Expected<Response> result =
            get(server.URLText({}).replace(QStringLiteral("http:"), QStringLiteral("https:")));
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(QStringLiteral("A secure connection")),
                 qPrintable(description(result)));
    }
};

VELMORA_TEST(HttpClientTest)
#include "HttpClientTest.moc"
