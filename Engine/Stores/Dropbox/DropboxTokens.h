#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QUrl>
#include <functional>
#include <optional>
#include <stop_token>

#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretBytes.h"

/// The tokens that authorize requests for an account (RFC 6749, sections 1.4 and 1.5).
///
/// They are stored only in the desktop's secret store: as a generic password of the service
/// "Velmora Dropbox", with the account's address as account.
struct DropboxTokens {
    /// Sent with every request. Not empty in tokens that were parsed.
    SecretBytes access = {};
    /// Gets new access tokens. Empty if there is none.
    SecretBytes refresh = {};
    /// When `access` expires; invalid if that is not known.
    QDateTime expiry = {};

    /// Parses the response of the token endpoint `server` (RFC 6749, section 5.1), which is not
    /// trusted. Fails with DropboxError::invalidValue() if there is no access token, a token has
    /// characters that cannot be sent in a header, or the type is another than "bearer" (in any
    /// case). `expiry` is computed with this computer's clock and at most ten years away.
    /// Thread-safe.
    static Expected<DropboxTokens> fromResponse(const QByteArray &response, const QUrl &server);

    /// Returns the stored tokens of the account with the address `account`; empty if there are
    /// none, they are not valid, or there is no password service. Returns an error of the code
    /// AccessDenied if they cannot be read, for example from a locked keyring. Blocks for at most
    /// the timeout of the secret store, or until `cancellation` is requested, so it must not be
    /// called on the main thread. Thread-safe.
    static Expected<std::optional<DropboxTokens>> stored(const QString &account,
                                                         const std::stop_token &cancellation = {});
    /// Stores the tokens, replacing those of the account. Returns at once; stored() finds them from
    /// then on. If the secret store fails, the user is notified once, and the tokens last until the
    /// program ends. Thread-safe.
    void store(const QString &account) const;

    /// Deletes the stored tokens of the account. Returns at once; `handler` is called later on the
    /// main thread, with an error unless the tokens are deleted or there are none. Must be called
    /// on the main thread. `handler` must not be empty. The tokens are not revoked at Dropbox.
    static void forget(const QString &account,
                       const std::function<void(const Expected<void> &forgotten)> &handler);

    /// Returns the value of the header field "Authorization" (RFC 6750, section 2.1).
    SecretBytes authorization() const;
    /// Returns whether `access` is known to have expired, or will within a minute, the time that a
    /// request may take to arrive. False if the expiry is not known; the server then decides.
    bool areExpired() const;
};
