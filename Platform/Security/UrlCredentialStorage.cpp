#include "Platform/Security/UrlCredentialStorage.h"

#include "Platform/Security/SecretNames.h"
#include "Platform/Security/SecretStore.h"

namespace {

const QByteArray UserAttribute = QByteArrayLiteral("user");

/// Every item has the same attributes, an absent realm included: the Secret Service replaces and
/// finds by what is there, not by what is missing.
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

/// The attributes of the item that holds, in place of a password, the user of the default
/// credential.
SecretAttributes defaultUserAttributes(const UrlProtectionSpace &space) {
    return spaceAttributes(space, "UrlCredential.DefaultUser");
}

SecretKeeping keepingOf(const UrlCredential &credential) {
    return credential.persistence == UrlCredential::Persistence::Permanent ? SecretKeeping::ForGood
                                                                           : SecretKeeping::ThisRun;
}

}  // namespace

UrlCredentialStorage &UrlCredentialStorage::shared() {
    static UrlCredentialStorage storage(SecretStore::shared());
    return storage;
}

QHash<QString, UrlCredential> UrlCredentialStorage::credentialsForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    QHash<QString, UrlCredential> credentials;
    if (!space) {
        return credentials;
    }
    const auto items = m_store.find(credentialAttributes(*space));
    for (const StoredSecret &item : items.value_or(QList<StoredSecret>())) {
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

std::optional<UrlCredential> UrlCredentialStorage::defaultCredentialForProtectionSpace(
    const std::optional<UrlProtectionSpace> &space) const {
    if (!space) {
        return std::nullopt;
    }
    const auto users = m_store.find(defaultUserAttributes(*space));
    if (!users || users->isEmpty()) {
        return std::nullopt;
    }
    const auto credentials = credentialsForProtectionSpace(space);
    const auto found = credentials.find(QString::fromUtf8(users->first().secret));
    return found == credentials.end() ? std::nullopt : std::optional(*found);
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
