#include "Engine/DirectConnection/DirectConnectionClients.h"

#include <openssl/crypto.h>

#include <QtCore/QCryptographicHash>
#include <algorithm>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Foundation/FoundSecret.h"
#include "Platform/Security/Keychain.h"

namespace {

constexpr qsizetype LongestName = 255;

QByteArray passwordFor(const QByteArray &secret) {
    return QCryptographicHash::hash(secret, QCryptographicHash::Sha256).toHex();
}

}  // namespace

bool DirectConnectionClients::isName(const QString &name) {
    const auto characters = name.toUcs4();
    return !name.isEmpty() && name.toUtf8().size() <= LongestName &&
           std::all_of(characters.begin(), characters.end(),
                       [](char32_t character) { return QChar::isPrint(character); });
}

Expected<bool> DirectConnectionClients::isAuthorized(const QString &name,
                                                     const QByteArray &secret) {
    const QByteArray expected = passwordFor(secret);
    return foundSecret(
               Keychain::shared().password(DirectConnection::ClientAuthorizationServiceName, name))
        .map([&](const std::optional<SecretBytes> &stored) {
            return stored && stored->view().size() == expected.size() &&
                   CRYPTO_memcmp(stored->view().data(), expected.constData(),
                                 static_cast<size_t>(expected.size())) == 0;
        });
}

void DirectConnectionClients::authorize(const QString &name, const QByteArray &secret) {
    Keychain::shared().setPassword(DirectConnection::ClientAuthorizationServiceName, name,
                                   passwordFor(secret));
}
