#include "Engine/Stores/Dropbox/DropboxConfiguration.h"

#include <optional>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/LoopbackHost.h"
#include "Host/LocationSchemes.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

/// Reads the user defaults.
class Settings {
public:
    /// Returns the setting, or an empty text if it is not set or cannot be read.
    QString text(const QString &key) {
        const Expected<QString> value = UserDefaults::stringForKey(key);
        if (!value) {
            m_error =
                engineError(EngineErrorCode::StoreUnreachable, value.error().localizedDescription);
        }
        return value.value_or(QString());
    }
    QUrl address(const QString &key, const QString &publicAddress) {
        const QString configured = text(key);
        const QUrl address(configured.isEmpty() ? publicAddress : configured, QUrl::StrictMode);
        return address.adjusted(QUrl::StripTrailingSlash);
    }
    quint16 port(const QString &key) {
        const QString configured = text(key);
        bool isPort = configured.isEmpty();
        const quint16 port = isPort ? quint16(0) : configured.toUShort(&isPort);
        if (!isPort && !m_error) {
            m_error = engineError(EngineErrorCode::StoreUnreachable,
                                  "The port “%1” configured for Dropbox is not valid. Use a number "
                                  "from 0 to 65535.",
                                  configured);
        }
        return port;
    }
    /// Returns why a setting could not be used.
    std::optional<Error> error() const { return m_error; }

private:
    std::optional<Error> m_error;
};

bool isSafe(const QUrl &address) {
    const bool isSecret = address.scheme() == LocationSchemes::Https;
    const bool staysHere =
        address.scheme() == LocationSchemes::Http && isLoopbackHost(address.host());
    return address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty() &&
           (isSecret || staysHere);
}

}  // namespace

Expected<DropboxConfiguration> DropboxConfiguration::current() {
    Settings settings;
    DropboxConfiguration configuration{
        .applicationKey = settings.text(ApplicationKeyDefault),
        .authorizeAddress = settings.address(
            AuthorizeAddressDefault, QStringLiteral("https://www.dropbox.com/oauth2/authorize")),
        .tokenAddress = settings.address(TokenAddressDefault,
                                         QStringLiteral("https://api.dropboxapi.com/oauth2/token")),
        .APIAddress =
            settings.address(APIAddressDefault, QStringLiteral("https://api.dropboxapi.com/2")),
        .contentAddress = settings.address(ContentAddressDefault,
                                           QStringLiteral("https://content.dropboxapi.com/2")),
        .redirectPort = settings.port(RedirectPortDefault)};
    if (const std::optional<Error> error = settings.error()) {
        return failure(*error);
    }
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
