#pragma once

#include "Host/QVDropboxSessionManager.h"
#include "Support/DropboxServer.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"

/// Base of tests against a DropboxServer, with a real keyring. Each test function has a new engine
/// and a new server with an account of its own, and fails if a request was wrong.
class DropboxTestCase : public QObject {
    Q_OBJECT
public:
    /// Returns a session for the account; for any account if `account` is empty.
    static std::shared_ptr<QVDropboxSession> newSession(const QString &account = {});
    /// Signs in to the account that is served. Throws std::runtime_error unless it is `account`.
    static void signIn(const QString &account);

protected Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

protected:
    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<DropboxServer> m_server;

private:
    int m_tests = 0;
};
