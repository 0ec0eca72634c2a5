#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <optional>

/// The tokens that authorize requests for an account (RFC 6749, sections 1.4 and 1.5).
///
/// They are stored only in the desktop's secret store: as a generic password of the service
/// "Velmora Dropbox", with the account's address as account.
struct DropboxTokens {
    QByteArray access = {};
    /// Empty if there is none.
    QByteArray refresh = {};
    /// When `access` expires; invalid if that is not known.
    QDateTime expiry = {};

    /// Parses the response of the token endpoint (RFC 6749, section 5.1). Returns an empty optional
    /// if it is not valid.
    static std::optional<DropboxTokens> fromAnswer(const QByteArray &answer);

    /// Returns the stored tokens of the account with the address `account`; empty if there are none
    /// or they cannot be read. Blocks for at most the timeout of the secret store. Thread-safe.
    static std::optional<DropboxTokens> stored(const QString &account);
    /// Stores the tokens, replacing those of the account. Returns at once. Thread-safe.
    void store(const QString &account) const;

    /// Returns whether `access` is known to have expired, or is about to.
    bool areExpired() const;
};
