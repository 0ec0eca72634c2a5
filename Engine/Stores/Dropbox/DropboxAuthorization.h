#pragma once

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"

/// One sign-in to Dropbox as described in RFC 8252 for native programs: the browser shows Dropbox's
/// page and is redirected to a loopback address with a code, which is exchanged for tokens. The
/// exchange is protected by PKCE (RFC 7636, method S256).
class DropboxAuthorization {
public:
    /// The account that the user has signed in to. Any account can be chosen in the browser, so the
    /// caller must compare the address before it stores the tokens.
    struct SignIn {
        /// Its e-mail address.
        QString address = {};
        /// Not stored yet.
        DropboxTokens tokens = {};
    };
    /// The timeouts of a sign-in. `server` applies to each of its requests to Dropbox.
    struct Limits {
        /// Maximum time for the user to sign in.
        std::chrono::milliseconds user = std::chrono::minutes(10);
        HttpClient::Timeouts server = {};
    };

    /// The main thread, on which the browser is opened, must run its event loop during run(); it
    /// need not wait for this object.
    explicit DropboxAuthorization(const Limits &limits);

    /// Performs the whole sign-in. Blocks until the user has signed in, the timeout has expired or
    /// `future` is cancelled, which takes effect soon; must be called once, on a worker thread.
    /// Closing the page in the browser is not noticed: it ends with the timeout.
    ///
    /// Errors: AccessDenied if the user refused, the time expired, or Dropbox rejected the code;
    /// StoreUnreachable if the configuration is not valid, no browser can be opened, the port is
    /// used, or Dropbox cannot be reached; and Cancelled. The tokens that a failed sign-in has
    /// received are discarded, not revoked.
    Expected<SignIn> run(const EngineFuture &future);

private:
    /// Lets the user sign in, and returns the tokens.
    Expected<DropboxTokens> tokens(const DropboxConfiguration &configuration,
                                   const EngineFuture &future);
    /// Opens the browser on the main thread and waits for that.
    Expected<void> openBrowser(const QUrl &address, const EngineFuture &future);
    /// Requests the address of the account from the server.
    Expected<QString> accountAddress(const DropboxConfiguration &configuration,
                                     const DropboxTokens &tokens, const EngineFuture &future);

    const Limits m_limits;
    DropboxConnection m_connection;
};
