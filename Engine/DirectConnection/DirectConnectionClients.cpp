#include "Engine/DirectConnection/DirectConnectionClients.h"

#include <openssl/crypto.h>

#include <QtCore/QCryptographicHash>
#include <algorithm>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Foundation/FoundSecret.h"
#include "Platform/Foundation/PercentEscapes.h"
#include "Platform/Security/Keychain.h"

namespace {

constexpr qsizetype LongestName = 255;

/// The printable characters of ASCII that percent-encoding would encode, except for "%".
const QByteArray OtherPrintable = QByteArrayLiteral(" !\"#$&'()*+,/:;<=>?@[\\]^`{|}");

QByteArray passwordFor(const SecretBytes &secret) {
    return QCryptographicHash::hash(secret.view(), QCryptographicHash::Sha256).toHex();
}

}  // namespace

bool DirectConnectionClients::isName(const QString &name) {
    const auto characters = name.toUcs4();
    return !name.isEmpty() && name.toUtf8().size() <= LongestName &&
           std::all_of(characters.begin(), characters.end(),
                       [](char32_t character) { return QChar::isPrint(character); });
}

QString DirectConnectionClients::account(const QString &name) {
    return QString::fromLatin1(PercentEscapes::encoding(name, OtherPrintable));
}

Expected<void> DirectConnectionClients::replaceFormerAccounts() {
    const QString service = DirectConnection::ClientAuthorizationServiceName;
    Keychain &keychain = Keychain::shared();
    const Expected<std::optional<QStringList>> accounts =
        foundSecret(keychain.accounts(service).map(
            [](const QStringList &names) { return std::optional(names); }));
    if (!accounts) {
        return failure(accounts.error());
    }
    for (const QString &former : accounts->value_or(QStringList())) {
        const bool isAscii = std::all_of(former.begin(), former.end(),
                                         [](QChar character) { return character < u'\x7f'; });
        if (isAscii) {
            continue;
        }
        const auto password = foundSecret(keychain.password(service, former));
        if (!password) {
            return failure(password.error());
        }
        if (*password) {
            keychain.setPassword(service, account(former), **password);
            // The store of secrets reports a failure.
            keychain.removeFirstLater(service.toUtf8(), former.toUtf8(), [](const auto &) {});
        }
    }
    return {};
}

Expected<bool> DirectConnectionClients::isAuthorized(const QString &name,
                                                     const SecretBytes &secret) {
    const QByteArray expected = passwordFor(secret);
    return foundSecret(Keychain::shared().password(DirectConnection::ClientAuthorizationServiceName,
                                                   account(name)))
        .map([&](const std::optional<SecretBytes> &stored) {
            return stored && stored->view().size() == expected.size() &&
                   CRYPTO_memcmp(stored->view().data(), expected.constData(),
                                 static_cast<size_t>(expected.size())) == 0;
        });
}

void DirectConnectionClients::authorize(const QString &name, const SecretBytes &secret) {
    Keychain::shared().setPassword(DirectConnection::ClientAuthorizationServiceName, account(name),
                                   passwordFor(secret));
}
