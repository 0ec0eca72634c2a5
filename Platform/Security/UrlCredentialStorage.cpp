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
    return {{"xdg:schema", secretSchema(schema)},
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
    return credential.persistence == UrlCredential::Persistence::Permanent ? SecretKeeping::ForGood
                                                                           : SecretKeeping::ThisRun;
}

/// Finds the items that have all of the attributes.
using Finder = std::function<QList<StoredSecret>(const SecretAttributes &attributes)>;

Finder finder(SecretStore &store) {
    return [&store](const SecretAttributes &attributes) {
        return store.find(attributes).value_or(QList<StoredSecret>());
    };
}

Finder finder(const QList<StoredSecret> &items) {
    return [items](const SecretAttributes &attributes) {
        QList<StoredSecret> found = items;
        found.removeIf([&](const StoredSecret &item) {
            return !std::includes(item.attributes.begin(), item.attributes.end(),
                                  attributes.begin(), attributes.end());
        });
        return found;
    };
}

QHash<QString, UrlCredential> credentialsIn(const Finder &find, const UrlProtectionSpace &space) {
    QHash<QString, UrlCredential> credentials;
    for (const StoredSecret &item : find(credentialAttributes(space))) {
        const auto user = item.attributes.find(UserAttribute);
        if (user != item.attributes.end()) {
            const UrlCredential credential{
                .user = QString::fromUtf8(user->second),
                .password = QString::fromUtf8(item.secret),
                .persistence = item.keeping == SecretKeeping::ThisRun
                                   ? UrlCredential::Persistence::ForSession
                                   : UrlCredential::Persistence::Permanent};
            credentials.insert(credential.user, credential);
        }
    }
    return credentials;
}

std::optional<UrlCredential> defaultCredentialIn(const Finder &find,
                                                 const UrlProtectionSpace &space) {
    const QList<StoredSecret> users = find(defaultUserAttributes(space));
    if (users.isEmpty()) {
        return std::nullopt;
    }
    const auto credentials = credentialsIn(find, space);
    const auto found = credentials.find(QString::fromUtf8(users.first().secret));
    return found == credentials.end() ? std::nullopt : std::optional(*found);
}

std::optional<UrlCredential> credentialOf(const Finder &find, const Url &URL,
                                          const QString &method) {
    const auto space = UrlProtectionSpace::ofURL(URL, method);
    if (!space) {
        return std::nullopt;
    }
    if (!URL.user().isNull()) {
        const auto credentials = credentialsIn(find, *space);
        if (const auto found = credentials.find(URL.user()); found != credentials.end()) {
            return *found;
        }
    }
    return defaultCredentialIn(find, *space);
}

std::optional<UrlCredential> credentialOf(const Finder &find, const Url &URL) {
    const auto basic = credentialOf(find, URL, UrlAuthenticationMethodHttpBasic);
    return basic ? basic : credentialOf(find, URL, UrlAuthenticationMethodHttpDigest);
}

}  // namespace

UrlCredentialStorage &UrlCredentialStorage::shared() {
    static UrlCredentialStorage storage(SecretStore::shared());
    return storage;
}

QHash<QString, UrlCredential> UrlCredentialStorage::credentialsForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    return space ? credentialsIn(finder(m_store), *space) : QHash<QString, UrlCredential>();
}

std::optional<UrlCredential> UrlCredentialStorage::defaultCredentialForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    return space ? defaultCredentialIn(finder(m_store), *space) : std::nullopt;
}

std::optional<UrlCredential> UrlCredentialStorage::credentialForURL(
    const Url &URL, const QString &authenticationMethod) const {
    return credentialOf(finder(m_store), URL, authenticationMethod);
}

std::optional<UrlCredential> UrlCredentialStorage::credentialForURL(const Url &URL) const {
    return credentialOf(finder(m_store), URL);
}

void UrlCredentialStorage::findCredentialForURL(const Url &URL,
                                                const CredentialHandler &handler) const {
    const auto space = UrlProtectionSpace::ofURL(URL, {});
    if (!space) {
        MainQueue::dispatchAsync([handler] { handler(std::nullopt); });
        return;
    }
    // One question for all that is stored for the server.
    SecretAttributes attributes = credentialAttributes(*space);
    attributes.erase("xdg:schema");
    attributes.erase("authentication-method");
    m_store.findLater(attributes, [URL, handler](const Expected<QList<StoredSecret>> &items) {
        handler(items.map(
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
                      .secret = credential.password.toUtf8(),
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
                 .secret = credential.user.toUtf8(),
                 .keeping = keepingOf(credential)});
}
