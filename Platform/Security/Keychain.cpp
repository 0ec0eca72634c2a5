#include "Platform/Security/Keychain.h"

#include "Platform/Security/SecretNames.h"
#include "Platform/Security/SecretStore.h"

namespace {

const QByteArray AccountAttribute = QByteArrayLiteral("account");

SecretAttributes serviceAttributes(const QByteArray &service) {
    return {{SchemaAttribute, secretSchema("GenericPassword")}, {"service", service}};
}

SecretAttributes itemAttributes(const QByteArray &service, const QByteArray &account) {
    SecretAttributes attributes = serviceAttributes(service);
    attributes.emplace(AccountAttribute, account);
    return attributes;
}

QStringList accountsOf(const QList<SecretAttributes> &items) {
    QStringList accounts;
    for (const SecretAttributes &attributes : items) {
        const auto account = attributes.find(AccountAttribute);
        if (account != attributes.end()) {
            accounts.append(QString::fromUtf8(account->second));
        }
    }
    return accounts;
}

}  // namespace

Keychain &Keychain::shared() {
    static Keychain keychain(SecretStore::shared());
    return keychain;
}

void Keychain::setPassword(const QString &service, const QString &account,
                           const SecretBytes &password) {
    m_store.set({.attributes = itemAttributes(service.toUtf8(), account.toUtf8()),
                 .label = secretLabel(account),
                 .secret = password});
}

Expected<QStringList> Keychain::accounts(const QString &service) const {
    return m_store.findAttributes(serviceAttributes(service.toUtf8())).map(accountsOf);
}

void Keychain::findAccounts(const QString &service, const AccountsHandler &handler) const {
    m_store.findAttributesLater(serviceAttributes(service.toUtf8()),
                                [handler](const Expected<QList<SecretAttributes>> &items) {
                                    handler(items.map(accountsOf));
                                });
}

Expected<std::optional<SecretBytes>> Keychain::password(const QString &service,
                                                        const QString &account) const {
    return password(service, account, std::stop_token());
}

Expected<std::optional<SecretBytes>> Keychain::password(const QString &service,
                                                        const QString &account,
                                                        const std::stop_token &cancellation) const {
    return m_store.find(itemAttributes(service.toUtf8(), account.toUtf8()), cancellation)
        .map([](const QList<StoredSecret> &items) {
            return items.isEmpty() ? std::nullopt : std::optional(items.first().secret);
        });
}

void Keychain::removeFirstLater(const QByteArray &service, const QByteArray &account,
                                const RemovalHandler &handler) {
    m_store.removeFirstLater(itemAttributes(service, account), handler);
}
