#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <optional>

/// What an account's requests are authorized with (RFC 6749, 1.4 and 1.5). A value.
///
/// They are kept nowhere but in the desktop's secret store: as a generic password of the service
/// "Velmora Dropbox", under the account's address.
struct DropboxTokens {
    QByteArray access = {};
    /// Empty where there is none.
    QByteArray refresh = {};
    /// When `access` ends; invalid where that is not known.
    QDateTime expiry = {};

    /// From the answer of the token endpoint (RFC 6749, 5.1); empty optional where it is none.
    static std::optional<DropboxTokens> fromAnswer(const QByteArray &answer);

    /// Those of the account with the address `account`; empty optional where there are none or they
    /// cannot be read. May wait for the secret store. Any thread, as is the next.
    static std::optional<DropboxTokens> stored(const QString &account);
    /// Returns at once.
    void store(const QString &account) const;

    /// Whether `access` is known to have ended, or is about to.
    bool areExpired() const;
};
