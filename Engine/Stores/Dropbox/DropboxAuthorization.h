#pragma once

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"

/// One sign-in to Dropbox as RFC 8252 has it for programs on a person's own computer: the browser
/// shows Dropbox's page, and comes back to a loopback address with a code, which is exchanged for
/// tokens together with the proof that it is ours (RFC 7636, method S256).
class DropboxAuthorization {
public:
    struct Limits {
        /// Until the person has signed in.
        std::chrono::milliseconds person = std::chrono::minutes(10);
        HttpClient::Timeouts server = {};
    };

    /// `mainThread`: an object there; it must outlive this.
    DropboxAuthorization(QObject &mainThread, const Limits &limits);

    /// The whole sign-in: the account's address, under which its tokens are stored now. Blocks, on
    /// a worker thread; called once.
    Expected<QString> run(const EngineFuture &future);

private:
    Expected<DropboxTokens> tokens(const DropboxConfiguration &configuration,
                                   const EngineFuture &future);
    Expected<void> openBrowser(const QUrl &address, const EngineFuture &future);
    Expected<QString> accountAddress(const DropboxConfiguration &configuration,
                                     const DropboxTokens &tokens, const EngineFuture &future);

    QObject &m_mainThread;
    const Limits m_limits;
    DropboxConnection m_connection;
};
