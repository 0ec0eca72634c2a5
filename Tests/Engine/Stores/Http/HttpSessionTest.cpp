#include <latch>
#include <mutex>
#include <thread>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpClient.h"
#include "Engine/Stores/Http/HttpConnection.h"
#include "Engine/Stores/Http/HttpSessions.h"
#include "Support/Failure.h"
#include "Support/ScriptedServer.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

/// What clients leave to those that follow them.
class HttpSessionTest : public QObject {
    Q_OBJECT
private:
    using Session = std::shared_ptr<HttpSession>;

    struct Requests {
        void add(const QByteArray &request) {
            const std::lock_guard lock(mutex);
            texts.append(request);
        }
        QByteArrayList taken() {
            const std::lock_guard lock(mutex);
            return std::exchange(texts, {});
        }
        QByteArray challenge() {
            const std::lock_guard lock(mutex);
            return asked;
        }
        void setChallenge(const QByteArray &challenge) {
            const std::lock_guard lock(mutex);
            asked = challenge;
        }

        std::mutex mutex;
        QByteArrayList texts;
        /// Of a server that accepts the password "secret"; empty if it asks for none.
        QByteArray asked;
    };

    EngineFuture m_future;
    const Session m_session = std::make_shared<HttpSession>();
    Requests m_requests;
    QString m_password = QStringLiteral("secret");
    std::atomic<int> m_questions = 0;

    static QByteArray basic(const QByteArray &password) {
        return "Authorization: Basic " + ("ida:" + password).toBase64();
    }

    HttpClient::Options options() {
        HttpClient::Options options;
        options.credential = [this](auto, const auto &) -> std::optional<UrlCredential> {
            ++m_questions;
            return UrlCredential{QStringLiteral("ida"), m_password};
        };
        return options;
    }

    /// Returns the status of the response, or 0.
    int get(HttpClient &client, const QString &URLText, const QByteArray &method = "GET") {
        const auto response = client.send({.method = method, .URL = QUrl(URLText)}, m_future);
        return response ? response->status : 0;
    }
    /// Does the same with a new client.
    int get(const QString &URLText, const QByteArray &method = "GET") {
        HttpClient client(options(), m_session);
        return get(client, URLText, method);
    }

    void answer(ScriptedServer::Connection &connection) {
        QByteArray request;
        while (!(request = connection.readRequest()).isEmpty()) {
            m_requests.add(request);
            const QByteArray challenge = m_requests.challenge();
            const bool isAccepted = challenge.isEmpty() || request.contains(basic("secret")) ||
                                    request.contains("Authorization: Digest");
            connection.answer(isAccepted ? QByteArray("200 OK")
                                         : "401 No\r\nWWW-Authenticate: " + challenge);
        }
    }
    ScriptedServer::Script script() {
        return [this](ScriptedServer::Connection &connection) { answer(connection); };
    }

private Q_SLOTS:
    void init() {
        m_session->closeConnections();
        m_session->forgetAuthentication();
        m_requests.taken();
        m_requests.setChallenge("Basic realm=\"x\"");
        m_password = QStringLiteral("secret");
        m_questions = 0;
    }

    void theNextClientUsesTheConnectionAndTheChallenge_data() {
        QTest::addColumn<QByteArray>("challenge");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("Basic") << QByteArray("Basic realm=\"x\"");
        QTest::newRow("Digest") << QByteArray("Digest realm=\"x\", nonce=\"n\", qop=\"auth\"");
    }

    void theNextClientUsesTheConnectionAndTheChallenge() {
        QFETCH(QByteArray, challenge);
        m_requests.setChallenge(challenge);
        const ScriptedServer server(script());
        QCOMPARE(get(server.URLText({})), 200);
        m_requests.taken();
        for (const char *count : {"nc=00000002", "nc=00000003"}) {
            m_questions = 0;
            QCOMPARE(get(server.URLText({})), 200);
            const QByteArrayList requests = m_requests.taken();
            QCOMPARE(requests.size(), 1);
            QCOMPARE(requests.first().contains("Authorization"), !challenge.isEmpty());
            QCOMPARE(requests.first().contains(count), challenge.startsWith("Digest"));
            // The session keeps no secret, so each client asks for it.
            QCOMPARE(m_questions, challenge.isEmpty() ? 0 : 1);
        }
        QCOMPARE(server.connections(), 1);
    }

    void aChangedPasswordIsUsedByTheNextClient() {
        const ScriptedServer server(script());
        QCOMPARE(get(server.URLText({})), 200);
        m_password = QStringLiteral("wrong");
        QCOMPARE(get(server.URLText({})), 401);
        m_requests.taken();
        m_password = QStringLiteral("secret");
        QCOMPARE(get(server.URLText({})), 200);
        // After a refusal, the server is waited for to ask.
        const QByteArrayList requests = m_requests.taken();
        QCOMPARE(requests.size(), 2);
        QVERIFY(!requests.first().contains("Authorization"));
    }

    void aCredentialForDigestIsNotSentWithBasic() {
        m_requests.setChallenge("Digest realm=\"x\", nonce=\"n\", qop=\"auth\"");
        const ScriptedServer server(script());
        HttpClient::Options options;
        options.credential = [](HttpAuthentication::Scheme scheme, const auto &) {
            return scheme == HttpAuthentication::Scheme::Digest
                       ? std::optional(
                             UrlCredential{QStringLiteral("ida"), QStringLiteral("secret")})
                       : std::nullopt;
        };
        HttpClient client(options, m_session);
        QCOMPARE(get(client, server.URLText({})), 200);
        // Another client finds that the server now asks differently.
        m_session->setAuthentication(QUrl(server.URLText({})),
                                     *HttpAuthentication::fromChallenges("Basic realm=\"x\""));
        m_requests.setChallenge("Basic realm=\"x\"");
        m_requests.taken();
        QCOMPARE(get(client, server.URLText({})), 401);
        for (const QByteArray &request : m_requests.taken()) {
            QVERIFY(!request.contains("Authorization"));
        }
    }

    void anotherServerGetsNoCredential() {
        const ScriptedServer server(script());
        const ScriptedServer other(script());
        QCOMPARE(get(server.URLText({})), 200);
        m_requests.taken();
        m_requests.setChallenge({});
        QCOMPARE(get(other.URLText({})), 200);
        QVERIFY(!m_requests.taken().first().contains("Authorization"));
    }

    void aPasswordIsTriedOnceByAllThreadsTogether_data() {
        QTest::addColumn<QString>("password");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("authorized");
        QTest::newRow("wrong") << QStringLiteral("wrong") << 401 << 1;
        QTest::newRow("right") << QStringLiteral("secret") << 200 << 6;
    }

    void aPasswordIsTriedOnceByAllThreadsTogether() {
        QFETCH(QString, password);
        QFETCH(int, expected);
        QFETCH(int, authorized);
        constexpr int count = 6;
        m_password = password;
        // No response is sent before all requests have arrived.
        std::latch everybody(count);
        std::atomic<int> arrived = 0;
        const ScriptedServer server(
            [&](ScriptedServer::Connection &connection) {
                m_requests.add(connection.readRequest());
                if (++arrived <= count) {
                    everybody.arrive_and_wait();
                }
                connection.answer("401 No\r\nWWW-Authenticate: Basic realm=\"x\"");
                answer(connection);
            },
            ScriptedServer::Order::AllAtOnce);
        HttpClient client(options(), m_session);
        std::atomic<int> asExpected = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i) {
            threads.emplace_back(
                [&] { asExpected += get(client, server.URLText({})) == expected ? 1 : 0; });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
        QCOMPARE(asExpected, count);
        const QByteArrayList requests = m_requests.taken();
        QCOMPARE(std::count_if(
                     requests.begin(), requests.end(),
                     [](const QByteArray &request) { return request.contains("Authorization"); }),
                 authorized);
        QCOMPARE(m_questions, 1);
    }

    void aConnectionThatTheServerHasClosedIsReplaced() {
        m_requests.setChallenge({});
        const ScriptedServer server([&](ScriptedServer::Connection &connection) {
            m_requests.add(connection.readRequest());
            connection.answer("200 OK");
            // Without the header field "Connection".
            connection.close();
        });
        for (const char *method : {"GET", "PUT", "DELETE", "MKCOL"}) {
            QCOMPARE(get(server.URLText({}), method), 200);
            QCOMPARE(m_requests.taken().size(), 1);
        }
        QCOMPARE(server.connections(), 4);
    }

    void aConnectionThatFailsEndsTheOthers() {
        m_requests.setChallenge({});
        std::atomic<bool> isFailing = false;
        const ScriptedServer server(
            [&](ScriptedServer::Connection &connection) {
                while (!connection.readRequest().isEmpty()) {
                    if (isFailing) {
                        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nx");
                        connection.close();
                    } else {
                        connection.answer("200 OK");
                    }
                }
            },
            ScriptedServer::Order::AllAtOnce);
        QCOMPARE(get(server.URLText({})), 200);
        auto kept = m_session->takeConnection();
        QVERIFY(kept);
        isFailing = true;
        QCOMPARE(get(server.URLText({})), 0);
        m_session->keepConnection(std::move(kept));
        QCOMPARE(get(server.URLText({})), 0);
        QVERIFY(!m_session->takeConnection());
    }

    void aCertificateThatIsNotTrustedAnyMoreEndsTheConnection_data() {
        QTest::addColumn<bool>("isAuthority");
        QTest::newRow("by the user") << false;
        QTest::newRow("by an authority") << true;
    }

    void aCertificateThatIsNotTrustedAnyMoreEndsTheConnection() {
        QFETCH(bool, isAuthority);
        const TestAuthority authority;
        std::optional<TrustedAuthority> trusted;
        if (isAuthority) {
            trusted.emplace(authority);
        }
        const WebDAVServer server({.authentication = WebDAVServer::Authentication::None,
                                   .identity = authority.issue(QStringLiteral("DNS:localhost"))});
        HttpClient::Options options;
        bool isTrusted = !isAuthority;
        options.trusts = [&](const auto &, const auto &) { return isTrusted; };
        const auto send = [&] {
            HttpClient client(options, m_session);
            return client.send({.method = "OPTIONS", .URL = QUrl(server.URLText({}))}, m_future);
        };
        QCOMPARE(code(send()), EngineErrorCode());
        QCOMPARE(code(send()), EngineErrorCode());
        isTrusted = false;
        trusted.reset();
        QCOMPARE(code(send()), EngineErrorCode::CertificateUntrusted);
        QVERIFY(!m_session->takeConnection());
    }

    void idleConnectionsAreLimited() {
        const auto room = std::make_shared<std::atomic<int>>(HttpSession::MostConnections + 1);
        HttpSession one(room);
        HttpSession other(room);
        for (size_t i = 0; i < HttpSession::MostConnections + 3; ++i) {
            one.keepConnection(std::make_unique<HttpConnection>());
            other.keepConnection(std::make_unique<HttpConnection>());
        }
        const auto taken = [](HttpSession &session) {
            size_t count = 0;
            while (session.takeConnection()) {
                ++count;
            }
            return count;
        };
        QCOMPARE(taken(one) + taken(other), HttpSession::MostConnections + 1);
        QCOMPARE(room->load(), int(HttpSession::MostConnections + 1));
    }

    void aConnectionIsIdleForALimitedTime() {
        HttpSession session(std::make_shared<std::atomic<int>>(1), std::chrono::milliseconds(0));
        session.keepConnection(std::make_unique<HttpConnection>());
        QVERIFY(!session.takeConnection());
        // There is room again.
        session.keepConnection(std::make_unique<HttpConnection>());
        session.closeExpiredConnections();
        QVERIFY(!session.takeConnection());
    }

    void aLocationHasASessionUntilItsAddressChanges() {
        HttpSessions sessions;
        const QString location = QStringLiteral("location");
        const QUrl address(QStringLiteral("https://ida@h/a"));
        const Session first = sessions.session(location, address);
        QCOMPARE(sessions.session(location, address), first);
        QVERIFY(sessions.session(QStringLiteral("other"), address) != first);
        for (const char *changed : {"https://ida@h/b", "https://eve@h/a", "https://ida@h:444/a"}) {
            const Session next = sessions.session(location, QUrl(QString::fromLatin1(changed)));
            QVERIFY(next != first);
            QCOMPARE(sessions.session(location, QUrl(QString::fromLatin1(changed))), next);
        }
        const Session last = sessions.session(location, address);
        sessions.forget(location);
        QVERIFY(sessions.session(location, address) != last);
        sessions.close();
        QVERIFY(sessions.session(location, address) != sessions.session(location, address));
    }
};

VELMORA_TEST(HttpSessionTest)
#include "HttpSessionTest.moc"
