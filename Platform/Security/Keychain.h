#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <stop_token>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"
#include "Platform/Security/SecretBytes.h"

class SecretStore;

/// Generic passwords of the user: secrets identified by service and account, stored in the
/// desktop's Secret Service. Thread-safe. Timeouts, asynchronous writing, and the behavior without
/// a service are those of SecretStore.
class PLATFORM_EXPORT Keychain {
public:
    /// Returns the keychain of SecretStore::shared(). A keychain has no state of its own.
    static Keychain &shared();
    /// `store` is not owned and must outlive the keychain.
    explicit Keychain(SecretStore &store) : m_store(store) {}

    /// Adds the item of `service` and `account`, or replaces its password, which may be any bytes.
    /// Returns at once. If it cannot be stored durably, see SecretsNotKeptNotification.
    void setPassword(const QString &service, const QString &account, const SecretBytes &password);

    /// Returns the accounts of the items of `service`, in undefined order, with duplicates if
    /// several items have the same account. Only attributes are read, so the accounts of a locked
    /// keyring are returned too, and the user is not asked to unlock it. Items without an account
    /// are omitted. Returns an error if the items cannot be looked up. Blocks as
    /// SecretStore::findAttributes() does.
    Expected<QStringList> accounts(const QString &service) const;
    /// Receives the accounts, or the reason why they cannot be looked up.
    using AccountsHandler = std::function<void(const Expected<QStringList> &accounts)>;
    /// Finds the same accounts asynchronously. Returns at once; see SecretStore::findLater() for
    /// when `handler` is called.
    void findAccounts(const QString &service, const AccountsHandler &handler) const;
    /// Returns the password of the first item of `service` and `account`, or an empty optional if
    /// there is none. Returns an error if it cannot be read. Blocks as SecretStore::find().
    Expected<std::optional<SecretBytes>> password(const QString &service,
                                                  const QString &account) const;
    /// Returns the same; cancelled as SecretStore::find().
    Expected<std::optional<SecretBytes>> password(const QString &service, const QString &account,
                                                  const std::stop_token &cancellation) const;

    /// Receives whether an item was deleted: false if there is none. An error if that is not known
    /// or the item could not be deleted.
    using RemovalHandler = std::function<void(const Expected<bool> &isRemoved)>;
    /// Deletes the first item of `service` and `account`, both in UTF-8; other items with the same
    /// two remain. Returns at once; `handler` is called as that of findAccounts(). For bytes that
    /// are not valid UTF-8 there is no item. `handler` must not be empty.
    void removeFirstLater(const QByteArray &service, const QByteArray &account,
                          const RemovalHandler &handler);

private:
    SecretStore &m_store;
};
