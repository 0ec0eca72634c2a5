#include "Platform/Security/Keychain.h"

#include "Platform/Security/SecretNames.h"
#include "Platform/Security/SecretStore.h"

namespace {

const QByteArray AccountAttribute = QByteArrayLiteral("account");

SecretAttributes serviceAttributes(const QByteArray &service) {
    return {{"xdg:schema", secretSchema("GenericPassword")}, {"service", service}};
}

SecretAttributes itemAttributes(const QByteArray &service, const QByteArray &account) {
    SecretAttributes attributes = serviceAttributes(service);
    attributes.emplace(AccountAttribute, account);
    return attributes;
}

}  // namespace

Keychain &Keychain::shared() {
    static Keychain keychain(SecretStore::shared());
    return keychain;
}

void Keychain::setPassword(const QString &service, const QString &account,
                           const QByteArray &password) {
    m_store.set({.attributes = itemAttributes(service.toUtf8(), account.toUtf8()),
                 .label = secretLabel(account),
                 .secret = password});
}

std::optional<QStringList> Keychain::accounts(const QString &service) const {
    const auto items = m_store.find(serviceAttributes(service.toUtf8()));
    if (!items) {
        return std::nullopt;
    }
    QStringList accounts;
    for (const StoredSecret &item : *items) {
        const auto account = item.attributes.find(AccountAttribute);
        if (account != item.attributes.end()) {
            accounts.append(QString::fromUtf8(account->second));
        }
    }
    return accounts;
}

std::optional<QByteArray> Keychain::password(const QString &service, const QString &account) const {
    const auto items = m_store.find(itemAttributes(service.toUtf8(), account.toUtf8()));
    return items && !items->isEmpty() ? std::optional(items->first().secret) : std::nullopt;
}

bool Keychain::removeFirst(const QByteArray &service, const QByteArray &account) {
    return m_store.removeFirst(itemAttributes(service, account));
}
