#include "Support/DropboxTestCase.h"

#include <QtTest/QTest>
#include <stdexcept>

#include "Support/DropboxBrowser.h"

std::shared_ptr<QVDropboxSession> DropboxTestCase::newSession(const QString &account) {
    const Url URL =
        account.isEmpty() ? Url() : Url::fromString(QLatin1StringView("dropbox://") + account);
    return requiredHostClass<QVDropboxSessionManager>().sessionWithURL(URL);
}

void DropboxTestCase::signIn(const QString &account) {
    const DropboxBrowser browser;
    const auto signedIn = std::make_shared<std::optional<QString>>();
    newSession()->authorizeWithFuture(
        PZFuture::future(),
        [signedIn](const std::shared_ptr<PZDropboxAccountInfo> &info,
                   const std::optional<Error> &) { *signedIn = info ? info->email() : QString(); });
    if (!QTest::qWaitFor([&] { return signedIn->has_value(); }) || *signedIn != account) {
        throw std::runtime_error("cannot sign in to Dropbox");
    }
}

void DropboxTestCase::initTestCase() {
    m_secrets = std::make_unique<SecretService>();
}

void DropboxTestCase::cleanupTestCase() {
    m_secrets.reset();
}

void DropboxTestCase::init() {
    m_host = std::make_unique<TestHost>();
    m_server = std::make_unique<DropboxServer>();
    m_server->setEmail(QStringLiteral("test%1@example.com").arg(++m_tests));
    m_server->configure();
}

void DropboxTestCase::cleanup() {
    m_host.reset();
    const QStringList violations = m_server->violations();
    m_server.reset();
    DropboxServer::forget();
    QCOMPARE(violations, QStringList());
}
