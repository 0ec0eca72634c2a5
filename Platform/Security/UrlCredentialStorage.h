#pragma once

#include <QtCore/QHash>
#include <functional>
#include <optional>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"
#include "Platform/Security/UrlCredential.h"
#include "Platform/Security/UrlProtectionSpace.h"

class SecretStore;
class Url;

/// The credentials of the user by protection space, kept in the desktop's Secret Service
/// (https://specifications.freedesktop.org/secret-service). A space has any number of credentials,
/// one for each user name, and may have a default one. Any thread.
///
/// Looking up takes a few seconds at the most; where the service does not answer by then, or has
/// nothing to answer with, what this process has set is found all the same. Setting returns at once
/// and is seen by all look-ups of this process from then on; the service is told behind the
/// caller's back and may ask the person to unlock it. Where that fails the credential is kept until
/// the process ends, and `SecretsNotKeptNotification` (see SecretStore.h) says so.
///
/// An absent space has no credentials, and setting one there does nothing.
class PLATFORM_EXPORT UrlCredentialStorage {
public:
    static UrlCredentialStorage &shared();
    /// `store` has to outlive the storage.
    explicit UrlCredentialStorage(SecretStore &store) : m_store(store) {}

    /// The credentials of `space` by user name; empty where there is none.
    QHash<QString, UrlCredential> credentialsForProtectionSpace(
        const std::optional<UrlProtectionSpace> &space) const;
    std::optional<UrlCredential> defaultCredentialForProtectionSpace(
        const std::optional<UrlProtectionSpace> &space) const;

    /// Returns the credential of the URL's user for `authenticationMethod` at the URL's server, or
    /// if there is none, the default credential there. The empty user of "//@host" is a user.
    /// Returns nothing for a nil URL.
    std::optional<UrlCredential> credentialForURL(const Url &URL,
                                                  const QString &authenticationMethod) const;
    /// Returns the credential for Basic, or if there is none, the one for Digest.
    std::optional<UrlCredential> credentialForURL(const Url &URL) const;
    /// Receives the credential, if there is one, or the reason why it cannot be read.
    using CredentialHandler =
        std::function<void(const Expected<std::optional<UrlCredential>> &credential)>;
    /// Finds the credential for Basic or Digest without waiting. Returns at once; see
    /// SecretStore::findLater for when `handler` is called.
    void findCredentialForURL(const Url &URL, const CredentialHandler &handler) const;

    /// Replaces the credential of the same user. One with Persistence::None is not stored, and
    /// changes nothing. A name with a NUL character is kept for this run only.
    void setCredentialForProtectionSpace(const UrlCredential &credential,
                                         const std::optional<UrlProtectionSpace> &space);
    /// The same; besides, it is the default credential of `space` from now on, as long as its own
    /// persistence says.
    void setDefaultCredentialForProtectionSpace(const UrlCredential &credential,
                                                const std::optional<UrlProtectionSpace> &space);

private:
    SecretStore &m_store;
};
