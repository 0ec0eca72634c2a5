#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <functional>
#include <optional>

#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretBytes.h"

/// The tokens that authorize requests for an account (RFC 6749, sections 1.4 and 1.5).
///
/// They are stored only in the desktop's secret store: as a generic password of the service
/// "Velmora Dropbox", with the account's address as account.
struct DropboxTokens {
    SecretBytes access = {};
    /// Empty if there is none.
    SecretBytes refresh = {};
    /// When `access` expires; invalid if that is not known.
    QDateTime expiry = {};

    /// Parses the response of the token endpoint (RFC 6749, section 5.1). Returns an empty optional
    /// if it is not valid.
    static std::optional<DropboxTokens> fromAnswer(const QByteArray &answer);

    /// Returns the stored tokens of the account with the address `account`; empty if there are none
    /// or they are not valid. Returns an error if they cannot be read. Blocks for at most the
    /// timeout of the secret store. Thread-safe.
    static Expected<std::optional<DropboxTokens>> stored(const QString &account);
    /// Stores the tokens, replacing those of the account. Returns at once. Thread-safe.
    void store(const QString &account) const;

    /// Deletes the stored tokens of the account. Returns at once; `handler` is called later on the
    /// main thread, with an error unless the tokens are deleted or there are none.
    static void forget(const QString &account,
                       const std::function<void(const Expected<void> &forgotten)> &handler);

    /// Returns the value of the header field "Authorization" (RFC 6750, section 2.1).
    SecretBytes authorization() const;
    /// Returns whether `access` is known to have expired, or is about to.
    bool areExpired() const;
};
