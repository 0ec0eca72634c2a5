#pragma once

#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <stop_token>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"
#include "Platform/Security/UrlCredential.h"
#include "Platform/Security/UrlProtectionSpace.h"

class SecretStore;
class Url;

/// The credentials of the user by protection space, stored in the desktop's Secret Service
/// (https://specifications.freedesktop.org/secret-service). A space has any number of credentials,
/// one for each user name, and may have a default one. Thread-safe.
///
/// A lookup blocks for at most the timeout of the SecretStore; credentials set by this process are
/// found even if the service does not reply or is not available. Setting returns at once and is
/// visible to all later lookups of this process. The service is updated asynchronously and may
/// prompt the user to unlock it. If that fails, the credential is kept until the process ends and
/// `SecretsNotKeptNotification` (see SecretStore.h) is posted.
///
/// For an empty optional instead of a space, lookups find nothing and setting has no effect.
class PLATFORM_EXPORT UrlCredentialStorage {
public:
    /// Returns the storage of SecretStore::shared(). A storage has no state of its own.
    static UrlCredentialStorage &shared();
    /// `store` is not owned and must outlive the storage.
    explicit UrlCredentialStorage(SecretStore &store) : m_store(store) {}

    /// Returns the credentials of `space` by user name; empty if there are none. These lookups
    /// return an error if the credentials cannot be read, see SecretStore::find().
    Expected<QHash<QString, UrlCredential>> credentialsForProtectionSpace(
        const std::optional<UrlProtectionSpace> &space) const;
    /// Returns the default credential of `space`; empty if there is none.
    Expected<std::optional<UrlCredential>> defaultCredentialForProtectionSpace(
        const std::optional<UrlProtectionSpace> &space) const;

    /// Returns the credential of the URL's user for `authenticationMethod` at the URL's server, or
    /// if there is none, the default credential there. The empty user of "//@host" is a user.
    /// Returns nothing for a nil URL.
    Expected<std::optional<UrlCredential>> credentialForURL(
        const Url &URL, const QString &authenticationMethod) const;
    /// Returns the same; cancelled as SecretStore::find().
    Expected<std::optional<UrlCredential>> credentialForURL(
        const Url &URL, const QString &authenticationMethod,
        const std::stop_token &cancellation) const;
    /// Returns the credential for Basic, or if there is none, the one for Digest.
    Expected<std::optional<UrlCredential>> credentialForURL(const Url &URL) const;
    /// Returns the same; cancelled as SecretStore::find().
    Expected<std::optional<UrlCredential>> credentialForURL(
        const Url &URL, const std::stop_token &cancellation) const;
    /// Receives the credential, if there is one, or the reason why it cannot be read.
    using CredentialHandler =
        std::function<void(const Expected<std::optional<UrlCredential>> &credential)>;
    /// Finds the credential for Basic or Digest without waiting. Returns at once; see
    /// SecretStore::findLater for when `handler` is called.
    void findCredentialForURL(const Url &URL, const CredentialHandler &handler) const;

    /// Sets a credential, replacing that of the same user. One with Persistence::None is not stored
    /// and has no effect. One whose user name contains a NUL character is kept for this run only.
    void setCredentialForProtectionSpace(const UrlCredential &credential,
                                         const std::optional<UrlProtectionSpace> &space);
    /// Sets a credential as setCredentialForProtectionSpace() does and makes it the default
    /// credential of `space`, for as long as its persistence says.
    void setDefaultCredentialForProtectionSpace(const UrlCredential &credential,
                                                const std::optional<UrlProtectionSpace> &space);

    /// Receives user names, or the reason why they cannot be looked up.
    using UsersHandler = std::function<void(const Expected<QStringList> &users)>;
    /// Finds the users whose credentials for Basic are stored for the URL's server, without reading
    /// a password or asking the user to unlock anything. Returns at once; see
    /// SecretStore::findLater for when `handler` is called.
    void findUsersForURL(const Url &URL, const UsersHandler &handler) const;
    /// Receives an error unless the credentials are deleted.
    using RemovalHandler = std::function<void(const Expected<void> &removed)>;
    /// Deletes the credentials of the URL's user for Basic and Digest at its server; succeeds if
    /// there are none. Returns at once; see SecretStore::findLater for when `handler` is called.
    void removeCredentialForURL(const Url &URL, const RemovalHandler &handler);

private:
    SecretStore &m_store;
};
