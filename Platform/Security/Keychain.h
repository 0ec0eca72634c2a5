#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <functional>
#include <optional>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

class SecretStore;

/// Generic passwords of the user: secrets by service and account, kept in the desktop's Secret
/// Service. Any thread. Time limits, what a setter does, and what is done without a service are as
/// in UrlCredentialStorage.
class PLATFORM_EXPORT Keychain {
public:
    static Keychain &shared();
    /// `store` has to outlive the keychain.
    explicit Keychain(SecretStore &store) : m_store(store) {}

    /// Adds the item of `service` and `account`, or replaces its password, which may be any bytes.
    /// Returns at once.
    void setPassword(const QString &service, const QString &account, const QByteArray &password);

    /// The accounts of the items of `service`, in no particular order, an account twice where two
    /// items have it. Only attributes are read: a locked keyring names its accounts too, and the
    /// user is not asked to unlock it. Items without an account are left out. Empty optional where
    /// the items cannot be looked up.
    std::optional<QStringList> accounts(const QString &service) const;
    /// Receives the accounts, or the reason why they cannot be looked up.
    using AccountsHandler = std::function<void(const Expected<QStringList> &accounts)>;
    /// Finds the same accounts without waiting. Returns at once; see SecretStore::findLater for
    /// when `handler` is called.
    void findAccounts(const QString &service, const AccountsHandler &handler) const;
    /// The password of the first item of `service` and `account`; empty optional where there is no
    /// such item or it cannot be read.
    std::optional<QByteArray> password(const QString &service, const QString &account) const;

    /// Deletes the first item of `service` and `account`, both in UTF-8; others with the same two
    /// stay. Returns when that is done: false where there is no such item, where it cannot be
    /// deleted in time, and where the bytes are not valid UTF-8.
    bool removeFirst(const QByteArray &service, const QByteArray &account);

private:
    SecretStore &m_store;
};
