#include "Platform/Security/UrlCredentialStorage.h"

#include <algorithm>
#include <functional>

#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/Url.h"
#include "Platform/Security/SecretNames.h"
#include "Platform/Security/SecretStore.h"

namespace {

const QByteArray UserAttribute = QByteArrayLiteral("user");

/// All items have the same attributes, including one for a missing realm, because the Secret
/// Service finds and replaces items by the attributes present, not by those missing.
SecretAttributes spaceAttributes(const UrlProtectionSpace &space, const char *schema) {
    return {{SchemaAttribute, secretSchema(schema)},
            {"host", space.host.toUtf8()},
            {"port", QByteArray::number(space.port)},
            {"protocol", space.protocol.toUtf8()},
            {"has-realm", space.realm ? "yes" : "no"},
            {"realm", space.realm.value_or(QString()).toUtf8()},
            {"authentication-method", space.authenticationMethod.toUtf8()}};
}

SecretAttributes credentialAttributes(const UrlProtectionSpace &space) {
    return spaceAttributes(space, "UrlCredential");
}

/// Returns the attributes of the item that stores, instead of a password, the user name of the
/// default credential.
SecretAttributes defaultUserAttributes(const UrlProtectionSpace &space) {
    return spaceAttributes(space, "UrlCredential.DefaultUser");
}

SecretKeeping keepingOf(const UrlCredential &credential) {
    return credential.persistence == UrlCredential::Persistence::Permanent
               ? SecretKeeping::Permanent
               : SecretKeeping::ThisRun;
}

using Credentials = QHash<QString, UrlCredential>;
using Credential = std::optional<UrlCredential>;

/// Finds the items that have all of the attributes.
using Finder = std::function<Expected<QList<StoredSecret>>(const SecretAttributes &attributes)>;

Finder finder(SecretStore &store, const std::stop_token &cancellation = {}) {
    return [&store, cancellation](const SecretAttributes &attributes) {
        return store.find(attributes, cancellation);
    };
}

Finder finder(const QList<StoredSecret> &items) {
    return [items](const SecretAttributes &attributes) {
        QList<StoredSecret> found = items;
        found.removeIf([&](const StoredSecret &item) {
            return !std::includes(item.attributes.begin(), item.attributes.end(),
                                  attributes.begin(), attributes.end());
        });
        return Expected<QList<StoredSecret>>(found);
    };
}

Credentials credentialsOf(const QList<StoredSecret> &items) {
    Credentials credentials;
    for (const StoredSecret &item : items) {
        const auto user = item.attributes.find(UserAttribute);
        if (user != item.attributes.end()) {
            const UrlCredential credential{
                .user = QString::fromUtf8(user->second),
                .password = item.secret,
                .persistence = item.keeping == SecretKeeping::ThisRun
                                   ? UrlCredential::Persistence::ForSession
                                   : UrlCredential::Persistence::Permanent};
            credentials.insert(credential.user, credential);
        }
    }
    return credentials;
}

Credential credentialOfUser(const Credentials &credentials, const QString &user) {
    const auto found = credentials.find(user);
    return found == credentials.end() ? std::nullopt : std::optional(*found);
}

Expected<Credentials> credentialsIn(const Finder &find, const UrlProtectionSpace &space) {
    return find(credentialAttributes(space)).map(credentialsOf);
}

Expected<Credential> defaultCredentialIn(const Finder &find, const UrlProtectionSpace &space) {
    return find(defaultUserAttributes(space))
        .and_then([&](const QList<StoredSecret> &users) -> Expected<Credential> {
            if (users.isEmpty()) {
                return std::nullopt;
            }
            return credentialsIn(find, space).map([&](const Credentials &credentials) {
                return credentialOfUser(credentials, users.first().secret.toText());
            });
        });
}

Expected<Credential> credentialOf(const Finder &find, const Url &URL, const QString &method) {
    const auto space = UrlProtectionSpace::ofURL(URL, method);
    if (!space) {
        return std::nullopt;
    }
    if (!URL.user().isNull()) {
        const Expected<Credentials> credentials = credentialsIn(find, *space);
        if (!credentials) {
            return failure(credentials.error());
        }
        if (Credential found = credentialOfUser(*credentials, URL.user())) {
            return found;
        }
    }
    return defaultCredentialIn(find, *space);
}

Expected<Credential> credentialOf(const Finder &find, const Url &URL) {
    Expected<Credential> basic = credentialOf(find, URL, UrlAuthenticationMethodHttpBasic);
    if (basic && *basic) {
        return basic;
    }
    Expected<Credential> digest = credentialOf(find, URL, UrlAuthenticationMethodHttpDigest);
    return basic || (digest && *digest) ? digest : basic;
}

}  // namespace

UrlCredentialStorage &UrlCredentialStorage::shared() {
    static UrlCredentialStorage storage(SecretStore::shared());
    return storage;
}

Expected<Credentials> UrlCredentialStorage::credentialsForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    return space ? credentialsIn(finder(m_store), *space) : Credentials();
}

Expected<Credential> UrlCredentialStorage::defaultCredentialForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    return space ? defaultCredentialIn(finder(m_store), *space) : std::nullopt;
}

Expected<Credential> UrlCredentialStorage::credentialForURL(
    const Url &URL, const QString &authenticationMethod) const {
    return credentialForURL(URL, authenticationMethod, std::stop_token());
}

Expected<Credential> UrlCredentialStorage::credentialForURL(
    const Url &URL, const QString &authenticationMethod,
    const std::stop_token &cancellation) const {
    return credentialOf(finder(m_store, cancellation), URL, authenticationMethod);
}

Expected<Credential> UrlCredentialStorage::credentialForURL(const Url &URL) const {
    return credentialForURL(URL, std::stop_token());
}

Expected<Credential> UrlCredentialStorage::credentialForURL(
    const Url &URL, const std::stop_token &cancellation) const {
    return credentialOf(finder(m_store, cancellation), URL);
}

void UrlCredentialStorage::findCredentialForURL(const Url &URL,
                                                const CredentialHandler &handler) const {
    const auto space = UrlProtectionSpace::ofURL(URL, {});
    if (!space) {
        MainQueue::dispatchAsync([handler] { handler(Credential()); });
        return;
    }
    // One question for all that is stored for the server.
    SecretAttributes attributes = credentialAttributes(*space);
    attributes.erase(SchemaAttribute);
    attributes.erase("authentication-method");
    m_store.findLater(attributes, [URL, handler](const Expected<QList<StoredSecret>> &items) {
        handler(items.and_then(
            [&](const QList<StoredSecret> &all) { return credentialOf(finder(all), URL); }));
    });
}

void UrlCredentialStorage::setCredentialForProtectionSpace(
    const UrlCredential &credential, const std::optional<UrlProtectionSpace> &space) {
    if (!space || credential.persistence == UrlCredential::Persistence::None) {
        return;
    }
    StoredSecret item{.attributes = credentialAttributes(*space),
                      .label = secretLabel(credential.user + u'@' + space->host),
                      .secret = credential.password,
                      .keeping = keepingOf(credential)};
    item.attributes.emplace(UserAttribute, credential.user.toUtf8());
    m_store.set(item);
}

void UrlCredentialStorage::setDefaultCredentialForProtectionSpace(
    const UrlCredential &credential, const std::optional<UrlProtectionSpace> &space) {
    if (!space || credential.persistence == UrlCredential::Persistence::None) {
        return;
    }
    setCredentialForProtectionSpace(credential, space);
    m_store.set({.attributes = defaultUserAttributes(*space),
                 .label = secretLabel(QStringLiteral("user at %1").arg(space->host)),
                 .secret = credential.user,
                 .keeping = keepingOf(credential)});
}

void UrlCredentialStorage::findUsersForURL(const Url &URL, const UsersHandler &handler) const {
    const auto space = UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpBasic);
    if (!space) {
        MainQueue::dispatchAsync([handler] { handler(QStringList()); });
        return;
    }
    m_store.findAttributesLater(
        credentialAttributes(*space), [handler](const Expected<QList<SecretAttributes>> &items) {
            handler(items.map([](const QList<SecretAttributes> &all) {
                QStringList users;
                for (const SecretAttributes &attributes : all) {
                    const auto user = attributes.find(UserAttribute);
                    users.append(user == attributes.end() ? QString()
                                                          : QString::fromUtf8(user->second));
                }
                return users;
            }));
        });
}

void UrlCredentialStorage::removeCredentialForURL(const Url &URL, const RemovalHandler &handler) {
    const auto basic = UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpBasic);
    const auto digest = UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpDigest);
    if (!basic || !digest) {
        MainQueue::dispatchAsync([handler] { handler({}); });
        return;
    }
    const auto attributes = [user = URL.user().toUtf8()](const UrlProtectionSpace &space) {
        SecretAttributes result = credentialAttributes(space);
        result.emplace(UserAttribute, user);
        return result;
    };
    const auto removeDigest = [&store = m_store, handler, wanted = attributes(*digest)] {
        store.removeFirstLater(wanted, [handler](const Expected<bool> &isRemoved) {
            handler(isRemoved.map([](bool) {}));
        });
    };
    m_store.removeFirstLater(attributes(*basic),
                             [handler, removeDigest](const Expected<bool> &isRemoved) {
                                 if (isRemoved) {
                                     removeDigest();
                                 } else {
                                     handler(failure(isRemoved.error()));
                                 }
                             });
}
