#include "Engine/Stores/Dropbox/DropboxConfiguration.h"

#include <QtNetwork/QHostAddress>

#include "Engine/Foundation/EngineError.h"
#include "Host/LocationSchemes.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

QUrl configuredAddress(const QString &key, const QString &publicAddress) {
    const QString text = UserDefaults::stringForKey(key);
    QUrl address(text.isEmpty() ? publicAddress : text, QUrl::StrictMode);
    return address.adjusted(QUrl::StripTrailingSlash);
}

bool isLoopback(const QString &host) {
    return host == QStringLiteral("localhost") || QHostAddress(host).isLoopback();
}

bool isSafe(const QUrl &address) {
    const bool isSecret = address.scheme() == LocationSchemes::Https;
    const bool staysHere = address.scheme() == LocationSchemes::Http && isLoopback(address.host());
    return address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty() &&
           (isSecret || staysHere);
}

}  // namespace

Expected<DropboxConfiguration> DropboxConfiguration::current() {
    DropboxConfiguration configuration{
        .applicationKey = UserDefaults::stringForKey(ApplicationKeyDefault),
        .authorizeAddress = configuredAddress(
            AuthorizeAddressDefault, QStringLiteral("https://www.dropbox.com/oauth2/authorize")),
        .tokenAddress = configuredAddress(
            TokenAddressDefault, QStringLiteral("https://api.dropboxapi.com/oauth2/token")),
        .APIAddress =
            configuredAddress(APIAddressDefault, QStringLiteral("https://api.dropboxapi.com/2")),
        .contentAddress = configuredAddress(ContentAddressDefault,
                                            QStringLiteral("https://content.dropboxapi.com/2")),
        .redirectPort = static_cast<quint16>(UserDefaults::integerForKey(RedirectPortDefault))};
    if (configuration.applicationKey.isEmpty()) {
        return failure(engineError(
            EngineErrorCode::StoreUnreachable,
            localizedSyncString("Dropbox cannot be used because no application key is configured. "
                                "Velmora’s documentation describes how to set one.")));
    }
    for (const QUrl &address : {configuration.authorizeAddress, configuration.tokenAddress,
                                configuration.APIAddress, configuration.contentAddress}) {
        if (!isSafe(address)) {
            return failure(engineError(
                EngineErrorCode::StoreUnreachable,
                "The address “%1” configured for Dropbox is not secure. Use an https address.",
                address.toString(QUrl::RemoveUserInfo)));
        }
    }
    return configuration;
}
