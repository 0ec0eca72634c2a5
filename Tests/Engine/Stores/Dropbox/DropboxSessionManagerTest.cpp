#include "Engine/Stores/Dropbox/DropboxSessionManager.h"

#include <QtCore/QDirIterator>
#include <QtCore/QUrlQuery>
#include <QtNetwork/QTcpSocket>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Http/HttpError.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Security/SecretStore.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxTestCase.h"
#include "Support/Failure.h"
#include "Support/SetDefault.h"
#include "Support/TestMain.h"

namespace {

const QString AccountPath = QStringLiteral("/2/users/get_current_account");

/// What has become of one authorization.
struct Outcome {
    int calls = 0;
    QString email;
    std::optional<Error> error;
    bool isOnMainThread = false;

    QString description() const { return error ? error->localizedDescription : QString(); }
    EngineErrorCode code() const {
        return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
    }
};

QVDropboxSession::Handler keepIn(const std::shared_ptr<Outcome> &outcome) {
    return [outcome](const std::shared_ptr<PZDropboxAccountInfo> &account,
                     const std::optional<Error> &error) {
        ++outcome->calls;
        outcome->email = account ? account->email() : QString();
        outcome->error = error;
        outcome->isOnMainThread = QThread::currentThread() == qApp->thread();
    };
}

QString parameter(const QUrl &address, const char *name) {
    return QUrlQuery(address).queryItemValue(QString::fromLatin1(name), QUrl::FullyDecoded);
}

}  // namespace

/// Signing in over a real HTTP server, with a real keyring.
class DropboxSessionManagerTest : public DropboxTestCase {
    Q_OBJECT

    std::unique_ptr<DropboxBrowser> m_browser;
    std::shared_ptr<QVDropboxSession> m_session;

    static std::shared_ptr<Outcome> authorize(QVDropboxSession &session,
                                              const std::shared_ptr<PZFuture> &future) {
        const auto outcome = std::make_shared<Outcome>();
        session.authorizeWithFuture(future, keepIn(outcome));
        return outcome;
    }
    std::shared_ptr<Outcome> authorize() { return authorize(*m_session, PZFuture::future()); }
    /// The address of the loopback interface to which the browser is to come back.
    QUrl redirectAddress(const QList<QPair<QString, QString>> &parameters) const {
        QUrl address(parameter(m_browser->opened().last(), "redirect_uri"));
        QUrlQuery query;
        query.setQueryItems(parameters);
        address.setQuery(query);
        return address;
    }
    bool hasTokens(const QString &account) const {
        SecretStore::shared().finishWriting();
        return m_secrets->count({{QStringLiteral("service"), QStringLiteral("Velmora Dropbox")},
                                 {QStringLiteral("account"), account}}) > 0;
    }

private Q_SLOTS:
    void init() {
        DropboxTestCase::init();
        m_browser = std::make_unique<DropboxBrowser>();
        m_session = newSession();
    }

    void cleanup() {
        m_session.reset();
        m_browser.reset();
        DropboxTestCase::cleanup();
    }

    void signingInInTheBrowserMakesTheAccountKnown() {
        const auto outcome = authorize();
        QCOMPARE(outcome->calls, 0);
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->description(), QString());
        QCOMPARE(outcome->email, m_server->email());
        QVERIFY(outcome->isOnMainThread);
        QCOMPARE(m_browser->opened().size(), 1);
        QTRY_COMPARE(m_browser->statuses(), QList<int>{200});
        QVERIFY(m_browser->pages().first().contains(QStringLiteral("You can close this window")));
    }

    void theAccountOfALocationMaySignInAgain() {
        const auto session = newSession(m_server->email().toUpper());
        const auto outcome = authorize(*session, PZFuture::future());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, m_server->email());
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void anotherAccountThanThatOfTheLocationIsRefusedInWords() {
        const auto session = newSession(QStringLiteral("kim@example.org"));
        const auto outcome = authorize(*session, PZFuture::future());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, QString());
        QVERIFY(outcome->isOnMainThread);
        for (const QString &account : {QStringLiteral("kim@example.org"), m_server->email()}) {
            QVERIFY(outcome->description().contains(account));
        }
        QCOMPARE(m_host->application().presentedErrors().size(), 1);
        QCOMPARE(m_host->application().presentedErrors().first().localizedDescription,
                 outcome->description());
        QVERIFY(!hasTokens(m_server->email()));
    }

    void aRefusedAccountKeepsTheTokensOfItsOwnLocations() {
        const auto own = authorize();
        QTRY_COMPARE(own->calls, 1);
        const SecretBytes access = DropboxTokens::stored(m_server->email()).value()->access;
        const auto session = newSession(QStringLiteral("kim@example.org"));
        const auto refused = authorize(*session, PZFuture::future());
        QTRY_COMPARE(refused->calls, 1);
        QCOMPARE(refused->email, QString());
        const auto tokens = DropboxTokens::stored(m_server->email()).value();
        QVERIFY(tokens);
        QVERIFY(tokens->access == access);
    }

    void tokensAreInTheSecretStoreAndNowhereElse() {
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QVERIFY(hasTokens(m_server->email()));
        const auto tokens = DropboxTokens::stored(m_server->email()).value();
        QVERIFY(tokens);
        const QDateTime now = QDateTime::currentDateTimeUtc();
        QVERIFY(tokens->expiry > now.addSecs(3 * 3600) && tokens->expiry <= now.addSecs(14400));
        const QStringList secrets = m_server->secrets();
        QVERIFY(secrets.contains(tokens->access.toText()));
        QVERIFY(secrets.contains(tokens->refresh.toText()));
        QDirIterator files(QFileInfo(m_host->directory()).path(), QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories);
        QStringList paths{QSettings().fileName()};
        while (files.hasNext()) {
            paths.append(files.next());
        }
        QVERIFY(paths.size() > 1);
        for (const QString &path : std::as_const(paths)) {
            QFile file(path);
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
            const QByteArray contents = file.readAll();
            for (const QString &secret : secrets) {
                QVERIFY2(!contents.contains(secret.toUtf8()), qPrintable(path));
            }
        }
    }

    void signingInAgainReplacesTheTokens() {
        const auto once = authorize();
        QTRY_COMPARE(once->calls, 1);
        const SecretBytes first = DropboxTokens::stored(m_server->email()).value()->access;
        const auto twice = authorize();
        QTRY_COMPARE(twice->calls, 1);
        QVERIFY(!(DropboxTokens::stored(m_server->email()).value()->access == first));
    }

    void everyAuthorizationHasAProofAndAStateOfItsOwn() {
        for (int i = 0; i < 2; ++i) {
            const auto outcome = authorize();
            QTRY_COMPARE(outcome->calls, 1);
        }
        const QList<QUrl> opened = m_browser->opened();
        QCOMPARE(opened.size(), 2);
        for (const char *name : {"state", "code_challenge"}) {
            QVERIFY(parameter(opened[0], name) != parameter(opened[1], name));
        }
    }

    void aRefusalIsAnError() {
        m_server->setUser(DropboxServer::User::Refuses);
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, QString());
        QCOMPARE(outcome->code(), EngineErrorCode::AccessDenied);
        QCOMPARE(outcome->description(),
                 QStringLiteral(
                     "Access to Dropbox was denied in the web browser. Try again and allow it."));
        QVERIFY(outcome->isOnMainThread);
        QCOMPARE(m_server->count(DropboxServer::tokenPath()), 0);
        QTRY_COMPARE(m_browser->statuses(), QList<int>{200});
        QVERIFY(!hasTokens(m_server->email()));
    }

    void aRedirectWithNeitherCodeNorErrorIsAnError() {
        m_server->setUser(DropboxServer::User::GetsLost);
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->description(),
                 QStringLiteral("The web browser sent an invalid response. Sign in again."));
    }

    void aRedirectWithAnotherStateIsRejected() {
        m_browser->onlyRemember();
        const auto outcome = authorize();
        QTRY_COMPARE(m_browser->opened().size(), 1);
        const QString state = parameter(m_browser->opened().first(), "state");
        const QPair<QString, QString> code{QStringLiteral("code"), QStringLiteral("forged")};
        const QString key = QStringLiteral("state");
        m_browser->load(redirectAddress({code}));
        QTRY_COMPARE(m_browser->statuses().size(), 1);
        m_browser->load(redirectAddress({code, {key, QString()}}));
        m_browser->load(redirectAddress({code, {key, state.chopped(1)}}));
        m_browser->load(redirectAddress({code, {key, state}, {key, QStringLiteral("x")}}));
        m_browser->load(
            redirectAddress({{QStringLiteral("error"), QStringLiteral("access_denied")}}));
        QTRY_COMPARE(m_browser->statuses(), QList<int>(5, 400));
        QCOMPARE(outcome->calls, 0);
        m_browser->load(m_browser->opened().first());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, m_server->email());
    }

    void aForgedCodeIsNotTakenByDropbox() {
        m_server->setAnswer(DropboxServer::tokenPath(), 400, R"({"error":"invalid_grant"})");
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::AccessDenied);
        QCOMPARE(outcome->description(),
                 QStringLiteral("Dropbox rejected the sign-in. Try again."));
    }

    void otherRequestsToTheRedirectAddressAreRejected() {
        m_browser->onlyRemember();
        const auto outcome = authorize();
        QTRY_COMPARE(m_browser->opened().size(), 1);
        const QUrl address = redirectAddress({});
        QTcpSocket idle;
        idle.connectToHost(address.host(), static_cast<quint16>(address.port()));
        QVERIFY(idle.waitForConnected());
        m_browser->load(address.resolved(QUrl(QStringLiteral("/favicon.ico"))));
        QTRY_COMPARE(m_browser->statuses(), QList<int>{404});
        const QByteArray garbage[] = {"POST /dropbox?state=x HTTP/1.1\r\n\r\n", "\r\n\r\n",
                                      QByteArray(100, '\0') + "\r\n\r\n", "GET /dropbox\r\n\r\n",
                                      QByteArray(20000, 'x')};
        for (const QByteArray &bytes : garbage) {
            QTcpSocket socket;
            socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
            QVERIFY(socket.waitForConnected());
            socket.write(bytes);
            QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
            QVERIFY(!socket.readAll().startsWith("HTTP/1.1 200"));
        }
        QCOMPARE(outcome->calls, 0);
        m_browser->load(m_browser->opened().first());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, m_server->email());
    }

    void manyIdleConnectionsDoNotBlockTheRedirect() {
        m_browser->onlyRemember();
        const auto outcome = authorize();
        QTRY_COMPARE(m_browser->opened().size(), 1);
        const QUrl address = redirectAddress({});
        std::vector<std::unique_ptr<QTcpSocket>> sockets;
        for (int i = 0; i < 50; ++i) {
            sockets.push_back(std::make_unique<QTcpSocket>());
            sockets.back()->connectToHost(address.host(), static_cast<quint16>(address.port()));
            QVERIFY(sockets.back()->waitForConnected());
        }
        m_browser->load(m_browser->opened().first());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, m_server->email());
    }

    void theRedirectAddressIsServedForJustAsLong() {
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        const QUrl address = redirectAddress({});
        QTcpSocket late;
        late.connectToHost(address.host(), static_cast<quint16>(address.port()));
        QVERIFY(!late.waitForConnected());
    }

    void theRedirectPortCanBeConfigured() {
        QTcpServer free;
        QVERIFY(free.listen(QHostAddress::LocalHost));
        const quint16 port = free.serverPort();
        setDefault(DropboxConfiguration::RedirectPortDefault, port);
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QVERIFY2(outcome->description().startsWith(
                     QStringLiteral("The response of the web browser cannot be received: ")),
                 qPrintable(outcome->description()));
        QVERIFY(m_browser->opened().isEmpty());
        free.close();
        const auto second = authorize();
        QTRY_COMPARE(second->calls, 1);
        QCOMPARE(second->email, m_server->email());
        QCOMPARE(redirectAddress({}).port(), port);
    }

    void aRedirectPortThatIsNoneIsRefused() {
        for (const QString &port :
             {QStringLiteral("65536"), QStringLiteral("-1"), QStringLiteral("port")}) {
            setDefault(DropboxConfiguration::RedirectPortDefault, port);
            const auto configuration = DropboxConfiguration::current();
            QVERIFY2(description(configuration).contains(port), qPrintable(port));
        }
    }

    void cancellingTheFutureEndsIt() {
        m_server->setUser(DropboxServer::User::LooksAway);
        const auto future = PZFuture::future();
        const auto outcome = authorize(*m_session, future);
        QTRY_COMPARE(m_browser->opened().size(), 1);
        QCOMPARE(outcome->calls, 0);
        future->cancel();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::Cancelled);
        QVERIFY(outcome->isOnMainThread);
        future->cancel();
        QCoreApplication::processEvents();
        QCOMPARE(outcome->calls, 1);
    }

    void cancellingWhileDropboxIsAskedEndsItToo_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("token") << DropboxServer::tokenPath();
        QTest::newRow("account") << AccountPath;
    }

    void cancellingWhileDropboxIsAskedEndsItToo() {
        QFETCH(QString, path);
        m_server->setTrouble(path, DropboxServer::Trouble::Stalls);
        const auto future = PZFuture::future();
        const auto outcome = authorize(*m_session, future);
        QTRY_COMPARE(m_server->count(path), 1);
        future->cancel();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::Cancelled);
        QVERIFY(!hasTokens(m_server->email()));
    }

    void aCancelledFutureStartsNoAuthorization() {
        const auto future = PZFuture::future();
        future->cancel();
        const auto outcome = authorize(*m_session, future);
        QCOMPARE(outcome->calls, 0);
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::Cancelled);
        QVERIFY(m_browser->opened().isEmpty());
    }

    void theSameFutureServesOneAuthorizationAfterTheOther() {
        const auto future = PZFuture::future();
        m_server->setUser(DropboxServer::User::Refuses);
        const auto refused = authorize(*m_session, future);
        QTRY_COMPARE(refused->calls, 1);
        m_server->setUser(DropboxServer::User::SignsIn);
        const auto accepted = authorize(*m_session, future);
        QTRY_COMPARE(accepted->calls, 1);
        QCOMPARE(accepted->email, m_server->email());
        m_server->setUser(DropboxServer::User::LooksAway);
        const auto cancelled = authorize(*m_session, future);
        QTRY_COMPARE(m_browser->opened().size(), 3);
        future->cancel();
        QTRY_COMPARE(cancelled->calls, 1);
        QCOMPARE(cancelled->code(), EngineErrorCode::Cancelled);
        QCOMPARE(refused->calls + accepted->calls, 2);
    }

    void oneAuthorizationDoesNotWaitForAnother() {
        m_browser->onlyRemember();
        QList<std::shared_ptr<Outcome>> waiting;
        for (int i = 1; i <= 5; ++i) {
            waiting.append(authorize());
            QTRY_COMPARE(m_browser->opened().size(), i);
        }
        m_browser->load(m_browser->opened().last());
        QTRY_COMPARE(waiting.last()->calls, 1);
        QCOMPARE(waiting.first()->calls, 0);
        m_browser->load(m_browser->opened().first());
        QTRY_COMPARE(waiting.first()->calls, 1);
        QCOMPARE(waiting.first()->email, m_server->email());
    }

    void signingInHasATimeout() {
        m_server->setUser(DropboxServer::User::LooksAway);
        DropboxSessionManager manager({.user = std::chrono::milliseconds(1)});
        const auto outcome = authorize(*manager.sessionWithURL(Url()), PZFuture::future());
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->description(),
                 QStringLiteral("The sign-in to Dropbox timed out. Try again."));
    }

    void destroyingTheManagerCallsPendingHandlers() {
        m_browser->onlyRemember();
        auto manager = std::make_unique<DropboxSessionManager>();
        const auto outcome = authorize(*manager->sessionWithURL(Url()), PZFuture::future());
        QTRY_COMPARE(m_browser->opened().size(), 1);
        manager.reset();
        QCOMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::Cancelled);
        QVERIFY(outcome->isOnMainThread);
    }

    void aFailureOfDropboxIsReportedOnceAndNothingIsKept_data() {
        using Trouble = DropboxServer::Trouble;
        QTest::addColumn<QString>("path");
        QTest::addColumn<Trouble>("trouble");
        QTest::addColumn<QString>("text");
        const std::tuple<const char *, Trouble, const char *> troubles[] = {
            {"stalls", Trouble::Stalls, "does not respond"},
            {"garbage", Trouble::AnswersGarbage, "sent an invalid response"},
            {"other JSON", Trouble::AnswersBesidesTheQuestion, "sent an invalid response"},
            {"breaks down", Trouble::BreaksDown, "reported an internal error (HTTP 500)"},
            {"hangs up", Trouble::HangsUp, "closed the connection"},
        };
        for (const auto &[name, trouble, text] : troubles) {
            QTest::addRow("token %s", name)
                << DropboxServer::tokenPath() << trouble << QString::fromLatin1(text);
            QTest::addRow("account %s", name)
                << AccountPath << trouble << QString::fromLatin1(text);
        }
    }

    void aFailureOfDropboxIsReportedOnceAndNothingIsKept() {
        QFETCH(QString, path);
        QFETCH(DropboxServer::Trouble, trouble);
        QFETCH(QString, text);
        m_server->setTrouble(path, trouble);
        const std::chrono::milliseconds timeout(trouble == DropboxServer::Trouble::Stalls ? 100
                                                                                          : 30000);
        auto manager = std::make_unique<DropboxSessionManager>(
            DropboxAuthorization::Limits{.server = {.idle = timeout}});
        const auto outcome = authorize(*manager->sessionWithURL(Url()), PZFuture::future());
        QTRY_COMPARE(outcome->calls, 1);
        manager.reset();
        QCoreApplication::processEvents();
        QCOMPARE(outcome->calls, 1);
        QCOMPARE(outcome->code(), EngineErrorCode::StoreUnreachable);
        QVERIFY2(outcome->description().contains(text), qPrintable(outcome->description()));
        QVERIFY(!hasTokens(m_server->email()));
    }

    void tooManyRequestsAreRepeatedWhenDropboxSaysSo() {
        m_server->limitRate(AccountPath, 1, "1");
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->email, m_server->email());
        QCOMPARE(m_server->count(AccountPath), 2);
    }

    void withoutAnApplicationKeyItSaysSo() {
        removeDefault(DropboxConfiguration::ApplicationKeyDefault);
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->description(),
                 QStringLiteral("Dropbox cannot be used because no application key is configured. "
                                "Velmora’s documentation describes how to set one."));
        QVERIFY(m_browser->opened().isEmpty());
    }

    void addressesThatAreNotSecureAreRefused_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isTaken");
        QTest::newRow("another computer") << QStringLiteral("http://example.com/2") << false;
        QTest::newRow("looks like this one") << QStringLiteral("http://localhost.example") << false;
        QTest::newRow("another scheme") << QStringLiteral("ftp://127.0.0.1/2") << false;
        QTest::newRow("no host") << QStringLiteral("https:/2") << false;
        QTest::newRow("no URL") << QStringLiteral("https://a b/") << false;
        QTest::newRow("a password") << QStringLiteral("https://me:pw@example.com/2") << false;
        QTest::newRow("https") << QStringLiteral("https://example.com/2") << true;
        QTest::newRow("IPv4") << QStringLiteral("http://127.0.0.2:80/2") << true;
        QTest::newRow("IPv6") << QStringLiteral("http://[::1]/2") << true;
        QTest::newRow("by name") << QStringLiteral("http://localhost:8080/2") << true;
    }

    void addressesThatAreNotSecureAreRefused() {
        QFETCH(QString, address);
        QFETCH(bool, isTaken);
        for (const QString &key :
             {DropboxConfiguration::AuthorizeAddressDefault,
              DropboxConfiguration::TokenAddressDefault, DropboxConfiguration::APIAddressDefault,
              DropboxConfiguration::ContentAddressDefault}) {
            m_server->configure();
            setDefault(key, address);
            const Expected<DropboxConfiguration> configuration = DropboxConfiguration::current();
            QCOMPARE(configuration.has_value(), isTaken);
            QVERIFY(!description(configuration).contains(QStringLiteral("pw")));
        }
    }

    void withoutConfigurationItIsDropboxItself() {
        DropboxServer::forget();
        setDefault(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("key"));
        const Expected<DropboxConfiguration> result = DropboxConfiguration::current();
        const auto configuration = result.value();
        QCOMPARE(configuration.authorizeAddress,
                 QUrl(QStringLiteral("https://www.dropbox.com/oauth2/authorize")));
        QCOMPARE(configuration.tokenAddress,
                 QUrl(QStringLiteral("https://api.dropboxapi.com/oauth2/token")));
        QCOMPARE(configuration.APIAddress, QUrl(QStringLiteral("https://api.dropboxapi.com/2")));
        QCOMPARE(configuration.contentAddress,
                 QUrl(QStringLiteral("https://content.dropboxapi.com/2")));
        QCOMPARE(configuration.redirectPort, 0);
    }

    void onlyTokensThatAHeaderCanCarryAreTaken_data() {
        QTest::addColumn<QByteArray>("access");
        QTest::addColumn<QByteArray>("refresh");
        QTest::addColumn<QString>("invalid");
        const QString accessKey = QStringLiteral("access_token");
        QTest::newRow("printable") << QByteArray("!a~") << QByteArray("r") << QString();
        QTest::newRow("no refresh token") << QByteArray("a") << QByteArray() << QString();
        QTest::newRow("no access token") << QByteArray() << QByteArray("r") << accessKey;
        QTest::newRow("blank") << QByteArray("a b") << QByteArray("r") << accessKey;
        QTest::newRow("line break") << QByteArray("a\\r\\nX: y") << QByteArray("r") << accessKey;
        QTest::newRow("DEL") << QByteArray("a\x7f") << QByteArray("r") << accessKey;
        QTest::newRow("not ASCII") << QByteArray("\xc3\xa4") << QByteArray("r") << accessKey;
        QTest::newRow("blank in the refresh token")
            << QByteArray("a") << QByteArray("r s") << QStringLiteral("refresh_token");
    }
    void onlyTokensThatAHeaderCanCarryAreTaken() {
        QFETCH(QByteArray, access);
        QFETCH(QByteArray, refresh);
        QFETCH(QString, invalid);
        const QUrl server(QStringLiteral("https://server.example/token"));
        const auto tokens =
            DropboxTokens::fromResponse(R"({"token_type":"bearer","access_token":")" + access +
                                            R"(","refresh_token":")" + refresh + R"("})",
                                        server);
        QCOMPARE(tokens.has_value(), invalid.isEmpty());
        if (tokens) {
            QCOMPARE(tokens->access, access);
        } else {
            QCOMPARE(tokens.error(), HttpError::invalidResponse(server));
            QVERIFY2(tokens.error().details.contains(u'“' + invalid + u'”'),
                     qPrintable(tokens.error().details));
        }
    }

    void tokensOfAnotherTypeAreRefused() {
        const auto tokens =
            DropboxTokens::fromResponse(R"({"token_type":"mac","access_token":"a"})",
                                        QUrl(QStringLiteral("https://a.example")));
        QVERIFY(!tokens);
        QVERIFY(tokens.error().details.contains(QStringLiteral("token_type")));
    }

    void withoutABrowserItSaysSo() {
        // Without a desktop there is none for any scheme that nobody has taken over.
        setDefault(DropboxConfiguration::AuthorizeAddressDefault,
                   QStringLiteral("https://127.0.0.1/authorize"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*openUrl.*")));
        const auto outcome = authorize();
        QTRY_COMPARE(outcome->calls, 1);
        QCOMPARE(outcome->description(),
                 QStringLiteral("No web browser could be opened to sign in to Dropbox. Set a "
                                "default web browser and try again."));
    }
};

VELMORA_TEST(DropboxSessionManagerTest)
#include "DropboxSessionManagerTest.moc"
